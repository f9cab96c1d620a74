// A suite that any implementation of the record access layer can be run against.
//
//   struct MyLayer {
//       MyLayer();                                  // opens an empty database with the tables
//       ledgerwick::Database& database();
//   };
//   INSTANTIATE_TYPED_TEST_SUITE_P(My, RecordAccess, MyLayer);
//
// Each test gets a layer of its own. The tables are those of ledgerwick/records/schema.h, empty, with
// keys given by the database and with defaults that are no Null.
//
// Needs GoogleTest on the side of the host that includes it; the kit itself does not.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "hostkit/conformance/statements.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::conformance {

// What an operation raises; number 0 when it raises nothing.
template <class Operation>
Error errorOf(Operation&& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error;
    }
    return {0, "", ""};
}

template <class Operation>
std::int32_t raisedBy(Operation&& operation) {
    return errorOf(operation).Number();
}

// "7 Null; 8 1": the fields of all rows, read by their types.
inline std::string shownRows(Recordset& rows, const std::vector<Shown>& fields) {
    std::string text;
    for (; !rows.Eof(); rows.MoveNext()) {
        if (!text.empty()) text += "; ";
        for (const Shown& shown : fields) {
            if (&shown != &fields.front()) text += ' ';
            if (rows.IsNull(shown.field)) {
                text += "Null";
            } else if (shown.as == 'd') {
                text += rows.GetDate(shown.field).toIso();
            } else if (shown.as == 't') {
                text += rows.GetText(shown.field);
            } else if (shown.as == 'n') {
                text += Variant(rows.GetDouble(shown.field)).toText();
            } else {
                text += std::to_string(rows.GetInt32(shown.field));
            }
        }
    }
    return text;
}

template <class Layer>
class RecordAccess : public testing::Test {
  protected:
    Database& db() { return layer_.database(); }
    RecordsetRef snapshot(std::string_view sql, FieldList reads = {}) {
        return db().OpenRecordset(sql, RecordsetType::Snapshot, reads);
    }
    RecordsetRef dynaset(std::string_view sql, FieldList reads = {}) {
        return db().OpenRecordset(sql, RecordsetType::Dynaset, reads);
    }
    void run(std::string_view sql) { db().Execute(sql, failOnError); }

    // Customers 1 to `count`, named "A", "B" and so on.
    void addCustomers(int count) {
        for (int i = 0; i < count; ++i) {
            run("INSERT INTO Customers (NAID, NABusName) VALUES (" + std::to_string(i + 1) + ", '" +
                std::string(1, static_cast<char>('A' + i % 26)) + "')");
        }
    }
    std::vector<std::int32_t> ids(Recordset& rows) {
        std::vector<std::int32_t> found;
        for (; !rows.Eof(); rows.MoveNext()) found.push_back(rows.GetInt32(field::NAID));
        return found;
    }

    void emptyTables() {
        for (const char* table : {"Customers", "PREmployeeDetails", "PREmployments", "PRPay",
                                  "PensionSchemes", "Orders", "Deadstock", "UoM"}) {
            run(std::string("DELETE FROM ") + table);
        }
    }

    static constexpr const char* allCustomers = "SELECT * FROM Customers ORDER BY NAID";

    Layer layer_;
};

TYPED_TEST_SUITE_P(RecordAccess);

TYPED_TEST_P(RecordAccess, AnEmptySetStandsAtItsEnd) {
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        const auto rs = this->db().OpenRecordset(this->allCustomers, type);
        EXPECT_TRUE(rs->Eof());
        EXPECT_EQ(rs->RecordCount(), 0);
        EXPECT_EQ(rs->AbsolutePosition(), -1);
        EXPECT_EQ(raisedBy([&] { rs->MoveFirst(); }), error_number::noCurrentRecord);
        EXPECT_EQ(raisedBy([&] { rs->MoveLast(); }), error_number::noCurrentRecord);
        EXPECT_EQ(raisedBy([&] { rs->MoveNext(); }), error_number::noCurrentRecord);
        EXPECT_EQ(raisedBy([&] { rs->MovePrevious(); }), error_number::noCurrentRecord);
        EXPECT_EQ(raisedBy([&] { rs->Value(field::NAID); }), error_number::noCurrentRecord);
    }
}

TYPED_TEST_P(RecordAccess, WalksBothWaysBetweenItsEnds) {
    const std::array<FieldName, 2> names{field::NABusName, field::NAID};
    std::array<Variant, 2> several;
    for (const int size : {1, 40}) {
        this->addCustomers(size);
        for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
            const auto rs = this->db().OpenRecordset(this->allCustomers, type);
            EXPECT_GT(rs->RecordCount(), 0);
            for (std::int32_t i = 0; i < size; ++i, rs->MoveNext()) {
                ASSERT_FALSE(rs->Eof());
                EXPECT_EQ(rs->AbsolutePosition(), i);
                EXPECT_EQ(rs->GetInt32(field::NAID), i + 1);
                rs->Values(names, several);
                EXPECT_EQ(several, (std::array{rs->Value(names[0]), rs->Value(names[1])}));
            }
            EXPECT_TRUE(rs->Eof());
            EXPECT_EQ(rs->AbsolutePosition(), -1);
            EXPECT_EQ(raisedBy([&] { rs->MoveNext(); }), error_number::noCurrentRecord);
            for (std::int32_t i = size; i >= 1; --i) {
                rs->MovePrevious();
                EXPECT_EQ(rs->GetInt32(field::NAID), i);
            }
            EXPECT_EQ(raisedBy([&] { rs->MovePrevious(); }), error_number::noCurrentRecord);
            rs->MoveLast();
            EXPECT_EQ(rs->GetInt32(field::NAID), size);
            EXPECT_EQ(rs->RecordCount(), size);
            rs->MoveFirst();
            EXPECT_EQ(rs->GetInt32(field::NAID), 1);
        }
        this->run("DELETE FROM Customers");
    }
}

// The load of employees steps back one row at each change of employee and goes on from there.
TYPED_TEST_P(RecordAccess, StepsBackByOneRowAnywhere) {
    this->addCustomers(60);
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        for (const int firstStep : {1, 5, 30}) {
            const auto rs = this->db().OpenRecordset(this->allCustomers, type);
            for (std::int32_t i = 1; i <= 60; ++i) {
                EXPECT_EQ(rs->GetInt32(field::NAID), i);
                rs->MoveNext();
                if (i < firstStep || i % 3 != 0) continue;
                rs->MovePrevious();
                EXPECT_EQ(rs->GetInt32(field::NAID), i);
                EXPECT_EQ(rs->AbsolutePosition(), i - 1);
                rs->MoveNext();
            }
            EXPECT_TRUE(rs->Eof());
        }
    }
}

TYPED_TEST_P(RecordAccess, FindsFieldsInAnyCaseAndRefusesUnknownOnes) {
    this->addCustomers(1);
    const std::vector<FieldName> reads{field::NAID, "nabusname"};
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        const auto rs = this->db().OpenRecordset(this->allCustomers, type, reads);
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
        EXPECT_EQ(rs->Fields("NABUSNAME").Value().toText(), "A");
        EXPECT_EQ(raisedBy([&] { rs->Fields("NAOther").Value(); }), error_number::noSuchItem);
        EXPECT_EQ(raisedBy([&] { rs->GetInt32(field::PRPID); }), error_number::noSuchItem);
        // A field outside the list fails or has its value, and is never Null.
        Variant other = Variant("given");
        const auto error = raisedBy([&] { other = rs->Value(field::NASeq); });
        EXPECT_TRUE(error == error_number::noSuchItem || other == Variant("")) << error;
    }
}

TYPED_TEST_P(RecordAccess, ANewRowHasWhatWasStoredAndTheDefaultsOfItsTable) {
    const std::vector<std::pair<FieldName, Variant>> stored{
        {field::PRPNAID, Variant(std::int32_t{2147483647})},
        {field::PRPWeekNo, Variant(std::int16_t{-7})},
        {field::PRPPaymentPeriod, Variant(2.5)},
        {field::PRPPayDate, Variant(Date::fromYmd(2016, 4, 29))},
        {field::PRPRTIPayDate, Variant(Date::fromYmdHms(2016, 4, 29, 18, 0, 0))},
        {field::PRPPeriodUpdated, Variant(true)},
        {field::PRPPeriodPay, Variant(Currency::fromTicks(12345678901))},
        {field::PRPTaxCode, Variant("O'Neill \"£\" #1# ?")},
    };
    const auto rs = this->dynaset("SELECT * FROM PRPay WHERE PRPID = -1");
    rs->AddNew();
    EXPECT_EQ(rs->Value(field::PRPHasBeenVisited), Variant(false));
    EXPECT_EQ(rs->GetText(field::PRPAEStatus), "");
    for (const auto& [name, value] : stored) rs->Value(name, value);
    rs->Value(field::PRPDoB, Variant(Null));
    rs->Update();
    rs->Bookmark(rs->LastModified());
    for (const auto& [name, value] : stored) EXPECT_EQ(rs->Value(name), value) << name.text();
    EXPECT_TRUE(rs->Value(field::PRPDoB).isNull());
    EXPECT_GT(rs->GetInt32(field::PRPID), 0);
    EXPECT_EQ(rs->GetDate(field::PRPEPEDate), Date());
    EXPECT_FALSE(rs->GetBoolean(field::PRPPostgradLoan));
}

TYPED_TEST_P(RecordAccess, ConversionsFailWithTheFieldAsSource) {
    this->run("INSERT INTO Customers (NAID, NABusName, NASeq) VALUES (1, Null, 'x')");
    this->run("INSERT INTO PRPay (PRPID, PRPNAID) VALUES (1, 70000)");
    const auto customer = this->snapshot(this->allCustomers);
    const auto pay = this->snapshot("SELECT * FROM PRPay");
    const auto expect = [](std::int32_t number, const char* source, const auto& read) {
        const Error error = errorOf(read);
        EXPECT_EQ(error.Number(), number);
        EXPECT_EQ(error.Source(), source);
    };
    expect(94, "NABusName", [&] { customer->GetText(field::NABusName); });
    expect(13, "NASeq", [&] { customer->GetInt32(field::NASeq); });
    expect(6, "PRPNAID", [&] { pay->GetInt16(field::PRPNAID); });
}

TYPED_TEST_P(RecordAccess, EditChangesTheTouchedFieldsOfOneRow) {
    this->addCustomers(3);
    const auto rs = this->dynaset(this->allCustomers);
    rs->MoveNext();
    rs->Edit();
    EXPECT_EQ(rs->GetText(field::NABusName), "B");
    rs->Value(field::NABusName, Variant("changed"));
    EXPECT_EQ(rs->GetText(field::NABusName), "changed");
    EXPECT_EQ(rs->GetInt32(field::NAID), 2);
    rs->Update();
    EXPECT_EQ(rs->GetText(field::NABusName), "changed");
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    rs->Edit();
    rs->Value(field::NABusName, Variant("lost"));
    rs->MoveNext();  // gives up the row in edit
    EXPECT_EQ(raisedBy([&] { rs->Update(); }), error_number::updateWithoutEdit);
    const auto after = this->snapshot(this->allCustomers);
    std::string names;
    for (; !after->Eof(); after->MoveNext()) names += after->GetText(field::NABusName);
    EXPECT_EQ(names, "AchangedC");
}

TYPED_TEST_P(RecordAccess, ANewRowStandsAtTheEndAndTheSetStaysWhereItWas) {
    this->addCustomers(2);
    const auto rs = this->dynaset(this->allCustomers);
    const auto add = [&](const char* name) {
        rs->AddNew();
        rs->Value(field::NABusName, Variant(name));
        rs->Update();
    };
    add("first");
    EXPECT_EQ(rs->GetInt32(field::NAID), 1);
    EXPECT_EQ(rs->RecordCount(), 3);
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->GetText(field::NABusName), "first");
    EXPECT_EQ(rs->AbsolutePosition(), 2);
    rs->MoveNext();
    EXPECT_TRUE(rs->Eof());
    add("second");
    EXPECT_TRUE(rs->Eof());
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->GetText(field::NABusName), "second");
    const auto place = rs->Bookmark();
    rs->MoveFirst();
    rs->Bookmark(place);
    EXPECT_EQ(rs->GetText(field::NABusName), "second");
}

TYPED_TEST_P(RecordAccess, RefusesWhatASetCannotDo) {
    this->addCustomers(1);
    const auto reader = this->snapshot(this->allCustomers);
    EXPECT_EQ(raisedBy([&] { reader->AddNew(); }), error_number::readOnly);
    EXPECT_EQ(raisedBy([&] { reader->Edit(); }), error_number::readOnly);
    EXPECT_EQ(raisedBy([&] { reader->Value(field::NASeq, Variant("x")); }), error_number::readOnly);
    const auto rs = this->dynaset(this->allCustomers);
    EXPECT_EQ(raisedBy([&] { rs->Value(field::NASeq, Variant("x")); }),
              error_number::updateWithoutEdit);
    EXPECT_EQ(raisedBy([&] { rs->Update(); }), error_number::updateWithoutEdit);
    rs->MoveNext();
    EXPECT_EQ(raisedBy([&] { rs->Edit(); }), error_number::noCurrentRecord);
    for (const auto& closed : {reader, rs}) {
        closed->Close();
        closed->Close();
        EXPECT_EQ(raisedBy([&] { closed->MoveNext(); }), error_number::objectClosed);
        EXPECT_EQ(raisedBy([&] { closed->Eof(); }), error_number::objectClosed);
        EXPECT_EQ(raisedBy([&] { closed->Value(field::NAID); }), error_number::objectClosed);
    }
}

TYPED_TEST_P(RecordAccess, ASnapshotDoesNotSeeWhatIsWrittenLater) {
    this->addCustomers(25);
    const auto walk = this->snapshot(this->allCustomers);
    const auto unread = this->snapshot(this->allCustomers);
    const auto rs = this->dynaset("SELECT * FROM Customers WHERE NAID = -1");
    int seen = 0;
    for (; !walk->Eof(); walk->MoveNext(), ++seen) {
        ASSERT_LT(seen, 100);
        EXPECT_EQ(walk->GetInt32(field::NAID), seen + 1);
        if (seen % 10 != 3) continue;
        rs->AddNew();
        rs->Value(field::NABusName, Variant("later"));
        rs->Update();
    }
    EXPECT_EQ(seen, 25);
    walk->MoveFirst();
    EXPECT_EQ(this->ids(*walk).size(), 25U);
    this->run("UPDATE Customers SET NABusName = 'changed'");
    EXPECT_EQ(unread->GetText(field::NABusName), "A");
    unread->MoveLast();
    EXPECT_EQ(unread->RecordCount(), 25);
}

TYPED_TEST_P(RecordAccess, AQueryOpensAgainAndAgain) {
    this->addCustomers(3);
    const auto query =
        this->db().CreateQueryDef("", "SELECT * FROM Customers WHERE NAID <> 2 ORDER BY NAID");
    const auto first = query->OpenRecordset(RecordsetType::Snapshot);
    const auto second = query->OpenRecordset(RecordsetType::Snapshot);
    EXPECT_EQ(this->ids(*first), (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(this->ids(*second), (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(query->OpenRecordset(RecordsetType::Dynaset)->RecordCount(), 2);
}

TYPED_TEST_P(RecordAccess, AFailingStatementIsAnErrorThatNamesIt) {
    for (const char* sql :
         {"UPDATE NoSuchTable SET a = 1", "UPDATE Customers SET NoSuchField = 'x'"}) {
        EXPECT_NE(errorOf([&] { this->run(sql); }).Description().find("NoSuch"), std::string::npos);
    }
    EXPECT_NE(raisedBy([&] { this->snapshot("SELECT * FROM NoSuchTable"); }), 0);
}

TYPED_TEST_P(RecordAccess, WhatABatchWroteStaysWhenItFails) {
    const auto failing = [&] {
        this->addCustomers(2);
        throw Error(9999, "test", "in between");
    };
    EXPECT_EQ(raisedBy([&] { inOneBatch(this->db(), failing); }), 9999);
    EXPECT_EQ(this->ids(*this->snapshot(this->allCustomers)).size(), 2U);
}

// Every statement that the library sends, on a small company of three pay rows.
TYPED_TEST_P(RecordAccess, RunsEveryStatementOfTheLibrary) {
    for (const std::string_view row : smallCompany()) this->run(row);
    for (const Statement& each : statements()) {
        SCOPED_TRACE(std::string(each.operation) + ": " + std::string(each.sql));
        if (!each.table.empty() && !this->db().TableExists(each.table)) {
            EXPECT_EQ(raisedBy([&] { this->snapshot(each.sql); }), error_number::noSuchTable);
            continue;
        }
        std::vector<FieldName> reads;
        for (const Shown& shown : each.shown) reads.push_back(shown.field);
        if (each.sent != Sent::Execute) {
            const bool editable = each.sent == Sent::Dynaset;
            EXPECT_EQ(shownRows(*(editable ? this->dynaset(each.sql, reads)
                                           : this->snapshot(each.sql, reads)),
                                each.shown),
                      each.expected);
            const auto query = this->db().CreateQueryDef("", each.sql);
            const auto rows = query->OpenRecordset(
                editable ? RecordsetType::Dynaset : RecordsetType::Snapshot, reads);
            EXPECT_EQ(shownRows(*rows, each.shown), each.expected) << "by a query";
            continue;
        }
        // What it changes is taken back, so that the next statement finds the company as it was.
        this->run(each.sql);
        EXPECT_EQ(shownRows(*this->snapshot(each.check), each.shown), each.expected);
        this->emptyTables();
        for (const std::string_view row : smallCompany()) this->run(row);
    }
}

TYPED_TEST_P(RecordAccess, AnUpdatableSetWritesWithoutItsKeyAndReadsOverAJoin) {
    for (const std::string_view row : smallCompany()) this->run(row);
    const auto rows = this->dynaset(
        "SELECT PRPPeriodUpdated, PRPNExpPayDate FROM PRPay WHERE PRPPeriodUpdated = FALSE "
        "ORDER BY PRPNAID, PRPID");
    ASSERT_EQ(rows->RecordCount(), 2) << "exact before the last row was seen";
    for (; !rows->Eof(); rows->MoveNext()) {
        rows->Edit();
        rows->Value(field::PRPPeriodUpdated, true);
        if (rows->AbsolutePosition() == rows->RecordCount() - 1) {
            rows->Value(field::PRPNExpPayDate, Date::fromYmd(2016, 5, 28));
        }
        rows->Update();
    }
    EXPECT_EQ(
        shownRows(
            *this->snapshot("SELECT PRPID, PRPPeriodUpdated, PRPNExpPayDate FROM PRPay "
                            "WHERE PRPID > 1 ORDER BY PRPID"),
            {{field::PRPID, 'i'}, {field::PRPPeriodUpdated, 'i'}, {field::PRPNExpPayDate, 'd'}}),
        "2 -1 2016-04-26; 3 -1 2016-05-28");

    const auto joined = this->dynaset(
        "SELECT OrdID, DSDesc FROM Orders LEFT JOIN Deadstock ON OrdDSID = DSIDNo ORDER BY OrdID");
    EXPECT_EQ(joined->RecordCount(), 3);
    joined->MoveLast();
    joined->MovePrevious();
    EXPECT_EQ(joined->GetInt32(field::OrdID), 2);
    EXPECT_EQ(joined->GetText(field::DSDesc), "Apples");
}

TYPED_TEST_P(RecordAccess, SortsNullFirstAndTextsWithoutRegardToCase) {
    for (const char* values :
         {"1, 'banana'", "2, Null", "3, 'Apple'", "4, ''", "5, 'apple pie'", "6, 'APPLE'"}) {
        this->run("INSERT INTO Customers (NAID, NABusName) VALUES (" + std::string(values) + ")");
    }
    EXPECT_EQ(this->ids(*this->snapshot("SELECT * FROM Customers ORDER BY NABusName, NAID")),
              (std::vector<std::int32_t>{2, 4, 3, 6, 5, 1}));
    EXPECT_EQ(this->ids(*this->snapshot(
                  "select [NAID] from [customers] where [nabusname] = 'aPPle' order by [Naid]")),
              (std::vector<std::int32_t>{3, 6}));
    this->run("INSERT INTO PREmployments (PRTID, PRTNAID, PRTPayrollYear) VALUES (1, Null, 17)");
    this->run("INSERT INTO PREmployments (PRTID, PRTNAID, PRTPayrollYear) VALUES (2, -1, 17)");
    const auto rows = this->snapshot("SELECT PRTID FROM PREmployments ORDER BY PRTNAID");
    EXPECT_EQ(rows->GetInt32(field::PRTID), 1);
}

// The probe of a temporary table may not end or spoil the batch that it is asked in.
TYPED_TEST_P(RecordAccess, TellsOfAMissingTableInsideAndOutsideABatch) {
    const auto probe = [&] {
        EXPECT_TRUE(this->db().TableExists("PRPay"));
        EXPECT_TRUE(this->db().TableExists("prpay"));
        EXPECT_FALSE(this->db().TableExists("NoSuchTable"));
        EXPECT_FALSE(this->db().TableExists("PRPay] WHERE [x"));
        EXPECT_TRUE(this->db().Database::TableExists("PRPay")) << "by the default";
        EXPECT_FALSE(this->db().Database::TableExists("NoSuchTable")) << "by the default";
        EXPECT_EQ(raisedBy([&] { this->run("DELETE FROM NoSuchTable"); }),
                  error_number::noSuchTable);
    };
    probe();
    inOneBatch(this->db(), [&] {
        this->addCustomers(1);
        probe();
        inOneBatch(this->db(), [&] { this->run("UPDATE Customers SET NASeq = 'X'"); });
        probe();
    });
    EXPECT_EQ(this->snapshot(this->allCustomers)->GetText(field::NASeq), "X");
}

TYPED_TEST_P(RecordAccess, ARowOfDefaultsHoldsNoNull) {
    struct {
        const char* sql;
        std::vector<FieldName> fields;
    } const tables[]{
        {"SELECT * FROM PRPAY WHERE PRPID = -1",
         {field::PRPNAID, field::PRPWeekNo, field::PRPPaymentPeriod, field::PRPPayDate,
          field::PRPRTIPayDate, field::PRPEPEDate, field::PRPNExpPayDate, field::PRPNExpEPEDate,
          field::PRPPeriodUpdated, field::PRPHasBeenVisited, field::PRPCalculationUsed,
          field::PRPStatus, field::PRPAEStatus, field::PRPMaternityHighWeeks, field::PRPASPPDays,
          field::PRPStudentLoan, field::PRPPostgradLoan, field::PRPPeriodPay, field::PRPTaxCode}},
        {"SELECT * FROM PREmployments WHERE PRTID = -1",
         {field::PRTNAID, field::PRTPayrollYear, field::PRTPYEmployCount, field::PRTStartDate,
          field::PRTEndDateLong, field::PRTType, field::PRTContinuation, field::PRTAEStatus}},
    };
    for (const auto& table : tables) {
        const auto rs = this->dynaset(table.sql);
        rs->AddNew();
        rs->Update();
        rs->Bookmark(rs->LastModified());
        for (const FieldName& name : table.fields) {
            EXPECT_FALSE(rs->IsNull(name)) << name.text();
        }
    }
    const std::array<bool, 2> ways{false, true};
    for (const bool byDefault : ways) {
        const auto rs = this->dynaset("SELECT * FROM PREmploymentsAddInfo WHERE PRTAID = -1");
        rs->AddNew();
        rs->Value(field::PRTAPRTID, std::int32_t{7});
        for (const FieldName& name : {field::PRTADecDate, field::PRTAText, field::PRTADied,
                                      field::PRTAPEmpGross, field::PRTAPEmpWeekNo}) {
            rs->Value(name, Variant(Null));
        }
        byDefault ? rs->Recordset::FillEmpty() : rs->FillEmpty();
        rs->Update();
        rs->Bookmark(rs->LastModified());
        EXPECT_EQ(rs->GetInt32(field::PRTAPRTID), 7);
        EXPECT_GT(rs->GetInt32(field::PRTAID), 0) << "a key of the database's";
        EXPECT_EQ(rs->GetDate(field::PRTADecDate), Date());
        EXPECT_EQ(rs->GetText(field::PRTAText), "");
        EXPECT_FALSE(rs->GetBoolean(field::PRTADied));
        EXPECT_EQ(rs->GetCurrency(field::PRTAPEmpGross), Currency());
        EXPECT_EQ(rs->GetInt32(field::PRTAPEmpWeekNo), 0);
    }
}

// Whether somebody else has written decides whether a loaded list is compared with the database.
TYPED_TEST_P(RecordAccess, OwnWritesDoNotMoveTheDataVersion) {
    const std::int64_t before = this->db().DataVersion();
    inOneBatch(this->db(), [&] {
        EXPECT_EQ(this->db().DataVersion(), before);
        this->addCustomers(2);
        EXPECT_EQ(this->db().DataVersion(), before);
    });
    this->run("UPDATE Customers SET NABusName = 'x'");
    EXPECT_EQ(this->db().DataVersion(), before);
}

REGISTER_TYPED_TEST_SUITE_P(
    RecordAccess, AnEmptySetStandsAtItsEnd, WalksBothWaysBetweenItsEnds, StepsBackByOneRowAnywhere,
    FindsFieldsInAnyCaseAndRefusesUnknownOnes, ANewRowHasWhatWasStoredAndTheDefaultsOfItsTable,
    ConversionsFailWithTheFieldAsSource, EditChangesTheTouchedFieldsOfOneRow,
    ANewRowStandsAtTheEndAndTheSetStaysWhereItWas, RefusesWhatASetCannotDo,
    ASnapshotDoesNotSeeWhatIsWrittenLater, AQueryOpensAgainAndAgain,
    AFailingStatementIsAnErrorThatNamesIt, WhatABatchWroteStaysWhenItFails,
    RunsEveryStatementOfTheLibrary, AnUpdatableSetWritesWithoutItsKeyAndReadsOverAJoin,
    SortsNullFirstAndTextsWithoutRegardToCase, TellsOfAMissingTableInsideAndOutsideABatch,
    ARowOfDefaultsHoldsNoNull, OwnWritesDoNotMoveTheDataVersion);

}  // namespace ledgerwick::conformance
