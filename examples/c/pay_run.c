// A program in C that takes a small company through a pay run.
//
//   pay_run company.db
//
// It makes the database, hires two people, opens the run of the first pay date, puts in what they
// earned, closes the run, and prints where they stand in auto-enrolment.
#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>

#include "ledgerwick_c.h"

static ledgerwick_error error;

// Every call returns whether it failed; this program ends with the first failure.
static void must(int32_t number) {
    if (number == LEDGERWICK_OK) return;
    fprintf(stderr, "Error %" PRId32 " in %s: %s\n", number, error.source, error.description);
    exit(EXIT_FAILURE);
}

// What an accounts suite has in its database already: a person, and standing payroll details.
static void add_person(ledgerwick_session* session, int32_t naid, const char* name,
                       int32_t frequency, ledgerwick_money rate) {
    ledgerwick_row* row;
    must(ledgerwick_row_new(session, "Customers", &row, &error));
    must(ledgerwick_row_set_integer(row, "NAID", naid, &error));
    must(ledgerwick_row_set_text(row, "NABusName", name, &error));
    must(ledgerwick_row_store(row, NULL, &error));
    must(ledgerwick_row_close(row, &error));

    must(ledgerwick_row_new(session, "PREmployeeDetails", &row, &error));
    must(ledgerwick_row_set_integer(row, "PRENAID", naid, &error));
    must(ledgerwick_row_set_integer(row, "PREPayFrequency", frequency, &error));
    must(ledgerwick_row_set_money(row, "PREStdPeriodRate", rate, &error));
    must(ledgerwick_row_set_text(row, "PRETaxCode", "1100L", &error));
    must(ledgerwick_row_set_text(row, "PRENITable", "A", &error));
    must(ledgerwick_row_store(row, NULL, &error));
    must(ledgerwick_row_close(row, &error));
}

// Prints a table: the names of the columns, then the rows as texts.
static void show(ledgerwick_table* table) {
    int64_t rows;
    int32_t columns;
    const char* text;
    must(ledgerwick_table_size(table, &rows, &columns, &error));
    for (int32_t column = 0; column < columns; ++column) {
        must(ledgerwick_table_name(table, column, &text, &error));
        printf("%s%s", column > 0 ? " | " : "  ", text);
    }
    printf("\n");
    for (int64_t row = 0; row < rows; ++row) {
        for (int32_t column = 0; column < columns; ++column) {
            must(ledgerwick_table_text(table, row, column, &text, NULL, &error));
            printf("%s%s", column > 0 ? " | " : "  ", text);
        }
        printf("\n");
    }
}

// Here a real host works out pay, tax and National Insurance on each open row. This one pays every
// period at the standing rate.
static void calculate(ledgerwick_session* session, ledgerwick_table* run) {
    int64_t rows;
    int32_t prpid_column, naid_column;
    must(ledgerwick_table_size(run, &rows, NULL, &error));
    must(ledgerwick_table_find(run, "prpid", &prpid_column, &error));
    must(ledgerwick_table_find(run, "naid", &naid_column, &error));
    for (int64_t i = 0; i < rows; ++i) {
        int64_t prpid, naid;
        ledgerwick_money rate;
        ledgerwick_row *details, *pay;
        must(ledgerwick_table_integer(run, i, prpid_column, &prpid, &error));
        must(ledgerwick_table_integer(run, i, naid_column, &naid, &error));
        must(ledgerwick_row_open(session, "PREmployeeDetails", naid, &details, &error));
        must(ledgerwick_row_money(details, "PREStdPeriodRate", &rate, &error));
        must(ledgerwick_row_close(details, &error));
        must(ledgerwick_row_open(session, "PRPay", prpid, &pay, &error));
        must(ledgerwick_row_set_money(pay, "PRPPeriodPay", rate, &error));
        must(ledgerwick_row_set_text(pay, "PRPAEStatus", "Not eligible", &error));
        must(ledgerwick_row_store(pay, NULL, &error));
        must(ledgerwick_row_close(pay, &error));
    }
}

static void pay_run(ledgerwick_session* session) {
    ledgerwick_date due;
    int32_t employees, periods, marked;
    ledgerwick_table* table;
    must(ledgerwick_next_pay_date(session, LEDGERWICK_ALL, 0, 0, &due, NULL, &error));
    must(ledgerwick_count_due(session, due, &employees, &periods, &error));
    printf("due on %" PRId32 ": employees %" PRId32 ", periods %" PRId32 "\n", due, employees,
           periods);

    must(ledgerwick_run_open(session, due, LEDGERWICK_ALL, 0, 0, &table, NULL, &error));
    printf("open:\n");
    show(table);
    calculate(session, table);
    must(ledgerwick_table_close(table, &error));
    must(ledgerwick_run_mark_calculated(session, due, LEDGERWICK_ALL, 0, 0, &marked, &error));

    must(ledgerwick_run_close(session, due, LEDGERWICK_ALL, 0, 0, &table, &error));
    printf("closed, %" PRId32 " calculated:\n", marked);
    show(table);
    must(ledgerwick_table_close(table, &error));
}

static void auto_enrolment(ledgerwick_session* session) {
    int32_t year;
    ledgerwick_table* table;
    must(ledgerwick_payroll_year(session, &year, &error));
    must(ledgerwick_ae_assessment(session, 1, 20160408, year, 0, &table, &error));
    printf("assessed:\n");
    show(table);
    must(ledgerwick_table_close(table, &error));
    must(ledgerwick_ae_employees(session, 0, &table, &error));
    printf("employees:\n");
    show(table);
    must(ledgerwick_table_close(table, &error));
}

int main(int argc, char** argv) {
    ledgerwick_session* session;
    ledgerwick_options options = {sizeof options, LEDGERWICK_BATCHED, 0, 0, NULL, NULL, NULL, 0};
    if (argc != 2) {
        fprintf(stderr, "usage: pay_run FILE\n");
        return 2;
    }
    must(ledgerwick_company_create(argv[1], 2016, &error));
    must(ledgerwick_session_open(argv[1], 20160408, &options, &session, &error));
    add_person(session, 1, "Mr John Smith", LEDGERWICK_WEEKLY, 4125000);
    add_person(session, 2, "Ms Zo\xC3\xAB Archer", LEDGERWICK_MONTHLY, 24000000);
    must(ledgerwick_load(session, &error));
    must(ledgerwick_employment_add(session, 1, 20160406, 0, 0, NULL, 20160408, 20160410, NULL,
                                   &error));
    must(ledgerwick_employment_add(session, 2, 20160406, 0, 0, NULL, 0, 0, NULL, &error));
    must(ledgerwick_import_pay(session, 1, 500000, &error));
    pay_run(session);
    auto_enrolment(session);
    must(ledgerwick_session_close(session, &error));
    return 0;
}
