// A database that passes everything on to another one, counts what goes through, and fails at an
// operation of the test's choice.
//
//   FailingDatabase failing(company.database());
//   failing.failAt(Operation::Update, 3);   // two rows are stored, the third fails, later ones work
//   failing.count(Operation::Open);         // how many sets were opened since
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/forwarding/forwarding_database.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::test {

// What can fail: opening a set, going to another row, reading and writing a field, starting and
// storing a row, running a statement.
enum class Operation { Open, Move, Read, AddNew, Edit, Write, Update, Execute };

constexpr std::array operations{
    std::pair{Operation::Open, "Open"},     std::pair{Operation::Move, "Move"},
    std::pair{Operation::Read, "Read"},     std::pair{Operation::AddNew, "AddNew"},
    std::pair{Operation::Edit, "Edit"},     std::pair{Operation::Write, "Write"},
    std::pair{Operation::Update, "Update"}, std::pair{Operation::Execute, "Execute"},
};

struct OperationCounts {
    std::array<int, operations.size()> passed{};
    Operation failing = Operation::Open;
    int failure = 0;
    std::function<void()> stored;  // called after each write

    int& of(Operation kind) { return passed[static_cast<std::size_t>(kind)]; }
    // Errors: 3146 at the operation that was chosen.
    void pass(Operation kind) {
        if (++of(kind) == failure && kind == failing) {
            raise(error_number::databaseError, "FailingDatabase");
        }
    }
};

class FailingRecordset : public ForwardingRecordset {
    using Base = ForwardingRecordset;

  public:
    FailingRecordset(RecordsetRef real, std::shared_ptr<OperationCounts> counts)
        : Base(std::move(real)), counts_(std::move(counts)) {}

    void MoveFirst() override { at(Operation::Move).MoveFirst(); }
    void MoveLast() override { at(Operation::Move).MoveLast(); }
    void MoveNext() override { at(Operation::Move).MoveNext(); }
    void MovePrevious() override { at(Operation::Move).MovePrevious(); }
    Variant Value(const FieldName& name) override { return at(Operation::Read).Value(name); }
    void Value(const FieldName& name, const Variant& value) override {
        at(Operation::Write).Value(name, value);
    }
    void AddNew() override { at(Operation::AddNew).AddNew(); }
    void Edit() override { at(Operation::Edit).Edit(); }
    void Update() override {
        at(Operation::Update).Update();
        if (counts_->stored) counts_->stored();
    }

    bool IsNull(const FieldName& n) override { return at(Operation::Read).IsNull(n); }
    bool GetBoolean(const FieldName& n) override { return at(Operation::Read).GetBoolean(n); }
    std::int16_t GetInt16(const FieldName& n) override { return at(Operation::Read).GetInt16(n); }
    std::int32_t GetInt32(const FieldName& n) override { return at(Operation::Read).GetInt32(n); }
    float GetSingle(const FieldName& n) override { return at(Operation::Read).GetSingle(n); }
    double GetDouble(const FieldName& n) override { return at(Operation::Read).GetDouble(n); }
    Currency GetCurrency(const FieldName& n) override { return at(Operation::Read).GetCurrency(n); }
    Date GetDate(const FieldName& n) override { return at(Operation::Read).GetDate(n); }
    std::string_view GetText(const FieldName& n) override { return at(Operation::Read).GetText(n); }

  private:
    Recordset& at(Operation kind) {
        counts_->pass(kind);
        return real();
    }

    std::shared_ptr<OperationCounts> counts_;
};

class FailingDatabase : public ForwardingDatabase {
  public:
    using ForwardingDatabase::ForwardingDatabase;

    // Counts from now on; the operation of that kind and number fails with 3146, and those after it
    // work again. Number 0 fails at none.
    void failAt(Operation kind, int number) {
        counts_->passed = {};
        counts_->failing = kind;
        counts_->failure = number;
    }
    int count(Operation kind) const { return counts_->of(kind); }
    // Called after each row that is stored and each statement that is run.
    void onStored(std::function<void()> look) { counts_->stored = std::move(look); }

    // The keys that were announced last.
    std::vector<std::int32_t> announced;
    void Announce(std::span<const std::int32_t> keys) override {
        announced.assign(keys.begin(), keys.end());
        ForwardingDatabase::Announce(keys);
    }

    int depth = 0;  // of the batches that are open
    void BeginBatch() override {
        ++depth;
        ForwardingDatabase::BeginBatch();
    }
    void EndBatch() override {
        --depth;
        ForwardingDatabase::EndBatch();
    }
    bool TableExists(std::string_view name) override {
        counts_->pass(Operation::Open);
        return ForwardingDatabase::TableExists(name);
    }
    void Execute(std::string_view sql, std::int32_t option) override {
        counts_->pass(Operation::Execute);
        ForwardingDatabase::Execute(sql, option);
        if (counts_->stored) counts_->stored();
    }

  protected:
    RecordsetRef wrap(RecordsetRef set, std::string_view, RecordsetType) override {
        counts_->pass(Operation::Open);
        return std::make_shared<FailingRecordset>(std::move(set), counts_);
    }

  private:
    std::shared_ptr<OperationCounts> counts_ = std::make_shared<OperationCounts>();
};

}  // namespace ledgerwick::test
