// Rows of the database: all of a table to read, and single ones to write.
#include <array>
#include <optional>

#include "capi/session.h"
#include "capi/table.h"
#include "hostkit/sqlite/recordset.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::c {

namespace {

constexpr std::string_view here = "ledgerwick_row";

struct TableName {
    std::string_view name;
    std::string_view key;       // empty when a row cannot be asked for by a number
    std::string_view employee;  // the field that says whose row it is; empty for none
};

constexpr std::array tableNames{
    TableName{"Customers", "NAID", "NAID"},
    TableName{"PREmployeeDetails", "PRENAID", "PRENAID"},
    TableName{"PREmployments", "PRTID", "PRTNAID"},
    TableName{"PREmploymentsAddInfo", "PRTAID", ""},
    TableName{"PRPay", "PRPID", "PRPNAID"},
    TableName{"PensionSchemes", "PSID", ""},
    TableName{"Orders", "OrdID", "OrdNAID"},
    TableName{"Deadstock", "DSIDNo", ""},
    TableName{"UoM", "UoMNo", ""},
    TableName{"PRYearEnds", "PRYEYear", ""},
    TableName{"PRControl", "0", ""},
    TableName{"PRPayImport", "", "PRPINAID"},
    TableName{"Parameters", "", ""},
};

const TableName& tableNamed(const char* name, bool forWork) {
    const std::string wanted = textIn(name, here);
    for (const TableName& table : tableNames) {
        if (equalsIgnoringCase(table.name, wanted) && !(forWork && table.key.empty())) return table;
    }
    raise(LEDGERWICK_NO_SUCH_NAME, here, "table " + wanted);
}

std::string selectWhere(const TableName& table, const std::string& condition) {
    return "SELECT * FROM " + std::string(table.name) + " WHERE " + condition;
}

class Row : public Held {
  public:
    // The row of a key, or a new one.
    Row(Token session, const TableName& table, std::optional<std::int64_t> key)
        : session_(session), table_(table), isNew_(!key) {
        const std::string condition =
            key ? std::string(table.key) + " = " + std::to_string(*key) : "False";
        row_ = sessionIn(session).database().OpenRecordset(selectWhere(table, condition),
                                                           RecordsetType::Dynaset);
        if (key && row_->Eof()) {
            raise(LEDGERWICK_NO_SUCH_ROW, here,
                  std::string(table.name) + " has no row " + std::to_string(*key));
        }
        key ? row_->Edit() : row_->AddNew();
    }

    Variant value(const char* field) {
        sessionIn(session_);  // fails once it is closed
        return row_->Value(textIn(field, here));
    }
    void value(const char* field, const Variant& value) {
        sessionIn(session_);
        row_->Value(textIn(field, here), value);
    }
    std::int64_t store() {
        Session& session = sessionIn(session_);
        row_->Update();
        if (table_.name == "PRYearEnds") session.host().state().ReloadYearEnds();
        if (isNew_) row_->Bookmark(row_->LastModified());
        isNew_ = false;
        row_->Edit();
        if (table_.key == "0") return 0;
        return row_->Value(table_.key).toInt64(here);
    }
    const char* keepText(std::string text, std::size_t* length) {
        text_ = std::move(text);
        give(length, text_.size());
        return text_.c_str();
    }

  private:
    Token session_;
    const TableName& table_;
    bool isNew_;
    RecordsetRef row_;
    std::string text_;
};

Row& rowIn(const ledgerwick_row* handle) {
    return objectOf<Row>(handle, "row");
}

// A store that does not know a value's kind keeps numbers as they are.
std::unique_ptr<Table> allRows(Session& session, const TableName& table, std::int32_t naid) {
    if (naid != 0 && table.employee.empty()) {
        raise(LEDGERWICK_NO_SUCH_NAME, here,
              std::string(table.name) + " has no field of an employee");
    }
    const bool laidDown = session.database().tableExists(table.name);
    if (!laidDown) return std::make_unique<Table>(std::vector<std::string>{"PRPINAID", "PRPIPay"});
    const std::string condition =
        naid == 0 ? "True" : std::string(table.employee) + " = " + std::to_string(naid);
    const auto rows =
        session.database().OpenRecordset(selectWhere(table, condition), RecordsetType::Snapshot);
    const auto& fields = dynamic_cast<const sqlite::SqliteRecordset&>(*rows);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < fields.fieldCount(); ++i) names.emplace_back(fields.fieldName(i));
    auto out = std::make_unique<Table>(names);
    for (; !rows->Eof(); rows->MoveNext()) {
        for (const std::string& name : names) out->addCell(rows->Value(name));
    }
    rows->Close();
    return out;
}

}  // namespace

}  // namespace ledgerwick::c

using namespace ledgerwick::c;
using ledgerwick::Variant;

std::int32_t ledgerwick_rows(ledgerwick_session* session, const char* table, std::int32_t naid,
                             ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = sessionIn(session);
        giveHandle(out, allRows(company, tableNamed(table, false), naid));
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

std::int32_t ledgerwick_row_kind(ledgerwick_row* row, const char* field, std::int32_t* kind,
                                 ledgerwick_error* error) {
    return call(error, [&] { give(kind, kindOf(rowIn(row).value(field))); });
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
