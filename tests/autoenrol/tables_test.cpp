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

TEST_F(AEStatusTable, TellsThePersonAndTheStatus) {
    cEmployee& ann = worker(7, "7", "Ann Archer");
    ann.NINO("AB123456C");
    ann.AEJoinedDate(on(1, 5, 2016));
    ann.AEOptInDate(noDate1961);
    ann.AEOptOutDate(on(2, 5, 2016));
    pay(ann, 0);

    ResultTable table = status();
    ASSERT_EQ(table.RecordCount(), 1);
    EXPECT_EQ(table.AbsolutePosition(), 0);
    const std::pair<const char*, Variant> expected[] = {
        {"NAID", std::int64_t{7}},
        {"Name", "Ann Archer"},
        {"NameSort", "7  Ann Archer"},
        {"NINO", "AB123456C"},
        {"StaffNo", "W7"},
        {"PayFreq", std::int64_t{PFREQ_1Weekly}},
        {"HourlyRate", Currency::fromDouble(7.5)},
        {"PeriodRate", Currency::fromWhole(300)},
        {"SchemeID", std::int64_t{0}},
        {"Scheme", ""},
        {"JoinedDate", on(1, 5, 2016)},
        {"OptInDate", Date()},
        {"EnrolledDate", {}},
        {"OptOutDate", on(2, 5, 2016)},
        {"FirstAssessDate", on(29, 4, 2016)},
        {"FirstAssessCategory", "First Cat"},
        {"PrevAssessDate", Date()},
        {"PrevAssessCategory", "*"},
        {"NextAssessDate", on(29, 4, 2016)},
        {"NextAssessCategory", "Cur Category"},
        {"NextAssessChange", "Cur Change"},
    };
    ASSERT_EQ(table.FieldCount(), static_cast<std::int32_t>(std::size(expected)));
    for (std::int32_t i = 0; i < table.FieldCount(); ++i) {
        const auto& [name, value] = expected[i];
        EXPECT_EQ(table.Field(i).name, name);
        EXPECT_TRUE(table.Fields(name) == value) << name;
    }
}

TEST_F(AEStatusTable, ShowsAWorkerWithoutPaymentsWithABlankStatus) {
    worker(7, "1234", "Ann Archer");
    ResultTable table = status(7);
    ASSERT_EQ(table.RecordCount(), 1);
    EXPECT_TRUE(table.Fields("NameSort") == "123Ann Archer");
    for (const char* text : {"StaffNo", "Scheme", "FirstAssessCategory", "PrevAssessCategory",
                             "NextAssessCategory", "NextAssessChange"}) {
        EXPECT_TRUE(table.Fields(text) == "") << text;
    }
    for (const char* date : {"FirstAssessDate", "PrevAssessDate", "NextAssessDate"}) {
        EXPECT_TRUE(table.Fields(date) == Date()) << date;
    }
    EXPECT_TRUE(table.Fields("PeriodRate") == Currency());
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
    pay(worker(7, "", "A"), 3);
    pay(worker(8, "", "B"), 4);
    pay(worker(9, "", "C"), 3);
    pay(worker(10, "", "D"), 4);

    ResultTable table = status();
    std::vector<Variant> schemes;
    for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
        schemes.push_back(table.Fields("Scheme"));
    }
    EXPECT_EQ(schemes, (std::vector<Variant>{"Oak Plan", {}, "Oak Plan", {}}));
    const auto& opened = host.database().opened();
    const auto asked = [&](std::string_view scheme) {
        return std::count_if(opened.begin(), opened.end(), [&](const std::string& sql) {
            return sql.find(scheme) != std::string::npos;
        });
    };
    EXPECT_EQ(asked("PSID = 3"), 1);
    EXPECT_EQ(asked("PSID = 4"), 2) << "a number without a scheme is looked up again";
    EXPECT_EQ(asked("PSID = 0"), 0);
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

TEST_F(ActiveEmployeesTable, HasAShortAndALongForm) {
    EXPECT_EQ(payroll.C_ActiveEmployees().RecordCount(), 0);
    EXPECT_EQ(payroll.C_ActiveEmployees().FieldCount(), 5);

    cEmployee& ann = worker(7, "7", "Ann Archer");
    ann.DOB(on(1, 2, 1980));
    ann.Sex("F");
    ann.NITable("A");
    ann.Director(true);
    ann.PenWorkplaceSchemeID(3);
    ann.PenWorkplaceEEDeductPC(1.5F);
    ann.PenWorkplaceERDeductPC(2.5F);
    ann.PenWorkplaceEEDeductFlat(Currency::fromWhole(4));
    ann.PenWorkplaceERDeductFlat(Currency::fromWhole(5));
    ann.Group(6);
    ann.PostCode("CB7 4AB");
    ann.TaxCode("1100L");
    ann.Country("England");
    Rows closed{closedPayRow(1).with(field::PRTID, 70)};
    ann.AddPayment(closed);

    ResultTable table = payroll.C_ActiveEmployees(true);
    const std::pair<const char*, Variant> expected[] = {
        {"NAID", std::int64_t{7}},
        {"NASeq", {}},
        {"NABusName", "Ann Archer"},
        {"NABusNameSort", "7  Ann Archer"},
        {"NExpPayDate", on(22, 4, 2016)},
        {"PayFreq", std::int32_t{PFREQ_1Weekly}},
        {"DoB", on(1, 2, 1980)},
        {"Sex", "F"},
        {"NITable", "A"},
        {"Director", true},
        {"PenWorkplaceSchemeID", std::int64_t{3}},
        {"PenEEDeductPC", 1.5F},
        {"PenERDeductPC", 2.5F},
        {"PenEEDeductFlat", Currency::fromWhole(4)},
        {"PenERDeductFlat", Currency::fromWhole(5)},
        {"LastPayDate", on(15, 4, 2016)},
        {"PREGroup", std::int64_t{6}},
        {"PostCode", "CB7 4AB"},
        {"TaxCode", "1100L"},
        {"ShortName", "Ann Archer"},
        {"Country", "England"},
    };
    ASSERT_EQ(table.FieldCount(), static_cast<std::int32_t>(std::size(expected)));
    for (std::int32_t i = 0; i < table.FieldCount(); ++i) {
        const auto& [name, value] = expected[i];
        EXPECT_EQ(table.Field(i).name, name);
        EXPECT_TRUE(table.Fields(name) == value) << name;
    }
}

TEST_F(ActiveEmployeesTable, ShowsNoDatesForAWorkerWithoutACurrentEmployment) {
    host.employee(7, PFREQ_1Weekly)->Active(true);
    const ResultTable table = payroll.C_ActiveEmployees(true);
    EXPECT_TRUE(table.Fields("NExpPayDate") == Date());
    EXPECT_TRUE(table.Fields("LastPayDate") == Date());
}

}  // namespace
}  // namespace ledgerwick::test
