// The version of these headers for the preprocessor, and of the library that a program runs with.
//
//   LEDGERWICK_VERSION >= 10100 holds from 1.1.0 on
//
// The build, the packages and the documents take the version from here; docs/compatibility.md says
// what it promises.
#pragma once

#include <string_view>

#include "ledgerwick/export.h"

// Major number.
#define LEDGERWICK_VERSION_MAJOR 1
// Minor number.
#define LEDGERWICK_VERSION_MINOR 0
// Patch number.
#define LEDGERWICK_VERSION_PATCH 0
// As text.
#define LEDGERWICK_VERSION_TEXT "1.0.0"
// One number that grows with the version: 10203 is 1.2.3.
#define LEDGERWICK_VERSION \
    (LEDGERWICK_VERSION_MAJOR * 10000 + LEDGERWICK_VERSION_MINOR * 100 + LEDGERWICK_VERSION_PATCH)

namespace ledgerwick {

// The version of the library at run time. It differs from the headers' when the program was built with
// another release.
LEDGERWICK_API std::string_view libraryVersion() noexcept;  ///< for example "1.0.0"

}  // namespace ledgerwick
