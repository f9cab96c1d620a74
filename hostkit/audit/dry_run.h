// The library on a database that reads as ever and writes nothing, for as long as this lives.
//
//   { const DryRun dryRun; payrun::openPeriods(payroll, 7, payDate); }
#pragma once

#include <memory>

#include "ledgerwick/host/host.h"
#include "ledgerwick/host/identify.h"

namespace ledgerwick::audit {

// Values are still converted by the fields that would take them, so that what a write would refuse
// is refused.
class DryRun {
  public:
    DryRun();
    ~DryRun();
    DryRun(const DryRun&) = delete;
    DryRun& operator=(const DryRun&) = delete;

  private:
    ObjectRef host_;        // what `g` held before
    ObjectRef dataAccess_;  // the making of an Identify replaces it
    Identify identify_;
};

}  // namespace ledgerwick::audit
