// A host that a test can look into, without a database of its own.
//
//   FakeHost host(16);                         // linked while it lives; payroll year 16
//   host.functions->parameters["PRNExpD_M1"] = 15;
//   host.state->database.answer("FROM ...", {Row{...}});
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/host.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/rows.h"

namespace ledgerwick::test {

struct CriticalMessage {
    std::string caption;
    std::string text;
    friend bool operator==(const CriticalMessage&, const CriticalMessage&) = default;
};

// Takes every name for a surname.
struct FakeNames : CustomerFunctions {
    void SplitContactName(const std::string& BusName, std::string&, std::string&, std::string&,
                          std::string& Surname, std::string&, std::int32_t&) override {
        Surname = BusName;
    }
};

struct FakeHostState : HostState {
    RowsDatabase database;
    Variant currentYear{0};
    Dictionary<std::int32_t, Date> yearEnds;
    Date today;
    std::int16_t aePRPStartDay = 0;
    std::vector<CriticalMessage> messages;

    Database& DBDll() override { return database; }
    Recordset& g_rsPRControl() override {
        control_ = Rows{Row{{field::PRCFCurrentYear, currentYear}}};
        return control_;
    }
    const Dictionary<std::int32_t, Date>& g_dicPRYears() override { return yearEnds; }
    Date g_dtmToday() override { return today; }
    std::int16_t g_iAEPRPStartDay() override { return aePRPStartDay; }
    std::string g_strPCID() override { return "_PC7"; }
    std::string g_strProgName() override { return "Fernbank Payroll"; }
    std::string strCurFormat() override { return "#,##0.00"; }
    CustomerFunctions& C_customerFunctions() override { return names_; }
    void ShowCriticalMessage(const std::string& caption, const std::string& text) override {
        messages.push_back({caption, text});
    }

  private:
    Rows control_;
    FakeNames names_;
};

struct FakeProgramFunctions : ProgramFunctions {
    std::map<std::string, Variant, std::less<>> parameters;
    std::vector<Date> monthsAskedFor;

    std::string DateToUSstr(Date date) override {
        const auto day = date.ymd();
        return std::to_string(day.month) + "/" + std::to_string(day.day) + "/" +
               std::to_string(day.year);
    }
    // A parameter that the test did not set is one that the library must not ask for.
    Variant GetParameterField(std::string_view name) override {
        const auto found = parameters.find(name);
        if (found == parameters.end()) raise(error_number::noSuchItem, name);
        return found->second;
    }
    std::int16_t DaysInMonth(Date date) override {
        monthsAskedFor.push_back(date);
        return static_cast<std::int16_t>(date.daysInMonth());
    }
    void BubbleSortLongArray(std::vector<std::int32_t>& array) override {
        std::sort(array.begin(), array.end());
    }
};

// Links the two for its life, and leaves every reference of the thread empty behind it.
class FakeHost {
  public:
    // The year-ends of the current year and of the one before are on 5 April.
    explicit FakeHost(std::int32_t currentYear = 16) {
        state->currentYear = currentYear;
        for (const std::int32_t year : {currentYear - 1, currentYear}) {
            state->yearEnds.Add(year, Date::fromYmd(year + 2000, 4, 5));
        }
        Identify identify;
        identify.Setg(state);
        identify.Setpf(functions);
    }
    ~FakeHost() {
        Identify identify;
        identify.SetCallerGlobal(nullptr);
        identify.Setg(nullptr);
        identify.Setfp(nullptr);
        identify.SetDAO_ADO(nullptr);
        identify.SetARFuncs(nullptr);
        identify.Setpf(nullptr);
        identify.SetEmployeeList(nullptr);
    }
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    std::shared_ptr<FakeHostState> state = std::make_shared<FakeHostState>();
    std::shared_ptr<FakeProgramFunctions> functions = std::make_shared<FakeProgramFunctions>();
};

}  // namespace ledgerwick::test
