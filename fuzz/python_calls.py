#!/usr/bin/env python3
"""Random calls of the Python package in random order: fuzz/python_calls.py [--seconds S] [--seed N]

Every public function and method is called with values that may fit and values that do not, on sessions
that are opened, closed and used by other threads in between. A call may succeed or raise one of the
errors that the package names; another exception, or the end of the process, is a find. The seed of a
round is printed before it ends badly; --seed N --seconds 0 plays that round alone.
"""
import argparse
import faulthandler
import gc
import inspect
import random
import sys
import tempfile
import threading
import time
import traceback
import warnings
from datetime import date, datetime, timedelta
from decimal import Decimal
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "bindings/python"))

import ledgerwick

REFUSALS = (ledgerwick.LedgerwickError, TypeError, ValueError, OverflowError, LookupError)
TABLES = ["Customers", "PREmployeeDetails", "PREmployments", "PREmploymentsAddInfo", "PRPay",
          "PensionSchemes", "Orders", "Deadstock", "UoM", "PRYearEnds", "PRControl", "PRPayImport",
          "Parameters", "sqlite_master", "prpay"]
FIELDS = ["NAID", "NABusName", "PRENAID", "PREPayFrequency", "PREDoB", "PREStdPeriodRate", "PRPPayDate",
          "PRPPeriodPay", "PRPStatus", "PRPWeekNo", "PRPHasBeenVisited", "PRPNAID", "OrdNAID", "OrdQty",
          "PRTNAID", "PRTEndDateLong", "PRYEDate", "PSID", "UoMCode", "Salary", "", "a, b", "PRPID"]
DAYS = 60  # calls of a round


class Values:
    """Values of any kind; most of those that a parameter asks for fit it."""

    def __init__(self, dice, folder):
        self.dice = dice
        self.folder = folder

    def number(self):
        return self.dice.choice([0, 1, 2, 3, 4, -1, 7, 13, 16, 17, 26, 52, 500, 2016, 32768, 40000,
                                 (1 << 31) - 1, -(1 << 31), 1 << 31, 1 << 63, 10 ** 30])

    def day(self):
        return self.dice.choice([date(2016, 4, 8), date(2016, 4, 8) + timedelta(self.dice.randrange(-800, 800)),
                                 date(1, 1, 1), date(99, 12, 31), date(1899, 12, 30), date(9999, 12, 31),
                                 datetime(2016, 4, 8), datetime(2016, 4, 8, 12), None])

    def text(self):
        return self.dice.choice(["", "Ann", "PRNExpD_M1", "31", "-6", "a\0b", "€" * 3000, "\udc80", "';--",
                                 "%Forename%", str(self.folder), str(self.folder / "company.db"), "none"])

    def money(self):
        return self.dice.choice([Decimal("412.50"), Decimal("0.0001"), Decimal("0.00001"), Decimal("NaN"),
                                 Decimal("922337203685477.5807"), Decimal("-1e15"), 5, 1.5, Decimal("1e99")])

    def any(self):
        return self.dice.choice([self.number, self.day, self.text, self.money, lambda: None, lambda: True,
                                 lambda: b"x", lambda: 1.5, lambda: float("nan"), lambda: [1], object])()

    def fields(self):
        count = self.dice.randrange(4)
        return {self.dice.choice(FIELDS): self.any() for _ in range(count)}

    def of(self, name):
        if self.dice.random() < 0.1:
            return self.any()
        if name == "table":
            return self.dice.choice(TABLES)
        if name == "columns":
            return self.dice.choice([None, ["naid"], ["PRPID", "PRPPayDate"], ["naid", "name"], "naid", []])
        if name in ("naid", "group", "scheme"):
            return self.dice.choice([0, 1, 2, 3, 99])
        if name in ("frequency", "letter"):
            return self.dice.choice([*ledgerwick.Frequency, *ledgerwick.Letter])
        if name == "rows":
            return self.dice.choice([{1: self.fields(), 2: self.fields()}, [self.fields(), self.fields()]])
        if name == "amount":
            return self.money()
        if name in ("name", "value", "ae_status", "path", "folder"):
            return self.text()
        if name in ("casual", "continuation", "period_end", "reverse", "change", "highest", "open_rows", "full"):
            return self.dice.choice([True, False])
        if name in ("key", "week", "month", "year", "years", "tax_year", "payroll_year"):
            return self.dice.choice([self.number(), 1, 2, 16, 17, 2016])
        return self.day()

    def arguments(self, function):
        positional, named = [], {}
        for parameter in inspect.signature(function).parameters.values():
            if parameter.kind == parameter.VAR_KEYWORD:
                named.update(self.fields())
            elif parameter.default is parameter.empty:
                positional.append(self.of(parameter.name))
            elif self.dice.random() < 0.5:
                named[parameter.name] = self.of(parameter.name)
        return positional, named


def look_at(dice, table):
    """A table in every shape."""
    if dice.random() < 0.5:
        table = table[slice(*(dice.choice([None, 0, 1, -1, 3, -2]) for _ in range(2)),
                            dice.choice([None, 1, -1, 2]))]
    rows = list(table)
    assert len(rows) == len(table) and [table[i] for i in range(len(table))] == rows
    for shape in (table.to_dicts, table.to_csv, table._repr_html_, table.__repr__, table.__arrow_c_stream__):
        shape()


def new_company(folder):
    path = folder / "company.db"
    ledgerwick.create_company(path, 2016)
    with ledgerwick.Session(path, date(2016, 4, 8), durability=2) as company:
        company.load()
        for naid, frequency in ((1, 1), (2, 4), (3, 2)):
            company.insert("Customers", NAID=naid, NABusName=f"Person {naid}")
            company.insert("PREmployeeDetails", PRENAID=naid, PREPayFrequency=frequency,
                           PREStdPeriodRate=Decimal(100 * naid))
            company.add_employment(naid, date(2016, 4, 6))
    return path.read_bytes()


def one_round(seed, company_file, calls):
    dice = random.Random(seed)
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        path = folder / "company.db"
        path.write_bytes(company_file)
        values = Values(dice, folder)
        sessions = [ledgerwick.Session(path, date(2016, 4, 8), durability=2, busy_timeout=1)]
        sessions[0].load()
        tables = []
        log = []

        def call(function):
            positional, named = values.arguments(function)
            log.append(f"{getattr(function, '__qualname__', function)}(*{positional!r}, **{named!r})"[:400])
            try:
                result = function(*positional, **named)
            except REFUSALS as refusal:
                log[-1] += f" -> {type(refusal).__name__}"
                return
            if isinstance(result, tuple) and result and isinstance(result[0], ledgerwick.Table):
                result = result[0]
            if isinstance(result, ledgerwick.Table):
                tables.append(result)

        def step():
            session = dice.choice(sessions)
            chance = dice.random()
            if chance < 0.02:
                session.close()
            elif chance < 0.06:
                sessions.append(ledgerwick.Session(path, date(2016, 4, 8), durability=2, busy_timeout=1,
                                                   as_of=dice.choice([None, None, date(2016, 4, 20)])))
            elif chance < 0.08:
                thread = threading.Thread(target=call, args=(session.load,))
                thread.start()
                thread.join()
            elif chance < 0.12:
                call(dice.choice([ledgerwick.tax_date, ledgerwick.pay_period]))
            elif chance < 0.2 and tables:
                look_at(dice, dice.choice(tables))
            elif chance < 0.24:
                try:
                    with session.transaction():
                        call(dice.choice([session.insert, session.update, session.open_run]))
                        if dice.random() < 0.5:
                            raise LookupError
                except REFUSALS:
                    pass
            else:
                names = [name for name in dir(type(session))
                         if not name.startswith("_") and name not in ("close", "transaction", "payroll_year")]
                call(getattr(session, dice.choice(names)))
            if dice.random() < 0.02:
                gc.collect()

        try:
            for _ in range(calls):
                step()
            for session in sessions:
                session.close()
            with ledgerwick.Session(path, date(2016, 4, 8), busy_timeout=5000) as company:
                company.audit()
        except BaseException:
            print(f"seed {seed}:", *log[-12:], sep="\n  ", file=sys.stderr)
            raise


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--seed", type=int)
    parser.add_argument("--calls", type=int, default=DAYS)
    options = parser.parse_args()
    faulthandler.enable()
    warnings.simplefilter("ignore", ResourceWarning)
    seed = random.randrange(1 << 32) if options.seed is None else options.seed
    with tempfile.TemporaryDirectory() as folder:
        company_file = new_company(Path(folder))
    rounds = 0
    began = time.monotonic()
    try:
        while rounds == 0 or time.monotonic() - began < options.seconds:
            (Path(tempfile.gettempdir()) / "python_calls.seed").write_text(f"{seed + rounds}\n")
            one_round(seed + rounds, company_file, options.calls)
            rounds += 1
    except BaseException:
        traceback.print_exc()
        return 1
    print(f"random calls from Python: {rounds} rounds of {options.calls}, nothing found")
    return 0


if __name__ == "__main__":
    sys.exit(main())
