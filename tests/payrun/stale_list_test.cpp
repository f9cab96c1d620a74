// A list that is older than what another connection has written. The test says when that is so.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hostkit/forwarding/forwarding_database.h"
#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct SharedDatabase : ForwardingDatabase {
    using ForwardingDatabase::ForwardingDatabase;
    std::int64_t DataVersion() override { return version; }
    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type, FieldList reads) override {
        ++statements;
        return ForwardingDatabase::OpenRecordset(sql, type, reads);
    }
    std::int64_t version = 1;
    int statements = 0;
};

struct StaleList : testing::Test {
    StaleList() {
        office.company.useDatabase(shared);
        for (const int naid : {7, 8}) office.hire(naid).closed(weeks(1, 2));
        office.company.load();
    }
    // By somebody else, as far as the list can know.
    void change(const std::string& sql) {
        office.company.exec(sql);
        ++shared->version;
    }
    CEmployeeList& list() { return office.company.list(); }

    PayOffice office;
    std::shared_ptr<SharedDatabase> shared =
        std::make_shared<SharedDatabase>(office.company.database());
    const Date payDate = day("2016-04-29");
};

TEST_F(StaleList, IsRefusedForWhoeverHasChangedAndForNobodyElse) {
    const std::string last = " WHERE PRPNAID = 7 AND PRPWeekNo = 2";
    for (const std::string& sql : std::initializer_list<std::string>{
             "UPDATE PRPay SET PRPNExpPayDate = PRPNExpPayDate + 7" + last,
             "UPDATE PRPay SET PRPEPEDate = PRPEPEDate - 1" + last,
             "UPDATE PRPay SET PRPPeriodUpdated = 0" + last,
             "UPDATE PRPay SET PRPPeriodUpdated = -1, PRPWeekNo = 3 WHERE PRPNAID = 7",
             "UPDATE PREmployments SET PRTEndDateLong = 42500 WHERE PRTNAID = 7",
             "UPDATE PREmployments SET PRTEndDateLong = 0, PRTType = 2 WHERE PRTNAID = 7",
             "UPDATE PREmployeeDetails SET PREGroup = 3 WHERE PRENAID = 7",
         }) {
        SCOPED_TRACE(sql);
        office.company.load();
        change(sql);
        const auto before = office.payRows();
        const auto told = errorOf([&] { office.open(payDate); });
        EXPECT_EQ(told.number, error_number::listOutdated);
        EXPECT_THAT(told.description, HasSubstr("employee 7; load them again"));
        EXPECT_EQ(raisedBy([&] { office.payroll().C_UpdatePayPeriod(7, payDate); }),
                  error_number::listOutdated);
        EXPECT_EQ(office.payRows(), before);
        EXPECT_NO_THROW(office.payroll().C_UpdatePayPeriod(8, payDate));
        list().ReLoadEmployee(7);
        EXPECT_NO_THROW(office.payroll().C_UpdatePayPeriod(7, payDate));
        EXPECT_THAT(list().ChangedSinceLoad(), IsEmpty());
    }
}

TEST_F(StaleList, KnowsWhoIsNewAndWhoHasGone) {
    office.hire(9).closed(week(1));
    change("DELETE FROM PREmployments WHERE PRTNAID = 8; DELETE FROM PRPay WHERE PRPNAID = 8");
    EXPECT_THAT(list().ChangedSinceLoad(), ElementsAre(8, 9));
    for (const int naid : {8, 9}) list().ReLoadEmployee(naid);
    EXPECT_THAT(list().ChangedSinceLoad(), IsEmpty());
    EXPECT_EQ(list().EmployeeCount(), 2);
    change("UPDATE Customers SET NATown = 'Leeds'");
    EXPECT_THAT(list().ChangedSinceLoad(), IsEmpty());
}

TEST_F(StaleList, IsNotLookedAtWhileNobodyHasWritten) {
    office.company.exec("UPDATE PRPay SET PRPNExpPayDate = PRPNExpPayDate + 7");
    const int before = shared->statements;
    EXPECT_THAT(list().ChangedSinceLoad(), IsEmpty());
    EXPECT_EQ(shared->statements, before);
    shared->version = 0;  // a database that does not know
    office.company.load();
    office.company.exec("UPDATE PRPay SET PRPNExpPayDate = PRPNExpPayDate + 7");
    EXPECT_THAT(list().ChangedSinceLoad(), IsEmpty());
}

}  // namespace
}  // namespace ledgerwick::test
