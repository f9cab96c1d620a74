// Opening a pay run: which periods, for whom, in which order, on which rows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::int32_t> everyNth(std::int32_t step, std::int32_t last) {
    std::vector<std::int32_t> weeks;
    for (std::int32_t week = step; week <= last; week += step) weeks.push_back(week);
    return weeks;
}

TEST(Run, GivesAWholeYearItsWeeksPeriodsAndHoursAtEachFrequency) {
    struct Year {
        const char* reason;
        PR_Pay_Freq frequency;
        const char* firstPay;
        std::vector<std::int32_t> weeks;
        std::int32_t period;  // on every row; 0: minus the tax month
        int hours;            // of a period in weeks of 40
    };
    const std::vector<std::int32_t> monthEnds{5, 9, 13, 18, 22, 27, 31, 35, 40, 44, 48, 52};
    for (const Year& year : std::vector<Year>{
             {"52 Fridays", PFREQ_1Weekly, "2016-04-08", everyNth(1, 52), 1, 40},
             {"the last Wednesday is 5 April", PFREQ_1Weekly, "2016-04-06", everyNth(1, 53), 1, 40},
             {"26 fortnights", PFREQ_2Weekly, "2016-04-15", everyNth(2, 52), 2, 80},
             {"the 27th counts on beyond 53", PFREQ_2Weekly, "2016-04-06", everyNth(2, 54), 2, 80},
             {"13 times four weeks", PFREQ_4Weekly, "2016-04-29", everyNth(4, 52), 4, 160},
             {"ends of tax months, 52 for 53", PFREQ_Monthly, "2016-04-30", monthEnds, 0, 160},
             {"four quarters", PFREQ_Quarterly, "2016-06-30", {13, 27, 40, 52}, 13, 520},
             {"two halves", PFREQ_BiAnnual, "2016-09-30", {27, 52}, 26, 1040},
             {"one year", PFREQ_Annual, "2017-03-31", {52}, 52, 2080}}) {
        PayOffice office;
        History history = yearStart(year.frequency);
        history.nextPay = year.firstPay;
        office.hire(7, year.frequency, history)
            .details(
                "PREHourlyPaid = True, PRENormHours2 = 8, PRENormHours3 = 8, PRENormHours4 = 8,"
                " PRENormHours5 = 7.75, PRENormHours6 = 8.25");
        office.company.load();
        const auto columns = office.open(day("2017-04-05"));
        const auto rows = office.payRows(openRows);
        EXPECT_EQ(each(columns, &Column::week), year.weeks) << year.reason;
        EXPECT_EQ(numbersOf(rows, "PRPWeekNo"), year.weeks) << year.reason;
        EXPECT_EQ(rows.at(0).at("PRPStdHours").toDouble(), year.hours) << year.reason;
        std::int32_t month = 0;
        for (const Column& column : columns) {
            EXPECT_EQ(column.period, year.period == 0 ? --month : year.period) << year.reason;
        }
    }
}

TEST(WeekList, CountsOnFromTheLastWeekOnlyWhenThatHasRunAhead) {
    PayOffice office;
    office.hire(7, PFREQ_1Weekly, {20, "2016-07-10", "2016-07-15", "2016-07-17"});
    office.hire(8, PFREQ_1Weekly, {10, "2016-07-10", "2016-07-15", "2016-07-17"});
    office.company.load();
    EXPECT_THAT(each(office.open(day("2016-07-22")), &Column::week), ElementsAre(21, 22, 15, 16));
}

TEST(Run, GivesEachPeriodItsDatesAndAllTheSamePayDate) {
    PayOffice office;
    office.hire(7, PFREQ_Monthly);
    office.company.load();
    const auto columns = office.open(day("2016-06-17"));
    const auto rows = office.payRows(openRows);
    const auto keys = numbersOf(rows, "PRPID");
    ASSERT_THAT(keys, SizeIs(2));
    EXPECT_THAT(columns,
                ElementsAre(Column{7, keys[0], day("2016-04-06"), day("2016-04-30"), "N", 5, -1},
                            Column{7, keys[1], day("2016-05-01"), day("2016-05-31"), "N", 9, -2}));
    EXPECT_THAT(datesOf(rows, "PRPPayDate"), ElementsAre("2016-06-17", "2016-06-17"));
    EXPECT_THAT(datesOf(rows, "PRPRTIPayDate"), ElementsAre("2016-06-17", "2016-06-17"));
    EXPECT_THAT(datesOf(rows, "PRPEPEDate"), ElementsAre("2016-04-30", "2016-05-31"));
    EXPECT_THAT(datesOf(rows, "PRPNExpPayDate"), ElementsAre("2016-05-31", "2016-06-30"));
    EXPECT_THAT(datesOf(rows, "PRPNExpEPEDate"), ElementsAre("2016-05-31", "2016-06-30"));
}

TEST(FirstPeriod, BeginsBehindTheLastOneOrOnTheDayOfStartingButNotAfterItsEnd) {
    PayOffice office;
    office.hire(1, PFREQ_1Weekly, {3, "2016-04-24", "2016-04-29", "2016-05-01"});
    office.hire(2).started("2016-04-11");
    office.hire(3).started("2016-04-14");
    office.company.load();
    const auto firstDays = [&](std::int32_t naid, const char* payDate) {
        return each(office.open(day(payDate), PFREQ_SelAll, 0, naid), &Column::first);
    };
    EXPECT_THAT(firstDays(1, "2016-04-29"), ElementsAre(day("2016-04-25")));
    EXPECT_THAT(firstDays(2, "2016-04-15"), ElementsAre(day("2016-04-11"), day("2016-04-13")));
    EXPECT_THAT(firstDays(3, "2016-04-15"), ElementsAre(day("2016-04-12"), day("2016-04-14")));
}

TEST(Selection, LeavesOutCasualsLeaversAndWhatTheHostDidNotChoose) {
    PayOffice office;
    office.hire(1).details("PREGroup = 5");
    office.hire(2, PFREQ_Monthly).details("PREGroup = 5");
    office.hire(3, PFREQ_Monthly);
    office.hire(4).row("PRTType = 2");
    office.hire(5).left("2016-04-20");
    office.company.load();
    const auto chosen = [&](std::int32_t frequency, std::int32_t group, std::int32_t naid) {
        const auto columns = office.open(day("2016-04-30"), frequency, group, naid);
        auto naids = each(columns, &Column::naid);
        naids.erase(std::unique(naids.begin(), naids.end()), naids.end());
        return naids;
    };
    EXPECT_THAT(chosen(PFREQ_Monthly, 5, 0), ElementsAre(2));
    EXPECT_THAT(chosen(PFREQ_SelAll, 0, 3), ElementsAre(3));
    EXPECT_THAT(chosen(PFREQ_Casual, 0, 0), IsEmpty());
    for (const std::int32_t every : {-1, -2, -5}) {
        EXPECT_THAT(chosen(every, 0, 0), ElementsAre(1, 2, 3)) << every;
    }
}

TEST(Selection, IsWorkedInTheOrderOfCodeThenNameThenNumber) {
    PayOffice office;
    const std::string hundred(100, 'x');  // what stands behind 100 characters does not count
    std::int32_t naid = 0;
    for (const auto& [seq, name] :
         std::vector<std::pair<std::string, std::string>>{{"10", "Adams"},
                                                          {"2", "brown"},
                                                          {"2", "Brown"},
                                                          {"2", "Able"},
                                                          {"99", hundred + "b"},
                                                          {"99", hundred + "a"}}) {
        office.hire(++naid).customer("NASeq = '" + seq + "', NABusName = '" + name + "'");
    }
    office.company.load();
    EXPECT_THAT(each(office.open(day("2016-04-08")), &Column::naid), ElementsAre(4, 2, 3, 1, 5, 6));
    EXPECT_THAT(office.library().announced, ElementsAre(4, 2, 3, 1, 5, 6));
}

TEST(Run, WithNothingDueGivesOneEmptyColumnAndWritesNothing) {
    PayOffice office;
    office.hire(7);
    office.company.load();
    const auto rows = office.payRows();
    Variant array;
    bool hasUnchecked = true;
    EXPECT_TRUE(office.payroll()
                    .C_InputHoursInit(day("2016-04-07"), -1, 0, 0, &array, &hasUnchecked)
                    .isEmpty());
    EXPECT_FALSE(hasUnchecked);
    EXPECT_EQ(array, Variant(VariantArray(1, 8, 1, 1)));
    EXPECT_EQ(office.payRows(), rows);
}

TEST(Run, OpenedAgainUsesItsRowsInOrderBeforeItAddsAny) {
    PayOffice office;
    office.hire(7);
    office.hire(8, PFREQ_Monthly);
    office.company.load();
    const auto two = office.open(day("2016-04-15"));
    const auto three = office.open(day("2016-04-22"));
    EXPECT_THAT(each(three, &Column::payRecord),
                ElementsAre(two.at(0).payRecord, two.at(1).payRecord, two[1].payRecord + 1));
    EXPECT_EQ(office.open(day("2016-04-15")), two);  // rows beyond the periods due stay
    // Rows of another year are out of sight.
    office.company.exec("UPDATE PRPay SET PRPPayrollYear = 16 WHERE PRPPeriodUpdated = 0");
    EXPECT_GT(office.open(day("2016-04-08")).at(0).payRecord, three[2].payRecord);
}

TEST(ImportedPay, LandsInTheFirstPeriodAndEarningsWhereTheyWereEarned) {
    PayOffice office;
    office.hire(7);
    office.hire(8);
    office.company.importedPay(7, 100).importedPay(8, 0).item(3, "Basket", 1, "each");
    office.company.order(1, 7, 3, "2016-04-12", 1, 50).order(2, 7, 3, "2016-04-13", 1, 20);
    office.company.order(3, 7, 3, "2016-04-19", 1, 5).order(4, 7, 3, "2016-04-12", 1, 7, 1);
    office.company.load();
    EXPECT_THAT(each(office.open(day("2016-04-22")), &Column::imported),
                ElementsAre(Currency::fromWhole(150), Currency::fromWhole(25), "N",  //
                            Currency(), "N", "N"));
    bool hasUnchecked = false;
    office.payroll().C_InputHoursInit(day("2016-04-08"), -1, 0, 0, nullptr, &hasUnchecked);
    EXPECT_TRUE(hasUnchecked);  // though employee 8, worked last, has none
}

}  // namespace
}  // namespace ledgerwick::test
