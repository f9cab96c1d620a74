"""Takes a small company through a pay run, in a database that goes when the program ends."""

import tempfile
from datetime import date
from decimal import Decimal
from pathlib import Path

import ledgerwick
from ledgerwick import Frequency

# Name, how often paid, standing rate, first pay, end of the first period.
PEOPLE = [
    ("Mr John Smith", Frequency.WEEKLY, Decimal("412.50"), date(2016, 4, 8), date(2016, 4, 10)),
    ("Ms Zoë Archer", Frequency.WEEKLY, Decimal("388.00"), date(2016, 4, 8), date(2016, 4, 10)),
    ("Dr Ann de Vere", Frequency.MONTHLY, Decimal("2400.00"), None, None),
]


def lay_down_company(path: Path) -> None:
    """What an accounts suite has in its database already."""
    ledgerwick.create_company(path, 2016)
    with ledgerwick.Session(path, today=date(2016, 4, 6)) as company:
        company.load()
        for name, frequency, rate, first_pay, first_end in PEOPLE:
            naid = company.insert("Customers", NABusName=name)
            company.insert(
                "PREmployeeDetails",
                PRENAID=naid,
                PREPayFrequency=frequency,
                PREStdPeriodRate=rate,
                PRETaxCode="1100L",
                PRENITable="A",
            )
            company.add_employment(
                naid, date(2016, 4, 6), first_pay=first_pay, first_period_end=first_end
            )


def show(title: str, table: ledgerwick.Table[ledgerwick.Row], *columns: str) -> None:
    print(title)
    for row in table:
        print("  " + ", ".join(f"{column} {row[column]}" for column in columns))


def pay_run(company: ledgerwick.Session) -> None:
    due = company.next_pay_date()
    assert due is not None
    employees, periods = company.count_due(due)
    print(f"due on {due}: employees {employees}, periods {periods}")

    company.import_pay(2, Decimal("50"))
    run = company.open_run(due)
    show("open", run, "name", "first_day", "last_day", "imported", "week")

    # Here a real host works out pay, tax and National Insurance.
    for column in run:
        pay = company.employee(column.naid).period_rate + (column.imported or 0)
        company.update("PRPay", column.prpid, PRPPeriodPay=pay, PRPAEStatus="Not eligible")
    print(f"calculated {company.mark_calculated(due)}")

    show("closed", company.close_run(due), "name", "paid_to", "next_pay", "next_period_end")


def main() -> None:
    with tempfile.TemporaryDirectory() as folder:
        path = Path(folder) / "company.db"
        lay_down_company(path)
        with ledgerwick.Session(path, today=date(2016, 4, 8)) as company:
            company.load()
            pay_run(company)
            status = company.ae_status(date(2016, 4, 8))
            show("assessed", status, "Name", "FirstAssessDate", "NextAssessDate", "PeriodRate")


if __name__ == "__main__":
    main()
