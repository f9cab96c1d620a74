// Every plain stored value of an employee and an employment: it begins blank, what is set is read
// back, and nothing else moves.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ledgerwick/employee/employee.h"

namespace ledgerwick::test {
namespace {

template <class Owner>
struct Pair {
    std::string name;
    std::function<void(Owner&)> set;  // empty for a value that is only read
    std::function<Variant(Owner&)> get;
    Variant value;
};

// A value of each type that is not the one a new object has.
template <class T>
T sample();
template <>
bool sample() {
    return true;
}
template <>
std::int16_t sample() {
    return -321;
}
template <>
std::int32_t sample() {
    return 2000000001;
}
template <>
float sample() {
    return 1.5F;
}
template <>
Currency sample() {
    return Currency::fromTicks(-123456789);
}
template <>
Date sample() {
    return Date(42489.75);
}
template <>
std::string sample() {
    return "A text that does not fit in place";
}
template <>
PR_EmpType sample() {
    return PR_ET_Casual;
}

Variant asVariant(const auto& value) {
    if constexpr (std::is_same_v<std::decay_t<decltype(value)>, PR_EmpType>) {
        return static_cast<std::int16_t>(value);
    } else {
        return value;
    }
}

template <class Owner, class T>
Pair<Owner> plain(std::string name, Property<T> Owner::*property) {
    return {std::move(name), [property](Owner& owner) { (owner.*property)(sample<T>()); },
            [property](Owner& owner) { return asVariant((owner.*property)()); },
            asVariant(sample<T>())};
}

// A pair of functions over the value `T`.
template <class T, class Owner>
Pair<Owner> pairOf(std::string name, void (*set)(Owner&, T), Variant (*get)(Owner&)) {
    return {std::move(name), [set](Owner& owner) { set(owner, sample<T>()); }, get,
            asVariant(sample<T>())};
}

template <class Owner>
Pair<Owner> readOnly(std::string name, Variant (*get)(Owner&)) {
    return {std::move(name), {}, get, {}};
}

bool isBlank(const Variant& value) {
    if (value.kind() == VariantKind::Text) return value.textView().empty();
    return value.isEmpty() || value.toDouble() == 0;
}

template <class Owner>
void sweep(const std::vector<Pair<Owner>>& pairs) {
    Owner fresh;
    for (const auto& pair : pairs) EXPECT_TRUE(isBlank(pair.get(fresh))) << "new " << pair.name;
    for (const auto& changed : pairs) {
        if (!changed.set) continue;
        SCOPED_TRACE("set " + changed.name);
        Owner owner;
        changed.set(owner);
        for (const auto& read : pairs) {
            const Variant& expected = read.name == changed.name ? read.value : read.get(fresh);
            EXPECT_TRUE(read.get(owner) == expected) << "read " << read.name;
        }
    }
}

using E = cEmployee;

const std::vector<Pair<E>> employeePairs{
    plain("Group", &E::Group),
    plain("Active", &E::Active),
    plain("IID", &E::IID),
    pairOf<std::int32_t, E>(
        "OtherID", [](E& e, std::int32_t v) { e.OtherID(v); },
        [](E& e) -> Variant { return e.OtherID(); }),
    plain("NAID", &E::NAID),
    plain("SortSeq", &E::SortSeq),
    pairOf<std::string, E>(
        "NINO", [](E& e, std::string v) { e.NINO(v); }, [](E& e) -> Variant { return e.NINO(); }),
    plain("HourlyPaid", &E::HourlyPaid),
    plain("NINODuplicated", &E::NINODuplicated),
    plain("IIDDuplicated", &E::IIDDuplicated),
    plain("Sex", &E::Sex),
    pairOf<std::string, E>(
        "Add1", [](E& e, std::string v) { e.Add1(v); }, [](E& e) -> Variant { return e.Add1(); }),
    pairOf<std::string, E>(
        "Add2", [](E& e, std::string v) { e.Add2(v); }, [](E& e) -> Variant { return e.Add2(); }),
    pairOf<std::string, E>(
        "PostCode", [](E& e, std::string v) { e.PostCode(v); },
        [](E& e) -> Variant { return e.PostCode(); }),
    plain("Email", &E::Email),
    plain("Phone_Home", &E::Phone_Home),
    plain("Phone_Mobile", &E::Phone_Mobile),
    plain("Phone_Work", &E::Phone_Work),
    plain("DOB", &E::DOB),
    pairOf<std::string, E>(
        "Village", [](E& e, std::string v) { e.Village(v); },
        [](E& e) -> Variant { return e.Village(); }),
    pairOf<std::string, E>(
        "Town", [](E& e, std::string v) { e.Town(v); }, [](E& e) -> Variant { return e.Town(); }),
    pairOf<std::string, E>(
        "County", [](E& e, std::string v) { e.County(v); },
        [](E& e) -> Variant { return e.County(); }),
    pairOf<std::string, E>(
        "Country", [](E& e, std::string v) { e.Country(v); },
        [](E& e) -> Variant { return e.Country(); }),
    plain("AEOptInDate", &E::AEOptInDate),
    plain("AEJoinedDate", &E::AEJoinedDate),
    plain("AEPostponementDate", &E::AEPostponementDate),
    plain("Casual", &E::Casual),
    plain("PayFrequency", &E::PayFrequency),
    plain("Seq", &E::Seq),
    plain("Director", &E::Director),
    plain("NITable", &E::NITable),
    plain("TaxCode", &E::TaxCode),
    plain("PenWorkplaceSchemeID", &E::PenWorkplaceSchemeID),
    plain("PenWorkplaceUseSchemeRates", &E::PenWorkplaceUseSchemeRates),
    plain("PenWorkplaceEEDeductPC", &E::PenWorkplaceEEDeductPC),
    plain("PenWorkplaceERDeductPC", &E::PenWorkplaceERDeductPC),
    plain("PenWorkplaceEEDeductFlat", &E::PenWorkplaceEEDeductFlat),
    plain("PenWorkplaceERDeductFlat", &E::PenWorkplaceERDeductFlat),
    plain("HourlyRate", &E::HourlyRate),
    plain("PeriodRate", &E::PeriodRate),
    plain("UserRef", &E::UserRef),
    plain("HolidayAllowance", &E::HolidayAllowance),
    readOnly<E>("BusName", [](E& e) -> Variant { return e.BusName(); }),
    readOnly<E>("Name", [](E& e) -> Variant { return e.Name(); }),
    readOnly<E>("ShortName", [](E& e) -> Variant { return e.ShortName(); }),
    readOnly<E>("Forenames", [](E& e) -> Variant { return e.Forenames(); }),
    readOnly<E>("MostRecentEmploymentPRTID",
                [](E& e) -> Variant { return e.MostRecentEmploymentPRTID(); }),
    readOnly<E>("PreviousEmploymentPRTID",
                [](E& e) -> Variant { return e.PreviousEmploymentPRTID(); }),
    readOnly<E>("Employments", [](E& e) -> Variant { return e.Employments().Count(); }),
};

TEST(Employee, PlainPropertiesBeginBlankAndStoreTheirOwnValueOnly) {
    sweep(employeePairs);
}

using M = cEmployment;

const std::vector<Pair<M>> employmentPairs{
    plain("PRTID", &M::PRTID),
    plain("PayrollYear", &M::PayrollYear),
    plain("EmployCount", &M::EmployCount),
    plain("EndDate", &M::EndDate),
    plain("Active", &M::Active),
    plain("AEStatusStart", &M::AEStatusStart),
    plain("Continuation", &M::Continuation),
    plain("AEContinuation", &M::AEContinuation),
    plain("EmpType", &M::EmpType),
    plain("LastEPEDate", &M::LastEPEDate),
    plain("LastWeekNo", &M::LastWeekNo),
    plain("LastPayDate", &M::LastPayDate),
    plain("LastPayFreq", &M::LastPayFreq),
    plain("PaymentsExist", &M::PaymentsExist),
    plain("LastUD_PRPID", &M::LastUD_PRPID),
    plain("LastMonthNo", &M::LastMonthNo),
    plain("HasImportedPay", &M::HasImportedPay),
    plain("ImportedPayValue", &M::ImportedPayValue),
    plain("LExpPayDate", &M::LExpPayDate),
    plain("StartDate", &M::StartDate),
    plain("HMRCStartDate", &M::HMRCStartDate),
    plain("ContinuationOfPRTID", &M::ContinuationOfPRTID),
    plain("FirstPRPID", &M::FirstPRPID),
    plain("SLCurStatus", &M::SLCurStatus),
    plain("SLLastKnownPlan", &M::SLLastKnownPlan),
    readOnly<M>("PRTStartDate", [](M& m) -> Variant { return m.PRTStartDate(); }),
    readOnly<M>("NExpPayDate", [](M& m) -> Variant { return m.NExpPayDate(); }),
    readOnly<M>("NExpEPEDate", [](M& m) -> Variant { return m.NExpEPEDate(); }),
    readOnly<M>("FirstEPEDate", [](M& m) -> Variant { return m.FirstEPEDate(); }),
    readOnly<M>("AEStatusCur", [](M& m) -> Variant { return m.AEStatusCur(); }),
    readOnly<M>("NExpPRP", [](M& m) -> Variant { return m.NExpPRP(); }),
    readOnly<M>("LExpPRP", [](M& m) -> Variant { return m.LExpPRP(); }),
    readOnly<M>("LastRTISet", [](M& m) -> Variant { return m.LastRTISet(); }),
    readOnly<M>("LastRTI", [](M& m) -> Variant { return m.LastRTI(); }),
    readOnly<M>("SMPCurStatus", [](M& m) -> Variant { return m.SMPCurStatus(); }),
    readOnly<M>("SMPConsecutiveWeeks", [](M& m) -> Variant { return m.SMPConsecutiveWeeks(); }),
    readOnly<M>("SAPCurStatus", [](M& m) -> Variant { return m.SAPCurStatus(); }),
    readOnly<M>("SAPConsecutiveWeeks", [](M& m) -> Variant { return m.SAPConsecutiveWeeks(); }),
    readOnly<M>("SPPCurStatus", [](M& m) -> Variant { return m.SPPCurStatus(); }),
    readOnly<M>("SPPConsecutiveWeeks", [](M& m) -> Variant { return m.SPPConsecutiveWeeks(); }),
    readOnly<M>("ShPPCurStatus", [](M& m) -> Variant { return m.ShPPCurStatus(); }),
    readOnly<M>("ShPPConsecutiveDays", [](M& m) -> Variant { return m.ShPPConsecutiveDays(); }),
    readOnly<M>("PGLCurStatus", [](M& m) -> Variant { return m.PGLCurStatus(); }),
    readOnly<M>("PGLWasDeducted", [](M& m) -> Variant { return m.PGLWasDeducted(); }),
};

TEST(Employment, PlainPropertiesBeginBlankAndStoreTheirOwnValueOnly) {
    sweep(employmentPairs);
}

}  // namespace
}  // namespace ledgerwick::test
