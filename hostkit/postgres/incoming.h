// Rows on their way: the server sends, and one row at a time is looked at.
#pragma once

#include "hostkit/postgres/link.h"

namespace ledgerwick::postgres {

class IncomingRows {
  public:
    explicit IncomingRows(Link& link) noexcept : link_(&link) {}

    // Takes the first row. Of this and the next: false with the failure, and the trip is over then.
    bool start(Failure& failure);
    // Goes to the next row. After the last one the trip is over.
    bool next(Failure& failure);
    // The row, or null after the last one.
    const PGresult* row() const noexcept { return ended_ ? nullptr : row_.get(); }
    // The row as a thing to keep; `next` brings another one.
    Result takeRow() noexcept { return std::move(row_); }
    // What describes the columns.
    const PGresult* header() const noexcept { return row_.get(); }
    // Reads what is left and forgets it.
    void drain() noexcept;

  private:
    void finish() noexcept;

    Link* link_;
    Result row_;
    bool ended_ = false;
};

}  // namespace ledgerwick::postgres
