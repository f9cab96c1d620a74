// What a pay office asks of a company: its faults, the reasons for its dates and figures, and the
// pay dates to come.
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "capi/session.h"
#include "capi/table.h"
#include "hostkit/audit/audit.h"
#include "hostkit/explain/answers.h"
#include "hostkit/explain/look_ahead.h"
#include "hostkit/history/figures.h"
#include "hostkit/office/company.h"
#include "hostkit/office/letters.h"
#include "hostkit/office/pay_run.h"
#include "hostkit/office/template_check.h"
#include "hostkit/recording/recording_database.h"
#include "hostkit/report/pay_date_page.h"

namespace {

using namespace ledgerwick;
using namespace ledgerwick::c;

const char* wordFor(audit::Severity severity) {
    switch (severity) {
        case audit::Severity::Stops:
            return "stops";
        case audit::Severity::Figures:
            return "figures";
        default:
            return "note";
    }
}

// On a list of its own: an audit empties the one that it works on.
std::unique_ptr<Table> audited(Session& session) {
    HostSession apart(session.sharedDatabase(), session.host().state().g_dtmToday());
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "severity", "kind", "table", "key", "naid", "name", "what", "error", "what_to_do"});
    for (const audit::Finding& each : audit::auditCompany(apart.list(), apart.payroll())) {
        table->add({wordFor(each.kind->severity), each.kind->name, each.table, each.key,
                    each.naid == 0 ? Variant() : Variant(each.naid), each.name, each.what,
                    each.error == 0 ? Variant() : Variant(each.error), each.kind->advice});
    }
    return table;
}

std::unique_ptr<Table> explained(Session& session, Date date, PR_Pay_Freq frequency) {
    const std::array one{frequency};
    const auto chosen = frequency == PFREQ_SelAll ? std::span<const PR_Pay_Freq>() : one;
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "frequency", "question", "answer", "date", "last_day", "rule", "source", "controller"});
    for (const explain::Answer& each :
         explain::explainDate(date, chosen, explain::controllersOf(session.host()))) {
        table->add({each.frequency ? Variant(std::int16_t{*each.frequency}) : Variant(),
                    each.question,
                    each.number.isEmpty() ? Variant() : Variant(each.number.toText()), each.date,
                    each.lastDay, each.rule->words, each.rule->source, each.controller});
    }
    return table;
}

std::unique_ptr<Table> payDates(Session& session, std::int32_t taxYear, std::int32_t years) {
    const explain::Controllers controllers = explain::controllersOf(session.host());
    const auto payers = explain::payersOf(session.host());
    auto table = std::make_unique<Table>(
        std::vector<std::string>{"pay_date", "frequency", "tax_year", "period", "left_over"});
    for (std::int32_t year = taxYear; year < taxYear + years; ++year) {
        for (const explain::Payer& payer : payers) {
            for (const explain::PayDate& each :
                 explain::payDatesOf(year, payer.frequency, payer.first, controllers)) {
                table->add(
                    {each.date, std::int16_t{each.frequency}, year, each.period, each.isLeftOver});
            }
        }
    }
    return table;
}

std::unique_ptr<Table> figures(Session& session, std::int32_t naid) {
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "prtid", "payroll_year", "figure", "value", "prpid", "pay_date", "week"});
    for (const auto& [employment, all] : history::figuresOf(*session.employee(naid))) {
        for (const history::Figure& each : all) {
            const bool hasRow = each.source.prpid != 0;
            table->add({employment->PRTID(), employment->PayrollYear(), each.name, each.value,
                        hasRow ? Variant(each.source.prpid) : Variant(), each.source.payDate,
                        hasRow ? Variant(each.source.week) : Variant()});
        }
    }
    return table;
}

const char* wordFor(recording::ChangeKind kind) {
    switch (kind) {
        case recording::ChangeKind::Added:
            return "added";
        case recording::ChangeKind::Changed:
            return "changed";
        default:
            return "removed";
    }
}

// The step is taken on a session of its own, by the code that would take it, and taken back.
std::unique_ptr<Table> planned(Session& session, std::int32_t step, const office::Selection& run) {
    const auto recording = std::make_shared<RecordingDatabase>(session.sharedDatabase());
    HostSession apart(recording, session.host().state().g_dtmToday());
    office::loadEmployed(apart);
    auto table = std::make_unique<Table>(
        std::vector<std::string>{"naid", "name", "change", "table", "key", "field", "from", "to"});
    session.database().rehearse([&] {
        if (step == LEDGERWICK_PLAN_OPEN) {
            office::openRun(apart, run);
        } else {
            office::markCalculated(apart, run);
            office::closeRun(apart, run);
        }
        for (const recording::RowChange& change : recording->changes()) {
            const auto employee = apart.list().GetEmployeeByNAID(change.naid);
            for (const recording::FieldChange& field : change.fields) {
                table->add({change.naid, employee ? employee->Name() : std::string(),
                            wordFor(change.kind), change.table, change.key, field.field, field.from,
                            field.to});
            }
        }
    });
    return table;
}

std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) raise(LEDGERWICK_NO_SUCH_FILE, "ledgerwick_ae_check_template", path);
    std::ostringstream content;
    content << in.rdbuf();
    return std::move(content).str();
}

std::unique_ptr<Table> templateFaults(Session& session, const std::string& path) {
    const auto name = std::filesystem::path(path).filename().string();
    const auto type = office::letterTypeOfTemplate(name);
    auto table = std::make_unique<Table>(std::vector<std::string>{"line", "column", "fault"});
    const std::string content = contentOf(path);
    if (!type) table->add({1, 1, "no letter is made from a file of this name"});
    const auto why = [&](LetterValue value) {
        return office::whyUnfilled(value, type, &session.host().parameters());
    };
    for (const office::TemplateFault& each : office::templateFaults(content, why)) {
        table->add({static_cast<std::int64_t>(each.line), static_cast<std::int64_t>(each.column),
                    each.what});
    }
    return table;
}

}  // namespace

std::int32_t ledgerwick_audit(ledgerwick_session* session, ledgerwick_table** out,
                              ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, "ledgerwick_audit");
        auto table = audited(sessionIn(session));
        giveHandle(out, std::move(table));
    });
}

std::int32_t ledgerwick_run_plan(ledgerwick_session* session, std::int32_t step,
                                 ledgerwick_date pay_date, std::int32_t frequency,
                                 std::int32_t group, std::int32_t naid, ledgerwick_table** out,
                                 ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_run_plan";
        needHandle(out, here);
        Session& company = sessionIn(session);
        if (step != LEDGERWICK_PLAN_OPEN && step != LEDGERWICK_PLAN_CLOSE) {
            raise(LEDGERWICK_INVALID_CALL, here, "step " + std::to_string(step));
        }
        if (naid != 0) company.employee(naid);
        auto table = planned(
            company, step, {dateNeeded(pay_date, here), frequencyIn(frequency, true), group, naid});
        sessionIn(session);  // in force again
        giveHandle(out, std::move(table));
    });
}

std::int32_t ledgerwick_report(ledgerwick_session* session, ledgerwick_date pay_date,
                               const char* company, const char** html, ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_report";
        Session& opened = sessionIn(session);
        const char* const kept = opened.keepText(
            report::payDatePage(opened.host(), textIn(company, here), dateNeeded(pay_date, here)));
        give(html, kept);
    });
}

std::int32_t ledgerwick_explain(ledgerwick_session* session, ledgerwick_date date,
                                std::int32_t frequency, ledgerwick_table** out,
                                ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_explain";
        needHandle(out, here);
        giveHandle(out, explained(sessionIn(session), dateNeeded(date, here),
                                  frequencyIn(frequency, true)));
    });
}

std::int32_t ledgerwick_pay_dates(ledgerwick_session* session, std::int32_t tax_year,
                                  std::int32_t years, ledgerwick_table** out,
                                  ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_pay_dates";
        needHandle(out, here);
        Session& company = loadedIn(session);
        constexpr std::int32_t most = 100;
        if (tax_year < firstTaxYear || years < 0 || years > most || tax_year > lastTaxYear) {
            raise(LEDGERWICK_INVALID_CALL, here,
                  std::to_string(years) + " years from " + std::to_string(tax_year));
        }
        giveHandle(out, payDates(company, tax_year, years));
    });
}

std::int32_t ledgerwick_figures(ledgerwick_session* session, std::int32_t naid,
                                ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, "ledgerwick_figures");
        giveHandle(out, figures(loadedIn(session), naid));
    });
}

std::int32_t ledgerwick_ae_check_template(ledgerwick_session* session, const char* path,
                                          ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_ae_check_template";
        needHandle(out, here);
        giveHandle(out, templateFaults(sessionIn(session), textIn(path, here)));
    });
}
