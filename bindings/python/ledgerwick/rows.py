"""The rows of the tables that a session hands out, with the types of their columns."""

from __future__ import annotations

from datetime import date
from datetime import date as Date
from decimal import Decimal
from typing import Any, Optional

from .tables import Row
from .values import Frequency


class EmployeeRow(Row):
    """An employee with the most recent employment."""

    __slots__ = ()
    naid: int
    reference: str
    name: str
    title: str
    forename: str
    surname: str
    nino: str
    date_of_birth: Optional[date]
    frequency: Frequency
    group: int
    active: bool
    casual: bool
    director: bool
    hourly_paid: bool
    tax_code: str
    ni_table: str
    period_rate: Decimal
    hourly_rate: Decimal
    scheme: int
    ae_joined: Optional[date]
    ae_opt_in: Optional[date]
    ae_postponed_until: Optional[date]
    employments: int
    prtid: int
    payroll_year: int
    employ_count: int
    start: Optional[date]
    end: Optional[date]
    ae_status: str
    last_week: int
    last_pay: Optional[date]
    last_period_end: Optional[date]
    next_pay: Optional[date]
    next_period_end: Optional[date]


class EmploymentRow(Row):
    """An employment with its running state."""

    __slots__ = ()
    naid: int
    prtid: int
    payroll_year: int
    employ_count: int
    start: Optional[date]
    end: Optional[date]
    tax_start: Optional[date]
    ae_start: Optional[date]
    active: bool
    casual: bool
    void: bool
    continuation: bool
    ae_continuation: bool
    continues_prtid: int
    ae_status_start: str
    ae_status: str
    first_prpid: int
    last_prpid: int
    last_week: int
    last_month: int
    last_frequency: Frequency
    first_period_end: Optional[date]
    last_pay: Optional[date]
    last_expected_pay: Optional[date]
    last_period_end: Optional[date]
    next_pay: Optional[date]
    next_period_end: Optional[date]
    has_imported_pay: bool
    imported_pay: Decimal
    maternity_weeks: int
    adoption_weeks: int
    paternity_weeks: int
    shared_parental_days: int
    student_loan_plan: int
    postgraduate_loan: bool


class DueRow(Row):
    """Somebody whose pay falls due."""

    __slots__ = ()
    naid: int
    name: str
    frequency: Frequency
    next_pay: date
    period_end: date
    periods: int


class RunRow(Row):
    """A period of a run that was opened."""

    __slots__ = ()
    naid: int
    name: str
    prpid: int
    first_day: date
    last_day: date
    imported: Optional[Decimal]
    week: int
    period: int


class OpenRow(Row):
    """A pay row that is open."""

    __slots__ = ()
    naid: int
    name: str
    prpid: int
    pay_date: Optional[date]
    period_end: Optional[date]
    week: int
    period: int
    pay: Decimal
    visited: bool
    status: float


class ClosedRow(Row):
    """An employee whose rows a run has closed."""

    __slots__ = ()
    naid: int
    name: str
    rows: int
    paid_to: Optional[date]
    next_pay_before: Optional[date]
    next_pay: Optional[date]
    next_period_end: Optional[date]


class MissingRow(Row):
    """A row that stands for a period which was skipped."""

    __slots__ = ()
    prpid: int
    naid: int
    name: str
    week: int
    period: int
    pay_date: Optional[date]
    late_reason: str


class RecipientRow(Row):
    """A worker to whom a letter goes."""

    __slots__ = ()
    naid: int
    name: str


class FieldRow(Row):
    """A field of a table: its name, and what it holds."""

    __slots__ = ()
    name: str
    kind: str


class CountRow(Row):
    """How many rows of a table came in or went out."""

    __slots__ = ()
    table: str
    rows: int


class UpgradeRow(Row):
    """The versions of a company before and after an upgrade, and what keeps it as it was."""

    __slots__ = ()
    from_version: int
    to_version: int
    copy: str


class FindingRow(Row):
    """A fault of a company's data."""

    __slots__ = ()
    severity: str
    kind: str
    table: str
    key: str
    naid: Optional[int]
    name: str
    what: str
    error: Optional[int]
    what_to_do: str


class AnswerRow(Row):
    """An answer about a date, and why."""

    __slots__ = ()
    frequency: Optional[Frequency]
    question: str
    answer: Optional[str]
    date: Optional[Date]
    last_day: Optional[Date]
    rule: str
    source: str
    controller: str


class PayDateRow(Row):
    """A pay date to come."""

    __slots__ = ()
    pay_date: date
    frequency: Frequency
    tax_year: int
    period: int
    left_over: bool


class FigureRow(Row):
    """A figure of an employment, and the pay row that gave it."""

    __slots__ = ()
    prtid: int
    payroll_year: int
    figure: str
    value: Any
    prpid: Optional[int]
    pay_date: Optional[date]
    week: Optional[int]


class FaultRow(Row):
    """A fault of a letter's template."""

    __slots__ = ()
    line: int
    column: int
    fault: str


class ChangeRow(Row):
    """A field that a step of a run would write."""

    __slots__ = ()
    naid: int
    name: str
    change: str
    table: str
    key: Optional[int]
    field: str
    # "from" is a word of Python's own: row["from"]
    to: Any
