// A suite that any implementation of the record access layer can be run against.
//
//   struct MyLayer {
//       MyLayer();                                  // opens an empty database with the tables
//       ledgerwick::Database& database();
//   };
//   INSTANTIATE_TYPED_TEST_SUITE_P(My, RecordAccess, MyLayer);
//
// Each test gets a layer of its own. The tables are those of ledgerwick/shell/schema.h, empty, with
// keys given by the database and with defaults that are no Null.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ledgerwick/shell/record_access.h"
#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::conformance {

// The number of the error that `work` throws, 0 for none.
inline std::int32_t errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& e) {
        return e.Number();
    }
    return 0;
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
        EXPECT_EQ(errorOf([&] { rs->MoveFirst(); }), error_number::noCurrentRecord);
        EXPECT_EQ(errorOf([&] { rs->MoveLast(); }), error_number::noCurrentRecord);
        EXPECT_EQ(errorOf([&] { rs->MoveNext(); }), error_number::noCurrentRecord);
        EXPECT_EQ(errorOf([&] { rs->MovePrevious(); }), error_number::noCurrentRecord);
        EXPECT_EQ(errorOf([&] { rs->Value(field::NAID); }), error_number::noCurrentRecord);
    }
}

TYPED_TEST_P(RecordAccess, WalksForwardsOverEveryRow) {
    this->addCustomers(40);
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        const auto rs = this->db().OpenRecordset(this->allCustomers, type);
        EXPECT_GT(rs->RecordCount(), 0);
        for (std::int32_t i = 0; i < 40; ++i, rs->MoveNext()) {
            ASSERT_FALSE(rs->Eof());
            EXPECT_EQ(rs->AbsolutePosition(), i);
            EXPECT_EQ(rs->GetInt32(field::NAID), i + 1);
        }
        EXPECT_TRUE(rs->Eof());
        EXPECT_EQ(rs->AbsolutePosition(), -1);
        EXPECT_EQ(errorOf([&] { rs->MoveNext(); }), error_number::noCurrentRecord);
        rs->MovePrevious();
        EXPECT_EQ(rs->GetInt32(field::NAID), 40);
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

TYPED_TEST_P(RecordAccess, GoesToItsEnds) {
    this->addCustomers(30);
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        const auto rs = this->db().OpenRecordset(this->allCustomers, type);
        rs->MoveFirst();
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
        rs->MoveLast();
        EXPECT_EQ(rs->GetInt32(field::NAID), 30);
        EXPECT_EQ(rs->RecordCount(), 30);
        for (std::int32_t i = 29; i >= 1; --i) {
            rs->MovePrevious();
            EXPECT_EQ(rs->GetInt32(field::NAID), i);
        }
        EXPECT_EQ(errorOf([&] { rs->MovePrevious(); }), error_number::noCurrentRecord);
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
        rs->MoveNext();
        rs->MoveNext();
        rs->MoveFirst();
        EXPECT_EQ(this->ids(*rs).size(), 30U);
        rs->MoveFirst();
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
    }
}

TYPED_TEST_P(RecordAccess, CountsASetOfOneRow) {
    this->addCustomers(1);
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        const auto rs = this->db().OpenRecordset(this->allCustomers, type);
        EXPECT_EQ(rs->RecordCount(), 1);
        rs->MoveLast();
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
        rs->MoveNext();
        EXPECT_TRUE(rs->Eof());
        rs->MoveFirst();
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
    }
}

TYPED_TEST_P(RecordAccess, FindsFieldsInAnyCaseAndRefusesUnknownOnes) {
    this->addCustomers(1);
    const auto rs = this->snapshot(this->allCustomers);
    EXPECT_EQ(rs->Fields("naid").Value().toInt32(), 1);
    EXPECT_EQ(rs->Fields("NABUSNAME").Value().toText(), "A");
    EXPECT_EQ(errorOf([&] { rs->Fields("NAOther").Value(); }), error_number::noSuchItem);
    EXPECT_EQ(errorOf([&] { rs->GetInt32(field::PRPID); }), error_number::noSuchItem);
}

TYPED_TEST_P(RecordAccess, AFieldOutsideTheListIsNeverNull) {
    this->addCustomers(1);
    const std::vector<FieldName> reads{field::NAID, "nabusname"};
    for (const auto type : {RecordsetType::Snapshot, RecordsetType::Dynaset}) {
        const auto rs = this->db().OpenRecordset(this->allCustomers, type, reads);
        EXPECT_EQ(rs->GetInt32(field::NAID), 1);
        EXPECT_EQ(rs->GetText(field::NABusName), "A");
        Variant other = Variant("given");
        const auto error = errorOf([&] { other = rs->Value(field::NASeq); });
        EXPECT_TRUE(error == error_number::noSuchItem || other == Variant("")) << error;
    }
}

TYPED_TEST_P(RecordAccess, GivesWhatWasStored) {
    const Date date = Date::fromYmd(2016, 4, 29);
    const Date withTime = Date::fromYmdHms(2016, 4, 29, 18, 0, 0);
    auto rs = this->dynaset("SELECT * FROM PRPay WHERE PRPID = -1");
    rs->AddNew();
    rs->Value(field::PRPNAID, Variant(std::int32_t{2147483647}));
    rs->Value(field::PRPWeekNo, Variant(std::int16_t{-7}));
    rs->Value(field::PRPPaymentPeriod, Variant(2.5));
    rs->Value(field::PRPPayDate, Variant(date));
    rs->Value(field::PRPRTIPayDate, Variant(withTime));
    rs->Value(field::PRPPeriodUpdated, Variant(true));
    rs->Value(field::PRPPeriodPay, Variant(Currency::fromTicks(12345678901)));
    rs->Value(field::PRPTaxCode, Variant("O'Neill \"£\" #1# ?"));
    rs->Value(field::PRPDoB, Variant(Null));
    rs->Update();
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->Value(field::PRPNAID), Variant(std::int32_t{2147483647}));
    EXPECT_EQ(rs->GetInt16(field::PRPWeekNo), -7);
    EXPECT_EQ(rs->GetDouble(field::PRPPaymentPeriod), 2.5);
    EXPECT_EQ(rs->Value(field::PRPPayDate), Variant(date));
    EXPECT_EQ(rs->GetDate(field::PRPRTIPayDate), withTime);
    EXPECT_EQ(rs->Value(field::PRPPeriodUpdated), Variant(true));
    EXPECT_EQ(rs->Value(field::PRPPeriodPay), Variant(Currency::fromTicks(12345678901)));
    EXPECT_EQ(rs->GetCurrency(field::PRPPeriodPay), Currency::fromTicks(12345678901));
    EXPECT_EQ(rs->GetText(field::PRPTaxCode), "O'Neill \"£\" #1# ?");
    EXPECT_TRUE(rs->IsNull(field::PRPDoB));
    EXPECT_TRUE(rs->Value(field::PRPDoB).isNull());
}

TYPED_TEST_P(RecordAccess, ANewRowHasTheDefaultsOfItsTable) {
    const auto rs = this->dynaset("SELECT * FROM PRPay WHERE PRPID = -1");
    rs->AddNew();
    EXPECT_EQ(rs->Value(field::PRPHasBeenVisited), Variant(false));
    EXPECT_EQ(rs->GetText(field::PRPAEStatus), "");
    EXPECT_EQ(rs->GetDouble(field::PRPStatus), 0);
    rs->Value(field::PRPNAID, Variant(std::int32_t{7}));
    EXPECT_EQ(rs->GetInt32(field::PRPNAID), 7);
    rs->Update();
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->GetInt32(field::PRPNAID), 7);
    EXPECT_GT(rs->GetInt32(field::PRPID), 0);
    EXPECT_EQ(rs->GetDate(field::PRPEPEDate), Date());
    EXPECT_FALSE(rs->GetBoolean(field::PRPPostgradLoan));
    EXPECT_EQ(rs->GetInt16(field::PRPStudentLoan), 0);
}

TYPED_TEST_P(RecordAccess, ConversionsFailWithTheFieldAsSource) {
    this->run("INSERT INTO Customers (NAID, NABusName, NASeq) VALUES (1, Null, 'x')");
    this->run("INSERT INTO PRPay (PRPID, PRPNAID) VALUES (1, 70000)");
    const auto customer = this->snapshot(this->allCustomers);
    const auto pay = this->snapshot("SELECT * FROM PRPay");
    const auto source = [](const std::function<void()>& work) -> std::string {
        try {
            work();
        } catch (const Error& e) {
            return std::to_string(e.Number()) + " " + e.Source();
        }
        return "none";
    };
    EXPECT_EQ(source([&] { customer->GetText(field::NABusName); }), "94 NABusName");
    EXPECT_EQ(source([&] { customer->GetInt32(field::NASeq); }), "13 NASeq");
    EXPECT_EQ(source([&] { pay->GetInt16(field::PRPNAID); }), "6 PRPNAID");
}

TYPED_TEST_P(RecordAccess, EditChangesTheTouchedFieldsOfOneRow) {
    this->addCustomers(3);
    const auto rs = this->dynaset(this->allCustomers);
    EXPECT_EQ(rs->RecordCount(), 3);
    rs->MoveNext();
    rs->Edit();
    EXPECT_EQ(rs->GetText(field::NABusName), "B");
    rs->Value(field::NABusName, Variant("changed"));
    EXPECT_EQ(rs->GetText(field::NABusName), "changed");
    EXPECT_EQ(rs->GetInt32(field::NAID), 2);
    rs->Update();
    EXPECT_EQ(rs->GetText(field::NABusName), "changed");
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    rs->Bookmark(rs->LastModified());
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    const auto after = this->snapshot(this->allCustomers);
    EXPECT_EQ(after->GetText(field::NABusName), "A");
    after->MoveNext();
    EXPECT_EQ(after->GetText(field::NABusName), "changed");
}

TYPED_TEST_P(RecordAccess, MovingAwayGivesUpTheRowInEdit) {
    this->addCustomers(2);
    const auto rs = this->dynaset(this->allCustomers);
    rs->Edit();
    rs->Value(field::NABusName, Variant("lost"));
    rs->MoveNext();
    EXPECT_EQ(errorOf([&] { rs->Update(); }), error_number::updateWithoutEdit);
    rs->MoveFirst();
    EXPECT_EQ(rs->GetText(field::NABusName), "A");
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
    EXPECT_EQ(errorOf([&] { reader->AddNew(); }), error_number::readOnly);
    EXPECT_EQ(errorOf([&] { reader->Edit(); }), error_number::readOnly);
    EXPECT_EQ(errorOf([&] { reader->Value(field::NASeq, Variant("x")); }), error_number::readOnly);
    const auto rs = this->dynaset(this->allCustomers);
    EXPECT_EQ(errorOf([&] { rs->Value(field::NASeq, Variant("x")); }),
              error_number::updateWithoutEdit);
    EXPECT_EQ(errorOf([&] { rs->Update(); }), error_number::updateWithoutEdit);
    rs->MoveNext();
    EXPECT_EQ(errorOf([&] { rs->Edit(); }), error_number::noCurrentRecord);
    for (const auto& closed : {reader, rs}) {
        closed->Close();
        closed->Close();
        EXPECT_EQ(errorOf([&] { closed->MoveNext(); }), error_number::objectClosed);
        EXPECT_EQ(errorOf([&] { closed->Eof(); }), error_number::objectClosed);
        EXPECT_EQ(errorOf([&] { closed->Value(field::NAID); }), error_number::objectClosed);
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
    for (const std::string sql :
         {"UPDATE NoSuchTable SET a = 1", "UPDATE Customers SET NoSuchField = 'x'"}) {
        try {
            this->run(sql);
            ADD_FAILURE() << sql;
        } catch (const Error& e) {
            EXPECT_NE(e.Description().find("NoSuch"), std::string::npos) << e.what();
        }
    }
    EXPECT_NE(errorOf([&] { this->snapshot("SELECT * FROM NoSuchTable"); }), 0);
}

TYPED_TEST_P(RecordAccess, WhatABatchWroteStaysWhenItFails) {
    EXPECT_THROW(inOneBatch(this->db(),
                            [&] {
                                this->addCustomers(2);
                                throw Error(9999, "test", "in between");
                            }),
                 Error);
    EXPECT_EQ(this->ids(*this->snapshot(this->allCustomers)).size(), 2U);
}

REGISTER_TYPED_TEST_SUITE_P(RecordAccess, AnEmptySetStandsAtItsEnd, WalksForwardsOverEveryRow,
                            StepsBackByOneRowAnywhere, GoesToItsEnds, CountsASetOfOneRow,
                            FindsFieldsInAnyCaseAndRefusesUnknownOnes,
                            AFieldOutsideTheListIsNeverNull, GivesWhatWasStored,
                            ANewRowHasTheDefaultsOfItsTable, ConversionsFailWithTheFieldAsSource,
                            EditChangesTheTouchedFieldsOfOneRow, MovingAwayGivesUpTheRowInEdit,
                            ANewRowStandsAtTheEndAndTheSetStaysWhereItWas, RefusesWhatASetCannotDo,
                            ASnapshotDoesNotSeeWhatIsWrittenLater, AQueryOpensAgainAndAgain,
                            AFailingStatementIsAnErrorThatNamesIt, WhatABatchWroteStaysWhenItFails);

}  // namespace ledgerwick::conformance
