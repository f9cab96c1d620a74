-- The payroll tables as the kit lays them down.
--
-- The declared type of a column says what kind of value it gives: INTEGER and SMALLINT are whole
-- numbers of 32 and 16 bits, NUMBER is a number of no fixed width, SINGLE a short float, CURRENCY
-- money with four decimals, BOOLEAN -1 and 0, DATE a count of days since 30 December 1899 with 0
-- for "not set". Texts compare and sort without regard to case, and Null sorts first.
--
-- Every column but a key has a default, so that a new row is sound in the fields that its writer
-- does not name. Nothing beyond the keys is enforced: data that came in damaged is reported where
-- it is read, with the name of the field, and can be put right with the database's own tools.

-- Whoever adds a table or an index here raises the number below by one, and nothing else: an older
-- company then gets it by an upgrade. Every statement leaves alone what is there already.

-- The version of these tables, in one row.
CREATE TABLE IF NOT EXISTS LedgerwickSchema (
    Version INTEGER DEFAULT 0
);
INSERT INTO LedgerwickSchema (Version) SELECT 1 WHERE NOT EXISTS (SELECT * FROM LedgerwickSchema);

CREATE TABLE IF NOT EXISTS Customers (
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

CREATE TABLE IF NOT EXISTS PREmployeeDetails (
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

CREATE TABLE IF NOT EXISTS PREmployments (
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

CREATE TABLE IF NOT EXISTS PREmploymentsAddInfo (
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

CREATE TABLE IF NOT EXISTS PRPay (
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

CREATE TABLE IF NOT EXISTS PensionSchemes (
    PSID                     INTEGER PRIMARY KEY,
    PSDesc                   TEXT COLLATE NOCASE DEFAULT '',
    PSDeductionsType         NUMBER   DEFAULT 0,
    PSSchemeAppliesTaxRelief BOOLEAN  DEFAULT 0,
    PSDefEE                  SINGLE   DEFAULT 0,
    PSDefER                  SINGLE   DEFAULT 0
);

CREATE TABLE IF NOT EXISTS Orders (
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

CREATE TABLE IF NOT EXISTS Deadstock (
    DSIDNo     INTEGER PRIMARY KEY,
    DSDesc     TEXT COLLATE NOCASE DEFAULT '',
    DSUoMConv  NUMBER   DEFAULT 1,
    DSPurchUoM INTEGER  DEFAULT 0
);

CREATE TABLE IF NOT EXISTS UoM (
    UoMNo   INTEGER PRIMARY KEY,
    UoMCode TEXT COLLATE NOCASE DEFAULT ''
);

-- One row, which the host puts in.
CREATE TABLE IF NOT EXISTS PRControl (
    PRCFCurrentYear     INTEGER  DEFAULT 0,
    PRCFPensionAfterTax BOOLEAN  DEFAULT 0
);

-- The last day of each payroll year.
CREATE TABLE IF NOT EXISTS PRYearEnds (
    PRYEYear INTEGER PRIMARY KEY,
    PRYEDate DATE DEFAULT 0
);

-- The named system parameters.
CREATE TABLE IF NOT EXISTS Parameters (
    ParName  TEXT COLLATE NOCASE PRIMARY KEY,
    ParValue TEXT DEFAULT ''
);

-- A load walks employments and pay rows in these orders.
CREATE INDEX IF NOT EXISTS PREmploymentsInOrder
    ON PREmployments (PRTNAID, PRTPayrollYear, PRTPYEmployCount);
CREATE INDEX IF NOT EXISTS PRPayInOrder
    ON PRPay (PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo, PRPRTIPayDate, PRPID);

-- Every load, also of one employee, asks for the earliest start date.
CREATE INDEX IF NOT EXISTS PREmploymentsByStart ON PREmployments (PRTStartDate);

-- The open rows of one employee, in order, and the oldest open run of a year.
CREATE INDEX IF NOT EXISTS PRPayOpenInOrder
    ON PRPay (PRPPeriodUpdated, PRPNAID, PRPPayrollYear, PRPPYEmployCount, PRPWeekNo,
              PRPRTIPayDate, PRPID);
CREATE INDEX IF NOT EXISTS PRPayOpenRuns ON PRPay (PRPPeriodUpdated, PRPPayrollYear, PRPPayDate);

-- The employees of a scheme, and the order lines that are not closed.
CREATE INDEX IF NOT EXISTS PREmployeeDetailsByScheme
    ON PREmployeeDetails (PREPenWorkplaceSchemeID);
CREATE INDEX IF NOT EXISTS OrdersByStatus ON Orders (OrdStatus);
