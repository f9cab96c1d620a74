// The names of the payroll tables' fields, each written once.
//
//   recordset.GetDate(field::PRPEPEDate)
//
// Reading by a constant is an index in a fast record access layer, and a wrong name does not
// compile. The number in front is the constant's own; it means nothing outside the process.
// Each comment gives the type as the library reads or writes the field ("as stored" when it hands
// the value on without looking at it) and, where the name does not say it, the meaning. Texts hold
// no Null; the zero date means that a date is not set. hostkit/sqlite/schema.sql lays the tables
// down.
#pragma once

#include <array>

#include "ledgerwick/records/record_access.h"

// clang-format off
namespace ledgerwick::field {


// `Customers`: names and addresses, one row per person or business.
inline constexpr FieldName NAID{1, "NAID"};                                 // 32-bit integer, key; the identity of an employee everywhere
inline constexpr FieldName NASeq{2, "NASeq"};                               // text, short code by which names are ordered
inline constexpr FieldName NABusName{3, "NABusName"};                       // text, the name as one string
inline constexpr FieldName NAUserRef{4, "NAUserRef"};                       // text, the user's reference; start of PRPWorksNo
inline constexpr FieldName NAAdd1{5, "NAAdd1"};                             // text, address
inline constexpr FieldName NAAdd2{6, "NAAdd2"};                             // text
inline constexpr FieldName NAVillage{7, "NAVillage"};                       // text
inline constexpr FieldName NATown{8, "NATown"};                             // text
inline constexpr FieldName NACounty{9, "NACounty"};                         // text
inline constexpr FieldName NAPostCode{10, "NAPostCode"};                    // text
inline constexpr FieldName NACountry{11, "NACountry"};                      // text
inline constexpr FieldName NAEMailADD{12, "NAEMailADD"};                    // text, e-mail address

// `PREmployeeDetails`: one row per employee: the standing payroll details.
inline constexpr FieldName PRENAID{13, "PRENAID"};                          // 32-bit integer, key; Customers.NAID
inline constexpr FieldName PREPYEmployCount{14, "PREPYEmployCount"};        // 32-bit integer, number of the present employment within the payroll year
inline constexpr FieldName PRENINO{15, "PRENINO"};                          // text, National Insurance number; may be blank
inline constexpr FieldName PRESex{16, "PRESex"};                            // text
inline constexpr FieldName PREDoB{17, "PREDoB"};                            // date, date of birth
inline constexpr FieldName PREOriginallyJoined{18, "PREOriginallyJoined"};  // date, real start, when the first row stands on the table's earliest start date
inline constexpr FieldName PREPayFrequency{19, "PREPayFrequency"};          // 16-bit integer, a PR_Pay_Freq value
inline constexpr FieldName PRENITable{20, "PRENITable"};                    // text, National Insurance table letter
inline constexpr FieldName PRETaxCode{21, "PRETaxCode"};                    // text
inline constexpr FieldName PREWeek1{22, "PREWeek1"};                        // as stored, tax on a week 1 basis
inline constexpr FieldName PREDirector{23, "PREDirector"};                  // boolean
inline constexpr FieldName PREGroup{24, "PREGroup"};                        // 32-bit integer, employee group number
inline constexpr FieldName PREHourlyPaid{25, "PREHourlyPaid"};              // boolean, paid by the hour, otherwise by the period
inline constexpr FieldName PREInputNetPay{26, "PREInputNetPay"};            // as stored, copied to PRPNetPaid
inline constexpr FieldName PREStdHourlyRate{27, "PREStdHourlyRate"};        // currency
inline constexpr FieldName PREStdPeriodRate{28, "PREStdPeriodRate"};        // currency
inline constexpr FieldName PREOT1HourlyRate{29, "PREOT1HourlyRate"};        // currency, overtime
inline constexpr FieldName PREOT2HourlyRate{30, "PREOT2HourlyRate"};        // currency
inline constexpr FieldName PREMinNormHours{31, "PREMinNormHours"};          // as stored, minimum normal hours
inline constexpr FieldName PREHDays{32, "PREHDays"};                        // single, holiday allowance in days
inline constexpr FieldName PRENormHours1{33, "PRENormHours1"};              // number, normal hours of the seven days of a week
inline constexpr FieldName PRENormHours2{34, "PRENormHours2"};              // number
inline constexpr FieldName PRENormHours3{35, "PRENormHours3"};              // number
inline constexpr FieldName PRENormHours4{36, "PRENormHours4"};              // number
inline constexpr FieldName PRENormHours5{37, "PRENormHours5"};              // number
inline constexpr FieldName PRENormHours6{38, "PRENormHours6"};              // number
inline constexpr FieldName PRENormHours7{39, "PRENormHours7"};              // number
inline constexpr FieldName PREStdPreTax1{40, "PREStdPreTax1"};              // as stored, standing pre-tax amounts
inline constexpr FieldName PREStdPreTax2{41, "PREStdPreTax2"};              // as stored
inline constexpr FieldName PREStdPreTax3{42, "PREStdPreTax3"};              // as stored
inline constexpr FieldName PREStdPreTax4{43, "PREStdPreTax4"};              // as stored
inline constexpr FieldName PREStdPreTax5{44, "PREStdPreTax5"};              // as stored
inline constexpr FieldName PREStdAfterTax1{45, "PREStdAfterTax1"};          // as stored, standing after-tax amounts
inline constexpr FieldName PREStdAfterTax2{46, "PREStdAfterTax2"};          // as stored
inline constexpr FieldName PREStdAfterTax3{47, "PREStdAfterTax3"};          // as stored
inline constexpr FieldName PREStdAfterTax4{48, "PREStdAfterTax4"};          // as stored
inline constexpr FieldName PREStdAfterTax5{49, "PREStdAfterTax5"};          // as stored
inline constexpr FieldName PREStdPreTaxComment1{50, "PREStdPreTaxComment1"};  // as stored
inline constexpr FieldName PREStdPreTaxComment2{51, "PREStdPreTaxComment2"};  // as stored
inline constexpr FieldName PREStdPreTaxComment3{52, "PREStdPreTaxComment3"};  // as stored
inline constexpr FieldName PREStdPreTaxComment4{53, "PREStdPreTaxComment4"};  // as stored
inline constexpr FieldName PREStdPreTaxComment5{54, "PREStdPreTaxComment5"};  // as stored
inline constexpr FieldName PREStdAfterTaxComment1{55, "PREStdAfterTaxComment1"};  // as stored
inline constexpr FieldName PREStdAfterTaxComment2{56, "PREStdAfterTaxComment2"};  // as stored
inline constexpr FieldName PREStdAfterTaxComment3{57, "PREStdAfterTaxComment3"};  // as stored
inline constexpr FieldName PREStdAfterTaxComment4{58, "PREStdAfterTaxComment4"};  // as stored
inline constexpr FieldName PREStdAfterTaxComment5{59, "PREStdAfterTaxComment5"};  // as stored
inline constexpr FieldName PREPreTaxNom1{60, "PREPreTaxNom1"};              // as stored, nominal codes
inline constexpr FieldName PREPreTaxNom2{61, "PREPreTaxNom2"};              // as stored
inline constexpr FieldName PREPreTaxNom3{62, "PREPreTaxNom3"};              // as stored
inline constexpr FieldName PREPreTaxNom4{63, "PREPreTaxNom4"};              // as stored
inline constexpr FieldName PREPreTaxNom5{64, "PREPreTaxNom5"};              // as stored
inline constexpr FieldName PREAfterTaxNom1{65, "PREAfterTaxNom1"};          // as stored
inline constexpr FieldName PREAfterTaxNom2{66, "PREAfterTaxNom2"};          // as stored
inline constexpr FieldName PREAfterTaxNom3{67, "PREAfterTaxNom3"};          // as stored
inline constexpr FieldName PREAfterTaxNom4{68, "PREAfterTaxNom4"};          // as stored
inline constexpr FieldName PREAfterTaxNom5{69, "PREAfterTaxNom5"};          // as stored
inline constexpr FieldName PREPreTaxCost1{70, "PREPreTaxCost1"};            // as stored, cost flags
inline constexpr FieldName PREPreTaxCost2{71, "PREPreTaxCost2"};            // as stored
inline constexpr FieldName PREPreTaxCost3{72, "PREPreTaxCost3"};            // as stored
inline constexpr FieldName PREPreTaxCost4{73, "PREPreTaxCost4"};            // as stored
inline constexpr FieldName PREPreTaxCost5{74, "PREPreTaxCost5"};            // as stored
inline constexpr FieldName PREAfterTaxCost1{75, "PREAfterTaxCost1"};        // as stored
inline constexpr FieldName PREAfterTaxCost2{76, "PREAfterTaxCost2"};        // as stored
inline constexpr FieldName PREAfterTaxCost3{77, "PREAfterTaxCost3"};        // as stored
inline constexpr FieldName PREAfterTaxCost4{78, "PREAfterTaxCost4"};        // as stored
inline constexpr FieldName PREAfterTaxCost5{79, "PREAfterTaxCost5"};        // as stored
inline constexpr FieldName PREQualSickDay1{80, "PREQualSickDay1"};          // boolean, qualifying days for sick pay
inline constexpr FieldName PREQualSickDay2{81, "PREQualSickDay2"};          // boolean
inline constexpr FieldName PREQualSickDay3{82, "PREQualSickDay3"};          // boolean
inline constexpr FieldName PREQualSickDay4{83, "PREQualSickDay4"};          // boolean
inline constexpr FieldName PREQualSickDay5{84, "PREQualSickDay5"};          // boolean
inline constexpr FieldName PREQualSickDay6{85, "PREQualSickDay6"};          // boolean
inline constexpr FieldName PREQualSickDay7{86, "PREQualSickDay7"};          // boolean
inline constexpr FieldName PREAverageEarningsForSickPay{87, "PREAverageEarningsForSickPay"};  // currency
inline constexpr FieldName PREStudentLoan{88, "PREStudentLoan"};            // 16-bit integer, student loan plan, 0 for none
inline constexpr FieldName PREPostgradLoan{89, "PREPostgradLoan"};          // boolean, repays a postgraduate loan
inline constexpr FieldName PREOfficialIDNo{90, "PREOfficialIDNo"};          // as stored
inline constexpr FieldName PREPensionJoinedDate{91, "PREPensionJoinedDate"};  // date, auto-enrolment dates, the zero date for none
inline constexpr FieldName PREPensionOptInDate{92, "PREPensionOptInDate"};  // date
inline constexpr FieldName PREPensionOptOutDate{93, "PREPensionOptOutDate"};  // date
inline constexpr FieldName PREPensionPostponementDate{94, "PREPensionPostponementDate"};  // date
inline constexpr FieldName PREPenPrivateProviderNAID{95, "PREPenPrivateProviderNAID"};  // 32-bit integer, provider of a private pension, a Customers.NAID
inline constexpr FieldName PREPenPrivateEEDeductFlat{96, "PREPenPrivateEEDeductFlat"};  // number
inline constexpr FieldName PREPenPrivateEEDeductPerC{97, "PREPenPrivateEEDeductPerC"};  // number
inline constexpr FieldName PREPenPrivateERDeductFlat{98, "PREPenPrivateERDeductFlat"};  // number
inline constexpr FieldName PREPenPrivateERDeductPerC{99, "PREPenPrivateERDeductPerC"};  // number
inline constexpr FieldName PREPenWorkplaceSchemeID{100, "PREPenWorkplaceSchemeID"};  // 32-bit integer, workplace scheme, PensionSchemes.PSID, 0 for none
inline constexpr FieldName PREPenWorkplaceUseSchemeRates{101, "PREPenWorkplaceUseSchemeRates"};  // boolean, use the default rates of the scheme
inline constexpr FieldName PREPenWorkplaceEEDeductFlat{102, "PREPenWorkplaceEEDeductFlat"};  // currency, own flat amounts
inline constexpr FieldName PREPenWorkplaceERDeductFlat{103, "PREPenWorkplaceERDeductFlat"};  // currency
inline constexpr FieldName PREPenWorkplaceEEDeductPerC{104, "PREPenWorkplaceEEDeductPerC"};  // single, own percentages
inline constexpr FieldName PREPenWorkplaceERDeductPerC{105, "PREPenWorkplaceERDeductPerC"};  // single
inline constexpr std::array PRENormHours{PRENormHours1, PRENormHours2, PRENormHours3, PRENormHours4, PRENormHours5, PRENormHours6, PRENormHours7};  // the seven normal hours
inline constexpr std::array PREStdPreTax{PREStdPreTax1, PREStdPreTax2, PREStdPreTax3, PREStdPreTax4, PREStdPreTax5};  // the five standing pre-tax amounts
inline constexpr std::array PREStdAfterTax{PREStdAfterTax1, PREStdAfterTax2, PREStdAfterTax3, PREStdAfterTax4, PREStdAfterTax5};  // the five standing after-tax amounts
inline constexpr std::array PREStdPreTaxComment{PREStdPreTaxComment1, PREStdPreTaxComment2, PREStdPreTaxComment3, PREStdPreTaxComment4, PREStdPreTaxComment5};  // their five texts
inline constexpr std::array PREStdAfterTaxComment{PREStdAfterTaxComment1, PREStdAfterTaxComment2, PREStdAfterTaxComment3, PREStdAfterTaxComment4, PREStdAfterTaxComment5};  // their five texts
inline constexpr std::array PREPreTaxNom{PREPreTaxNom1, PREPreTaxNom2, PREPreTaxNom3, PREPreTaxNom4, PREPreTaxNom5};  // their five nominal codes
inline constexpr std::array PREAfterTaxNom{PREAfterTaxNom1, PREAfterTaxNom2, PREAfterTaxNom3, PREAfterTaxNom4, PREAfterTaxNom5};  // their five nominal codes
inline constexpr std::array PREPreTaxCost{PREPreTaxCost1, PREPreTaxCost2, PREPreTaxCost3, PREPreTaxCost4, PREPreTaxCost5};  // their five cost flags
inline constexpr std::array PREAfterTaxCost{PREAfterTaxCost1, PREAfterTaxCost2, PREAfterTaxCost3, PREAfterTaxCost4, PREAfterTaxCost5};  // their five cost flags
inline constexpr std::array PREQualSickDay{PREQualSickDay1, PREQualSickDay2, PREQualSickDay3, PREQualSickDay4, PREQualSickDay5, PREQualSickDay6, PREQualSickDay7};  // the seven qualifying days for sick pay

// `PREmployments`: one row per employee, payroll year and employment within the year.
inline constexpr FieldName PRTID{106, "PRTID"};                             // 32-bit integer, key, given by the database
inline constexpr FieldName PRTNAID{107, "PRTNAID"};                         // 32-bit integer, the employee
inline constexpr FieldName PRTPayrollYear{108, "PRTPayrollYear"};           // 32-bit integer, payroll year number
inline constexpr FieldName PRTPYEmployCount{109, "PRTPYEmployCount"};       // 32-bit integer, which employment of the employee in that payroll year
inline constexpr FieldName PRTStartWeekNo{110, "PRTStartWeekNo"};           // 32-bit integer, week number given at creation
inline constexpr FieldName PRTStartDate{111, "PRTStartDate"};               // date, start date of this row
inline constexpr FieldName PRTEndDateLong{112, "PRTEndDateLong"};           // 32-bit integer, end date as a whole day number; 0 while not ended
inline constexpr FieldName PRTType{113, "PRTType"};                         // 16-bit integer, a PR_EmpType value
inline constexpr FieldName PRTContinuation{114, "PRTContinuation"};         // boolean, for auto-enrolment this row continues the one before
inline constexpr FieldName PRTAEStatus{115, "PRTAEStatus"};                 // text, auto-enrolment status at the start of the row

// `PREmploymentsAddInfo`: starter and leaver details of an employment; written only.
inline constexpr FieldName PRTAID{116, "PRTAID"};                           // 32-bit integer, key, given by the database
inline constexpr FieldName PRTAPRTID{117, "PRTAPRTID"};                     // 32-bit integer, the employment
inline constexpr FieldName PRTAType{118, "PRTAType"};                       // 16-bit integer, a PRTAType value
inline constexpr FieldName PRTAStatus{119, "PRTAStatus"};                   // as stored, 0 sets the host's flag g_blnPRSchUp
inline constexpr FieldName PRTAHCID{120, "PRTAHCID"};                       // as stored, identifier, stored unchanged
inline constexpr FieldName PRTADecDate{121, "PRTADecDate"};                 // date, date of the declaration
inline constexpr FieldName PRTADied{122, "PRTADied"};                       // as stored, flag, stored unchanged
inline constexpr FieldName PRTAPEmpPAYERef{123, "PRTAPEmpPAYERef"};         // text, of the previous employer, as all PRTAPEmp fields
inline constexpr FieldName PRTAPEmpLeave{124, "PRTAPEmpLeave"};             // date, leaving date
inline constexpr FieldName PRTAPEmpSLoans{125, "PRTAPEmpSLoans"};           // as stored, student loans
inline constexpr FieldName PRTAPEmpTaxCode{126, "PRTAPEmpTaxCode"};         // text
inline constexpr FieldName PRTAPEmpWeek1{127, "PRTAPEmpWeek1"};             // as stored
inline constexpr FieldName PRTAPEmpWeekNo{128, "PRTAPEmpWeekNo"};           // as stored, tax week
inline constexpr FieldName PRTAPEmpGross{129, "PRTAPEmpGross"};             // currency
inline constexpr FieldName PRTAPEmpTax{130, "PRTAPEmpTax"};                 // currency
inline constexpr FieldName PRTAText{131, "PRTAText"};                       // text, free text
inline constexpr FieldName PRTADec{132, "PRTADec"};                         // as stored, the declaration
inline constexpr FieldName PRTAPEmpPGLoans{133, "PRTAPEmpPGLoans"};         // as stored, postgraduate loans

// `PRPay`: one row per pay period of an employment.
inline constexpr FieldName PRPID{134, "PRPID"};                             // 32-bit integer, key, given by the database
inline constexpr FieldName PRPNAID{135, "PRPNAID"};                         // 32-bit integer, the employee
inline constexpr FieldName PRPPayrollYear{136, "PRPPayrollYear"};           // 32-bit integer, payroll year number
inline constexpr FieldName PRPPYEmployCount{137, "PRPPYEmployCount"};       // 32-bit integer, employment within the year
inline constexpr FieldName PRPWeekNo{138, "PRPWeekNo"};                     // 16-bit integer, tax week at the end of the period
inline constexpr FieldName PRPPaymentPeriod{139, "PRPPaymentPeriod"};       // number, pay period code, or minus the tax month on a monthly row
inline constexpr FieldName PRPPayDate{140, "PRPPayDate"};                   // date, pay date of the run
inline constexpr FieldName PRPRTIPayDate{141, "PRPRTIPayDate"};             // date, pay date as reported
inline constexpr FieldName PRPEPEDate{142, "PRPEPEDate"};                   // date, end of the pay period
inline constexpr FieldName PRPNExpPayDate{143, "PRPNExpPayDate"};           // date, next expected pay date after this row
inline constexpr FieldName PRPNExpEPEDate{144, "PRPNExpEPEDate"};           // date, next expected end of pay period after this row
inline constexpr FieldName PRPPeriodUpdated{145, "PRPPeriodUpdated"};       // boolean, the period is closed
inline constexpr FieldName PRPHasBeenVisited{146, "PRPHasBeenVisited"};     // boolean, the visited mark
inline constexpr FieldName PRPCalculationUsed{147, "PRPCalculationUsed"};   // 32-bit integer, 0 a starting row, above 0 the set of calculations, -1 a filler row
inline constexpr FieldName PRPStatus{148, "PRPStatus"};                     // number, progress of the row, set by the host; 3 and above count as reported
inline constexpr FieldName PRPAEStatus{149, "PRPAEStatus"};                 // text, auto-enrolment status after this row, set by the host
inline constexpr FieldName PRPStdHours{150, "PRPStdHours"};                 // number, standard hours of the period
inline constexpr FieldName PRPPreTax1{151, "PRPPreTax1"};                   // as stored, pay items
inline constexpr FieldName PRPPreTax2{152, "PRPPreTax2"};                   // as stored
inline constexpr FieldName PRPPreTax3{153, "PRPPreTax3"};                   // as stored
inline constexpr FieldName PRPPreTax4{154, "PRPPreTax4"};                   // as stored
inline constexpr FieldName PRPPreTax5{155, "PRPPreTax5"};                   // as stored
inline constexpr FieldName PRPAfterTax1{156, "PRPAfterTax1"};               // as stored
inline constexpr FieldName PRPAfterTax2{157, "PRPAfterTax2"};               // as stored
inline constexpr FieldName PRPAfterTax3{158, "PRPAfterTax3"};               // as stored
inline constexpr FieldName PRPAfterTax4{159, "PRPAfterTax4"};               // as stored
inline constexpr FieldName PRPAfterTax5{160, "PRPAfterTax5"};               // as stored
inline constexpr FieldName PRPPreTaxComment1{161, "PRPPreTaxComment1"};     // as stored
inline constexpr FieldName PRPPreTaxComment2{162, "PRPPreTaxComment2"};     // as stored
inline constexpr FieldName PRPPreTaxComment3{163, "PRPPreTaxComment3"};     // as stored
inline constexpr FieldName PRPPreTaxComment4{164, "PRPPreTaxComment4"};     // as stored
inline constexpr FieldName PRPPreTaxComment5{165, "PRPPreTaxComment5"};     // as stored
inline constexpr FieldName PRPAfterTaxComment1{166, "PRPAfterTaxComment1"};  // as stored
inline constexpr FieldName PRPAfterTaxComment2{167, "PRPAfterTaxComment2"};  // as stored
inline constexpr FieldName PRPAfterTaxComment3{168, "PRPAfterTaxComment3"};  // as stored
inline constexpr FieldName PRPAfterTaxComment4{169, "PRPAfterTaxComment4"};  // as stored
inline constexpr FieldName PRPAfterTaxComment5{170, "PRPAfterTaxComment5"};  // as stored
inline constexpr FieldName PRPPreTaxNom1{171, "PRPPreTaxNom1"};             // as stored, nominal codes
inline constexpr FieldName PRPPreTaxNom2{172, "PRPPreTaxNom2"};             // as stored
inline constexpr FieldName PRPPreTaxNom3{173, "PRPPreTaxNom3"};             // as stored
inline constexpr FieldName PRPPreTaxNom4{174, "PRPPreTaxNom4"};             // as stored
inline constexpr FieldName PRPPreTaxNom5{175, "PRPPreTaxNom5"};             // as stored
inline constexpr FieldName PRPAfterTaxNom1{176, "PRPAfterTaxNom1"};         // as stored
inline constexpr FieldName PRPAfterTaxNom2{177, "PRPAfterTaxNom2"};         // as stored
inline constexpr FieldName PRPAfterTaxNom3{178, "PRPAfterTaxNom3"};         // as stored
inline constexpr FieldName PRPAfterTaxNom4{179, "PRPAfterTaxNom4"};         // as stored
inline constexpr FieldName PRPAfterTaxNom5{180, "PRPAfterTaxNom5"};         // as stored
inline constexpr FieldName PRPPreTaxCost1{181, "PRPPreTaxCost1"};           // as stored, cost flags
inline constexpr FieldName PRPPreTaxCost2{182, "PRPPreTaxCost2"};           // as stored
inline constexpr FieldName PRPPreTaxCost3{183, "PRPPreTaxCost3"};           // as stored
inline constexpr FieldName PRPPreTaxCost4{184, "PRPPreTaxCost4"};           // as stored
inline constexpr FieldName PRPPreTaxCost5{185, "PRPPreTaxCost5"};           // as stored
inline constexpr FieldName PRPAfterTaxCost1{186, "PRPAfterTaxCost1"};       // as stored
inline constexpr FieldName PRPAfterTaxCost2{187, "PRPAfterTaxCost2"};       // as stored
inline constexpr FieldName PRPAfterTaxCost3{188, "PRPAfterTaxCost3"};       // as stored
inline constexpr FieldName PRPAfterTaxCost4{189, "PRPAfterTaxCost4"};       // as stored
inline constexpr FieldName PRPAfterTaxCost5{190, "PRPAfterTaxCost5"};       // as stored
inline constexpr FieldName PRPPeriodPaid{191, "PRPPeriodPaid"};             // boolean, paid by the period
inline constexpr FieldName PRPNetPaid{192, "PRPNetPaid"};                   // as stored, copied from PREInputNetPay
inline constexpr FieldName PRPPeriodPay{193, "PRPPeriodPay"};               // currency, pay of the period
inline constexpr FieldName PRPStdHourlyRate{194, "PRPStdHourlyRate"};       // currency, 0 when not hourly
inline constexpr FieldName PRPOT1HourlyRate{195, "PRPOT1HourlyRate"};       // currency
inline constexpr FieldName PRPOT2HourlyRate{196, "PRPOT2HourlyRate"};       // currency
inline constexpr FieldName PRPNITable{197, "PRPNITable"};                   // text
inline constexpr FieldName PRPTaxCode{198, "PRPTaxCode"};                   // text
inline constexpr FieldName PRPWeek1{199, "PRPWeek1"};                       // as stored
inline constexpr FieldName PRPDirector{200, "PRPDirector"};                 // boolean
inline constexpr FieldName PRPNoQualifyingDays{201, "PRPNoQualifyingDays"};  // number, qualifying sick days of a week
inline constexpr FieldName PRPAvPayForSickMaternity{202, "PRPAvPayForSickMaternity"};  // currency
inline constexpr FieldName PRPStudentLoan{203, "PRPStudentLoan"};           // 16-bit integer, plan of the period, 0 for none
inline constexpr FieldName PRPPostgradLoan{204, "PRPPostgradLoan"};         // boolean
inline constexpr FieldName PRPMaternityHighWeeks{205, "PRPMaternityHighWeeks"};  // number, statutory pay, set by the host
inline constexpr FieldName PRPMaternityLowWeeks{206, "PRPMaternityLowWeeks"};  // number
inline constexpr FieldName PRPAdoptionHighWeeks{207, "PRPAdoptionHighWeeks"};  // number
inline constexpr FieldName PRPAdoptionLowWeeks{208, "PRPAdoptionLowWeeks"};  // number
inline constexpr FieldName PRPPaternityWeeks{209, "PRPPaternityWeeks"};     // number
inline constexpr FieldName PRPASPPDays{210, "PRPASPPDays"};                 // number, shared parental pay days
inline constexpr FieldName PRPPartnerNAID{211, "PRPPartnerNAID"};           // as stored, set by the host
inline constexpr FieldName PRPPenPrivateProviderNAID{212, "PRPPenPrivateProviderNAID"};  // 32-bit integer
inline constexpr FieldName PRPPenPrivateAfterTax{213, "PRPPenPrivateAfterTax"};  // boolean, private pension deducted after tax
inline constexpr FieldName PRPPenPrivateEEDeductFlat{214, "PRPPenPrivateEEDeductFlat"};  // number
inline constexpr FieldName PRPPenPrivateEEDeductPerC{215, "PRPPenPrivateEEDeductPerC"};  // number
inline constexpr FieldName PRPPenPrivateERDeductFlat{216, "PRPPenPrivateERDeductFlat"};  // number
inline constexpr FieldName PRPPenPrivateERDeductPerC{217, "PRPPenPrivateERDeductPerC"};  // number
inline constexpr FieldName PRPPenWorkplaceSchemeID{218, "PRPPenWorkplaceSchemeID"};  // 32-bit integer, workplace scheme, 0 for none
inline constexpr FieldName PRPPenWorkplaceDeductionsType{219, "PRPPenWorkplaceDeductionsType"};  // number, deduction type of the scheme, 0 for none
inline constexpr FieldName PRPPenWorkplaceSchemeAppTxRelief{220, "PRPPenWorkplaceSchemeAppTxRelief"};  // boolean, scheme applies tax relief
inline constexpr FieldName PRPPenWorkplaceEEDeductFlat{221, "PRPPenWorkplaceEEDeductFlat"};  // number
inline constexpr FieldName PRPPenWorkplaceEEDeductPerC{222, "PRPPenWorkplaceEEDeductPerC"};  // number
inline constexpr FieldName PRPPenWorkplaceERDeductFlat{223, "PRPPenWorkplaceERDeductFlat"};  // number
inline constexpr FieldName PRPPenWorkplaceERDeductPerC{224, "PRPPenWorkplaceERDeductPerC"};  // number
inline constexpr FieldName PRPMinNormHours{225, "PRPMinNormHours"};         // as stored
inline constexpr FieldName PRPOfficialIDNo{226, "PRPOfficialIDNo"};         // as stored
inline constexpr FieldName PRPWorksNo{227, "PRPWorksNo"};                   // text, works number
inline constexpr FieldName PRPRTILateReason{228, "PRPRTILateReason"};       // text, late-reporting reason, "H" on a filler row
inline constexpr FieldName PRPDoB{229, "PRPDoB"};                           // date, date of birth, copied from row to row
inline constexpr std::array PRPPreTax{PRPPreTax1, PRPPreTax2, PRPPreTax3, PRPPreTax4, PRPPreTax5};  // the five pre-tax amounts
inline constexpr std::array PRPAfterTax{PRPAfterTax1, PRPAfterTax2, PRPAfterTax3, PRPAfterTax4, PRPAfterTax5};  // the five after-tax amounts
inline constexpr std::array PRPPreTaxComment{PRPPreTaxComment1, PRPPreTaxComment2, PRPPreTaxComment3, PRPPreTaxComment4, PRPPreTaxComment5};  // their five texts
inline constexpr std::array PRPAfterTaxComment{PRPAfterTaxComment1, PRPAfterTaxComment2, PRPAfterTaxComment3, PRPAfterTaxComment4, PRPAfterTaxComment5};  // their five texts
inline constexpr std::array PRPPreTaxNom{PRPPreTaxNom1, PRPPreTaxNom2, PRPPreTaxNom3, PRPPreTaxNom4, PRPPreTaxNom5};  // their five nominal codes
inline constexpr std::array PRPAfterTaxNom{PRPAfterTaxNom1, PRPAfterTaxNom2, PRPAfterTaxNom3, PRPAfterTaxNom4, PRPAfterTaxNom5};  // their five nominal codes
inline constexpr std::array PRPPreTaxCost{PRPPreTaxCost1, PRPPreTaxCost2, PRPPreTaxCost3, PRPPreTaxCost4, PRPPreTaxCost5};  // their five cost flags
inline constexpr std::array PRPAfterTaxCost{PRPAfterTaxCost1, PRPAfterTaxCost2, PRPAfterTaxCost3, PRPAfterTaxCost4, PRPAfterTaxCost5};  // their five cost flags

// `PensionSchemes`: one row per workplace pension scheme.
inline constexpr FieldName PSID{230, "PSID"};                               // 32-bit integer, key
inline constexpr FieldName PSDesc{231, "PSDesc"};                           // text, description
inline constexpr FieldName PSDeductionsType{232, "PSDeductionsType"};       // number, deduction type
inline constexpr FieldName PSSchemeAppliesTaxRelief{233, "PSSchemeAppliesTaxRelief"};  // boolean
inline constexpr FieldName PSDefEE{234, "PSDefEE"};                         // single, default percentages of employee and employer
inline constexpr FieldName PSDefER{235, "PSDefER"};                         // single

// `Orders`: order lines of the suite; a line whose OrdNAID is an employee is piecework.
inline constexpr FieldName OrdID{236, "OrdID"};                             // 32-bit integer, key
inline constexpr FieldName OrdNAID{237, "OrdNAID"};                         // 32-bit integer, the worker
inline constexpr FieldName OrdDSID{238, "OrdDSID"};                         // 32-bit integer, the item, Deadstock.DSIDNo; 0 for none
inline constexpr FieldName OrdActionDate{239, "OrdActionDate"};             // date, the date on which the line counts as earned
inline constexpr FieldName OrdQty{240, "OrdQty"};                           // number, quantity in units of use
inline constexpr FieldName OrdPrice{241, "OrdPrice"};                       // number, price per unit of use
inline constexpr FieldName OrdDiscount{242, "OrdDiscount"};                 // number, discount
inline constexpr FieldName OrdStatus{243, "OrdStatus"};                     // 16-bit integer, 1 unchecked, below 5 open, 5 closed
inline constexpr FieldName OrdInvID{244, "OrdInvID"};                       // 32-bit integer, invoice, written at status 5
inline constexpr FieldName OrdRef{245, "OrdRef"};                           // text, reference, written at status 5

// `Deadstock`: items.
inline constexpr FieldName DSIDNo{246, "DSIDNo"};                           // 32-bit integer, key
inline constexpr FieldName DSDesc{247, "DSDesc"};                           // text, description
inline constexpr FieldName DSUoMConv{248, "DSUoMConv"};                     // number, units of use per unit of purchase
inline constexpr FieldName DSPurchUoM{249, "DSPurchUoM"};                   // 32-bit integer, unit of purchase, UoM.UoMNo

// `UoM`: units of measure.
inline constexpr FieldName UoMNo{250, "UoMNo"};                             // 32-bit integer, key
inline constexpr FieldName UoMCode{251, "UoMCode"};                         // text, code

// `PRPayImport`: a temporary table that the host creates, one row per imported value.
inline constexpr FieldName PRPINAID{252, "PRPINAID"};                       // 32-bit integer, the employee
inline constexpr FieldName PRPIPay{253, "PRPIPay"};                         // number, the value imported

// `TEMP_PR_LAST_WEEK_NOS`: a temporary table of the workstation; its name goes on with g_strPCID.
inline constexpr FieldName TLWWeekNo{254, "TLWWeekNo"};                     // number, a week
inline constexpr FieldName TLWCMonthNo{255, "TLWCMonthNo"};                 // number, the month stored for that week

// The control record: one row, reached through g_rsPRControl.
inline constexpr FieldName PRCFCurrentYear{256, "PRCFCurrentYear"};         // 32-bit integer, the current payroll year
inline constexpr FieldName PRCFPensionAfterTax{257, "PRCFPensionAfterTax"};  // boolean, private pensions are deducted after tax

// The computed columns: columns that statements define.
inline constexpr FieldName MinStart{258, "MinStart"};                       // date, earliest start date in PREmployments
inline constexpr FieldName NextDate{259, "NextDate"};                       // date, earliest pay date of the open rows
inline constexpr FieldName PRPIDMax{260, "PRPIDMax"};                       // 32-bit integer, highest key of a selection of pay rows
inline constexpr FieldName Qty{261, "Qty"};                                 // text, formatted quantity of an order line
inline constexpr FieldName NetPrice{262, "NetPrice"};                       // text, formatted net price of an order line
inline constexpr FieldName UoPCode{263, "UoPCode"};                         // text, code of the unit of purchase

// Every constant has a number from 1 to this.
inline constexpr std::uint16_t fieldCount = 263;

}  // namespace ledgerwick::field
