// A database that passes everything on to another one: the ground for a layer that looks at what
// goes through, counts it, or lets it fail.
//
//   class Counting : public ForwardingDatabase {
//       using ForwardingDatabase::ForwardingDatabase;
//       void Execute(std::string_view sql, std::int32_t option) override {
//           ++statements;
//           ForwardingDatabase::Execute(sql, option);
//       }
//   };
//
// A layer that looks at rows as well overrides `wrap`, through which every set of records goes,
// whether it was opened by its statement or by a query.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "ledgerwick/records/record_access.h"

namespace ledgerwick {

// Passes every operation on to the set it was made of, which it keeps alive.
class ForwardingRecordset : public Recordset {
  public:
    // Keeps `real` alive.
    explicit ForwardingRecordset(RecordsetRef real) : real_(std::move(real)) {}

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
    void Update() override { real_->Update(); }
    void FillEmpty() override { real_->FillEmpty(); }
    ledgerwick::Bookmark LastModified() override { return real_->LastModified(); }
    ledgerwick::Bookmark Bookmark() override { return real_->Bookmark(); }
    void Bookmark(const ledgerwick::Bookmark& place) override { real_->Bookmark(place); }
    void Close() override { real_->Close(); }

    bool IsNull(const FieldName& name) override { return real_->IsNull(name); }
    bool GetBoolean(const FieldName& name) override { return real_->GetBoolean(name); }
    std::int16_t GetInt16(const FieldName& name) override { return real_->GetInt16(name); }
    std::int32_t GetInt32(const FieldName& name) override { return real_->GetInt32(name); }
    float GetSingle(const FieldName& name) override { return real_->GetSingle(name); }
    double GetDouble(const FieldName& name) override { return real_->GetDouble(name); }
    Currency GetCurrency(const FieldName& name) override { return real_->GetCurrency(name); }
    Date GetDate(const FieldName& name) override { return real_->GetDate(name); }
    std::string_view GetText(const FieldName& name) override { return real_->GetText(name); }

  protected:
    // The set that operations are passed on to.
    Recordset& real() noexcept { return *real_; }

  private:
    RecordsetRef real_;
};

// Passes every operation on to `real`, which must outlive it.
class ForwardingDatabase : public Database {
  public:
    // `real` must outlive this object.
    explicit ForwardingDatabase(Database& real) noexcept : real_(real) {}

    // The database that operations are passed on to.
    Database& real() noexcept { return real_; }

    RecordsetRef OpenRecordset(std::string_view sql, RecordsetType type,
                               FieldList reads = {}) override {
        return wrap(real_.OpenRecordset(sql, type, reads), sql, type);
    }
    void Execute(std::string_view sql, std::int32_t option) override { real_.Execute(sql, option); }
    std::shared_ptr<QueryDef> CreateQueryDef(std::string_view name, std::string_view sql) override {
        return std::make_shared<Query>(*this, real_.CreateQueryDef(name, sql), sql);
    }
    bool TableExists(std::string_view name) override { return real_.TableExists(name); }
    void BeginBatch() override { real_.BeginBatch(); }
    void EndBatch() override { real_.EndBatch(); }
    void Announce(std::span<const std::int32_t> keys) override { real_.Announce(keys); }
    std::int64_t DataVersion() override { return real_.DataVersion(); }

  protected:
    // What the library gets in place of a set that was opened by `sql`.
    virtual RecordsetRef wrap(RecordsetRef opened, std::string_view /*sql*/,
                              RecordsetType /*type*/) {
        return opened;
    }

  private:
    class Query : public QueryDef {
      public:
        Query(ForwardingDatabase& owner, std::shared_ptr<QueryDef> real, std::string_view sql)
            : owner_(owner), real_(std::move(real)), sql_(sql) {}
        RecordsetRef OpenRecordset(RecordsetType type, FieldList reads) override {
            return owner_.wrap(real_->OpenRecordset(type, reads), sql_, type);
        }

      private:
        ForwardingDatabase& owner_;
        std::shared_ptr<QueryDef> real_;
        std::string sql_;
    };

    Database& real_;
};

}  // namespace ledgerwick
