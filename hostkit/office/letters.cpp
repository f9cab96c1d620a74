#include "hostkit/office/letters.h"

#include <array>

#include "hostkit/office/pay_run.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::office {

namespace {

struct LetterName {
    PR_AE_LETTER_TYPES type;
    std::string_view name;
};

constexpr std::array letterNames{
    LetterName{PR_AELT_ENROLMENT, "enrolment"},
    LetterName{PR_AELT_POSTPONEMENT, "postponement"},
    LetterName{PR_AELT_NOT_ELIGIBLE, "not-eligible"},
    LetterName{PR_AELT_RE_ENROLMENT, "re-enrolment"},
    LetterName{PR_AELT_ENROLMENT_ATTACH, "attachment"},
};

// The figures and words that every letter of a company shares, by the parameters that hold them. A
// parameter that is not there leaves its placeholder in the letter.
struct MoneyFigure {
    const char* parameter;
    void (CAELetterDetail::*let)(Currency);
};
constexpr std::array moneyFigures{
    MoneyFigure{"AETriggerMonth", &CAELetterDetail::AETriggerGBP_M},
    MoneyFigure{"AETriggerYear", &CAELetterDetail::AETriggerGBP_A},
    MoneyFigure{"AETriggerWeek", &CAELetterDetail::AETriggerGBP_W},
    MoneyFigure{"LELMonth", &CAELetterDetail::LELGBP_M},
    MoneyFigure{"LELWeek", &CAELetterDetail::LELGBP_W},
};
struct PercentFigure {
    const char* parameter;
    void (CAELetterDetail::*let)(float);
};
constexpr std::array percentFigures{
    PercentFigure{"AEMinContrib", &CAELetterDetail::AEMinContribPct},
    PercentFigure{"AEMinEmployerContrib", &CAELetterDetail::AEMinEmployerContribPct},
    PercentFigure{"AEMinEmployeeContrib", &CAELetterDetail::AEMinEmployeeContribPct},
};

void fillFigures(KitParameters& parameters, CAELetterDetail& letter) {
    for (const auto& figure : moneyFigures) {
        if (!parameters.Has(figure.parameter)) continue;
        (letter.*figure.let)(parameters.Get(figure.parameter).toCurrency(figure.parameter));
    }
    for (const auto& figure : percentFigures) {
        if (!parameters.Has(figure.parameter)) continue;
        (letter.*figure.let)(parameters.Get(figure.parameter).toSingle(figure.parameter));
    }
    if (parameters.Has("AETriggerAge")) {
        letter.AETriggerAge(parameters.Get("AETriggerAge").toInt16("AETriggerAge"));
    }
    if (parameters.Has("PensionProvider")) {
        letter.PensionProvider(parameters.Get("PensionProvider").toText());
    }
    letter.EmployerSchemeName(parameters.Get("EmployerSchemeName", Variant("")).toText());
}

void fillWorker(cEmployee& employee, CAELetterDetail& letter) {
    letter.EmployeeForename(employee.Forename1());
    letter.EmployeeName(employee.Name());
    letter.EmployeeNINO(employee.NINO());
    letter.EmployeeDoB(employee.DOB());
    letter.PenWorkplaceSchemeID(employee.PenWorkplaceSchemeID());
    letter.PayDateFull(employee.CurEmployment()->NExpPayDate());
    if (employee.AEPostponementDate().isSet()) {
        letter.AEPostponementEndDate(employee.AEPostponementDate());
    }
    letter.AddAddressLine(employee.Name());
    constexpr std::int32_t addressLines = 6;
    const Variant address = employee.Address(addressLines);
    for (std::int32_t i = 1; i <= addressLines; ++i) {
        const Variant& line = address.array().at(i);
        if (!line.isEmpty() && !line.toText().empty()) letter.AddAddressLine(line.toText());
    }
}

bool takesPart(cEmployee& employee) {
    return employee.PenWorkplaceSchemeID() != 0;
}

bool isPostponed(HostSession& session, cEmployee& employee) {
    return employee.AEPostponementDate() >= session.state().g_dtmToday();
}

bool receives(HostSession& session, cEmployee& employee, PR_AE_LETTER_TYPES type) {
    switch (type) {
        case PR_AELT_POSTPONEMENT:
            return isPostponed(session, employee);
        case PR_AELT_NOT_ELIGIBLE:
            return !takesPart(employee) && !isPostponed(session, employee);
        default:
            return takesPart(employee);
    }
}

}  // namespace

std::optional<PR_AE_LETTER_TYPES> letterTypeOf(std::string_view name) {
    for (const auto& entry : letterNames) {
        if (equalsIgnoringCase(entry.name, name)) return entry.type;
    }
    return std::nullopt;
}

std::string letterTypeNames() {
    std::string names;
    for (const auto& entry : letterNames) {
        if (!names.empty()) names += ", ";
        names += entry.name;
    }
    return names;
}

std::vector<std::shared_ptr<cEmployee>> recipients(HostSession& session, PR_AE_LETTER_TYPES type) {
    std::vector<std::shared_ptr<cEmployee>> found;
    for (const auto& employee : session.list().Employees()) {
        if (isRegular(*employee) && receives(session, *employee, type)) found.push_back(employee);
    }
    return found;
}

std::string letterTo(HostSession& session, cEmployee& employee, PR_AE_LETTER_TYPES type) {
    CAELetterDetail letter;
    letter.LetterType(type);
    letter.PayrollYear(static_cast<std::int16_t>(DLLGlobal::currentPayrollYear()));
    fillFigures(session.parameters(), letter);
    fillWorker(employee, letter);
    const std::string body = letter.LetterText();
    if (body.empty()) return {};
    const std::string text = letter.EmployeeAddress() + "\n\n" +
                             formatDate(letter.LetterDate(), "d mmmm yyyy") + "\n\n" +
                             letter.LetterHeadingText() + "\n\n" + body;
    return replaceAll(text, "\r\n", "\n");
}

}  // namespace ledgerwick::office
