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

REGISTER_TYPED_TEST_SUITE_P(RecordAccess, AnEmptySetStandsAtItsEnd, WalksBothWaysBetweenItsEnds,
                            StepsBackByOneRowAnywhere, FindsFieldsInAnyCaseAndRefusesUnknownOnes,
                            ANewRowHasWhatWasStoredAndTheDefaultsOfItsTable,
                            ConversionsFailWithTheFieldAsSource,
                            EditChangesTheTouchedFieldsOfOneRow,
                            ANewRowStandsAtTheEndAndTheSetStaysWhereItWas, RefusesWhatASetCannotDo,
                            ASnapshotDoesNotSeeWhatIsWrittenLater, AQueryOpensAgainAndAgain,
                            AFailingStatementIsAnErrorThatNamesIt, WhatABatchWroteStaysWhenItFails);

}  // namespace ledgerwick::conformance
