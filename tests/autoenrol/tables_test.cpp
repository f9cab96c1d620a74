#include <gtest/gtest.h>

#include <algorithm>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/shell/payroll_functions.h"
#include "ledgerwick/shell/schema.h"
#include "tests/support/expect.h"
#include "tests/support/memory_host.h"

namespace ledgerwick::test {
namespace {

// Payroll year 17, with nobody in the list yet.
class WorkerTable : public testing::Test {
  protected:
    WorkerTable() {
        payroll.Init(host.sharedList());
        host.database().answer("FROM PRPay", {});
    }

    // A regular worker with one employment, PRTID ten times the NAID, that is the current one.
    cEmployee& worker(std::int32_t naid, const std::string& seq, const std::string& name) {
        cEmployee& employee = *host.employee(naid, PFREQ_1Weekly);
        employee.Seq(seq);
        employee.BusName(name);
        Rows row{employmentRow().with(field::PRTNAID, naid).with(field::PRTID, naid * 10)};
        const auto employment = employee.AddEmployment(row);
        employment->StartDate(employment->PRTStartDate());
        employee.UpdateFlags();
        return employee;
    }

    // One closed payment on 29 April 2016.
    void pay(cEmployee& employee, std::int32_t scheme) {
        const auto payment = std::make_shared<CPayment>();
        payment->PeriodUpdated(true);
        payment->RTIPayDate(on(29, 4, 2016));
        payment->StaffNo("W" + std::to_string(employee.NAID()));
        payment->PayFrequency(PFREQ_1Weekly);
        payment->StdHourlyRate(Currency::fromDouble(7.5));
        payment->PeriodPay(Currency::fromWhole(300));
        payment->PenWorkplaceSchemeID(scheme);
        employee.CurEmployment()->payrollYearStore(17)->Add(employee.NAID(), payment);
    }

    ResultTable status(std::int32_t naid = 0) {
        return payroll.GetAEStatus(on(5, 4, 2017), 17, true, naid);
    }

    MemoryHost host;
    CPayrollFunctions payroll;
};

using AEStatusTable = WorkerTable;
using ActiveEmployeesTable = WorkerTable;

TEST_F(AEStatusTable, LeavesOutDatesThatAreNotKnown) {
    cEmployee& ann = worker(7, "1234", "Ann Archer");
    ann.AEOptInDate(noDate1961);
    ann.AEOptOutDate(on(2, 5, 2016));
    for (const bool paid : {false, true}) {
        if (paid) pay(ann, 0);
        const ResultTable table = status();
        EXPECT_TRUE(table.Fields("NameSort") == "123Ann Archer");
        EXPECT_TRUE(table.Fields("OptInDate") == Date());
        EXPECT_TRUE(table.Fields("EnrolledDate").isEmpty());
        EXPECT_TRUE(table.Fields("OptOutDate") == on(2, 5, 2016));
        EXPECT_TRUE(table.Fields("StaffNo") == (paid ? "W7" : ""));
        EXPECT_TRUE(table.Fields("HourlyRate") == Currency::fromDouble(paid ? 7.5 : 0));
        EXPECT_TRUE(table.Fields("FirstAssessDate") == (paid ? on(29, 4, 2016) : Date()));
        EXPECT_TRUE(table.Fields("NextAssessCategory") == (paid ? "Cur Category" : ""));
    }
}

TEST_F(AEStatusTable, ListsRegularActiveWorkersInTheOrderOfTheList) {
    worker(7, "2", "Zoe");
    worker(8, "1", "Ann");
    worker(9, "3", "Casual").Casual(true);
    worker(10, "4", "Gone").Active(false);
    ResultTable table = status();
    EXPECT_EQ(table.RecordCount(), 2);
    EXPECT_TRUE(table.Fields("Name") == "Ann") << "stands on the row stored last";
    for (const std::int32_t naid : {9, 10, 11}) {
        const ResultTable none = status(naid);
        EXPECT_EQ(none.RecordCount(), 0);
        EXPECT_EQ(none.FieldCount(), 21);
    }
    EXPECT_EQ(status(-1).RecordCount(), 2);
}

TEST_F(AEStatusTable, AsksForTheNameOfASchemeOnce) {
    host.database().answer("PSID = 3", {Row{{field::PSID, 3}, {field::PSDesc, "Oak Plan"}}});
    host.database().answer("PSID = 4", {});
    for (const std::int32_t naid : {7, 8, 9, 10}) pay(worker(naid, "", "A"), 4 - naid % 2);

    ResultTable table = status();
    for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
        const bool known = table.Fields("SchemeID") == std::int64_t{3};
        EXPECT_TRUE(table.Fields("Scheme") == (known ? Variant("Oak Plan") : Variant()));
    }
    const auto& opened = host.database().opened();
    const auto asked = [&](std::string_view scheme) {
        return std::count_if(opened.begin(), opened.end(), [&](const std::string& sql) {
            return sql.find(scheme) != std::string::npos;
        });
    };
    EXPECT_EQ(asked("PSID = 3"), 1);
    EXPECT_EQ(asked("PSID = 4"), 2) << "a number without a scheme is looked up again";
}

TEST_F(ActiveEmployeesTable, IsSortedBySequenceAndName) {
    worker(7, "20", "Zoe");
    worker(8, "10", "Zoe");
    worker(9, "10", "ann");
    worker(10, "", "Casual").Casual(true);
    worker(11, "", "Gone").Active(false);
    ResultTable table = payroll.C_ActiveEmployees();
    std::vector<std::int64_t> order;
    for (; !table.Eof(); table.MoveNext()) order.push_back(table.Fields("NAID").toInt64());
    EXPECT_EQ(order, (std::vector<std::int64_t>{9, 8, 7}));
}

TEST_F(ActiveEmployeesTable, ShowsTheSchemesAmountsAndNoDatesWithoutACurrentEmployment) {
    cEmployee& ann = *host.employee(7, PFREQ_1Weekly);
    ann.Active(true);
    ann.PenWorkplaceEEDeductFlat(Currency::fromWhole(4));
    ann.PenWorkplaceERDeductFlat(Currency::fromWhole(5));
    ann.Country("England");
    const ResultTable table = payroll.C_ActiveEmployees(true);
    EXPECT_TRUE(table.Fields("PenEEDeductFlat") == Currency::fromWhole(4));
    EXPECT_TRUE(table.Fields("PenERDeductFlat") == Currency::fromWhole(5));
    EXPECT_TRUE(table.Fields("Country") == "England");
    EXPECT_TRUE(table.Fields("NExpPayDate") == Date());
    EXPECT_TRUE(table.Fields("LastPayDate") == Date());
}

}  // namespace
}  // namespace ledgerwick::test
