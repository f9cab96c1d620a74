// A company as it stood at the end of a day.
//
//   auto file = store::open("company.db");
//   showAsOf(*file, Date::fromYmd(2025, 9, 30));
//   HostSession session(file, today);
//   session.list().ReLoadEmployee(7);   // as of that day
#pragma once

#include "hostkit/export.h"
#include "hostkit/store/company_store.h"
#include "ledgerwick/values/date.h"

namespace ledgerwick::history {

// From now on this connection, and no other, sees the company as it was on that day: the pay rows
// with a pay date up to it, the employments that had begun, those that ended later as not ended, and
// the payroll year of the day where it lies before the current one. Rows are seen as they are now:
// the names and standing details of an employee have no history. Nothing can be written to what is
// seen so. To be called once, before a session is made on the connection.
LEDGERWICK_HOSTKIT_API void showAsOf(store::CompanyStore& company, Date day);

}  // namespace ledgerwick::history
