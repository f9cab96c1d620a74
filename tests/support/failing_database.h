// A database that passes everything on to another one and fails at a write of the test's choice.
//
//   FailingDatabase failing(company.database());
//   failing.failAtWrite(3);   // two rows are stored, the third fails, later ones work again
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "ledgerwick/shell/record_access.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::test {

// How many writes there are up to the one that fails.
using Countdown = std::shared_ptr<int>;

// Errors: 3146 at the write that was chosen.
inline void count(const Countdown& countdown) {
    if (--*countdown == 0) raise(error_number::databaseError, "FailingDatabase");
}

class FailingRecordset : public Recordset {
  public:
    FailingRecordset(RecordsetRef real, Countdown countdown)
        : real_(std::move(real)), countdown_(std::move(countdown)) {}

    std::int32_t RecordCount() override { return real_->RecordCount(); }
    bool Eof() override { return real_->Eof(); }
    std::int32_t AbsolutePosition() override { return real_->AbsolutePosition(); }
    void MoveFirst() override { real_->MoveFirst(); }
    void MoveLast() override { real_->MoveLast(); }
    void MoveNext() override { real_->MoveNext(); }
    void MovePrevious() override { real_->MovePrevious(); }
    Variant Value(const FieldName& name) override { return real_->Value(name); }
    void Value(const FieldName& name, const Variant& value) override { real_->Value(name, value); }
    void AddNew() override { real_->AddNew(); }
    void Edit() override { real_->Edit(); }
    void Update() override {
        count(countdown_);
        real_->Update();
    }
    ledgerwick::Bookmark LastModified() override { return real_->LastModified(); }
    ledgerwick::Bookmark Bookmark() override { return real_->Bookmark(); }
    void Bookmark(const ledgerwick::Bookmark& place) override { real_->Bookmark(place); }
    void Close() override { real_->Close(); }

  private:
    RecordsetRef real_;
    Countdown countdown_;
};

class FailingQueryDef : public QueryDef {
  public:
    FailingQueryDef(std::shared_ptr<QueryDef> real, Countdown countdown)
        : real_(std::move(real)), countdown_(std::move(countdown)) {}
    RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
        return std::make_shared<FailingRecordset>(real_->OpenRecordset(type, reads), countdown_);
    }

  private:
    std::shared_ptr<QueryDef> real_;
    Countdown countdown_;
};

class FailingDatabase : public Database {
  public:
    explicit FailingDatabase(Database& real) : real_(real) {}

    // The write of that number from now on fails with 3146; those after it work again.
    void failAtWrite(int write) { *countdown_ = write; }
    // How many sets of records were opened by their statement.
    int opened() const noexcept { return opened_; }

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type, FieldList reads) override {
        ++opened_;
        return std::make_shared<FailingRecordset>(real_.OpenRecordset(sql, type, reads),
                                                  countdown_);
    }
    void Execute(std::string_view sql, std::int32_t option) override {
        count(countdown_);
        real_.Execute(sql, option);
    }
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override {
        return std::make_shared<FailingQueryDef>(real_.CreateQueryDef(name, sql), countdown_);
    }
    void BeginBatch() override { real_.BeginBatch(); }
    void EndBatch() override { real_.EndBatch(); }

  private:
    Database& real_;
    int opened_ = 0;
    Countdown countdown_ = std::make_shared<int>(0);
};

}  // namespace ledgerwick::test
