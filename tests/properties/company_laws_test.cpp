// Laws of pay runs, over companies of any kind.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "tests/payrun/pay_office.h"
#include "tests/support/errors.h"

namespace ledgerwick {

void showValue(Date date, std::ostream& out) {
    out << date.toIso();
}

namespace test {

// One worker of a company and what became of them by the time of the run.
struct Worker {
    PR_Pay_Freq frequency;
    std::int32_t group, earlier;  // earlier: employments of the year before
    bool casual, returned;        // returned: left and came back within the year
    std::int32_t leftIn;          // the month of leaving for good; 0: none
    std::int32_t closed;          // pay runs closed before
};

void showValue(const Worker& worker, std::ostream& out) {
    out << "frequency " << worker.frequency << " group " << worker.group << " closed "
        << worker.closed;
    if (worker.earlier > 0) out << " earlier " << worker.earlier;
    if (worker.casual) out << " casual";
    if (worker.returned) out << " returned";
    if (worker.leftIn > 0) out << " left in month " << worker.leftIn;
}

namespace {

rc::Gen<std::vector<Worker>> anyStaff() {
    const auto worker = rc::gen::apply(
        [](PR_Pay_Freq frequency, std::int32_t group, std::int32_t earlier, bool casual,
           bool returned, std::int32_t leftIn, std::int32_t closed) {
            return Worker{frequency, group, earlier, casual, returned, leftIn, closed};
        },
        rc::gen::element(PFREQ_1Weekly, PFREQ_2Weekly, PFREQ_4Weekly, PFREQ_Monthly,
                         PFREQ_Quarterly, PFREQ_BiAnnual, PFREQ_Annual),
        rc::gen::inRange(0, 3), rc::gen::weightedElement<std::int32_t>({{3, 0}, {1, 1}, {1, 2}}),
        rc::gen::weightedElement<bool>({{5, false}, {1, true}}),
        rc::gen::weightedElement<bool>({{3, false}, {1, true}}),
        rc::gen::weightedElement<std::int32_t>({{5, 0}, {1, 5}, {1, 9}}), rc::gen::inRange(0, 4));
    return rc::gen::map(rc::gen::container<std::vector<Worker>>(worker),
                        [](std::vector<Worker> staff) {
                            if (staff.size() > 6) staff.resize(6);
                            return staff;
                        });
}

// Any day of payroll year 17 but its first weeks.
rc::Gen<Date> anyPayDate() {
    return rc::gen::map(rc::gen::inRange(7, 365),
                        [](std::int32_t days) { return Date::fromYmd(2016, 4, 6).addDays(days); });
}

const Date lastPayDate = Date::fromYmd(2017, 3, 31);

// The company with its runs of each worker closed, one period a time, and all loaded.
void hire(PayOffice& office, const std::vector<Worker>& staff) {
    std::int32_t naid = 0;
    for (const Worker& worker : staff) {
        Person& person = office.company.employee(++naid).paid(worker.frequency);
        person.details("PREGroup = " + std::to_string(worker.group));
        if (worker.returned) person.left("2016-04-20").employment(17, 2).started("2016-05-01");
        for (std::int32_t i = 1; i <= worker.earlier; ++i) {
            person.employment(16, i).started("2015-0" + std::to_string(i + 4) + "-01");
        }
        if (worker.earlier > 0) {  // the present one is the last of this year
            office.company.exec("UPDATE PREmployeeDetails SET PREPYEmployCount = " +
                                std::to_string(worker.returned ? 2 : 1) +
                                " WHERE PRENAID = " + std::to_string(naid));
        }
        office.hire(naid, worker.frequency);
    }
    office.company.load();
    naid = 0;
    for (const Worker& worker : staff) {
        for (std::int32_t run = (++naid, 0); run < worker.closed; ++run) {
            const Date due = office.company.current(naid).NExpPayDate();
            if (due > lastPayDate) break;
            office.open(due, PFREQ_SelAll, 0, naid);
            office.payroll().C_UpdatePayPeriod(naid, due);
            office.company.list().ReLoadEmployee(naid);
        }
    }
    naid = 0;
    for (const Worker& worker : staff) {
        const std::string present = "PRTNAID = " + std::to_string(++naid) +
                                    " AND PRTPayrollYear = 17 AND PRTEndDateLong = 0";
        if (worker.casual) {
            office.company.exec("UPDATE PREmployments SET PRTType = 2 WHERE " + present);
        }
        if (worker.leftIn > 0) {
            const Date left = Date::fromYmd(2016, worker.leftIn, 15);
            office.company.exec("UPDATE PREmployments SET PRTEndDateLong = " +
                                std::to_string(left.dayNumber()) + " WHERE " + present);
        }
    }
    office.company.load();
}

bool isPaid(const Worker& worker) {
    return !worker.casual && worker.leftIn == 0;
}

// What a load makes of every employee, as text.
std::string loaded(PayOffice& office, std::size_t staff) {
    std::string text;
    for (std::size_t i = 1; i <= staff; ++i) {
        cEmployee& employee = office.company.at(static_cast<std::int32_t>(i));
        text += employee.BusName() + (employee.Active() ? " active" : "") +
                (employee.Casual() ? " casual" : "");
        const cEmployment& at = *employee.CurEmployment();
        for (const Date date : {at.StartDate(), at.HMRCStartDate(), at.LastPayDate(),
                                at.NExpPayDate(), at.NExpEPEDate(), at.LastEPEDate()}) {
            text += ' ' + date.toIso();
        }
        text += ' ' + std::to_string(at.PRTID()) + ' ' + std::to_string(at.LastWeekNo()) + '\n';
    }
    return text;
}

RC_GTEST_PROP(Companies, HaveAColumnForEachPeriodThatFallsDueAndNoOther, ()) {
    const auto staff = *anyStaff();
    const Date payDate = *anyPayDate();
    PayOffice office;
    hire(office, staff);
    const std::size_t before = office.payRows().size();
    const auto columns = office.open(payDate);
    std::size_t expected = 0;
    for (std::size_t i = 0; i < staff.size(); ++i) {
        const auto naid = static_cast<std::int32_t>(i + 1);
        std::vector<Column> own;
        for (const Column& column : columns) {
            if (column.naid == naid) own.push_back(column);
        }
        std::size_t due = 0;
        const cEmployment& at = office.company.current(naid);
        for (Date date = at.NExpPayDate(); isPaid(staff[i]) && date <= payDate; ++due) {
            date = office.payroll().C_Calc_Next_NExpDate(date, staff[i].frequency, PR_NExp_Pay);
        }
        RC_ASSERT(own.size() == due);
        expected += due;
        for (std::size_t k = 0; k < own.size(); ++k) {
            RC_ASSERT(own[k].first <= own[k].last);
            // Behind the period before, or on the day of starting, but not after its end.
            const Date behind = k > 0 ? own[k - 1].last.addDays(1) : own[0].first;
            RC_ASSERT(own[k].first == std::min(own[k].last, std::max(behind, at.PRTStartDate())));
            if (k > 0) RC_ASSERT(own[k].week >= own[k - 1].week);
        }
    }
    RC_ASSERT(columns.size() == expected);
    RC_ASSERT(office.payRows().size() == before + expected);
}

RC_GTEST_PROP(Companies, OpenedClosedAndLoadedMoveTheDatesByExactlyOnePeriod, ()) {
    const auto staff = *anyStaff();
    PayOffice office;
    hire(office, staff);
    auto& payroll = office.payroll();
    for (std::size_t i = 0; i < staff.size(); ++i) {
        const auto naid = static_cast<std::int32_t>(i + 1);
        const Date pay = office.company.current(naid).NExpPayDate();
        const Date epe = office.company.current(naid).NExpEPEDate();
        const auto columns = office.open(std::min(pay, lastPayDate), PFREQ_SelAll, 0, naid);
        payroll.C_UpdatePayPeriod(naid, pay);
        const auto rows = office.payRows();
        payroll.C_UpdatePayPeriod(naid, pay);
        RC_ASSERT(office.payRows() == rows);  // what is closed stays as it is
        office.company.list().ReLoadEmployee(naid);
        const cEmployment& after = office.company.current(naid);
        if (!isPaid(staff[i]) || pay > lastPayDate) {
            RC_ASSERT(columns.empty());
            RC_ASSERT(after.NExpPayDate() == pay);
            continue;
        }
        RC_ASSERT(columns.size() == 1U);
        const PR_Pay_Freq frequency = staff[i].frequency;
        RC_ASSERT(after.LExpPayDate() == pay);
        RC_ASSERT(after.LastEPEDate() == epe);
        RC_ASSERT(after.LastWeekNo() == columns[0].week);
        RC_ASSERT(after.NExpPayDate() == payroll.C_Calc_Next_NExpDate(pay, frequency, PR_NExp_Pay));
        RC_ASSERT(after.NExpEPEDate() == payroll.C_Calc_Next_NExpDate(epe, frequency, PR_NExp_EPE));
    }
    RC_ASSERT(office.payRows(openRows).empty());
}

RC_GTEST_PROP(Companies, AreTheSameLoadedWholeAndOneByOne, ()) {
    const auto staff = *anyStaff();
    PayOffice office;
    hire(office, staff);
    office.open(*anyPayDate());
    office.company.load();
    const std::string whole = loaded(office, staff.size());
    for (std::size_t i = staff.size(); i > 0; --i) {
        office.company.list().ReLoadEmployee(static_cast<std::int32_t>(i));
    }
    RC_ASSERT(loaded(office, staff.size()) == whole);
    RC_ASSERT(office.company.list().EmployeeCount() == static_cast<std::int32_t>(staff.size()));
}

}  // namespace
}  // namespace test
}  // namespace ledgerwick
