// The right to write to a file, which one connection has at a time.
#pragma once

#include <sqlite3.h>

#include <chrono>

namespace ledgerwick::sqlite {

// SQLite's own lock on writers ends with each commit. Where each row is stored on its own, what an
// operation has read could change before it writes. This right lasts from the first `acquire` to
// the last `release`. It is the RESERVED lock of the database file, which nobody else takes in
// write-ahead mode, and the system takes it back from a process that ends.
class WriterRight {
  public:
    // The right to the file of `database`, which a second holder waits for as long as `timeout`.
    // A file in another mode, or in memory, needs none: `acquire` then does nothing.
    void attach(sqlite3* database, std::chrono::milliseconds timeout);

    // Takes the right, or waits for it. Each call needs a `release`.
    // Errors: 3218 when another connection still has it at the end of the timeout.
    void acquire();
    void release() noexcept;
    bool isHeld() const noexcept { return holders_ != 0; }

  private:
    sqlite3_file* file_ = nullptr;  // null where no right is needed
    std::chrono::milliseconds timeout_{0};
    int holders_ = 0;
};

// The right for one scope.
class HeldRight {
  public:
    explicit HeldRight(WriterRight& right) : right_(right) { right_.acquire(); }
    ~HeldRight() { right_.release(); }
    HeldRight(const HeldRight&) = delete;
    HeldRight& operator=(const HeldRight&) = delete;

  private:
    WriterRight& right_;
};

}  // namespace ledgerwick::sqlite
