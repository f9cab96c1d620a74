#include "hostkit/conformance/statements.h"

#include <cctype>

#include "ledgerwick/records/schema.h"

namespace ledgerwick::conformance {

namespace {

using namespace field;

#define PAYMENTS_ORDER "PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID"

constexpr std::string_view company[] = {
    // NOLINTBEGIN(bugprone-suspicious-missing-comma)
    "INSERT INTO Customers (NAID, NASeq, NABusName, NAUserRef) VALUES (7, 'LEE', 'Mr Adam Lee', "
    "'U7')",
    "INSERT INTO Customers (NAID, NASeq, NABusName, NAUserRef) VALUES (8, 'MOS', 'Ms Eve Moss', "
    "'U8')",
    "INSERT INTO PREmployeeDetails (PRENAID, PREPYEmployCount, PREPayFrequency) VALUES (7, 1, 1)",
    "INSERT INTO PREmployeeDetails (PRENAID, PREPYEmployCount, PREPayFrequency, "
    "PREPenWorkplaceSchemeID) VALUES (8, 1, 4, 1)",
    "INSERT INTO PREmployments (PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartDate, "
    "PRTType) VALUES (70, 7, 17, 1, #4/6/2016#, 1)",
    "INSERT INTO PREmployments (PRTID, PRTNAID, PRTPayrollYear, PRTPYEmployCount, PRTStartDate, "
    "PRTType) VALUES (80, 8, 17, 1, #4/11/2016#, 1)",
    "INSERT INTO PRPay (PRPID, PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, "
    "PRPPaymentPeriod, PRPPayDate, PRPRTIPayDate, PRPEPEDate, PRPPeriodUpdated) "
    "VALUES (1, 7, 17, 1, 1, 1, #4/12/2016#, #4/12/2016#, #4/10/2016#, True)",
    "INSERT INTO PRPay (PRPID, PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, "
    "PRPPaymentPeriod, PRPPayDate, PRPRTIPayDate, PRPEPEDate, PRPNExpPayDate, PRPPeriodUpdated, "
    "PRPHasBeenVisited) "
    "VALUES (2, 7, 17, 1, 2, 1, #4/19/2016#, #4/19/2016#, #4/17/2016#, #4/26/2016#, False, True)",
    "INSERT INTO PRPay (PRPID, PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, "
    "PRPPaymentPeriod, PRPPayDate, PRPRTIPayDate, PRPEPEDate, PRPPeriodUpdated, "
    "PRPHasBeenVisited, PRPPenWorkplaceSchemeID) "
    "VALUES (3, 8, 17, 1, 4, -1, #4/28/2016#, #4/28/2016#, #4/30/2016#, False, True, 1)",
    "INSERT INTO PensionSchemes (PSID, PSDesc, PSDeductionsType, PSDefEE, PSDefER) "
    "VALUES (1, 'Workplace', 2, 5, 3)",
    "INSERT INTO UoM (UoMNo, UoMCode) VALUES (1, 'box')",
    "INSERT INTO Deadstock (DSIDNo, DSDesc, DSUoMConv, DSPurchUoM) VALUES (4, 'Apples', 2, 1)",
    "INSERT INTO Orders (OrdID, OrdNAID, OrdDSID, OrdActionDate, OrdQty, OrdPrice, OrdDiscount, "
    "OrdStatus) VALUES (1, 7, 4, #4/11/2016#, 3, 2, 50, 2)",
    "INSERT INTO Orders (OrdID, OrdNAID, OrdDSID, OrdActionDate, OrdQty, OrdPrice, OrdDiscount, "
    "OrdStatus) VALUES (2, 7, 4, #4/12/2016#, 2000, 2, 0, 1)",
    "INSERT INTO Orders (OrdID, OrdNAID, OrdDSID, OrdActionDate, OrdQty, OrdPrice, OrdDiscount, "
    "OrdStatus) VALUES (3, 7, 4, #4/12/2016#, 1, 2, 0, 5)",
    // NOLINTEND(bugprone-suspicious-missing-comma)
};

#define EMPLOYEES                                                                    \
    "SELECT Customers.*, PREmployeeDetails.*, PREmployments.*, PensionSchemes.* "    \
    "FROM (((PREmployeeDetails "                                                     \
    "LEFT JOIN Customers ON Customers.NAID = PREmployeeDetails.PRENAID) "            \
    "LEFT JOIN PREmployments ON PREmployments.PRTNAID = PREmployeeDetails.PRENAID) " \
    "LEFT JOIN PensionSchemes "                                                      \
    "ON PensionSchemes.PSID = PREmployeeDetails.PREPenWorkplaceSchemeID) "
#define PAYMENTS                                                                            \
    "SELECT * FROM PRPay LEFT JOIN PREmployments ON PREmployments.PRTNAID = PRPay.PRPNAID " \
    "AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount "                          \
    "AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear "
#define ORDERS_STATUS "SELECT OrdID, OrdStatus, OrdInvID, OrdRef FROM Orders ORDER BY OrdID"

}  // namespace

std::span<const std::string_view> smallCompany() {
    return company;
}

const std::vector<Statement>& statements() {
    static const std::vector<Shown> employee{
        {NAID, 'i'}, {PRENAID, 'i'}, {PRTID, 'i'}, {PSID, 'i'}};
    static const std::vector<Shown> payment{{PRPID, 'i'}, {PRTID, 'i'}, {PRPPayDate, 'd'}};
    static const std::vector<Shown> orderStatus{
        {OrdID, 'i'}, {OrdStatus, 'i'}, {OrdInvID, 'i'}, {OrdRef, 't'}};
    static const std::vector<Statement> all{
        // ---- load
        {"LoadEmployees", Sent::Snapshot,
         EMPLOYEES "ORDER BY PRTNAID, PRTPayrollYear, PRTPYEmployCount", "", employee,
         "7 7 70 Null; 8 8 80 1"},
        {"ReLoadEmployee", Sent::Snapshot,
         EMPLOYEES
         "WHERE PREmployments.PRTNAID = 8 ORDER BY PRTNAID, PRTPayrollYear, PRTPYEmployCount",
         "", employee, "8 8 80 1"},
        {"LoadEmployees",
         Sent::Snapshot,
         "SELECT min(PRTStartDate) AS MinStart FROM PREmployments",
         "",
         {{MinStart, 'd'}},
         "2016-04-06"},
        {"LoadEmployees", Sent::Snapshot, PAYMENTS "ORDER BY " PAYMENTS_ORDER, "", payment,
         "1 70 2016-04-12; 2 70 2016-04-19; 3 80 2016-04-28"},
        {"ReLoadEmployee", Sent::Snapshot,
         PAYMENTS "WHERE PRPay.PRPNAID = 8 ORDER BY " PAYMENTS_ORDER, "", payment,
         "3 80 2016-04-28"},
        {"GetAutoEnrolStatus", Sent::Snapshot,
         PAYMENTS "WHERE PRPay.PRPNAID = 7 AND PRPay.PRPPayrollYear = 17 ORDER BY " PAYMENTS_ORDER,
         "", payment, "1 70 2016-04-12; 2 70 2016-04-19"},
        // ---- imported pay and piecework
        {"LoadImportedPay",
         Sent::Snapshot,
         "SELECT * FROM PRPayImport",
         "",
         {{PRPINAID, 'i'}},
         "",
         "PRPayImport"},
        {"LoadImportedPay",
         Sent::Dynaset,
         "SELECT OrdID, OrdNAID, OrdDSID, OrdActionDate, "
         "Format(OrdQty / iif(OrdDSID = 0, 1, DSUoMConv),'#,##0.0##') as Qty, "
         "DSDesc, UoMCode AS UoPCode, "
         "Format( iif(OrdDSID = 0, 0, "
         "(OrdPrice * DSUoMConv) * iif(OrdQty = 0, 1, Qty) * 1 - (OrdDiscount/100)) "
         ",'#,##0.00' ) AS NetPrice, "
         "OrdStatus "
         "FROM (( Orders LEFT JOIN Deadstock ON Orders.ORDDSID = Deadstock.DSIDNo) "
         "LEFT JOIN UoM ON UoM.UoMNo = Deadstock.DSPurchUoM) "
         "WHERE OrdStatus < 5 AND OrdDSID <> 0 "
         "ORDER BY OrdNAID, OrdActionDate, UoMCode, DSDesc",
         "",
         {{OrdID, 'i'}, {Qty, 't'}, {DSDesc, 't'}, {UoPCode, 't'}, {NetPrice, 't'}},
         "1 1.5 Apples box 5.50; 2 1,000.0 Apples box 4,000.00"},
        {"UpdateImportedEarnings", Sent::Execute,
         "UPDATE ORDERS SET OrdStatus = 3 WHERE OrdStatus < 3 AND ORDID IN (1)", ORDERS_STATUS,
         orderStatus, "1 3 0 ; 2 1 0 ; 3 5 0 "},
        {"UpdateImportedEarnings", Sent::Execute,
         "UPDATE ORDERS SET OrdStatus = 5 , OrdInvID = 77 , OrdRef = 'Ann''s' "
         "WHERE OrdStatus < 5 AND ORDID IN (1,3)",
         ORDERS_STATUS, orderStatus, "1 5 77 Ann's; 2 1 0 ; 3 5 0 "},
        {"UpdateImportedEarnings", Sent::Execute,
         "UPDATE ORDERS SET OrdStatus = 5 WHERE OrdStatus < 5 AND ORDID IN (2)", ORDERS_STATUS,
         orderStatus, "1 2 0 ; 2 5 0 ; 3 5 0 "},
        {"UpdateImportedEarnings", Sent::Execute,
         "UPDATE ORDERS SET OrdStatus = 5 , OrdInvID = 77 WHERE OrdStatus < 5 AND ORDID IN (2)",
         ORDERS_STATUS, orderStatus, "1 2 0 ; 2 5 77 ; 3 5 0 "},
        {"UpdateImportedEarnings", Sent::Execute,
         "UPDATE ORDERS SET OrdStatus = 5 , OrdRef = 'R' WHERE OrdStatus < 5 AND ORDID IN (2)",
         ORDERS_STATUS, orderStatus, "1 2 0 ; 2 5 0 R; 3 5 0 "},
        // ---- opening a run
        {"C_InputHoursInit",
         Sent::Dynaset,
         "SELECT * FROM PRPay WHERE (PRPNAID = 7) AND (PRPPayrollYear = 17) "
         "AND (PRPPeriodUpdated = false) ORDER BY " PAYMENTS_ORDER,
         "",
         {{PRPID, 'i'}, {PRPWeekNo, 'i'}},
         "2 2"},
        {"C_InputHoursInit",
         Sent::Snapshot,
         "SELECT * FROM PREmployeeDetails WHERE PREmployeeDetails.PRENAID = 8",
         "",
         {{PRENAID, 'i'}, {PREPayFrequency, 'i'}},
         "8 4"},
        {"C_InputHoursInit",
         Sent::Snapshot,
         "SELECT PREmployeeDetails.*, PensionSchemes.*, Customers.NAUserRef "
         "FROM ((PREmployeeDetails "
         "LEFT JOIN Customers ON Customers.NAID = PREmployeeDetails.PRENAID) "
         "LEFT JOIN PensionSchemes on PREmployeeDetails.PREPenWorkplaceSchemeID = "
         "PensionSchemes.PSID) WHERE PRENAID = 8",
         "",
         {{NAUserRef, 't'}, {PSDefEE, 'n'}},
         "U8 5"},
        // ---- closing it, and the dates after it
        {"C_UpdatePayPeriod",
         Sent::Dynaset,
         "SELECT PRPPeriodUpdated, PRPNExpEPEDate, PRPNExpPayDate FROM PRPay "
         "WHERE PRPPaymentPeriod <> 0 AND PRPPeriodUpdated = FALSE "
         "AND PRPPayDate <= #4/19/2016# AND PRPNAID = 7 ORDER BY " PAYMENTS_ORDER,
         "",
         {{PRPNExpPayDate, 'd'}},
         "2016-04-26"},
        {"NExpPayDate",
         Sent::Execute,
         "UPDATE PRPAY SET PRPNExpPayDate = #4/27/2016# WHERE PRPID = 2",
         "SELECT PRPID, PRPNExpPayDate FROM PRPay WHERE PRPID = 2",
         {{PRPNExpPayDate, 'd'}},
         "2016-04-27"},
        {"NExpEPEDate",
         Sent::Execute,
         "UPDATE PRPAY SET PRPNExpEPEDate = #4/24/2016#WHERE PRPID = 2",
         "SELECT PRPID, PRPNExpEPEDate FROM PRPay WHERE PRPID = 2",
         {{PRPNExpEPEDate, 'd'}},
         "2016-04-24"},
        {"C_Reset_HasBeenVisited",
         Sent::Execute,
         "UPDATE PRPAY SET PRPHasBeenVisited = FALSE WHERE PRPPeriodUpdated = FALSE AND PRPNAID = "
         "7",
         "SELECT PRPID FROM PRPay WHERE PRPHasBeenVisited = True",
         {{PRPID, 'i'}},
         "3"},
        {"C_CreateStartingPayRecord",
         Sent::Dynaset,
         "SELECT * FROM PRPAY WHERE PRPID = -1",
         "",
         {{PRPID, 'i'}},
         ""},
        {"AutoFillMissingPeriods", Sent::Snapshot,
         "SELECT PRPay.*, PRTID FROM ( PRPay LEFT JOIN PREmployments "
         "ON PREmployments.PRTNAID = PRPay.PRPNAID "
         "AND PREmployments.PRTPYEmployCount = PRPay.PRPPYEmployCount "
         "AND PREmployments.PRTPayrollYear = PRPay.PRPPayrollYear) "
         "LEFT JOIN PREmployeeDetails ON PREmployeeDetails.PRENAID = PRPay.PRPNAID "
         "WHERE PRPay.PRPPayrollYear = 17 "
         "AND PREmployeeDetails.PREPYEmployCount = PRPay.PRPPYEmployCount "
         "AND PRPPeriodUpdated = TRUE AND PRTType = 1 ORDER BY " PAYMENTS_ORDER,
         "", payment, "1 70 2016-04-12"},
        // ---- questions
        {"C_Update_Period_Date",
         Sent::Snapshot,
         "SELECT Min(PRPPayDate) as NextDate FROM PRPay "
         "WHERE PRPPeriodUpdated = False AND PRPPayrollYear = 17",
         "",
         {{NextDate, 'd'}},
         "2016-04-19"},
        {"PR_GetEPSDate",
         Sent::Snapshot,
         "SELECT PRPay.PRPEPEDate FROM PRPay WHERE PRPay.PRPNAID = 7 AND PRPay.PRPPayrollYear = 17 "
         "AND PRPay.PRPPYEmployCount = 1 AND PRPay.PRPPeriodUpdated = true ORDER "
         "BY " PAYMENTS_ORDER,
         "",
         {{PRPEPEDate, 'd'}},
         "2016-04-10"},
        {"PR_GetEPSDate",
         Sent::Snapshot,
         "SELECT PRPay.PRPEPEDate FROM PRPay WHERE PRPay.PRPNAID = 7 AND PRPay.PRPPayrollYear = 17 "
         "AND PRPay.PRPPYEmployCount = 1 AND PRPay.PRPWeekNo < 2 "
         "AND PRPay.PRPPeriodUpdated = true ORDER BY " PAYMENTS_ORDER,
         "",
         {{PRPEPEDate, 'd'}},
         "2016-04-10"},
        {"Max_PRPID_From_PayDate",
         Sent::Snapshot,
         "SELECT max(PRPID) AS PRPIDMax FROM PRPay WHERE PRPPayrollYear = 17 AND PRPNAID = 7 "
         "AND PRPPYEmployCount = 1 AND PRPRTIPayDate <= #4/19/2016#",
         "",
         {{PRPIDMax, 'i'}},
         "2"},
        {"C_MonthNoOfWeekNo",
         Sent::Snapshot,
         "SELECT * FROM TEMP_PR_LAST_WEEK_NOS1 WHERE TLWWeekNo = 4",
         "",
         {{TLWCMonthNo, 'n'}},
         "",
         "TEMP_PR_LAST_WEEK_NOS1"},
        // ---- employments
        {"C_CreateNewEmploymentRecord",
         Sent::Snapshot,
         "SELECT PREPYEmployCount FROM PREmployeeDetails WHERE PRENAID = 7",
         "",
         {{PREPYEmployCount, 'i'}},
         "1"},
        {"C_CreateNewEmploymentRecord",
         Sent::Dynaset,
         "SELECT * FROM PREmployments WHERE PRTID = -1",
         "",
         {{PRTID, 'i'}},
         ""},
        {"PR_EmploymentsAddInfo_Add",
         Sent::Dynaset,
         "SELECT * FROM PREmploymentsAddInfo WHERE PRTAID = -1",
         "",
         {{PRTAID, 'i'}},
         ""},
        // ---- workplace schemes
        {"GetAEStatus",
         Sent::Snapshot,
         "SELECT * FROM PensionSchemes WHERE PSID = 1",
         "",
         {{PSDesc, 't'}},
         "Workplace"},
        {"C_PenWorkplaceSchemeUpdate",
         Sent::Execute,
         "UPDATE PRPay SET PRPHasBeenVisited = False WHERE (PRPPayrollYear = 17) "
         "AND (PRPPeriodUpdated = False) AND (PRPPenWorkplaceSchemeID = 1)",
         "SELECT PRPID FROM PRPay WHERE PRPHasBeenVisited = True",
         {{PRPID, 'i'}},
         "2"},
        {"C_PenWorkplaceSchemeUpdate",
         Sent::Snapshot,
         "SELECT PRENAID, PREPenWorkplaceSchemeID, PREPenWorkplaceUseSchemeRates, "
         "PREPenWorkplaceEEDeductPerC, PREPenWorkplaceERDeductPerC, PREPenWorkplaceEEDeductFlat, "
         "PREPenWorkplaceERDeductFlat, PSID, PSDefEE, PSDefER FROM PREmployeeDetails "
         "LEFT JOIN PensionSchemes "
         "ON PREmployeeDetails.PREPenWorkplaceSchemeID = PensionSchemes.PSID "
         "WHERE PREPenWorkplaceSchemeID = 1",
         "",
         {{PRENAID, 'i'}, {PSDefER, 'n'}},
         "8 3"},
        {"C_ReEnrolDateChanged",
         Sent::Execute,
         "UPDATE PRPay LEFT JOIN PensionSchemes "
         "ON PRPay.PRPPenWorkplaceSchemeID = PensionSchemes.PSID "
         "SET PRPHasBeenVisited = False WHERE (PRPPayrollYear = 17) "
         "AND (PRPPeriodUpdated = False) AND (PSDeductionsType = 2)",
         "SELECT PRPID FROM PRPay WHERE PRPHasBeenVisited = True",
         {{PRPID, 'i'}},
         "2"},
        // ---- the probe of a table, by the default of `Database::TableExists`
        {"TempTableExists",
         Sent::Snapshot,
         "SELECT * FROM [PRPay] WHERE 1 = 0",
         "",
         {{PRPID, 'i'}},
         ""},
    };
    return all;
}

std::string shapeOf(std::string_view sql) {
    std::string shape;
    bool blank = false;
    for (std::size_t i = 0; i < sql.size(); ++i) {
        const char c = sql[i];
        const bool startsWord =
            shape.empty() || blank ||
            (std::isalnum(static_cast<unsigned char>(shape.back())) == 0 && shape.back() != '_');
        if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            blank = true;
            continue;
        }
        if (blank && !shape.empty()) shape += ' ';
        blank = false;
        if (c == '\'' || c == '#') {
            do i = sql.find(c, i + 1);
            while (c == '\'' && i + 1 < sql.size() && sql[i + 1] == c && ++i);
            shape += '?';
        } else if (std::isdigit(static_cast<unsigned char>(c)) != 0 && startsWord) {
            while (i + 1 < sql.size() && std::isdigit(static_cast<unsigned char>(sql[i + 1]))) ++i;
            shape += '?';
        } else {
            shape += c;
        }
        // A list of any length is a list of one, and a minus belongs to its number.
        if (shape.ends_with("?,?")) shape.resize(shape.size() - 2);
        if (shape.ends_with("-?")) shape.replace(shape.size() - 2, 2, "?");
    }
    return shape;
}

}  // namespace ledgerwick::conformance
