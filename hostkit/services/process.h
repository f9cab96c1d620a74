// Which process this is, for objects that must not be used in a forked child.
#pragma once

#include "hostkit/export.h"

namespace ledgerwick {

// A number that a forked child has one higher than its parent. It costs no system call.
LEDGERWICK_HOSTKIT_API int processNumber() noexcept;

}  // namespace ledgerwick
