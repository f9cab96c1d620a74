// The store of payments beside an employment.
#include <gtest/gtest.h>

#include "ledgerwick/employment/employment.h"

namespace ledgerwick {
namespace {

TEST(PaymentStore, PaymentIsFoundByYearWeekAndNearestDay) {
    struct Case {
        const char* key;
        std::int32_t year;
        std::int32_t week;
        Date payDate;
    };
    const Case cases[] = {{"17|04|42489", 17, 4, Date::fromYmd(2016, 4, 29)},
                          {"09|03|39563", 9, 3, Date::fromYmd(2008, 4, 25)},
                          {"17|53|42830", 17, 53, Date::fromYmd(2017, 4, 5)},
                          {"17|04|42490", 17, 4, Date::fromYmdHms(2016, 4, 29, 13, 0, 0)},
                          // half to even
                          {"17|04|42490", 17, 4, Date::fromYmdHms(2016, 4, 30, 12, 0, 0)},
                          {"-03|100|0", -3, 100, Date()}};
    for (const Case& c : cases) {
        cEmployment employment;
        const auto absent = employment.GetPayment(c.year, c.week, c.payDate);
        EXPECT_NE(absent, employment.GetPayment(c.year, c.week, c.payDate));
        EXPECT_EQ(employment.GetPayments()->Count(), 0);
        const auto payment = std::make_shared<CPayment>();
        employment.GetPayments()->Add(c.key, payment);
        EXPECT_EQ(employment.GetPayment(c.year, c.week, c.payDate), payment) << c.key;
        EXPECT_NE(employment.GetLastPayment(), payment) << c.key;
    }
}

TEST(PaymentStore, YearIsFoundOnceItsStoreIsMade) {
    cEmployment employment;
    const auto callers = std::make_shared<PaymentsOfYear>();
    auto payments = callers;
    EXPECT_FALSE(employment.GetPayrollYearPayments(17, payments));
    EXPECT_NE(payments, callers);
    const auto store = employment.payrollYearStore(17);
    EXPECT_EQ(employment.payrollYearStore(17), store);
    EXPECT_TRUE(employment.GetPayrollYearPayments(17, payments));
    EXPECT_EQ(payments, store);
    EXPECT_FALSE(employment.GetPayrollYearPayments(16, payments));
    EXPECT_NE(payments, store);
}

}  // namespace
}  // namespace ledgerwick
