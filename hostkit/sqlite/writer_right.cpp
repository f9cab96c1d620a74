#include "hostkit/sqlite/writer_right.h"

#include <algorithm>
#include <string_view>
#include <thread>

#include "ledgerwick/values/error.h"

namespace ledgerwick::sqlite {

namespace {

using std::chrono::milliseconds;

bool isWriteAhead(sqlite3* database) {
    bool found = false;
    const auto look = [](void* into, int, char** values, char**) {
        *static_cast<bool*>(into) = values[0] && std::string_view(values[0]) == "wal";
        return 0;
    };
    sqlite3_exec(database, "PRAGMA journal_mode", look, &found, nullptr);
    return found;
}

// In write-ahead mode a connection keeps its SHARED lock from its first read to its end. The
// RESERVED lock must not be taken without it.
bool isShared(sqlite3* database) {
    int state = SQLITE_LOCK_NONE;
    sqlite3_exec(database, "SELECT 1 FROM sqlite_schema LIMIT 1", nullptr, nullptr, nullptr);
    sqlite3_file_control(database, "main", SQLITE_FCNTL_LOCKSTATE, &state);
    return state >= SQLITE_LOCK_SHARED;
}

}  // namespace

void WriterRight::attach(sqlite3* database, milliseconds timeout) {
    timeout_ = timeout;
    if (!isWriteAhead(database) || !isShared(database)) return;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file_);
}

void WriterRight::acquire() {
    if (holders_ == 0 && file_) {
        constexpr milliseconds longestNap{10};
        milliseconds nap{1};
        milliseconds waited{0};
        while (file_->pMethods->xLock(file_, SQLITE_LOCK_RESERVED) != SQLITE_OK) {
            if (waited >= timeout_) raise(error_number::writerBusy, "Database");
            std::this_thread::sleep_for(nap);
            waited += nap;
            nap = std::min(2 * nap, longestNap);
        }
    }
    ++holders_;
}

void WriterRight::release() noexcept {
    if (--holders_ == 0 && file_) file_->pMethods->xUnlock(file_, SQLITE_LOCK_SHARED);
}

}  // namespace ledgerwick::sqlite
