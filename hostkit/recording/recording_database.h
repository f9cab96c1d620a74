// A database that passes everything on to another one and writes down which rows are written.
//
//   auto recording = std::make_shared<RecordingDatabase>(file);
//   HostSession session(recording, today);
//   session.list().LoadEmployees();
//   file->rehearse([&] { session.payroll().C_InputHoursInit(...); });   // nothing stays written
//   for (const RowChange& change : recording->changes()) ...
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/forwarding/forwarding_database.h"

namespace ledgerwick {

namespace recording {

// A table whose rows are followed: its key, whose row it is, and what is recorded of a deleted row.
// The name of a key that is empty stands for a table without one.
struct FollowedTable {
    std::string_view name;             // the table
    FieldName key;                     // its key
    FieldName owner;                   // the field of the employee
    std::vector<FieldName> content{};  // what is recorded of a deleted row
};

// What became of a row: new, with other values, or gone.
enum class ChangeKind : std::uint8_t { Added, Changed, Removed };

// A field that differs at the end of a recording.
struct FieldChange {
    std::string_view field;  // lives as long as the recording
    Variant from;            // of an added row the table's own default
    Variant to;              // Empty of a row that goes
};

// What became of one row over the whole recording.
struct RowChange {
    ChangeKind kind = ChangeKind::Changed;  // what became of it
    std::string_view table;                 // its table
    Variant key;                            // Empty in a table without a key
    std::int32_t naid = 0;                  // whose row it is
    std::vector<FieldChange> fields;  // those that differ at the end, in the order of the writing
};

}  // namespace recording

// Follows pay rows, order lines, employments and imported pay: rows written through a set, and those
// that an UPDATE or DELETE finds. Writes to other tables pass.
class LEDGERWICK_HOSTKIT_API RecordingDatabase : public ForwardingDatabase {
  public:
    // Passes everything on to `recorded`, and keeps what is written.
    explicit RecordingDatabase(std::shared_ptr<Database> recorded);
    ~RecordingDatabase() override;

    // What the writes since the construction come to, in the order of the first one to each row. A
    // row that ends as it began is not among them.
    std::vector<recording::RowChange> changes() const;

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                               FieldList reads = {}) override;
    void Execute(std::string_view sql, std::int32_t option) override;
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override;

  private:
    friend class RecordingRecordset;

    std::string_view kept(std::string_view name);
    void note(recording::RowChange change);
    void noteRemoved(const recording::FollowedTable& table, std::string_view condition);

    std::shared_ptr<Database> recorded_;
    std::vector<recording::RowChange> changes_;
    std::unordered_map<std::string, std::size_t> places_;  // in `changes_`, by table and key
    std::set<std::string, std::less<>> names_;
};

}  // namespace ledgerwick
