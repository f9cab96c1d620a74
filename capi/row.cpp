// Rows of the database: all of a table to read, and single ones to write.
#include <array>
#include <optional>

#include "capi/columns.h"
#include "capi/session.h"
#include "hostkit/store/company_recordset.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::c {

namespace {

constexpr std::string_view here = "ledgerwick_row";

struct TableName {
    std::string_view name;
    std::string_view key;       // empty when a row cannot be asked for by a number
    std::string_view employee;  // the field that says whose row it is; empty for none
    std::string_view year;      // its payroll year, and its day
    std::string_view day;
};

constexpr std::array tableNames{
    TableName{"Customers", "NAID", "NAID", "", ""},
    TableName{"PREmployeeDetails", "PRENAID", "PRENAID", "", ""},
    TableName{"PREmployments", "PRTID", "PRTNAID", "PRTPayrollYear", "PRTStartDate"},
    TableName{"PREmploymentsAddInfo", "PRTAID", "", "", ""},
    TableName{"PRPay", "PRPID", "PRPNAID", "PRPPayrollYear", "PRPPayDate"},
    TableName{"PensionSchemes", "PSID", "", "", ""},
    TableName{"Orders", "OrdID", "OrdNAID", "", "OrdActionDate"},
    TableName{"Deadstock", "DSIDNo", "", "", ""},
    TableName{"UoM", "UoMNo", "", "", ""},
    TableName{"PRYearEnds", "PRYEYear", "", "PRYEYear", "PRYEDate"},
    TableName{"PRControl", "0", "", "", ""},
    TableName{"PRPayImport", "", "PRPINAID", "", ""},
    TableName{"Parameters", "", "", "", ""},
};

const TableName& tableNamed(const char* name, bool forWork) {
    const std::string wanted = textIn(name, here);
    for (const TableName& table : tableNames) {
        if (equalsIgnoringCase(table.name, wanted) && !(forWork && table.key.empty())) return table;
    }
    raise(LEDGERWICK_NO_SUCH_NAME, here, "table " + wanted);
}

// A field that is declared as a number of any kind holds one with a fraction.
std::int32_t kindOfDeclared(VariantKind declared) {
    return declared == VariantKind::Empty ? std::int32_t{LEDGERWICK_DOUBLE} : kindOf(declared);
}

// Imported pay has a table only while there is some.
bool isMissing(Session& session, const TableName& table) {
    return !session.database().tableExists(table.name);
}
struct FieldOf {
    std::string name;
    std::int32_t kind;
};
std::vector<FieldOf> fieldsOf(Session& session, const TableName& table) {
    if (isMissing(session, table)) {
        return {{"PRPINAID", LEDGERWICK_INTEGER}, {"PRPIPay", LEDGERWICK_DOUBLE}};
    }
    std::vector<FieldOf> fields;
    for (const store::FieldDescription& field : session.database().fieldsOf(table.name)) {
        fields.push_back({field.name, kindOfDeclared(field.kind)});
    }
    return fields;
}

class Row : public Held {
  public:
    // The row of a key, or a new one; with `fields` those alone.
    Row(Token session, const TableName& table, std::optional<std::int64_t> key,
        const char* fields = nullptr)
        : session_(session), table_(table), key_(key), isNew_(!key) {
        mark();
        Session& company = sessionIn(session);
        const std::string condition =
            key ? std::string(table.key) + " = " + std::to_string(*key) : "False";
        row_ = company.database().OpenRecordset("SELECT " + chosen(company, fields) + " FROM " +
                                                    std::string(table.name) + " WHERE " + condition,
                                                RecordsetType::Dynaset);
        if (key && row_->Eof()) {
            raise(LEDGERWICK_NO_SUCH_ROW, here,
                  std::string(table.name) + " has no row " + std::to_string(*key));
        }
        key ? row_->Edit() : row_->AddNew();
    }

    Variant value(const char* field) {
        mark(field);
        sessionIn(session_);  // fails once it is closed
        return row_->Value(textIn(field, here));
    }
    void value(const char* field, const Variant& value) {
        mark(field);
        sessionIn(session_);
        const std::string name = textIn(field, here);
        row_->Value(name, value);
        const FieldName* person = personFieldOf(table_.name);
        if (person && equalsIgnoringCase(person->text(), name)) {
            isNobodys_ = !value.isNull() && value.toInt32(here) == 0;
        }
    }
    std::int64_t store() {
        mark();
        Session& session = sessionIn(session_);
        const FieldName* person = personFieldOf(table_.name);
        // A key that is left out is given by the database.
        const bool leftOut = isNew_ && person && person->text() != table_.key;
        if (isNobodys_.value_or(leftOut)) {
            raise(LEDGERWICK_INVALID_CALL, here,
                  std::string(person->text()) + " is 0, which is nobody's number");
        }
        row_->Update();
        if (table_.name == "PRYearEnds") session.host().state().ReloadYearEnds();
        if (isNew_) row_->Bookmark(row_->LastModified());
        isNew_ = false;
        row_->Edit();
        if (table_.key == "0") return 0;
        key_ = row_->Value(table_.key).toInt64(here);
        return *key_;
    }
    std::int32_t kindOfField(const char* field) {
        mark(field);
        const std::string name = textIn(field, here);
        sessionIn(session_);
        const auto& set = dynamic_cast<const store::CompanyRecordset&>(*row_);
        for (std::size_t i = 0; i < set.fieldCount(); ++i) {
            if (equalsIgnoringCase(set.fieldName(i), name)) return kindOfDeclared(set.fieldKind(i));
        }
        raise(LEDGERWICK_NO_SUCH_NAME, table_.name, name);
    }
    const char* keepText(std::string text, std::size_t* length) {
        text_ = std::move(text);
        give(length, text_.size());
        return text_.c_str();
    }

  private:
    void mark(const char* field = nullptr) {
        rowAtHand() = {std::string(table_.name), key_.value_or(0), field ? field : ""};
    }
    std::string chosen(Session& company, const char* fields) const {
        if (!fields) return "*";
        auto& names = company.fieldNames(table_.name);
        if (names.empty()) {
            for (const FieldOf& field : fieldsOf(company, table_)) names.push_back(field.name);
        }
        std::string list = table_.key == "0" ? "" : std::string(table_.key);
        for (const std::string& name : chosenNames(fields, names)) {
            if (name != table_.key) list += (list.empty() ? "" : ", ") + name;
        }
        return list;
    }

    Token session_;
    const TableName& table_;
    std::optional<std::int64_t> key_;
    bool isNew_;
    std::optional<bool> isNobodys_;  // as far as the number of its person was written
    RecordsetRef row_;
    std::string text_;
};

Row& rowIn(const ledgerwick_row* handle) {
    return objectOf<Row>(handle, "row");
}

// Which rows of a table, and which fields of them.
struct Selection {
    const char* columns = nullptr;  // NULL: all
    std::int32_t naid = 0;          // 0: of everybody
    std::int32_t year = 0;          // 0: of all
    Date since;                     // not set: from the first
};

// " AND PRPNAID = 7" where the caller asks for it.
std::string condition(const TableName& table, std::string_view field, std::string_view meaning,
                      const std::string& comparison) {
    if (comparison.empty()) return {};
    if (field.empty()) {
        raise(LEDGERWICK_NO_SUCH_NAME, here,
              std::string(table.name) + " has no field of " + std::string(meaning));
    }
    return " AND " + std::string(field) + comparison;
}
std::string conditionOf(const TableName& table, const Selection& which) {
    const auto equals = [](std::int32_t number) {
        return number == 0 ? std::string() : " = " + std::to_string(number);
    };
    const std::string since =
        which.since.isSet() ? " >= " + office::dateLiteral(which.since) : std::string();
    return "True" + condition(table, table.employee, "an employee", equals(which.naid)) +
           condition(table, table.year, "a payroll year", equals(which.year)) +
           condition(table, table.day, "a day", since);
}

std::unique_ptr<Table> someRows(Session& session, const TableName& table, const Selection& which) {
    const std::string where = conditionOf(table, which);
    const std::vector<FieldOf> all = fieldsOf(session, table);
    std::vector<std::string> names;
    names.reserve(all.size());
    for (const FieldOf& field : all) names.push_back(field.name);
    names = chosenNames(which.columns, names);
    std::vector<std::int32_t> kinds;
    for (const std::string& name : names) {
        for (const FieldOf& field : all) {
            if (field.name == name) kinds.push_back(field.kind);
        }
    }
    auto out = std::make_unique<Table>(names, kinds);
    if (isMissing(session, table)) return out;
    std::string statement = "SELECT ";
    for (const std::string& name : names) statement += (name == names[0] ? "" : ", ") + name;
    statement += " FROM " + std::string(table.name) + " WHERE " + where;
    if (!table.key.empty() && table.key != "0") statement += " ORDER BY " + std::string(table.key);
    const auto rows = session.database().OpenRecordset(statement, RecordsetType::Snapshot);
    const std::vector<FieldName> fields(names.begin(), names.end());
    std::vector<Variant> values(fields.size());
    for (; !rows->Eof(); rows->MoveNext()) {
        rows->Values(fields, values);
        for (Variant& value : values) out->addCell(std::move(value));
    }
    rows->Close();
    return out;
}

std::unique_ptr<Table> fieldTable(Session& session, const TableName& table) {
    static constexpr const char* kinds[] = {"",       "",      "boolean", "integer",
                                            "number", "money", "date",    "text"};
    auto out = std::make_unique<Table>(std::vector<std::string>{"name", "kind"});
    for (const FieldOf& field : fieldsOf(session, table)) {
        out->add({field.name, kinds[field.kind]});
    }
    return out;
}

}  // namespace

}  // namespace ledgerwick::c

using namespace ledgerwick::c;
using ledgerwick::Variant;

std::int32_t ledgerwick_rows(ledgerwick_session* session, const char* table, std::int32_t naid,
                             ledgerwick_table** out, ledgerwick_error* error) {
    return ledgerwick_rows_select(session, table, nullptr, naid, 0, 0, out, error);
}

std::int32_t ledgerwick_rows_select(ledgerwick_session* session, const char* table,
                                    const char* columns, std::int32_t naid, std::int32_t year,
                                    ledgerwick_date since, ledgerwick_table** out,
                                    ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = sessionIn(session);
        giveHandle(out, someRows(company, tableNamed(table, false),
                                 {columns, naid, year, dateIn(since, here)}));
    });
}

std::int32_t ledgerwick_fields(ledgerwick_session* session, const char* table,
                               ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = sessionIn(session);
        giveHandle(out, fieldTable(company, tableNamed(table, false)));
    });
}

std::int32_t ledgerwick_row_new(ledgerwick_session* session, const char* table,
                                ledgerwick_row** row, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(row, here);
        giveHandle(row,
                   std::make_unique<Row>(tokenOf(session), tableNamed(table, true), std::nullopt));
    });
}

std::int32_t ledgerwick_row_open(ledgerwick_session* session, const char* table, std::int64_t key,
                                 ledgerwick_row** row, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(row, here);
        giveHandle(row, std::make_unique<Row>(tokenOf(session), tableNamed(table, true), key));
    });
}

std::int32_t ledgerwick_row_open_fields(ledgerwick_session* session, const char* table,
                                        std::int64_t key, const char* fields, ledgerwick_row** row,
                                        ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(row, here);
        giveHandle(row,
                   std::make_unique<Row>(tokenOf(session), tableNamed(table, true), key, fields));
    });
}

std::int32_t ledgerwick_row_kind(ledgerwick_row* row, const char* field, std::int32_t* kind,
                                 ledgerwick_error* error) {
    return call(error, [&] { give(kind, kindOf(rowIn(row).value(field))); });
}

std::int32_t ledgerwick_row_field_kind(ledgerwick_row* row, const char* field, std::int32_t* kind,
                                       ledgerwick_error* error) {
    return call(error, [&] { give(kind, rowIn(row).kindOfField(field)); });
}

std::int32_t ledgerwick_row_integer(ledgerwick_row* row, const char* field, std::int64_t* value,
                                    ledgerwick_error* error) {
    return call(error, [&] {
        const Variant read = rowIn(row).value(field);
        give(value, integerOf(read, field));
    });
}

std::int32_t ledgerwick_row_double(ledgerwick_row* row, const char* field, double* value,
                                   ledgerwick_error* error) {
    return call(error, [&] {
        const Variant read = rowIn(row).value(field);
        give(value, doubleOf(read, field));
    });
}

std::int32_t ledgerwick_row_money(ledgerwick_row* row, const char* field, ledgerwick_money* value,
                                  ledgerwick_error* error) {
    return call(error, [&] {
        const Variant read = rowIn(row).value(field);
        give(value, read.toCurrency(field).ticks());
    });
}

std::int32_t ledgerwick_row_date(ledgerwick_row* row, const char* field, ledgerwick_date* value,
                                 ledgerwick_error* error) {
    return call(error, [&] {
        const Variant read = rowIn(row).value(field);
        give(value, dateOf(read, field));
    });
}

std::int32_t ledgerwick_row_text(ledgerwick_row* row, const char* field, const char** value,
                                 std::size_t* length, ledgerwick_error* error) {
    return call(error, [&] {
        const char* const text = rowIn(row).keepText(textOf(rowIn(row).value(field)), length);
        give(value, text);
    });
}

std::int32_t ledgerwick_row_set_integer(ledgerwick_row* row, const char* field, std::int64_t value,
                                        ledgerwick_error* error) {
    return call(error, [&] { rowIn(row).value(field, Variant(value)); });
}

std::int32_t ledgerwick_row_set_double(ledgerwick_row* row, const char* field, double value,
                                       ledgerwick_error* error) {
    return call(error, [&] { rowIn(row).value(field, Variant(value)); });
}

std::int32_t ledgerwick_row_set_money(ledgerwick_row* row, const char* field,
                                      ledgerwick_money value, ledgerwick_error* error) {
    return call(error, [&] { rowIn(row).value(field, ledgerwick::Currency::fromTicks(value)); });
}

std::int32_t ledgerwick_row_set_date(ledgerwick_row* row, const char* field, ledgerwick_date value,
                                     ledgerwick_error* error) {
    return call(error, [&] { rowIn(row).value(field, dateIn(value, here)); });
}

std::int32_t ledgerwick_row_set_text(ledgerwick_row* row, const char* field, const char* value,
                                     ledgerwick_error* error) {
    return call(error, [&] { rowIn(row).value(field, textIn(value, here)); });
}

std::int32_t ledgerwick_row_store(ledgerwick_row* row, std::int64_t* key, ledgerwick_error* error) {
    return call(error, [&] { give(key, rowIn(row).store()); });
}

std::int32_t ledgerwick_row_close(ledgerwick_row* row, ledgerwick_error* error) {
    return call(error, [&] { close<Row>(row, "row"); });
}
