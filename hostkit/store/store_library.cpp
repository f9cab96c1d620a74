#include "hostkit/store/store_library.h"

#include <array>
#include <filesystem>
#include <string>

#include "ledgerwick/values/text.h"

#if !defined(_WIN32) && !defined(LEDGERWICK_HOSTKIT_STATIC)
#include <dlfcn.h>
#endif

namespace ledgerwick::store {

#if !defined(_WIN32) && !defined(LEDGERWICK_HOSTKIT_STATIC)

namespace {

struct StoreLibrary {
    std::string_view scheme;
    std::string_view file;
};

// A store has a row here to be found without being linked.
constexpr std::array storeLibraries{
    StoreLibrary{"", "libledgerwick_sqlite.so." LEDGERWICK_SOVERSION},
    StoreLibrary{"postgresql", "libledgerwick_postgres.so." LEDGERWICK_SOVERSION},
};

std::filesystem::path kitFolder() {
    Dl_info kit;
    if (!dladdr(reinterpret_cast<const void*>(&loadStoreLibrary), &kit)) return {};
    return std::filesystem::absolute(kit.dli_fname).parent_path();
}

}  // namespace

void loadStoreLibrary(std::string_view scheme) {
    for (const StoreLibrary& library : storeLibraries) {
        if (!equalsIgnoringCase(library.scheme, scheme)) continue;
        void* const loaded = dlopen((kitFolder() / library.file).c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!loaded) return;
        if (void* const entry = dlsym(loaded, "LedgerwickRegisterStore")) {
            reinterpret_cast<void (*)()>(entry)();
        }
    }
}

#else

void loadStoreLibrary(std::string_view) {}

#endif

}  // namespace ledgerwick::store
