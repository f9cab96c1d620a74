#include "tests/support/rows.h"

#include <algorithm>
#include <utility>

#include "ledgerwick/host/enums.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::test {
namespace {

bool isSame(const FieldName& a, const FieldName& b) {
    return equalsIgnoringCase(a.text(), b.text());
}

// A query kept by nobody: it opens what the database answers to its statement.
class RowsQuery : public QueryDef {
  public:
    RowsQuery(RowsDatabase& database, std::string_view sql) : database_(database), sql_(sql) {}
    RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
        return database_.OpenRecordset(sql_, type, reads);
    }

  private:
    RowsDatabase& database_;
    std::string sql_;
};

}  // namespace

Row Row::with(const FieldName& name, const Variant& value) const {
    Row row = without(name);
    row.cells_.push_back({name, value});
    return row;
}

Row Row::without(const FieldName& name) const {
    Row row = *this;
    std::erase_if(row.cells_, [&](const Cell& cell) { return isSame(cell.name, name); });
    return row;
}

const Variant* Row::find(const FieldName& name) const noexcept {
    for (const Cell& cell : cells_)
        if (isSame(cell.name, name)) return &cell.value;
    return nullptr;
}

Row& Rows::current() {
    if (closed_) raise(error_number::objectClosed, "Rows");
    if (edited_) return *edited_;
    if (Eof()) raise(error_number::noCurrentRecord, "Rows");
    return rows_[static_cast<std::size_t>(position_)];
}

void Rows::MoveFirst() {
    if (rows_.empty()) raise(error_number::noCurrentRecord, "Rows.MoveFirst");
    position_ = 0;
}

void Rows::MoveLast() {
    if (rows_.empty()) raise(error_number::noCurrentRecord, "Rows.MoveLast");
    position_ = size() - 1;
    isCounted_ = true;
}

void Rows::MoveNext() {
    if (Eof()) raise(error_number::noCurrentRecord, "Rows.MoveNext");
    ++position_;
}

void Rows::MovePrevious() {
    if (position_ == 0) raise(error_number::noCurrentRecord, "Rows.MovePrevious");
    --position_;
}

Variant Rows::Value(const FieldName& name) {
    const bool allowed =
        !allowed_ || std::any_of(allowed_->begin(), allowed_->end(),
                                 [&](const FieldName& other) { return isSame(other, name); });
    const Variant* value = current().find(name);
    if (!allowed || !value) raise(error_number::noSuchItem, "Rows", name.text());
    return *value;
}

void Rows::Value(const FieldName& name, const Variant& value) {
    if (!edited_) raise(error_number::updateWithoutEdit, "Rows");
    edited_ = edited_->with(name, value);
}

void Rows::Update() {
    if (!edited_) raise(error_number::updateWithoutEdit, "Rows.Update");
    rows_[static_cast<std::size_t>(position_)] = *std::exchange(edited_, std::nullopt);
}

void RowsDatabase::answer(std::string_view fragment, std::vector<Row> rows) {
    answers_.push_back({std::string(fragment), std::move(rows)});
}

RecordsetRef RowsDatabase::OpenRecordset(std::string_view sql, RecordsetType type,
                                         FieldList reads) {
    opened_.emplace_back(sql);
    for (const Answer& answer : answers_) {
        if (sql.find(answer.fragment) == std::string_view::npos) continue;
        auto rows = std::make_shared<Rows>(answer.rows);
        if (!reads.empty()) rows->allowOnly(reads);
        if (type == RecordsetType::Snapshot) rows->countAtLastRow();
        return rows;
    }
    raise(error_number::statementError, "RowsDatabase", sql);
}

void RowsDatabase::Execute(std::string_view sql, std::int32_t) {
    executed_.emplace_back(sql);
    const std::int32_t failure = std::exchange(nextFailure_, 0);
    if (failure != 0) raise(failure, "RowsDatabase", sql);
}

std::shared_ptr<QueryDef> RowsDatabase::CreateQueryDef(std::string_view, std::string_view sql) {
    return std::make_shared<RowsQuery>(*this, sql);
}

Row closedPayRow(std::int32_t week) {
    const Date payday = Date::fromYmd(2016, 4, 15).addWeeks(week - 1);
    const Date periodEnd = Date::fromYmd(2016, 4, 12).addWeeks(week - 1);
    return Row{{field::PRTID, 70},
               {field::PRPNAID, 7},
               {field::PRPID, 100 + week},
               {field::PRPPayrollYear, 17},
               {field::PRPPYEmployCount, 1},
               {field::PRPWeekNo, week},
               {field::PRPPaymentPeriod, 1},
               {field::PRPPayDate, payday},
               {field::PRPRTIPayDate, payday},
               {field::PRPEPEDate, periodEnd},
               {field::PRPNExpPayDate, payday.addWeeks(1)},
               {field::PRPNExpEPEDate, periodEnd.addWeeks(1)},
               {field::PRPPeriodUpdated, true},
               {field::PRPCalculationUsed, 12},
               {field::PRPStatus, 0},
               {field::PRPAEStatus, ""},
               {field::PRPMaternityHighWeeks, 0.0},
               {field::PRPMaternityLowWeeks, 0.0},
               {field::PRPAdoptionHighWeeks, 0.0},
               {field::PRPAdoptionLowWeeks, 0.0},
               {field::PRPPaternityWeeks, 0.0},
               {field::PRPASPPDays, 0.0},
               {field::PRPStudentLoan, 0},
               {field::PRPPostgradLoan, false},
               {field::PRPWorksNo, ""},
               {field::PRPOfficialIDNo, Null},
               {field::PRPPartnerNAID, 0},
               {field::PRPTaxCode, "1100L"},
               {field::PRPWeek1, false},
               {field::PRPMinNormHours, 0}};
}

Row employmentRow() {
    return Row{{field::PRTNAID, 7},
               {field::PRTID, 70},
               {field::PRTPayrollYear, 17},
               {field::PRTPYEmployCount, 1},
               {field::PRTStartDate, Date::fromYmd(2015, 4, 6)},
               {field::PRTEndDateLong, 0},
               {field::PRTAEStatus, ""},
               {field::PRTContinuation, false},
               {field::PRTType, static_cast<std::int16_t>(PR_ET_Regular)}};
}

}  // namespace ledgerwick::test
