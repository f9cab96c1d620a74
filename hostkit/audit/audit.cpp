#include "hostkit/audit/audit.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "hostkit/audit/dry_run.h"
#include "hostkit/audit/findings.h"
#include "ledgerwick/employee/load_queries.h"
#include "ledgerwick/employee/load_steps.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/payrun/pay_record.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick::audit {

namespace {

bool isIn(std::string_view field, std::initializer_list<FieldName> fields) {
    return std::any_of(fields.begin(), fields.end(), [field](const FieldName& each) {
        return equalsIgnoringCase(each.text(), field);
    });
}

std::string_view kindOf(std::int32_t error) {
    switch (error) {
        case error_number::invalidUseOfNull:
            return "null";
        case error_number::overflow:
        case error_number::typeMismatch:
            return "bad-value";
        case 9911:
            return "unknown-period";
        default:
            return "fault";
    }
}

// ---- the employees ------------------------------------------------------------------------------

// Walks the rows of employees and employments as a load does.
class EmployeeRows {
  public:
    EmployeeRows(CEmployeeList& list, Findings& findings) : list_(list), findings_(findings) {}

    void run() {
        std::vector<FieldName> reads(load::employeeFields().begin(), load::employeeFields().end());
        reads.insert(reads.end(), {field::PRENAID, field::PREPYEmployCount});
        row_ = std::make_shared<MendedRow>(OpenEmployeesRS(0, reads));
        readMinStart();
        for (; !row_->Eof(); row_->MoveNext()) {
            row_->forget();
            takeRow();
        }
        endEmployee();
    }

  private:
    void readMinStart() {
        if (row_->Eof()) return;
        try {
            minStart_ = load::earliestStart();
        } catch (const Error& error) {
            findings_.add("null", {"PREmployments", ""}, "no employment has a start date",
                          error.Number());
        }
    }

    void takeRow() {
        MendedRow& row = *row_;
        const std::string person = textIn(row, field::PRENAID);
        if (row.IsNull(field::NAID)) {
            findings_.add("no-customer",
                          {"PREmployeeDetails", person, numberIn(row, field::PRENAID)},
                          "there is no row of Customers", error_number::invalidUseOfNull);
            findings_.passOver(numberIn(row, field::PRENAID));
            return;
        }
        const std::int32_t naid = row.GetInt32(field::NAID);
        if (!employee_ || naid != naid_) startEmployee(naid);
        if (row.IsNull(field::PRTID)) {
            findings_.add("no-employment", {"PREmployeeDetails", person, naid, nameIn(row)},
                          "there is no employment", error_number::invalidUseOfNull);
        } else {
            takeEmployment(row);
        }
        findings_.attempt(
            row, [&] { load::fillEmployee(*employee_, row); },
            [&](std::string_view source) { return placeOf(source); });
        count_ = numberIn(row, field::PREPYEmployCount);
    }

    void startEmployee(std::int32_t naid) {
        endEmployee();
        naid_ = naid;
        prev_.reset();
        findings_.attempt(
            *row_, [&] { employee_ = list_.CreateEmployee(*row_); },
            [&](std::string_view source) { return placeOf(source); });
    }

    void takeEmployment(MendedRow& row) {
        const std::string key = textIn(row, field::PRTID);
        std::shared_ptr<cEmployment> added;
        findings_.attempt(
            row,
            [&] {
                if (employee_->Employments().Find(key)) employee_->Employments().Remove(key);
                added = load::addEmploymentRow(*employee_, prev_, minStart_, row);
            },
            [&](std::string_view source) { return placeOf(source); });
        if (!added) return;
        compareWithOthers(*added, key);
        prev_ = std::move(added);
    }

    void compareWithOthers(cEmployment& employment, const std::string& key) {
        const Place place{"PREmployments", key, naid_, nameIn(*row_)};
        const Date start = employment.PRTStartDate();
        if (employment.EndDate().isSet() && employment.EndDate() < start) {
            findings_.add(
                "ends-before-start", place,
                "starts on " + start.toIso() + " and ends on " + employment.EndDate().toIso());
        }
        if (!prev_) return;
        const bool sameYear = prev_->PayrollYear() == employment.PayrollYear();
        if (sameYear && prev_->EmployCount() == employment.EmployCount()) {
            findings_.add(
                "double-employment", place,
                "has the year and the count of employment " + std::to_string(prev_->PRTID()));
        }
        const bool overlaps = prev_->EndDate().isSet() ? start <= prev_->EndDate() : sameYear;
        if (overlaps) {
            findings_.add("employment-overlap", place,
                          "starts on " + start.toIso() + " while employment " +
                              std::to_string(prev_->PRTID()) +
                              (prev_->EndDate().isSet() ? " ends on " + prev_->EndDate().toIso()
                                                        : " has not ended"));
        }
    }

    void endEmployee() {
        if (!employee_) return;
        bool atWork = false;
        bool counted = false;
        for (const auto& employment : employee_->Employments()) {
            if (!employment->Active()) continue;
            atWork = true;
            counted = counted || employment->EmployCount() == count_;
        }
        if (atWork && !counted) {
            findings_.add("count-mismatch",
                          {"PREmployeeDetails", std::to_string(naid_), naid_, employee_->Name()},
                          "PREPYEmployCount is " + std::to_string(count_) +
                              ", which is not the employment that goes on");
        }
        employee_.reset();
    }

    // The row to which a field of the joined row belongs.
    Place placeOf(std::string_view source) const {
        const auto begins = [source](std::string_view with) {
            return equalsIgnoringCase(source.substr(0, with.size()), with);
        };
        const auto at = [&](const char* table, const FieldName& key) {
            return Place{table, textIn(*row_, key), naid_, nameIn(*row_)};
        };
        if (begins("PRT")) return at("PREmployments", field::PRTID);
        if (begins("NA")) return at("Customers", field::NAID);
        if (begins("PS") && !row_->IsNull(field::PSID)) return at("PensionSchemes", field::PSID);
        return at("PREmployeeDetails", field::PRENAID);
    }

    static std::string nameIn(Recordset& row) {
        return row.IsNull(field::NABusName) ? std::string() : row.Value(field::NABusName).toText();
    }

    CEmployeeList& list_;
    Findings& findings_;
    std::shared_ptr<MendedRow> row_;
    Date minStart_;
    std::shared_ptr<cEmployee> employee_;
    std::shared_ptr<cEmployment> prev_;
    std::int32_t naid_ = 0;
    std::int32_t count_ = 0;
};

// ---- what stands beside them --------------------------------------------------------------------

bool hasControlRecord() {
    return DLLGlobal::g().g_rsPRControl().RecordCount() != 0;
}

// Returns whether they fit together, so that a run can be tried.
bool auditSettings(CPayrollFunctions& payroll, Findings& findings) {
    const std::int32_t controls = DLLGlobal::g().g_rsPRControl().RecordCount();
    if (controls == 0) {
        findings.add("settings", {"PRControl", ""}, "there is no control record",
                     error_number::noCurrentRecord);
        return false;
    }
    if (controls > 1) {
        findings.add("second-control", {"PRControl", ""},
                     "there are " + std::to_string(controls) +
                         " control records; the library reads the first");
    }
    try {
        payroll.C_DateOfWeekNo(1);
    } catch (const Error& error) {
        const std::int32_t year = numberIn(DLLGlobal::g().g_rsPRControl(), field::PRCFCurrentYear);
        const bool noYearEnd = error.Number() == error_number::noSuchItem;
        findings.add("settings", {"PRControl", ""},
                     noYearEnd ? "there is no year end of payroll year " + std::to_string(year - 1)
                               : std::string(error.what()),
                     error.Number());
        return false;
    }
    return true;
}

void auditFlags(CEmployeeList& list, Findings& findings) {
    for (const auto& employee : list.Employees()) {
        try {
            employee->UpdateFlags();
        } catch (const Error& error) {
            const bool frequency = error.Number() == 9909 || error.Number() == 9910;
            employee->Active(false);  // no opening is tried
            findings.add(
                frequency ? "frequency" : "fault",
                {"PREmployeeDetails", std::to_string(employee->NAID()), employee->NAID(),
                 employee->Name()},
                "PREPayFrequency " + std::to_string(employee->PayFrequency()) + ": " + error.what(),
                error.Number());
        }
    }
}

void auditNumbers(CEmployeeList& list, Findings& findings) {
    std::map<std::string, std::int32_t> owners;
    for (const auto& employee : list.Employees()) {
        const std::string number = employee->NINO();
        if (number.empty()) continue;
        const auto [owner, isFirst] = owners.emplace(number, employee->NAID());
        if (isFirst) continue;
        findings.add("duplicate-number",
                     {"PREmployeeDetails", std::to_string(employee->NAID()), employee->NAID(),
                      employee->Name()},
                     number + " is the number of " + std::to_string(owner->second) + " too");
    }
}

void auditStrayEmployments(Findings& findings) {
    const auto rows = DLLGlobal::g().DBDll().OpenRecordset(
        R"(SELECT PRTID, PRTNAID
           FROM PREmployments
             LEFT JOIN PREmployeeDetails
               ON PREmployeeDetails.PRENAID = PREmployments.PRTNAID
           WHERE PRENAID IS NULL
           ORDER BY PRTID)",
        RecordsetType::Snapshot);
    for (; !rows->Eof(); rows->MoveNext()) {
        findings.add(
            "stray-employment", {"PREmployments", textIn(*rows, field::PRTID)},
            "belongs to " + textIn(*rows, field::PRTNAID) + ", who has no payroll details");
    }
    rows->Close();
}

void auditImport(CEmployeeList& list, Findings& findings) {
    if (!DLLGlobal::DAO_ADO().TempTableExists("PRPayImport")) return;
    const RecordsetRef rows = load::openPayImport();
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::int32_t naid = numberIn(*rows, field::PRPINAID);
        if (naid != 0 && findings.isPassedOver(naid)) continue;
        const Place place{"PRPayImport", textIn(*rows, field::PRPINAID), naid};
        try {
            load::takePayImport(list, *rows);
        } catch (const Error& error) {
            const bool ofNobody = error.Number() == error_number::objectNotSet ||
                                  equalsIgnoringCase(error.Source(), field::PRPINAID.text());
            findings.add(
                ofNobody ? "import-of-nobody" : kindOf(error.Number()), place,
                (ofNobody ? "there is no employee " + place.key : std::string(error.what())) +
                    "; a run cannot be opened",
                error.Number());
        }
    }
    rows->Close();
}

void auditOrders(CEmployeeList& list, Findings& findings) {
    const RecordsetRef rows = load::openOrderLines();
    for (; !rows->Eof(); rows->MoveNext()) {
        try {
            load::takeOrderLine(list, *rows);
        } catch (const Error& error) {
            const bool ofItem =
                isIn(error.Source(), {field::Qty, field::DSDesc, field::UoPCode, field::NetPrice});
            findings.add(ofItem ? "order-without-item" : kindOf(error.Number()),
                         {"Orders", textIn(*rows, field::OrdID), numberIn(*rows, field::OrdNAID)},
                         std::string(error.what()) + "; a run cannot be opened", error.Number());
        }
    }
    rows->Close();
}

// Opens each employee's next periods on a database that writes nothing: those that have a row, and
// one that gets a new one.
void auditOpening(CEmployeeList& list, CPayrollFunctions& payroll, Findings& findings) {
    const DryRun dryRun;
    for (const auto& employee : list.Employees()) {
        if (!employee->Active() || employee->Casual()) continue;
        Date due = employee->CurEmployment()->NExpPayDate();
        if (!due.isSet()) continue;  // nobody has started the employee's history
        try {
            const auto frequency = static_cast<PR_Pay_Freq>(employee->PayFrequency());
            for (std::int32_t left = findings.openRowsOf(employee->NAID()); left > 0; --left) {
                due = payroll.C_Calc_Next_NExpDate(due, frequency, PR_NExp_Pay);
            }
            payrun::openPeriods(payroll, employee->NAID(), due);
        } catch (const Error& error) {
            const ErrorRow& row = error.Row();
            Place place{"PREmployeeDetails", std::to_string(employee->NAID()), employee->NAID(),
                        employee->Name()};
            // A row that is only being made has no key, and what is wrong comes from the employee.
            if (row.table == "PRPay" && row.key > 0) {
                place.table = row.table;
                place.key = std::to_string(row.key);
            }
            findings.add(kindOf(error.Number()), std::move(place),
                         std::string(error.what()) + ", when the next period is opened",
                         error.Number());
        }
    }
}

}  // namespace

// ---- findings -----------------------------------------------------------------------------------

void Findings::add(std::string_view kind, Place place, std::string what, std::int32_t error) {
    const auto found = std::find_if(kinds().begin(), kinds().end(),
                                    [kind](const Kind& each) { return each.name == kind; });
    if (found == kinds().end()) raise(error_number::noSuchItem, "Findings", kind);
    found_.push_back({&*found, std::move(place.table), std::move(place.key), place.naid,
                      std::move(place.name), std::move(what), error});
}

bool Findings::takeFault(MendedRow& row, Place place, const Error& error) {
    if (error.Number() == error_number::noSuchItem) throw error;  // the field is not there at all
    const std::string& source = error.Source();
    bool isField = !row.isMended(source);
    try {
        row.IsNull(source);
    } catch (const Error&) {
        isField = false;
    }
    const bool ofNoScheme =
        isIn(source, {field::PSDefEE, field::PSDefER}) && row.IsNull(field::PSID);
    if (ofNoScheme) {
        row.mend(field::PSDefEE.text());
        row.mend(field::PSDefER.text());
        add("no-scheme", std::move(place),
            "scheme " + textIn(row, field::PREPenWorkplaceSchemeID) + " is not there",
            error.Number());
        return true;
    }
    add(kindOf(error.Number()), std::move(place),
        isField ? source + ": " + error.Description() : error.what(), error.Number());
    if (isField) row.mend(source);
    return isField;
}

std::vector<Finding> Findings::takeAll() {
    std::stable_sort(found_.begin(), found_.end(), [](const Finding& a, const Finding& b) {
        return a.kind->severity < b.kind->severity;
    });
    return std::move(found_);
}

std::vector<Finding> auditCompany(CEmployeeList& list, CPayrollFunctions& payroll) {
    Findings findings;
    const auto look = [&findings](auto&& at) {
        try {
            at();
            return true;
        } catch (const Error& error) {
            findings.add("unreadable", {"", ""}, error.what(), error.Number());
            return false;
        }
    };
    list.Clear();
    bool canOpen = false;
    look([&] { canOpen = auditSettings(payroll, findings); });
    if (hasControlRecord() && look([&] { EmployeeRows(list, findings).run(); })) {
        look([&] { auditPayRows(list, findings); });
        look([&] { auditFlags(list, findings); });
        look([&] { auditNumbers(list, findings); });
        look([&] { auditImport(list, findings); });
        look([&] { auditOrders(list, findings); });
        if (canOpen) look([&] { auditOpening(list, payroll, findings); });
    }
    look([&] { auditStrayEmployments(findings); });
    list.Clear();
    return findings.takeAll();
}

}  // namespace ledgerwick::audit
