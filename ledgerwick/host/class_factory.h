// Creating the public classes by name, and the entry points of an in-process server.
//
//   auto list = std::dynamic_pointer_cast<CEmployeeList>(CreateObject("Ledgerwick.CEmployeeList"));
#pragma once

#include <memory>
#include <string_view>

#include "ledgerwick/export.h"
#include "ledgerwick/values/object.h"

namespace ledgerwick {

// A new object of a public class, by its name with "Ledgerwick." in front; case does not matter.
// Errors: 429, source "CreateObject", for a name that is no creatable class; `Enum_Declarations`
//         is one of these.
LEDGERWICK_API ObjectRef CreateObject(std::string_view className);

}  // namespace ledgerwick

extern "C" {
// The four entry points that a loader of in-process servers looks for. The library keeps no
// registration and no count of its objects, so that all but the third do nothing of their own.
// None of them throws.

// Always 0: there is nothing to register.
LEDGERWICK_API int DllRegisterServer();
// Always 0: there is nothing to take out.
LEDGERWICK_API int DllUnregisterServer();
// Makes the object of the class named by `className` and gives it over in `*object`, a
// `std::shared_ptr<ledgerwick::Object>*` that the caller deletes. -1 for an unknown class.
LEDGERWICK_API int DllGetClassObject(const char* className, void** object);
// Always 1: the library is not to be unloaded while the host thread's references live.
LEDGERWICK_API int DllCanUnloadNow();
}
