// An order line, and what an employment makes of the lines that it holds.
#include "ledgerwick/orders/order_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/error.h"
#include "tests/support/errors.h"
#include "tests/support/fake_host.h"
#include "tests/support/rows.h"

namespace ledgerwick {
namespace {

using test::FakeHost;
using test::raisedBy;
using test::Row;
using test::Rows;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ItemDescription, LosesItsUnit) {
    struct Case {
        const char* unit;
        const char* description;
        const char* cleaned;
    };
    const Case cases[] = {
        {"kg", "Apples (kg)", "Apples"},      {"kg", " (kg)Apples(kg) ", "Apples"},
        {"kg", "Apples kg box", "Applesbox"}, {"kg", "Apples KG (Kg)", "Apples KG (Kg)"},
        {"kg", "Bakgammon", "Bakgammon"},     {"kg", "kg", ""},
        {"", "Apples ()", "Apples"},          {"", "Green  Apples", "GreenApples"}};
    for (const Case& c : cases) {
        CImportedEarnings line;
        line.UoPCode(c.unit);
        line.Desc(c.description);
        EXPECT_EQ(line.Desc(), c.cleaned) << c.description << " by the " << c.unit;
    }
}

// A checked line of two pounds for one box of item 4 on 20 April 2016, as the load reads it.
Row orderLine(std::int32_t id) {
    return Row{{field::OrdID, id},        {field::OrdDSID, 4},
               {field::Qty, "1.0"},       {field::UoPCode, "box"},
               {field::NetPrice, "2.00"}, {field::DSDesc, "Apples (box)"},
               {field::OrdStatus, 2},     {field::OrdActionDate, Date::fromYmd(2016, 4, 20)}};
}

const Date firstDay = Date::fromYmd(2016, 4, 16);
const Date lastDay = Date::fromYmd(2016, 4, 22);

class ImportedEarnings : public testing::Test {
  protected:
    void add(const Row& line) {
        Rows rows{line};
        employment.AddImportedEarnings(rows);
    }
    // The money of the checked lines in the week, in pounds; -1 when there are none.
    double checkedInWeek() {
        Currency value = Currency::fromWhole(99);
        const bool found = employment.HasImportedEarnings(firstDay, lastDay, value);
        return found ? value.toDouble() : -1.0;
    }
    bool uncheckedInWeek() {
        Currency value;
        bool unchecked = true;
        employment.HasImportedEarnings(firstDay, lastDay, value, &unchecked);
        return unchecked;
    }
    // Every row as text: "date|item|quantity|description|unit|money".
    std::vector<std::string> table() {
        ResultTable rows = employment.ImportedEarningsRS(firstDay, lastDay, total);
        std::vector<std::string> lines;
        for (; !rows.Eof(); rows.MoveNext()) {
            std::string line;
            for (std::int32_t i = 0; i < rows.FieldCount(); ++i) {
                if (i > 0) line += '|';
                const Variant& value = rows.Fields(rows.Field(i).name);
                line += i == 0 ? value.toDate().toIso() : value.toText();
            }
            lines.push_back(line);
        }
        return lines;
    }

    FakeHost host;
    cEmployment employment;
    Currency total;
};

TEST_F(ImportedEarnings, CountFromTheFirstDayToTheEndOfTheLast) {
    const std::pair<Date, bool> cases[] = {{firstDay, true},
                                           {Date::fromYmdHms(2016, 4, 15, 23, 59, 0), false},
                                           {Date::fromYmdHms(2016, 4, 22, 23, 59, 0), true},
                                           {lastDay.addDays(1), false}};
    for (const auto& [date, inWeek] : cases) {
        employment.ResetImportedPay();
        add(orderLine(1).with(field::OrdActionDate, date));
        EXPECT_EQ(checkedInWeek(), inWeek ? 2.0 : -1.0) << date.toText();
        EXPECT_FALSE(uncheckedInWeek());
        employment.ResetImportedPay();
        add(orderLine(1).with(field::OrdActionDate, date).with(field::OrdStatus, 1));
        EXPECT_EQ(uncheckedInWeek(), inWeek) << date.toText();
    }
}

TEST_F(ImportedEarnings, SumCheckedLinesAndOnlyWarnOfUncheckedOnes) {
    Currency value = Currency::fromWhole(99);
    EXPECT_FALSE(employment.HasImportedEarnings(firstDay, lastDay, value));
    EXPECT_EQ(value, Currency());
    add(orderLine(1).with(field::OrdStatus, 1));
    EXPECT_EQ(checkedInWeek(), -1.0);
    EXPECT_THAT(table(), IsEmpty());

    add(orderLine(2));
    add(orderLine(2).with(field::NetPrice, "3.00"));  // read twice it is the same line
    add(orderLine(3).with(field::NetPrice, "1,234.56").with(field::OrdStatus, 0));
    EXPECT_DOUBLE_EQ(checkedInWeek(), 1237.56);
}

TEST_F(ImportedEarnings, NullStopsTheLineButKeepsWhatWasRead) {
    for (const FieldName& missing : {field::UoPCode, field::DSDesc, field::NetPrice, field::Qty})
        EXPECT_EQ(raisedBy([&] { add(orderLine(1).with(missing, Null)); }),
                  error_number::invalidUseOfNull)
            << missing.text();
    Currency value;
    EXPECT_TRUE(employment.HasImportedEarnings(Date(), Date(), value));
}

TEST_F(ImportedEarnings, TableHasTotalsOfItemsAndThenTheDays) {
    const Row plums = orderLine(0).with(field::OrdDSID, 5).with(field::DSDesc, "plums");
    const Date monday = Date::fromYmd(2016, 4, 18);
    add(plums.with(field::OrdID, 1));
    add(plums.with(field::OrdID, 2)
            .with(field::OrdActionDate, Date::fromYmdHms(2016, 4, 20, 9, 30, 0))
            .with(field::Qty, "1,000.5"));
    add(orderLine(3));
    add(orderLine(4).with(field::OrdActionDate, monday).with(field::NetPrice, "0.50"));
    add(orderLine(5).with(field::OrdActionDate, lastDay.addDays(1)));

    EXPECT_THAT(table(), ElementsAre("1899-12-30|4|2|Apples|box|2.5",    //
                                     "1899-12-30|5|1001.5|plums|box|4",  //
                                     "2016-04-18|4|1|Apples|box|0.5",    //
                                     "2016-04-20|4|1|Apples|box|2",      //
                                     "2016-04-20|5|1001.5|plums|box|4"));
    EXPECT_EQ(total.toText(), "6.5");

    // Texts are cut to the width of their field.
    employment.ResetImportedPay();
    const std::string wide(69, 'x');
    add(orderLine(1).with(field::UoPCode, "half bushels").with(field::DSDesc, wide + "\u00e9yz"));
    EXPECT_EQ(table().back(), "2016-04-20|4|1|" + wide + "\u00e9|half bushe|2");
}

TEST_F(ImportedEarnings, MoveUpByOneStatement) {
    add(orderLine(11));
    add(orderLine(12).with(field::OrdStatus, 4));
    add(orderLine(13).with(field::OrdStatus, 1));
    add(orderLine(14).with(field::OrdActionDate, lastDay.addDays(1)));
    add(orderLine(15).with(field::OrdStatus, 0));
    const std::string update =
        "    UPDATE ORDERS SET    OrdStatus = 3 WHERE    OrdStatus < 3    AND    ORDID IN (11,15)";

    host.state->database.failNextExecute(error_number::databaseError);
    EXPECT_THROW(employment.UpdateImportedEarnings(3, firstDay, lastDay), Error);
    EXPECT_FALSE(employment.UpdateImportedEarnings(3, firstDay, lastDay, 77, "INV7"));
    // What has arrived stays out of the next statement, and nothing left means no statement.
    EXPECT_FALSE(employment.UpdateImportedEarnings(3, firstDay, lastDay));
    EXPECT_THAT(host.state->database.executed(), ElementsAre(update, update));
    EXPECT_EQ(checkedInWeek(), 6.0);
}

TEST_F(ImportedEarnings, InvoiceAndReferenceGoWithStatusFive) {
    const std::string front = "    UPDATE ORDERS SET    OrdStatus = 5 ";
    const std::string back = "WHERE    OrdStatus < 5    AND    ORDID IN (1)";
    struct Case {
        std::int32_t invoice;
        Variant reference;
        const char* pieces;
    };
    const Case cases[] = {{77, "INV7", ", OrdInvID = 77 , OrdRef = 'INV7' "},
                          {0, "O'Neil's", ", OrdRef = 'O''Neil''s' "},
                          {0, "", ", OrdRef = '' "},
                          {0, 123, ", OrdRef = '123' "},
                          {-1, Variant(), ", OrdInvID = -1 "},
                          {0, Variant(ObjectRef()), ""}};
    for (const Case& c : cases) {
        employment.ResetImportedPay();
        add(orderLine(1));
        employment.UpdateImportedEarnings(5, firstDay, lastDay, c.invoice, c.reference);
        EXPECT_EQ(host.state->database.executed().back(), front + c.pieces + back);
    }
}

}  // namespace
}  // namespace ledgerwick
