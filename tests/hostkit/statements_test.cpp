// The list of statements against what the library really sends.
#include "hostkit/conformance/statements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "hostkit/forwarding/forwarding_database.h"
#include "tests/support/company.h"

namespace ledgerwick::test {
namespace {

using conformance::Sent;
using conformance::shapeOf;

std::string noted(Sent sent, std::string_view sql) {
    static constexpr const char* names[]{"snapshot ", "dynaset ", "execute "};
    return names[static_cast<std::size_t>(sent)] + shapeOf(sql);
}

struct NotingDatabase : ForwardingDatabase {
    using ForwardingDatabase::ForwardingDatabase;
    std::set<std::string> sent;

    void Execute(std::string_view sql, std::int32_t option) override {
        sent.insert(noted(Sent::Execute, sql));
        ForwardingDatabase::Execute(sql, option);
    }
    bool TableExists(std::string_view name) override { return Database::TableExists(name); }

  protected:
    RecordsetRef wrap(RecordsetRef set, std::string_view sql, RecordsetType type) override {
        sent.insert(noted(type == RecordsetType::Snapshot ? Sent::Snapshot : Sent::Dynaset, sql));
        return set;
    }
};

TEST(Statements, TheListHoldsWhatTheLibrarySendsAndNothingElse) {
    Company company;
    const auto noting = std::make_shared<NotingDatabase>(company.database());
    company.useDatabase(noting);
    company.parameter("PRNExpD_M1", 0).parameter("PREPED_M1", 0);
    company.scheme(1, "Workplace", 5, 3);
    company.employee(7).weekly().inScheme(1).closed(week(1)).closed(week(3));
    company.importedPay(7, 100).item(4, "Apples", 1, "box");
    for (const int order : {1, 2, 3, 4, 5}) company.order(order, 7, 4, "2016-04-27", 1, 2);
    company.database().createLastWeekNosTable("1");
    company.database().exec("INSERT INTO TEMP_PR_LAST_WEEK_NOS1 VALUES (4, 1)");
    CPayrollFunctions& payroll = company.payroll();
    noting->sent.clear();

    company.load();
    company.list().ReLoadEmployee(7);
    noting->TableExists("PRPayImport");
    payroll.C_InputHoursInit(day("2016-05-03"), PFREQ_SelAll, 0, 0);
    const auto take = [&](std::int16_t status, std::int32_t invoice, const Variant& reference) {
        company.list().LoadImportedPay();
        company.current(7).UpdateImportedEarnings(status, day("2016-04-27"), day("2016-04-27"),
                                                  invoice, reference);
        company.exec("UPDATE Orders SET OrdStatus = 2");
    };
    take(3, 0, {});
    take(5, 0, {});
    take(5, 77, {});
    take(5, 0, "R");
    take(5, 77, "R");
    payroll.C_UpdatePayPeriod(7, day("2016-05-03"));
    company.list().ReLoadEmployee(7);
    company.current(7).NExpPayDate(day("2016-05-11"));
    company.current(7).NExpEPEDate(day("2016-05-09"));
    payroll.C_Reset_HasBeenVisited(7);
    payroll.C_CreateStartingPayRecord(7, 0, day("2016-04-05"), day("2016-04-12"),
                                      day("2016-04-10"));
    payroll.AutoFillMissingPeriods();
    payroll.C_Update_Period_Date();
    payroll.PR_GetEPSDate(7, 17, 1, 0);
    payroll.PR_GetEPSDate(7, 17, 1, 3);
    payroll.Max_PRPID_From_PayDate(17, 7, 1, day("2016-05-03"));
    payroll.C_MonthNoOfWeekNo(4);
    VariantArray details(1, 18);
    details.at(3) = std::int32_t{2};
    details.at(4) = std::int32_t{1};
    payroll.C_CreateNewEmploymentRecord(7, 4, 1, "2016-05-04", Variant(details), false, "");
    company.exec("UPDATE PRPay SET PRPPenWorkplaceSchemeID = 1");
    company.load();
    payroll.GetAEStatus(day("2016-05-31"), 17, true, 7);
    payroll.C_PenWorkplaceSchemeUpdate(1);
    payroll.C_ReEnrolDateChanged(day("2016-05-01"), day("2016-06-01"));

    std::set<std::string> listed;
    for (const auto& each : conformance::statements()) {
        listed.insert(noted(each.sent, each.sql));
    }
    // A table is probed by the name that was asked for.
    std::set<std::string> sent;
    for (std::string shape : noting->sent) {
        const auto name = shape.find("[PRPayImport]");
        if (name != std::string::npos) shape.replace(name, 13, "[PRPay]");
        sent.insert(shape);
    }
    EXPECT_THAT(sent, testing::ContainerEq(listed));
}

}  // namespace
}  // namespace ledgerwick::test
