#include "hostkit/office/letters.h"

#include <array>

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
struct CompanyValue {
    LetterValue value;
    const char* parameter;
    void (*let)(CAELetterDetail&, const Variant&, const char* parameter);
};

template <void (CAELetterDetail::*let)(Currency)>
void letMoney(CAELetterDetail& letter, const Variant& value, const char* parameter) {
    (letter.*let)(value.toCurrency(parameter));
}

template <void (CAELetterDetail::*let)(float)>
void letPercent(CAELetterDetail& letter, const Variant& value, const char* parameter) {
    (letter.*let)(value.toSingle(parameter));
}

void letAge(CAELetterDetail& letter, const Variant& value, const char* parameter) {
    letter.AETriggerAge(value.toInt16(parameter));
}

void letProvider(CAELetterDetail& letter, const Variant& value, const char*) {
    letter.PensionProvider(value.toText());
}

using Letter = CAELetterDetail;
using enum LetterValue;
constexpr std::array companyValues{
    CompanyValue{AETriggerGBP_M, "AETriggerMonth", letMoney<&Letter::AETriggerGBP_M>},
    CompanyValue{AETriggerGBP_A, "AETriggerYear", letMoney<&Letter::AETriggerGBP_A>},
    CompanyValue{AETriggerGBP_W, "AETriggerWeek", letMoney<&Letter::AETriggerGBP_W>},
    CompanyValue{LELGBP_M, "LELMonth", letMoney<&Letter::LELGBP_M>},
    CompanyValue{LELGBP_W, "LELWeek", letMoney<&Letter::LELGBP_W>},
    CompanyValue{AEMinContribPct, "AEMinContrib", letPercent<&Letter::AEMinContribPct>},
    CompanyValue{AEMinEmployerContribPct, "AEMinEmployerContrib",
                 letPercent<&Letter::AEMinEmployerContribPct>},
    CompanyValue{AEMinEmployeeContribPct, "AEMinEmployeeContrib",
                 letPercent<&Letter::AEMinEmployeeContribPct>},
    CompanyValue{AETriggerAge, "AETriggerAge", letAge},
    CompanyValue{PensionProvider, "PensionProvider", letProvider},
};

void fillFigures(KitParameters& parameters, CAELetterDetail& letter) {
    for (const auto& each : companyValues) {
        if (!parameters.Has(each.parameter)) continue;
        each.let(letter, parameters.Get(each.parameter), each.parameter);
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

std::optional<PR_AE_LETTER_TYPES> letterTypeOfTemplate(std::string_view fileName) {
    for (const auto& entry : letterNames) {
        CAELetterDetail letter;
        letter.LetterType(entry.type);
        if (letter.LetterTypeText() + ".txt" == fileName) return entry.type;
    }
    return std::nullopt;
}

std::string whyUnfilled(LetterValue value, std::optional<PR_AE_LETTER_TYPES> type,
                        const KitParameters* parameters) {
    if (value == LetterValue::AEPostponementEndDate && type && *type != PR_AELT_POSTPONEMENT) {
        return "only letters of postponement are sure to fill it";
    }
    if (parameters == nullptr) return {};
    for (const auto& each : companyValues) {
        if (each.value != value || parameters->Has(each.parameter)) continue;
        return std::string("the company has no parameter ") + each.parameter;
    }
    return {};
}

std::vector<std::shared_ptr<cEmployee>> recipients(HostSession& session, PR_AE_LETTER_TYPES type) {
    std::vector<std::shared_ptr<cEmployee>> found;
    for (const auto& employee : session.list().Employees()) {
        if (isRegularActive(*employee) && receives(session, *employee, type))
            found.push_back(employee);
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
