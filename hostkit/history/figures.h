// The figures of an employee's employments, and the pay row of each.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/employee/employee.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick::history {

// A pay row as far as one needs to find it.
struct SourceRow {
    std::int32_t prpid = 0;  // 0 for no row
    Date payDate;            // when it was paid
    std::int16_t week = 0;   // its tax week
};

// A figure of an employment with the row that it comes from.
struct Figure {
    std::string_view name;  // "last_week"
    Variant value;          // as the employment holds it
    SourceRow source;       // no row when the figure is as it began
};

// The figures of one employment.
struct EmploymentFigures {
    std::shared_ptr<cEmployment> employment;  // whose figures they are
    std::vector<Figure> figures;              // always the same ones, in the same order
};

// The figures of a loaded employee. The row of a figure is the last one that gave it the value
// which it has, whatever stood there before, or that moved it.
// Errors: those of the database and of reading a row.
LEDGERWICK_HOSTKIT_API std::vector<EmploymentFigures> figuresOf(cEmployee& employee);

}  // namespace ledgerwick::history
