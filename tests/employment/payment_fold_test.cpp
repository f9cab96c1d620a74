// What a pay row does to the state of its employment.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/records/schema.h"
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

// ---- statutory pay ------------------------------------------------------------------------------

TEST(StatutoryRun, OverflowIsAnErrorAndKeepsTheCount) {
    cEmployment employment = folded(
        {closedPayRow(1).with(field::PRPASPPDays, std::numeric_limits<std::int32_t>::max())});
    EXPECT_EQ(errorOf(employment, closedPayRow(2).with(field::PRPASPPDays, 1.0)),
              error_number::overflow);
    EXPECT_EQ(employment.ShPPConsecutiveDays(), std::numeric_limits<std::int32_t>::max());
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
    const Case cases[] = {{0, 7, PFREQ_Casual, 0, 7},
                          {1, 53, PFREQ_1Weekly, 1, 53},
                          {2, 52, PFREQ_2Weekly, 2, 52},
                          {4, 48, PFREQ_4Weekly, 3, 48},
                          {3, 6, -11, 3, 6},
                          {5, 6, -10, 5, 6},
                          {-1, 5, PFREQ_Monthly, 4, 1},
                          {13, 13, PFREQ_Quarterly, 13, 3},
                          {13, 17, PFREQ_Quarterly, 13, 4},  // 3.92 months
                          {26, 26, PFREQ_BiAnnual, 26, 6},
                          {52, 52, PFREQ_Annual, 52, 12},
                          {52, 53, PFREQ_Annual, 52, 12}};  // 12.23 months
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
    const Variant details = employment.LastRTI();
    const std::int16_t weekly = 1;
    const std::int16_t week = 3;
    const std::vector<Variant> asStored{
        1,      "WK7/1", Null,   "none", 2.5, 17, Date::fromYmd(2016, 4, 29),
        weekly, week,    "K475", true,   "D", 103};
    ASSERT_EQ(details.array().upperBound(), 13);
    for (std::int32_t i = 1; i <= 13; ++i)
        EXPECT_EQ(details.array().at(i), asStored[static_cast<std::size_t>(i) - 1]) << i;
}

TEST(LastReportedPayment, NeedsAStatusOfThreeInFull) {
    for (const Variant& unreported : {Variant(2.9), Variant(Null)}) {
        EXPECT_FALSE(folded({closedPayRow(2).with(field::PRPStatus, unreported)}).LastRTISet());
    }
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
    employment.LastRTI(Variant());
    EXPECT_TRUE(employment.LastRTISet());
    EXPECT_TRUE(employment.LastRTI().isEmpty());
    fold(employment, {closedPayRow(1).with(field::PRPStatus, 3)});
    Variant copy = employment.LastRTI();
    copy.array().at(13) = 0;
    EXPECT_EQ(reported(employment, 13), 101);
    employment.LastRTI(copy);
    EXPECT_EQ(employment.LastRTI(), copy);
}

// ---- failures -----------------------------------------------------------------------------------

TEST(PaymentFold, NullFailsWhereItIsReadAndKeepsWhatMovedBefore) {
    // What a row moves, in this order.
    const auto moved = [](const cEmployment& e) {
        return std::vector<bool>{
            e.LastPayDate().isSet(),  e.LastEPEDate().isSet(), e.NExpPayDate().isSet(),
            e.LastWeekNo() != 0,      e.PaymentsExist(),       e.FirstPRPID() != 0,
            !e.AEStatusCur().empty(), e.SMPCurStatus(),        e.SAPCurStatus(),
            e.SPPCurStatus(),         e.ShPPCurStatus(),       e.SLCurStatus() != 0,
            e.LastUD_PRPID() != 0};
    };
    // The fields in the order in which they are read, and how much has moved by then.
    const std::vector<FieldName> fields{field::PRPRTIPayDate,
                                        field::PRPEPEDate,
                                        field::PRPPaymentPeriod,
                                        field::PRPNExpPayDate,
                                        field::PRPWeekNo,
                                        field::PRPNExpEPEDate,
                                        field::PRPID,
                                        field::PRPAEStatus,
                                        field::PRPMaternityHighWeeks,
                                        field::PRPMaternityLowWeeks,
                                        field::PRPAdoptionHighWeeks,
                                        field::PRPAdoptionLowWeeks,
                                        field::PRPPaternityWeeks,
                                        field::PRPASPPDays,
                                        field::PRPStudentLoan,
                                        field::PRPPostgradLoan};
    const std::vector<std::size_t> kept{0, 1, 2, 2, 3, 4, 5, 6, 7, 7, 8, 8, 9, 10, 11, 12};
    const Row whole = closedPayRow(1)
                          .with(field::PRPAEStatus, "Eligible")
                          .with(field::PRPMaternityLowWeeks, 1.0)
                          .with(field::PRPAdoptionLowWeeks, 1.0)
                          .with(field::PRPPaternityWeeks, 1.0)
                          .with(field::PRPASPPDays, 1.0)
                          .with(field::PRPStudentLoan, 1);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        cEmployment employment;
        employment.Active(true);
        EXPECT_EQ(errorOf(employment, whole.with(fields[i], Null)), error_number::invalidUseOfNull);
        std::vector<bool> expected(13, false);
        std::fill_n(expected.begin(), kept[i], true);
        EXPECT_EQ(moved(employment), expected) << fields[i].text();
    }
    cEmployment employment;
    EXPECT_EQ(errorOf(employment, whole.with(field::PRPPaymentPeriod, 6)), 9911);
    EXPECT_TRUE(employment.LastEPEDate().isSet() && !employment.NExpPayDate().isSet());
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
