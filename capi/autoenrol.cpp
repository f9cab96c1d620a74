// The tables and letters of auto-enrolment.
#include "capi/session.h"
#include "capi/table.h"
#include "hostkit/office/letters.h"
#include "ledgerwick/values/utf8.h"

namespace {

using namespace ledgerwick;
using namespace ledgerwick::c;

constexpr std::string_view here = "ledgerwick_ae";

PR_AE_LETTER_TYPES letterIn(std::int32_t letter) {
    switch (letter) {
        case PR_AELT_ENROLMENT:
        case PR_AELT_POSTPONEMENT:
        case PR_AELT_NOT_ELIGIBLE:
        case PR_AELT_RE_ENROLMENT:
        case PR_AELT_ENROLMENT_ATTACH:
            return static_cast<PR_AE_LETTER_TYPES>(letter);
        default:
            raise(LEDGERWICK_INVALID_CALL, here, "letter " + std::to_string(letter));
    }
}

std::unique_ptr<Table> assessment(Session& session, std::int32_t naid, Date upTo,
                                  std::int32_t payrollYear, bool openRows) {
    const auto status = session.employee(naid)->GetAutoEnrolStatus(upTo, payrollYear, !openRows);
    auto table = std::make_unique<Table>(std::vector<std::string>{
        "naid", "first_date", "first_category", "previous_date", "previous_category",
        "current_date", "current_category", "current_change", "period_pay", "hourly_rate",
        "staff_number", "frequency", "scheme"});
    table->add({naid, status->FirstAssessDate(), status->FirstAssessCategory(),
                status->PrevAssessDate(), status->PrevAssessCategory(), status->CurrentAssessDate(),
                status->CurrentAssessCategory(), status->CurrentAssessChange(), status->PeriodPay(),
                status->StdHourlyRate(), status->StaffNo(), status->PayFrequency(),
                status->PenWorkplaceSchemeID()});
    return table;
}

}  // namespace

std::int32_t ledgerwick_ae_status(ledgerwick_session* session, ledgerwick_date up_to,
                                  std::int32_t payroll_year, std::int32_t open_rows,
                                  std::int32_t naid, ledgerwick_table** out,
                                  ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = loadedIn(session);
        if (naid != 0) company.employee(naid);
        ResultTable result = company.payroll().GetAEStatus(dateNeeded(up_to, here), payroll_year,
                                                           !flagIn(open_rows, here), naid);
        result.Sort("NameSort");
        giveHandle(out, tableOf(result));
    });
}

std::int32_t ledgerwick_ae_employees(ledgerwick_session* session, std::int32_t full,
                                     ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        ResultTable result = loadedIn(session).payroll().C_ActiveEmployees(flagIn(full, here));
        giveHandle(out, tableOf(result));
    });
}

std::int32_t ledgerwick_ae_assessment(ledgerwick_session* session, std::int32_t naid,
                                      ledgerwick_date up_to, std::int32_t payroll_year,
                                      std::int32_t open_rows, ledgerwick_table** out,
                                      ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        giveHandle(out, assessment(loadedIn(session), naid, dateNeeded(up_to, here), payroll_year,
                                   flagIn(open_rows, here)));
    });
}

std::int32_t ledgerwick_ae_scheme_changed(ledgerwick_session* session, std::int32_t scheme,
                                          ledgerwick_error* error) {
    return call(error, [&] { loadedIn(session).payroll().C_PenWorkplaceSchemeUpdate(scheme); });
}

std::int32_t ledgerwick_ae_re_enrolment_changed(ledgerwick_session* session, ledgerwick_date from,
                                                ledgerwick_date to, ledgerwick_error* error) {
    return call(error, [&] {
        loadedIn(session).payroll().C_ReEnrolDateChanged(dateNeeded(from, here),
                                                         dateNeeded(to, here));
    });
}

std::int32_t ledgerwick_ae_recipients(ledgerwick_session* session, std::int32_t letter,
                                      ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        needHandle(out, here);
        Session& company = loadedIn(session);
        auto table = std::make_unique<Table>(std::vector<std::string>{"naid", "name"});
        for (const auto& worker : office::recipients(company.host(), letterIn(letter))) {
            table->add({worker->NAID(), worker->Name()});
        }
        giveHandle(out, std::move(table));
    });
}

std::int32_t ledgerwick_ae_letter(ledgerwick_session* session, std::int32_t naid,
                                  std::int32_t letter, const char** text, ledgerwick_error* error) {
    return call(error, [&] {
        Session& company = loadedIn(session);
        const PR_AE_LETTER_TYPES type = letterIn(letter);
        const std::string whole = office::letterTo(company.host(), *company.employee(naid), type);
        if (whole.empty()) {
            CAELetterDetail kind;
            kind.LetterType(type);
            raise(LEDGERWICK_NO_SUCH_FILE, here, kind.LetterTypeText() + ".txt");
        }
        const char* const kept = company.keepText(soundUtf8(whole));
        give(text, kept);
    });
}
