BEGIN TRANSACTION;
CREATE TABLE Customers (
    NAID       INTEGER PRIMARY KEY,
    NASeq      TEXT COLLATE NOCASE DEFAULT '',
    NABusName  TEXT COLLATE NOCASE DEFAULT '',
    NAUserRef  TEXT COLLATE NOCASE DEFAULT '',
    NAAdd1     TEXT COLLATE NOCASE DEFAULT '',
    NAAdd2     TEXT COLLATE NOCASE DEFAULT '',
    NAVillage  TEXT COLLATE NOCASE DEFAULT '',
    NATown     TEXT COLLATE NOCASE DEFAULT '',
    NACounty   TEXT COLLATE NOCASE DEFAULT '',
    NAPostCode TEXT COLLATE NOCASE DEFAULT '',
    NACountry  TEXT COLLATE NOCASE DEFAULT '',
    NAEMailADD TEXT COLLATE NOCASE DEFAULT ''
);
INSERT INTO "Customers" VALUES(110,'2','Mrs Fatima al-Rashid','ALR01','68 High Barn Lane','Flat 2','Sallow Bridge','Upper Sallow','Pennshire','ZZ1 1FH','','fatima.al-rashid@pennywell.example');
INSERT INTO "Customers" VALUES(130,'17','Mr Derek Entwistle','ENT01','56 High Barn Lane','','Sallow Bridge','Upper Sallow','Pennshire','ZZ3 7FG','','derek.entwistle@pennywell.example');
CREATE TABLE Deadstock (
    DSIDNo     INTEGER PRIMARY KEY,
    DSDesc     TEXT COLLATE NOCASE DEFAULT '',
    DSUoMConv  NUMBER   DEFAULT 1,
    DSPurchUoM INTEGER  DEFAULT 0
);
INSERT INTO "Deadstock" VALUES(501,'Cushion cover, piped (doz)',12,2);
INSERT INTO "Deadstock" VALUES(502,'Curtain, lined pr',1,3);
INSERT INTO "Deadstock" VALUES(503,'Tablecloth ea hemmed',1,1);
CREATE TABLE Orders (
    OrdID         INTEGER PRIMARY KEY,
    OrdNAID       INTEGER  DEFAULT 0,
    OrdDSID       INTEGER  DEFAULT 0,
    OrdActionDate DATE     DEFAULT 0,
    OrdQty        NUMBER   DEFAULT 0,
    OrdPrice      NUMBER   DEFAULT 0,
    OrdDiscount   NUMBER   DEFAULT 0,
    OrdStatus     SMALLINT DEFAULT 0,
    OrdInvID      INTEGER  DEFAULT 0,
    OrdRef        TEXT COLLATE NOCASE DEFAULT ''
);
CREATE TABLE PRControl (
    PRCFCurrentYear     INTEGER  DEFAULT 0,
    PRCFPensionAfterTax BOOLEAN  DEFAULT 0
);
INSERT INTO "PRControl" VALUES(26,0);
CREATE TABLE PREmployeeDetails (
    PRENAID                       INTEGER PRIMARY KEY,
    PREPYEmployCount              INTEGER  DEFAULT 1,
    PRENINO                       TEXT COLLATE NOCASE DEFAULT '',
    PRESex                        TEXT COLLATE NOCASE DEFAULT '',
    PREDoB                        DATE     DEFAULT 0,
    PREOriginallyJoined           DATE     DEFAULT 0,
    PREPayFrequency               SMALLINT DEFAULT 0,
    PRENITable                    TEXT COLLATE NOCASE DEFAULT '',
    PRETaxCode                    TEXT COLLATE NOCASE DEFAULT '',
    PREWeek1                      BOOLEAN  DEFAULT 0,
    PREDirector                   BOOLEAN  DEFAULT 0,
    PREGroup                      INTEGER  DEFAULT 0,
    PREHourlyPaid                 BOOLEAN  DEFAULT 0,
    PREInputNetPay                NUMBER   DEFAULT 0,
    PREStdHourlyRate              CURRENCY DEFAULT 0,
    PREStdPeriodRate              CURRENCY DEFAULT 0,
    PREOT1HourlyRate              CURRENCY DEFAULT 0,
    PREOT2HourlyRate              CURRENCY DEFAULT 0,
    PREMinNormHours               NUMBER   DEFAULT 0,
    PREHDays                      SINGLE   DEFAULT 0,
    PRENormHours1                 NUMBER   DEFAULT 0,
    PRENormHours2                 NUMBER   DEFAULT 0,
    PRENormHours3                 NUMBER   DEFAULT 0,
    PRENormHours4                 NUMBER   DEFAULT 0,
    PRENormHours5                 NUMBER   DEFAULT 0,
    PRENormHours6                 NUMBER   DEFAULT 0,
    PRENormHours7                 NUMBER   DEFAULT 0,
    PREStdPreTax1                 CURRENCY DEFAULT 0,
    PREStdPreTax2                 CURRENCY DEFAULT 0,
    PREStdPreTax3                 CURRENCY DEFAULT 0,
    PREStdPreTax4                 CURRENCY DEFAULT 0,
    PREStdPreTax5                 CURRENCY DEFAULT 0,
    PREStdAfterTax1               CURRENCY DEFAULT 0,
    PREStdAfterTax2               CURRENCY DEFAULT 0,
    PREStdAfterTax3               CURRENCY DEFAULT 0,
    PREStdAfterTax4               CURRENCY DEFAULT 0,
    PREStdAfterTax5               CURRENCY DEFAULT 0,
    PREStdPreTaxComment1          TEXT COLLATE NOCASE DEFAULT '',
    PREStdPreTaxComment2          TEXT COLLATE NOCASE DEFAULT '',
    PREStdPreTaxComment3          TEXT COLLATE NOCASE DEFAULT '',
    PREStdPreTaxComment4          TEXT COLLATE NOCASE DEFAULT '',
    PREStdPreTaxComment5          TEXT COLLATE NOCASE DEFAULT '',
    PREStdAfterTaxComment1        TEXT COLLATE NOCASE DEFAULT '',
    PREStdAfterTaxComment2        TEXT COLLATE NOCASE DEFAULT '',
    PREStdAfterTaxComment3        TEXT COLLATE NOCASE DEFAULT '',
    PREStdAfterTaxComment4        TEXT COLLATE NOCASE DEFAULT '',
    PREStdAfterTaxComment5        TEXT COLLATE NOCASE DEFAULT '',
    PREPreTaxNom1                 TEXT COLLATE NOCASE DEFAULT '',
    PREPreTaxNom2                 TEXT COLLATE NOCASE DEFAULT '',
    PREPreTaxNom3                 TEXT COLLATE NOCASE DEFAULT '',
    PREPreTaxNom4                 TEXT COLLATE NOCASE DEFAULT '',
    PREPreTaxNom5                 TEXT COLLATE NOCASE DEFAULT '',
    PREAfterTaxNom1               TEXT COLLATE NOCASE DEFAULT '',
    PREAfterTaxNom2               TEXT COLLATE NOCASE DEFAULT '',
    PREAfterTaxNom3               TEXT COLLATE NOCASE DEFAULT '',
    PREAfterTaxNom4               TEXT COLLATE NOCASE DEFAULT '',
    PREAfterTaxNom5               TEXT COLLATE NOCASE DEFAULT '',
    PREPreTaxCost1                BOOLEAN  DEFAULT 0,
    PREPreTaxCost2                BOOLEAN  DEFAULT 0,
    PREPreTaxCost3                BOOLEAN  DEFAULT 0,
    PREPreTaxCost4                BOOLEAN  DEFAULT 0,
    PREPreTaxCost5                BOOLEAN  DEFAULT 0,
    PREAfterTaxCost1              BOOLEAN  DEFAULT 0,
    PREAfterTaxCost2              BOOLEAN  DEFAULT 0,
    PREAfterTaxCost3              BOOLEAN  DEFAULT 0,
    PREAfterTaxCost4              BOOLEAN  DEFAULT 0,
    PREAfterTaxCost5              BOOLEAN  DEFAULT 0,
    PREQualSickDay1               BOOLEAN  DEFAULT 0,
    PREQualSickDay2               BOOLEAN  DEFAULT 0,
    PREQualSickDay3               BOOLEAN  DEFAULT 0,
    PREQualSickDay4               BOOLEAN  DEFAULT 0,
    PREQualSickDay5               BOOLEAN  DEFAULT 0,
    PREQualSickDay6               BOOLEAN  DEFAULT 0,
    PREQualSickDay7               BOOLEAN  DEFAULT 0,
    PREAverageEarningsForSickPay  CURRENCY DEFAULT 0,
    PREStudentLoan                SMALLINT DEFAULT 0,
    PREPostgradLoan               BOOLEAN  DEFAULT 0,
    PREOfficialIDNo               TEXT COLLATE NOCASE DEFAULT '',
    PREPensionJoinedDate          DATE     DEFAULT 0,
    PREPensionOptInDate           DATE     DEFAULT 0,
    PREPensionOptOutDate          DATE     DEFAULT 0,
    PREPensionPostponementDate    DATE     DEFAULT 0,
    PREPenPrivateProviderNAID     INTEGER  DEFAULT 0,
    PREPenPrivateEEDeductFlat     NUMBER   DEFAULT 0,
    PREPenPrivateEEDeductPerC     NUMBER   DEFAULT 0,
    PREPenPrivateERDeductFlat     NUMBER   DEFAULT 0,
    PREPenPrivateERDeductPerC     NUMBER   DEFAULT 0,
    PREPenWorkplaceSchemeID       INTEGER  DEFAULT 0,
    PREPenWorkplaceUseSchemeRates BOOLEAN  DEFAULT 0,
    PREPenWorkplaceEEDeductFlat   CURRENCY DEFAULT 0,
    PREPenWorkplaceERDeductFlat   CURRENCY DEFAULT 0,
    PREPenWorkplaceEEDeductPerC   SINGLE   DEFAULT 0,
    PREPenWorkplaceERDeductPerC   SINGLE   DEFAULT 0
);
INSERT INTO "PREmployeeDetails" VALUES(110,1,'QQ171271B','F',30203,42857,4,'A','1257L',0,0,2,0,0,0,2405,0,0,37,25,7.5,7.5,7.5,7.5,7,0,0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,-1,-1,-1,-1,0,0,555,0,0,'',42857,0,0,0,0,0,0,0,0,2,0,25,15,0,0);
INSERT INTO "PREmployeeDetails" VALUES(130,1,'QQ329651B','M',25756,34960,1,'A','1257L',0,0,1,-1,0,13.85,0,20.77,27.7,37.5,28,7.5,7.5,7.5,7.5,7.5,0,0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,-1,-1,-1,-1,0,0,519.38,0,0,'',41730,0,0,0,0,0,0,0,0,2,0,25,15,0,0);
CREATE TABLE PREmployments (
    PRTID            INTEGER PRIMARY KEY,
    PRTNAID          INTEGER  DEFAULT 0,
    PRTPayrollYear   INTEGER  DEFAULT 0,
    PRTPYEmployCount INTEGER  DEFAULT 0,
    PRTStartWeekNo   INTEGER  DEFAULT 0,
    PRTStartDate     DATE     DEFAULT 0,
    PRTEndDateLong   INTEGER  DEFAULT 0,
    PRTType          SMALLINT DEFAULT 0,
    PRTContinuation  BOOLEAN  DEFAULT 0,
    PRTAEStatus      TEXT COLLATE NOCASE DEFAULT ''
);
INSERT INTO "PREmployments" VALUES(19,110,25,1,0,45388,0,1,0,'Enrolled');
INSERT INTO "PREmployments" VALUES(20,110,26,1,0,45753,0,1,-1,'Enrolled');
INSERT INTO "PREmployments" VALUES(56,130,25,1,0,45388,0,1,0,'Enrolled');
INSERT INTO "PREmployments" VALUES(57,130,26,1,0,45753,0,1,-1,'Enrolled');
CREATE TABLE PREmploymentsAddInfo (
    PRTAID          INTEGER PRIMARY KEY,
    PRTAPRTID       INTEGER  DEFAULT 0,
    PRTAType        SMALLINT DEFAULT 0,
    PRTAStatus      SMALLINT DEFAULT 0,
    PRTAHCID        TEXT COLLATE NOCASE DEFAULT '',
    PRTADecDate     DATE     DEFAULT 0,
    PRTADied        BOOLEAN  DEFAULT 0,
    PRTAPEmpPAYERef TEXT COLLATE NOCASE DEFAULT '',
    PRTAPEmpLeave   DATE     DEFAULT 0,
    PRTAPEmpSLoans  SMALLINT DEFAULT 0,
    PRTAPEmpTaxCode TEXT COLLATE NOCASE DEFAULT '',
    PRTAPEmpWeek1   BOOLEAN  DEFAULT 0,
    PRTAPEmpWeekNo  SMALLINT DEFAULT 0,
    PRTAPEmpGross   CURRENCY DEFAULT 0,
    PRTAPEmpTax     CURRENCY DEFAULT 0,
    PRTAText        TEXT COLLATE NOCASE DEFAULT '',
    PRTADec         TEXT COLLATE NOCASE DEFAULT '',
    PRTAPEmpPGLoans SMALLINT DEFAULT 0
);
CREATE TABLE PRPay (
    PRPID                            INTEGER PRIMARY KEY,
    PRPNAID                          INTEGER  DEFAULT 0,
    PRPPayrollYear                   INTEGER  DEFAULT 0,
    PRPPYEmployCount                 INTEGER  DEFAULT 0,
    PRPWeekNo                        SMALLINT DEFAULT 0,
    PRPPaymentPeriod                 NUMBER   DEFAULT 0,
    PRPPayDate                       DATE     DEFAULT 0,
    PRPRTIPayDate                    DATE     DEFAULT 0,
    PRPEPEDate                       DATE     DEFAULT 0,
    PRPNExpPayDate                   DATE     DEFAULT 0,
    PRPNExpEPEDate                   DATE     DEFAULT 0,
    PRPPeriodUpdated                 BOOLEAN  DEFAULT 0,
    PRPHasBeenVisited                BOOLEAN  DEFAULT 0,
    PRPCalculationUsed               INTEGER  DEFAULT 0,
    PRPStatus                        NUMBER   DEFAULT 0,
    PRPAEStatus                      TEXT COLLATE NOCASE DEFAULT '',
    PRPMaternityHighWeeks            NUMBER   DEFAULT 0,
    PRPMaternityLowWeeks             NUMBER   DEFAULT 0,
    PRPAdoptionHighWeeks             NUMBER   DEFAULT 0,
    PRPAdoptionLowWeeks              NUMBER   DEFAULT 0,
    PRPPaternityWeeks                NUMBER   DEFAULT 0,
    PRPASPPDays                      NUMBER   DEFAULT 0,
    PRPPartnerNAID                   INTEGER  DEFAULT 0,
    PRPStudentLoan                   SMALLINT DEFAULT 0,
    PRPPostgradLoan                  BOOLEAN  DEFAULT 0,
    PRPTaxCode                       TEXT COLLATE NOCASE DEFAULT '',
    PRPWeek1                         BOOLEAN  DEFAULT 0,
    PRPMinNormHours                  NUMBER   DEFAULT 0,
    PRPOfficialIDNo                  TEXT COLLATE NOCASE DEFAULT '',
    PRPWorksNo                       TEXT COLLATE NOCASE DEFAULT '',
    PRPStdHours                      NUMBER   DEFAULT 0,
    PRPPreTax1                       CURRENCY DEFAULT 0,
    PRPPreTax2                       CURRENCY DEFAULT 0,
    PRPPreTax3                       CURRENCY DEFAULT 0,
    PRPPreTax4                       CURRENCY DEFAULT 0,
    PRPPreTax5                       CURRENCY DEFAULT 0,
    PRPAfterTax1                     CURRENCY DEFAULT 0,
    PRPAfterTax2                     CURRENCY DEFAULT 0,
    PRPAfterTax3                     CURRENCY DEFAULT 0,
    PRPAfterTax4                     CURRENCY DEFAULT 0,
    PRPAfterTax5                     CURRENCY DEFAULT 0,
    PRPPreTaxComment1                TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxComment2                TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxComment3                TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxComment4                TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxComment5                TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxComment1              TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxComment2              TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxComment3              TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxComment4              TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxComment5              TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxNom1                    TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxNom2                    TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxNom3                    TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxNom4                    TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxNom5                    TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxNom1                  TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxNom2                  TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxNom3                  TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxNom4                  TEXT COLLATE NOCASE DEFAULT '',
    PRPAfterTaxNom5                  TEXT COLLATE NOCASE DEFAULT '',
    PRPPreTaxCost1                   BOOLEAN  DEFAULT 0,
    PRPPreTaxCost2                   BOOLEAN  DEFAULT 0,
    PRPPreTaxCost3                   BOOLEAN  DEFAULT 0,
    PRPPreTaxCost4                   BOOLEAN  DEFAULT 0,
    PRPPreTaxCost5                   BOOLEAN  DEFAULT 0,
    PRPAfterTaxCost1                 BOOLEAN  DEFAULT 0,
    PRPAfterTaxCost2                 BOOLEAN  DEFAULT 0,
    PRPAfterTaxCost3                 BOOLEAN  DEFAULT 0,
    PRPAfterTaxCost4                 BOOLEAN  DEFAULT 0,
    PRPAfterTaxCost5                 BOOLEAN  DEFAULT 0,
    PRPPeriodPaid                    BOOLEAN  DEFAULT 0,
    PRPNetPaid                       NUMBER   DEFAULT 0,
    PRPPeriodPay                     CURRENCY DEFAULT 0,
    PRPStdHourlyRate                 CURRENCY DEFAULT 0,
    PRPOT1HourlyRate                 CURRENCY DEFAULT 0,
    PRPOT2HourlyRate                 CURRENCY DEFAULT 0,
    PRPNITable                       TEXT COLLATE NOCASE DEFAULT '',
    PRPDirector                      BOOLEAN  DEFAULT 0,
    PRPNoQualifyingDays              NUMBER   DEFAULT 0,
    PRPAvPayForSickMaternity         CURRENCY DEFAULT 0,
    PRPPenPrivateProviderNAID        INTEGER  DEFAULT 0,
    PRPPenPrivateAfterTax            BOOLEAN  DEFAULT 0,
    PRPPenPrivateEEDeductFlat        NUMBER   DEFAULT 0,
    PRPPenPrivateEEDeductPerC        NUMBER   DEFAULT 0,
    PRPPenPrivateERDeductFlat        NUMBER   DEFAULT 0,
    PRPPenPrivateERDeductPerC        NUMBER   DEFAULT 0,
    PRPPenWorkplaceSchemeID          INTEGER  DEFAULT 0,
    PRPPenWorkplaceDeductionsType    NUMBER   DEFAULT 0,
    PRPPenWorkplaceSchemeAppTxRelief BOOLEAN  DEFAULT 0,
    PRPPenWorkplaceEEDeductFlat      NUMBER   DEFAULT 0,
    PRPPenWorkplaceEEDeductPerC      NUMBER   DEFAULT 0,
    PRPPenWorkplaceERDeductFlat      NUMBER   DEFAULT 0,
    PRPPenWorkplaceERDeductPerC      NUMBER   DEFAULT 0,
    PRPRTILateReason                 TEXT COLLATE NOCASE DEFAULT '',
    PRPDoB                           DATE     DEFAULT 0
);
INSERT INTO "PRPay" VALUES(10,110,25,1,0,0,45387,0,45382,45408,45412,-1,0,0,0,'',0,0,0,0,0,0,0,0,0,'',0,0,'','',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0);
INSERT INTO "PRPay" VALUES(27,130,25,1,0,0,45387,0,45382,45394,45389,-1,0,0,0,'',0,0,0,0,0,0,0,0,0,'',0,0,'','',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0);
INSERT INTO "PRPay" VALUES(58,130,25,1,1,1,45394,45394,45389,45401,45396,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(79,130,25,1,2,1,45401,45401,45396,45408,45403,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(103,110,25,1,5,-1,45408,45408,45412,45443,45443,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(120,130,25,1,3,1,45408,45408,45403,45415,45410,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(144,130,25,1,4,1,45415,45415,45410,45422,45417,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(166,130,25,1,5,1,45422,45422,45417,45429,45424,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(187,130,25,1,6,1,45429,45429,45424,45436,45431,-1,-1,50,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(207,130,25,1,7,1,45436,45436,45431,45443,45438,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(235,110,25,1,9,-2,45443,45443,45443,45471,45473,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(252,130,25,1,8,1,45443,45443,45438,45450,45445,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(274,130,25,1,9,1,45450,45450,45445,45457,45452,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(295,130,25,1,10,1,45457,45457,45452,45464,45459,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(315,130,25,1,11,1,45464,45464,45459,45471,45466,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(343,110,25,1,13,-3,45471,45471,45473,45499,45504,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(360,130,25,1,12,1,45471,45471,45466,45478,45473,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(383,130,25,1,13,1,45478,45478,45473,45485,45480,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(404,130,25,1,14,1,45485,45485,45480,45492,45487,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(424,130,25,1,15,1,45492,45492,45487,45499,45494,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(452,110,25,1,18,-4,45499,45499,45504,45534,45535,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(469,130,25,1,16,1,45499,45499,45494,45506,45501,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(491,130,25,1,17,1,45506,45506,45501,45513,45508,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(514,130,25,1,18,1,45513,45513,45508,45520,45515,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(536,130,25,1,19,1,45520,45520,45515,45527,45522,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(560,130,25,1,20,1,45527,45527,45522,45534,45529,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(586,110,25,1,22,-5,45534,45534,45535,45562,45565,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(604,130,25,1,21,1,45534,45534,45529,45541,45536,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(627,130,25,1,22,1,45541,45541,45536,45548,45543,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(647,130,25,1,23,1,45548,45548,45543,45555,45550,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(671,130,25,1,24,1,45555,45555,45550,45562,45557,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(697,110,25,1,27,-6,45562,45562,45565,45590,45596,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(715,130,25,1,25,1,45562,45562,45557,45569,45564,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(738,130,25,1,26,1,45569,45569,45564,45576,45571,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(758,130,25,1,27,1,45576,45576,45571,45583,45578,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(782,130,25,1,28,1,45583,45583,45578,45590,45585,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(808,110,25,1,31,-7,45590,45590,45596,45625,45626,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(826,130,25,1,29,1,45590,45590,45585,45597,45592,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(849,130,25,1,30,1,45597,45597,45592,45604,45599,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(869,130,25,1,31,1,45604,45604,45599,45611,45606,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(893,130,25,1,32,1,45611,45611,45606,45618,45613,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(915,130,25,1,33,1,45618,45618,45613,45625,45620,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(940,110,25,1,35,-8,45625,45625,45626,45653,45657,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(958,130,25,1,34,1,45625,45625,45620,45632,45627,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(977,130,25,1,35,1,45632,45632,45627,45639,45634,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1000,130,25,1,36,1,45639,45639,45634,45646,45641,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1021,130,25,1,37,1,45646,45646,45641,45653,45648,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1048,110,25,1,40,-9,45653,45653,45657,45688,45688,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1066,130,25,1,38,1,45653,45653,45648,45660,45655,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1086,130,25,1,39,1,45660,45660,45655,45667,45662,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1109,130,25,1,40,1,45667,45667,45662,45674,45669,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1130,130,25,1,41,1,45674,45674,45669,45681,45676,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1150,130,25,1,42,1,45681,45681,45676,45688,45683,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1173,110,25,1,44,-10,45688,45688,45688,45716,45716,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1191,130,25,1,43,1,45688,45688,45683,45695,45690,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1214,130,25,1,44,1,45695,45695,45690,45702,45697,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1235,130,25,1,45,1,45702,45702,45697,45709,45704,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1255,130,25,1,46,1,45709,45709,45704,45716,45711,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1278,110,25,1,48,-11,45716,45716,45716,45744,45747,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1296,130,25,1,47,1,45716,45716,45711,45723,45718,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1319,130,25,1,48,1,45723,45723,45718,45730,45725,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1340,130,25,1,49,1,45730,45730,45725,45737,45732,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1360,130,25,1,50,1,45737,45737,45732,45744,45739,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1386,110,25,1,52,-12,45744,45744,45747,45772,45777,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2344.88,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1403,130,25,1,51,1,45744,45744,45739,45751,45746,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1429,130,25,1,52,1,45751,45751,45746,45758,45753,-1,-1,51,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.37,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1454,110,26,1,0,0,45752,0,45747,45772,45777,-1,0,0,0,'',0,0,0,0,0,0,0,0,0,'',0,0,'','',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0);
INSERT INTO "PRPay" VALUES(1471,130,26,1,0,0,45752,0,45746,45758,45753,-1,0,0,0,'',0,0,0,0,0,0,0,0,0,'',0,0,'','',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,'',0);
INSERT INTO "PRPay" VALUES(1501,130,26,1,1,1,45758,45758,45753,45765,45760,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1521,130,26,1,2,1,45765,45765,45760,45772,45767,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1544,110,26,1,5,-1,45772,45772,45777,45807,45808,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1561,130,26,1,3,1,45772,45772,45767,45779,45774,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1584,130,26,1,4,1,45779,45779,45774,45786,45781,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1608,130,26,1,5,1,45786,45786,45781,45793,45788,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1628,130,26,1,6,1,45793,45793,45788,45800,45795,-1,-1,52,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1647,130,26,1,7,1,45800,45800,45795,45807,45802,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1674,110,26,1,9,-2,45807,45807,45808,45835,45838,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1691,130,26,1,8,1,45807,45807,45802,45814,45809,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1712,130,26,1,9,1,45814,45814,45809,45821,45816,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1732,130,26,1,10,1,45821,45821,45816,45828,45823,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1752,130,26,1,11,1,45828,45828,45823,45835,45830,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1782,110,26,1,13,-3,45835,45835,45838,45863,45869,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1800,130,26,1,12,1,45835,45835,45830,45842,45837,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1824,130,26,1,13,1,45842,45842,45837,45849,45844,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1846,130,26,1,14,1,45849,45849,45844,45856,45851,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1865,130,26,1,15,1,45856,45856,45851,45863,45858,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1892,110,26,1,18,-4,45863,45863,45869,45898,45900,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(1910,130,26,1,16,1,45863,45863,45858,45870,45865,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1931,130,26,1,17,1,45870,45870,45865,45877,45872,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1951,130,26,1,18,1,45877,45877,45872,45884,45879,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1970,130,26,1,19,1,45884,45884,45879,45891,45886,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(1993,130,26,1,20,1,45891,45891,45886,45898,45893,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2021,110,26,1,22,-5,45898,45898,45900,45926,45930,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(2039,130,26,1,21,1,45898,45898,45893,45905,45900,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2059,130,26,1,22,1,45905,45905,45900,45912,45907,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2078,130,26,1,23,1,45912,45912,45907,45919,45914,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2101,130,26,1,24,1,45919,45919,45914,45926,45921,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2126,110,26,1,27,-6,45926,45926,45930,45961,45961,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(2144,130,26,1,25,1,45926,45926,45921,45933,45928,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2167,130,26,1,26,1,45933,45933,45928,45940,45935,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2186,130,26,1,27,1,45940,45940,45935,45947,45942,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2209,130,26,1,28,1,45947,45947,45942,45954,45949,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2229,130,26,1,29,1,45954,45954,45949,45961,45956,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2253,110,26,1,31,-7,45961,45961,45961,45989,45991,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(2269,130,26,1,30,1,45961,45961,45956,45968,45963,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2331,130,26,1,33,1,45982,45982,45977,45989,45984,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2355,110,26,1,35,-8,45989,45989,45991,46017,46022,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(2372,130,26,1,34,1,45989,45989,45984,45996,45991,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2392,130,26,1,35,1,45996,45996,45991,46003,45998,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2415,130,26,1,36,1,46003,46003,45998,46010,46005,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2439,130,26,1,37,1,46010,46010,46005,46017,46012,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2466,110,26,1,40,-9,46015,46015,46022,46052,46053,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37,'','ALR01',0,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,-1,0,2405,0,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',30203);
INSERT INTO "PRPay" VALUES(2484,130,26,1,38,1,46017,46017,46012,46024,46019,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2505,130,26,1,39,1,46024,46024,46019,46031,46026,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2528,130,26,1,40,1,46031,46031,46026,46038,46033,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2550,130,26,1,41,1,46038,46038,46033,46045,46040,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
INSERT INTO "PRPay" VALUES(2570,130,26,1,42,1,46045,46045,46040,46052,46047,-1,-1,53,3,'Enrolled',0,0,0,0,0,0,0,0,0,'1257L',0,37.5,'','ENT01',37.5,0,0,0,0,0,0,0,0,0,0,'','','','','','','','','','','','','','','','','','','','',0,0,0,0,0,0,0,0,0,0,0,0,0,13.85,0,0,'A',0,0,0,0,0,0,0,0,0,2,2,0,25,0,15,0,'',25756);
CREATE TABLE PRPayImport (PRPINAID INTEGER DEFAULT 0, PRPIPay NUMBER DEFAULT 0);
CREATE TABLE PRYearEnds (
    PRYEYear INTEGER PRIMARY KEY,
    PRYEDate DATE DEFAULT 0
);
INSERT INTO "PRYearEnds" VALUES(24,45387);
INSERT INTO "PRYearEnds" VALUES(25,45752);
INSERT INTO "PRYearEnds" VALUES(26,46117);
CREATE TABLE Parameters (
    ParName  TEXT COLLATE NOCASE PRIMARY KEY,
    ParValue TEXT DEFAULT ''
);
INSERT INTO "Parameters" VALUES('PRNExpD_M1','-6');
INSERT INTO "Parameters" VALUES('PREPED_M1','0');
INSERT INTO "Parameters" VALUES('AEPRPStartDay','0');
INSERT INTO "Parameters" VALUES('CurFormat','#,##0.00');
INSERT INTO "Parameters" VALUES('AETriggerYear','10000');
INSERT INTO "Parameters" VALUES('AETriggerMonth','833');
INSERT INTO "Parameters" VALUES('AETriggerWeek','192');
INSERT INTO "Parameters" VALUES('AETriggerAge','22');
INSERT INTO "Parameters" VALUES('LELMonth','542');
INSERT INTO "Parameters" VALUES('LELWeek','125');
INSERT INTO "Parameters" VALUES('AEMinContrib','8');
INSERT INTO "Parameters" VALUES('AEMinEmployerContrib','3');
INSERT INTO "Parameters" VALUES('AEMinEmployeeContrib','5');
INSERT INTO "Parameters" VALUES('PensionProvider','Millbrook Pension Trust');
INSERT INTO "Parameters" VALUES('EmployerSchemeName','Pennywell Workplace Pension');
CREATE TABLE PensionSchemes (
    PSID                     INTEGER PRIMARY KEY,
    PSDesc                   TEXT COLLATE NOCASE DEFAULT '',
    PSDeductionsType         NUMBER   DEFAULT 0,
    PSSchemeAppliesTaxRelief BOOLEAN  DEFAULT 0,
    PSDefEE                  SINGLE   DEFAULT 0,
    PSDefER                  SINGLE   DEFAULT 0
);
INSERT INTO "PensionSchemes" VALUES(1,'Pennywell Workplace Pension',1,-1,5,3);
INSERT INTO "PensionSchemes" VALUES(2,'Millbrook Pension Trust (closed)',2,0,6,4);
CREATE TABLE UoM (
    UoMNo   INTEGER PRIMARY KEY,
    UoMCode TEXT COLLATE NOCASE DEFAULT ''
);
INSERT INTO "UoM" VALUES(1,'ea');
INSERT INTO "UoM" VALUES(2,'doz');
INSERT INTO "UoM" VALUES(3,'pr');
CREATE INDEX PREmploymentsInOrder
    ON PREmployments (PRTNAID, PRTPayrollYear, PRTPYEmployCount);
CREATE INDEX PRPayInOrder
    ON PRPay (PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID);
CREATE INDEX PREmploymentsByStart ON PREmployments (PRTStartDate);
CREATE INDEX PRPayOpenInOrder
    ON PRPay (PRPPeriodUpdated, PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo,
              PRPRTIPayDate, PRPID);
CREATE INDEX PRPayOpenRuns ON PRPay (PRPPeriodUpdated, PRPPayrollYear, PRPPayDate);
CREATE INDEX PREmployeeDetailsByScheme
    ON PREmployeeDetails (PREPenWorkplaceSchemeID);
CREATE INDEX OrdersByStatus ON Orders (OrdStatus);
COMMIT;
