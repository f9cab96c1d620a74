#include "ledgerwick/records/record_access.h"

#include <utility>

#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

Variant Field::Value() const {
    return recordset_.Value(name_);
}
void Field::Value(const Variant& value) const {
    recordset_.Value(name_, value);
}

bool Recordset::IsNull(const FieldName& name) {
    return Value(name).isNull();
}
bool Recordset::GetBoolean(const FieldName& name) {
    return Value(name).toBoolean(name.text());
}
std::int16_t Recordset::GetInt16(const FieldName& name) {
    return Value(name).toInt16(name.text());
}
std::int32_t Recordset::GetInt32(const FieldName& name) {
    return Value(name).toInt32(name.text());
}
float Recordset::GetSingle(const FieldName& name) {
    return Value(name).toSingle(name.text());
}
double Recordset::GetDouble(const FieldName& name) {
    return Value(name).toDouble(name.text());
}
Currency Recordset::GetCurrency(const FieldName& name) {
    return Value(name).toCurrency(name.text());
}
Date Recordset::GetDate(const FieldName& name) {
    return Value(name).toDate(name.text());
}

std::string_view Recordset::GetText(const FieldName& name) {
    text_ = Value(name).toText(name.text());
    return text_;
}

void Recordset::FillEmpty() {
    // What stands in a row of `PREmploymentsAddInfo`, apart from its key.
    static const std::pair<FieldName, Variant> blanks[]{
        {field::PRTAPRTID, std::int16_t{0}},
        {field::PRTAType, std::int16_t{0}},
        {field::PRTAStatus, std::int16_t{0}},
        {field::PRTAHCID, ""},
        {field::PRTADecDate, Date()},
        {field::PRTADied, false},
        {field::PRTAPEmpPAYERef, ""},
        {field::PRTAPEmpLeave, Date()},
        {field::PRTAPEmpSLoans, std::int16_t{0}},
        {field::PRTAPEmpTaxCode, ""},
        {field::PRTAPEmpWeek1, false},
        {field::PRTAPEmpWeekNo, std::int16_t{0}},
        {field::PRTAPEmpGross, Currency()},
        {field::PRTAPEmpTax, Currency()},
        {field::PRTAText, ""},
        {field::PRTADec, ""},
        {field::PRTAPEmpPGLoans, std::int16_t{0}},
    };
    for (const auto& [name, blank] : blanks) {
        try {
            if (!IsNull(name)) continue;
        } catch (const Error& error) {
            if (error.Number() == error_number::noSuchItem) continue;
            throw;
        }
        Value(name, blank);
    }
}

void Recordset::Values(FieldList names, std::span<Variant> values) {
    for (std::size_t i = 0; i < names.size(); ++i) values[i] = Value(names[i]);
}

bool Database::TableExists(std::string_view name) {
    if (name.find(']') != std::string_view::npos) return false;
    try {
        OpenRecordset("SELECT * FROM [" + std::string(name) + "] WHERE 1 = 0",
                      RecordsetType::Snapshot)
            ->Close();
        return true;
    } catch (const Error& error) {
        if (error.Number() == error_number::noSuchTable) return false;
        throw;
    }
}

void Database::BeginBatch() {}
void Database::EndBatch() {}
void Database::Announce(std::span<const std::int32_t>) {}

std::int64_t Database::DataVersion() {
    return 0;
}

}  // namespace ledgerwick
