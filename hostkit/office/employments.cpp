#include "hostkit/office/employments.h"

#include <algorithm>

#include "hostkit/office/up_to_date.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::office {

namespace {

// The employee's next employment count in the current payroll year.
std::int32_t nextCount(cEmployee& employee) {
    const std::int32_t year = DLLGlobal::currentPayrollYear();
    std::int32_t highest = 0;
    for (const auto& employment : employee.Employments()) {
        if (employment->PayrollYear() == year)
            highest = std::max(highest, employment->EmployCount());
    }
    return highest + 1;
}

// The library takes the count from the employee's details, where the host keeps it.
void storeCount(Database& database, std::int32_t naid, std::int32_t count) {
    const auto rows = database.OpenRecordset(
        "SELECT PRENAID, PREPYEmployCount FROM PREmployeeDetails WHERE PRENAID = " +
            std::to_string(naid),
        RecordsetType::Dynaset);
    rows->Edit();
    rows->Value(field::PREPYEmployCount, count);
    rows->Update();
    rows->Close();
}

// How often the employee of that number is paid, who may have no employment yet.
PR_Pay_Freq frequencyOf(Database& database, std::int32_t naid) {
    const auto rows = database.OpenRecordset(
        "SELECT PREPayFrequency FROM PREmployeeDetails WHERE PRENAID = " + std::to_string(naid),
        RecordsetType::Snapshot);
    if (rows->Eof()) {
        raise(error_number::noCurrentRecord, "addEmployment", "employee " + std::to_string(naid));
    }
    const auto frequency = static_cast<PR_Pay_Freq>(rows->GetInt16(field::PREPayFrequency));
    rows->Close();
    return frequency;
}

// When pay falls due first: on the next pay date of those paid as often that is not before the
// start, or else at the end of the first period.
Date firstPayDate(HostSession& session, PR_Pay_Freq frequency, Date start) {
    bool none = false;
    Date next = session.payroll().C_Next_Expected_Pay_Date(&none, frequency);
    if (none) return session.payroll().C_Calc_Next_NExpDate(start, frequency, PR_NExp_Pay, true);
    while (next < start) {
        next = session.payroll().C_Calc_Next_NExpDate(next, frequency, PR_NExp_Pay);
    }
    return next;
}

Date firstPeriodEnd(HostSession& session, PR_Pay_Freq frequency, Date start) {
    bool none = false;
    Date next = session.payroll().C_Next_Expected_EPE_Date(&none, frequency);
    if (none) return session.payroll().C_Calc_Next_NExpDate(start, frequency, PR_NExp_EPE, true);
    while (next < start) {
        next = session.payroll().C_Calc_Next_NExpDate(next, frequency, PR_NExp_EPE);
    }
    return next;
}

// The row from which the periods of the employment are counted: closed, without pay, and up to the
// day before the start.
void layDownStartingRow(HostSession& session, PR_Pay_Freq frequency, const NewEmployment& details) {
    const Date pay = details.firstPay.isSet() ? details.firstPay
                                              : firstPayDate(session, frequency, details.start);
    const Date end = details.firstPeriodEnd.isSet()
                         ? details.firstPeriodEnd
                         : firstPeriodEnd(session, frequency, details.start);
    const std::int32_t week = session.payroll().C_CalcTaxWeek(details.start) - 1;
    session.payroll().C_CreateStartingPayRecord(details.naid, week, details.start.addDays(-1), pay,
                                                end);
}

}  // namespace

bool isEmployed(HostSession& session, std::int32_t naid) {
    const auto employee = session.list().GetEmployeeByNAID(naid);
    return employee && employee->Active();
}

std::shared_ptr<cEmployment> addEmployment(HostSession& session, const NewEmployment& details) {
    const PR_Pay_Freq frequency = frequencyOf(session.database(), details.naid);
    bringUpToDate(session, details.naid);
    if (isEmployed(session, details.naid)) {
        raise(error_number::invalidCall, "addEmployment",
              "employee " + std::to_string(details.naid) +
                  " has an employment of this year that has not ended");
    }
    const auto employee = session.list().GetEmployeeByNAID(details.naid);
    storeCount(session.database(), details.naid, employee ? nextCount(*employee) : 1);
    session.payroll().C_CreateNewEmploymentRecord(
        details.naid, session.payroll().C_CalcTaxWeek(details.start) - 1,
        details.casual ? PR_ET_Casual : PR_ET_Regular, details.start.toIso(), details.addInfo,
        details.continuation, details.aeStatus);
    if (!details.casual) layDownStartingRow(session, frequency, details);
    session.list().ReLoadEmployee(details.naid);
    return session.list().GetEmployeeByNAID(details.naid)->MostRecentEmployment();
}

void endEmployment(HostSession& session, std::int32_t naid, Date lastDay) {
    inOneBatch(session.database(), [&] {
        bringUpToDate(session, naid);
        const auto employee = session.list().GetEmployeeByNAID(naid);
        const auto employment = employee ? employee->MostRecentEmployment() : nullptr;
        if (!employment) {
            raise(error_number::objectNotSet, "endEmployment", "employee " + std::to_string(naid));
        }
        if (employment->EndDate().isSet() || lastDay < employment->PRTStartDate()) {
            raise(error_number::invalidCall, "endEmployment",
                  "the employment of " + employment->PRTStartDate().toIso() + " cannot end on " +
                      lastDay.toIso());
        }
        const auto rows = session.database().OpenRecordset(
            "SELECT PRTID, PRTEndDateLong FROM PREmployments WHERE PRTID = " +
                std::to_string(employment->PRTID()),
            RecordsetType::Dynaset);
        rows->Edit();
        rows->Value(field::PRTEndDateLong, lastDay.dayNumber());
        rows->Update();
        rows->Close();
        session.list().ReLoadEmployee(naid);
    });
}

}  // namespace ledgerwick::office
