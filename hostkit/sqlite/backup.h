// A copy of a database file.
#pragma once

#include <string>

namespace ledgerwick::sqlite {

// Copies what is stored in the file at `from` into a new file at `to`, which is stored when this
// returns. Another connection may be in the middle of a transaction; nothing of that is copied.
// Errors: 3146, and then no file is left.
void copyFile(const std::string& from, const std::string& to);

}  // namespace ledgerwick::sqlite
