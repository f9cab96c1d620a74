// Bringing imported pay and the order book to the employees.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/memory_host.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::MemoryHost;
using test::Row;
using testing::HasSubstr;

Row importedPay(std::int32_t naid, const Variant& pay) {
    return Row{{field::PRPINAID, naid}, {field::PRPIPay, pay}};
}

Row orderLine(std::int32_t naid, std::int32_t id, const char* price) {
    return Row{
        {field::OrdID, id},      {field::OrdNAID, naid},
        {field::OrdDSID, 4},     {field::OrdActionDate, Date::fromYmd(2016, 4, 20)},
        {field::Qty, "1.0"},     {field::DSDesc, "Apples"},
        {field::UoPCode, "box"}, {field::NetPrice, price},
        {field::OrdStatus, 2},
    };
}

// Two employees without a current employment, who take imported figures all the same.
class ImportedPay : public testing::Test {
  protected:
    ImportedPay() {
        ann = host.employee(7, PFREQ_1Weekly);
        bob = host.employee(9, PFREQ_Monthly);
    }
    // Later answers do not take the place of earlier ones, so each test gives them once.
    void load(std::vector<Row> pay, std::vector<Row> orders) {
        host.addTempTable("PRPayImport");
        host.database().answer("FROM PRPayImport", std::move(pay));
        host.database().answer("Orders", std::move(orders));
        host.list().LoadImportedPay();
    }
    double earnings(const std::shared_ptr<cEmployee>& employee) {
        Currency value;
        employee->CurEmployment()->HasImportedEarnings(Date(), Date::last().addDays(-1), value);
        return value.toDouble();
    }

    MemoryHost host;
    std::shared_ptr<cEmployee> ann;
    std::shared_ptr<cEmployee> bob;
};

TEST_F(ImportedPay, IsTheLastValueOfTheEmployeeInTheMoneyFormat) {
    load({importedPay(7, 10.0), importedPay(9, 0.0), importedPay(7, 1234.565)}, {});
    EXPECT_TRUE(ann->CurEmployment()->HasImportedPay());
    EXPECT_EQ(ann->CurEmployment()->ImportedPayValue().toText(), "1234.57");
    EXPECT_TRUE(bob->CurEmployment()->HasImportedPay());
    EXPECT_EQ(bob->CurEmployment()->ImportedPayValue(), Currency());

    host.list().LoadImportedPay();
    EXPECT_EQ(ann->CurEmployment()->ImportedPayValue().toText(), "1234.57");
}

TEST_F(ImportedPay, WithoutItsTableIsForgotten) {
    ann->CurEmployment()->HasImportedPay(true);
    ann->CurEmployment()->ImportedPayValue(Currency::fromWhole(5));
    host.database().answer("Orders", {});
    EXPECT_TRUE(host.list().LoadImportedPay().isEmpty());
    EXPECT_FALSE(ann->CurEmployment()->HasImportedPay());
    EXPECT_EQ(ann->CurEmployment()->ImportedPayValue(), Currency());
}

TEST_F(ImportedPay, OfAnUnknownEmployeeFailsBehindTheRowsBefore) {
    try {
        load({importedPay(7, 10.0), importedPay(8, 11.0), importedPay(9, 12.0)}, {});
        FAIL() << "employee 8 is not in the list";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), error_number::objectNotSet);
    }
    EXPECT_TRUE(ann->CurEmployment()->HasImportedPay());
    EXPECT_FALSE(bob->CurEmployment()->HasImportedPay());
}

TEST_F(ImportedPay, NullValueFails) {
    EXPECT_THROW(load({importedPay(7, Null)}, {}), Error);
    EXPECT_TRUE(ann->CurEmployment()->HasImportedPay());
}

TEST_F(ImportedPay, OrdersGoToTheirWorkersAndOthersArePassedOver) {
    load({}, {orderLine(0, 1, "1.00"), orderLine(7, 2, "2.00"), orderLine(7, 3, "4.00"),
              orderLine(8, 4, "8.00"), orderLine(9, 5, "16.00"), orderLine(10, 6, "32.00")});
    EXPECT_EQ(earnings(ann), 6.0);
    EXPECT_EQ(earnings(bob), 16.0);

    host.list().LoadImportedPay();
    EXPECT_EQ(earnings(ann), 6.0);
}

TEST_F(ImportedPay, OrdersArePricedInTheMoneyFormatWithItsQuotesDoubled) {
    host.state().moneyFormat = "#,##0.00' GBP'";
    load({}, {});
    const std::string& statement = host.database().opened().back();
    EXPECT_THAT(statement, HasSubstr(",'#,##0.00'' GBP''' ) AS NetPrice"));
    EXPECT_THAT(statement, HasSubstr("WHERE OrdStatus < 5 AND OrdDSID <> 0"));
}

}  // namespace
}  // namespace ledgerwick
