// The library file that brings the data-access object, and how it is asked for one.
//
//   extern "C" ledgerwick::Object* FernbankCreateObject(const char* className,
//                                                       ledgerwick::Database& (*openDatabase)());
//
// The file, `Fernbank.so` (`Fernbank.dll` on Windows), stands in the folder of this library; when
// this library is linked into a program as a static one, in the folder of that program.
#pragma once

#include <filesystem>

#include "ledgerwick/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick {

// Makes the object of the class named by `className`, which the caller deletes; a null pointer for
// a class that the file does not have. `openDatabase` gives the database of the calling thread at
// each use; error 91 while no database is open.
using FernbankEntryPoint = Object*(const char* className, Database& (*openDatabase)());

inline constexpr const char* fernbankEntryPoint = "FernbankCreateObject";
inline constexpr const char* fernbankDataAccess = "DAO_ADO_Functions";

// A new data-access object out of the library file in `folder`, which stays loaded for the life of
// the process.
// Shape:  an empty reference when the file, its entry point or the class is missing, or fails.
LEDGERWICK_API ObjectRef dataAccessFrom(const std::filesystem::path& folder) noexcept;

// The folder of this library; empty when the system does not know it.
std::filesystem::path componentFolder() noexcept;

}  // namespace ledgerwick
