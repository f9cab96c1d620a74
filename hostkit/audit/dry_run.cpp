#include "hostkit/audit/dry_run.h"

#include <string>
#include <utility>

#include "hostkit/forwarding/forwarding_database.h"
#include "ledgerwick/host/dll_global.h"

namespace ledgerwick::audit {

namespace {

// Rows are edited and never stored. A new row stays in edit after `Update`, so that it can be read
// and edited again as if it had been stored; it has no key.
class DrySet : public ForwardingRecordset {
  public:
    using ForwardingRecordset::ForwardingRecordset;
    using ForwardingRecordset::Value;

    void AddNew() override {
        ForwardingRecordset::AddNew();
        isNew_ = true;
    }
    void Edit() override {
        if (!isNew_) ForwardingRecordset::Edit();
    }
    void Update() override {}
    ledgerwick::Bookmark LastModified() override { return {}; }
    void Bookmark(const ledgerwick::Bookmark&) override {}

    Variant Value(const FieldName& name) override { return real().Value(name); }
    std::int32_t GetInt32(const FieldName& name) override {
        return isNew_ && IsNull(name) ? 0 : ForwardingRecordset::GetInt32(name);
    }

  private:
    bool isNew_ = false;
};

class DryDatabase : public ForwardingDatabase {
  public:
    using ForwardingDatabase::ForwardingDatabase;
    void Execute(std::string_view, std::int32_t) override {}
    void BeginBatch() override {}
    void EndBatch() override {}

  protected:
    RecordsetRef wrap(RecordsetRef opened, std::string_view, RecordsetType type) override {
        if (type == RecordsetType::Snapshot) return opened;
        return std::make_shared<DrySet>(std::move(opened));
    }
};

// The host's state with another database.
class DryState : public HostState {
  public:
    explicit DryState(HostState& real) : real_(real), database_(real.DBDll()) {}

    Database& DBDll() override { return database_; }
    Recordset& g_rsPRControl() override { return real_.g_rsPRControl(); }
    const Dictionary<std::int32_t, Date>& g_dicPRYears() override { return real_.g_dicPRYears(); }
    Date g_dtmToday() override { return real_.g_dtmToday(); }
    std::int16_t g_iAEPRPStartDay() override { return real_.g_iAEPRPStartDay(); }
    std::string g_strPCID() override { return real_.g_strPCID(); }
    std::string g_strProgName() override { return real_.g_strProgName(); }
    std::string strCurFormat() override { return real_.strCurFormat(); }
    CustomerFunctions& C_customerFunctions() override { return real_.C_customerFunctions(); }

  private:
    HostState& real_;
    DryDatabase database_;
};

}  // namespace

DryRun::DryRun() : host_(DLLGlobal::references().g), dataAccess_(DLLGlobal::references().DAO_ADO) {
    identify_.SetDAO_ADO(dataAccess_);
    identify_.Setg(std::make_shared<DryState>(DLLGlobal::g()));
}

DryRun::~DryRun() {
    identify_.Setg(host_);
}

}  // namespace ledgerwick::audit
