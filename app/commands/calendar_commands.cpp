#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>

#include "app/commands/commands.h"
#include "app/options.h"
#include "hostkit/explain/answers.h"
#include "hostkit/explain/calendar_rules.h"
#include "hostkit/explain/look_ahead.h"
#include "hostkit/report/year_drawing.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::app {

namespace {

struct CalendarOptions {
    Date date;
    std::string database;
    explain::Controllers controllers;
    std::vector<PR_Pay_Freq> frequencies;  // all of them when empty
    int year = 0;
    int years = 1;
    Date first;
    std::string picture;
};

bool isWanted(const CalendarOptions& options, PR_Pay_Freq frequency) {
    const auto& chosen = options.frequencies;
    return chosen.empty() || std::find(chosen.begin(), chosen.end(), frequency) != chosen.end();
}

// ---- a date --------------------------------------------------------------------------------------

void showDate(const Context& context, const CalendarOptions& options) {
    const Date date = options.date;
    const int year = calendar::taxYearOf(date);
    Report report;
    report.say(formatDate(date, "dddd d mmmm yyyy") + ": tax year " + explain::taxYearText(year) +
               ", payroll year " + std::to_string(calendar::payrollYearOf(date)) + ", tax week " +
               std::to_string(calendar::taxWeek(date)) + ", tax month " +
               std::to_string(calendar::taxMonth(date)));
    report.fact("date", date);
    report.fact("tax_year", explain::taxYearText(year));
    report.fact("payroll_year", calendar::payrollYearOf(date));
    report.fact("tax_week", calendar::taxWeek(date));
    report.fact("tax_month", calendar::taxMonth(date));
    Table& table = report.table("periods", {"frequency", "period", "first_day", "last_day",
                                            "reference_first", "reference_last"});
    for (const explain::FrequencyRules& rules : explain::frequencyRules()) {
        if (rules.periodName.empty() || !isWanted(options, rules.frequency)) continue;
        const auto period = calendar::taxPeriod(date, rules.code(), "calendar");
        const auto reference =
            calendar::payReferencePeriod(date, rules.code(), options.controllers.startDay);
        table.add({frequencyName(rules.frequency),
                   calendar::taxPeriodNumber(date, rules.code(), "calendar"), period.first,
                   period.last, reference.first, reference.last});
    }
    context.show(report);
}

// ---- years ahead ---------------------------------------------------------------------------------

// Whose pay dates to look ahead at: those of the company's employees, each from the date expected
// next, or every frequency from one date.
std::vector<explain::Payer> payers(const CalendarOptions& options, HostSession* session) {
    std::vector<explain::Payer> all;
    if (session) {
        all = explain::payersOf(*session);
    } else {
        const Date first =
            options.first.isSet() ? options.first : explain::firstFriday(options.year);
        for (const explain::FrequencyRules& rules : explain::frequencyRules()) {
            if (!rules.periodName.empty()) all.push_back({rules.frequency, first});
        }
    }
    std::erase_if(all,
                  [&](const explain::Payer& payer) { return !isWanted(options, payer.frequency); });
    return all;
}

// The pay dates of a year, by frequency and date; two that count from different days can meet.
std::vector<explain::PayDate> datesOf(int year, const std::vector<explain::Payer>& all,
                                      const explain::Controllers& controllers) {
    std::vector<explain::PayDate> dates;
    for (auto payer = all.begin(); payer != all.end();) {
        std::map<std::int32_t, explain::PayDate> byDay;
        const PR_Pay_Freq frequency = payer->frequency;
        for (; payer != all.end() && payer->frequency == frequency; ++payer) {
            for (const explain::PayDate& each :
                 explain::payDatesOf(year, frequency, payer->first, controllers)) {
                byDay.emplace(each.date.dayNumber(), each);
            }
        }
        for (const auto& [day, each] : byDay) dates.push_back(each);
    }
    return dates;
}

std::string yearSentence(int year, const std::vector<explain::PayDate>& dates) {
    std::string sentence = explain::taxYearText(year) + ":";
    bool any = false;
    for (const explain::PayDate& each : dates) {
        if (!each.isLeftOver) continue;
        sentence += std::string(any ? ", " : " ") +
                    explain::periodText(explain::rulesOf(each.frequency), each.date) + " on " +
                    formatDate(each.date, "dddd d mmmm yyyy");
        any = true;
    }
    return sentence + (any ? "" : " no pay date in the days left over");
}

void drawPicture(const CalendarOptions& options, const std::vector<explain::PayDate>& dates) {
    report::YearDrawing drawing{.taxYear = options.year};
    for (const explain::PayDate& each : dates) drawing.marks.push_back({each.date, each.frequency});
    std::ofstream out(options.picture, std::ios::binary);
    out << report::drawYear(drawing);
    out.close();
    if (!out) throw std::runtime_error("cannot write " + options.picture);
}

void lookAhead(const Context& context, const CalendarOptions& chosen) {
    CalendarOptions options = chosen;
    std::unique_ptr<HostSession> session;
    if (!options.database.empty()) {
        session = openCompany(context, options.database);
        options.controllers = explain::controllersOf(*session);
    }
    const auto all = payers(options, session.get());
    Report report;
    Table table("pay_dates", {"tax_year", "frequency", "pay_date", "weekday", "period", "tax_week",
                              "left_over"});
    for (int year = options.year; year < options.year + options.years; ++year) {
        const std::vector<explain::PayDate> dates = datesOf(year, all, options.controllers);
        for (const explain::PayDate& each : dates) {
            const explain::FrequencyRules& rules = explain::rulesOf(each.frequency);
            table.add(
                {explain::taxYearText(year), frequencyName(each.frequency), each.date,
                 formatDate(each.date, "dddd"), each.period, calendar::taxWeek(each.date),
                 each.isLeftOver ? Variant(explain::periodText(rules, each.date)) : Variant()});
        }
        report.say(yearSentence(year, dates));
        if (year == options.year && !options.picture.empty()) drawPicture(options, dates);
    }
    report.table(std::move(table));
    context.show(report);
}

void runCalendar(const Context& context, const CalendarOptions& options) {
    if (options.date.isSet()) {
        showDate(context, options);
    } else {
        lookAhead(context, options);
    }
}

// ---- why a date is what it is --------------------------------------------------------------------

// Tells an answer twice: to people in two lines, to programs as a row.
void tell(const explain::Answer& answer, Report& report, Table& table) {
    std::string line = answer.question + ": " + readable(answer.number);
    const std::string separator = answer.number.isEmpty() ? "" : ", ";
    if (answer.date.isSet()) line += separator + formatDate(answer.date, "dddd d mmmm yyyy");
    if (answer.lastDay.isSet()) line += " to " + formatDate(answer.lastDay, "dddd d mmmm yyyy");
    report.say("  " + line);
    report.say("      " + std::string(answer.rule->words) + " [" +
               std::string(answer.rule->source) +
               (answer.controller.empty() ? "" : "; " + answer.controller) + "]");
    table.add({answer.frequency ? frequencyName(*answer.frequency) : "", answer.question,
               answer.number, answer.date, answer.lastDay, std::string(answer.rule->words),
               std::string(answer.rule->source), answer.controller});
}

void runExplain(const Context& context, const CalendarOptions& options) {
    explain::Controllers controllers = options.controllers;
    if (!options.database.empty()) {
        controllers = explain::controllersOf(*openCompany(context, options.database));
    }
    Report report;
    report.say(formatDate(options.date, "dddd d mmmm yyyy"));
    report.fact("date", options.date);
    Table& table = report.dataTable("answers", {"frequency", "question", "answer", "date",
                                                "last_day", "rule", "source", "controller"});
    std::optional<PR_Pay_Freq> last;
    for (const auto& answer :
         explain::explainDate(options.date, options.frequencies, controllers)) {
        if (answer.frequency != last) {
            last = answer.frequency;
            report.say("");
            report.say(frequencyName(*last) + ", pay period code " +
                       std::to_string(explain::rulesOf(*last).code()));
        }
        tell(answer, report, table);
    }
    context.show(report);
}

// ---- options -------------------------------------------------------------------------------------

void addFrequencies(CLI::App& command, std::vector<PR_Pay_Freq>& frequencies) {
    const auto read = [&frequencies](const std::string& names) {
        std::istringstream in(names);
        for (std::string name; std::getline(in, name, ',');) {
            const auto found = frequencyOf(name);
            if (!found) {
                throw CLI::ValidationError("\"" + name + "\" is not one of " + frequencyNames());
            }
            if (*found != PFREQ_SelAll) frequencies.push_back(*found);
        }
    };
    command
        .add_option_function<std::string>("--frequency", read,
                                          "Only these, parted by commas: " + frequencyNames())
        ->type_name("NAMES");
}

CLI::Option* addPayRule(CLI::App& command, explain::Controllers& controllers) {
    return command
        .add_option(
            "--pay-rule", controllers.payRule,
            "The monthly pay day, as in PRNExpD_M1: 0 the last day, 1 to 31 that day, -1 to "
            "-7 the last Sunday to Saturday")
        ->check(CLI::Range(-32768, 31));
}

CLI::Option* addStartDay(CLI::App& command, explain::Controllers& controllers) {
    return command
        .add_option("--start-day", controllers.startDay,
                    "First day of a weekly reference period, 1 = Sunday; 0 follows the tax week")
        ->check(CLI::Range(0, 7));
}

void addCalendar(CLI::App& app, Context& context) {
    const auto options = std::make_shared<CalendarOptions>();
    auto* command = app.add_subcommand(
        "calendar", "Tax year, week, month and periods of a date; the pay dates of years");
    auto* date = addDate(*command, "DATE", options->date, "The date");
    auto* startDay = addStartDay(*command, options->controllers)->needs(date);
    auto* year = command
                     ->add_option("--year", options->year,
                                  "The pay dates of the tax year that begins in this one instead")
                     ->excludes(date)
                     ->excludes(startDay)
                     ->check(CLI::Range(1900, 9900));
    command->add_option("--years", options->years, "Of so many years from that one")
        ->needs(year)
        ->check(CLI::Range(1, 99));
    addFrequencies(*command, options->frequencies);
    auto* first = addDate(*command, "--first-pay", options->first,
                          "A pay date to count from; else the first Friday of the year");
    first->needs(year);
    auto* payRule = addPayRule(*command, options->controllers)->needs(year);
    command
        ->add_option("--db", options->database,
                     "The company whose frequencies, expected dates and rules to take")
        ->needs(year)
        ->excludes(first)
        ->excludes(payRule);
    command->add_option("--svg", options->picture, "Draw the first year into this file")
        ->needs(year);
    command->callback([&context, options] {
        if (!options->date.isSet() && options->year == 0) {
            throw CLI::ValidationError("DATE or --year is required");
        }
        context.action = [&context, options] { runCalendar(context, *options); };
    });
}

void addExplain(CLI::App& app, Context& context) {
    const auto options = std::make_shared<CalendarOptions>();
    auto* command = app.add_subcommand(
        "explain", "Why a date has its week, month and periods, and which dates come next");
    addDate(*command, "DATE", options->date,
            "The date; for the expected dates, the one to count from")
        ->required();
    addFrequencies(*command, options->frequencies);
    auto* payRule = addPayRule(*command, options->controllers);
    auto* periodRule = command
                           ->add_option("--period-rule", options->controllers.periodRule,
                                        "The monthly end of period, as in PREPED_M1")
                           ->check(CLI::Range(-32768, 31));
    auto* startDay = addStartDay(*command, options->controllers);
    command->add_option("--db", options->database, "The company whose rules to take")
        ->excludes(payRule)
        ->excludes(periodRule)
        ->excludes(startDay);
    command->callback([&context, options] {
        context.action = [&context, options] { runExplain(context, *options); };
    });
}

}  // namespace

void addCalendarCommands(CLI::App& app, Context& context) {
    addCalendar(app, context);
    addExplain(app, context);
}

}  // namespace ledgerwick::app
