// Hostile texts through everything that takes text: each comes back as it was or is refused with a
// clear error, and no table is changed but where it was put.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "hostkit/exchange/company_files.h"
#include "hostkit/exchange/csv.h"
#include "hostkit/services/customer_functions.h"
#include "hostkit/services/file_functions.h"
#include "hostkit/services/parameters.h"
#include "hostkit/services/terminal_text.h"
#include "ledgerwick/autoenrol/ae_letter_detail.h"
#include "ledgerwick/host/class_factory.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/orders/order_line.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/result_table.h"
#include "ledgerwick/values/text.h"
#include "tests/hostile/texts.h"
#include "tests/support/company.h"

namespace ledgerwick::test {
namespace {

namespace fs = std::filesystem;

// A company with all that the entry points below put a text into.
struct World {
    World() {
        company.scheme(3, "Pension", 5, 3).item(4, "Basket", 1, "each");
        company.order(11, 7, 4, "2016-04-12", 1, 10);
        company.employee(7).nino("AB123456C").inScheme(3).closed(weeks(1, 2));
        company.employee(8).monthly();
        fs::create_directories(folder);
        std::ofstream(folder / "Enrolment.txt") << "Dear %Forename%, %PensionProvider%.";
        company.load();
        Identify().SetCallerGlobal(std::make_shared<KitGlobal>(folder.string()));
        Identify().SetDAO_ADO(company.dataAccess);
    }
    ~World() { fs::remove_all(folder); }

    RecordsetRef row(const std::string& from) {
        return company.database().OpenRecordset("SELECT * FROM " + from, RecordsetType::Dynaset);
    }
    std::shared_ptr<Database> shared() {
        return {&company.database(), [](Database*) {}};
    }
    // Puts the text into a field of the first row, through a set, and gives what it then holds.
    std::string put(const std::string& from, const std::string& field, const std::string& text) {
        const auto rs = row(from);
        rs->Edit();
        rs->Value(field, text);
        rs->Update();
        return row(from)->Value(field).toText();
    }
    // Every table but the workstation's own, as it would be written to files.
    std::string contents() {
        std::ostringstream out;
        exchange::CsvWriter writer(out);
        for (const auto& table : exchange::companyTables(company.database())) {
            const auto rs = row(table.name);
            for (; !rs->Eof(); rs->MoveNext()) {
                std::vector<std::string> cells{table.name};
                for (const auto& field : table.fields) {
                    cells.push_back(exchange::writeField(rs->Value(field.name), field));
                }
                writer.row(cells);
            }
        }
        return out.str();
    }

    Company company;
    fs::path folder =
        fs::temp_directory_path() / ("ledgerwick-hostile-" + std::to_string(getpid()));
};

// What a text went through; gives what came back.
struct EntryPoint {
    const char* name;
    std::function<std::string(World&, const std::string&)> pass;
    bool refuses = false;  // every text that is put there
};

std::string quoted(const std::string& text) {
    return "'" + replaceAll(text, "'", "''") + "'";
}

std::string bracketed(const std::string& name) {
    return '"' + replaceAll(name, "\"", "\"\"") + '"';
}

std::string letterOf(const std::string& text, void (CAELetterDetail::*set)(std::string)) {
    CAELetterDetail letter;
    letter.LetterType(PR_AELT_ENROLMENT);
    (letter.*set)(text);
    return letter.LetterText();
}

// The part of a letter that stands for a placeholder.
std::string between(const std::string& front, const std::string& all, const std::string& back) {
    EXPECT_TRUE(all.starts_with(front) && all.ends_with(back)) << all;
    return all.substr(front.size(), all.size() - front.size() - back.size());
}

// A field that holds so many characters: the text when it holds as many of it.
std::string cut(const std::string& held, const std::string& text, std::size_t width) {
    return held == firstCharacters(text, width) ? text : held;
}

const EntryPoint entryPoints[] = {
    {"a field of a set",
     [](World& world, const std::string& text) {
         return world.put("Customers WHERE NAID = 7", "NAAdd1", text);
     }},
    {"a literal of a statement",
     [](World& world, const std::string& text) {
         world.company.database().Execute(
             "UPDATE Customers SET NAAdd1 = " + quoted(text) + " WHERE NAID = 7", failOnError);
         return world.row("Customers WHERE NAID = 7")->Value("NAAdd1").toText();
     }},
    {"a file of an import",
     [](World& world, const std::string& text) {
         const auto other = exchange::openOrCreate(":memory:");
         const fs::path files = world.folder / "files";
         fs::remove_all(files);
         fs::create_directories(files);
         std::ofstream out(files / "Customers.csv", std::ios::binary);
         exchange::CsvWriter writer(out);
         writer.row({"NAID", "NABusName"});
         writer.row({"7", exchange::guarded(text)});
         out.close();
         exchange::importCompany(*other, files);
         exchange::exportCompany(*other, files);
         return other->OpenRecordset("SELECT NABusName FROM Customers", RecordsetType::Snapshot)
             ->Value("NABusName")
             .toText();
     }},
    {"the name of an employee",
     [](World& world, const std::string& text) {
         world.put("Customers WHERE NAID = 7", "NABusName", text);
         world.company.load();
         cEmployee& employee = world.company.at(7);
         employee.Name();
         employee.ShortName();
         return employee.BusName();
     }},
    {"a National Insurance number",
     [](World& world, const std::string& text) {
         world.put("PREmployeeDetails WHERE PRENAID = 7", "PRENINO", text);
         CEmployeeList& list = world.company.load();
         const auto found = list.GetEmployeeByNINO(text);
         EXPECT_EQ(found != nullptr, !trim(text).empty());
         return !found || found->NINO() == trim(text) ? text : found->NINO();
     }},
    {"the reference of an order",
     [](World& world, const std::string& text) {
         world.company.exec("UPDATE Orders SET OrdStatus = 2");
         world.company.list().LoadImportedPay();
         world.company.current(7).UpdateImportedEarnings(5, day("2016-04-06"), day("2016-04-30"), 0,
                                                         text);
         return world.row("Orders")->Value("OrdRef").toText();
     }},
    {"the status of a new employment",
     [](World& world, const std::string& text) {
         world.company.payroll().C_CreateNewEmploymentRecord(8, 0, PR_ET_Regular, "2016-05-01", {},
                                                             false, text);
         const std::string held = world.row("PREmployments WHERE PRTNAID = 8 AND PRTID <> 80")
                                      ->Value("PRTAEStatus")
                                      .toText();
         world.company.exec("DELETE FROM PREmployments WHERE PRTNAID = 8 AND PRTID <> 80");
         return held;
     }},
    {"the details of a starter",
     [](World& world, const std::string& text) {
         VariantArray details(1, 18);
         for (std::int32_t i = 2; i <= 18; ++i) details.at(i) = 1;
         details.at(16) = text;  // PRTAText
         world.company.payroll().PR_EmploymentsAddInfo_Add(details);
         const std::string held = world.row("PREmploymentsAddInfo")->Value("PRTAText").toText();
         world.company.exec("DELETE FROM PREmploymentsAddInfo");
         return held;
     }},
    {"the start of an employment",
     [](World& world, const std::string& text) {
         world.company.payroll().C_CreateNewEmploymentRecord(8, 0, PR_ET_Regular, text);
         return text;
     },
     true},
    {"a forename in a letter",
     [](World&, const std::string& text) {
         return between("Dear ", letterOf(text, &CAELetterDetail::EmployeeForename),
                        ", %PensionProvider%.");
     }},
    {"a provider in a letter",
     [](World&, const std::string& text) {
         return between("Dear %Forename%, ", letterOf(text, &CAELetterDetail::PensionProvider),
                        ".");
     }},
    {"a heading and an address",
     [](World&, const std::string& text) {
         CAELetterDetail letter;
         letter.EmployerSchemeName(text);
         letter.LetterType(PR_AELT_ENROLMENT);
         letter.AddAddressLine("1 Mill Lane");
         letter.AddAddressLine(text);
         EXPECT_EQ(letter.LetterHeadingText(), text + " - Enrolment");
         return between("1 Mill Lane\r\n", letter.EmployeeAddress(), "");
     }},
    {"a field of a result table",
     [](World&, const std::string& text) {
         ResultTable table;
         table.Append("Text", FieldType::Text, 10);
         table.Open();
         table.AddNew();
         table.Fields("Text", text);
         table.Update();
         table.Sort("Text DESC");
         return cut(table.Fields("Text").toText(), text, 10);
     }},
    {"a field by its name",
     [](World& world, const std::string& text) {
         return world.row("Customers")->Value(FieldName(text)).toText();
     },
     true},
    {"a name in brackets",
     [](World& world, const std::string& text) {
         const auto rs = world.company.database().OpenRecordset(
             "SELECT NAID AS " + bracketed(text) + " FROM Customers WHERE NAID = 7",
             RecordsetType::Snapshot);
         EXPECT_EQ(rs->Value(FieldName(text)).toInt32(), 7);
         return text;
     }},
    {"a workstation in a statement",
     [](World& world, const std::string& text) {
         return world.row("TEMP_PR_LAST_WEEK_NOS" + text + " WHERE TLWWeekNo = 3")
             ->Value("a")
             .toText();
     },
     true},
    {"a table by its name",
     [](World& world, const std::string& text) {
         world.company.database().createLastWeekNosTable(text);
         const std::string name = "TEMP_PR_LAST_WEEK_NOS" + text;
         EXPECT_TRUE(world.company.database().TableExists(name));
         world.company.exec("DROP TABLE " + bracketed(name));
         return text;
     }},
    {"the value of a parameter",
     [](World& world, const std::string& text) {
         KitParameters(world.shared()).Set("Hostile", text);
         const std::string held =
             world.row("Parameters WHERE ParName = 'Hostile'")->Value("ParValue").toText();
         return held;
     }},
    {"a caption",
     [](World&, const std::string& text) {
         const std::string clean = withoutControls(text);
         EXPECT_EQ(clean, withoutControls(clean));
         for (const char c : clean) EXPECT_FALSE(static_cast<unsigned char>(c) < 0x20);
         for (const char* marks : {"\u009b", "\u202E", "\u2066", "\u2069"}) {
             EXPECT_EQ(clean.find(marks), std::string::npos);
         }
         return text;
     }},
};

std::string shown(const std::string& text) {
    return testing::PrintToString(text.substr(0, 80));
}

TEST(HostileTexts, ComeBackAsTheyWereOrAreRefusedAndChangeNothingElse) {
    World world;
    const auto company = [&world](const EntryPoint& entry) {
        if (!entry.refuses) entry.pass(world, "plain");
        world.company.load();
        return world.contents();
    };
    for (const EntryPoint& entry : entryPoints) {
        SCOPED_TRACE(entry.name);
        const std::string before = company(entry);
        for (const std::string& text : hostileTexts()) {
            SCOPED_TRACE(shown(text));
            try {
                EXPECT_EQ(shown(entry.pass(world, text)), shown(text));
                EXPECT_FALSE(entry.refuses) << "was taken";
            } catch (const Error& error) {
                EXPECT_TRUE(entry.refuses || !isText(text)) << error.what();
                EXPECT_NE(error.Number(), 0);
                EXPECT_FALSE(error.Source().empty());
                EXPECT_GT(error.Description().size(), 10U) << error.what();
            } catch (const exchange::BadFiles& bad) {
                EXPECT_FALSE(isText(text)) << bad.what();
                EXPECT_STREQ(bad.what(),
                             "Customers.csv, line 2, field NABusName: the text is not UTF-8");
            }
        }
        EXPECT_TRUE(company(entry) == before) << "a table was changed";
    }
}

}  // namespace
}  // namespace ledgerwick::test
