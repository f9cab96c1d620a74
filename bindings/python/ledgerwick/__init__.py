"""UK payroll from Python: employees, the tax calendar, pay runs and auto-enrolment.

    with ledgerwick.Session("company.db", today=date(2016, 4, 8)) as company:
        company.load()
        due = company.next_pay_date()
        for column in company.open_run(due):
            company.update("PRPay", column.prpid, PRPPeriodPay=Decimal("412.50"))
        company.mark_calculated(due)
        company.close_run(due)

Dates are `datetime.date`, and None where the payroll has none; money is `decimal.Decimal`. What the
library refuses is a `LedgerwickError` with number, source and description. A session belongs to the
thread that opened it.
"""

from ._library import LedgerwickError
from .session import (
    Due,
    PayPeriod,
    Session,
    TaxDate,
    create_company,
    pay_period,
    tax_date,
    version,
)
from .tables import Row, Table
from .values import Durability, Frequency, Letter

__version__ = "1.0.0"

__all__ = [
    "__version__",
    "Due",
    "Durability",
    "Frequency",
    "LedgerwickError",
    "Letter",
    "PayPeriod",
    "Row",
    "Session",
    "Table",
    "TaxDate",
    "create_company",
    "pay_period",
    "tax_date",
    "version",
]
