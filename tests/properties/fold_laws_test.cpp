// What a fold of any pay rows leaves, told from the rows as a whole.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/records/schema.h"
#include "tests/support/expect.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {

// A pay row as far as a fold looks at it.
struct PayRow {
    std::int32_t week, period, calculation, status, plan;
    bool closed, postgraduate;
    std::int32_t halves[6];  // half weeks and days of statutory pay, in the order of `runs`
};

void showValue(const PayRow& row, std::ostream& out) {
    out << (row.closed ? "closed" : "open") << " week " << row.week << " period " << row.period
        << " calculation " << row.calculation << " status " << row.status << " plan " << row.plan
        << (row.postgraduate ? " postgraduate" : "") << " halves";
    for (const std::int32_t halves : row.halves) out << ' ' << halves;
}

namespace {

std::string aeStatus(const PayRow& row) {
    return "Status of week " + std::to_string(row.week);
}

// Null means the same as `none`, and stands for it in every other week.
template <class Value>
Variant orNull(const PayRow& row, Value value, Value none) {
    return value == none && row.week % 2 == 0 ? Variant(Null) : Variant(value);
}

Row asRow(const PayRow& row) {
    return closedPayRow(row.week)
        .with(field::PRPPeriodUpdated, orNull(row, row.closed, false))
        .with(field::PRPPaymentPeriod, row.period)
        .with(field::PRPCalculationUsed, orNull(row, row.calculation, 0))
        .with(field::PRPStatus, row.status)
        .with(field::PRPAEStatus, aeStatus(row))
        .with(field::PRPStudentLoan, row.plan)
        .with(field::PRPPostgradLoan, row.postgraduate)
        .with(field::PRPMaternityHighWeeks, row.halves[0] / 2.0)
        .with(field::PRPMaternityLowWeeks, row.halves[1] / 2.0)
        .with(field::PRPAdoptionHighWeeks, row.halves[2] / 2.0)
        .with(field::PRPAdoptionLowWeeks, row.halves[3] / 2.0)
        .with(field::PRPPaternityWeeks, row.halves[4] / 2.0)
        .with(field::PRPASPPDays, row.halves[5] / 2.0);
}

// The lengths of time stay in step with the weeks, as a load's order has it.
rc::Gen<std::vector<PayRow>> anyRows() {
    const auto row = rc::gen::apply(
        [](std::int32_t period, std::int32_t calculation, std::int32_t status, std::int32_t plan,
           bool closed, bool postgraduate, const std::vector<std::int32_t>& halves) {
            PayRow made{0, period, calculation, status, plan, closed, postgraduate, {}};
            std::copy(halves.begin(), halves.end(), made.halves);
            return made;
        },
        rc::gen::element(1, 2, 4, -1, -7, 3, 5, 13), rc::gen::element(0, 34, -1),
        rc::gen::inRange(0, 5), rc::gen::element(0, 0, 1, 2),
        rc::gen::weightedElement<bool>({{3, true}, {1, false}}), rc::gen::arbitrary<bool>(),
        rc::gen::container<std::vector<std::int32_t>>(
            6, rc::gen::weightedElement<std::int32_t>({{6, 0}, {2, 2}, {1, 1}, {1, 3}, {1, -2}})));
    return rc::gen::map(rc::gen::container<std::vector<PayRow>>(row), [](std::vector<PayRow> rows) {
        if (rows.size() > 52) rows.resize(52);
        std::int32_t week = 0;
        for (PayRow& each : rows) each.week = ++week;
        return rows;
    });
}

template <class Wanted>
std::vector<PayRow> those(const std::vector<PayRow>& rows, Wanted wanted) {
    std::vector<PayRow> found;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(found), wanted);
    return found;
}

// Folds the way a load does, from a layer that gives only the fields asked for.
void fold(cEmployment& employment, const std::vector<PayRow>& rows) {
    std::vector<Row> made;
    for (const PayRow& row : rows) made.push_back(asRow(row));
    Rows pay(std::move(made));
    pay.allowOnly(cEmployment::paymentFields());
    for (; !pay.Eof(); pay.MoveNext()) employment.AddPayment(pay);
}

Date dateOf(const PayRow& row, const FieldName& name) {
    return asRow(row).find(name)->toDate();
}

RC_GTEST_PROP(Fold, TakesDatesFromTheLastClosedRowWhateverIsOpen, (bool active)) {
    const auto rows = *anyRows();
    cEmployment employment;
    employment.Active(active);
    fold(employment, rows);
    const auto closed = those(rows, [](const PayRow& row) { return row.closed; });
    const PayRow* last = closed.empty() ? nullptr : &closed.back();
    const PayRow* before = closed.size() < 2 ? nullptr : &closed[closed.size() - 2];
    const auto date = [](const PayRow* row, const FieldName& name) {
        return row ? dateOf(*row, name) : Date();
    };
    RC_ASSERT(employment.LastPayDate() == date(last, field::PRPRTIPayDate));
    RC_ASSERT(employment.LastEPEDate() == date(last, field::PRPEPEDate));
    RC_ASSERT(employment.NExpPayDate() == date(last, field::PRPNExpPayDate));
    RC_ASSERT(employment.LExpPayDate() == date(before, field::PRPNExpPayDate));
    RC_ASSERT(employment.NExpEPEDate() == date(active ? last : nullptr, field::PRPNExpEPEDate));
    RC_ASSERT(employment.LastWeekNo() == (last ? last->week : 0));
    RC_ASSERT(employment.LastUD_PRPID() == (last ? 100 + last->week : 0));
    const auto monthly = those(closed, [](const PayRow& row) { return row.period < 0; });
    RC_ASSERT(employment.LastMonthNo() == (monthly.empty() ? 0 : -monthly.back().period));
}

RC_GTEST_PROP(Fold, TakesThePayStateFromCalculatedRowsOnly, ()) {
    const auto rows = *anyRows();
    cEmployment employment;
    employment.SLLastKnownPlan(4);  // carried over by the load
    fold(employment, rows);
    const auto calculated =
        those(rows, [](const PayRow& row) { return row.closed && row.calculation != 0; });
    const bool any = !calculated.empty();
    RC_ASSERT(employment.PaymentsExist() == any);
    RC_ASSERT(employment.FirstPRPID() == (any ? 100 + calculated.front().week : 0));
    RC_ASSERT(employment.FirstEPEDate() ==
              (any ? dateOf(calculated.front(), field::PRPEPEDate) : Date()));
    RC_ASSERT(employment.AEStatusCur() == (any ? aeStatus(calculated.back()) : ""));
    RC_ASSERT(employment.SLCurStatus() == (any ? calculated.back().plan : 0));
    const auto loans = those(calculated, [](const PayRow& row) { return row.plan != 0; });
    RC_ASSERT(employment.SLLastKnownPlan() == (loans.empty() ? 4 : loans.back().plan));
    RC_ASSERT(employment.PGLCurStatus() == (any && calculated.back().postgraduate));
    RC_ASSERT(employment.PGLWasDeducted() ==
              std::any_of(calculated.begin(), calculated.end(),
                          [](const PayRow& row) { return row.postgraduate; }));
}

// A run of statutory pay: which halves count, and where it is told.
struct Run {
    const char* name;
    std::size_t first, last;
    bool (cEmployment::*current)() const noexcept;
    std::int32_t (cEmployment::*length)() const noexcept;
};
const Run runs[] = {
    {"maternity", 0, 1, &cEmployment::SMPCurStatus, &cEmployment::SMPConsecutiveWeeks},
    {"adoption", 2, 3, &cEmployment::SAPCurStatus, &cEmployment::SAPConsecutiveWeeks},
    {"paternity", 4, 4, &cEmployment::SPPCurStatus, &cEmployment::SPPConsecutiveWeeks},
    {"shared parental", 5, 5, &cEmployment::ShPPCurStatus, &cEmployment::ShPPConsecutiveDays}};

RC_GTEST_PROP(Fold, CountsStatutoryPayOfTheUnbrokenRunAtTheEnd, ()) {
    const auto rows = *anyRows();
    cEmployment employment;
    fold(employment, rows);
    const auto calculated =
        those(rows, [](const PayRow& row) { return row.closed && row.calculation != 0; });
    for (const Run& run : runs) {
        const auto isPaid = [&run](const PayRow& row) {
            return row.halves[run.first] != 0 || row.halves[run.last] != 0;
        };
        const auto begin = std::find_if_not(calculated.rbegin(), calculated.rend(), isPaid).base();
        double length = 0;  // each sum is rounded, a half to the even number
        for (auto row = begin; row != calculated.end(); ++row) {
            const std::int32_t second = run.first == run.last ? 0 : row->halves[run.last];
            length = std::nearbyint(length + (row->halves[run.first] + second) / 2.0);
        }
        RC_LOG() << run.name << '\n';
        RC_ASSERT((employment.*run.current)() == (begin != calculated.end()));
        RC_ASSERT((employment.*run.length)() == static_cast<std::int32_t>(length));
    }
}

}  // namespace
}  // namespace ledgerwick::test
