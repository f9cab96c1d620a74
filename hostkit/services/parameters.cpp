#include "hostkit/services/parameters.h"

#include <utility>

#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

namespace {

constexpr FieldName parName{"ParName"};
constexpr FieldName parValue{"ParValue"};

std::string lowerCase(std::string_view name) {
    std::string lower(name);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

}  // namespace

KitParameters::KitParameters(std::shared_ptr<Database> database) : database_(std::move(database)) {
    Reload();
}

Variant KitParameters::Get(std::string_view name) const {
    const auto found = values_.find(lowerCase(name));
    if (found == values_.end()) raise(error_number::noSuchItem, "GetParameterField", name);
    return found->second;
}

Variant KitParameters::Get(std::string_view name, const Variant& otherwise) const {
    const auto found = values_.find(lowerCase(name));
    return found == values_.end() ? otherwise : found->second;
}

bool KitParameters::Has(std::string_view name) const {
    return values_.contains(lowerCase(name));
}

void KitParameters::Set(std::string_view name, const Variant& value) {
    const std::string wanted = lowerCase(name);
    const auto rows = database_->OpenRecordset("SELECT ParName, ParValue FROM Parameters",
                                               RecordsetType::Dynaset);
    while (!rows->Eof() && lowerCase(rows->GetText(parName)) != wanted) rows->MoveNext();
    if (rows->Eof()) {
        rows->AddNew();
        rows->Value(parName, Variant(name));
    } else {
        rows->Edit();
    }
    rows->Value(parValue, Variant(value.toText()));
    rows->Update();
    rows->Close();
    values_[wanted] = Variant(value.toText());
}

void KitParameters::Remove(std::string_view name) {
    if (!Has(name)) return;
    database_->Execute(
        "DELETE FROM Parameters WHERE ParName = '" + replaceAll(name, "'", "''") + "'",
        failOnError);
    values_.erase(lowerCase(name));
}

void KitParameters::Reload() {
    values_.clear();
    const auto rows = database_->OpenRecordset("SELECT ParName, ParValue FROM Parameters",
                                               RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        values_[lowerCase(rows->GetText(parName))] = rows->Value(parValue);
    }
    rows->Close();
}

}  // namespace ledgerwick
