#include "hostkit/sqlite/backup.h"

#include <sqlite3.h>

#include <filesystem>
#include <memory>

#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

struct Close {
    void operator()(sqlite3* database) const noexcept { sqlite3_close(database); }
};
using File = std::unique_ptr<sqlite3, Close>;

[[noreturn]] void fail(sqlite3* database, const std::string& to) {
    raise(error_number::databaseError, "Database",
          std::string(sqlite3_errmsg(database)) + ", copying to " + to);
}

File opened(const std::string& path, int access, const std::string& to) {
    sqlite3* database = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &database, access, nullptr);
    File file(database);
    if (result != SQLITE_OK) fail(database, to);
    return file;
}

void copyPages(const std::string& from, const std::string& to) {
    const File source = opened(from, SQLITE_OPEN_READWRITE, to);
    const File target = opened(to, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, to);
    sqlite3_backup* const backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    if (!backup) fail(target.get(), to);
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) fail(target.get(), to);
}

}  // namespace

void copyFile(const std::string& from, const std::string& to) {
    try {
        copyPages(from, to);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(to, ignored);
        throw;
    }
}

}  // namespace ledgerwick::sqlite
