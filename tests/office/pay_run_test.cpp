// The road of a pay run around the library's own operations.
#include "hostkit/office/pay_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "hostkit/exchange/company_files.h"
#include "hostkit/office/refusal.h"

namespace ledgerwick::office {
namespace {

const Date payDate = Date::fromYmd(2026, 1, 30);

class SampleRun : public testing::Test {
  protected:
    SampleRun() {
        exchange::importCompany(*database_, SAMPLE_COMPANY);
        session_ = std::make_unique<HostSession>(database_, payDate);
        session_->list().LoadEmployees();
    }

    std::int64_t count(const std::string& from) {
        const auto rows =
            database_->OpenRecordset("SELECT Count(*) AS N FROM " + from, RecordsetType::Snapshot);
        return rows->Value("N").toInt64();
    }
    Selection only(std::int32_t naid) const { return {payDate, PFREQ_SelAll, 0, naid}; }
    std::shared_ptr<store::CompanyStore> database_ = exchange::openOrCreate(":memory:");
    std::unique_ptr<HostSession> session_;
};

TEST_F(SampleRun, AFailureLeavesAnEmployeeOpenWithTheImportedPayInPlace) {
    openRun(*session_, only(132));
    database_->exec(R"(
        CREATE TRIGGER Stuck BEFORE DELETE ON PRPayImport
        BEGIN SELECT RAISE(ABORT, 'stuck'); END;
    )");
    EXPECT_THROW(closeRun(*session_, only(132)), Error);
    EXPECT_EQ(count("PRPay WHERE PRPPeriodUpdated = False AND PRPNAID = 132"), 1);
    EXPECT_EQ(count("PRPayImport WHERE PRPINAID = 132"), 1);

    database_->exec("DROP TRIGGER Stuck");
    closeRun(*session_, only(132));
    EXPECT_EQ(count("PRPay WHERE PRPPeriodUpdated = False"), 0);
    EXPECT_EQ(count("PRPayImport"), 2);  // of the others
}

TEST_F(SampleRun, AnEmployeeWithoutPayHistoryIsRefusedAndNothingIsWritten) {
    const std::int64_t before = count("PRPay");
    database_->exec("DELETE FROM PRPay WHERE PRPNAID = 122");
    session_->list().ReLoadEmployee(122);
    EXPECT_THROW(openRun(*session_, {payDate, PFREQ_Monthly, 0, 0}), Refusal);
    EXPECT_EQ(count("PRPay"), before - 1);
    openRun(*session_, {payDate, PFREQ_1Weekly, 0, 0});  // the others are paid
    EXPECT_EQ(count("PRPay"), before - 1 + 17);
}

}  // namespace
}  // namespace ledgerwick::office
