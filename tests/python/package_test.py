"""The Python package: its declarations against the header, its values, its errors, its guide."""

import copy
import ctypes
import doctest
import gc
import os
import pickle
import re
import runpy
import sqlite3
import subprocess
import sys
import tempfile
import threading
import unittest
import warnings
import zipfile
from contextlib import closing
from datetime import date, datetime, timedelta
from decimal import Decimal, localcontext
from pathlib import Path

SOURCE = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(SOURCE / "bindings/python"))

import ledgerwick
from ledgerwick import Durability, Frequency, LedgerwickError, Letter, Session, _library

TODAY = date(2016, 4, 8)


class Declarations(unittest.TestCase):
    def test_are_those_of_the_header(self):
        header = (SOURCE / "capi/ledgerwick_c.h").read_text()
        kinds = {
            "ledgerwick_session*": "h", "ledgerwick_table*": "h", "ledgerwick_row*": "h",
            "ledgerwick_session**": "H", "ledgerwick_table**": "H", "ledgerwick_row**": "H",
            "int32_t": "i", "ledgerwick_date": "i", "int32_t*": "I", "ledgerwick_date*": "I",
            "int64_t": "q", "ledgerwick_money": "q", "int64_t*": "Q", "ledgerwick_money*": "Q",
            "double": "f", "double*": "F", "const char*": "s", "const char**": "S", "size_t*": "Z",
            "const ledgerwick_options*": "o", "ledgerwick_cell*": "c",
            "struct ArrowSchema*": "x", "struct ArrowArray*": "a", "const struct ArrowArray*": "a",
            "struct ArrowArrayStream*": "t",
        }
        declared = {}
        for name, arguments in re.findall(r"int32_t ledgerwick_(\w+)\(([^)]*)\);", header):
            types = [re.sub(r"\s*\w+$", "", each.strip()) for each in arguments.split(",")]
            if types != ["void"] and types != [""]:
                self.assertEqual(types.pop(), "ledgerwick_error*", name)
                declared[name] = "".join(kinds[each] for each in types)
        calls = {name: kinds.replace("b", "i") for name, kinds in _library.CALLS.items()}
        self.assertEqual(declared, calls)
        for enum in (Frequency, Durability, Letter):
            for member in enum:
                self.assertRegex(header, rf"LEDGERWICK_{member.name} = {member.value}\b")

    def test_a_missing_library_is_told_with_the_package_to_install(self):
        for named, told in (("/no/such/library.so", "libledgerwick1"),
                            ("libc.so.6", "is not libledgerwick_c")):
            environment = {**os.environ, "LEDGERWICK_LIBRARY": named,
                           "PYTHONPATH": str(SOURCE / "bindings/python")}
            run = subprocess.run([sys.executable, "-c", "import ledgerwick"], env=environment,
                                 capture_output=True, text=True)
            self.assertIn("ImportError", run.stderr)
            self.assertIn(told, run.stderr)


class Wheel(unittest.TestCase):
    def test_holds_all_that_a_program_needs(self):
        with tempfile.TemporaryDirectory() as folder:
            library = Path(_library.LIBRARY._name).parent
            build = ("import sys; sys.path.insert(0, sys.argv[1]); import ledgerwick_build as build\n"
                     "print(build.build_wheel(sys.argv[2]))")
            backend = SOURCE / "bindings/python/build_backend"
            name = subprocess.run(
                [sys.executable, "-c", build, backend, folder], check=True, capture_output=True,
                text=True, env={**os.environ, "LEDGERWICK_LIBRARIES": str(library)}).stdout.strip()
            with zipfile.ZipFile(Path(folder) / name) as wheel:
                wheel.extractall(folder)
            environment = {key: value for key, value in os.environ.items()
                           if key not in ("LEDGERWICK_LIBRARY", "PYTHONPATH")}
            program = ("import importlib.metadata as of, ledgerwick, runpy, sys\n"
                       "assert ledgerwick._library.LIBRARY._name.startswith(sys.path[1])\n"
                       "version = of.version('ledgerwick')\n"
                       "assert version == ledgerwick.__version__ == ledgerwick.version(), version\n"
                       "runpy.run_path(sys.argv[1], run_name='__main__')")
            example = SOURCE / "bindings/python/examples/pay_run.py"
            run = subprocess.run([sys.executable, "-W", "error", "-c", program, example], check=True,
                                 capture_output=True, text=True,
                                 env={**environment, "PYTHONPATH": folder})
            self.assertIn("calculated 2", run.stdout)
            self.assertFalse(list(backend.glob("__pycache__")))


class Company(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.path = self.folder / "company.db"
        ledgerwick.create_company(self.path, 2016)
        self.company = Session(self.path, TODAY, durability=Durability.BATCHED,
                               program_path=self.folder)
        self.addCleanup(self.company.close)
        self.company.load()
        for naid, name in ((1, "Ann €uro"), (2, "Bob Tail")):
            self.company.insert("Customers", NAID=naid, NABusName=name)
            self.company.insert("PREmployeeDetails", PRENAID=naid, PREDirector=True,
                                PREPayFrequency=Frequency.WEEKLY, PREDoB=date(1980, 2, 29),
                                PREStdPeriodRate=Decimal("0.0001"), PREMinNormHours=37.5)
            self.company.add_employment(naid, date(2016, 4, 6), ae_status="New",
                                        first_pay=TODAY, first_period_end=date(2016, 4, 10))

    def refused(self, number, work, *arguments, **named):
        with self.assertRaises(LedgerwickError) as raised:
            work(*arguments, **named)
        self.assertEqual(raised.exception.number, number, str(raised.exception))
        return raised.exception

    def test_values_keep_their_kind(self):
        (details,) = self.company.rows("PREmployeeDetails", 1)
        self.assertIs(details.PREPayFrequency, Frequency.WEEKLY)
        self.assertEqual(details.PREDoB, date(1980, 2, 29))
        self.assertEqual(details["PREStdPeriodRate"], Decimal("0.0001"))
        self.assertIs(details.PREDirector, True)
        self.assertIs(details.PREHourlyPaid, False)
        self.assertEqual(details.PREMinNormHours, 37.5)
        self.assertIsNone(details.PREPensionJoinedDate)
        self.company.update("PREmployeeDetails", 1, PREDoB=None, PREHDays=5.1, PRETaxCode=None)
        (details,) = self.company.rows("PREmployeeDetails", 1)
        self.assertEqual((details.PREDoB, details.PREHDays, details.PRETaxCode), (None, 5.1, ""))
        for nobody in ({}, {"PRPNAID": 0}):  # a row of employee 0 would stop every load
            with self.assertRaises(LedgerwickError) as raised:
                self.company.insert("PRPay", PRPPayrollYear=17, **nobody)
            self.assertIn("nobody", str(raised.exception))
        with localcontext() as context:  # an amount does not depend on the program's precision
            context.prec = 2
            self.company.update("PREmployeeDetails", 1, PREStdPeriodRate=Decimal("123456.7891"))
            self.company.reload(1)
            self.assertEqual(str(self.company.employee(1).period_rate), "123456.7891")

        employees = self.company.employees()
        self.assertEqual(employees.column("name"), ["Bob Tail", "Ann €uro"])  # 1 was reloaded
        self.assertEqual(employees[-1].next_pay, TODAY)
        self.assertFalse(hasattr(employees[0], "salary"))

    def test_values_that_do_not_fit_are_refused(self):
        details = lambda **field: self.company.update("PREmployeeDetails", 1, **field)
        for error, field in (
            (ValueError, {"PREStdPeriodRate": Decimal("0.00001")}),
            (ValueError, {"PREStdPeriodRate": Decimal("NaN")}),
            (ValueError, {"PRETaxCode": "11\0L"}),
            (ValueError, {"PREDoB": datetime(1980, 2, 29, 7)}),
            (TypeError, {"PREStdPeriodRate": 412.5}),
            (TypeError, {"PREStdPeriodRate": True}),
            (TypeError, {"PREDirector": 2}),
            (TypeError, {"PREGroup": "many"}),
            (ValueError, {"PREMinNormHours": float("nan")}),
            (ValueError, {"PRETaxCode": "\udcff"}),
            (TypeError, {"PRETaxCode": b"1100L"}),
            (OverflowError, {"PREGroup": 1 << 64}),
        ):
            with self.subTest(field), self.assertRaises(error):
                details(**field)
        for error, work, value in (
            (OverflowError, self.company.employee, 1 << 32 | 1),  # not employee 1
            (TypeError, self.company.employee, 1.0),
            (TypeError, self.company.employee, None),
            (TypeError, self.company.parameter, None),
            (TypeError, lambda value: self.company.set_parameter("PRNExpD_M1", value), None),
            (TypeError, lambda value: self.company.import_pay(1, value), 0.5),
            (OverflowError, lambda value: self.company.import_pay(1, value), Decimal("1e999999")),
        ):
            with self.subTest(value), self.assertRaises(error):
                work(value)
        self.refused(91, self.company.employee, 0)  # not the first of all
        self.refused(3265, lambda: self.company.employees(columns=[]))
        told = self.refused(6, details, PREGroup=1 << 40)
        self.assertEqual(str(told), "Error 6 in PREGroup: Overflow (PREmployeeDetails 1)")
        self.assertEqual((told.table, told.key, told.field), ("PREmployeeDetails", 1, "PREGroup"))
        largest = Decimal("922337203685477.5807")  # which a number of the database does not hold
        self.refused(6, self.company.import_pay, 1, largest)
        self.company.load_imported()  # and nobody's run stops at it

    def test_failures_say_by_their_class_what_to_do(self):
        company = self.company
        (self.folder / "notes.db").write_text("no database")
        with closing(sqlite3.connect(self.folder / "other.db")) as other, other:
            other.execute("CREATE TABLE Notes (Text)")
        opened = lambda name: Session(self.folder / name, TODAY)
        for kind, base, work in (
            (ledgerwick.UnknownEmployee, LookupError, lambda: company.employee(99)),
            (ledgerwick.UnknownRow, LookupError, lambda: company.update("PRPay", 99, PRPStatus=1)),
            (ledgerwick.UnknownName, LookupError, lambda: company.insert("PRPay", Salary=1)),
            (ledgerwick.InvalidValue, ValueError, lambda: company.tax_week_end(40000)),
            (ledgerwick.NotAllowed, LedgerwickError, lambda: ledgerwick.create_company("c.db", 1999)),
            (ledgerwick.FileNotThere, FileNotFoundError, lambda: opened("none.db")),
            (ledgerwick.FileThere, FileExistsError,
             lambda: ledgerwick.create_company(self.path, 2016)),
            (ledgerwick.NotACompany, LedgerwickError, lambda: opened("notes.db")),
            (ledgerwick.NotACompany, LedgerwickError, lambda: opened("other.db")),
        ):
            with self.assertRaises(kind) as raised:
                work()
            self.assertIsInstance(raised.exception, base)
            self.assertIsInstance(raised.exception, LedgerwickError)
            self.assertNotIn("SELECT", str(raised.exception))

    def test_a_transaction_stores_all_or_nothing(self):
        company = self.company
        rate = lambda: [row.period_rate for row in company.employees()]
        before = rate(), company.parameter("PRNExpD_M1")
        with self.assertRaises(ZeroDivisionError):
            with company.transaction():
                company.update_many("PREmployeeDetails", {
                    naid: {"PREStdPeriodRate": Decimal(naid)} for naid in (1, 2)})
                company.load()
                company.set_parameter("PRNExpD_M1", 25)
                self.assertEqual(rate(), [1, 2])
                self.refused(5, company.transaction().__enter__)
                1 / 0
        self.assertEqual((rate(), company.parameter("PRNExpD_M1")), before)
        with self.assertRaises(LookupError):
            company.update_many("PREmployeeDetails", {1: {"PREGroup": 7}, 99: {"PREGroup": 7}})
        company.insert_many("UoM", [{"UoMCode": "ea"}, {"UoMCode": "kg"}])
        with closing(sqlite3.connect(self.path)) as other:  # as another program sees it
            self.assertEqual(other.execute("SELECT Max(PREGroup) FROM PREmployeeDetails").fetchone(),
                             (0,))
            self.assertEqual(other.execute("SELECT Count(*) FROM UoM").fetchone(), (2,))

    def test_a_session_belongs_to_its_thread_and_ends_with_close(self):
        other = []
        for work in (self.company.load, self.company.close):
            thread = threading.Thread(target=lambda: other.append(self.refused(20002, work)))
            thread.start()
            thread.join()
        self.assertEqual(len(other), 2)
        self.assertEqual(len(self.company.employees()), 2)  # it is still open here
        self.company.close()
        self.company.close()
        self.refused(3420, self.company.load)
        self.refused(3420, self.company.__enter__)
        self.assertIn("closed", repr(self.company))

    def test_a_session_is_not_copied_and_not_used_in_a_child(self):
        for copied in (pickle.dumps, copy.copy, copy.deepcopy):
            with self.assertRaisesRegex(TypeError, "open the company again"):
                copied(self.company)
        child = os.fork()
        if child == 0:
            try:
                self.refused(20003, self.company.load)
                self.company.close()
                with Session(self.path, TODAY) as own:
                    own.load()
                os._exit(0)
            finally:
                os._exit(1)
        self.assertEqual(os.waitpid(child, 0)[1], 0)
        self.company.load()

    def test_a_lost_session_is_closed_with_a_warning(self):
        with self.assertWarnsRegex(ResourceWarning, "unclosed <Session .*company.db"):
            Session(self.path, TODAY)
            gc.collect()

    def test_a_call_on_employees_says_that_none_is_loaded(self):
        with Session(self.path, TODAY) as company:
            for call in (company.employees, company.fill_missing_periods):
                self.refused(20004, call)

    def test_what_the_example_does_not_show(self):
        company = self.company
        self.assertEqual(ledgerwick.version().count("."), 2)
        self.assertEqual(ledgerwick.tax_date(date(2016, 4, 5)), (16, 53, 12))
        self.assertEqual(ledgerwick.pay_period(TODAY, Frequency.MONTHLY),
                         (date(2016, 4, 6), date(2016, 5, 5), 1))
        self.assertEqual(company.reference_period(TODAY, Frequency.WEEKLY),
                         (date(2016, 4, 6), date(2016, 4, 12)))
        self.assertEqual(company.tax_week_end(1), date(2016, 4, 12))
        self.assertEqual(company.tax_month_end(12), date(2017, 4, 5))
        self.assertEqual(company.next_expected(TODAY, Frequency.MONTHLY), date(2016, 5, 31))
        self.assertEqual(company.date_of_week(2), date(2016, 4, 19))
        self.assertEqual(company.week_of_date(date(2016, 4, 19)), 2)
        company.update("PRYearEnds", 16, PRYEDate=date(2016, 4, 3))
        self.assertEqual(company.date_of_week(2), date(2016, 4, 17))
        self.assertGreater(company.calculation_set(TODAY), 0)
        company.set_parameter("PRNExpD_M1", 25)
        self.assertEqual(company.parameter("prnexpd_m1"), "25")
        self.assertEqual(company.next_expected(TODAY, Frequency.MONTHLY, reverse=True),
                         date(2016, 3, 25))
        self.assertEqual((company.count(), company.payroll_year), ((2, 2, 0), 17))
        self.assertIsNone(company.next_pay_date(Frequency.MONTHLY))
        self.assertIsNone(company.open_run_date())
        self.assertIsNone(company.last_pay_date(scheme=9))
        self.assertEqual(company.next_period_end(), date(2016, 4, 10))
        self.assertEqual(company.due(TODAY)[0].periods, 1)

        unit = company.insert("UoM", UoMCode="ea")
        item = company.insert("Deadstock", DSDesc="Cushion", DSPurchUoM=unit)
        company.insert("Orders", OrdNAID=1, OrdDSID=item, OrdActionDate=TODAY, OrdQty=2,
                       OrdPrice=1.5, OrdStatus=2)
        company.load_imported()
        piecework, total = company.piecework(1, TODAY, TODAY)
        self.assertEqual((len(piecework), total), (2, Decimal("3")))
        company.set_next_dates(2, pay=date(2016, 4, 22))
        company.open_run(TODAY)
        self.assertEqual(company.open_run_date(), TODAY)
        (row,) = company.run_rows(TODAY, naid=1)
        company.update("PRPay", row.prpid, PRPHasBeenVisited=True)
        company.reset_visited(1)
        company.ae_scheme_changed(1)
        company.ae_re_enrolment_changed(TODAY, TODAY)
        self.assertFalse(company.run_rows(TODAY)[0].visited)
        company.mark_calculated(TODAY)
        self.assertEqual(company.close_run(TODAY).column("naid"), [1])
        self.assertEqual(company.rows("Orders")[0].OrdRef, "Pay 2016-04-08")
        self.assertEqual(company.employments(1)[0].last_pay, TODAY)
        self.assertEqual(company.ae_assessment(1, TODAY).current_date, TODAY)
        self.assertEqual(len(company.ae_employees(full=True).columns), 21)
        self.assertEqual(len(company.fill_missing_periods()), 0)
        self.assertEqual(company.reference_period_end(1, TODAY), date(2016, 4, 19))
        company.last_reference_period_end()

        self.refused(53, company.ae_letter, 1, Letter.NOT_ELIGIBLE)
        (self.folder / "Non-Qualifying.txt").write_text("Dear %Forename%")
        self.assertEqual(len(company.ae_recipients(Letter.NOT_ELIGIBLE)), 2)
        self.assertIn("Dear Ann", company.ae_letter(1, Letter.NOT_ELIGIBLE))
        company.set_today(date(2016, 4, 30))
        company.end_employment(1, date(2016, 4, 30))
        self.assertEqual(company.employee(1).end, date(2016, 4, 30))


class Tables(unittest.TestCase):
    """On a company whose pay rows hold values of every kind, one of them damaged."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        path = cls.folder / "company.db"
        ledgerwick.create_company(path, 2016)
        company = Session(path, TODAY, durability=Durability.RELAXED)
        cls.addClassCleanup(company.close)
        for number in range(11):
            company.insert("PRPay", PRPNAID=number % 3 + 1, PRPPeriodPay=Decimal(number - 5) / 8,
                           PRPPayDate=date(2016, 4, 1 + number) if number else None,
                           PRPHasBeenVisited=number % 2 == 0, PRPStatus=number / 2,
                           PRPPayrollYear=16 + number % 2, PRPRTILateReason="aé€"[: number % 4])
        with closing(sqlite3.connect(path)) as database, database:
            database.execute("UPDATE PRPay SET PRPAEStatus = NULL WHERE PRPID = 2")
            database.execute("UPDATE PRPay SET PRPWeekNo = 'lost' WHERE PRPID = 3")
        cls.table = company.rows("PRPay", columns=[
            "prpid", "PRPPeriodPay", "PRPPayDate", "PRPHasBeenVisited", "PRPStatus",
            "PRPRTILateReason", "PRPAEStatus", "PRPWeekNo"])
        cls.company = company

    def test_a_row_is_a_tuple_with_names(self):
        row = self.table[2]
        prpid, pay, day, *_, week = row
        self.assertEqual((prpid, pay, day), (3, Decimal("-0.375"), date(2016, 4, 3)))
        self.assertEqual((row.PRPWeekNo, row["PRPWeekNo"], row[-1], week), ("lost",) * 4)
        self.assertEqual(row._asdict()["PRPStatus"], 1.0)
        self.assertEqual(pickle.loads(pickle.dumps(row)), row)
        self.assertEqual(pickle.loads(pickle.dumps(row)).PRPID, 3)
        with self.assertRaises(KeyError):
            row["salary"]

    def test_a_part_holds_what_the_whole_holds(self):
        rows = list(self.table)
        for part in (slice(2, 9), slice(None, None, -1), slice(1, 10, 3), slice(5, 5),
                     slice(3, 4, 99)):
            self.assertEqual(list(self.table[part]), rows[part])
            self.assertEqual([self.table[part][i] for i in range(len(rows[part]))], rows[part])
            self.assertEqual(arrow(self.table[part]), rows_as_arrow(rows[part]), part)

    def test_other_shapes(self):
        table = self.table[1:3]
        self.assertEqual(table.to_dicts()[0]["PRPPayDate"], date(2016, 4, 2))
        self.assertEqual(table.to_csv().splitlines()[:2],
                         [",".join(table.columns), "2,-0.50,2016-04-02,False,0.5,a,,0"])
        table.to_csv(self.folder / "pay.csv")
        self.assertEqual((self.folder / "pay.csv").read_text("utf-8"),
                         table.to_csv().replace("\r\n", "\n"))
        self.assertIn("[11 rows × 8 columns]", repr(self.table))
        self.assertLess(max(map(len, repr(self.company.rows("PRPay")).splitlines())), 140)
        self.assertLess(len(repr(self.company.rows("PRPay")[0])), 500)
        self.assertIn("<td>-0.50</td>", table._repr_html_())

    def test_some_rows_and_columns_only(self):
        some = lambda **which: self.company.rows("PRPay", columns=["PRPID"], **which).column("PRPID")
        self.assertEqual(some(naid=2), [2, 5, 8, 11])
        self.assertEqual(some(year=17, since=date(2016, 4, 8)), [8, 10])
        for number, work in ((3265, lambda: self.company.rows("UoM", year=17)),
                             (3265, lambda: self.company.rows("PRPay", columns=["salary"]))):
            with self.assertRaises(LedgerwickError) as raised:
                work()
            self.assertEqual(raised.exception.number, number)
        kinds = {row.name: row.kind for row in self.company.fields("PRPay")}
        self.assertEqual((kinds["PRPPeriodPay"], kinds["PRPStatus"]), ("money", "number"))


class Questions(unittest.TestCase):
    """On the company that the tree brings along."""

    def test_a_company_comes_in_is_looked_over_and_goes_out_again(self):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "company.db"
            ledgerwick.create_company(path, 2025)
            day = date(2026, 2, 13)
            with Session(path, day, durability=Durability.RELAXED) as company:
                company.import_folder(SOURCE / "examples/company")
                company.load()
                self.assertEqual(set(company.audit().column("severity")), {"figures", "note"})
                self.assertEqual(len(company.employees()), 60)  # an audit leaves them loaded
                week = [row for row in company.explain(day) if row.question == "tax week"]
                self.assertEqual((week[0].answer, week[0].frequency), ("45", None))
                self.assertIn((date(2026, 4, 10), Frequency.WEEKLY, 2026, 1, False),
                              company.pay_dates(2026))
                last = [row for row in company.figures(101) if row.figure == "last_pay"][-1]
                self.assertEqual(last.value, company.employee(101).last_pay)
                plan = company.plan_open(day)
                self.assertEqual(len(company.run_rows(day)), 0)
                self.assertIn("A name & Co.".replace("&", "&amp;"),
                              company.report(day, "A name & Co."))
                run = company.open_run(day)
                self.assertTrue(run.unchecked)
                added = {row.key for row in plan if row.table == "PRPay" and row.change == "added"}
                self.assertEqual(added, set(run.column("prpid")))
                company.export_folder(Path(folder) / "out")
                with self.assertRaises(LedgerwickError) as raised:
                    company.import_folder(Path(folder) / "out")
                self.assertIn("Customers.csv, line 2, field NAID", str(raised.exception))
                template = Path(folder) / "Enrolment.txt"
                template.write_text("Dear %forename%")
                self.assertEqual([row[:2] for row in company.ae_check_template(template)], [(1, 6)])
            with Session(path, day, as_of=date(2025, 9, 30)) as company:
                company.load()
                self.assertEqual(company.employee(101).last_pay, date(2025, 9, 26))
                self.assertRaises(LedgerwickError, company.insert, "UoM", UoMCode="ea")


def rows_as_arrow(rows):
    """Rows as `arrow` reads them back: whole numbers of money, texts of what is mixed."""
    def plain(value):
        return int(value * 10000) if isinstance(value, Decimal) else value
    return [tuple(map(plain, row[:-1])) + (str(row[-1]),) for row in rows]


def arrow(table):
    """The rows of a table as another library sees them, by the words of the interface alone."""
    capsule = table.__arrow_c_stream__()
    pointer_of = ctypes.pythonapi.PyCapsule_GetPointer
    pointer_of.restype, pointer_of.argtypes = ctypes.c_void_p, [ctypes.py_object, ctypes.c_char_p]
    stream = _library.ArrowArrayStream.from_address(pointer_of(capsule, b"arrow_array_stream"))
    answer = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
    schema, batch, end = _library.ArrowSchema(), _library.ArrowArray(), _library.ArrowArray()
    assert answer(stream.get_schema)(ctypes.addressof(stream), ctypes.addressof(schema)) == 0
    for each in (batch, end):
        assert answer(stream.get_next)(ctypes.addressof(stream), ctypes.addressof(each)) == 0
    assert not end.release and schema.format == b"+s" and batch.n_children == schema.n_children
    columns = [_column(schema.children[place].contents.format.decode(), batch.children[place].contents)
               for place in range(batch.n_children)]
    for each in (schema, batch):
        each.release(ctypes.addressof(each))
    return list(zip(*columns))


def _column(layout, array):
    def bit(address, place):
        return ctypes.c_ubyte.from_address(address + place // 8).value >> place % 8 & 1

    def value(place):
        if array.buffers[0] and not bit(array.buffers[0], place):
            return None
        data = array.buffers[1]
        if layout == "b":
            return bool(bit(data, place))
        if layout == "tdD":
            day = ctypes.c_int32.from_address(data + 4 * place).value
            return date(1970, 1, 1) + timedelta(day)
        if layout == "U":
            begin, end = (ctypes.c_int64 * 2).from_address(data + 8 * place)
            return ctypes.string_at(array.buffers[2] + begin, end - begin).decode()
        if layout == "d:19,4":
            return int.from_bytes(ctypes.string_at(data + 16 * place, 16), "little", signed=True)
        kind = {"l": ctypes.c_int64, "g": ctypes.c_double}[layout]
        return kind.from_address(data + 8 * place).value

    return [value(array.offset + place) for place in range(array.length)]


class Examples(unittest.TestCase):
    """Those of the docstrings, each on a small company of its own, and the tutorial."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.addClassCleanup(os.chdir, os.getcwd())
        os.chdir(folder.name)
        example = runpy.run_path(str(SOURCE / "bindings/python/examples/pay_run.py"))
        example["lay_down_company"](Path("company.db"))
        cls.company = Path("company.db").read_bytes()

    def test_docstrings(self):
        tried = 0
        for module in (ledgerwick, ledgerwick.session, ledgerwick.tables, ledgerwick.errors):
            for test in doctest.DocTestFinder(exclude_empty=False).find(module):
                owner, _, name = test.name.rpartition(".")
                if owner == "ledgerwick.session.Session" and not name.startswith("_"):
                    self.assertTrue(test.examples, f"{test.name} has no example")
                if not test.examples:
                    continue
                Path("company.db").write_bytes(self.company)
                for each in Path().glob("*.db*"):
                    if each.name != "company.db":
                        each.unlink()
                with Session("company.db", TODAY, durability=Durability.RELAXED) as company:
                    company.load()
                    test.globs = {"company": company, "ledgerwick": ledgerwick, "date": date,
                                  "Decimal": Decimal, **vars(ledgerwick)}
                    result = doctest.DocTestRunner().run(test)
                self.assertEqual(result.failed, 0, test.name)
                tried += 1
        self.assertGreater(tried, 60)

    def test_tutorial(self):
        result = doctest.testfile(str(SOURCE / "docs/python-tutorial.md"), module_relative=False)
        self.assertEqual(result.failed, 0)
        self.assertGreater(result.attempted, 20)

    def test_random_calls(self):
        fuzzer = runpy.run_path(str(SOURCE / "fuzz/python_calls.py"))
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", ResourceWarning)
            with tempfile.TemporaryDirectory() as folder:
                company = fuzzer["new_company"](Path(folder))
            for seed in range(2):
                fuzzer["one_round"](seed, company, 40)


class Guide(unittest.TestCase):
    def test_the_python_of_the_guide_runs_as_it_stands(self):
        guide = (SOURCE / "docs/python.md").read_text()
        blocks = re.findall(r"```python\n(.*?)```", guide, re.S)
        self.assertGreater(len(blocks), 3)
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, "-W", "error", "-c", "\n".join(blocks)], cwd=folder,
                           env={**os.environ, "PYTHONPATH": str(SOURCE / "bindings/python")},
                           check=True, stdout=subprocess.DEVNULL)

    def test_the_c_of_the_guide_stands_in_the_example(self):
        guide = (SOURCE / "docs/c-interface.md").read_text()
        example = (SOURCE / "examples/c/pay_run.c").read_text()
        for block in re.findall(r"```c\n(.*?)```", guide, re.S):
            self.assertIn(block, example)


if __name__ == "__main__":
    unittest.main()
