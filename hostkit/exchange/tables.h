// The tables of a company as files: which there are, what their fields hold, and how a field is
// written in a file.
//
// Dates are 2016-04-29, followed by "T13:00:00" when there is a time of day; a date that is not
// set and an empty text are an empty field. An empty field of any other kind is the table's own
// default. Booleans are True and False, numbers plain decimal. `\N` is Null.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/store/company_store.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::exchange {

// A field of a table.
struct FieldLayout {
    // Its name.
    std::string name;
    // Its kind.
    VariantKind kind;
    // Whether it is the key.
    bool isKey = false;
    bool isDayNumber = false;  // a date to people, kept as a whole day number
};

// A table.
struct LEDGERWICK_HOSTKIT_API TableLayout {
    // Its name.
    std::string name;
    // Its fields in order.
    std::vector<FieldLayout> fields;
    // The company's settings, whose rows take the place of those that are there.
    bool isSettings = false;

    // The field of that name in any case, or a null pointer.
    const FieldLayout* field(std::string_view fieldName) const;
    // The key, or a null pointer when the table has none.
    const FieldLayout* key() const;
};

// The tables of the database, with the columns that it has. `PRPayImport` is created if it is not
// there.
LEDGERWICK_HOSTKIT_API std::vector<TableLayout> companyTables(store::CompanyStore& company);

// A field of a file read as a value: Empty stands for the table's own default.
struct FieldReading {
    // The value read.
    Variant value;
    std::string fault;  // what is wrong with the field; empty when it is sound
};
// Reads a text as the field's kind.
LEDGERWICK_HOSTKIT_API FieldReading readField(std::string_view text, const FieldLayout& field);

// The value as it stands in a file.
LEDGERWICK_HOSTKIT_API std::string writeField(const Variant& value, const FieldLayout& field);

}  // namespace ledgerwick::exchange
