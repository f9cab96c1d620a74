// The kit's global state of a host: the open database and what the library reads beside it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "hostkit/services/customer_functions.h"
#include "hostkit/services/parameters.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick {

// Takes a critical message of the library: a caption and a text.
using MessageSink = std::function<void(const std::string& caption, const std::string& text)>;

// What a host says about itself.
struct HostSettings {
    std::string programPath = ".";           // the program's folder; letter templates lie below it
    std::string pcId = "1";                  // this workstation; letters, digits and "_"
    std::string programName = "Ledgerwick";  // caption of messages
    MessageSink messages;  // where critical messages go; the error stream if empty
    std::shared_ptr<CustomerFunctions> customerFunctions;  // the kit's own if empty
};

// Reads the control record from the table `PRControl`, the year ends from `PRYearEnds(PRYEYear,
// PRYEDate)`, and the money format and the first day of a weekly pay reference period from the
// parameters "CurFormat" (else "#,##0.00") and "AEPRPStartDay" (else 0). The year ends are held in
// memory; what another process changes in them is seen after `ReloadYearEnds`. Today is what the host
// says: the kit reads no clock.
class LEDGERWICK_HOSTKIT_API KitHostState : public HostState {
  public:
    // Errors: 5 for a `pcId` that cannot stand in the name of a table.
    KitHostState(std::shared_ptr<Database> database,
                 std::shared_ptr<const KitParameters> parameters, Date today,
                 HostSettings settings = {});

    Database& DBDll() override { return *database_; }
    // The row as it is now, whoever wrote it.
    Recordset& g_rsPRControl() override;
    const Dictionary<std::int32_t, Date>& g_dicPRYears() override { return yearEnds_; }
    Date g_dtmToday() override { return today_; }
    void g_dtmToday(Date today) { today_ = today; }  // moves on to another day
    std::int16_t g_iAEPRPStartDay() override;
    std::string g_strPCID() override { return settings_.pcId; }
    // Errors: 5 for one that cannot stand in the name of a table.
    void g_strPCID(const std::string& pcId);
    std::string g_strProgName() override { return settings_.programName; }
    // Changes the program's name.
    void g_strProgName(const std::string& name) { settings_.programName = name; }
    std::string strCurFormat() override;
    bool g_blnPRSchUp() override { return prSchUp_; }
    void g_blnPRSchUp(bool value) override { prSchUp_ = value; }
    // Those of the settings.
    CustomerFunctions& C_customerFunctions() override { return *settings_.customerFunctions; }

    void ShowCriticalMessage(const std::string& caption, const std::string& text) override;

    // Reads the year-ends again, after a change of the table.
    void ReloadYearEnds();

  private:
    std::shared_ptr<Database> database_;
    std::shared_ptr<const KitParameters> parameters_;
    Date today_;
    HostSettings settings_;
    RecordsetRef control_;
    Dictionary<std::int32_t, Date> yearEnds_;
    bool prSchUp_ = false;
};

}  // namespace ledgerwick
