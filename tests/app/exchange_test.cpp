// Companies into and out of files.
#include "hostkit/exchange/company_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "hostkit/exchange/tables.h"

namespace ledgerwick::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A folder for the files of one test.
class Exchange : public testing::Test {
  protected:
    Exchange() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::temp_directory_path() / "ledgerwick-exchange" / test->name();
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    ~Exchange() override { std::filesystem::remove_all(folder_); }

    void write(const std::string& file, const std::string& text) {
        std::ofstream(folder_ / file, std::ios::binary) << text;
    }

    // What an import of the folder says is wrong; empty when it was stored.
    std::string faults() {
        try {
            exchange::importCompany(*database_, folder_);
        } catch (const exchange::BadFiles& bad) {
            return bad.what();
        }
        return {};
    }

    Variant valueOf(const std::string& field, const std::string& from) {
        return database_
            ->OpenRecordset("SELECT " + field + " FROM " + from, RecordsetType::Snapshot)
            ->Value(field);
    }
    std::int32_t rowsIn(const std::string& table) {
        return database_->OpenRecordset("SELECT * FROM " + table, RecordsetType::Dynaset)
            ->RecordCount();
    }

    std::filesystem::path folder_;
    std::shared_ptr<store::CompanyStore> database_ = exchange::openOrCreate(":memory:");
};

TEST_F(Exchange, FieldsLeftOutTakeTheTablesDefaults) {
    write("Deadstock.csv", "dsidno,DSDesc\n5,\n");
    write("PREmployments.CSV",
          "PRTID,PRTNAID,PRTStartDate,PRTEndDateLong\n1,7,2016-04-29,2016-05-05\n"
          "2,7,2016-04-29T13:30,\n");
    EXPECT_EQ(faults(), "");
    EXPECT_EQ(valueOf("DSUoMConv", "Deadstock").toDouble(), 1);
    EXPECT_EQ(valueOf("DSDesc", "Deadstock"), Variant(""));
    EXPECT_EQ(valueOf("PRTEndDateLong", "PREmployments WHERE PRTID = 1").toInt32(), 42495);
    EXPECT_EQ(valueOf("PRTEndDateLong", "PREmployments WHERE PRTID = 2").toInt32(), 0);
    EXPECT_EQ(valueOf("PRTStartDate", "PREmployments WHERE PRTID = 2").toDate(),
              Date::fromYmdHms(2016, 4, 29, 13, 30, 0));
}

TEST_F(Exchange, ABadFieldIsToldWithFileLineFieldAndReason) {
    const char* const noDate = "is not a date (YYYY-MM-DD)";
    const char* const noInt32 = "is not a whole number of 32 bits";
    const char* const noMoney = "is not an amount of money with up to four decimals";
    const char* const noText = "the text is not UTF-8";
    struct BadField {
        const char* field;
        const char* text;
        const char* reason;
        const char* table = "PRPay";
        const char* key = "PRPID";
    };
    for (const BadField& bad :
         std::vector<BadField>{{"PRPPayDate", "2025-02-29", noDate},
                               {"PRPPayDate", "29/04/2016", noDate},
                               {"PRPPayDate", "2016-4-29", noDate},
                               {"PRPPayDate", "2016-04-29T24:00", noDate},
                               {"PRTEndDateLong", "42495", noDate, "PREmployments", "PRTID"},
                               {"PRPPeriodUpdated", "yes", "is not True or False"},
                               {"PRPWeekNo", "32768", "is not a whole number of 16 bits"},
                               {"PRPNAID", "2147483648", noInt32},
                               {"PRPNAID", "7.0", noInt32},
                               {"PRPNAID", " 7", noInt32},
                               {"PRPStdHours", "1e999", "is not a number"},
                               {"PRPStdHours", "nan", "is not a number"},
                               {"PRPPeriodPay", "1.00001", noMoney},
                               {"PRPPeriodPay", "9e99", noMoney},
                               {"PRPPeriodPay", "£5", noMoney},
                               {"NABusName", "caf\xE9", noText, "Customers", "NAID"},
                               {"NABusName", "\xC0\xAF", noText, "Customers", "NAID"},
                               {"NABusName", "\xED\xA0\x80", noText, "Customers", "NAID"}}) {
        const std::string file = std::string(bad.table) + ".csv";
        const std::string table = bad.table;
        const std::string person = table == "PRPay"           ? "PRPNAID"
                                   : table == "PREmployments" ? "PRTNAID"
                                                              : "NASeq";
        const bool ofPerson = person == bad.field;
        write(file, std::string(bad.key) + "," + bad.field + (ofPerson ? "" : "," + person) +
                        (ofPerson ? "\n1,7\n\n2," : "\n1,,7\n\n2,") + bad.text +
                        (ofPerson ? "\n" : ",7\n"));
        const std::string told = faults();
        EXPECT_THAT(told, testing::StartsWith(file + ", line 4, field " + bad.field + ": "));
        EXPECT_THAT(told, HasSubstr(bad.reason));
        EXPECT_EQ(rowsIn(bad.table), 0) << "a row in front of the fault was stored";
        std::filesystem::remove(folder_ / file);
    }
}

TEST_F(Exchange, FaultsOfEveryFileAreToldAndNothingIsStored) {
    write("Customers.csv", "NAID,NABusName,NABusName,Nonsense\n1,a,b,c\n");
    write("UoM.csv", "UoMCode\nea\n");
    write("Orders.csv", "OrdID,OrdQty\n1,2\n1,3\n4\n,5\n");
    write("Deadstock.csv", "");
    write("PRControl.csv", "PRCFCurrentYear\n16\n17\n");
    write("PensionSchemes.csv", "PSID,PSDesc\n1,\"never closed\n");
    write("Strays.csv", "NAID\n1\n");
    write("readme.txt", "no table");
    std::vector<std::string> lines;
    std::istringstream told(faults());
    for (std::string line; std::getline(told, line);) lines.push_back(line);
    EXPECT_THAT(lines,
                ElementsAre("Strays.csv: there is no table Strays",
                            "Customers.csv, line 1, field NABusName: the field stands here twice",
                            "Customers.csv, line 1, field Nonsense: Customers has no such field",
                            "PensionSchemes.csv, line 2: a quote is never closed",
                            "Orders.csv, line 3, field OrdID: 1 stands in this file twice",
                            "Orders.csv, line 4: 1 fields instead of 2",
                            "Orders.csv, line 5, field OrdID: the key is missing",
                            "Deadstock.csv, line 1: there is no row of field names",
                            "UoM.csv, line 1, field UoMNo: the key is missing",
                            "PRControl.csv, line 3: the control record is one row"));
    EXPECT_EQ(rowsIn("Orders"), 0);
}

TEST_F(Exchange, RowsThatALoadWouldStumbleOverAreNamed) {
    write("Customers.csv", "NAID\n1\n2\n");
    write("PREmployeeDetails.csv", "PRENAID\n1\n2\n3\n");
    write("PREmployments.csv",
          "PRTID,PRTNAID,PRTPayrollYear,PRTPYEmployCount\n1,1,16,1\n3,3,16,1\n");
    write("PRPay.csv", "PRPID,PRPNAID,PRPPayrollYear,PRPPYEmployCount\n1,1,16,1\n2,1,16,2\n");
    write("PRPayImport.csv", "PRPINAID,PRPIPay\n9,1\n");
    EXPECT_EQ(faults(), "");
    EXPECT_THAT(
        exchange::brokenLinks(*database_),
        ElementsAre("employee 3 has no row in Customers",
                    "employee 2 has no employment; `employment add` lays one down",
                    "pay row 2 has no employment", "imported pay of 9 belongs to no employee"));
}

}  // namespace
}  // namespace ledgerwick::app
