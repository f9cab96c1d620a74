// One employee: the person, the payroll details, the workplace pension, and all employments.
//
//   auto emp = list->GetEmployeeByNAID(7);
//   emp->Name();                            // "Mr John Smith"
//   emp->CurEmployment()->NExpPayDate();    // when pay falls due next
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/export.h"
#include "ledgerwick/shell/identify.h"
#include "ledgerwick/shell/record_access.h"
#include "ledgerwick/values/collection.h"
#include "ledgerwick/values/property.h"

namespace ledgerwick {

class CAutoEnrolStatus;

// Owned by the list, keyed by NAID; owns its employments, keyed by PRTID as a decimal string, in
// the order of the load. A new object has every number 0, every boolean False, every date 0 and
// every string empty. No setter validates anything, and none writes to the database.
class LEDGERWICK_API cEmployee : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "cEmployee"; }
    Variant identifyClass() { return identify_.get(); }

    // The live collection, oldest employment first.
    Collection<std::shared_ptr<cEmployment>>& Employments() noexcept { return employments_; }
    Property<std::int32_t> Group;

    std::shared_ptr<cEmployment> CurEmployment();
    std::shared_ptr<cEmployment> MostRecentEmployment(bool* bNotKnown = nullptr);
    std::int32_t MostRecentEmploymentPRTID() const noexcept { return mostRecentPRTID_; }
    std::shared_ptr<cEmployment> PreviousEmployment(bool* bNotKnown = nullptr);
    std::int32_t PreviousEmploymentPRTID() const noexcept { return previousPRTID_; }
    std::shared_ptr<cEmployment> AddEmployment(Recordset& rsEmployment);
    void AddPayment(Recordset& rsPay);
    Property<bool> Active;
    void UpdateFlags();
    void UpdateWorkplacePensionDetails(Recordset& rsEmp);

    Property<std::string> IID;
    Property<std::int32_t> OtherID;
    Property<std::int32_t> NAID;
    const std::string& BusName() const noexcept { return busName_; }
    void BusName(std::string value);
    Property<std::string> SortSeq;
    std::string Name() const;
    std::string ShortName() const;
    const std::string& NINO() const noexcept { return nino_; }
    void NINO(std::string_view value);
    Property<bool> HourlyPaid;
    Property<bool> NINODuplicated;
    Property<bool> IIDDuplicated;
    const std::string& Forename1() const noexcept { return forename1_; }
    const std::string& Title() const noexcept { return title_; }
    const std::string& Forename2() const noexcept { return forename2_; }
    const std::string& OtherForenames() const noexcept { return otherForenames_; }
    const std::string& Surname() const noexcept { return surname_; }
    std::string Forenames() const;
    Property<std::string> Sex;
    const std::string& Add1() const noexcept { return add1_; }
    void Add1(std::string_view value);
    const std::string& Add2() const noexcept { return add2_; }
    void Add2(std::string_view value);
    const std::string& PostCode() const noexcept { return postCode_; }
    void PostCode(std::string_view value);
    Variant Address(std::int32_t lPieces);
    Property<std::string> Email;
    Property<std::string> Phone_Home;
    Property<std::string> Phone_Mobile;
    Property<std::string> Phone_Work;
    Property<Date> DOB;
    const std::string& Village() const noexcept { return village_; }
    void Village(std::string_view value);
    const std::string& Town() const noexcept { return town_; }
    void Town(std::string_view value);
    const std::string& County() const noexcept { return county_; }
    void County(std::string_view value);
    const std::string& Country() const noexcept { return country_; }
    void Country(std::string_view value);
    Property<Date> AEOptInDate;
    Date AEOptOutDate();
    void AEOptOutDate(Date value) noexcept { aeOptOutDate_ = value; }
    Property<Date> AEJoinedDate;
    Property<Date> AEPostponementDate;
    Property<bool> Casual;
    Property<std::int16_t> PayFrequency;
    Property<std::string> Seq;
    Property<bool> Director;
    Property<std::string> NITable;
    Property<std::string> TaxCode;
    Property<std::int32_t> PenWorkplaceSchemeID;
    Property<bool> PenWorkplaceUseSchemeRates;
    Property<float> PenWorkplaceEEDeductPC;
    Property<float> PenWorkplaceERDeductPC;
    Property<Currency> PenWorkplaceEEDeductFlat;
    Property<Currency> PenWorkplaceERDeductFlat;
    Property<Currency> HourlyRate;
    Property<Currency> PeriodRate;

    // autoenrol/
    std::shared_ptr<CAutoEnrolStatus> GetAutoEnrolStatus(Date dtmPayDateUpTo,
                                                         std::int32_t lPayrollYear,
                                                         bool bPeriodUpdated);

    std::shared_ptr<cEmployment> GetEmploymentByIndex(const std::string& Index);
    Property<std::string> UserRef;
    Property<float> HolidayAllowance;

  private:
    void SplitName();
    void LoadPayrollYearIfMissing(std::int32_t lNAID, std::int32_t lPayrollYear);
    bool ItemExists(const std::string& Index);

    Collection<std::shared_ptr<cEmployment>> employments_;
    std::shared_ptr<cEmployment> curEmployment_;
    std::int32_t mostRecentPRTID_ = 0;
    std::int32_t previousPRTID_ = 0;
    Date aeOptOutDate_;
    std::string busName_, nino_;
    std::string title_, forename1_, forename2_, otherForenames_, surname_;
    std::string add1_, add2_, village_, town_, county_, postCode_, country_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
