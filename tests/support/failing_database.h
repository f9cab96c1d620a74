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

// Counts stored rows and run statements, and lets one of them fail.
class WriteCounter {
  public:
    // Errors: 3146 at the write that was chosen.
    void write() {
        ++writes_;
        if (--untilFailure_ == 0) raise(error_number::databaseError, "FailingDatabase");
    }
    void failAt(int write) noexcept { untilFailure_ = write; }
    int writes() const noexcept { return writes_; }

  private:
    int writes_ = 0;
    int untilFailure_ = 0;
};

class FailingRecordset : public Recordset {
  public:
    FailingRecordset(RecordsetRef real, std::shared_ptr<WriteCounter> counter)
        : real_(std::move(real)), counter_(std::move(counter)) {}

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
        counter_->write();
        real_->Update();
    }
    ledgerwick::Bookmark LastModified() override { return real_->LastModified(); }
    ledgerwick::Bookmark Bookmark() override { return real_->Bookmark(); }
    void Bookmark(const ledgerwick::Bookmark& place) override { real_->Bookmark(place); }
    void Close() override { real_->Close(); }

  private:
    RecordsetRef real_;
    std::shared_ptr<WriteCounter> counter_;
};

class FailingQueryDef : public QueryDef {
  public:
    FailingQueryDef(std::shared_ptr<QueryDef> real, std::shared_ptr<WriteCounter> counter)
        : real_(std::move(real)), counter_(std::move(counter)) {}
    RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
        return std::make_shared<FailingRecordset>(real_->OpenRecordset(type, reads), counter_);
    }

  private:
    std::shared_ptr<QueryDef> real_;
    std::shared_ptr<WriteCounter> counter_;
};

class FailingDatabase : public Database {
  public:
    explicit FailingDatabase(Database& real) : real_(real) {}

    // The write of that number from now on fails with 3146; those after it work again.
    void failAtWrite(int write) { counter_->failAt(write); }
    int writes() const { return counter_->writes(); }
    // How many sets of records were opened by their statement.
    int opened() const noexcept { return opened_; }

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type, FieldList reads) override {
        ++opened_;
        return std::make_shared<FailingRecordset>(real_.OpenRecordset(sql, type, reads), counter_);
    }
    void Execute(std::string_view sql, std::int32_t option) override {
        counter_->write();
        real_.Execute(sql, option);
    }
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override {
        return std::make_shared<FailingQueryDef>(real_.CreateQueryDef(name, sql), counter_);
    }
    void BeginBatch() override { real_.BeginBatch(); }
    void EndBatch() override { real_.EndBatch(); }

  private:
    Database& real_;
    int opened_ = 0;
    std::shared_ptr<WriteCounter> counter_ = std::make_shared<WriteCounter>();
};

}  // namespace ledgerwick::test
