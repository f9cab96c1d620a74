#include "hostkit/services/process.h"

#ifndef _WIN32
#include <pthread.h>
#endif

namespace ledgerwick {

namespace {

int number = 1;

#ifndef _WIN32
[[maybe_unused]] const int registered = pthread_atfork(nullptr, nullptr, [] { ++number; });
#endif

}  // namespace

int processNumber() noexcept {
    return number;
}

}  // namespace ledgerwick
