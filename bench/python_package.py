#!/usr/bin/env python3
"""How long the Python package takes with many people: bench/python_package.py [PEOPLE]

The library is that of the newest build, or of LEDGERWICK_LIBRARY; measure an optimised one.
"""
import sys
import tempfile
import time
from contextlib import contextmanager
from datetime import date
from decimal import Decimal
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "bindings/python"))

import ledgerwick
from ledgerwick import Durability, Frequency

TEN = ["naid", "name", "frequency", "group", "active", "tax_code", "ni_table", "period_rate",
       "next_pay", "next_period_end"]


@contextmanager
def timed(what, cells=0):
    began = time.perf_counter()
    yield
    took = time.perf_counter() - began
    print(f"{what:48} {took:8.3f} s" + (f" {took / cells * 1e9:8.0f} ns a cell" if cells else ""))


def main():
    people = int(sys.argv[1]) if len(sys.argv) > 1 else 20000
    print(ledgerwick._library.LIBRARY._name)
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "company.db"
        ledgerwick.create_company(path, 2016)
        company = ledgerwick.Session(path, date(2016, 4, 8), durability=Durability.BATCHED)
        company.load()
        numbers = range(1, people + 1)
        with timed(f"{people} people and employments inserted"), company.transaction():
            company.insert_many("Customers", (
                {"NAID": naid, "NABusName": f"Person {naid}"} for naid in numbers))
            company.insert_many("PREmployeeDetails", (
                {"PRENAID": naid, "PREPayFrequency": Frequency.WEEKLY,
                 "PREStdPeriodRate": Decimal(300 + naid % 400)} for naid in numbers))
            for naid in numbers:
                company.add_employment(naid, date(2016, 4, 6), first_pay=date(2016, 4, 8),
                                       first_period_end=date(2016, 4, 10))
        with timed("loaded"):
            company.load()
        with timed("10 properties of each as lists", 10 * people):
            table = company.employees(columns=TEN)
            lists = [table.column(name) for name in TEN]
        with timed("10 properties of each as rows", 10 * people):
            rows = list(company.employees(columns=TEN))
        assert len(rows) == len(lists[0]) == people
        due = company.next_pay_date()
        began = time.perf_counter()
        with company.transaction():
            with timed("a run opened"):
                run = company.open_run(due)
            with timed("its pay written"):
                rate = dict(zip(lists[0], lists[7]))
                company.update_many("PRPay", {
                    row.prpid: {"PRPPeriodPay": rate[row.naid]} for row in run})
            with timed("marked"):
                company.mark_calculated(due)
            with timed("closed"):
                company.close_run(due)
        print(f"{'opened, written and closed':48} {time.perf_counter() - began:8.3f} s")
        cells = 2 * people * len(company.fields("PRPay"))
        with timed("the whole pay table", cells):
            table = company.rows("PRPay")
        with timed("  and every cell of it as a value", cells):
            for name in table.columns:
                table.column(name)
        company.close()


if __name__ == "__main__":
    main()
