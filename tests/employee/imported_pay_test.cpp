// Bringing imported pay and the order book to the employees, on a real database: only there do the
// figures of the order statement come out.
#include <gtest/gtest.h>

#include <string>

#include "ledgerwick/values/error.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::Company;
using test::raisedBy;

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
        {3703.5, 1, 0, "1234.5 for 3703.5", "thousands commas do not cut the quantity"}};
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
    const Date day = Date::fromYmd(2016, 4, 13);
    EXPECT_EQ(priced(company, day.addDays(-2)), "none");
    EXPECT_EQ(priced(company, day.addDays(-1)), "none");
    EXPECT_EQ(priced(company, day), "1 for 2");

    company.current(7).UpdateImportedEarnings(5, day, day, 77, "Ann's");
    EXPECT_EQ(company.count("Orders WHERE OrdID = 3 AND OrdStatus = 5 AND OrdInvID = 77"
                            " AND OrdRef = 'Ann''s'"),
              1);
    EXPECT_EQ(priced(company, day), "1 for 2");
    company.list().LoadImportedPay();
    EXPECT_EQ(priced(company, day), "none");
}

TEST(OrderPricing, MoneyFormatMayHoldQuotesAndAnItemWithoutConversionStopsTheLoad) {
    Company company;
    company.exec("INSERT INTO Parameters (ParName, ParValue) VALUES ('CurFormat', '0.0;''-''0.0')");
    company.employee(7).weekly();
    company.item(4, "Apples", 1, "box");
    company.order(1, 7, 4, "2016-04-13", 1, 2);
    company.load().LoadImportedPay();
    EXPECT_EQ(priced(company, Date::fromYmd(2016, 4, 13)), "1 for 2");
    company.exec("UPDATE Deadstock SET DSUoMConv = 0");
    EXPECT_ANY_THROW(company.list().LoadImportedPay());
}

// ---- the import table ---------------------------------------------------------------------------

std::string importedPay(cEmployment& employment) {
    if (!employment.HasImportedPay()) return "none";
    return employment.ImportedPayValue().toText();
}

TEST(ImportedPay, IsTheLastValueOfTheEmployeeInTheMoneyFormat) {
    Company company;
    company.employee(7).weekly();
    company.employee(8).weekly().left("2016-05-01");
    company.employee(9).weekly();
    company.load().LoadImportedPay();
    EXPECT_EQ(importedPay(company.current(7)), "none");

    company.importedPay(7, 10).importedPay(8, 0).importedPay(7, 1234.565);
    for (int load = 1; load <= 2; ++load) {
        company.list().LoadImportedPay();
        EXPECT_EQ(importedPay(company.current(7)), "1234.57");
        EXPECT_EQ(importedPay(company.current(8)), "0") << "on the blank employment of a leaver";
        EXPECT_EQ(importedPay(company.current(9)), "none");
    }

    company.database().dropPayImportTable();
    company.list().LoadImportedPay();
    EXPECT_EQ(importedPay(company.current(7)), "none");
}

TEST(ImportedPay, FailsForAnUnknownEmployeeOrANullBehindTheRowsBefore) {
    Company company;
    company.employee(7).weekly();
    company.employee(9).weekly();
    company.importedPay(7, 10).importedPay(8, 11).importedPay(9, 12);
    company.load();
    EXPECT_EQ(raisedBy([&] { company.list().LoadImportedPay(); }), error_number::objectNotSet);
    EXPECT_EQ(importedPay(company.current(7)), "10");
    EXPECT_EQ(importedPay(company.current(9)), "none");

    company.exec("UPDATE PRPayImport SET PRPIPay = NULL");
    EXPECT_NE(raisedBy([&] { company.list().LoadImportedPay(); }), 0);
    EXPECT_EQ(importedPay(company.current(7)), "0");
}

}  // namespace
}  // namespace ledgerwick
