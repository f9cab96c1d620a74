"""The Python package: its declarations against the header, its values, its errors, its guide."""

import os
import re
import subprocess
import sys
import tempfile
import threading
import unittest
from datetime import date, datetime
from decimal import Decimal, localcontext
from pathlib import Path

import ledgerwick
from ledgerwick import Durability, Frequency, LedgerwickError, Letter, Session, _library

SOURCE = Path(os.environ["SOURCE"])
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
        }
        declared = {}
        for name, arguments in re.findall(r"int32_t ledgerwick_(\w+)\(([^)]*)\);", header):
            types = [re.sub(r"\s*\w+$", "", each.strip()) for each in arguments.split(",")]
            if types != ["void"] and types != [""]:
                self.assertEqual(types.pop(), "ledgerwick_error*", name)
                declared[name] = "".join(kinds[each] for each in types)
        self.assertEqual(declared, _library.CALLS)
        for enum in (Frequency, Durability, Letter):
            for member in enum:
                self.assertRegex(header, rf"LEDGERWICK_{member.name} = {member.value}\b")

    def test_a_missing_library_is_told_with_the_variable_that_names_it(self):
        for named, told in (("/no/such/library.so", "LEDGERWICK_LIBRARY"),
                            ("libc.so.6", "is not libledgerwick_c")):
            environment = {**os.environ, "LEDGERWICK_LIBRARY": named}
            run = subprocess.run([sys.executable, "-c", "import ledgerwick"], env=environment,
                                 capture_output=True, text=True)
            self.assertIn("ImportError", run.stderr)
            self.assertIn(told, run.stderr)


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
        self.assertEqual(details.PREDoB, date(1980, 2, 29))
        self.assertEqual(details["PREStdPeriodRate"], Decimal("0.0001"))
        self.assertIs(details.PREDirector, True)
        self.assertIs(details.PREHourlyPaid, False)
        self.assertEqual(details.PREMinNormHours, 37.5)
        self.assertIsNone(details.PREPensionJoinedDate)
        self.company.update("PREmployeeDetails", 1, PREDoB=None, PREHDays=5.1, PRETaxCode=None)
        (details,) = self.company.rows("PREmployeeDetails", 1)
        self.assertEqual((details.PREDoB, details.PREHDays, details.PRETaxCode), (None, 5.1, ""))
        with localcontext() as context:  # an amount does not depend on the program's precision
            context.prec = 2
            self.company.update("PREmployeeDetails", 1, PREStdPeriodRate=Decimal("123456.78"))
            self.company.reload(1)
            self.assertEqual(str(self.company.employee(1).period_rate), "123456.78")

        employees = self.company.employees()
        self.assertEqual(employees.column("name"), ["Bob Tail", "Ann €uro"])  # 1 was reloaded
        self.assertEqual(employees[-1].next_pay, TODAY)
        self.assertEqual(dict(employees[1:][0])["naid"], 1)
        self.assertFalse(hasattr(employees[0], "salary"))

    def test_values_that_do_not_fit_are_refused(self):
        details = lambda **field: self.company.update("PREmployeeDetails", 1, **field)
        for error, field in (
            (ValueError, {"PREStdPeriodRate": Decimal("0.00001")}),
            (ValueError, {"PREStdPeriodRate": Decimal("NaN")}),
            (ValueError, {"PRETaxCode": "11\0L"}),
            (TypeError, {"PREDoB": datetime(1980, 2, 29)}),
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
        told = self.refused(13, details, PREGroup="many")
        self.assertEqual((told.source, told.description), ("PREGroup", "Type mismatch"))
        self.assertEqual(str(told), "Error 13 in PREGroup: Type mismatch")

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


class Guide(unittest.TestCase):
    def test_the_python_of_the_guide_runs_as_it_stands(self):
        guide = (SOURCE / "docs/python.md").read_text()
        blocks = re.findall(r"```python\n(.*?)```", guide, re.S)
        self.assertGreater(len(blocks), 3)
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, "-W", "error", "-c", "\n".join(blocks)], cwd=folder,
                           check=True, stdout=subprocess.DEVNULL)

    def test_the_c_of_the_guide_stands_in_the_example(self):
        guide = (SOURCE / "docs/c-interface.md").read_text()
        example = (SOURCE / "examples/c/pay_run.c").read_text()
        for block in re.findall(r"```c\n(.*?)```", guide, re.S):
            self.assertIn(block, example)


if __name__ == "__main__":
    unittest.main()
