#include <new>
#include <string_view>

#include "hostkit/fernbank/data_access.h"

#if defined(_WIN32)
#define FERNBANK_EXPORT __declspec(dllexport)
#else
#define FERNBANK_EXPORT __attribute__((visibility("default")))
#endif

// Makes an object of the class named by `className`; the caller deletes it. A null pointer for any
// other name.
extern "C" FERNBANK_EXPORT ledgerwick::Object* FernbankCreateObject(
    const char* className, ledgerwick::Database& (*openDatabase)()) {
    if (!className || std::string_view(className) != "DAO_ADO_Functions") return nullptr;
    return new (std::nothrow) ledgerwick::fernbank::DataAccessFunctions(openDatabase);
}
