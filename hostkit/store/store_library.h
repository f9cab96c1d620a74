// The library of a store that the program was not linked with, looked for beside the kit.
#pragma once

#include <string_view>

namespace ledgerwick::store {

// Loads the library of the store for `scheme`, which registers itself. Nothing happens when there is
// no such library, or the kit is a part of the program.
void loadStoreLibrary(std::string_view scheme);

}  // namespace ledgerwick::store
