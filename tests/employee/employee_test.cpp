#include "ledgerwick/employee/employee.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ledgerwick/shell/host.h"
#include "ledgerwick/shell/identify.h"
#include "ledgerwick/shell/schema.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {
namespace {

struct Parts {
    std::string title;
    std::string forename1;
    std::string forename2;
    std::string surname;
    std::string otherForenames;
    std::int32_t otherID = 0;
};

// Splits every name into the parts that the test set.
struct ScriptedSplitter : CustomerFunctions {
    Parts parts;
    std::vector<std::string> asked;
    bool fails = false;

    void SplitContactName(const std::string& BusName, std::string& Title, std::string& Forename1,
                          std::string& Forename2, std::string& Surname, std::string& OtherForenames,
                          std::int32_t& OtherID) override {
        asked.push_back(BusName);
        Title = parts.title;
        if (fails) raise(error_number::invalidCall, "SplitContactName");
        Forename1 = parts.forename1;
        Forename2 = parts.forename2;
        Surname = parts.surname;
        OtherForenames = parts.otherForenames;
        OtherID = parts.otherID;
    }
};

struct NamingState : HostState {
    ScriptedSplitter splitter;
    CustomerFunctions& C_customerFunctions() override { return splitter; }
};

struct ArrayFunctions : ProgramFunctions {
    void DeleteFromArray(VariantArray& array, const Variant& value) override {
        for (std::int32_t i = array.upperBound(); i >= array.lowerBound(); --i)
            if (array.at(i) == value) array.erase(i);
    }
};

class EmployeeTest : public testing::Test {
  protected:
    EmployeeTest() {
        identify.Setg(state);
        identify.Setpf(std::make_shared<ArrayFunctions>());
    }
    ~EmployeeTest() override {
        identify.Setg(nullptr);
        identify.Setpf(nullptr);
    }

    Identify identify;
    std::shared_ptr<NamingState> state = std::make_shared<NamingState>();
    cEmployee employee;
};

// ---- names --------------------------------------------------------------------------------------

using EmployeeName = EmployeeTest;

TEST_F(EmployeeName, JoinsItsPartsAndLeavesNoGapForAMissingOne) {
    struct Case {
        Parts parts;
        std::string name, shortName, forenames;
    };
    const Case cases[] = {
        {{"Mr", "John", "", "Smith", ""}, "Mr John Smith", "Mr John Smith", "John"},
        {{"", "John", "", "Smith", ""}, "John Smith", "John Smith", "John"},
        {{"Dr", "Ann", "Mary", "Lee", "Jo May"},
         "Dr Ann Mary Lee",
         "Dr Ann Lee",
         "Ann Mary Jo May"},
        {{"Ms", "", "Mary", "Lee", ""}, "Ms Mary Lee", "Ms Lee", "Mary"},
        {{"", "Ann", "", "", "Jo"}, "Ann", "Ann", "Ann  Jo"},
        {{"", "", "", "Smith", ""}, "Smith", "Smith", ""},
        {{"", "", "", "", ""}, "", "", ""},
    };
    for (const auto& [parts, name, shortName, forenames] : cases) {
        SCOPED_TRACE(name);
        state->splitter.parts = parts;
        employee.BusName("as the host splits it");
        EXPECT_EQ(name, employee.Name());
        EXPECT_EQ(shortName, employee.ShortName());
        EXPECT_EQ(forenames, employee.Forenames());
    }
}

TEST_F(EmployeeName, IsSplitAnewEachTimeItIsSet) {
    state->splitter.parts = {"Mr", "John", "Paul", "Smith", "George", 31};
    employee.BusName("first");
    state->splitter.parts = {"", "Ann", "", "Lee", "", 0};
    employee.BusName("second");
    EXPECT_EQ((std::vector<std::string>{"first", "second"}), state->splitter.asked);
    EXPECT_EQ("second", employee.BusName());
    EXPECT_EQ("", employee.Title());
    EXPECT_EQ("Ann", employee.Forename1());
    EXPECT_EQ("", employee.Forename2());
    EXPECT_EQ("Lee", employee.Surname());
    EXPECT_EQ("", employee.OtherForenames());
    EXPECT_EQ(0, employee.OtherID());
}

TEST_F(EmployeeName, IsStoredWhenItCannotBeSplit) {
    state->splitter.parts.title = "Mr";
    state->splitter.fails = true;
    EXPECT_EQ(5, raisedBy([&] { employee.BusName("Mr John Smith"); }));
    EXPECT_EQ("Mr John Smith", employee.BusName());
    EXPECT_EQ("Mr", employee.Title());  // what the host wrote before it failed

    identify.Setg(nullptr);
    EXPECT_EQ(91, raisedBy([&] { employee.BusName("Ann Lee"); }));
    EXPECT_EQ("Ann Lee", employee.BusName());
}

TEST_F(EmployeeTest, NumberAndAddressLoseTheirSurroundingSpaces) {
    employee.NINO("  QQ 12 34 56 A ");
    employee.Add1("\t1 High Street ");
    employee.Country("   ");
    EXPECT_EQ("QQ 12 34 56 A", employee.NINO());
    EXPECT_EQ("\t1 High Street", employee.Add1());
    EXPECT_EQ("", employee.Country());
}

// ---- address ------------------------------------------------------------------------------------

using EmployeeAddress = EmployeeTest;

// The lines of a form, with "-" for one that was left Empty.
std::vector<std::string> formLines(const Variant& address) {
    const VariantArray& array = address.array();
    EXPECT_EQ(1, array.lowerBound());
    std::vector<std::string> lines;
    for (std::int32_t i = 1; i <= array.upperBound(); ++i)
        lines.push_back(array.at(i).isEmpty() ? "-" : array.at(i).toText());
    return lines;
}

TEST_F(EmployeeAddress, JoinsTheShortestNeighboursUntilTheLinesFit) {
    struct Case {
        std::string reason;
        std::int32_t pieces;
        std::vector<std::string> address;  // the five lines, post code, country
        std::vector<std::string> form;
    };
    const Case cases[] = {
        {"room to spare",
         5,
         {"1 High St", "", "", "Leeds", "", "LS1", ""},
         {"1 High St", "Leeds", "-", "LS1", ""}},
        {"the shortest pair", 4, {"a", "bb", "ccc", "", "", "", "UK"}, {"a, bb", "ccc", "", "UK"}},
        {"the first of equal pairs",
         4,
         {"aa", "b", "cc", "", "", "P", "UK"},
         {"aa, b", "cc", "P", "UK"}},
        {"a joined line counts whole",
         4,
         {"a", "b", "ccc", "", "ddd", "P", "UK"},
         {"a, b", "ccc, ddd", "P", "UK"}},
        {"all in one line", 3, {"a", "b", "c", "d", "e", "P", "UK"}, {"a, b, c, d, e", "P", "UK"}},
        {"characters, not bytes",
         4,
         {"a", "\u00e9\u00e9\u00e9", "bbbb", "", "", "P", "UK"},
         {"a, \u00e9\u00e9\u00e9", "bbbb", "P", "UK"}},
        {"nothing at all", 4, {"", "", "", "", "", "", ""}, {"-", "-", "", ""}},
    };
    for (const auto& [reason, pieces, address, form] : cases) {
        SCOPED_TRACE(reason);
        employee.Add1(address[0]);
        employee.Add2(address[1]);
        employee.Village(address[2]);
        employee.Town(address[3]);
        employee.County(address[4]);
        employee.PostCode(address[5]);
        employee.Country(address[6]);
        EXPECT_EQ(form, formLines(employee.Address(pieces)));
    }
}

TEST_F(EmployeeAddress, NeedsThreeLines) {
    for (const std::int32_t pieces : {2, 1, 0, -1})
        EXPECT_EQ(9, raisedBy([&] { employee.Address(pieces); })) << pieces;
}

// ---- workplace pension --------------------------------------------------------------------------

class EmployeePension : public testing::Test {
  protected:
    // Takes in a row that shows no other fields than those that are named for it.
    void take(const Row& shown) {
        Rows rows{shown};
        rows.allowOnly(cEmployee::workplacePensionFields());
        employee.UpdateWorkplacePensionDetails(rows);
    }
    std::string rates() const {
        return numberText(employee.PenWorkplaceEEDeductPC()) + " " +
               numberText(employee.PenWorkplaceERDeductPC()) + " " +
               employee.PenWorkplaceEEDeductFlat().toText() + " " +
               employee.PenWorkplaceERDeductFlat().toText();
    }

    const Row row{
        {field::PSID, 4},
        {field::PSDefEE, 5.5F},
        {field::PSDefER, 3.0F},
        {field::PREPenWorkplaceSchemeID, 4},
        {field::PREPenWorkplaceUseSchemeRates, false},
        {field::PREPenWorkplaceEEDeductPerC, 1.5F},
        {field::PREPenWorkplaceERDeductPerC, 2.5F},
        {field::PREPenWorkplaceEEDeductFlat, Currency::fromWhole(10)},
        {field::PREPenWorkplaceERDeductFlat, Currency::fromWhole(20)},
    };
    cEmployee employee;
};

TEST_F(EmployeePension, TakesTheRatesOfTheSchemeOrTheEmployeesOwn) {
    take(row);
    EXPECT_EQ(4, employee.PenWorkplaceSchemeID());
    EXPECT_FALSE(employee.PenWorkplaceUseSchemeRates());
    EXPECT_EQ("1.5 2.5 10 20", rates());

    take(row.with(field::PREPenWorkplaceUseSchemeRates, true));
    EXPECT_TRUE(employee.PenWorkplaceUseSchemeRates());
    EXPECT_EQ("5.5 3 0 0", rates());
}

TEST_F(EmployeePension, KeepsTheRatesOfAnEmployeeWithoutAScheme) {
    take(row);
    take(row.with(field::PSID, Null)
             .with(field::PREPenWorkplaceSchemeID, 0)
             .with(field::PREPenWorkplaceUseSchemeRates, true));
    EXPECT_EQ(0, employee.PenWorkplaceSchemeID());
    EXPECT_FALSE(employee.PenWorkplaceUseSchemeRates());
    EXPECT_EQ("1.5 2.5 10 20", rates());
}

TEST_F(EmployeePension, FailsOnTheRatesOfASchemeThatIsGone) {
    const Row orphan = row.with(field::PSID, Null)
                           .with(field::PSDefEE, Null)
                           .with(field::PREPenWorkplaceUseSchemeRates, true);
    EXPECT_EQ(94, raisedBy([&] { take(orphan); }));
    EXPECT_EQ(0, employee.PenWorkplaceSchemeID());
    EXPECT_TRUE(employee.PenWorkplaceUseSchemeRates());
}

}  // namespace
}  // namespace ledgerwick::test
