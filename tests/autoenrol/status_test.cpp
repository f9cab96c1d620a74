#include <gtest/gtest.h>

#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/employee/employee.h"
#include "ledgerwick/records/schema.h"
#include "tests/support/errors.h"
#include "tests/support/expect.h"
#include "tests/support/memory_host.h"

namespace ledgerwick::test {
namespace {

std::shared_ptr<CPayment> paidOn(Date reported, bool closed = true) {
    auto payment = std::make_shared<CPayment>();
    payment->RTIPayDate(reported);
    payment->PeriodUpdated(closed);
    return payment;
}

// Employee 7 with employment 70, begun on 6 April 2015, in payroll year 17.
class AutoEnrolStatus : public testing::Test {
  protected:
    AutoEnrolStatus() {
        employee.NAID(7);
        employment = add(employmentRow());
    }

    std::shared_ptr<cEmployment> add(const Row& row) {
        Rows rows{row};
        return employee.AddEmployment(rows);
    }
    std::shared_ptr<CAutoEnrolStatus> statusUpTo(Date date, bool closed = true) {
        return employee.GetAutoEnrolStatus(date, 17, closed);
    }
    RowsDatabase& database() { return host.database(); }

    MemoryHost host;
    cEmployee employee;
    std::shared_ptr<cEmployment> employment;
};

// ---- the walk over payments that are in memory --------------------------------------------------

class StatusOfStoredPayments : public AutoEnrolStatus {
  protected:
    StatusOfStoredPayments() { database().answer("FROM PRPay", {}); }
};

TEST_F(StatusOfStoredPayments, TellsFirstPreviousAndLastInTheOrderOfTheKeys) {
    const auto year = employment->payrollYearStore(17);
    year->Add(103, paidOn(on(29, 4, 2016)));
    year->Add(101, paidOn(on(15, 4, 2016)));
    auto status = statusUpTo(on(15, 4, 2016));
    EXPECT_EQ(status->PrevAssessDate(), Date());
    EXPECT_EQ(status->PrevAssessCategory(), "*");
    EXPECT_EQ(status->CurrentAssessDate(), on(15, 4, 2016));

    year->Add(102, paidOn(on(22, 4, 2016)));
    status = statusUpTo(on(5, 4, 2017));
    EXPECT_EQ(status->FirstAssessDate(), on(15, 4, 2016));
    EXPECT_EQ(status->FirstAssessCategory(), "First Cat");
    EXPECT_EQ(status->PrevAssessDate(), on(22, 4, 2016));
    EXPECT_EQ(status->PrevAssessCategory(), "Cur Category*");
    EXPECT_EQ(status->CurrentAssessDate(), on(29, 4, 2016));
    EXPECT_EQ(status->CurrentAssessChange(), "Cur Change");
}

TEST_F(StatusOfStoredPayments, EndsAtTheDateAsked) {
    const auto expectLast = [&](Date upTo, Date expected, const char* reason) {
        EXPECT_EQ(statusUpTo(upTo)->CurrentAssessDate(), expected) << reason;
    };
    const auto year = employment->payrollYearStore(17);
    employment->payrollYearStore(16)->Add(1, paidOn(on(1, 4, 2016)));
    expectLast(on(5, 4, 2017), Date(), "another year does not count");
    year->Add(101, paidOn(noDate1961));
    year->Item(101)->PayDate(on(15, 4, 2016));
    expectLast(on(14, 4, 2016), Date(), "the pay date stands in where none was reported");
    expectLast(on(15, 4, 2016), on(15, 4, 2016), "the day itself counts");

    year->Add(102, paidOn(on(6, 5, 2016)));
    year->Add(103, paidOn(on(29, 4, 2016)));
    add(employmentRow().with(field::PRTID, 71).with(field::PRTStartDate, on(2, 5, 2016)))
        ->payrollYearStore(17)
        ->Add(104, paidOn(on(30, 4, 2016)));
    add(employmentRow().with(field::PRTID, 72))
        ->payrollYearStore(17)
        ->Add(105, paidOn(on(1, 5, 2016)));
    expectLast(on(5, 5, 2016), on(29, 4, 2016),
               "behind one too late the later key counts, the later employment does not");
    expectLast(on(6, 5, 2016), on(1, 5, 2016), "all are in time");
    year->Item(102)->PeriodUpdated(false);
    expectLast(on(5, 5, 2016), on(1, 5, 2016), "an open one ends nothing");
    expectLast(on(1, 5, 2016), on(29, 4, 2016), "an employment that begins later ends the walk");
    EXPECT_EQ(statusUpTo(on(5, 4, 2017), false)->FirstAssessDate(), on(6, 5, 2016))
        << "open ones as asked";
}

// ---- the year store, filled from pay rows -------------------------------------------------------

// A closed pay row with all that a payment holds.
Row fullPayRow(std::int32_t week) {
    return closedPayRow(week)
        .with(field::PRPPeriodPay, Currency::fromWhole(100 + week))
        .with(field::PRPStdHourlyRate, Currency::fromDouble(7.5))
        .with(field::PRPWorksNo, "W" + std::to_string(week))
        .with(field::PRPPenWorkplaceSchemeID, 3);
}

class YearStore : public AutoEnrolStatus {
  protected:
    void answerYear17(std::vector<Row> rows) {
        database().answer("PRPPayrollYear = 17", std::move(rows));
        database().answer("PRPPayrollYear = 16", {});
    }
    std::shared_ptr<PaymentsOfYear> stored(cEmployment& of) {
        std::shared_ptr<PaymentsOfYear> payments;
        EXPECT_TRUE(of.GetPayrollYearPayments(17, payments));
        return payments;
    }
};

TEST_F(YearStore, HoldsThePayRowsByTheirKeys) {
    const Row open = fullPayRow(2).with(field::PRPPeriodUpdated, Null);
    answerYear17({fullPayRow(1), open});
    EXPECT_EQ(statusUpTo(on(5, 4, 2017))->StaffNo(), "W1");
    EXPECT_EQ(statusUpTo(on(5, 4, 2017), false)->StaffNo(), "W2");

    const auto payments = stored(*employment);
    ASSERT_EQ(payments->Keys(), (std::vector<std::int32_t>{101, 102}));
    const CPayment& payment = *payments->Item(101);
    EXPECT_EQ(payment.RTIPayDate(), on(15, 4, 2016));
    EXPECT_EQ(payment.PeriodPay(), Currency::fromWhole(101));
    EXPECT_EQ(payment.StdHourlyRate(), Currency::fromDouble(7.5));
    EXPECT_EQ(payment.PayFrequency(), PFREQ_1Weekly);
    EXPECT_EQ(payment.PenWorkplaceSchemeID(), 3);
}

TEST_F(YearStore, IsFilledOnce) {
    answerYear17({fullPayRow(1)});
    statusUpTo(on(5, 4, 2017));
    const auto before = database().opened().size();
    const auto payments = stored(*employment);
    statusUpTo(on(5, 4, 2017));
    EXPECT_EQ(stored(*employment), payments);
    EXPECT_EQ(database().opened().size(), before + 1) << "the empty year before is asked for again";
}

TEST_F(YearStore, LeavesAnEmploymentThatHasTheYear) {
    add(employmentRow().with(field::PRTID, 71));
    employment->payrollYearStore(17)->Add(999, paidOn(on(8, 4, 2016)));
    answerYear17({fullPayRow(1), fullPayRow(2).with(field::PRTID, 71)});
    statusUpTo(on(5, 4, 2017));
    EXPECT_EQ(stored(*employment)->Keys(), std::vector<std::int32_t>{999});
    EXPECT_EQ(stored(*employee.GetEmploymentByIndex("71"))->Keys(), std::vector<std::int32_t>{102});
}

TEST_F(YearStore, StaysEmptyWhenARowCannotBeRead) {
    answerYear17({fullPayRow(1), fullPayRow(2).with(field::PRPWorksNo, Null)});
    EXPECT_EQ(raisedBy([&] { statusUpTo(on(5, 4, 2017)); }), error_number::invalidUseOfNull);
    std::shared_ptr<PaymentsOfYear> payments;
    EXPECT_FALSE(employment->GetPayrollYearPayments(17, payments));
}

TEST_F(YearStore, AsksForNobodyElsesRows) {
    const auto blank = [&](std::int32_t naid, std::int32_t year) {
        employee.NAID(naid);
        employee.GetAutoEnrolStatus(on(5, 4, 2017), year, true);
    };
    blank(0, 17);  // 0 would open the rows of all employees
    blank(7, -1);  // and -1 those of all years
    EXPECT_TRUE(database().opened().empty());
}

}  // namespace
}  // namespace ledgerwick::test
