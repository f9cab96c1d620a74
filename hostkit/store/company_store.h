// A company's database as the kit, the command and the other languages see it: the `Database` of the
// library, and the tables, the transactions and the names that only a store of the kit has.
//
//   auto company = store::open("company.db");
//   company->inTransaction([&] { company->Execute("DELETE FROM PRPayImport", failOnError); });
//
// Nothing above this folder knows which database a company is kept in. A store derives from
// `CompanyStore`, and its `StoreKind` (open.h) finds it by name.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/export.h"
#include "ledgerwick/records/record_access.h"

namespace ledgerwick::store {

// What a power cut can take. A crash of the process alone takes nothing that `Update` or `Execute`
// reported stored, except the batch that was running.
enum class Durability : std::uint8_t {
    EachUpdate,  // nothing that was reported stored
    Batched,     // the public operation that was running; a batch is stored when it ends
    Relaxed,     // the last operations before the cut; the database stays whole
};

// How a company is opened.
struct OpenOptions {
    Durability durability = Durability::EachUpdate;  // what a power cut may take
    std::chrono::milliseconds busyTimeout{5000};  // how long a write waits for another connection
    bool readOnly = false;                        // nothing is written
    bool valuesInErrors = false;  // whether the text of a failure shows the values of a statement
};

// A field of a table.
struct FieldDescription {
    std::string name;                       // as the table spells it
    VariantKind kind = VariantKind::Empty;  // Empty when the database declares none
    bool isKey = false;                     // the number of the row
};

// An open company. For one thread; another thread opens its own. Recordsets keep it open.
// Errors of all members, source "Database", with the database's words and the statement: 3075 for a
// statement that does not compile, 3078 for a table that is not there, 3218 while another connection
// writes, 3027 for what cannot be written, 3026 for a full disk, 3049 for a damaged file, 3343 for what
// is no company, and 3146 for every other failure.
class LEDGERWICK_HOSTKIT_API CompanyStore : public Database {
  public:
    ~CompanyStore() override;

    // The name that it was opened by.
    virtual const std::string& name() const noexcept = 0;

    // Creates the tables of schema.sql and their indexes, where they are missing.
    virtual void createSchema() = 0;
    // Creates an empty `PRPayImport`: for this connection alone, or kept in the company so that a
    // later process finds it. `dropPayImportTable` removes either.
    void createPayImportTable(bool kept = false);
    // Removes `PRPayImport`, if it is there.
    void dropPayImportTable();
    // Creates an empty `TEMP_PR_LAST_WEEK_NOS` of this workstation, for this connection alone.
    void createLastWeekNosTable(std::string_view pcId);
    // Whether there is a table of that name, temporary or not.
    virtual bool tableExists(std::string_view name) = 0;
    bool TableExists(std::string_view name) final { return tableExists(name); }
    // The fields of a table in its own order; none when there is no such table.
    virtual std::vector<FieldDescription> fieldsOf(std::string_view table) = 0;
    // From now on this connection, and no other, sees in place of the table `columns` of those of
    // its rows that meet `condition`. They are read-only. The names and literals are those of the
    // library's statements.
    virtual void narrow(std::string_view table, std::string_view columns,
                        std::string_view condition) = 0;

    // Keeps a copy of the company as it was last stored, under its own name with `mark`, and gives the
    // copy's name. What a running transaction wrote is not in it.
    // Errors: 3146 from a store that cannot.
    virtual std::string keepCopy(std::string_view mark);

    // Runs statements of the database's own, separated by ";". They are not translated.
    virtual void exec(const std::string& script) = 0;

    // Runs `work` in a transaction: all of its writes are stored, or none when it throws. One
    // inside another is a part of it that can fail on its own.
    template <class Work>
    void inTransaction(Work&& work) {
        Transaction transaction(*this);
        work();
        transaction.keep();
    }

    // A transaction for one whose work is not a single function: it is taken back at the end of
    // the object, unless `keep` has stored it.
    class Transaction {
      public:
        // Begins it.
        explicit Transaction(CompanyStore& store)
            : store_(store), outermost_(store.beginTransaction()) {}
        ~Transaction() {
            if (isOpen_) store_.rollBack(outermost_);
        }
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;

        // Stores what was written. When it fails, the end of the object takes it back.
        void keep() {
            store_.commit(outermost_);
            isOpen_ = false;
        }

      private:
        CompanyStore& store_;
        bool outermost_;
        bool isOpen_ = true;
    };

    // Runs `work` in a transaction and takes all of its writes back, whether it throws or not. Until
    // then other readers are not held up, while another writer waits.
    template <class Work>
    void rehearse(Work&& work) {
        const Rehearsal rehearsal(*this);
        work();
    }

  protected:
    // Runs statements that create or remove tables and indexes, written as in schema.sql.
    virtual void define(const std::string& statements) = 0;

    // Begins a transaction, or a part of the one that is running, and returns whether it is the
    // outermost one.
    virtual bool beginTransaction() = 0;
    // Stores the writes.
    virtual void commit(bool outermost) = 0;
    // Takes the writes back.
    virtual void rollBack(bool outermost) noexcept = 0;
    // As `beginTransaction` and `rollBack`, for writes that are taken back in any case.
    virtual bool beginRehearsal() { return beginTransaction(); }
    // Takes the writes back.
    virtual void endRehearsal(bool outermost) noexcept { rollBack(outermost); }

  private:
    class Rehearsal {
      public:
        explicit Rehearsal(CompanyStore& store)
            : store_(store), outermost_(store.beginRehearsal()) {}
        ~Rehearsal() { store_.endRehearsal(outermost_); }
        Rehearsal(const Rehearsal&) = delete;
        Rehearsal& operator=(const Rehearsal&) = delete;

      private:
        CompanyStore& store_;
        bool outermost_;
    };
};

// The company store that `database` is, or that lies under its layers (`ForwardingDatabase`); a null
// pointer for a database of the host's own.
LEDGERWICK_HOSTKIT_API CompanyStore* storeUnder(Database& database) noexcept;

}  // namespace ledgerwick::store
