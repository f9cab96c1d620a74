// One letter to a worker about auto-enrolment, from an editable template.
//
//   CAELetterDetail letter;
//   letter.LetterType(PR_AELT_ENROLMENT);
//   letter.EmployeeForename("Ann");           // fills "%Forename%" in the template
//   letter.AETriggerGBP_W(Currency::fromWhole(192));
//   letter.PayrollYear(17);                   // chooses the year block
//   show(letter.LetterText());                // from "AE Letter Templates/Enrolment.txt"
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ledgerwick/autoenrol/letter_template.h"
#include "ledgerwick/export.h"
#include "ledgerwick/host/enums.h"
#include "ledgerwick/host/identify.h"
#include "ledgerwick/values/currency.h"
#include "ledgerwick/values/date.h"
#include "ledgerwick/values/dictionary.h"
#include "ledgerwick/values/property.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// The host fills in the properties in any order and then asks for the texts. Statutory amounts and
// ages are only printed here: the host supplies each value.
//
// A let with a placeholder beside it stores its value. The first such let also fixes the text that
// replaces the placeholder: the letter shows the first value set, the get returns the last. A
// placeholder whose property was never set stays in the letter. The table in letter_template.h
// lists the placeholders and how each value is written. Names that end in GBP_M, GBP_A
// and GBP_W fill placeholders that end in £M, £A and £W: by month, by year, by week.
//
// Whole-number texts are rounded, an exact half away from zero.
class LEDGERWICK_API CAELetterDetail : public Object {
  public:
    // Takes `SignatureFile` from the host's program folder when the host has handed it over.
    CAELetterDetail();
    std::string_view TypeName() const noexcept override { return "CAELetterDetail"; }
    // A Variant holding the `Identify` of this object, made at the first read.
    Variant identifyClass() { return identify_.get(); }

    // ---- values that the template shows ---------------------------------------------------------

    void EmployeeForename(std::string value);  // %Forename%
    const std::string& EmployeeForename() const noexcept { return employeeForename_; }
    void AETriggerGBP_M(Currency value);  // %AETrigger£M%, "10000"
    Currency AETriggerGBP_M() const noexcept { return aeTriggerMonth_; }
    void AETriggerGBP_A(Currency value);  // %AETrigger£A%, "10,000"
    Currency AETriggerGBP_A() const noexcept { return aeTriggerYear_; }
    void AETriggerGBP_W(Currency value);  // %AETrigger£W%, "192"
    Currency AETriggerGBP_W() const noexcept { return aeTriggerWeek_; }
    void AEMinContribPct(float value);  // %AEMinContrib%, a whole number
    float AEMinContribPct() const noexcept { return aeMinContribPct_; }
    void AEMinEmployerContribPct(float value);  // %AEMinEmployerContrib%, a whole number
    float AEMinEmployerContribPct() const noexcept { return aeMinEmployerContribPct_; }
    void AEMinEmployeeContribPct(float value);  // %AEMinEmployeeContrib%, a whole number
    float AEMinEmployeeContribPct() const noexcept { return aeMinEmployeeContribPct_; }
    void PensionProvider(std::string value);  // %PensionProvider%
    const std::string& PensionProvider() const noexcept { return pensionProvider_; }
    void LELGBP_M(Currency value);  // %LEL£M%, "486"
    Currency LELGBP_M() const noexcept { return lelMonth_; }
    void LELGBP_W(Currency value);  // %LEL£W%, "112"
    Currency LELGBP_W() const noexcept { return lelWeek_; }
    void AETriggerAge(std::int16_t value);  // %AETriggerAge%, " 22"
    std::int16_t AETriggerAge() const noexcept { return aeTriggerAge_; }
    void PayDateFull(Date value);  // %PayDateFull%, " 29 April 2016"
    Date PayDateFull() const noexcept { return payDateFull_; }

    // The date of the letter; the host's today while it is not set.
    // Errors: 91 on reading when it is not set and there is no host state.
    void LetterDate(Date value) noexcept { letterDate_ = value; }
    Date LetterDate() const;

    void AEPostponementEndDate(Date value);  // %AEPostponementEndDate%, " 29 April 2016"
    Date AEPostponementEndDate() const noexcept { return aePostponementEndDate_; }

    Property<std::int32_t> PenWorkplaceSchemeID;  // the scheme of the letter
    // The payroll year number that decides the template's year block.
    Property<std::int16_t> PayrollYear;

    // The path of the signature's image, which is only held for the host.
    // Shape:  until a host sets it, `Graphics`, `Signature.gif` in the program folder, as that is
    //         when the object is made or, without a host then, at the first read.
    // Errors: 91 on reading while it was never set and there was no host since construction.
    void SignatureFile(std::string value) { signatureFile_ = std::move(value); }
    std::string SignatureFile() const;

    Property<PR_AE_LETTER_TYPES> LetterType;   // which kind of letter
    Property<std::string> EmployeeName;        // for the head of the letter
    Property<std::string> EmployeeNINO;        // National Insurance number
    Property<Date> EmployeeDoB;                // date of birth
    Property<std::string> EmployerSchemeName;  // for the heading

    // ---- texts ----------------------------------------------------------------------------------

    // Adds a line at the end of the address.
    void AddAddressLine(const std::string& sLine);
    // The lines of the address.
    // Shape:  separated by carriage return and line feed; empty lines at the start are dropped, later
    //         ones stay. Empty without lines.
    std::string EmployeeAddress() const;
    // What kind of letter it is, which is also the template's file name without ".txt".
    // Shape:  "*** No Letter Type Set ***" for no type and for any unknown number.
    std::string LetterTypeText() const;
    // The scheme's name, " - " and the type's text; the type's text alone without a scheme's name.
    std::string LetterHeadingText() const;
    // The body of the letter.
    // Shape:  empty when there is no template in `AE Letter Templates` of the program folder or in
    //         the folder itself. The template is read in Windows code page 1252. A malformed year
    //         block stays as it is; typographic single quotes become apostrophes.
    // Errors: 57, source "LetterText", when the template cannot be read; those of the host's
    //         functions.
    std::string LetterText() const;

  private:
    // Fixes the text that replaces a placeholder, unless it is fixed already.
    void fill(LetterValue which, std::string text);
    void fill(LetterValue which, Currency value);
    void fill(LetterValue which, double value);
    void fill(LetterValue which, Date value);
    void ApplyPreYearBlock(std::string& text) const;

    std::string employeeForename_, pensionProvider_;
    Currency aeTriggerMonth_, aeTriggerYear_, aeTriggerWeek_, lelMonth_, lelWeek_;
    float aeMinContribPct_ = 0, aeMinEmployerContribPct_ = 0, aeMinEmployeeContribPct_ = 0;
    std::int16_t aeTriggerAge_ = 0;
    Date payDateFull_, letterDate_, aePostponementEndDate_;
    mutable std::optional<std::string> signatureFile_;   // fixed when it is first read
    Dictionary<std::string, std::string> placeholders_;  // in the order of the first lets
    std::vector<std::string> addressLines_;
    IdentifyHolder identify_;
};

}  // namespace ledgerwick
