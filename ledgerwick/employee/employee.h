// One employee: the person, the payroll details, the workplace pension, and all employments.
//
//   auto emp = list->GetEmployeeByNAID(7);
//   emp->Name();                            // "Mr John Smith"
//   emp->CurEmployment()->NExpPayDate();    // when pay falls due next
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ledgerwick/employee/packed_texts.h"
#include "ledgerwick/employment/employment.h"
#include "ledgerwick/export.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/collection.h"
#include "ledgerwick/values/property.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {

class CAutoEnrolStatus;

// Owned by the list, keyed by NAID; owns its employments, keyed by PRTID as a decimal string, in
// the order of the load. A new object has every number 0, every boolean False, every date 0 and
// every string empty. No setter validates anything, and none writes to the database; those of the
// number and the address take surrounding spaces off.
class LEDGERWICK_API cEmployee : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "cEmployee"; }
    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }

    // The fields that `UpdateWorkplacePensionDetails` reads from its row.
    static FieldList workplacePensionFields() noexcept;

    // The live collection, oldest employment first.
    Collection<std::shared_ptr<cEmployment>>& Employments() noexcept { return employments_; }
    Property<std::int32_t> Group;  // the employee's group number

    // ---- employments (employment_selection.cpp) -------------------------------------------------

    // The employment in force.
    // Shape:  never empty: without one in force it is a blank record, the same at every read.
    std::shared_ptr<cEmployment> CurEmployment();
    // The latest employment that is not void.
    // Shape:  an empty reference, with `*bNotKnown` set to True, when there is no such employment;
    //         otherwise `*bNotKnown` is left alone.
    std::shared_ptr<cEmployment> MostRecentEmployment(bool* bNotKnown = nullptr);
    // Its key; 0 without one.
    std::int32_t MostRecentEmploymentPRTID() const noexcept { return mostRecentPRTID_; }
    // The employment before the most recent one.
    // Shape:  as `MostRecentEmployment`.
    std::shared_ptr<cEmployment> PreviousEmployment(bool* bNotKnown = nullptr);
    // Its key; 0 without one.
    std::int32_t PreviousEmploymentPRTID() const noexcept { return previousPRTID_; }

    // Adds an employment from the current row, at the end.
    // Errors: 94 for a row without PRTID, 457 for a PRTID that is there already: nothing is added.
    //         Those of `cEmployment::CreateEmployment`: the employment is added, partly filled.
    std::shared_ptr<cEmployment> AddEmployment(Recordset& rsEmployment);
    // Hands a pay row to the employment of its PRTID.
    // Errors: 94 for a row without PRTID, 3265 for an unknown one, those of
    //         `cEmployment::AddPayment`.
    void AddPayment(Recordset& rsPay);
    Property<bool> Active;  // the most recent employment is active
    // Works out, once all pay rows are in, which employment is the most recent and which is in
    // force, and starts the expected pay reference periods. Going through the employments that are
    // not void, each one whose year and count are above those of its neighbour before it becomes the
    // most recent. A flag that is set stays set.
    // Errors: those of `cEmployment::CalcExpPRP`; the flags of this employee are then set.
    void UpdateFlags();
    // Takes the workplace scheme and its rates from a row of the employee joined with the scheme.
    // Errors: 94 for a Null rate; what came before it stays changed.
    void UpdateWorkplacePensionDetails(Recordset& rsEmp);

    // ---- the person (employee.cpp) --------------------------------------------------------------

    // clang-format off
    // An identifier that the host may set; not loaded.
    std::string IID() const { return texts_.get(Text::IID); }
    void IID(std::string_view value) { texts_.set(Text::IID, value); }
    // A further number of the person, taken out of the name by the host.
    std::int32_t           OtherID() const noexcept { return otherID_; }
    void                   OtherID(std::int32_t value) noexcept { otherID_ = value; }
    Property<std::int32_t> NAID;             // the identity of the employee everywhere
    std::string BusName() const { return texts_.get(Text::BusName); }  // the name as one text
    // clang-format on

    // Stores the name and has the host split it into the parts and `OtherID`.
    // Errors: 91 without a host, those of the host; the name is then stored.
    void BusName(std::string_view value);

    // clang-format off
    std::string SortSeq() const { return texts_.get(Text::SortSeq); }  // sort sequence
    void SortSeq(std::string_view value) { texts_.set(Text::SortSeq, value); }
    // clang-format on

    // "Mr John Paul Smith"; a missing part leaves no double space.
    std::string Name() const;
    // "Mr John Smith", likewise.
    std::string ShortName() const;

    // clang-format off
    std::string NINO() const { return texts_.get(Text::NINO); }  // National Insurance number
    void NINO(std::string_view value) { texts_.set(Text::NINO, trim(value)); }
    Property<bool>         HourlyPaid;                        // paid by the hour
    Property<bool>         NINODuplicated;                    // another employee has the number
    Property<bool>         IIDDuplicated;                     // another employee has the IID
    std::string Forename1() const { return texts_.get(Text::Forename1); }  // first forename, as the host split the name
    std::string Title() const { return texts_.get(Text::Title); }  // "Mr", as the host split the name
    std::string Forename2() const { return texts_.get(Text::Forename2); }  // second forename, as the host split the name
    std::string OtherForenames() const { return texts_.get(Text::OtherForenames); }  // all further forenames
    std::string Surname() const { return texts_.get(Text::Surname); }  // family name, as the host split the name
    std::string            Forenames() const;                 // a missing one leaves its blank
    std::string Sex() const { return texts_.get(Text::Sex); }  // as stored
    void Sex(std::string_view value) { texts_.set(Text::Sex, value); }
    std::string Add1() const { return texts_.get(Text::Add1); }  // first line of the address
    void Add1(std::string_view value) { texts_.set(Text::Add1, trim(value)); }
    std::string Add2() const { return texts_.get(Text::Add2); }  // second line of the address
    void Add2(std::string_view value) { texts_.set(Text::Add2, trim(value)); }
    std::string PostCode() const { return texts_.get(Text::PostCode); }  // post code
    void PostCode(std::string_view value) { texts_.set(Text::PostCode, trim(value)); }
    // clang-format on

    // The address on a form of `lPieces` lines: country last, post code before it, and the other
    // lines from the top, of which the shortest neighbours are joined until they fit.
    // Shape:  an array (1 To lPieces); lines that are not needed are Empty.
    // Errors: 9 for fewer than three lines, those of the host's `DeleteFromArray`.
    Variant Address(std::int32_t lPieces);

    // clang-format off
    std::string Email() const { return texts_.get(Text::Email); }  // e-mail address
    void Email(std::string_view value) { texts_.set(Text::Email, value); }
    // The telephone number at home, set by the host; not loaded, like the next two.
    std::string Phone_Home() const { return texts_.get(Text::Phone_Home); }
    void Phone_Home(std::string_view value) { texts_.set(Text::Phone_Home, value); }
    std::string Phone_Mobile() const { return texts_.get(Text::Phone_Mobile); }  // mobile telephone
    void Phone_Mobile(std::string_view value) { texts_.set(Text::Phone_Mobile, value); }
    std::string Phone_Work() const { return texts_.get(Text::Phone_Work); }  // telephone at work
    void Phone_Work(std::string_view value) { texts_.set(Text::Phone_Work, value); }
    Property<Date>         DOB;                   // date of birth
    std::string Village() const { return texts_.get(Text::Village); }  // village of the address
    void Village(std::string_view value) { texts_.set(Text::Village, trim(value)); }
    std::string Town() const { return texts_.get(Text::Town); }  // post town
    void Town(std::string_view value) { texts_.set(Text::Town, trim(value)); }
    std::string County() const { return texts_.get(Text::County); }  // county
    void County(std::string_view value) { texts_.set(Text::County, trim(value)); }
    std::string Country() const { return texts_.get(Text::Country); }  // country
    void Country(std::string_view value) { texts_.set(Text::Country, trim(value)); }
    Property<Date>         AEOptInDate;           // the day of opting in to the scheme, the zero date for none
    // clang-format on

    // The opt-out date, or the zero date when it lies before the latest employment began.
    // Errors: 91 while there is no most recent employment.
    Date AEOptOutDate();
    void AEOptOutDate(Date value) noexcept { aeOptOutDate_ = value; }

    // clang-format off
    Property<Date>         AEJoinedDate;  // the day of joining the scheme
    Property<Date>         AEPostponementDate;  // the day until which enrolment is put off
    Property<bool>         Casual;                      // the current employment is casual
    Property<std::int16_t> PayFrequency;                // a PR_Pay_Freq value
    std::string Seq() const { return texts_.get(Text::Seq); }  // the short code of the name
    void Seq(std::string_view value) { texts_.set(Text::Seq, value); }
    Property<bool>         Director;  // is a director of the company
    std::string NITable() const { return texts_.get(Text::NITable); }  // table letter
    void NITable(std::string_view value) { texts_.set(Text::NITable, value); }
    std::string TaxCode() const { return texts_.get(Text::TaxCode); }  // tax code
    void TaxCode(std::string_view value) { texts_.set(Text::TaxCode, value); }
    Property<std::int32_t> PenWorkplaceSchemeID;        // workplace scheme, 0 for none
    Property<bool>         PenWorkplaceUseSchemeRates;  // the default rates of the scheme apply
    Property<float>        PenWorkplaceEEDeductPC;      // percentage of the employee
    Property<float>        PenWorkplaceERDeductPC;  // percentage of the employer
    Property<Currency>     PenWorkplaceEEDeductFlat;    // flat amount of the employee
    Property<Currency>     PenWorkplaceERDeductFlat;  // flat amount of the employer
    Property<Currency>     HourlyRate;                  // standard rate by the hour
    Property<Currency>     PeriodRate;  // standard rate by the period
    // clang-format on

    // autoenrol/assessment.cpp:
    // Where the employee stands by the pay records of a payroll year up to a date, open or closed
    // ones. The pay rows of that year and of the one before are first read into the year stores of
    // employments that do not hold them yet; no running state of an employment moves.
    // Shape:  a new object, with its initial values when no pay record counts. The records of an
    //         employment are taken in the order of their keys.
    std::shared_ptr<CAutoEnrolStatus> GetAutoEnrolStatus(Date dtmPayDateUpTo,
                                                         std::int32_t lPayrollYear,
                                                         bool bPeriodUpdated);

    // The employment under a PRTID in decimal, or an empty reference.
    std::shared_ptr<cEmployment> GetEmploymentByIndex(const std::string& Index);

    // clang-format off
    std::string UserRef() const { return texts_.get(Text::UserRef); }  // the user's reference
    void UserRef(std::string_view value) { texts_.set(Text::UserRef, value); }
    Property<float>        HolidayAllowance;  // days
    // clang-format on

  private:
    // The texts, in the order in which a record holds them.
    enum class Text : std::uint8_t {
        IID,
        BusName,
        SortSeq,
        UserRef,
        Title,
        Forename1,
        Forename2,
        OtherForenames,
        Surname,
        Sex,
        Add1,
        Add2,
        Village,
        Town,
        County,
        PostCode,
        Country,
        Email,
        Phone_Home,
        Phone_Mobile,
        Phone_Work,
        NINO,
        Seq,
        NITable,
        TaxCode,
        Count,
    };

    void SplitName();
    void LoadPayrollYearIfMissing(std::int32_t lNAID, std::int32_t lPayrollYear,
                                  bool bPeriodUpdated);
    bool ItemExists(const std::string& Index);

    std::shared_ptr<cEmployment> employmentOf(std::int32_t prtid) const noexcept;
    void carryLastRTI(cEmployment& employment);

    Collection<std::shared_ptr<cEmployment>> employments_;
    std::shared_ptr<cEmployment> curEmployment_;
    std::int32_t mostRecentPRTID_ = 0;
    std::int32_t previousPRTID_ = 0;
    std::int32_t otherID_ = 0;
    Date aeOptOutDate_;
    PackedTexts<Text> texts_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
