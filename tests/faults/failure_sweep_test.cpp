// Every operation, broken off at every single thing that it asks of the database.
//
// The record access layer fails at the first, the second, ... opening, move, read, write or
// statement of an operation, until the operation passes. Each time: the error is the one raised, the
// database holds exactly what was stored before, the list can still be asked, and what a host does
// next completes the work as if nothing had happened.
#include <gtest/gtest.h>

#include <exception>
#include <ostream>
#include <string>
#include <vector>

#include "hostkit/store/company_recordset.h"
#include "ledgerwick/values/text.h"
#include "tests/support/company.h"
#include "tests/support/failing_database.h"

namespace ledgerwick::test {
namespace {

const Date payDate = day("2016-05-31");
constexpr std::int32_t schemeId = 3;
constexpr std::int32_t staff[] = {7, 8, 9};

// ---- what a company holds, as text --------------------------------------------------------------

std::string textOf(const Variant& value) {
    return value.isNull() ? "Null" : value.toText();
}

std::string tableText(sqlite::SqliteDatabase& database, const std::string& table) {
    const auto rows = database.OpenRecordset("SELECT * FROM " + table, RecordsetType::Snapshot);
    const auto& fields = dynamic_cast<const store::CompanyRecordset&>(*rows);
    std::string text = table + "\n";
    for (; !rows->Eof(); rows->MoveNext()) {
        for (std::size_t i = 0; i < fields.fieldCount(); ++i) {
            text += textOf(rows->Value(fields.fieldName(i))) + "|";
        }
        text += "\n";
    }
    return text;
}

// Every table that an operation writes to, whole and with its keys.
std::string storeText(Company& company) {
    std::string text;
    for (const char* table : {"PRPay", "PREmployments", "PREmploymentsAddInfo", "Orders"}) {
        text += tableText(company.database(), table);
    }
    return text;
}

// Asks for everything as a host would; nothing of it may fail, whatever the list has been through.
std::string listText(Company& company) {
    std::string text;
    for (const std::int32_t naid : staff) {
        const auto employee = company.list().GetEmployeeByNAID(naid);
        text += std::to_string(naid) + (company.list().ExistsByNAID(naid) ? " is" : " is not") +
                " in the list\n";
        if (!employee) continue;
        for (const bool flag : {employee->Active(), employee->Casual(), employee->NINODuplicated(),
                                company.list().ExistsByNINO(employee->NINO())}) {
            text += flag ? "+" : "-";
        }
        text += " " + employee->BusName() + " " +
                numberText(double{employee->PenWorkplaceEEDeductPC()}) + "\n";
        for (const auto& each : employee->Employments()) {
            cEmployment& e = *each;
            text += std::to_string(e.PRTID()) + " week " + std::to_string(e.LastWeekNo()) + " to " +
                    e.LastEPEDate().toIso() + " next " + e.NExpPayDate().toIso() + " " +
                    e.NExpEPEDate().toIso() + " row " + std::to_string(e.LastUD_PRPID()) +
                    (each == employee->CurEmployment() ? " current" : "") + "\n";
        }
    }
    return text;
}

// ---- the operations -----------------------------------------------------------------------------

struct Swept {
    const char* name;
    void (*ready)(Company&);  // what comes before, and cannot fail
    void (*act)(Company&);
    void (*again)(Company&);  // what a host does after a failure
};

void load(Company& company) {
    company.load();
}

void loadUncleared(Company& company) {
    company.list().LoadEmployees(company.label);
}

void reload(Company& company) {
    company.list().ReLoadEmployee(7);
}

void openRun(Company& company) {
    Variant columns("as before");
    try {
        company.payroll().C_InputHoursInit(payDate, PFREQ_SelAll, 0, 0, &columns);
    } catch (...) {
        EXPECT_EQ(columns, Variant("as before"));
        throw;
    }
    EXPECT_EQ(columns.array().upperBound(2), 4);
}

void readyToClose(Company& company) {
    load(company);
    openRun(company);
    company.exec("UPDATE PRPay SET PRPHasBeenVisited = -1");
}

void closeRun(Company& company) {
    for (const std::int32_t naid : staff) {
        company.payroll().C_UpdatePayPeriod(naid, payDate);
        company.list().ReLoadEmployee(naid);
    }
}

// The dates of a closing count from the employment, so that an employee whose closing broke off is
// loaded again before it is repeated.
void reloadAndClose(Company& company) {
    for (const std::int32_t naid : staff) company.list().ReLoadEmployee(naid);
    closeRun(company);
}

void fillGaps(Company& company) {
    company.payroll().AutoFillMissingPeriods();
}

Variant addInfo(std::int32_t prtid) {
    VariantArray array(1, 18);
    for (std::int32_t i = 1; i <= 18; ++i) array.at(i) = i;
    array.at(2) = prtid;
    array.at(3) = std::int32_t{PRTAT_P46};
    return array;
}

void addEmployment(Company& company) {
    company.payroll().C_CreateNewEmploymentRecord(8, 8, PR_ET_Regular, "2016-06-01", addInfo(0));
}

// An employment row that is there lacks its add-info at most.
void addWhatIsMissing(Company& company) {
    constexpr const char* row = "PREmployments WHERE PRTNAID = 8 AND PRTStartWeekNo = 8";
    if (company.count(row) == 0) return addEmployment(company);
    const std::int32_t prtid = company.value("PRTID", row).toInt32();
    if (company.count("PREmploymentsAddInfo") == 0) {
        company.payroll().PR_EmploymentsAddInfo_Add(addInfo(prtid));
    }
}

void startHistory(Company& company) {
    company.payroll().C_CreateStartingPayRecord(8, 9, day("2016-06-01"), day("2016-06-10"),
                                                day("2016-06-08"));
}

void updateScheme(Company& company) {
    company.exec("UPDATE PensionSchemes SET PSDefEE = 6");
    company.payroll().C_PenWorkplaceSchemeUpdate(schemeId);
}

void moveReEnrolment(Company& company) {
    company.payroll().C_ReEnrolDateChanged(day("2016-07-01"), day("2016-08-01"));
}

void readyToCloseOrders(Company& company) {
    load(company);
    company.list().LoadImportedPay();
}

void closeOrders(Company& company) {
    company.current(9).UpdateImportedEarnings(5, day("2016-04-01"), payDate, 12, Variant("O'Neil"));
}

constexpr Swept sweeps[] = {
    {"Load", [](Company& company) { company.list(); }, loadUncleared, load},
    {"Reload", load, reload, reload},
    {"OpenRun", load, openRun, openRun},
    {"CloseRun", readyToClose, closeRun, reloadAndClose},
    {"FillGaps", load, fillGaps, fillGaps},
    {"AddEmployment", load, addEmployment, addWhatIsMissing},
    {"StartHistory", load, startHistory, startHistory},
    {"UpdateScheme", readyToClose, updateScheme, updateScheme},
    {"MoveReEnrolment", readyToClose, moveReEnrolment, moveReEnrolment},
    {"CloseOrders", readyToCloseOrders, closeOrders, closeOrders},
};

// ---- the sweep ----------------------------------------------------------------------------------

// A company with something for each of the operations to do: one paid by the month and two months
// behind, one by the week with a gap and imported pay, one with piecework.
class Office {
  public:
    explicit Office(const Swept& swept)
        : failing_(std::make_shared<FailingDatabase>(company.database())) {
        company.useDatabase(failing_);
        company.scheme(schemeId, "Nest egg", 5, 3, 2);
        company.employee(7).nino("QQ123456A").inScheme(schemeId).employment(17, 2).monthly();
        company.employee(7)
            .started("2016-03-01")
            .closed(month(1))
            .pay("PRPNExpPayDate = #5/1/2016#");
        company.employee(8).details("PREHourlyPaid = True, PREStdHourlyRate = 12.5");
        company.employee(8).closed(week(4)).closed(week(7));
        company.employee(9).nino("QQ123456A").closed(week(7));
        company.importedPay(8, 100).item(20, "Apples", 1, "kg");
        company.order(1, 9, 20, "2016-05-24", 4, 10).order(2, 9, 20, "2016-05-25", 4, 10, 1);
        swept.ready(company);
        failing_->failAt(Operation::Open, 0);
    }

    Company company;
    FailingDatabase& failing() { return *failing_; }

  private:
    std::shared_ptr<FailingDatabase> failing_;
};

// How an operation goes that nothing disturbs.
struct Undisturbed {
    std::vector<std::string> stores;  // before the first write, and after each
    std::string list;                 // as the operation leaves it
    std::string loaded;               // as a load shows it afterwards
    std::vector<int> counts;          // of each kind of operation

    explicit Undisturbed(const Swept& swept) {
        Office office(swept);
        stores.push_back(storeText(office.company));
        office.failing().onStored([&] { stores.push_back(storeText(office.company)); });
        swept.act(office.company);
        office.failing().onStored(nullptr);
        for (const auto& [kind, name] : operations) counts.push_back(office.failing().count(kind));
        list = listText(office.company);
        office.company.load();
        loaded = listText(office.company);
    }
};

std::ostream& operator<<(std::ostream& out, const Swept& swept) {
    return out << swept.name;
}

class FailureSweep : public testing::TestWithParam<Swept> {};

// Whether the operation broke off, as it should with the error of the layer.
bool breaksOff(const Swept& swept, Company& company) {
    try {
        swept.act(company);
        return false;
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), error_number::databaseError);
        EXPECT_TRUE(error.Source().ends_with("FailingDatabase")) << error.Source();
        return true;
    }
}

TEST_P(FailureSweep, LosesNothingAndDoublesNothing) {
    const Swept& swept = GetParam();
    const Undisturbed undisturbed(swept);
    for (std::size_t k = 0; k < operations.size(); ++k) {
        const auto& [kind, name] = operations[k];
        for (int number = 1; number <= undisturbed.counts[k]; ++number) {
            SCOPED_TRACE(std::string(name) + " " + std::to_string(number));
            Office office(swept);
            Company& company = office.company;
            std::size_t stored = 0;
            office.failing().onStored([&] { ++stored; });
            office.failing().failAt(kind, number);
            EXPECT_TRUE(breaksOff(swept, company));
            office.failing().onStored(nullptr);
            EXPECT_EQ(storeText(company), undisturbed.stores.at(stored));
            listText(company);

            swept.again(company);
            EXPECT_EQ(storeText(company), undisturbed.stores.back());
            EXPECT_EQ(listText(company), undisturbed.list);
            company.load();
            EXPECT_EQ(listText(company), undisturbed.loaded);
            if (HasFailure()) return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, FailureSweep, testing::ValuesIn(sweeps),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace ledgerwick::test
