// What a pay row does to the state of its employment.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::closedPayRow;
using test::Row;
using test::Rows;

// Folds rows the way a load does, from a layer that gives only the fields asked for.
void fold(cEmployment& employment, std::vector<Row> rows) {
    Rows pay(std::move(rows));
    pay.allowOnly(cEmployment::paymentFields());
    for (; !pay.Eof(); pay.MoveNext()) employment.AddPayment(pay);
}

cEmployment folded(std::vector<Row> rows) {
    cEmployment employment;
    fold(employment, std::move(rows));
    return employment;
}

// Number of the error that folding the row raises; 0 for none.
std::int32_t errorOf(cEmployment& employment, const Row& row) {
    return test::raisedBy([&] { fold(employment, {row}); });
}

std::int32_t reported(const cEmployment& employment, std::int32_t detail) {
    return employment.LastRTI().array().at(detail).toInt32();
}

TEST(PaymentFold, OpenRowChangesNothing) {
    for (const Variant& open : {Variant(false), Variant(Null)}) {
        cEmployment employment = folded({closedPayRow(1)});
        fold(employment, {closedPayRow(9)
                              .with(field::PRPPeriodUpdated, open)
                              .with(field::PRPStatus, 3)
                              .with(field::PRPPaymentPeriod, -2)});
        EXPECT_EQ(employment.LastWeekNo(), 1);
        EXPECT_EQ(employment.LastUD_PRPID(), 101);
        EXPECT_FALSE(employment.LExpPayDate().isSet());
        EXPECT_EQ(employment.LastMonthNo(), 0);
        EXPECT_FALSE(employment.LastRTISet());
    }
}

TEST(PaymentFold, LastRowGivesTheDatesAndFirstCalculatedRowTheStart) {
    const cEmployment employment =
        folded({closedPayRow(2).with(field::PRPCalculationUsed, 0), closedPayRow(3),
                closedPayRow(5).with(field::PRPRTIPayDate, Date::fromYmd(2016, 5, 12))});

    EXPECT_EQ(employment.LastPayDate(), Date::fromYmd(2016, 5, 12));
    EXPECT_EQ(employment.LastEPEDate(), Date::fromYmd(2016, 5, 10));
    EXPECT_EQ(employment.NExpPayDate(), Date::fromYmd(2016, 5, 20));
    EXPECT_EQ(employment.LastWeekNo(), 5);
    EXPECT_EQ(employment.LastPayFreq(), PFREQ_1Weekly);
    EXPECT_EQ(employment.LastUD_PRPID(), 105);
    EXPECT_EQ(employment.FirstPRPID(), 103);
    EXPECT_EQ(employment.FirstEPEDate(), Date::fromYmd(2016, 4, 26));
}

TEST(PaymentFold, LastExpectedPayDateIsTheOneThatTheRowBeforeLeft) {
    cEmployment employment = folded({closedPayRow(1)});
    EXPECT_FALSE(employment.LExpPayDate().isSet());
    fold(employment, {closedPayRow(2)});
    EXPECT_EQ(employment.LExpPayDate(), Date::fromYmd(2016, 4, 22));
    EXPECT_EQ(employment.NExpPayDate(), Date::fromYmd(2016, 4, 29));
}

TEST(PaymentFold, OnlyAnActiveEmploymentFollowsTheNextEndOfPeriod) {
    cEmployment inactive = folded({closedPayRow(1)});
    EXPECT_FALSE(inactive.NExpEPEDate().isSet());
    EXPECT_TRUE(inactive.NExpPayDate().isSet());
    // The field is not even looked at.
    EXPECT_EQ(errorOf(inactive, closedPayRow(2).with(field::PRPNExpEPEDate, Null)), 0);

    cEmployment active;
    active.Active(true);
    fold(active, {closedPayRow(1)});
    EXPECT_EQ(active.NExpEPEDate(), Date::fromYmd(2016, 4, 19));
}

TEST(PaymentFold, StartingRowMovesDatesButNoPayState) {
    for (const Variant& notCalculated : {Variant(0), Variant(Null)}) {
        const cEmployment employment = folded({closedPayRow(1)
                                                   .with(field::PRPCalculationUsed, notCalculated)
                                                   .with(field::PRPAEStatus, "Eligible")
                                                   .with(field::PRPPaternityWeeks, 1.0)
                                                   .with(field::PRPStudentLoan, 2)
                                                   .with(field::PRPPostgradLoan, true)});
        EXPECT_EQ(employment.LastWeekNo(), 1);
        EXPECT_EQ(employment.LastUD_PRPID(), 101);
        EXPECT_FALSE(employment.PaymentsExist());
        EXPECT_EQ(employment.FirstPRPID(), 0);
        EXPECT_EQ(employment.AEStatusCur(), "");
        EXPECT_FALSE(employment.SPPCurStatus());
        EXPECT_EQ(employment.SLCurStatus(), 0);
        EXPECT_FALSE(employment.PGLWasDeducted());
    }
}

TEST(PaymentFold, FillerRowCountsAsCalculatedAndEndsARun) {
    const cEmployment employment = folded({closedPayRow(1).with(field::PRPPaternityWeeks, 1.0),
                                           closedPayRow(2).with(field::PRPCalculationUsed, -1)});
    EXPECT_TRUE(employment.PaymentsExist());
    EXPECT_FALSE(employment.SPPCurStatus());
    EXPECT_EQ(employment.SPPConsecutiveWeeks(), 0);
}

// ---- statutory pay ------------------------------------------------------------------------------

struct StatutoryPay {
    const char* name;
    FieldName first;
    FieldName second;  // the same as the first when there is only one
    bool (cEmployment::*current)() const noexcept;
    std::int32_t (cEmployment::*length)() const noexcept;
};

const StatutoryPay statutoryPays[] = {
    {"maternity", field::PRPMaternityHighWeeks, field::PRPMaternityLowWeeks,
     &cEmployment::SMPCurStatus, &cEmployment::SMPConsecutiveWeeks},
    {"adoption", field::PRPAdoptionHighWeeks, field::PRPAdoptionLowWeeks,
     &cEmployment::SAPCurStatus, &cEmployment::SAPConsecutiveWeeks},
    {"paternity", field::PRPPaternityWeeks, field::PRPPaternityWeeks, &cEmployment::SPPCurStatus,
     &cEmployment::SPPConsecutiveWeeks},
    {"shared parental", field::PRPASPPDays, field::PRPASPPDays, &cEmployment::ShPPCurStatus,
     &cEmployment::ShPPConsecutiveDays},
};

TEST(StatutoryRun, GrowsWithEachPaidRowAndEndsAtAnUnpaidOne) {
    struct Case {
        std::vector<double> weeks;
        bool current;
        std::int32_t length;
        const char* reason;
    };
    const Case cases[] = {
        {{1, 1, 0}, false, 0, "an unpaid row ends the run"},
        {{1, 0, 1}, true, 1, "a run after a break starts again"},
        {{1, 1, 1}, true, 3, "each row adds to the run"},
        {{0.5}, true, 0, "a half goes to the even number, and still is a run"},
        {{1.5, 1.5}, true, 4, "each sum is rounded: 2, then 3.5"},
        {{-1}, true, -1, "a correction counts as paid"},
    };
    for (const StatutoryPay& pay : statutoryPays) {
        for (const Case& c : cases) {
            cEmployment employment;
            std::int32_t week = 0;
            for (const double weeks : c.weeks) {
                fold(employment, {closedPayRow(++week).with(pay.first, weeks)});
            }
            EXPECT_EQ((employment.*pay.current)(), c.current) << pay.name << ": " << c.reason;
            EXPECT_EQ((employment.*pay.length)(), c.length) << pay.name << ": " << c.reason;
            for (const StatutoryPay& other : statutoryPays) {
                if (&other == &pay) continue;
                EXPECT_EQ((employment.*other.length)(), 0) << other.name;
            }
        }
    }
}

TEST(StatutoryRun, IsNotBrokenByARowThatIsNotCalculated) {
    const cEmployment employment = folded({closedPayRow(1).with(field::PRPMaternityHighWeeks, 1.0),
                                           closedPayRow(2).with(field::PRPCalculationUsed, 0),
                                           closedPayRow(3).with(field::PRPMaternityLowWeeks, 1.0)});
    EXPECT_TRUE(employment.SMPCurStatus());
    EXPECT_EQ(employment.SMPConsecutiveWeeks(), 2);
}

TEST(StatutoryRun, AddsBothRatesAndRoundsTheirSumOnce) {
    for (const StatutoryPay& pay : statutoryPays) {
        if (pay.first.id() == pay.second.id()) continue;
        const cEmployment employment =
            folded({closedPayRow(1).with(pay.first, 2.0).with(pay.second, 3.0),
                    closedPayRow(2).with(pay.first, 0.5).with(pay.second, 0.5)});
        EXPECT_EQ((employment.*pay.length)(), 6) << pay.name;
    }
}

TEST(StatutoryRun, OverflowIsAnErrorAndKeepsTheCount) {
    cEmployment employment = folded(
        {closedPayRow(1).with(field::PRPASPPDays, std::numeric_limits<std::int32_t>::max())});
    EXPECT_EQ(errorOf(employment, closedPayRow(2).with(field::PRPASPPDays, 1.0)),
              error_number::overflow);
    EXPECT_EQ(employment.ShPPConsecutiveDays(), std::numeric_limits<std::int32_t>::max());
}

// ---- loans and statuses -------------------------------------------------------------------------

TEST(PaymentFold, StudentLoanPlanIsRememberedAfterItEnds) {
    const cEmployment employment =
        folded({closedPayRow(1).with(field::PRPStudentLoan, 2), closedPayRow(2), closedPayRow(3)});
    EXPECT_EQ(employment.SLCurStatus(), 0);
    EXPECT_EQ(employment.SLLastKnownPlan(), 2);
}

TEST(PaymentFold, StudentLoanStateGoesOnFromWhatTheLoadCarriedOver) {
    cEmployment employment;
    employment.SLCurStatus(1);
    employment.SLLastKnownPlan(1);
    fold(employment, {closedPayRow(1)});
    EXPECT_EQ(employment.SLCurStatus(), 0);
    EXPECT_EQ(employment.SLLastKnownPlan(), 1);
}

TEST(PaymentFold, PostgraduateLoanIsRememberedAfterItEnds) {
    const cEmployment employment =
        folded({closedPayRow(1).with(field::PRPPostgradLoan, true), closedPayRow(2)});
    EXPECT_FALSE(employment.PGLCurStatus());
    EXPECT_TRUE(employment.PGLWasDeducted());
}

TEST(PaymentFold, AutoEnrolmentStatusFollowsCalculatedRowsAlsoToBlank) {
    cEmployment employment =
        folded({closedPayRow(1).with(field::PRPAEStatus, "Eligible jobholder, enrolled")});
    EXPECT_EQ(employment.AEStatusCur(), "Eligible jobholder, enrolled");
    fold(employment, {closedPayRow(2)});
    EXPECT_EQ(employment.AEStatusCur(), "");
}

// ---- periods ------------------------------------------------------------------------------------

TEST(PaymentFold, PayPeriodGivesFrequencyAndReportedPeriod) {
    struct Case {
        std::int32_t period;
        std::int32_t week;
        std::int32_t lastPayFreq;
        std::int32_t reportedFreq;
        std::int32_t reportedPeriod;
    };
    const Case cases[] = {
        {0, 7, PFREQ_Casual, 0, 7},
        {1, 53, PFREQ_1Weekly, 1, 53},
        {2, 52, PFREQ_2Weekly, 2, 52},
        {4, 48, PFREQ_4Weekly, 3, 48},
        {3, 6, -11, 3, 6},
        {5, 6, -10, 5, 6},
        {-1, 5, PFREQ_Monthly, 4, 1},
        {-12, 52, PFREQ_Monthly, 4, 12},
        {13, 13, PFREQ_Quarterly, 13, 3},
        {13, 17, PFREQ_Quarterly, 13, 4},  // 3.92 months
        {26, 26, PFREQ_BiAnnual, 26, 6},
        {52, 52, PFREQ_Annual, 52, 12},
        {52, 53, PFREQ_Annual, 52, 12},  // 12.23 months
    };
    for (const Case& c : cases) {
        const cEmployment employment = folded({closedPayRow(1)
                                                   .with(field::PRPPaymentPeriod, c.period)
                                                   .with(field::PRPWeekNo, c.week)
                                                   .with(field::PRPStatus, 3)});
        EXPECT_EQ(employment.LastPayFreq(), c.lastPayFreq) << "period " << c.period;
        EXPECT_EQ(reported(employment, 8), c.reportedFreq) << "period " << c.period;
        EXPECT_EQ(reported(employment, 9), c.reportedPeriod)
            << "period " << c.period << ", week " << c.week;
    }
}

TEST(PaymentFold, WeeklyRowLeavesTheMonthOfAMonthlyOne) {
    const cEmployment employment =
        folded({closedPayRow(4).with(field::PRPPaymentPeriod, -3), closedPayRow(5)});
    EXPECT_EQ(employment.LastMonthNo(), 3);
    EXPECT_EQ(employment.LastWeekNo(), 5);
}

// ---- the last reported payment ------------------------------------------------------------------

TEST(LastReportedPayment, HoldsTheFieldsAsStored) {
    const cEmployment employment = folded({closedPayRow(3)
                                               .with(field::PRPStatus, 3)
                                               .with(field::PRPWorksNo, "WK7/1")
                                               .with(field::PRPOfficialIDNo, Null)
                                               .with(field::PRPPartnerNAID, "none")
                                               .with(field::PRPASPPDays, 2.5)
                                               .with(field::PRPTaxCode, "K475")
                                               .with(field::PRPWeek1, true)
                                               .with(field::PRPMinNormHours, "D")});
    ASSERT_TRUE(employment.LastRTISet());
    const Variant details = employment.LastRTI();
    ASSERT_EQ(details.array().lowerBound(), 1);
    ASSERT_EQ(details.array().upperBound(), 13);
    const std::vector<Variant> asStored{
        1, "WK7/1", Null, "none", 2.5, 17, Date::fromYmd(2016, 4, 29)};
    for (std::size_t i = 0; i < asStored.size(); ++i) {
        EXPECT_EQ(details.array().at(static_cast<std::int32_t>(i) + 1), asStored[i]) << i + 1;
    }
    EXPECT_EQ(details.array().at(10), Variant("K475"));
    EXPECT_EQ(details.array().at(11), Variant(true));
    EXPECT_EQ(details.array().at(12), Variant("D"));
    EXPECT_EQ(details.array().at(13), Variant(103));
}

TEST(LastReportedPayment, NeedsStatusThreeAndARegularEmployment) {
    cEmployment employment = folded({closedPayRow(1).with(field::PRPStatus, 3)});
    for (const Variant& unreported : {Variant(2), Variant(2.9), Variant(Null)}) {
        fold(employment, {closedPayRow(2).with(field::PRPStatus, unreported)});
    }
    EXPECT_EQ(reported(employment, 13), 101);
    fold(employment, {closedPayRow(3).with(field::PRPStatus, 4)});
    EXPECT_EQ(reported(employment, 13), 103);

    cEmployment casual;
    casual.EmpType(PR_ET_Casual);
    fold(casual, {closedPayRow(1).with(field::PRPStatus, 5)});
    EXPECT_FALSE(casual.LastRTISet());
}

TEST(LastReportedPayment, DoesNotNeedACalculatedRow) {
    const cEmployment employment =
        folded({closedPayRow(1).with(field::PRPCalculationUsed, 0).with(field::PRPStatus, 3)});
    EXPECT_EQ(reported(employment, 13), 101);
}

TEST(LastReportedPayment, CarriedAlongAChainStaysWithTheOneThatHadIt) {
    const cEmployment first = folded({closedPayRow(1).with(field::PRPStatus, 3)});
    cEmployment second;
    second.carryLastRTI(cEmployment());
    EXPECT_FALSE(second.LastRTISet());
    second.carryLastRTI(first);
    EXPECT_EQ(reported(second, 13), 101);

    fold(second, {closedPayRow(2).with(field::PRPStatus, 3)});
    EXPECT_EQ(reported(second, 13), 102);
    EXPECT_EQ(reported(first, 13), 101);
}

TEST(LastReportedPayment, TakesAnyValueAndGivesCopies) {
    cEmployment employment;
    EXPECT_TRUE(employment.LastRTI().isEmpty());
    employment.LastRTI(Variant());
    EXPECT_TRUE(employment.LastRTISet());
    EXPECT_TRUE(employment.LastRTI().isEmpty());

    VariantArray shorter(0, 2);
    shorter.at(2) = "x";
    employment.LastRTI(shorter);
    EXPECT_EQ(employment.LastRTI(), Variant(shorter));

    fold(employment, {closedPayRow(1).with(field::PRPStatus, 3)});
    Variant copy = employment.LastRTI();
    copy.array().at(13) = 0;
    EXPECT_EQ(reported(employment, 13), 101);
    employment.LastRTI(copy);
    EXPECT_EQ(employment.LastRTI(), copy);
}

// ---- failures -----------------------------------------------------------------------------------

TEST(PaymentFold, NullFailsWhereItIsReadAndKeepsWhatMovedBefore) {
    struct Case {
        FieldName field;
        std::function<bool(const cEmployment&)> movedBefore;
        std::function<bool(const cEmployment&)> movedBehind;
    };
    const auto payDate = [](const cEmployment& e) { return e.LastPayDate().isSet(); };
    const auto periodEnd = [](const cEmployment& e) { return e.LastEPEDate().isSet(); };
    const auto expected = [](const cEmployment& e) { return e.NExpPayDate().isSet(); };
    const auto week = [](const cEmployment& e) { return e.LastWeekNo() != 0; };
    const auto payments = [](const cEmployment& e) { return e.PaymentsExist(); };
    const auto first = [](const cEmployment& e) { return e.FirstPRPID() != 0; };
    const auto status = [](const cEmployment& e) { return !e.AEStatusCur().empty(); };
    const auto maternity = [](const cEmployment& e) { return e.SMPCurStatus(); };
    const auto adoption = [](const cEmployment& e) { return e.SAPCurStatus(); };
    const auto paternity = [](const cEmployment& e) { return e.SPPCurStatus(); };
    const auto parental = [](const cEmployment& e) { return e.ShPPCurStatus(); };
    const auto loan = [](const cEmployment& e) { return e.SLCurStatus() != 0; };
    const auto key = [](const cEmployment& e) { return e.LastUD_PRPID() != 0; };
    const auto nothing = [](const cEmployment&) { return true; };
    const Case cases[] = {
        {field::PRPRTIPayDate, nothing, payDate},
        {field::PRPEPEDate, payDate, periodEnd},
        {field::PRPPaymentPeriod, periodEnd, expected},
        {field::PRPNExpPayDate, periodEnd, expected},
        {field::PRPWeekNo, expected, week},
        {field::PRPNExpEPEDate, week, payments},
        {field::PRPID, payments, first},
        {field::PRPAEStatus, first, status},
        {field::PRPMaternityHighWeeks, status, maternity},
        {field::PRPMaternityLowWeeks, status, maternity},
        {field::PRPAdoptionHighWeeks, maternity, adoption},
        {field::PRPAdoptionLowWeeks, maternity, adoption},
        {field::PRPPaternityWeeks, adoption, paternity},
        {field::PRPASPPDays, paternity, parental},
        {field::PRPStudentLoan, parental, loan},
        {field::PRPPostgradLoan, loan, key},
    };
    const Row whole = closedPayRow(1)
                          .with(field::PRPAEStatus, "Eligible")
                          .with(field::PRPMaternityLowWeeks, 1.0)
                          .with(field::PRPAdoptionLowWeeks, 1.0)
                          .with(field::PRPPaternityWeeks, 1.0)
                          .with(field::PRPASPPDays, 1.0)
                          .with(field::PRPStudentLoan, 1);
    for (const Case& c : cases) {
        cEmployment employment;
        employment.Active(true);
        EXPECT_EQ(errorOf(employment, whole.with(c.field, Null)), error_number::invalidUseOfNull)
            << c.field.text();
        EXPECT_TRUE(c.movedBefore(employment)) << c.field.text();
        EXPECT_FALSE(c.movedBehind(employment)) << c.field.text();
    }
}

TEST(PaymentFold, UnknownPayPeriodFailsAfterTheDates) {
    cEmployment employment;
    EXPECT_EQ(errorOf(employment, closedPayRow(1).with(field::PRPPaymentPeriod, 6)), 9911);
    EXPECT_TRUE(employment.LastEPEDate().isSet());
    EXPECT_FALSE(employment.NExpPayDate().isSet());
}

TEST(PaymentFold, MissingFieldOfAReportedPaymentKeepsTheOneBefore) {
    cEmployment employment = folded({closedPayRow(1).with(field::PRPStatus, 3)});
    EXPECT_EQ(errorOf(employment,
                      closedPayRow(2).with(field::PRPStatus, 3).without(field::PRPMinNormHours)),
              error_number::noSuchItem);
    EXPECT_EQ(reported(employment, 1), 1);
    EXPECT_EQ(reported(employment, 13), 101);
}

}  // namespace
}  // namespace ledgerwick
