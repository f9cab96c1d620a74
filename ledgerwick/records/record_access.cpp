#include "ledgerwick/records/record_access.h"

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

void Recordset::Values(FieldList names, std::span<Variant> values) {
    for (std::size_t i = 0; i < names.size(); ++i) values[i] = Value(names[i]);
}

void Database::BeginBatch() {}
void Database::EndBatch() {}
void Database::Announce(std::span<const std::int32_t>) {}

}  // namespace ledgerwick
