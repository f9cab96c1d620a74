// What a host hands to the library: its services, as abstract classes.
//
// A host derives from these and hands the objects over through `Identify`. A member that a host
// leaves out fails at the point of use with error 438; an object never handed over fails there with
// error 91. hostkit/services has a ready implementation of all of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ledgerwick/export.h"
#include "ledgerwick/records/record_access.h"
#include "ledgerwick/values/dictionary.h"
#include "ledgerwick/values/variant.h"

namespace ledgerwick {

// The host's customer functions, reached as `g.C_customerFunctions`.
class LEDGERWICK_API CustomerFunctions : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "CustomerFunctions"; }

    // Splits a name into its parts. Whatever is left in the outputs is what the employee has.
    virtual void SplitContactName(const std::string& BusName, std::string& Title,
                                  std::string& Forename1, std::string& Forename2,
                                  std::string& Surname, std::string& OtherForenames,
                                  std::int32_t& OtherID);
};

// `g`, the host's global state, read afresh at each use.
class LEDGERWICK_API HostState : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "HostState"; }

    // The open payroll database.
    // Errors: 91 while none is open.
    virtual Database& DBDll();
    // The recordset open on the one control record.
    virtual Recordset& g_rsPRControl();
    // The year-end date of each payroll year, keyed by the year's number.
    virtual const Dictionary<std::int32_t, Date>& g_dicPRYears();
    // The host's today.
    virtual Date g_dtmToday();
    // The weekday on which a weekly auto-enrolment pay reference period starts.
    // Shape:  1 to 7, 1 = Sunday; 0 follows the tax week.
    virtual std::int16_t g_iAEPRPStartDay();
    // Identifies this workstation in the name of a temporary table.
    virtual std::string g_strPCID();
    // Caption of the library's error boxes.
    virtual std::string g_strProgName();
    // The display format of money, a number picture such as "#,##0.00".
    virtual std::string strCurFormat();
    // Set to True, and never cleared, when an add-info row of status 0 is stored.
    virtual bool g_blnPRSchUp();
    virtual void g_blnPRSchUp(bool value);
    // The host's customer functions.
    virtual CustomerFunctions& C_customerFunctions();

    // Shows a critical message to the user. The default writes it to the standard error stream.
    virtual void ShowCriticalMessage(const std::string& caption, const std::string& text);
};

// `pf`, the host's program functions.
class LEDGERWICK_API ProgramFunctions : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "ProgramFunctions"; }

    // The date as it stands in a date literal of a statement, month first: "4/29/2016".
    virtual std::string DateToUSstr(Date date);
    // The value of a named system parameter.
    virtual Variant GetParameterField(std::string_view name);
    // The number of days in the calendar month of the date.
    virtual std::int16_t DaysInMonth(Date date);
    // Removes every element equal to `value`; the upper bound falls by as many.
    virtual void DeleteFromArray(VariantArray& array, const Variant& value);
    // Sorts ascending in place.
    virtual void BubbleSortLongArray(std::vector<std::int32_t>& array);
    // The text brought to the width with the pad character.
    virtual std::string padstring(std::string_view text, std::int32_t width, char pad);
};

// `fp`, the host's file functions.
class LEDGERWICK_API FileFunctions : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "FileFunctions"; }

    // Called before a letter template is looked for; no result is used.
    virtual void checkBackupDir(std::string_view folder);
};

// The host's program, reached as `CallerGlobal.App`.
class LEDGERWICK_API HostApp : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "App"; }
    // The host's program folder, without a separator at its end.
    virtual std::string Path();
};

// `CallerGlobal`, the host's global object.
class LEDGERWICK_API HostGlobal : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "Global"; }
    // The host's program.
    virtual HostApp& App();
};

// `DAO_ADO`, the data-access object.
class LEDGERWICK_API DataAccess : public Object {
  public:
    std::string_view TypeName() const noexcept override { return "DAO_ADO_Functions"; }

    // Whether a temporary table of that name exists.
    virtual bool TempTableExists(std::string_view name);
    // Fills the empty fields of the row being written, so that no Null is stored. May replace the
    // recordset object.
    virtual void NoNullRecordLine(RecordsetRef& recordset);
};

// A line of text that shows the progress of a load, and the host's turn after each line.
class LEDGERWICK_API Label : public Object {
  public:
    std::string_view TypeName() const noexcept final { return "Label"; }
    // Shows a line of progress.
    virtual void Caption(std::string_view caption) = 0;
    // Gives the host's event loop one turn. Host code that runs in it must not call the list that
    // is being loaded.
    virtual void DoEvents() = 0;
};

}  // namespace ledgerwick
