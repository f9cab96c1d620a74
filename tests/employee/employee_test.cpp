#include "ledgerwick/employee/employee.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "ledgerwick/records/schema.h"
#include "tests/support/company.h"
#include "tests/support/errors.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {
namespace {

// ---- names --------------------------------------------------------------------------------------

using Parts = std::array<std::string, 5>;  // title, first and second forename, surname, others

// Splits every name into the parts that the test set.
struct ScriptedSplitter : CustomerFunctions {
    Parts parts;
    bool fails = false;

    void SplitContactName(const std::string&, std::string& Title, std::string& Forename1,
                          std::string& Forename2, std::string& Surname, std::string& OtherForenames,
                          std::int32_t& OtherID) override {
        Title = parts[0];
        if (fails) raise(error_number::invalidCall, "SplitContactName");
        Forename1 = parts[1];
        Forename2 = parts[2];
        Surname = parts[3];
        OtherForenames = parts[4];
        ++OtherID;
    }
};

struct NamingState : HostState {
    ScriptedSplitter splitter;
    CustomerFunctions& C_customerFunctions() override { return splitter; }
};

class EmployeeName : public testing::Test {
  protected:
    EmployeeName() { Identify().Setg(state); }
    ~EmployeeName() override { Identify().Setg(nullptr); }

    std::shared_ptr<NamingState> state = std::make_shared<NamingState>();
    cEmployee employee;
};

TEST_F(EmployeeName, JoinsItsPartsAndLeavesNoGapForAMissingOne) {
    struct Case {
        Parts parts;
        const char *name, *shortName, *forenames;
    };
    const Case cases[] = {
        {{"Mr", "John", "", "Smith", ""}, "Mr John Smith", "Mr John Smith", "John"},
        {{"Dr", "Ann", "Mary", "Lee", "Jo"}, "Dr Ann Mary Lee", "Dr Ann Lee", "Ann Mary Jo"},
        {{"Ms", "", "Mary", "Lee", ""}, "Ms Mary Lee", "Ms Lee", "Mary"},
        {{"", "Ann", "", "", "Jo"}, "Ann", "Ann", "Ann  Jo"},
        {{"", "", "", "Smith", ""}, "Smith", "Smith", ""},
        {{"", "", "", "", ""}, "", "", ""}};
    for (const auto& [parts, name, shortName, forenames] : cases) {
        state->splitter.parts = parts;
        employee.BusName("as the host splits it");
        EXPECT_EQ(name, employee.Name());
        EXPECT_EQ(shortName, employee.ShortName());
        EXPECT_EQ(forenames, employee.Forenames());
    }
    EXPECT_EQ(std::size(cases), static_cast<std::size_t>(employee.OtherID()));
}

TEST_F(EmployeeName, IsStoredWhenItCannotBeSplit) {
    state->splitter.parts[0] = "Mr";
    state->splitter.fails = true;
    EXPECT_EQ(5, raisedBy([&] { employee.BusName("Mr John Smith"); }));
    EXPECT_EQ("Mr John Smith", employee.BusName());
    EXPECT_EQ("Mr", employee.Title());  // what the host wrote before it failed

    Identify().Setg(nullptr);
    EXPECT_EQ(91, raisedBy([&] { employee.BusName("Ann Lee"); }));
    EXPECT_EQ("Ann Lee", employee.BusName());
}

// ---- address ------------------------------------------------------------------------------------

// The lines of a form as "first|second|", with "-" for one that was left Empty.
std::string formLines(const Variant& address) {
    const VariantArray& array = address.array();
    std::string lines;
    for (std::int32_t i = 1; i <= array.upperBound(); ++i)
        lines += (array.at(i).isEmpty() ? "-" : array.at(i).toText()) + "|";
    return lines;
}

TEST(EmployeeAddress, JoinsTheShortestNeighboursUntilTheLinesFit) {
    struct Case {
        const char* reason;
        std::int32_t pieces;
        std::array<const char*, 7> address;  // the five lines, post code, country
        const char* form;
    };
    const Case cases[] = {
        {"room to spare", 5, {" 1 St ", "", "", "Bath", "", "LS1", ""}, "1 St|Bath|-|LS1||"},
        {"the shortest pair", 4, {"a", "bb", "ccc", "", "", "", "UK"}, "a, bb|ccc||UK|"},
        {"the first of equal pairs", 4, {"aa", "b", "cc", "", "", "P", "UK"}, "aa, b|cc|P|UK|"},
        {"a joined line counts whole",
         4,
         {"a", "b", "ccc", "", "ddd", "P", "UK"},
         "a, b|ccc, ddd|P|UK|"},
        {"all in one line", 3, {"a", "b", "c", "d", "e", "P", "UK"}, "a, b, c, d, e|P|UK|"},
        {"characters, not bytes",
         4,
         {"a", "\u00e9\u00e9\u00e9", "bbbb", "", "", "P", "UK"},
         "a, \u00e9\u00e9\u00e9|bbbb|P|UK|"},
        {"nothing at all", 4, {"", "", "", "", "", "", "   "}, "-|-|||"}};
    Company company;
    company.list();
    cEmployee employee;
    for (const auto& [reason, pieces, address, form] : cases) {
        employee.Add1(address[0]);
        employee.Add2(address[1]);
        employee.Village(address[2]);
        employee.Town(address[3]);
        employee.County(address[4]);
        employee.PostCode(address[5]);
        employee.Country(address[6]);
        EXPECT_EQ(form, formLines(employee.Address(pieces))) << reason;
    }
    EXPECT_EQ(9, raisedBy([&] { employee.Address(2); }));
    EXPECT_EQ(9, raisedBy([&] { employee.Address(-1); }));
}

// ---- workplace pension --------------------------------------------------------------------------

TEST(EmployeePension, TakesTheRatesOfTheSchemeOrTheEmployeesOwn) {
    const Row own{{field::PSID, 4},
                  {field::PSDefEE, 5.5F},
                  {field::PSDefER, 3.0F},
                  {field::PREPenWorkplaceSchemeID, 4},
                  {field::PREPenWorkplaceUseSchemeRates, false},
                  {field::PREPenWorkplaceEEDeductPerC, 1.5F},
                  {field::PREPenWorkplaceERDeductPerC, 2.5F},
                  {field::PREPenWorkplaceEEDeductFlat, Currency::fromWhole(10)},
                  {field::PREPenWorkplaceERDeductFlat, Currency::fromWhole(20)}};
    const Row schemes = own.with(field::PREPenWorkplaceUseSchemeRates, true);
    const Row orphan = schemes.with(field::PSID, Null).with(field::PSDefEE, Null);
    struct Case {
        const char* reason;
        Row row;
        std::int32_t error;
        const char* state;  // scheme, whether its rates apply, percentages, flat amounts
    };
    const Case cases[] = {{"the rates of the scheme", schemes, 0, "4 1 5.5 3 0 0"},
                          {"the employee's own", own, 0, "4 0 1.5 2.5 10 20"},
                          {"without a scheme the rates stay",
                           orphan.with(field::PREPenWorkplaceSchemeID, 0), 0, "0 0 1.5 2.5 10 20"},
                          {"a scheme that is gone has none", orphan, 94, "0 1 1.5 2.5 10 20"}};
    cEmployee e;
    for (const auto& [reason, row, error, state] : cases) {
        Rows rows{row};
        rows.allowOnly(cEmployee::workplacePensionFields());
        EXPECT_EQ(error, raisedBy([&] { e.UpdateWorkplacePensionDetails(rows); })) << reason;
        EXPECT_EQ(state, std::to_string(e.PenWorkplaceSchemeID()) +
                             (e.PenWorkplaceUseSchemeRates() ? " 1 " : " 0 ") +
                             numberText(e.PenWorkplaceEEDeductPC()) + " " +
                             numberText(e.PenWorkplaceERDeductPC()) + " " +
                             e.PenWorkplaceEEDeductFlat().toText() + " " +
                             e.PenWorkplaceERDeductFlat().toText())
            << reason;
    }
}

}  // namespace
}  // namespace ledgerwick::test
