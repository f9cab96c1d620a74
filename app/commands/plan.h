// What a step of a pay run would write, shown without writing it.
#pragma once

#include <string>

#include "app/context.h"
#include "app/report.h"
#include "hostkit/office/pay_run.h"

namespace ledgerwick::app {

using RunStep = Report (*)(HostSession&, const office::Selection&);

// Runs the step itself, on the file itself, in a transaction that is taken back, and shows by
// employee which rows it added, changed and took away. The keys of new rows are those that the step
// would give if it ran now.
// Errors: those of the step.
Report planOf(const Context& context, const std::string& path, RunStep step,
              const office::Selection& selection);

}  // namespace ledgerwick::app
