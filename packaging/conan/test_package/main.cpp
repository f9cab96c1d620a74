// A program that wants the tax calendar and nothing else.
#include <ledgerwick/ledgerwick.h>

#include <iostream>

int main() {
    ledgerwick::CPayrollFunctions payroll;
    std::cout << "tax week " << payroll.C_CalcTaxWeek(ledgerwick::Date::fromYmd(2016, 4, 8))
              << "\n";
}
