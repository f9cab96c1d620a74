// What an audit has found so far, and the trying of one step of a load.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/audit/audit.h"
#include "hostkit/audit/mended_row.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::audit {

// A row as a finding names it.
struct Place {
    std::string table;      // the table of the row
    std::string key;        // its key, as text
    std::int32_t naid = 0;  // the employee, 0 for none
    std::string name{};     // the employee's name
};

// A field that may hold anything, for one who only looks.
template <class Value>
Value readOr(Value otherwise, Recordset& row, const FieldName& name,
             Value (Recordset::*get)(const FieldName&)) {
    try {
        return row.IsNull(name) ? otherwise : (row.*get)(name);
    } catch (const Error&) {
        return otherwise;
    }
}
// 0 for what is no number.
inline std::int32_t numberIn(Recordset& row, const FieldName& name) {
    return readOr(0, row, name, &Recordset::GetInt32);
}
// The zero date for what is no date.
inline Date dateIn(Recordset& row, const FieldName& name) {
    return readOr(Date(), row, name, &Recordset::GetDate);
}
// "Null" for a Null.
inline std::string textIn(Recordset& row, const FieldName& name) {
    return row.IsNull(name) ? "Null" : row.Value(name).toText();
}

// Collects findings, and tries the steps that may fail.
class Findings {
  public:
    // Errors: 3265 for a kind that there is not.
    void add(std::string_view kind, Place place, std::string what, std::int32_t error = 0);

    // Does `work` on the row, and again behind each field at which it fails, with a finding for
    // each. `place` gives the place by the name of the field at fault.
    template <class Work, class PlaceOf>
    void attempt(MendedRow& row, Work&& work, PlaceOf&& place) {
        for (;;) {
            try {
                return work();
            } catch (const Error& error) {
                if (!takeFault(row, place(error.Source()), error)) return;
            }
        }
    }

    // Whose pay rows go without a word: what is wrong with the employee has been told.
    void passOver(std::int32_t naid) { passedOver_.insert(naid); }
    // Whether `passOver` was called for the employee.
    bool isPassedOver(std::int32_t naid) const { return passedOver_.contains(naid); }

    // Counts an open row of the current year.
    void noteOpenRow(std::int32_t naid) { ++openRows_[naid]; }
    std::int32_t openRowsOf(std::int32_t naid) const {
        const auto found = openRows_.find(naid);
        return found == openRows_.end() ? 0 : found->second;
    }

    // Everything found so far, which is forgotten here.
    std::vector<Finding> takeAll();

  private:
    // Whether the field at fault is mended now.
    // Errors: `error` itself when the field is not there at all.
    bool takeFault(MendedRow& row, Place place, const Error& error);

    std::vector<Finding> found_;
    std::set<std::int32_t> passedOver_;
    std::map<std::int32_t, std::int32_t> openRows_;
};

// Looks through the pay rows of the loaded employees and hands them to their employments.
void auditPayRows(CEmployeeList& list, Findings& findings);

}  // namespace ledgerwick::audit
