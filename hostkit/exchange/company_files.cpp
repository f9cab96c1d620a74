#include "hostkit/exchange/company_files.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <unordered_set>
#include <utility>

#include "hostkit/exchange/csv.h"
#include "hostkit/exchange/tables.h"
#include "hostkit/services/terminal_text.h"
#include "hostkit/store/open.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::exchange {

namespace {

constexpr std::size_t mostFaultsTold = 20;

std::string toldFaults(const std::vector<std::string>& faults) {
    std::string text;
    for (std::size_t i = 0; i < faults.size() && i < mostFaultsTold; ++i) {
        if (i > 0) text += '\n';
        text += withoutControls(faults[i]);
    }
    if (faults.size() > mostFaultsTold) {
        text += "\nand " + std::to_string(faults.size() - mostFaultsTold) + " more";
    }
    return text;
}

std::ifstream opened(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + file.string());
    return in;
}

// A file of an import and the table that it goes to.
struct ImportFile {
    std::filesystem::path path;
    const TableLayout* table;

    std::string name() const { return path.filename().string(); }
};

// A key as it is compared: texts without regard to case.
std::string comparable(const Variant& key) {
    std::string text = key.toText();
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

std::unordered_set<std::string> keysOf(Database& database, const TableLayout& table) {
    std::unordered_set<std::string> keys;
    const std::string& key = table.key()->name;
    const auto rows =
        database.OpenRecordset("SELECT " + key + " FROM " + table.name, RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) keys.insert(comparable(rows->Value(key)));
    rows->Close();
    return keys;
}

// Reads a file's rows into the fields of its table. What is wrong goes to `faults`; a row with a
// fault is not handed on.
class FileReading {
  public:
    using Row = std::vector<std::pair<const FieldLayout*, Variant>>;
    using RowTaker = std::function<void(std::size_t line, const Row& row)>;

    FileReading(const ImportFile& file, std::vector<std::string>& faults)
        : file_(file), faults_(faults) {}

    void run(const RowTaker& take) {
        std::ifstream in = opened(file_.path);
        bool first = true;
        const auto fault =
            CsvReader::read(in, [&](std::size_t line, const std::vector<std::string>& fields) {
                if (std::exchange(first, false)) {
                    readHeading(line, fields);
                } else if (headingSound_) {
                    readRow(line, fields, take);
                }
            });
        if (fault) tell(fault->line, {}, fault->reason);
        if (first && !fault) tell(1, {}, "there is no row of field names");
    }

    void tell(std::size_t line, std::string_view field, const std::string& reason) {
        std::string text = file_.name() + ", line " + std::to_string(line);
        if (!field.empty()) text += ", field " + std::string(field);
        faults_.push_back(text + ": " + reason);
    }

  private:
    void readHeading(std::size_t line, const std::vector<std::string>& names) {
        const std::size_t before = faults_.size();
        for (const std::string& name : names) {
            const FieldLayout* field = file_.table->field(name);
            const bool twice = std::find(heading_.begin(), heading_.end(), field) != heading_.end();
            if (field == nullptr) {
                tell(line, name, file_.table->name + " has no such field");
            } else if (twice) {
                tell(line, name, "the field stands here twice");
            }
            heading_.push_back(field);
        }
        const FieldLayout* key = file_.table->key();
        if (key != nullptr && std::find(heading_.begin(), heading_.end(), key) == heading_.end()) {
            tell(line, key->name, "the key is missing");
        }
        headingSound_ = faults_.size() == before;
    }

    void readRow(std::size_t line, const std::vector<std::string>& fields, const RowTaker& take) {
        if (fields.size() != heading_.size()) {
            tell(line, {},
                 std::to_string(fields.size()) + " fields instead of " +
                     std::to_string(heading_.size()));
            return;
        }
        Row row;
        bool sound = true;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            FieldReading reading = readField(fields[i], *heading_[i]);
            if (!reading.fault.empty()) {
                tell(line, heading_[i]->name, reading.fault);
                sound = false;
            } else if (!reading.value.isEmpty()) {
                row.emplace_back(heading_[i], std::move(reading.value));
            }
        }
        if (sound) take(line, row);
    }

    const ImportFile& file_;
    std::vector<std::string>& faults_;
    std::vector<const FieldLayout*> heading_;
    bool headingSound_ = false;
};

const Variant& keyOf(const FileReading::Row& row, const FieldLayout& key) {
    return std::find_if(row.begin(), row.end(),
                        [&key](const auto& field) { return field.first == &key; })
        ->second;
}

// Whether the row would belong to nobody: the number of its person is 0, or left out.
bool isNobodys(const TableLayout& table, const FileReading::Row& row) {
    const FieldName* person = personFieldOf(table.name);
    if (!person) return false;
    const auto found = std::find_if(row.begin(), row.end(), [person](const auto& field) {
        return field.first->name == person->text();
    });
    return found == row.end() || (!found->second.isNull() && found->second.toInt32() == 0);
}

// Judges a file without storing anything.
void judge(Database& database, const ImportFile& file, std::vector<std::string>& faults) {
    const TableLayout& table = *file.table;
    const FieldLayout* key = table.key();
    std::unordered_set<std::string> stored;
    if (key != nullptr && !table.isSettings) stored = keysOf(database, table);
    std::unordered_set<std::string> seen;
    std::size_t rows = 0;
    FileReading reading(file, faults);
    reading.run([&](std::size_t line, const FileReading::Row& row) {
        const bool secondControl = table.name == "PRControl" && ++rows > 1;
        if (secondControl) reading.tell(line, {}, "the control record is one row");
        if (isNobodys(table, row)) {
            reading.tell(line, personFieldOf(table.name)->text(), "0 is nobody's number");
        }
        if (key == nullptr) return;
        const std::string value = comparable(keyOf(row, *key));
        if (!seen.insert(value).second) {
            reading.tell(line, key->name, value + " stands in this file twice");
        } else if (stored.contains(value)) {
            reading.tell(line, key->name, value + " is in the database already");
        }
    });
}

// The row of the settings that a new row replaces, in edit; else a new row.
void startRow(Recordset& target, const TableLayout& table, const FileReading::Row& row) {
    const FieldLayout* key = table.key();
    if (table.isSettings && target.RecordCount() > 0) {
        const std::string wanted = key == nullptr ? std::string() : comparable(keyOf(row, *key));
        for (target.MoveFirst(); !target.Eof(); target.MoveNext()) {
            if (key == nullptr || comparable(target.Value(key->name)) == wanted) {
                return target.Edit();
            }
        }
    }
    target.AddNew();
}

std::size_t store(Database& database, const ImportFile& file) {
    const TableLayout& table = *file.table;
    const std::string none = table.isSettings ? "" : " WHERE False";
    const auto target =
        database.OpenRecordset("SELECT * FROM " + table.name + none, RecordsetType::Dynaset);
    std::vector<std::string> faults;
    std::size_t count = 0;
    FileReading(file, faults).run([&](std::size_t, const FileReading::Row& row) {
        startRow(*target, table, row);
        for (const auto& [field, value] : row) target->Value(field->name, value);
        target->Update();
        ++count;
    });
    target->Close();
    if (!faults.empty()) throw std::runtime_error(file.name() + " was changed while it was read");
    return count;
}

std::vector<ImportFile> filesOf(const std::filesystem::path& folder,
                                const std::vector<TableLayout>& tables,
                                std::vector<std::string>& faults) {
    std::vector<ImportFile> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (!equalsIgnoringCase(entry.path().extension().string(), ".csv")) continue;
        const std::string stem = entry.path().stem().string();
        const auto table = std::find_if(tables.begin(), tables.end(), [&](const auto& layout) {
            return equalsIgnoringCase(layout.name, stem);
        });
        if (table == tables.end()) {
            faults.push_back(entry.path().filename().string() + ": there is no table " + stem);
        } else {
            files.push_back({entry.path(), &*table});
        }
    }
    std::sort(files.begin(), files.end(),
              [](const auto& a, const auto& b) { return a.table < b.table; });
    if (files.empty()) faults.push_back(folder.string() + " holds no file of a table");
    return files;
}

// A query for the rows that a load would stumble over, which gives their number as `RowKey`, and the
// words before and behind that number.
struct Link {
    std::string_view query;
    std::string_view row;
    std::string_view missing;
};

constexpr Link links[] = {
    {R"(SELECT PRENAID AS RowKey
        FROM PREmployeeDetails LEFT JOIN Customers ON Customers.NAID = PREmployeeDetails.PRENAID
        WHERE NAID IS NULL)",
     "employee", "has no row in Customers"},
    {R"(SELECT PRENAID AS RowKey
        FROM PREmployeeDetails LEFT JOIN PREmployments ON PREmployments.PRTNAID = PREmployeeDetails.PRENAID
        WHERE PRTID IS NULL)",
     "employee", "has no employment; `employment add` lays one down"},
    {R"(SELECT PRPID AS RowKey
        FROM PRPay LEFT JOIN PREmployments
        ON PREmployments.PRTNAID = PRPay.PRPNAID
        AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount
        AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear
        WHERE PRTID IS NULL)",
     "pay row", "has no employment"},
    {R"(SELECT PRPINAID AS RowKey
        FROM PRPayImport LEFT JOIN PREmployeeDetails ON PREmployeeDetails.PRENAID = PRPayImport.PRPINAID
        WHERE PRENAID IS NULL)",
     "imported pay of", "belongs to no employee"},
};

std::size_t exportTable(Database& database, const TableLayout& table,
                        const std::filesystem::path& file) {
    std::ofstream out(file, std::ios::binary);
    CsvWriter writer(out);
    std::vector<std::string> cells;
    for (const FieldLayout& field : table.fields) cells.push_back(field.name);
    writer.row(cells);
    const FieldLayout* key = table.key();
    const auto rows = database.OpenRecordset(
        "SELECT * FROM " + table.name +
            (key != nullptr && !table.isSettings ? " ORDER BY " + key->name : ""),
        RecordsetType::Snapshot);
    std::size_t count = 0;
    for (; !rows->Eof(); rows->MoveNext(), ++count) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            cells[i] = writeField(rows->Value(table.fields[i].name), table.fields[i]);
        }
        writer.row(cells);
    }
    rows->Close();
    out.close();
    if (!out) throw std::runtime_error("cannot write " + file.string());
    return count;
}

}  // namespace

std::shared_ptr<store::CompanyStore> openOrCreate(const std::string& name) {
    return store::exists(name) ? store::open(name) : store::create(name);
}

BadFiles::BadFiles(const std::vector<std::string>& faults)
    : std::runtime_error(toldFaults(faults)) {}

std::vector<TableCount> importCompany(store::CompanyStore& database,
                                      const std::filesystem::path& folder) {
    std::vector<std::string> faults;
    const auto tables = companyTables(database);
    const auto files = filesOf(folder, tables, faults);
    for (const ImportFile& file : files) judge(database, file, faults);
    if (!faults.empty()) throw BadFiles(faults);
    std::vector<TableCount> counts;
    database.inTransaction([&] {
        for (const ImportFile& file : files) {
            counts.push_back({file.table->name, store(database, file)});
        }
    });
    return counts;
}

std::vector<std::string> brokenLinks(Database& database) {
    std::vector<std::string> sentences;
    for (const Link& link : links) {
        const auto rows = database.OpenRecordset(link.query, RecordsetType::Snapshot);
        for (; !rows->Eof() && sentences.size() < mostFaultsTold; rows->MoveNext()) {
            sentences.push_back(std::string(link.row) + " " + rows->Value("RowKey").toText() + " " +
                                std::string(link.missing));
        }
        rows->Close();
    }
    return sentences;
}

std::vector<TableCount> exportCompany(store::CompanyStore& database,
                                      const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    std::vector<TableCount> counts;
    for (const TableLayout& table : companyTables(database)) {
        counts.push_back(
            {table.name, exportTable(database, table, folder / (table.name + ".csv"))});
    }
    return counts;
}

}  // namespace ledgerwick::exchange
