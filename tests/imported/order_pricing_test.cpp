// Order lines on a real database: which are read, and what the statement makes of their figures.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/company.h"

namespace ledgerwick {
namespace {

using test::Company;

// The line of employee 7 on that day: its quantity and its money, "2.5 for 6.25".
std::string priced(Company& company, Date day) {
    Currency total;
    ResultTable rows = company.current(7).ImportedEarningsRS(day, day, total);
    if (rows.RecordCount() == 0) return "none";
    return rows.Fields("OrdQty").toText() + " for " + total.toText();
}

TEST(OrderPricing, IsByTheUnitOfPurchaseAndRoundedAsShown) {
    struct Case {
        double unitsOfUse;
        double price;
        double discount;
        const char* priced;
        const char* reason;
    };
    // Three units of use make one of purchase.
    const Case cases[] = {
        {3, 0.5, 0, "1 for 1.5", "the price of a unit of purchase is three prices"},
        {7.5, 0.5, 0, "2.5 for 3.75", "part of a unit"},
        {1, 0.5, 0, "0.333 for 0.5", "the quantity counts as shown, 0.333 * 1.5 = 0.4995"},
        {0, 0.5, 0, "0 for 1.5", "no quantity is priced as one unit"},
        {3, 0.5, 50, "1 for 1", "the discount is taken off as an amount"},
        {-3, 0.5, 0, "-1 for -1.5", "a return"},
        {3703.5, 1, 0, "1234.5 for 3703.5", "thousands commas do not cut the quantity"},
    };
    Company company;
    company.employee(7).weekly();
    company.item(4, "Apples (box)", 3, "box");
    const Date firstDay = Date::fromYmd(2016, 4, 11);
    std::int32_t line = 0;
    for (const Case& c : cases) {
        const Date day = firstDay.addDays(line++);
        company.order(line, 7, 4, day.toIso(), c.unitsOfUse, c.price, 2, c.discount);
    }
    company.load().LoadImportedPay();
    line = 0;
    for (const Case& c : cases) {
        EXPECT_EQ(priced(company, firstDay.addDays(line++)), c.priced) << c.reason;
    }
}

TEST(OrderPricing, LeavesOutClosedLinesAndLinesWithoutItem) {
    Company company;
    company.employee(7).weekly();
    company.item(4, "Apples", 1, "box");
    company.order(1, 7, 4, "2016-04-11", 1, 2, 5);
    company.order(2, 7, 0, "2016-04-12", 1, 2);
    company.order(3, 7, 4, "2016-04-13", 1, 2, 4);
    company.order(4, 99, 4, "2016-04-13", 1, 2);
    company.load().LoadImportedPay();
    EXPECT_EQ(priced(company, Date::fromYmd(2016, 4, 11)), "none");
    EXPECT_EQ(priced(company, Date::fromYmd(2016, 4, 12)), "none");
    EXPECT_EQ(priced(company, Date::fromYmd(2016, 4, 13)), "1 for 2");
}

TEST(OrderPricing, LineMovedToFiveIsStoredWithItsInvoiceAndGoneAtTheNextLoad) {
    Company company;
    company.employee(7).weekly();
    company.item(4, "Apples", 1, "box");
    company.order(1, 7, 4, "2016-04-13", 1, 2);
    company.load().LoadImportedPay();
    const Date day = Date::fromYmd(2016, 4, 13);
    company.current(7).UpdateImportedEarnings(5, day, day, 77, "Ann's");
    EXPECT_EQ(company.value("OrdStatus", "Orders").toInt32(), 5);
    EXPECT_EQ(company.value("OrdInvID", "Orders").toInt32(), 77);
    EXPECT_EQ(company.value("OrdRef", "Orders").toText(), "Ann's");
    EXPECT_EQ(priced(company, day), "1 for 2");
    company.list().LoadImportedPay();
    EXPECT_EQ(priced(company, day), "none");
}

TEST(OrderPricing, ItemWithoutConversionStopsTheLoad) {
    Company company;
    company.employee(7).weekly();
    company.item(4, "Apples", 0, "box");
    company.order(1, 7, 4, "2016-04-13", 1, 2);
    company.load();
    EXPECT_ANY_THROW(company.list().LoadImportedPay());
}

TEST(ImportTable, IsReadWhenTheHostHasLaidItDown) {
    Company company;
    company.employee(7).weekly();
    company.load().LoadImportedPay();
    EXPECT_FALSE(company.current(7).HasImportedPay());
    company.importedPay(7, 12.345);
    company.list().LoadImportedPay();
    EXPECT_TRUE(company.current(7).HasImportedPay());
    EXPECT_EQ(company.current(7).ImportedPayValue().toText(), "12.35");
}

}  // namespace
}  // namespace ledgerwick
