// The pay rows of a company in the order of a load: each is handed to its employment, and held
// against the row before it.
#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>

#include "hostkit/audit/findings.h"
#include "ledgerwick/calendar/frequency.h"
#include "ledgerwick/employee/load_queries.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/codes.h"
#include "ledgerwick/records/schema.h"

namespace ledgerwick::audit {

namespace {

// The last week that a year's rows of a period can have: an opening counts on from the week paid
// last, so that fortnights reach week 54 and four weeks week 56.
std::int32_t lastWeekOf(std::int32_t period) {
    constexpr std::int32_t wholeWeeks = 52;
    return wholeWeeks + (period == 2 || period == 4 ? period : 1);
}

// What is held of a row until the next one of the employment was looked at.
struct PayRow {
    std::int32_t prtid = 0;
    std::int32_t prpid = 0;
    std::int32_t week = 0;
    std::int32_t period = 0;  // 0 on a starting row
    std::int32_t calculation = 0;
    Date periodEnd;
    bool closed = false;

    bool isMonthly() const { return period < 0; }
    bool isSamePeriod(const PayRow& other) const {
        return period != 0 && period == other.period && week == other.week;
    }
    // The first day that the row pays, as far as its period tells.
    Date firstDay() const {
        return isMonthly() ? periodEnd.addMonths(-1).addDays(1) : periodEnd.addDays(1 - 7 * period);
    }
    bool paysDaysOf(const PayRow& earlier) const {
        const bool comparable = period != 0 && earlier.period != 0 && periodEnd.isSet() &&
                                earlier.periodEnd.isSet() && calculation != code::fillerRow &&
                                earlier.calculation != code::fillerRow;
        const bool sameKind = period == earlier.period || (isMonthly() && earlier.isMonthly());
        return comparable && !sameKind && firstDay() <= earlier.periodEnd;
    }
};

// The weeks of a row's period; a period that is no frequency's counts as that many.
std::int32_t weeksOf(const PayRow& row) {
    const auto* const frequency = calendar::findByPayPeriod(row.period);
    return frequency ? frequency->weeks : row.period;
}

bool isWeeklyType(const PayRow& row) {
    const auto* const frequency = calendar::findByPayPeriod(row.period);
    return !frequency || frequency->isWeeklyType();
}

// Which month, quarter or half of the year it is; quarters end with the weeks 13, 27, 40 and 52.
std::int32_t periodNumber(const PayRow& row) {
    if (row.isMonthly()) return -row.period;
    return static_cast<std::int32_t>(std::lround(double(row.week) / weeksOf(row)));
}

// The periods that are missing between two rows of one employment and one kind of period.
std::int32_t periodsBetween(const PayRow& earlier, const PayRow& later) {
    const bool sameKind = later.isMonthly() ? earlier.isMonthly() : later.period == earlier.period;
    if (later.period == 0 || !sameKind) return 0;
    if (isWeeklyType(later)) {
        return std::max(0, (later.week - earlier.week - 1) / weeksOf(later));
    }
    return std::max(0, periodNumber(later) - periodNumber(earlier) - 1);
}

class PayRows {
  public:
    PayRows(CEmployeeList& list, Findings& findings)
        : list_(list),
          findings_(findings),
          currentYear_(numberIn(DLLGlobal::g().g_rsPRControl(), field::PRCFCurrentYear)) {}

    void run() {
        const FieldList fields = cEmployment::paymentFields();
        std::vector<FieldName> reads(fields.begin(), fields.end());
        reads.push_back(field::PRPPayDate);
        row_ = std::make_shared<MendedRow>(OpenPaymentsRS(0, 0, -1, reads));
        for (; !row_->Eof(); row_->MoveNext()) {
            row_->forget();
            takeRow(*row_);
        }
        tellRuns();
    }

  private:
    struct Run {
        std::int32_t open = 0;
        std::int32_t closed = 0;
    };

    void takeRow(MendedRow& row) {
        std::int32_t naid = 0;
        findings_.attempt(
            row, [&] { naid = row.GetInt32(field::PRPNAID); },
            [&](std::string_view) {
                return Place{"PRPay", textIn(row, field::PRPID)};
            });
        if (row.isMended(field::PRPNAID.text()) || findings_.isPassedOver(naid)) return;
        if (!employee_ || naid != naid_) {
            naid_ = naid;
            employee_ = list_.GetEmployeeByNAID(naid);
        }
        if (!employee_) {
            findings_.add("stray-pay", place(row),
                          "belongs to " + std::to_string(naid) + ", who is not on the payroll",
                          error_number::objectNotSet);
        } else if (row.IsNull(field::PRTID)) {
            findings_.add("pay-without-employment", place(row),
                          "there is no employment " + textIn(row, field::PRPPYEmployCount) +
                              " of payroll year " + textIn(row, field::PRPPayrollYear),
                          error_number::invalidUseOfNull);
        } else if (const auto* const employment =
                       employee_->Employments().Find(textIn(row, field::PRTID))) {
            isCasual_ = (*employment)->Casual();
            findings_.attempt(
                row, [&] { employee_->AddPayment(row); },
                [&](std::string_view) { return place(row); });
            lookAt(row);
        }
    }

    void lookAt(MendedRow& row) {
        const PayRow now{numberIn(row, field::PRTID),
                         numberIn(row, field::PRPID),
                         numberIn(row, field::PRPWeekNo),
                         numberIn(row, field::PRPPaymentPeriod),
                         numberIn(row, field::PRPCalculationUsed),
                         dateIn(row, field::PRPEPEDate),
                         readOr(false, row, field::PRPPeriodUpdated, &Recordset::GetBoolean)};
        lookAtItself(row, now);
        if (now.prtid != last_.prtid) {
            last_ = lastClosed_ = lastOpen_ = PayRow();
        } else {
            holdAgainstEarlier(row, now);
        }
        last_ = now;
        (now.closed ? lastClosed_ : lastOpen_) = now;
    }

    void lookAtItself(MendedRow& row, const PayRow& now) {
        const std::int32_t year = numberIn(row, field::PRPPayrollYear);
        const Date payDate = dateIn(row, field::PRPPayDate);
        const std::int32_t firstWeek = now.period == 0 ? 0 : 1;
        if (now.week < firstWeek || now.week > lastWeekOf(now.period)) {
            findings_.add("week", place(row), "PRPWeekNo is " + std::to_string(now.week));
        }
        if (year < 1 || year > currentYear_) {
            findings_.add("year", place(row),
                          "PRPPayrollYear is " + std::to_string(year) + "; the current one is " +
                              std::to_string(currentYear_));
        }
        if (row.IsNull(field::PRPPeriodUpdated)) {
            findings_.add("neither-open-nor-closed", place(row), "PRPPeriodUpdated is Null");
        } else if (!now.closed && (now.period == 0 || row.IsNull(field::PRPPayDate))) {
            findings_.add("never-closed", place(row),
                          now.period == 0 ? "an open row without a period"
                                          : "an open row without a pay date");
        }
        if (!now.closed && year == currentYear_) findings_.noteOpenRow(naid_);
        const bool isOfRun = year == currentYear_ && now.calculation > 0 && payDate.isSet() &&
                             !row.IsNull(field::PRPPeriodUpdated);
        if (isOfRun) {
            Run& run = runs_[payDate];
            ++(now.closed ? run.closed : run.open);
        }
    }

    void holdAgainstEarlier(MendedRow& row, const PayRow& now) {
        const std::string week = " of week " + std::to_string(now.week);
        if (now.isSamePeriod(last_)) {
            findings_.add("double-period", place(row),
                          "the period" + week + " is that of row " + std::to_string(last_.prpid));
        } else if (now.paysDaysOf(last_)) {
            findings_.add("period-overlap", place(row),
                          "begins on " + now.firstDay().toIso() + ", and row " +
                              std::to_string(last_.prpid) + " pays up to " +
                              last_.periodEnd.toIso());
        }
        if (!now.closed) return;
        const std::int32_t missing =
            lastClosed_.prtid == now.prtid && !isCasual_ ? periodsBetween(lastClosed_, now) : 0;
        if (missing > 0) {
            findings_.add("gap", place(row),
                          std::to_string(missing) + (missing == 1 ? " period is" : " periods are") +
                              " missing between row " + std::to_string(lastClosed_.prpid) +
                              " and this one" + week);
        }
        if (lastOpen_.prtid == now.prtid && lastOpen_.week < now.week) {
            Place open = place(row);
            open.key = std::to_string(lastOpen_.prpid);
            findings_.add("left-open", std::move(open),
                          "week " + std::to_string(lastOpen_.week) + " is open and week " +
                              std::to_string(now.week) + " closed, by row " +
                              std::to_string(now.prpid));
            lastOpen_ = PayRow();
        }
    }

    void tellRuns() {
        std::int32_t openRuns = 0;
        std::string dates;
        for (const auto& [date, run] : runs_) {
            if (run.open == 0) continue;
            ++openRuns;
            dates += (dates.empty() ? "" : ", ") + date.toIso();
            if (run.closed == 0) continue;
            findings_.add("half-closed", {"PRPay", date.toIso()},
                          "of the run of " + date.toIso() + " " + std::to_string(run.closed) +
                              " rows are closed and " + std::to_string(run.open) + " open");
        }
        if (openRuns > 1) findings_.add("open-runs", {"PRPay", dates}, "more than one run is open");
    }

    Place place(MendedRow& row) const {
        return {"PRPay", textIn(row, field::PRPID), naid_,
                employee_ ? employee_->Name() : std::string()};
    }

    CEmployeeList& list_;
    Findings& findings_;
    const std::int32_t currentYear_;
    std::shared_ptr<MendedRow> row_;
    std::shared_ptr<cEmployee> employee_;
    std::int32_t naid_ = 0;
    bool isCasual_ = false;  // the employment of the row, whose periods come as they may
    PayRow last_;
    PayRow lastClosed_;
    PayRow lastOpen_;
    std::map<Date, Run> runs_;  // of the current year, by pay date
};

}  // namespace

void auditPayRows(CEmployeeList& list, Findings& findings) {
    PayRows(list, findings).run();
}

}  // namespace ledgerwick::audit
