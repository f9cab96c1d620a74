"""An open company, with a method for each call of the library."""

from __future__ import annotations

import warnings
from contextlib import contextmanager, suppress
from ctypes import byref, sizeof
from datetime import date
from decimal import Decimal
from os import PathLike, fsdecode, getpid
from typing import (
    Any,
    Dict,
    Iterable,
    Iterator,
    List,
    Mapping,
    NamedTuple,
    NoReturn,
    Optional,
    Tuple,
    Type,
    Union,
)

from ._library import LIBRARY, Options, call, number
from .errors import Closed, LedgerwickError, UnknownEmployee
from .rows import (
    ClosedRow,
    DueRow,
    EmployeeRow,
    EmploymentRow,
    FieldRow,
    MissingRow,
    OpenRow,
    AnswerRow,
    ChangeRow,
    CountRow,
    FaultRow,
    FigureRow,
    FindingRow,
    PayDateRow,
    RecipientRow,
    RunRow,
    UpgradeRow,
)
from .tables import R, Row, Table, take
from .values import (
    BOOLEAN,
    DATE,
    INTEGER,
    MONEY,
    TEXT,
    Durability,
    Frequency,
    Value,
    date_in,
    date_out,
    day_in,
    flag,
    money_in,
    money_out,
    number_out,
    text,
)

Path = Union[str, bytes, "PathLike[str]"]

# Errors as the library numbers them.
_UNKNOWN = 91
_CLOSED = 3420


class TaxDate(NamedTuple):
    """Where a date lies: payroll year n is the tax year from 6 April 1999 + n."""

    payroll_year: int
    week: int
    month: int


class PayPeriod(NamedTuple):
    """A pay period, and its number in the tax year."""

    first: date
    last: date
    number: int


class Due(NamedTuple):
    """How many employees fall due, and how many periods of theirs."""

    employees: int
    periods: int


class Run(Table[RunRow]):
    """The periods of a run that was opened."""

    def __init__(self, table: Table[RunRow], unchecked: bool) -> None:
        self.__dict__.update(table.__dict__)
        self.unchecked = unchecked  # whether some piecework has not been checked yet


def version() -> str:
    """The version of the library: "1.0.0".

    >>> ledgerwick.version()
    '1.0.0'
    """
    return str(LIBRARY.ledgerwick_version().decode())


def create_company(path: Path, tax_year: int) -> None:
    """Makes the database of a company that begins in the tax year from 6 April `tax_year`.

    >>> ledgerwick.create_company("another.db", 2016)
    """
    call("company_create", text(fsdecode(path)), tax_year)


def upgrade_company(path: Path) -> UpgradeRow:
    """Brings a company of an older release up to this one, and keeps a copy of it as it was.

    >>> ledgerwick.upgrade_company("company.db").copy    # of this release already
    ''
    """
    return take(call("company_upgrade", text(fsdecode(path)))[0], UpgradeRow)[0]


def tax_date(day: date) -> TaxDate:
    """The payroll year, tax week and tax month that hold a date.

    >>> ledgerwick.tax_date(date(2016, 4, 5))
    TaxDate(payroll_year=16, week=53, month=12)
    """
    return TaxDate(*call("tax_date", date_out(day)))


def pay_period(day: date, frequency: int) -> PayPeriod:
    """The pay period that holds a date, and its number in the tax year.

    >>> ledgerwick.pay_period(date(2016, 4, 8), Frequency.MONTHLY).last
    datetime.date(2016, 5, 5)
    """
    first, last, number = call("pay_period", date_out(day), frequency)
    return PayPeriod(day_in(first), day_in(last), number)


class Session:
    """An open company. Use it in a `with`, in the thread and the process that opened it.

    It cannot be copied or pickled; a thread or process of its own opens its own. One that is lost
    while it is open is closed with a ResourceWarning.

    `today` is the day on which the payroll believes itself; else it is the day of the clock.
    `program_path` is the folder that holds "AE Letter Templates"; else it is the current folder.
    `as_of` shows the company as it stood at the end of that day; nothing can be written then.
    `busy_timeout` is how many milliseconds a write waits for another process; 0 is the default.
    """

    def __init__(
        self,
        path: Path,
        today: Optional[date] = None,
        *,
        durability: int = Durability.EACH_UPDATE,
        busy_timeout: int = 5000,
        read_only: bool = False,
        program_path: Optional[Path] = None,
        workstation: Optional[str] = None,
        program_name: Optional[str] = None,
        as_of: Optional[date] = None,
    ) -> None:
        self._handle: Optional[int] = None
        self._in_transaction = False
        self._kinds: Dict[str, Dict[str, int]] = {}  # of the fields, by table and name
        options = Options(
            sizeof(Options),
            durability,
            busy_timeout,
            flag(read_only),
            None if program_path is None else text(fsdecode(program_path)),
            None if workstation is None else text(workstation),
            None if program_name is None else text(program_name),
            date_out(as_of),
        )
        day = date_out(today or date.today())
        self._path = fsdecode(path)
        self._process = getpid()
        (self._handle,) = call("session_open", text(self._path), day, byref(options))

    def __repr__(self) -> str:
        return f"<Session {self._path!r}, {'closed' if self._handle is None else 'open'}>"

    def __enter__(self) -> "Session":
        self._opened()
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Closes the company; a second time does nothing, nor does it in a forked child.

        >>> company.close()
        >>> company
        <Session 'company.db', closed>
        """
        if self._handle is not None and self._process == getpid():
            call("session_close", self._handle)
        self._handle = None

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is None or self._process != getpid():
            return
        warnings.warn(f"unclosed {self!r}", ResourceWarning, source=self)
        with suppress(LedgerwickError):  # the thread is another: its end closes the session
            self.close()

    def __reduce_ex__(self, protocol: object) -> NoReturn:
        raise TypeError("a Session cannot be copied or pickled; open the company again")

    def _opened(self) -> int:
        if self._handle is None:
            raise Closed(_CLOSED, "ledgerwick.Session", "The session is closed")
        return self._handle

    def _call(self, name: str, *arguments: Any) -> Tuple[Any, ...]:
        return call(name, self._opened(), *arguments)

    def _number(self, name: str, *arguments: Any) -> int:
        return number(name, self._opened(), *arguments)

    def _table(self, base: Type[R], name: str, *arguments: Any) -> Table[R]:
        return take(self._call(name, *arguments)[0], base)

    # ---- company --------------------------------------------------------------------------------

    def load(self) -> None:
        """Loads every employee who has an employment, in place of what was loaded before.

        >>> company.load()
        >>> len(company.employees())
        3
        """
        self._call("load")

    def reload(self, naid: int) -> None:
        """Loads one employee again.

        >>> company.update("PREmployeeDetails", 1, PREStdPeriodRate=Decimal("420"))
        >>> company.reload(1)
        >>> company.employee(1).period_rate
        Decimal('420.00')
        """
        self._call("reload", naid)

    def set_today(self, day: date) -> None:
        """Sets the day on which the payroll believes itself.

        >>> company.set_today(date(2016, 4, 30))
        """
        self._call("set_today", date_out(day))

    @property
    def payroll_year(self) -> int:
        """The current payroll year: n is the tax year from 6 April 1999 + n.

        >>> company.payroll_year
        17
        """
        return self._number("payroll_year")

    def parameter(self, name: str) -> str:
        """A named setting of the company, such as "PRNExpD_M1", the rule of the monthly pay day.

        >>> company.parameter("AEPRPStartDay")
        '0'
        """
        return str(self._call("get_parameter", text(name))[0])

    def set_parameter(self, name: str, value: Union[str, int, Decimal]) -> None:
        """Sets a setting of the company, and adds one that is not there.

        >>> company.set_parameter("PRNExpD_M1", 25)     # monthly pay on the 25th
        """
        if value is None:
            raise TypeError("a setting needs a value")
        self._call("set_parameter", text(name), text(str(value)))

    def import_folder(self, folder: Path) -> Table[CountRow]:
        """Reads the files TABLE.csv of a folder into the company; all are judged first.

        A row whose key is there already is a fault, but for the settings, which it replaces. `load`
        shows what came in, and `audit` looks it over.

        >>> company.export_folder("files").column("table")[:2]
        ['Customers', 'PREmployeeDetails']
        >>> ledgerwick.create_company("copy.db", 2016)
        >>> with ledgerwick.Session("copy.db", today=date(2016, 4, 8)) as copy:
        ...     counts = copy.import_folder("files")
        """
        return self._table(CountRow, "import", text(fsdecode(folder)))

    def export_folder(self, folder: Path) -> Table[CountRow]:
        """Writes every table as a file TABLE.csv into a folder.

        >>> company.export_folder("files")[0]
        CountRow(table='Customers', rows=3)
        """
        return self._table(CountRow, "export", text(fsdecode(folder)))

    # ---- questions ------------------------------------------------------------------------------

    def audit(self) -> Table[FindingRow]:
        """Every fault of the company's data, the severest first. Nothing is written.

        `severity` is "stops", "figures" or "note": what stops a load or a run, what makes a figure
        wrong, and what may be meant so.

        >>> [finding.what for finding in company.audit() if finding.severity == "stops"]
        []
        """
        return self._table(FindingRow, "audit")

    def plan_open(
        self, pay_date: date, frequency: int = Frequency.ALL, *, group: int = 0, naid: int = 0
    ) -> Table[ChangeRow]:
        """Field by field what `open_run` would write; nothing is written.

        >>> set(company.plan_open(date(2016, 4, 8)).column("change"))
        {'added'}
        """
        return self._plan(0, pay_date, frequency, group, naid)

    def plan_close(
        self, pay_date: date, frequency: int = Frequency.ALL, *, group: int = 0, naid: int = 0
    ) -> Table[ChangeRow]:
        """Field by field what `mark_calculated` and `close_run` would write; nothing is written.

        >>> run = company.open_run(date(2016, 4, 8))
        >>> set(company.plan_close(date(2016, 4, 8), naid=1).column("change"))
        {'changed'}
        """
        return self._plan(1, pay_date, frequency, group, naid)

    def _plan(self, step: int, pay_date: date, *which: int) -> Table[ChangeRow]:
        return self._table(ChangeRow, "run_plan", step, date_out(pay_date), *which)

    def report(self, pay_date: date, name: str = "") -> str:
        """A pay date on one page of HTML: the run, who is due and why, gaps, the year drawn.

        >>> page = company.report(date(2016, 4, 8), "Mill Ltd")
        >>> "Mill Ltd" in page
        True
        """
        return str(self._call("report", date_out(pay_date), text(name))[0])

    def explain(self, day: date, frequency: int = Frequency.ALL) -> Table[AnswerRow]:
        """Why a date is what it is: week, month, periods, the dates that come next, and the rules.

        >>> for answer in company.explain(date(2016, 4, 8), Frequency.WEEKLY)[2:4]:
        ...     print(answer.question, answer.answer)
        tax week 1
        tax month 1
        """
        return self._table(AnswerRow, "explain", date_out(day), frequency)

    def pay_dates(self, tax_year: int, years: int = 1) -> Table[PayDateRow]:
        """The pay dates in the tax years from 6 April `tax_year` on.

        >>> company.pay_dates(2016)[0]
        PayDateRow(pay_date=datetime.date(2016, 4, 8), frequency=<Frequency.WEEKLY: 1>, tax_year=2016, period=1, left_over=False)
        """
        return self._table(PayDateRow, "pay_dates", tax_year, years)

    def figures(self, naid: int) -> Table[FigureRow]:
        """The figures of an employee's employments, each with the pay row that gave it.

        >>> {row.figure: row.value for row in company.figures(1)}["next_pay"]
        datetime.date(2016, 4, 8)
        """
        return self._table(FigureRow, "figures", naid)

    # ---- rows of the database -------------------------------------------------------------------

    def rows(
        self,
        table: str,
        naid: int = 0,
        *,
        columns: Optional[Iterable[str]] = None,
        year: int = 0,
        since: Optional[date] = None,
    ) -> Table[Row]:
        """The rows of a table, or those of one employee, a payroll year, or since a day.

        The day is the pay date of a pay row, the start of an employment, the day of an order.

        >>> company.rows("PRPay", naid=1, columns=["PRPID", "PRPNExpPayDate"])
        PRPID  PRPNExpPayDate
        1      2016-04-08
        [1 rows × 2 columns]
        """
        arguments = (text(table), _names(columns), naid, year, date_out(since))
        return self._table(Row, "rows_select", *arguments)

    def fields(self, table: str) -> Table[FieldRow]:
        """The fields of a table: name, kind.

        >>> company.fields("UoM").column("name")[:2]
        ['UoMNo', 'UoMCode']
        """
        return self._table(FieldRow, "fields", text(table))

    def insert(self, table: str, **fields: Value) -> int:
        """Adds a row, with the table's defaults where nothing is said, and gives its key.

        A value is one of the field's own kind; None becomes its empty one: 0, "" or no date.

        >>> company.insert("Customers", NABusName="Mr Amit Chatterjee")
        4
        """
        with self._row("row_new", text(table)) as row:
            return self._store(table, row, fields)

    def insert_many(self, table: str, rows: Iterable[Mapping[str, Value]]) -> List[int]:
        """Adds rows, all or none of them, and gives their keys.

        >>> company.insert_many("UoM", [{"UoMCode": "ea"}, {"UoMCode": "kg"}])
        [1, 2]
        """
        with self._all_or_none():
            return [self.insert(table, **fields) for fields in rows]

    def update(self, table: str, key: int, **fields: Value) -> None:
        """Changes fields of the row with that key; `reload` shows it in the loaded employee.

        >>> company.update("PREmployeeDetails", 1, PRETaxCode="1150L", PREDoB=date(1980, 2, 29))
        """
        if not fields:
            return
        with self._row("row_open_fields", text(table), key, _names(fields)) as row:
            self._store(table, row, fields)

    def update_many(self, table: str, rows: Mapping[int, Mapping[str, Value]]) -> None:
        """Changes fields of many rows, named by their keys: all of them or, on an error, none.

        `load` shows it in the loaded employees.

        >>> company.update_many("PREmployeeDetails", {1: {"PREGroup": 2}, 2: {"PREGroup": 2}})
        """
        if not isinstance(rows, Mapping):
            raise TypeError("rows are a mapping from the key of each to its fields")
        with self._all_or_none():
            for key, fields in rows.items():
                self.update(table, key, **fields)

    @contextmanager
    def transaction(self) -> Iterator[None]:
        """Stores all that is written in a `with` at its end, or none of it when it raises.

        No other program writes meanwhile. Many rows are stored several times as fast so.

        >>> with company.transaction():
        ...     company.update("PREmployeeDetails", 1, PREGroup=2)
        ...     company.update("PREmployeeDetails", 2, PREGroup=2)
        """
        self._call("transaction_begin")
        self._in_transaction = True
        try:
            yield
        except BaseException:
            self._in_transaction = False
            self._call("transaction_end", False)
            raise
        self._in_transaction = False
        self._call("transaction_end", True)

    @contextmanager
    def _all_or_none(self) -> Iterator[None]:
        if self._in_transaction:
            yield
        else:
            with self.transaction():
                yield

    def _store(self, table: str, row: int, fields: Mapping[str, Value]) -> int:
        kinds = self._kinds.setdefault(table, {})
        for name, value in fields.items():
            field = text(name)
            if name not in kinds:
                kinds[name] = number("row_field_kind", row, field)
            _set_field(row, field, kinds[name], value)
        return number("row_store", row)

    @contextmanager
    def _row(self, name: str, *arguments: Any) -> Iterator[int]:
        (row,) = self._call(name, *arguments)
        try:
            yield row
        finally:
            call("row_close", row)

    # ---- employees ------------------------------------------------------------------------------

    def count(self) -> Tuple[int, int, int]:
        """How many employees there are, and how many at work are regular and casual.

        >>> company.count()
        (3, 3, 0)
        """
        employees, regular, casual = self._call("count")
        return employees, regular, casual

    def employees(self, *, columns: Optional[Iterable[str]] = None) -> Table[EmployeeRow]:
        """A row for each employee with the most recent employment.

        >>> company.employees(columns=["naid", "name", "next_pay"])
        naid  name            next_pay
        1     Mr John Smith   2016-04-08
        2     Ms Zoë Archer   2016-04-08
        3     Dr Ann de Vere  2016-04-30
        [3 rows × 3 columns]
        """
        return self._table(EmployeeRow, "employees_select", 0, _names(columns))

    def employee(self, naid: int) -> EmployeeRow:
        """One employee with the most recent employment.

        >>> company.employee(1).name, company.employee(1).frequency
        ('Mr John Smith', <Frequency.WEEKLY: 1>)
        """
        if naid == 0:  # which would be everybody
            raise UnknownEmployee(_UNKNOWN, "ledgerwick.Session", "There is no employee 0")
        return self._table(EmployeeRow, "employees", naid)[0]

    def employments(
        self, naid: int = 0, *, columns: Optional[Iterable[str]] = None
    ) -> Table[EmploymentRow]:
        """A row for each employment, or each of one employee, with its running state.

        >>> company.employments(1)[0].start
        datetime.date(2016, 4, 6)
        """
        return self._table(EmploymentRow, "employments_select", naid, _names(columns))

    def add_employment(
        self,
        naid: int,
        start: date,
        *,
        casual: bool = False,
        continuation: bool = False,
        ae_status: str = "",
        first_pay: Optional[date] = None,
        first_period_end: Optional[date] = None,
    ) -> int:
        """Begins an employment of one who has a row in Customers and PREmployeeDetails.

        Without `first_pay` and `first_period_end` they are those of the others paid as often, or
        else of the first period. Gives the key of the employment.

        >>> naid = company.insert("Customers", NABusName="Mr Amit Chatterjee")
        >>> company.insert("PREmployeeDetails", PRENAID=naid, PREPayFrequency=Frequency.WEEKLY)
        4
        >>> company.add_employment(naid, date(2016, 4, 11))
        4
        """
        return self._number(
            "employment_add",
            naid,
            date_out(start),
            casual,
            continuation,
            text(ae_status),
            date_out(first_pay),
            date_out(first_period_end),
        )

    def end_employment(self, naid: int, last_day: date) -> None:
        """Ends the most recent employment with that day.

        >>> company.set_today(date(2016, 4, 30))
        >>> company.end_employment(1, date(2016, 4, 30))
        >>> company.employments(1)[-1].end
        datetime.date(2016, 4, 30)
        """
        self._call("employment_end", naid, date_out(last_day))

    def set_next_dates(
        self, naid: int, pay: Optional[date] = None, period_end: Optional[date] = None
    ) -> None:
        """Moves the dates that are expected next, to skip a period; None leaves one as it is.

        >>> company.set_next_dates(1, pay=date(2016, 4, 15))
        >>> company.employee(1).next_pay
        datetime.date(2016, 4, 15)
        """
        self._call("set_next_dates", naid, date_out(pay), date_out(period_end))

    # ---- calendar -------------------------------------------------------------------------------

    def reference_period(self, day: date, frequency: int) -> Tuple[date, date]:
        """The pay reference period of auto-enrolment that holds a date.

        >>> company.reference_period(date(2016, 4, 8), Frequency.WEEKLY)
        (datetime.date(2016, 4, 6), datetime.date(2016, 4, 12))
        """
        first, last = self._call("reference_period", date_out(day), frequency)
        return day_in(first), day_in(last)

    def tax_week_end(self, week: int) -> date:
        """The last day of a tax week of the current payroll year.

        >>> company.tax_week_end(1)
        datetime.date(2016, 4, 12)
        """
        return day_in(self._call("tax_week_end", week)[0])

    def tax_month_end(self, month: int) -> date:
        """The last day of a tax month of the current payroll year.

        >>> company.tax_month_end(12)
        datetime.date(2017, 4, 5)
        """
        return day_in(self._call("tax_month_end", month)[0])

    def next_expected(
        self,
        day: date,
        frequency: int,
        *,
        period_end: bool = False,
        reverse: bool = False,
        change: bool = False,
    ) -> date:
        """The expected pay date, or end of period, behind a date.

        >>> company.next_expected(date(2016, 4, 8), Frequency.WEEKLY)
        datetime.date(2016, 4, 15)
        """
        arguments = (date_out(day), frequency, period_end, reverse, change)
        return day_in(self._call("next_expected", *arguments)[0])

    def week_of_date(self, day: date) -> int:
        """The number of weeks from the last year-end to a date, to the nearest whole one.

        >>> company.week_of_date(date(2016, 4, 19))
        2
        """
        return self._number("week_of_date", date_out(day))

    def date_of_week(self, week: int) -> date:
        """The last year-end plus so many weeks.

        >>> company.date_of_week(2)
        datetime.date(2016, 4, 19)
        """
        return day_in(self._call("date_of_week", week)[0])

    def calculation_set(self, day: date) -> int:
        """The number of the set of calculations that is in force on a date.

        >>> company.calculation_set(date(2016, 4, 8)) > 0
        True
        """
        return self._number("calculation_set", date_out(day))

    # ---- what falls due: None when there is nobody ----------------------------------------------

    def next_pay_date(
        self, frequency: int = Frequency.ALL, *, highest: bool = False, scheme: int = 0
    ) -> Optional[date]:
        """The earliest date on which pay next falls due, or the latest.

        >>> company.next_pay_date(), company.next_pay_date(Frequency.MONTHLY)
        (datetime.date(2016, 4, 8), datetime.date(2016, 4, 30))
        """
        day, none = self._call("next_pay_date", frequency, highest, scheme)
        return None if none else date_in(day)

    def last_pay_date(self, scheme: int = 0) -> Optional[date]:
        """The latest expected pay date that has gone by.

        >>> company.last_pay_date() is None
        True
        """
        day, none = self._call("last_pay_date", scheme)
        return None if none else date_in(day)

    def next_period_end(self, frequency: int = Frequency.ALL) -> Optional[date]:
        """The earliest date on which a pay period next ends.

        >>> company.next_period_end(Frequency.WEEKLY)
        datetime.date(2016, 4, 10)
        """
        day, none = self._call("next_period_end", frequency)
        return None if none else date_in(day)

    def open_run_date(self) -> Optional[date]:
        """The pay date of the oldest run that is open.

        >>> run = company.open_run(date(2016, 4, 8))
        >>> company.open_run_date()
        datetime.date(2016, 4, 8)
        """
        day, none = self._call("open_run_date")
        return None if none else date_in(day)

    def count_due(self, day: date) -> Due:
        """How many employees, and how many periods of theirs, fall due up to a date.

        >>> company.count_due(date(2016, 4, 8))
        Due(employees=2, periods=2)
        """
        return Due(*self._call("count_due", date_out(day)))

    def due(self, day: date) -> Table[DueRow]:
        """Who falls due up to a date: naid, name, frequency, next_pay, period_end, periods.

        >>> company.due(date(2016, 4, 8)).column("name")
        ['Mr John Smith', 'Ms Zoë Archer']
        """
        return self._table(DueRow, "due", date_out(day))

    def reference_period_end(self, naid: int, pay_date: date) -> date:
        """The last day of the pay reference period behind an employee's pay date.

        >>> company.reference_period_end(1, date(2016, 4, 8))
        datetime.date(2016, 4, 12)
        """
        return day_in(self._call("reference_period_end", naid, date_out(pay_date))[0])

    def last_reference_period_end(self) -> date:
        """The day before the latest start of anybody's next pay reference period.

        >>> company.last_reference_period_end()
        datetime.date(2016, 4, 5)
        """
        return day_in(self._call("last_reference_period_end")[0])

    # ---- the road of a pay run ------------------------------------------------------------------

    def open_run(
        self, pay_date: date, frequency: int = Frequency.ALL, *, group: int = 0, naid: int = 0
    ) -> Run:
        """Makes sure that every period due has an open pay row, and tells one row for each.

        Columns: naid, name, prpid, first_day, last_day, imported, week, period. `imported` is None
        without imported pay; `period` is a pay period code, or minus the tax month. `unchecked` of
        the table says whether some piecework has not been checked yet.

        >>> run = company.open_run(date(2016, 4, 8))
        >>> run.column("name"), run.unchecked
        (['Mr John Smith', 'Ms Zoë Archer'], False)
        """
        arguments = (date_out(pay_date), frequency, group, naid)
        handle, unchecked = self._call("run_open", *arguments)
        table = take(handle, RunRow)
        return Run(table, bool(unchecked))

    def run_rows(
        self, pay_date: date, frequency: int = Frequency.ALL, *, group: int = 0, naid: int = 0
    ) -> Table[OpenRow]:
        """The open rows up to a pay date.

        Columns: naid, name, prpid, pay_date, period_end, week, period, pay, visited, status.

        >>> run = company.open_run(date(2016, 4, 8))
        >>> company.run_rows(date(2016, 4, 8)).column("pay")
        [Decimal('412.50'), Decimal('388.00')]
        """
        return self._table(OpenRow, "run_rows", date_out(pay_date), frequency, group, naid)

    def mark_calculated(
        self, pay_date: date, frequency: int = Frequency.ALL, *, group: int = 0, naid: int = 0
    ) -> int:
        """Marks open rows as worked out and reported; only such rows count as paid.

        >>> run = company.open_run(date(2016, 4, 8))
        >>> company.mark_calculated(date(2016, 4, 8))
        2
        """
        arguments = (date_out(pay_date), frequency, group, naid)
        return self._number("run_mark_calculated", *arguments)

    def reset_visited(self, naid: int) -> None:
        """Withdraws the visited mark from an employee's open rows.

        >>> company.reset_visited(1)
        """
        self._call("reset_visited", naid)

    def close_run(
        self, pay_date: date, frequency: int = Frequency.ALL, *, group: int = 0, naid: int = 0
    ) -> Table[ClosedRow]:
        """Closes the open rows, clears what they paid, and tells how the dates moved on.

        Columns: naid, name, rows, paid_to, next_pay_before, next_pay, next_period_end. A table
        without rows says that nothing was open.

        >>> run = company.open_run(date(2016, 4, 8))
        >>> marked = company.mark_calculated(date(2016, 4, 8))
        >>> company.close_run(date(2016, 4, 8)).column("next_pay")
        [datetime.date(2016, 4, 15), datetime.date(2016, 4, 15)]
        """
        return self._table(ClosedRow, "run_close", date_out(pay_date), frequency, group, naid)

    def fill_missing_periods(self) -> Table[MissingRow]:
        """Adds a closed empty row for each period skipped in this year.

        Columns: prpid, naid, name, week, period, pay_date, late_reason.

        >>> len(company.fill_missing_periods())
        0
        """
        return self._table(MissingRow, "fill_missing_periods")

    def import_pay(self, naid: int, amount: Union[Decimal, int]) -> None:
        """Puts a pay value from elsewhere in place of what was imported before.

        >>> company.import_pay(1, Decimal("50.25"))
        >>> company.rows("PRPayImport").to_dicts()
        [{'PRPINAID': 1, 'PRPIPay': 50.25}]
        """
        self._call("import_pay", naid, money_out(amount))

    def load_imported(self) -> None:
        """Reads imported pay and piecework into the current employments.

        >>> company.import_pay(1, Decimal("50.25"))
        >>> company.load_imported()
        >>> company.employments(1)[0].imported_pay
        Decimal('50.25')
        """
        self._call("load_imported")

    def piecework(self, naid: int, first: date, last: date) -> Tuple[Table[Row], Decimal]:
        """The checked piecework of a period as it was loaded last, and its total.

        >>> table, total = company.piecework(1, date(2016, 4, 4), date(2016, 4, 10))
        >>> len(table), total
        (0, Decimal('0.00'))
        """
        table, total = self._call("piecework", naid, date_out(first), date_out(last))
        return take(table, Row), money_in(total)

    # ---- auto-enrolment -------------------------------------------------------------------------

    def ae_status(
        self,
        up_to: date,
        payroll_year: Optional[int] = None,
        *,
        open_rows: bool = False,
        naid: int = 0,
    ) -> Table[Row]:
        """Where the regular workers stand by their closed, or open, pay rows.

        >>> company.ae_status(date(2016, 4, 8)).column("Name")
        ['Dr Ann de Vere', 'Mr John Smith', 'Ms Zoë Archer']
        """
        year = self.payroll_year if payroll_year is None else payroll_year
        return self._table(Row, "ae_status", date_out(up_to), year, open_rows, naid)

    def ae_employees(self, *, full: bool = False) -> Table[Row]:
        """The regular workers for pick lists, or with `full` for exports.

        >>> len(company.ae_employees())
        3
        """
        return self._table(Row, "ae_employees", full)

    def ae_assessment(
        self,
        naid: int,
        up_to: date,
        payroll_year: Optional[int] = None,
        *,
        open_rows: bool = False,
    ) -> Row:
        """One worker's first, previous and current assessment.

        >>> company.ae_assessment(1, date(2016, 4, 8)).current_date is None
        True
        """
        year = self.payroll_year if payroll_year is None else payroll_year
        return self._table(Row, "ae_assessment", naid, date_out(up_to), year, open_rows)[0]

    def ae_scheme_changed(self, scheme: int) -> None:
        """Has open pay rows worked again after a change of a scheme's rates.

        >>> company.ae_scheme_changed(1)
        """
        self._call("ae_scheme_changed", scheme)

    def ae_re_enrolment_changed(self, before: date, after: date) -> None:
        """Has open pay rows worked again after a change of the re-enrolment date.

        >>> company.ae_re_enrolment_changed(date(2016, 7, 1), date(2016, 10, 1))
        """
        self._call("ae_re_enrolment_changed", date_out(before), date_out(after))

    def ae_recipients(self, letter: int) -> Table[RecipientRow]:
        """The workers to whom a letter of the kind goes: naid, name.

        >>> company.ae_recipients(Letter.NOT_ELIGIBLE).column("naid")
        [1, 2, 3]
        """
        return self._table(RecipientRow, "ae_recipients", letter)

    def ae_check_template(self, path: Path) -> Table[FaultRow]:
        """What is wrong with the template of a letter, whose kind its file name says.

        >>> with open("Enrolment.txt", "w") as file:
        ...     count = file.write("Dear %forename%")
        >>> company.ae_check_template("Enrolment.txt").column("fault")
        ['%forename% is no placeholder; %Forename% is']
        """
        return self._table(FaultRow, "ae_check_template", text(fsdecode(path)))

    def ae_letter(self, naid: int, letter: int) -> str:
        """The letter to one worker, whole.

        >>> with open("Non-Qualifying.txt", "w") as file:
        ...     count = file.write("Dear %Forename%")
        >>> "Dear John" in company.ae_letter(1, Letter.NOT_ELIGIBLE)
        True
        """
        return str(self._call("ae_letter", naid, letter)[0])


def _names(columns: Optional[Iterable[str]]) -> Optional[bytes]:
    if columns is None:
        return None
    if isinstance(columns, str):
        raise TypeError("columns are a list of names, not one text")
    return text(",".join(columns))


def _set_field(row: int, field: bytes, kind: int, value: Any) -> None:
    """Sets a field to a value of its own kind; None is its empty one."""
    try:
        if kind == TEXT:
            call("row_set_text", row, field, text("" if value is None else value))
        elif kind == DATE:
            call("row_set_date", row, field, date_out(value))
        elif kind == MONEY:
            call("row_set_money", row, field, money_out(0 if value is None else value))
        elif kind == BOOLEAN:
            call("row_set_integer", row, field, 0 if value is None else flag(value))
        elif kind == INTEGER:
            call("row_set_integer", row, field, 0 if value is None else value)
        else:
            call("row_set_double", row, field, number_out(0 if value is None else value))
    except LedgerwickError:
        raise
    except (TypeError, ValueError, OverflowError) as failure:
        raise type(failure)(f"{field.decode()}: {failure}") from None
