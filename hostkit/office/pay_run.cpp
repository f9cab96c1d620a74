#include "hostkit/office/pay_run.h"

#include <algorithm>
#include <map>

#include "hostkit/office/refusal.h"
#include "hostkit/office/transaction.h"
#include "hostkit/office/up_to_date.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::office {

namespace {

std::shared_ptr<cEmployee> employeeOf(HostSession& session, std::int32_t naid) {
    auto employee = session.list().GetEmployeeByNAID(naid);
    if (!employee) raise(error_number::objectNotSet, "employee " + std::to_string(naid));
    return employee;
}

// The open rows of a run, by the number of their employee.
using RowsByEmployee = std::map<std::int32_t, std::vector<OpenRow>>;

RowsByEmployee openRowsByEmployee(HostSession& session, const Selection& selection) {
    RowsByEmployee rowsOf;
    for (const OpenRow& row : openRows(session, selection)) rowsOf[row.naid].push_back(row);
    return rowsOf;
}

// How many pay periods of the employee fall due up to the date.
std::int32_t periodsDue(HostSession& session, cEmployee& employee, Date upTo) {
    const auto frequency = static_cast<PR_Pay_Freq>(employee.PayFrequency());
    std::int32_t periods = 0;
    for (Date due = employee.CurEmployment()->NExpPayDate(); due <= upTo; ++periods) {
        due = session.payroll().C_Calc_Next_NExpDate(due, frequency, PR_NExp_Pay);
    }
    return periods;
}

// Without a closed row an employment has no date to count from, and every period since 1899 would
// fall due.
void refuseWithoutHistory(HostSession& session, const Selection& selection) {
    for (const auto& employee : session.list().Employees()) {
        if (!isRegularActive(*employee) || !isSelected(*employee, selection) ||
            employee->CurEmployment()->NExpPayDate().isSet()) {
            continue;
        }
        throw Refusal("openRun", "employee " + std::to_string(employee->NAID()) + ", " +
                                     employee->Name() +
                                     ", has no pay history; `employment add` creates the row from "
                                     "which the periods are counted");
    }
}

// When pay of the run's employees falls due first.
std::optional<Date> nextPayOf(HostSession& session, const Selection& selection) {
    std::optional<Date> next;
    for (const auto& employee : session.list().Employees()) {
        if (!isRegularActive(*employee) || !isSelected(*employee, selection)) continue;
        const Date due = employee->CurEmployment()->NExpPayDate();
        if (!next || due < *next) next = due;
    }
    return next;
}

std::vector<OpenedPeriod> periodsOf(const VariantArray& run) {
    std::vector<OpenedPeriod> periods;
    for (std::int32_t i = 1; i <= run.upperBound(2); ++i) {
        if (run.at(run_array::naid, i).isEmpty()) break;
        OpenedPeriod period{.naid = run.at(run_array::naid, i).toInt32(),
                            .prpid = run.at(run_array::payRecord, i).toInt32(),
                            .firstDay = run.at(run_array::firstDay, i).toDate(),
                            .lastDay = run.at(run_array::lastDay, i).toDate(),
                            .imported = std::nullopt,
                            .week = run.at(run_array::weekNo, i).toInt32(),
                            .period = run.at(run_array::paymentPeriod, i).toInt32()};
        const Variant& imported = run.at(run_array::importedPay, i);
        if (imported.kind() != VariantKind::Text) period.imported = imported.toCurrency();
        periods.push_back(period);
    }
    return periods;
}

// Closes the checked order lines of the periods, each from the day after the one before it.
void closePiecework(cEmployment& employment, const std::vector<OpenRow>& rows, Date payDate) {
    Date from = employment.LastEPEDate().addDays(1);
    for (const OpenRow& row : rows) {
        from = std::min(std::max(from, employment.PRTStartDate()), row.periodEnd);
        employment.UpdateImportedEarnings(code::closedOrder, from, row.periodEnd, 0,
                                          Variant("Pay " + payDate.toIso()));
        from = row.periodEnd.addDays(1);
    }
}

void clearImportedPay(HostSession& session, std::int32_t naid) {
    if (!DLLGlobal::DAO_ADO().TempTableExists("PRPayImport")) return;
    session.database().Execute("DELETE FROM PRPayImport WHERE PRPINAID = " + std::to_string(naid),
                               failOnError);
}

// Closes what is open by now, and notes where the employee stands before.
void closeRows(HostSession& session, Date payDate, ClosedEmployee& each) {
    if (!bringUpToDate(session, each.naid).empty()) session.list().LoadImportedPay();
    const auto rows = openRows(session, {.payDate = payDate, .naid = each.naid});
    if (rows.empty()) return;
    const auto employment = employeeOf(session, each.naid)->CurEmployment();
    each.rows = static_cast<std::int32_t>(rows.size());
    each.nextPayBefore = employment->NExpPayDate();
    closePiecework(*employment, rows, payDate);
    session.payroll().C_UpdatePayPeriod(each.naid, payDate);
    clearImportedPay(session, each.naid);
}

void markRowsOf(HostSession& session, std::int32_t naid, Date payDate) {
    const std::string status = std::to_string(code::reportedStatus);
    session.database().Execute("UPDATE PRPay SET PRPStatus = " + status +
                                   ", PRPHasBeenVisited = True "
                                   "WHERE PRPPaymentPeriod <> 0 AND PRPPeriodUpdated = False "
                                   "AND PRPStatus < " +
                                   status + " AND PRPPayDate <= " + dateLiteral(payDate) +
                                   " AND PRPNAID = " + std::to_string(naid),
                               failOnError);
}

}  // namespace

std::string dateLiteral(Date date) {
    return "#" + DLLGlobal::pf().DateToUSstr(date) + "#";
}

bool isSelected(const cEmployee& employee, const Selection& selection) {
    return (selection.naid == 0 || employee.NAID() == selection.naid) &&
           (selection.group == 0 || employee.Group() == selection.group) &&
           (selection.frequency < 0 || employee.PayFrequency() == selection.frequency);
}

std::vector<DueEmployee> dueEmployees(HostSession& session, Date upTo) {
    std::vector<DueEmployee> found;
    for (const auto& employee : session.list().Employees()) {
        const auto employment = employee->CurEmployment();
        const Date next = employment->NExpPayDate();
        if (!isRegularActive(*employee) || !next.isSet() || next > upTo) continue;
        found.push_back(
            {employee, next, employment->NExpEPEDate(), periodsDue(session, *employee, upTo)});
    }
    return found;
}

OpenedRun openRun(HostSession& session, const Selection& selection) {
    Variant columns;
    OpenedRun run;
    inOneBatch(session.database(), [&] {
        bringUpToDate(session, selection.naid);
        refuseWithoutHistory(session, selection);
        session.payroll().C_InputHoursInit(selection.payDate, selection.frequency, selection.group,
                                           selection.naid, &columns, &run.uncheckedPiecework);
    });
    run.periods = periodsOf(columns.array("C_InputHoursInit"));
    if (run.periods.empty()) run.nextPay = nextPayOf(session, selection);
    return run;
}

std::vector<OpenRow> openRows(HostSession& session, const Selection& selection) {
    bringUpToDate(session, selection.naid);
    const std::string statement =
        "SELECT PRPID, PRPNAID, PRPWeekNo, PRPPaymentPeriod, PRPPayDate, PRPEPEDate, "
        "PRPPeriodPay, PRPHasBeenVisited, PRPStatus "
        "FROM PRPay "
        "WHERE PRPPaymentPeriod <> 0 AND PRPPeriodUpdated = False "
        "AND PRPPayDate <= " +
        dateLiteral(selection.payDate) +
        (selection.naid == 0 ? "" : " AND PRPNAID = " + std::to_string(selection.naid)) +
        " ORDER BY " + PaymentsOrderBy();
    const auto rows = session.database().OpenRecordset(statement, RecordsetType::Snapshot);
    std::vector<OpenRow> found;
    for (; !rows->Eof(); rows->MoveNext()) {
        const OpenRow row{
            rows->GetInt32(field::PRPID),           rows->GetInt32(field::PRPNAID),
            rows->GetInt16(field::PRPWeekNo),       rows->GetInt32(field::PRPPaymentPeriod),
            rows->GetDate(field::PRPPayDate),       rows->GetDate(field::PRPEPEDate),
            rows->GetCurrency(field::PRPPeriodPay), rows->GetBoolean(field::PRPHasBeenVisited),
            rows->GetDouble(field::PRPStatus)};
        if (isSelected(*employeeOf(session, row.naid), selection)) found.push_back(row);
    }
    rows->Close();
    return found;
}

std::size_t markCalculated(HostSession& session, const Selection& selection) {
    std::size_t count = 0;
    const auto rowsOf = openRowsByEmployee(session, selection);
    inTransaction(session, [&] {
        for (const auto& [naid, rows] : rowsOf) {
            markRowsOf(session, naid, selection.payDate);
            count += rows.size();
        }
    });
    return count;
}

std::vector<ClosedEmployee> closeRun(HostSession& session, const Selection& selection) {
    std::vector<ClosedEmployee> closed;
    const auto rowsOf = openRowsByEmployee(session, selection);
    session.list().LoadImportedPay();
    for (const auto& entry : rowsOf) {
        const std::int32_t naid = entry.first;
        ClosedEmployee each{.naid = naid};
        inTransaction(session, [&] { closeRows(session, selection.payDate, each); });
        if (each.rows == 0) continue;
        session.list().ReLoadEmployee(naid);
        const auto now = employeeOf(session, naid)->CurEmployment();
        each.paidTo = now->LastEPEDate();
        each.nextPay = now->NExpPayDate();
        each.nextPeriodEnd = now->NExpEPEDate();
        closed.push_back(each);
    }
    return closed;
}

std::vector<FilledPeriod> fillMissing(HostSession& session) {
    std::int32_t before = 0;
    inOneBatch(session.database(), [&] {
        bringUpToDate(session);
        before = highestPayRow(session);
        session.payroll().AutoFillMissingPeriods();
    });
    const auto rows = session.database().OpenRecordset(
        "SELECT PRPID, PRPNAID, PRPWeekNo, PRPPaymentPeriod, PRPPayDate, PRPRTILateReason "
        "FROM PRPay "
        "WHERE PRPID > " +
            std::to_string(before) + " ORDER BY PRPID",
        RecordsetType::Snapshot);
    std::vector<FilledPeriod> filled;
    for (; !rows->Eof(); rows->MoveNext()) {
        FilledPeriod each{.prpid = rows->GetInt32(field::PRPID),
                          .naid = rows->GetInt32(field::PRPNAID),
                          .week = rows->GetInt16(field::PRPWeekNo),
                          .period = rows->GetInt32(field::PRPPaymentPeriod),
                          .payDate = rows->GetDate(field::PRPPayDate),
                          .lateReason = std::string(rows->GetText(field::PRPRTILateReason))};
        filled.push_back(std::move(each));
    }
    rows->Close();
    return filled;
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
