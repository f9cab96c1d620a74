#include "hostkit/office/pay_run.h"

#include <algorithm>

#include "ledgerwick/values/error.h"

namespace ledgerwick::office {

namespace {

// `PRPStatus` of a row whose pay was worked out and reported.
constexpr int reportedStatus = 3;
// The status that takes an order line out of the imported earnings.
constexpr std::int16_t closedOrder = 5;

cEmployee& employeeOf(HostSession& session, std::int32_t naid) {
    const auto employee = session.list().GetEmployeeByNAID(naid);
    if (!employee) raise(error_number::objectNotSet, "employee " + std::to_string(naid));
    return *employee;  // the list holds it
}

// Closes the checked order lines of the periods, each from the day after the one before it.
void closePiecework(cEmployment& employment, const std::vector<OpenRow>& rows, Date payDate) {
    Date from = employment.LastEPEDate().addDays(1);
    for (const OpenRow& row : rows) {
        from = std::min(std::max(from, employment.PRTStartDate()), row.periodEnd);
        employment.UpdateImportedEarnings(closedOrder, from, row.periodEnd, 0,
                                          Variant("Pay " + payDate.toIso()));
        from = row.periodEnd.addDays(1);
    }
}

void clearImportedPay(HostSession& session, std::int32_t naid) {
    if (!DLLGlobal::DAO_ADO().TempTableExists("PRPayImport")) return;
    session.database().Execute("DELETE FROM PRPayImport WHERE PRPINAID = " + std::to_string(naid),
                               failOnError);
}

}  // namespace

std::string dateLiteral(Date date) {
    return "#" + DLLGlobal::pf().DateToUSstr(date) + "#";
}

bool isRegular(const cEmployee& employee) {
    return employee.Active() && !employee.Casual();
}

bool isSelected(const cEmployee& employee, const Selection& selection) {
    return (selection.naid == 0 || employee.NAID() == selection.naid) &&
           (selection.group == 0 || employee.Group() == selection.group) &&
           (selection.frequency < 0 || employee.PayFrequency() == selection.frequency);
}

std::int32_t periodsDue(HostSession& session, cEmployee& employee, Date upTo) {
    const auto frequency = static_cast<PR_Pay_Freq>(employee.PayFrequency());
    std::int32_t periods = 0;
    for (Date due = employee.CurEmployment()->NExpPayDate(); due <= upTo; ++periods) {
        due = session.payroll().C_Calc_Next_NExpDate(due, frequency, PR_NExp_Pay);
    }
    return periods;
}

std::shared_ptr<cEmployee> withoutHistory(HostSession& session, const Selection& selection) {
    for (const auto& employee : session.list().Employees()) {
        if (isRegular(*employee) && isSelected(*employee, selection) &&
            !employee->CurEmployment()->NExpPayDate().isSet()) {
            return employee;
        }
    }
    return nullptr;
}

std::vector<OpenRow> openRows(HostSession& session, const Selection& selection) {
    const std::string statement =
        "SELECT PRPID, PRPNAID, PRPWeekNo, PRPPaymentPeriod, PRPPayDate, PRPEPEDate, "
        "PRPPeriodPay, PRPHasBeenVisited, PRPStatus "
        "FROM PRPay "
        "WHERE PRPPaymentPeriod <> 0 AND PRPPeriodUpdated = False "
        "AND PRPPayDate <= " +
        dateLiteral(selection.payDate) + " ORDER BY " + PaymentsOrderBy();
    const auto rows = session.database().OpenRecordset(statement, RecordsetType::Snapshot);
    std::vector<OpenRow> found;
    for (; !rows->Eof(); rows->MoveNext()) {
        const OpenRow row{
            rows->GetInt32(field::PRPID),           rows->GetInt32(field::PRPNAID),
            rows->GetInt16(field::PRPWeekNo),       rows->GetInt32(field::PRPPaymentPeriod),
            rows->GetDate(field::PRPPayDate),       rows->GetDate(field::PRPEPEDate),
            rows->GetCurrency(field::PRPPeriodPay), rows->GetBoolean(field::PRPHasBeenVisited),
            rows->GetDouble(field::PRPStatus)};
        if (isSelected(employeeOf(session, row.naid), selection)) found.push_back(row);
    }
    rows->Close();
    return found;
}

RowsByEmployee openRowsByEmployee(HostSession& session, const Selection& selection) {
    RowsByEmployee rowsOf;
    for (const OpenRow& row : openRows(session, selection)) rowsOf[row.naid].push_back(row);
    return rowsOf;
}

void markCalculated(HostSession& session, std::int32_t naid, Date payDate) {
    const std::string status = std::to_string(reportedStatus);
    session.database().Execute("UPDATE PRPay SET PRPStatus = " + status +
                                   ", PRPHasBeenVisited = True "
                                   "WHERE PRPPaymentPeriod <> 0 AND PRPPeriodUpdated = False "
                                   "AND PRPStatus < " +
                                   status + " AND PRPPayDate <= " + dateLiteral(payDate) +
                                   " AND PRPNAID = " + std::to_string(naid),
                               failOnError);
}

void closeRows(HostSession& session, std::int32_t naid, const std::vector<OpenRow>& rows,
               Date payDate) {
    closePiecework(*employeeOf(session, naid).CurEmployment(), rows, payDate);
    session.payroll().C_UpdatePayPeriod(naid, payDate);
    clearImportedPay(session, naid);
}

std::int32_t highestPayRow(HostSession& session) {
    const auto rows = session.database().OpenRecordset("SELECT Max(PRPID) AS PRPIDMax FROM PRPay",
                                                       RecordsetType::Snapshot);
    const std::int32_t highest =
        rows->IsNull(field::PRPIDMax) ? 0 : rows->GetInt32(field::PRPIDMax);
    rows->Close();
    return highest;
}

}  // namespace ledgerwick::office
