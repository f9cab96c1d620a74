// Rows written down in a test: a recordset and a database that stand in memory.
//
//   Rows pay{closedPayRow(3).with(field::PRPStatus, 3), closedPayRow(4)};
//   for (; !pay.Eof(); pay.MoveNext()) employment.AddPayment(pay);
//
//   RowsDatabase database;
//   database.answer("FROM Orders", {Row{{field::OrdID, 5}, {field::OrdNAID, 7}}});
//   database.executed();   // every statement that was run, in order
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ledgerwick/records/record_access.h"

namespace ledgerwick::test {

struct Cell {
    FieldName name;
    Variant value;
};

// One row; its fields are named without regard to case.
class Row {
  public:
    Row() = default;
    Row(std::initializer_list<Cell> cells) : cells_(cells) {}

    // The row with a field set, in place of what it held.
    Row with(const FieldName& name, const Variant& value) const;
    // The row without a field, so that reading it fails.
    Row without(const FieldName& name) const;

    const Variant* find(const FieldName& name) const noexcept;

  private:
    std::vector<Cell> cells_;
};

// A recordset over rows of its own. It can be moved both ways, read and edited.
class Rows : public Recordset {
  public:
    Rows() = default;
    Rows(std::initializer_list<Row> rows) : rows_(rows) {}
    explicit Rows(std::vector<Row> rows) : rows_(std::move(rows)) {}

    // From now on reading any other field fails with 3265, as in a layer that prunes.
    void allowOnly(FieldList reads) { allowed_.emplace(reads.begin(), reads.end()); }

    // From now on, and until `MoveLast`, the count tells no more than whether there are rows.
    void countAtLastRow() { isCounted_ = false; }

    std::int32_t RecordCount() override { return isCounted_ ? size() : size() > 0; }
    bool Eof() override { return position_ >= size(); }
    std::int32_t AbsolutePosition() override { return Eof() ? -1 : position_; }
    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;
    Variant Value(const FieldName& name) override;
    void Value(const FieldName& name, const Variant& value) override;
    void AddNew() override { edited_.emplace(); }
    void Edit() override { edited_ = current(); }
    void Update() override;
    ledgerwick::Bookmark LastModified() override { return position_; }
    ledgerwick::Bookmark Bookmark() override { return position_; }
    void Bookmark(const ledgerwick::Bookmark& place) override { position_ = place.toInt32(); }
    void Close() override { closed_ = true; }

  private:
    std::int32_t size() const noexcept { return static_cast<std::int32_t>(rows_.size()); }
    Row& current();

    std::vector<Row> rows_;
    std::optional<std::vector<FieldName>> allowed_;
    std::optional<Row> edited_;
    bool closed_ = false;
    bool isCounted_ = true;
    std::int32_t position_ = 0;
};

// A database that answers statements with rows given beforehand, and writes down the others.
class RowsDatabase : public Database {
  public:
    // A statement that contains `fragment` opens these rows; a snapshot of them is counted at its
    // last row only.
    void answer(std::string_view fragment, std::vector<Row> rows);
    // The next statement that is run fails with this error.
    void failNextExecute(std::int32_t number) { nextFailure_ = number; }

    const std::vector<std::string>& opened() const noexcept { return opened_; }
    const std::vector<std::string>& executed() const noexcept { return executed_; }

    // Errors: 3075 for a statement that no answer was given for.
    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                               FieldList reads = {}) override;
    void Execute(std::string_view sql, std::int32_t option) override;
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override;

  private:
    struct Answer {
        std::string fragment;
        std::vector<Row> rows;
    };
    std::vector<Answer> answers_;
    std::vector<std::string> opened_;
    std::vector<std::string> executed_;
    std::int32_t nextFailure_ = 0;
};

// A closed, calculated weekly pay row of employment 70 of employee 7 in payroll year 17, with
// nothing in it but its dates: week 1 ends on 12 April 2016 and is paid on the Friday after.
// PRPID is 100 plus the week, and PRPStatus 0.
Row closedPayRow(std::int32_t week);

// The employment row that goes with it: regular, begun on 6 April 2015, not ended.
Row employmentRow();

}  // namespace ledgerwick::test
