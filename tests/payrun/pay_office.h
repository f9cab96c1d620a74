// A company in payroll year 17 (6 April 2016 to 5 April 2017) whose pay runs are opened and closed.
//
//   PayOffice office;
//   office.hire(7, PFREQ_Monthly).details("PRETaxCode = '1100L'");
//   office.company.load();
//   const auto columns = office.open(day("2016-05-31"));   // two months, one column each
//   office.payroll().C_UpdatePayPeriod(7, day("2016-05-31"));
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/company.h"
#include "tests/support/failing_database.h"

namespace ledgerwick::test {

// What an employee's history starts from: the last period before the first run, and the dates
// expected after it.
struct History {
    std::int32_t lastWeek;
    std::string lastEPE;
    std::string nextPay;
    std::string nextEPE;
};

// The start of the payroll year. Months and longer periods end, and are paid, with the month.
const History& yearStart(PR_Pay_Freq frequency);

// One column of the array that opening a run gives.
struct Column {
    std::int32_t naid;
    std::int32_t payRecord;
    Date first;
    Date last;
    Variant imported;
    std::int32_t week;
    std::int32_t period;

    bool operator==(const Column&) const = default;
};

using TableRow = std::map<std::string, Variant, std::less<>>;  // every field by its name

class PayOffice {
  public:
    PayOffice();

    // A new employee with a starting row.
    Person& hire(std::int32_t naid, PR_Pay_Freq frequency = PFREQ_1Weekly);
    Person& hire(std::int32_t naid, PR_Pay_Freq frequency, const History& history);

    std::vector<Column> open(Date payDate, std::int32_t frequency = PFREQ_SelAll,
                             std::int32_t group = 0, std::int32_t naid = 0);
    CPayrollFunctions& payroll() { return company.payroll(); }
    // What the library reads and writes goes through here, and can be made to fail.
    FailingDatabase& library() { return *library_; }

    // Pay rows in the order of their keys.
    std::vector<TableRow> payRows(const std::string& where = "PRPID > 0");
    TableRow payRow(std::int32_t key) { return payRows("PRPID = " + std::to_string(key)).at(0); }

    Company company;

  private:
    std::shared_ptr<FailingDatabase> library_;
};

inline const std::string openRows = "PRPPeriodUpdated = False";

// One field, row by row, and one item, column by column.
std::vector<std::int32_t> numbersOf(const std::vector<TableRow>& rows, std::string_view field);
std::vector<std::string> datesOf(const std::vector<TableRow>& rows, std::string_view field);
template <class Item>
std::vector<Item> each(const std::vector<Column>& columns, Item Column::*item) {
    std::vector<Item> items;
    for (const Column& column : columns) items.push_back(column.*item);
    return items;
}

}  // namespace ledgerwick::test

namespace ledgerwick {

inline void PrintTo(const Date& date, std::ostream* out) {
    *out << date.toIso();
}
inline void PrintTo(const Variant& value, std::ostream* out) {
    *out << (value.isEmpty() ? "Empty" : value.isNull() ? "Null" : value.toText());
}

}  // namespace ledgerwick
