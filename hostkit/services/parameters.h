// The named system parameters of a company, table `Parameters(ParName, ParValue)`.
//
//   parameters.Get("PRNExpD_M1");          // the monthly pay-day rule
//   parameters.Set("AEPRPStartDay", 2);    // auto-enrolment weeks start on Mondays
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// Held in memory, since the calendar asks for them in its inner loops; names are matched without
// regard to case. Another process' change is seen after `Reload`.
class LEDGERWICK_HOSTKIT_API KitParameters {
  public:
    // Reads every parameter of the company.
    explicit KitParameters(std::shared_ptr<Database> database);

    // The value of a parameter.
    // Errors: 3265, source "GetParameterField", when the company does not have it: a payroll whose
    //         pay-day rule got lost must not run on another one.
    Variant Get(std::string_view name) const;
    // The value of a parameter, or `otherwise` when the company does not have it.
    Variant Get(std::string_view name, const Variant& otherwise) const;
    // Whether the company has a parameter of that name.
    bool Has(std::string_view name) const;

    // Stores the value in the table and in memory.
    void Set(std::string_view name, const Variant& value);

    // Removes a parameter from the table and from memory; nothing when it is not there.
    void Remove(std::string_view name);

    // Reads every parameter again.
    void Reload();

  private:
    std::shared_ptr<Database> database_;
    std::unordered_map<std::string, Variant> values_;  // by the name in lower case
};

}  // namespace ledgerwick
