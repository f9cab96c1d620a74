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
    std::function<void(Owner&)> set;
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

// A text; all of them lie in one stretch of memory.
Pair<cEmployee> text(std::string name, std::string (cEmployee::*get)() const,
                     void (cEmployee::*set)(std::string_view)) {
    return {std::move(name), [set](cEmployee& owner) { (owner.*set)(sample<std::string>()); },
            [get](cEmployee& owner) { return Variant((owner.*get)()); }, sample<std::string>()};
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
    text("IID", &E::IID, &E::IID),
    plain("NAID", &E::NAID),
    text("SortSeq", &E::SortSeq, &E::SortSeq),
    text("NINO", &E::NINO, &E::NINO),
    plain("HourlyPaid", &E::HourlyPaid),
    plain("NINODuplicated", &E::NINODuplicated),
    plain("IIDDuplicated", &E::IIDDuplicated),
    text("Sex", &E::Sex, &E::Sex),
    text("Add1", &E::Add1, &E::Add1),
    text("Add2", &E::Add2, &E::Add2),
    text("PostCode", &E::PostCode, &E::PostCode),
    text("Email", &E::Email, &E::Email),
    text("Phone_Home", &E::Phone_Home, &E::Phone_Home),
    text("Phone_Mobile", &E::Phone_Mobile, &E::Phone_Mobile),
    text("Phone_Work", &E::Phone_Work, &E::Phone_Work),
    plain("DOB", &E::DOB),
    text("Village", &E::Village, &E::Village),
    text("Town", &E::Town, &E::Town),
    text("County", &E::County, &E::County),
    text("Country", &E::Country, &E::Country),
    plain("AEOptInDate", &E::AEOptInDate),
    plain("AEJoinedDate", &E::AEJoinedDate),
    plain("AEPostponementDate", &E::AEPostponementDate),
    plain("Casual", &E::Casual),
    plain("PayFrequency", &E::PayFrequency),
    text("Seq", &E::Seq, &E::Seq),
    plain("Director", &E::Director),
    text("NITable", &E::NITable, &E::NITable),
    text("TaxCode", &E::TaxCode, &E::TaxCode),
    plain("PenWorkplaceSchemeID", &E::PenWorkplaceSchemeID),
    plain("PenWorkplaceUseSchemeRates", &E::PenWorkplaceUseSchemeRates),
    plain("PenWorkplaceEEDeductPC", &E::PenWorkplaceEEDeductPC),
    plain("PenWorkplaceERDeductPC", &E::PenWorkplaceERDeductPC),
    plain("PenWorkplaceEEDeductFlat", &E::PenWorkplaceEEDeductFlat),
    plain("PenWorkplaceERDeductFlat", &E::PenWorkplaceERDeductFlat),
    plain("HourlyRate", &E::HourlyRate),
    plain("PeriodRate", &E::PeriodRate),
    text("UserRef", &E::UserRef, &E::UserRef),
    plain("HolidayAllowance", &E::HolidayAllowance),
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
};

TEST(Employment, PlainPropertiesBeginBlankAndStoreTheirOwnValueOnly) {
    sweep(employmentPairs);
}

}  // namespace
}  // namespace ledgerwick::test
