#include "tests/support/memory_host.h"

#include <algorithm>
#include <set>

#include "ledgerwick/shell/schema.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::test {
namespace {

class Functions : public ProgramFunctions {
    std::string DateToUSstr(Date date) override { return formatDate(date, "m/d/yyyy"); }
    void BubbleSortLongArray(std::vector<std::int32_t>& array) override {
        std::sort(array.begin(), array.end());
    }
};

}  // namespace

class MemoryHost::TempTables : public DataAccess {
  public:
    std::set<std::string, std::less<>> names;
    bool TempTableExists(std::string_view name) override { return names.contains(name); }
};

Recordset& MemoryState::g_rsPRControl() {
    control_ = Rows{Row{{field::PRCFCurrentYear, currentPayrollYear}}};
    return control_;
}

void MemoryState::Names::SplitContactName(const std::string& BusName, std::string&, std::string&,
                                          std::string&, std::string& Surname, std::string&,
                                          std::int32_t&) {
    Surname = BusName;
}

void MemoryState::ShowCriticalMessage(const std::string& caption, const std::string& text) {
    criticalMessages.push_back(caption + ": " + text);
}

MemoryHost::MemoryHost() : tempTables_(std::make_shared<TempTables>()) {
    identify_.Setg(state_);
    identify_.Setpf(std::make_shared<Functions>());
    identify_.SetDAO_ADO(tempTables_);
    identify_.SetEmployeeList(list_);
}

MemoryHost::~MemoryHost() {
    identify_.Setg(nullptr);
    identify_.Setpf(nullptr);
    identify_.SetDAO_ADO(nullptr);
    identify_.SetEmployeeList(nullptr);
}

void MemoryHost::addTempTable(const std::string& name) {
    tempTables_->names.insert(name);
}

std::shared_ptr<cEmployee> MemoryHost::employee(std::int32_t naid, PR_Pay_Freq frequency) {
    Rows row{Row{{field::NAID, naid}, {field::PRENINO, ""}}};
    auto employee = list_->CreateEmployee(row);
    employee->NAID(naid);
    employee->PayFrequency(frequency);
    return employee;
}

}  // namespace ledgerwick::test
