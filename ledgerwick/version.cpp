#include "ledgerwick/version.h"

namespace ledgerwick {

std::string_view libraryVersion() noexcept {
    return LEDGERWICK_VERSION_TEXT;
}

}  // namespace ledgerwick
