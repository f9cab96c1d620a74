#include <string>

#include "ledgerwick/autoenrol/auto_enrol_status.h"
#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employee/regular.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/records/row_at_hand.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

Variant int64(std::int32_t value) {
    return static_cast<std::int64_t>(value);
}

Variant dateOrNone(Date date) {
    return date == noDate1961 ? Date{} : date;
}

// A field of the table, and its value for one worker; null where the table leaves it unfilled, or
// fills it elsewhere.
struct Column {
    const char* name;
    FieldType type;
    std::int32_t size;
    Variant (*value)(cEmployee& employee, const CAutoEnrolStatus& status);
};

// clang-format off
constexpr Column columns[] = {
    {"NAID",                FieldType::Int64,      0, [](cEmployee& e, const CAutoEnrolStatus&) { return int64(e.NAID()); }},
    {"Name",                FieldType::Text,     100, [](cEmployee& e, const CAutoEnrolStatus&) { return Variant(e.BusName()); }},
    {"NameSort",            FieldType::Text,     110, [](cEmployee& e, const CAutoEnrolStatus&) { return Variant(padOrCut(e.Seq(), 3) + e.BusName()); }},
    {"NINO",                FieldType::Text,       9, [](cEmployee& e, const CAutoEnrolStatus&) { return Variant(e.NINO()); }},
    {"StaffNo",             FieldType::Text,      10, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.StaffNo()); }},
    {"PayFreq",             FieldType::Int64,      0, [](cEmployee&, const CAutoEnrolStatus& s) { return int64(s.PayFrequency()); }},
    {"HourlyRate",          FieldType::Currency,   0, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.StdHourlyRate()); }},
    {"PeriodRate",          FieldType::Currency,   0, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.PeriodPay()); }},
    {"SchemeID",            FieldType::Int64,      0, [](cEmployee&, const CAutoEnrolStatus& s) { return int64(s.PenWorkplaceSchemeID()); }},
    {"Scheme",              FieldType::Text,      35, nullptr},
    {"JoinedDate",          FieldType::Date,       0, [](cEmployee& e, const CAutoEnrolStatus&) { return dateOrNone(e.AEJoinedDate()); }},
    {"OptInDate",           FieldType::Date,       0, [](cEmployee& e, const CAutoEnrolStatus&) { return dateOrNone(e.AEOptInDate()); }},
    {"EnrolledDate",        FieldType::Date,       0, nullptr},
    {"OptOutDate",          FieldType::Date,       0, [](cEmployee& e, const CAutoEnrolStatus&) { return dateOrNone(e.AEOptOutDate()); }},
    {"FirstAssessDate",     FieldType::Date,       0, [](cEmployee&, const CAutoEnrolStatus& s) { return dateOrNone(s.FirstAssessDate()); }},
    {"FirstAssessCategory", FieldType::Text,      30, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.FirstAssessCategory()); }},
    {"PrevAssessDate",      FieldType::Date,       0, [](cEmployee&, const CAutoEnrolStatus& s) { return dateOrNone(s.PrevAssessDate()); }},
    {"PrevAssessCategory",  FieldType::Text,      30, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.PrevAssessCategory()); }},
    {"NextAssessDate",      FieldType::Date,       0, [](cEmployee&, const CAutoEnrolStatus& s) { return dateOrNone(s.CurrentAssessDate()); }},
    {"NextAssessCategory",  FieldType::Text,      30, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.CurrentAssessCategory()); }},
    {"NextAssessChange",    FieldType::Text,      30, [](cEmployee&, const CAutoEnrolStatus& s) { return Variant(s.CurrentAssessChange()); }},
};
// clang-format on

// The names of pension schemes. Each is read from the database once; a number without a scheme is
// read again each time.
class SchemeNames {
  public:
    SchemeNames() { names_.Add(0, ""); }

    // The name of a scheme, Empty when there is no such scheme.
    Variant of(std::int32_t scheme) {
        if (names_.Exists(scheme)) return names_.Item(scheme);
        const RecordsetRef rows = DLLGlobal::g().DBDll().OpenRecordset(
            "SELECT * FROM PensionSchemes WHERE PSID = " + std::to_string(scheme),
            RecordsetType::Snapshot);
        Variant name;
        if (!rows->Eof()) {
            names_.Add(scheme, std::string(rows->GetText(field::PSDesc)));
            name = names_.Item(scheme);
        }
        rows->Close();
        return name;
    }

  private:
    Dictionary<std::int32_t, std::string> names_;
};

}  // namespace

ResultTable CPayrollFunctions::GetAEStatus(Date dtDateUpTo, std::int32_t lPayrollYear,
                                           bool bPeriodUpdated, std::int32_t lNAID) {
    ResultTable table;
    for (const Column& column : columns) table.Append(column.name, column.type, column.size);
    table.Open();

    SchemeNames schemeNames;
    const auto addRow = [&](cEmployee& employee) {
        if (!isRegularActive(employee)) return;
        const auto status = forEmployee(employee.NAID(), [&] {
            return employee.GetAutoEnrolStatus(dtDateUpTo, lPayrollYear, bPeriodUpdated);
        });
        table.AddNew();
        for (const Column& column : columns) {
            if (column.value) table.Fields(column.name, column.value(employee, *status));
        }
        const Variant scheme = schemeNames.of(status->PenWorkplaceSchemeID());
        if (!scheme.isEmpty()) table.Fields("Scheme", scheme);
        table.Update();
    };

    CEmployeeList& list = employeeList();
    if (lNAID < 1) {
        for (const auto& employee : list.Employees()) addRow(used(employee, "GetAEStatus"));
    } else if (list.ExistsByNAID(lNAID)) {
        addRow(*list.GetEmployeeByNAID(lNAID));
    }
    return table;
}

}  // namespace ledgerwick
