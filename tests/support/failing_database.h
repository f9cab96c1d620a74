// A database that passes everything on to another one and fails at a write of the test's choice.
//
//   FailingDatabase failing(company.database());
//   failing.failAtWrite(3);   // two rows are stored, the third fails, later ones work again
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "hostkit/forwarding/forwarding_database.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::test {

// How many writes there are up to the one that fails.
using Countdown = std::shared_ptr<int>;

// Errors: 3146 at the write that was chosen.
inline void count(const Countdown& countdown) {
    if (--*countdown == 0) raise(error_number::databaseError, "FailingDatabase");
}

class FailingRecordset : public ForwardingRecordset {
  public:
    FailingRecordset(RecordsetRef real, Countdown countdown)
        : ForwardingRecordset(std::move(real)), countdown_(std::move(countdown)) {}
    void Update() override {
        count(countdown_);
        ForwardingRecordset::Update();
    }

  private:
    Countdown countdown_;
};

class FailingDatabase : public ForwardingDatabase {
  public:
    using ForwardingDatabase::ForwardingDatabase;

    // The write of that number from now on fails with 3146; those after it work again.
    void failAtWrite(int write) { *countdown_ = write; }
    // How many sets of records were opened.
    int opened() const noexcept { return opened_; }

    void Execute(std::string_view sql, std::int32_t option) override {
        count(countdown_);
        ForwardingDatabase::Execute(sql, option);
    }

  protected:
    RecordsetRef wrap(RecordsetRef set, std::string_view, RecordsetType) override {
        ++opened_;
        return std::make_shared<FailingRecordset>(std::move(set), countdown_);
    }

  private:
    int opened_ = 0;
    Countdown countdown_ = std::make_shared<int>(0);
};

}  // namespace ledgerwick::test
