#include "ledgerwick/host/fernbank.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include "ledgerwick/host/dll_global.h"

namespace ledgerwick {
namespace {

Database& openDatabase() {
    return DLLGlobal::g().DBDll();
}

#ifdef _WIN32

constexpr const char* fileName = "Fernbank.dll";

std::filesystem::path componentFile() {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(&openDatabase), &module)) {
        return {};
    }
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    return length < MAX_PATH ? std::filesystem::path(path, path + length) : std::filesystem::path();
}

FernbankEntryPoint* load(const std::filesystem::path& file) {
    const HMODULE module = LoadLibraryW(file.c_str());
    if (!module) return nullptr;
    return reinterpret_cast<FernbankEntryPoint*>(GetProcAddress(module, fernbankEntryPoint));
}

#else

constexpr const char* fileName = "Fernbank.so";

std::filesystem::path componentFile() {
#if defined(LEDGERWICK_STATIC) && defined(__linux__)
    return std::filesystem::read_symlink("/proc/self/exe");
#else
    Dl_info component;
    if (!dladdr(reinterpret_cast<const void*>(&openDatabase), &component)) return {};
    return std::filesystem::absolute(component.dli_fname);
#endif
}

FernbankEntryPoint* load(const std::filesystem::path& file) {
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) return nullptr;
    return reinterpret_cast<FernbankEntryPoint*>(dlsym(library, fernbankEntryPoint));
}

#endif

}  // namespace

ObjectRef dataAccessFrom(const std::filesystem::path& folder) noexcept {
    try {
        const auto create = load(folder / fileName);
        return create ? ObjectRef(create(fernbankDataAccess, &openDatabase)) : nullptr;
    } catch (...) {
        return nullptr;
    }
}

std::filesystem::path componentFolder() noexcept {
    try {
        // Found once: a program may change its working directory later on.
        static const std::filesystem::path folder = componentFile().parent_path();
        return folder;
    } catch (...) {
        return {};
    }
}

}  // namespace ledgerwick
