"""UK payroll from Python: employees, the tax calendar, pay runs and auto-enrolment.

    with ledgerwick.Session("company.db", today=date(2016, 4, 8)) as company:
        company.load()
        due = company.next_pay_date()
        for column in company.open_run(due):
            company.update("PRPay", column.prpid, PRPPeriodPay=Decimal("412.50"))
        company.mark_calculated(due)
        company.close_run(due)

Dates are `datetime.date`, and None where the payroll has none; money is `decimal.Decimal`. What the
library refuses is a `LedgerwickError` of a class that says what to do. A session belongs to the
thread that opened it.
"""

from .errors import (
    BadFiles,
    Busy,
    Changed,
    Closed,
    DatabaseFailure,
    FileNotThere,
    FileThere,
    InvalidValue,
    LedgerwickError,
    NotACompany,
    NotAllowed,
    NotLoaded,
    OtherVersion,
    ReadOnly,
    UnknownEmployee,
    UnknownName,
    UnknownRow,
    WrongThread,
)
from .session import (
    Due,
    PayPeriod,
    Run,
    Session,
    TaxDate,
    create_company,
    pay_period,
    tax_date,
    upgrade_company,
    version,
)
from .tables import Row, Table
from .values import Durability, Frequency, Letter

__version__ = "1.0.0"

__all__ = [
    "BadFiles",
    "Busy",
    "Changed",
    "Closed",
    "DatabaseFailure",
    "Due",
    "Durability",
    "FileNotThere",
    "FileThere",
    "Frequency",
    "InvalidValue",
    "LedgerwickError",
    "Letter",
    "NotACompany",
    "NotAllowed",
    "NotLoaded",
    "OtherVersion",
    "PayPeriod",
    "ReadOnly",
    "Row",
    "Run",
    "Session",
    "Table",
    "TaxDate",
    "UnknownEmployee",
    "UnknownName",
    "UnknownRow",
    "WrongThread",
    "__version__",
    "create_company",
    "pay_period",
    "tax_date",
    "upgrade_company",
    "version",
]
