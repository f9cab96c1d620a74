// Ledgerwick for C, and for every language that can call C.
//
//   ledgerwick_session *session;
//   ledgerwick_error error;
//   if (ledgerwick_session_open("company.db", 20160408, NULL, &session, &error) != LEDGERWICK_OK) {
//       fprintf(stderr, "%s: %s\n", error.source, error.description);
//       return 1;
//   }
//   ledgerwick_load(session, &error);
//
// Calls.     Every call that can fail returns LEDGERWICK_OK or the number of the error, and tells
//            number, source and description through its last argument, which may be NULL. Outputs
//            are written only by a call that succeeds. An output that holds a value may be NULL when
//            it is not wanted; one that receives a handle may not.
// Handles.   A handle is a token, never an address: a call with a handle that was closed, or never
//            opened, fails with LEDGERWICK_CLOSED. What is still open when its thread ends is closed
//            with it.
// Threads.   A handle belongs to the thread that opened it; on another one every call with it fails
//            with LEDGERWICK_WRONG_THREAD. Two threads work at the same time with a session each.
//            Several sessions of one thread may be used in turn.
// Texts.     UTF-8, ended by a zero byte. A text that is handed in is copied; one that is not UTF-8
//            fails with LEDGERWICK_NOT_UTF8. A text that is handed out belongs to the handle and
//            stays valid until the next call with that handle.
// Dates.     A number of eight digits, 20160408 for 8 April 2016; 0 means not set.
// Money.     Ten-thousandths: 4125000 is 412.50.
// Numbers.   Payroll year n is the tax year from 6 April 1999 + n. A flag is 0 or 1. Rows and
//            columns of a table are counted from 0.
// ABI.       Within one LEDGERWICK_C_ABI functions are added and never changed or taken away, and
//            `ledgerwick_options` grows only at its end. The number is also that of the library's
//            file (libledgerwick_c.so.1).
#ifndef LEDGERWICK_C_H
#define LEDGERWICK_C_H

#include <stddef.h>
#include <stdint.h>

#if defined(LEDGERWICK_C_STATIC)
#define LEDGERWICK_C_API
#elif defined(_WIN32)
#ifdef LEDGERWICK_C_BUILDING
#define LEDGERWICK_C_API __declspec(dllexport)
#else
#define LEDGERWICK_C_API __declspec(dllimport)
#endif
#else
#define LEDGERWICK_C_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

#define LEDGERWICK_C_ABI 1

typedef struct ledgerwick_session ledgerwick_session;  // an open company
typedef struct ledgerwick_table ledgerwick_table;      // rows that were handed out; read-only
typedef struct ledgerwick_row ledgerwick_row;          // one row of the database in work

typedef int32_t ledgerwick_date;   // eight digits, 20160408; 0 is not set
typedef int64_t ledgerwick_money;  // ten-thousandths

// The errors of this interface itself. All other numbers are those of the library and of the
// database (9909 for an invalid pay period, 3146 for a failure of the database ...).
enum {
    LEDGERWICK_OK = 0,               // the call succeeded
    LEDGERWICK_INVALID_CALL = 5,     // the arguments, or the state of things, do not allow the call
    LEDGERWICK_OVERFLOW = 6,         // a number too large for its place
    LEDGERWICK_OUT_OF_MEMORY = 7,    // memory ran out
    LEDGERWICK_OUT_OF_RANGE = 9,     // a row or column that the table does not have
    LEDGERWICK_TYPE_MISMATCH = 13,   // a date that is none, a value of another kind
    LEDGERWICK_INTERNAL = 51,        // a failure that the library has no number for
    LEDGERWICK_NO_SUCH_FILE = 53,    // a company or a letter's template that is not there
    LEDGERWICK_FILE_EXISTS = 58,     // a company that would be made where there is a file
    LEDGERWICK_NULL = 91,            // NULL where an argument is needed; an unknown employee
    LEDGERWICK_NO_SUCH_ROW = 3021,   // a key that the table does not have
    LEDGERWICK_CHANGED = 3197,       // another program changed what the call rests on: load again
    LEDGERWICK_BUSY = 3218,          // another program is writing: the same call again
    LEDGERWICK_NO_SUCH_NAME = 3265,  // of a table, a field, a column or a parameter
    LEDGERWICK_OTHER_VERSION = 3274,   // a company of another release; the text says what to do
    LEDGERWICK_NOT_A_COMPANY = 3343,   // a file that is no database, or has none of the tables
    LEDGERWICK_CLOSED = 3420,          // a handle that was closed, or never opened
    LEDGERWICK_NOT_UTF8 = 20001,       // a text that was handed in
    LEDGERWICK_WRONG_THREAD = 20002,   // a handle that another thread opened
    LEDGERWICK_WRONG_PROCESS = 20003,  // a handle of the parent, in a forked child
    LEDGERWICK_NOT_LOADED = 20004,     // a call on employees before ledgerwick_load
    LEDGERWICK_BAD_FILES = 20005       // files of an import with faults, a line for each
};

// Longer texts are cut, never within a character. No text holds a statement of the database.
typedef struct ledgerwick_error {
    int32_t number;          // as the call returned it
    char source[128];        // the part of the library, or the field, where it failed
    char description[2048];  // for people
} ledgerwick_error;

// The row at which the last call of this thread that failed had stood: its table, its key and the
// field; NULL and 0 for what is not known. The texts stay valid until the next call of the thread.
LEDGERWICK_C_API int32_t ledgerwick_error_row(const char** table, int64_t* key, const char** field,
                                              ledgerwick_error* error);

// How often an employee is paid.
enum {
    LEDGERWICK_ALL = -1,          // in a choice: everybody
    LEDGERWICK_CASUAL = 0,        // no regular periods
    LEDGERWICK_WEEKLY = 1,        // every week
    LEDGERWICK_FORTNIGHTLY = 2,   // every two weeks
    LEDGERWICK_FOUR_WEEKLY = 3,   // every four weeks
    LEDGERWICK_MONTHLY = 4,       // by calendar months, on the day that the parameters say
    LEDGERWICK_QUARTERLY = 13,    // every three months
    LEDGERWICK_HALF_YEARLY = 26,  // every six months
    LEDGERWICK_YEARLY = 52        // once a year
};

// ---- library ------------------------------------------------------------------------------------

// The version of the library: "1.0.0".
LEDGERWICK_C_API const char* ledgerwick_version(void);
// LEDGERWICK_C_ABI as the library was built with it.
LEDGERWICK_C_API int32_t ledgerwick_abi(void);

// ---- company and session ------------------------------------------------------------------------

// Makes a database with every table and the settings of a company that begins in the tax year from
// 6 April `tax_year`: monthly pay on the last day of the month until its parameters say otherwise.
// Errors: 58 when the file is there, 5 for a year outside 2001 to 9990; those of the database.
LEDGERWICK_C_API int32_t ledgerwick_company_create(const char* path, int32_t tax_year,
                                                   ledgerwick_error* error);

// Brings a company of an older release up to this one, in one transaction. The table has one row:
// "from_version" and "to_version", before and after, and "copy", the file that keeps the company as it
// was; an empty text when there was nothing to do.
// Errors: 53 when there is no such file, 3343 for one that holds no company, 3274 for a company of a
//         newer release; those of the database. The company is then as it was.
LEDGERWICK_C_API int32_t ledgerwick_company_upgrade(const char* path, ledgerwick_table** out,
                                                    ledgerwick_error* error);

// What a power cut can take; the crash of a process alone takes nothing that was reported stored.
enum {
    LEDGERWICK_EACH_UPDATE = 0,  // nothing that was reported stored
    LEDGERWICK_BATCHED = 1,      // the call that was running
    LEDGERWICK_RELAXED = 2       // the last calls before the cut; the file stays whole
};

// All bytes 0 but `size` is every default: ledgerwick_options options = {sizeof options};
typedef struct ledgerwick_options {
    size_t size;               // sizeof(ledgerwick_options)
    int32_t durability;        // LEDGERWICK_EACH_UPDATE ...
    int32_t busy_timeout;      // milliseconds for which a write waits for another process; 0: 5000
    int32_t read_only;         // flag
    const char* program_path;  // holds the folder "AE Letter Templates"; NULL: the current folder
    const char* workstation;   // letters, digits and "_"; NULL: "1"
    const char* program_name;  // in messages; NULL: "Ledgerwick"
    ledgerwick_date as_of;     // the company as it stood at the end of that day, read-only; 0: now
} ledgerwick_options;

// Opens a company. Nothing is loaded yet. The library reads no clock: `today` is what the caller
// says.
// Errors: 53 when there is no such file, 3343 for one that holds no company; those of the database.
LEDGERWICK_C_API int32_t ledgerwick_session_open(const char* path, ledgerwick_date today,
                                                 const ledgerwick_options* options,
                                                 ledgerwick_session** session,
                                                 ledgerwick_error* error);
// Closing NULL does nothing. Tables stay open.
LEDGERWICK_C_API int32_t ledgerwick_session_close(ledgerwick_session* session,
                                                  ledgerwick_error* error);
// Sets the day on which the payroll believes itself.
LEDGERWICK_C_API int32_t ledgerwick_set_today(ledgerwick_session* session, ledgerwick_date today,
                                              ledgerwick_error* error);

// Loads every employee who has an employment, in place of what was loaded before.
LEDGERWICK_C_API int32_t ledgerwick_load(ledgerwick_session* session, ledgerwick_error* error);
// Loads one employee again; one without employments leaves the list.
LEDGERWICK_C_API int32_t ledgerwick_reload(ledgerwick_session* session, int32_t naid,
                                           ledgerwick_error* error);

// The current payroll year of the company.
LEDGERWICK_C_API int32_t ledgerwick_payroll_year(ledgerwick_session* session, int32_t* year,
                                                 ledgerwick_error* error);
// A named setting of the company, such as "PRNExpD_M1", the rule of the monthly pay day.
LEDGERWICK_C_API int32_t ledgerwick_get_parameter(ledgerwick_session* session, const char* name,
                                                  const char** value, ledgerwick_error* error);
// Sets a named setting, and adds one that is not there.
LEDGERWICK_C_API int32_t ledgerwick_set_parameter(ledgerwick_session* session, const char* name,
                                                  const char* value, ledgerwick_error* error);

// Until `ledgerwick_transaction_end` nothing that this session writes is stored for good, and no
// other program writes. One at a time.
// Errors: 5 when one has begun, or has not.
LEDGERWICK_C_API int32_t ledgerwick_transaction_begin(ledgerwick_session* session,
                                                      ledgerwick_error* error);
// Stores what was written, or with `keep` 0 takes all of it back; the employees, where some were
// loaded, are then loaded again. When it fails nothing was stored.
LEDGERWICK_C_API int32_t ledgerwick_transaction_end(ledgerwick_session* session, int32_t keep,
                                                    ledgerwick_error* error);

// ---- a company as files -------------------------------------------------------------------------

// Reads the files TABLE.csv of a folder into the company. All are judged before the first row is
// stored; a row whose key is there already is a fault, but for the settings, which it replaces. The
// loaded employees show the rows after `ledgerwick_load`; `ledgerwick_audit` looks them over.
// Shape:  table, rows.
// Errors: 53 when there is no such folder, 20005 with a line for each fault.
LEDGERWICK_C_API int32_t ledgerwick_import(ledgerwick_session* session, const char* folder,
                                           ledgerwick_table** out, ledgerwick_error* error);
// Writes every table as a file TABLE.csv into a folder, which is created if need be; files of these
// names are replaced.
// Shape:  table, rows.
LEDGERWICK_C_API int32_t ledgerwick_export(ledgerwick_session* session, const char* folder,
                                           ledgerwick_table** out, ledgerwick_error* error);

// ---- tables -------------------------------------------------------------------------------------

// What a cell holds.
enum {
    LEDGERWICK_EMPTY = 0,     // nothing was ever written
    LEDGERWICK_NO_VALUE = 1,  // the database says that there is none
    LEDGERWICK_BOOLEAN = 2,   // 0 or 1
    LEDGERWICK_INTEGER = 3,   // a whole number
    LEDGERWICK_DOUBLE = 4,    // a number with a fraction
    LEDGERWICK_MONEY = 5,     // an amount in ten-thousandths
    LEDGERWICK_DATE = 6,      // eight digits, or 0
    LEDGERWICK_TEXT = 7,      // UTF-8
    LEDGERWICK_MIXED = 8      // of a column alone: its cells are of several kinds
};

// Closing NULL does nothing.
LEDGERWICK_C_API int32_t ledgerwick_table_close(ledgerwick_table* table, ledgerwick_error* error);
// How many rows and columns a table has.
LEDGERWICK_C_API int32_t ledgerwick_table_size(ledgerwick_table* table, int64_t* rows,
                                               int32_t* columns, ledgerwick_error* error);
// The name of a column.
// Errors: 9 outside the table.
LEDGERWICK_C_API int32_t ledgerwick_table_name(ledgerwick_table* table, int32_t column,
                                               const char** name, ledgerwick_error* error);
// The column of a name, in any case.
LEDGERWICK_C_API int32_t ledgerwick_table_find(ledgerwick_table* table, const char* name,
                                               int32_t* column, ledgerwick_error* error);
// What a cell holds (LEDGERWICK_EMPTY ...).
// Errors: 9 outside the table.
LEDGERWICK_C_API int32_t ledgerwick_table_kind(ledgerwick_table* table, int64_t row, int32_t column,
                                               int32_t* kind, ledgerwick_error* error);
// A cell of another kind is converted where it can be: an empty one reads as 0 or "", a date as
// "2016-04-08". A boolean reads as 0 or 1. The length of a text may be NULL.
// Errors: 9 outside the table, 94 for a cell without a value (but "" as a text), 13 and 6 when it
//         does not convert.
LEDGERWICK_C_API int32_t ledgerwick_table_integer(ledgerwick_table* table, int64_t row,
                                                  int32_t column, int64_t* value,
                                                  ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_table_double(ledgerwick_table* table, int64_t row,
                                                 int32_t column, double* value,
                                                 ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_table_money(ledgerwick_table* table, int64_t row,
                                                int32_t column, ledgerwick_money* value,
                                                ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_table_date(ledgerwick_table* table, int64_t row, int32_t column,
                                               ledgerwick_date* value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_table_text(ledgerwick_table* table, int64_t row, int32_t column,
                                               const char** value, size_t* length,
                                               ledgerwick_error* error);
// A whole row in one call. The texts stay valid until the next call with the table.
// Errors: 9 outside the table, and for a `count` that is not the number of columns.
typedef struct ledgerwick_cell {
    int32_t kind;      // LEDGERWICK_EMPTY ...
    int64_t integer;   // of a boolean, an integer, an amount of money and a date, else 0
    double number;     // of a double, else 0
    const char* text;  // of a text, else NULL
    size_t length;     // of a text in bytes, else 0
} ledgerwick_cell;
LEDGERWICK_C_API int32_t ledgerwick_table_row(ledgerwick_table* table, int64_t row,
                                              ledgerwick_cell* cells, int32_t count,
                                              ledgerwick_error* error);

// What the cells of a column hold: the kind of those that hold a value, LEDGERWICK_EMPTY when none
// does, LEDGERWICK_MIXED when they are of several kinds.
// Errors: 9 outside the table.
LEDGERWICK_C_API int32_t ledgerwick_table_column_kind(ledgerwick_table* table, int32_t column,
                                                      int32_t* kind, ledgerwick_error* error);

// The structures of the Arrow C data interface, by which libraries of data frames and columnar
// stores hand each other whole columns without a copy.
#ifndef ARROW_C_DATA_INTERFACE
#define ARROW_C_DATA_INTERFACE
#define ARROW_FLAG_DICTIONARY_ORDERED 1
#define ARROW_FLAG_NULLABLE 2
#define ARROW_FLAG_MAP_KEYS_SORTED 4
struct ArrowSchema {
    const char* format;
    const char* name;
    const char* metadata;
    int64_t flags;
    int64_t n_children;
    struct ArrowSchema** children;
    struct ArrowSchema* dictionary;
    void (*release)(struct ArrowSchema*);
    void* private_data;
};
struct ArrowArray {
    int64_t length;
    int64_t null_count;
    int64_t offset;
    int64_t n_buffers;
    int64_t n_children;
    const void** buffers;
    struct ArrowArray** children;
    struct ArrowArray* dictionary;
    void (*release)(struct ArrowArray*);
    void* private_data;
};
#endif
#ifndef ARROW_C_STREAM_INTERFACE
#define ARROW_C_STREAM_INTERFACE
struct ArrowArrayStream {
    int (*get_schema)(struct ArrowArrayStream*, struct ArrowSchema* out);
    int (*get_next)(struct ArrowArrayStream*, struct ArrowArray* out);
    const char* (*get_last_error)(struct ArrowArrayStream*);
    void (*release)(struct ArrowArrayStream*);
    void* private_data;
};
#endif
// All columns of a table at once, as a structure array with a child for each. What is handed out
// belongs to the caller, who calls its `release` when it is done; it outlives the table and may be
// used and released on any thread. `schema` may be NULL.
// Shape:  booleans "b", whole numbers "l", numbers "g", money "d:19,4", dates "tdD", texts and
//         mixed columns "U", columns without a value "n". A cell without a value, or with a date
//         that is not set, is null.
LEDGERWICK_C_API int32_t ledgerwick_table_arrow(ledgerwick_table* table, struct ArrowSchema* schema,
                                                struct ArrowArray* array, ledgerwick_error* error);
// The rows `first`, `first + step` and so on of such an array, `rows` of them, as a stream of one
// batch. With a step of 1 nothing is copied. The array stays the caller's.
// Errors: 5 for an array that was released or is not of `ledgerwick_table_arrow`, 9 outside it.
LEDGERWICK_C_API int32_t ledgerwick_arrow_stream(const struct ArrowArray* array, int64_t first,
                                                 int64_t step, int64_t rows,
                                                 struct ArrowArrayStream* stream,
                                                 ledgerwick_error* error);

// ---- rows of the database -----------------------------------------------------------------------
// The tables are Customers, PREmployeeDetails, PREmployments, PREmploymentsAddInfo, PRPay,
// PensionSchemes, Orders, Deadstock, UoM, PRYearEnds, PRControl (whose one row has the key 0) and,
// for reading, PRPayImport and Parameters. What a program writes here the loaded employees show
// after `ledgerwick_reload`.

// Every row of a table by its key, or with `naid` other than 0 those of one employee.
// Errors: 3265 for an unknown table, and for one whose rows belong to no employee.
LEDGERWICK_C_API int32_t ledgerwick_rows(ledgerwick_session* session, const char* table,
                                         int32_t naid, ledgerwick_table** out,
                                         ledgerwick_error* error);
// As above, with the columns named in `columns` ("PRPID,PRPPeriodPay"; NULL: all), and only the rows
// of payroll year `year` (0: of all) that bear `since` or a later day (0: any): the pay date of a
// pay row, the start of an employment, the day of an order.
// Errors: as above; 3265 for an unknown column, and where the table has no such year or day.
LEDGERWICK_C_API int32_t ledgerwick_rows_select(ledgerwick_session* session, const char* table,
                                                const char* columns, int32_t naid, int32_t year,
                                                ledgerwick_date since, ledgerwick_table** out,
                                                ledgerwick_error* error);
// The fields of a table: name, kind ("boolean", "integer", "number", "money", "date", "text").
LEDGERWICK_C_API int32_t ledgerwick_fields(ledgerwick_session* session, const char* table,
                                           ledgerwick_table** out, ledgerwick_error* error);

// Begins a new row, or works on the one with that key.
// Errors: 3265 for an unknown table, 3021 for an unknown key.
LEDGERWICK_C_API int32_t ledgerwick_row_new(ledgerwick_session* session, const char* table,
                                            ledgerwick_row** row, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_open(ledgerwick_session* session, const char* table,
                                             int64_t key, ledgerwick_row** row,
                                             ledgerwick_error* error);
// As above with the fields named in `fields` ("PRPPeriodPay,PRPStatus") and no others, which is
// quicker for one who writes many rows.
// Errors: as above; 3265 for an unknown field.
LEDGERWICK_C_API int32_t ledgerwick_row_open_fields(ledgerwick_session* session, const char* table,
                                                    int64_t key, const char* fields,
                                                    ledgerwick_row** row, ledgerwick_error* error);
// What the row held when it was opened or stored last, with what was set since.
LEDGERWICK_C_API int32_t ledgerwick_row_kind(ledgerwick_row* row, const char* field, int32_t* kind,
                                             ledgerwick_error* error);
// The kind of value that a field takes, whatever it holds now: LEDGERWICK_BOOLEAN ...
// Errors: 3265 for an unknown field.
LEDGERWICK_C_API int32_t ledgerwick_row_field_kind(ledgerwick_row* row, const char* field,
                                                   int32_t* kind, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_integer(ledgerwick_row* row, const char* field,
                                                int64_t* value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_double(ledgerwick_row* row, const char* field,
                                               double* value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_money(ledgerwick_row* row, const char* field,
                                              ledgerwick_money* value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_date(ledgerwick_row* row, const char* field,
                                             ledgerwick_date* value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_text(ledgerwick_row* row, const char* field,
                                             const char** value, size_t* length,
                                             ledgerwick_error* error);
// The value becomes one of the field's own kind. A field of a new row that is not set takes the
// table's default.
// Errors: 3265 for an unknown field, 13 and 6 when the value does not convert.
LEDGERWICK_C_API int32_t ledgerwick_row_set_integer(ledgerwick_row* row, const char* field,
                                                    int64_t value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_set_double(ledgerwick_row* row, const char* field,
                                                   double value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_set_money(ledgerwick_row* row, const char* field,
                                                  ledgerwick_money value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_set_date(ledgerwick_row* row, const char* field,
                                                 ledgerwick_date value, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_row_set_text(ledgerwick_row* row, const char* field,
                                                 const char* value, ledgerwick_error* error);
// Stores what was set, and reads the row again. `key` receives the row's key.
LEDGERWICK_C_API int32_t ledgerwick_row_store(ledgerwick_row* row, int64_t* key,
                                              ledgerwick_error* error);
// What was set and not stored is dropped. Closing NULL does nothing.
LEDGERWICK_C_API int32_t ledgerwick_row_close(ledgerwick_row* row, ledgerwick_error* error);

// ---- employees ----------------------------------------------------------------------------------

// How many employees there are, and how many at work are regular and casual.
LEDGERWICK_C_API int32_t ledgerwick_count(ledgerwick_session* session, int32_t* employees,
                                          int32_t* regular, int32_t* casual,
                                          ledgerwick_error* error);
// One row for each employee, with the most recent employment; or with `naid` other than 0 for that
// one alone.
// Errors: 91 for an unknown employee.
LEDGERWICK_C_API int32_t ledgerwick_employees(ledgerwick_session* session, int32_t naid,
                                              ledgerwick_table** out, ledgerwick_error* error);
// As above, with the columns named in `columns` alone ("naid,name"; NULL: all).
// Errors: 91 for an unknown employee, 3265 for an unknown column.
LEDGERWICK_C_API int32_t ledgerwick_employees_select(ledgerwick_session* session, int32_t naid,
                                                     const char* columns, ledgerwick_table** out,
                                                     ledgerwick_error* error);
// One row for each employment with its running state, oldest first; `naid` as above.
LEDGERWICK_C_API int32_t ledgerwick_employments(ledgerwick_session* session, int32_t naid,
                                                ledgerwick_table** out, ledgerwick_error* error);
// As above, with the columns named in `columns` alone.
LEDGERWICK_C_API int32_t ledgerwick_employments_select(ledgerwick_session* session, int32_t naid,
                                                       const char* columns, ledgerwick_table** out,
                                                       ledgerwick_error* error);

// Adds an employment of the current payroll year to one who has a row in Customers and
// PREmployeeDetails, and for a regular one the row from which pay is counted.
// Shape:  `ae_status` may be NULL. `first_pay` and `first_period_end` of 0 are those of the others
//         paid as often, or else of the first period.
// Errors: 3021 without details, 5 for one who is employed; nothing is stored then.
LEDGERWICK_C_API int32_t ledgerwick_employment_add(ledgerwick_session* session, int32_t naid,
                                                   ledgerwick_date start, int32_t casual,
                                                   int32_t continuation, const char* ae_status,
                                                   ledgerwick_date first_pay,
                                                   ledgerwick_date first_period_end, int32_t* prtid,
                                                   ledgerwick_error* error);
// Ends the most recent employment with that day.
LEDGERWICK_C_API int32_t ledgerwick_employment_end(ledgerwick_session* session, int32_t naid,
                                                   ledgerwick_date last_day,
                                                   ledgerwick_error* error);
// Moves the dates that are expected next, to skip a period; 0 leaves one as it is.
// Errors: 91 for an unknown employee, 5 without a closed row of the current employment.
LEDGERWICK_C_API int32_t ledgerwick_set_next_dates(ledgerwick_session* session, int32_t naid,
                                                   ledgerwick_date pay, ledgerwick_date period_end,
                                                   ledgerwick_error* error);

// ---- calendar -----------------------------------------------------------------------------------

// The payroll year, tax week (1 to 53) and tax month (1 to 12) that hold a date.
LEDGERWICK_C_API int32_t ledgerwick_tax_date(ledgerwick_date date, int32_t* payroll_year,
                                             int32_t* week, int32_t* month,
                                             ledgerwick_error* error);
// The pay period of a frequency that holds a date, and its number in the tax year.
LEDGERWICK_C_API int32_t ledgerwick_pay_period(ledgerwick_date date, int32_t frequency,
                                               ledgerwick_date* first, ledgerwick_date* last,
                                               int32_t* number, ledgerwick_error* error);
// The pay reference period of auto-enrolment that holds a date.
LEDGERWICK_C_API int32_t ledgerwick_reference_period(ledgerwick_session* session,
                                                     ledgerwick_date date, int32_t frequency,
                                                     ledgerwick_date* first, ledgerwick_date* last,
                                                     ledgerwick_error* error);
// The last day of a tax week, and of a tax month, of the current payroll year.
LEDGERWICK_C_API int32_t ledgerwick_tax_week_end(ledgerwick_session* session, int32_t week,
                                                 ledgerwick_date* last, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_tax_month_end(ledgerwick_session* session, int32_t month,
                                                  ledgerwick_date* last, ledgerwick_error* error);
// The expected pay date behind a date, or with `period_end` the expected end of period; with
// `reverse` the one before it; with `change` the first after a change to monthly pay.
LEDGERWICK_C_API int32_t ledgerwick_next_expected(ledgerwick_session* session, ledgerwick_date date,
                                                  int32_t frequency, int32_t period_end,
                                                  int32_t reverse, int32_t change,
                                                  ledgerwick_date* next, ledgerwick_error* error);

// The number of weeks from the last year-end to a date, to the nearest whole one and never below 0;
// and the year-end plus so many weeks.
// Errors: 3265 without the year-end of the year before, 9901 when it does not match the current year.
LEDGERWICK_C_API int32_t ledgerwick_week_of_date(ledgerwick_session* session, ledgerwick_date date,
                                                 int32_t* week, ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_date_of_week(ledgerwick_session* session, int32_t week,
                                                 ledgerwick_date* date, ledgerwick_error* error);
// The number of the set of calculations that is in force on a date (PRPCalculationUsed).
LEDGERWICK_C_API int32_t ledgerwick_calculation_set(ledgerwick_session* session,
                                                    ledgerwick_date date, int32_t* set,
                                                    ledgerwick_error* error);

// ---- questions ----------------------------------------------------------------------------------

// Every fault of the company's data, the severest first; nothing is written, and what is loaded
// stays.
// Shape:  severity ("stops" a load or a run, makes "figures" wrong, or is a "note"), kind, table,
//         key, naid, name, what, error (with which a load stops), what_to_do.
LEDGERWICK_C_API int32_t ledgerwick_audit(ledgerwick_session* session, ledgerwick_table** out,
                                          ledgerwick_error* error);
// Why a date is what it is: frequency (empty for what holds for everybody), question, answer, date,
// last_day, rule, source, controller (the parameter that the rule read).
LEDGERWICK_C_API int32_t ledgerwick_explain(ledgerwick_session* session, ledgerwick_date date,
                                            int32_t frequency, ledgerwick_table** out,
                                            ledgerwick_error* error);
// The pay dates of the company in the tax years from 6 April `tax_year` on, counted from the next
// expected ones: pay_date, frequency, tax_year, period, left_over (a week 53 and its like).
LEDGERWICK_C_API int32_t ledgerwick_pay_dates(ledgerwick_session* session, int32_t tax_year,
                                              int32_t years, ledgerwick_table** out,
                                              ledgerwick_error* error);
// The figures of an employee's employments, each with the pay row that gave it: prtid, payroll_year,
// figure, value, prpid, pay_date, week.
// Errors: 91 for an unknown employee.
LEDGERWICK_C_API int32_t ledgerwick_figures(ledgerwick_session* session, int32_t naid,
                                            ledgerwick_table** out, ledgerwick_error* error);

// The steps of a run that can be planned.
enum {
    LEDGERWICK_PLAN_OPEN = 0,  // ledgerwick_run_open
    LEDGERWICK_PLAN_CLOSE = 1  // ledgerwick_run_mark_calculated and ledgerwick_run_close
};
// Field by field what a step of a run would write; nothing is written.
// Shape:  naid, name, change ("added", "changed", "removed"), table, key, field, from, to.
// Errors: those of the step; 5 for an unknown one.
LEDGERWICK_C_API int32_t ledgerwick_run_plan(ledgerwick_session* session, int32_t step,
                                             ledgerwick_date pay_date, int32_t frequency,
                                             int32_t group, int32_t naid, ledgerwick_table** out,
                                             ledgerwick_error* error);
// A pay date on one page of HTML that needs nothing from elsewhere: the run, who is due and why,
// gaps, auto-enrolment, the year drawn. `company` is the name in its heading.
LEDGERWICK_C_API int32_t ledgerwick_report(ledgerwick_session* session, ledgerwick_date pay_date,
                                           const char* company, const char** html,
                                           ledgerwick_error* error);

// ---- what falls due -----------------------------------------------------------------------------
// Of the regular employees who are employed now. `none` becomes 1 when nobody was found.

// The earliest date on which pay next falls due, or with `highest` the latest.
LEDGERWICK_C_API int32_t ledgerwick_next_pay_date(ledgerwick_session* session, int32_t frequency,
                                                  int32_t highest, int32_t scheme,
                                                  ledgerwick_date* date, int32_t* none,
                                                  ledgerwick_error* error);
// The latest expected pay date that has gone by; leavers count.
LEDGERWICK_C_API int32_t ledgerwick_last_pay_date(ledgerwick_session* session, int32_t scheme,
                                                  ledgerwick_date* date, int32_t* none,
                                                  ledgerwick_error* error);
// The earliest date on which a pay period next ends.
LEDGERWICK_C_API int32_t ledgerwick_next_period_end(ledgerwick_session* session, int32_t frequency,
                                                    ledgerwick_date* date, int32_t* none,
                                                    ledgerwick_error* error);
// The pay date of the oldest run that is open; without one the next pay date, and `none` is 1.
LEDGERWICK_C_API int32_t ledgerwick_open_run_date(ledgerwick_session* session,
                                                  ledgerwick_date* date, int32_t* none,
                                                  ledgerwick_error* error);
// How many employees, and how many periods of theirs, a run on that date would bring in.
LEDGERWICK_C_API int32_t ledgerwick_count_due(ledgerwick_session* session, ledgerwick_date date,
                                              int32_t* employees, int32_t* periods,
                                              ledgerwick_error* error);
// Who they are: naid, name, frequency, next_pay, period_end, periods.
LEDGERWICK_C_API int32_t ledgerwick_due(ledgerwick_session* session, ledgerwick_date date,
                                        ledgerwick_table** out, ledgerwick_error* error);
// The last day of the pay reference period behind a pay date of an employee; and the day before the
// latest start of anybody's next one.
LEDGERWICK_C_API int32_t ledgerwick_reference_period_end(ledgerwick_session* session, int32_t naid,
                                                         ledgerwick_date pay_date,
                                                         ledgerwick_date* last,
                                                         ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_last_reference_period_end(ledgerwick_session* session,
                                                              ledgerwick_date* last,
                                                              ledgerwick_error* error);

// ---- the road of a pay run ----------------------------------------------------------------------
// Open the run; work out pay on the rows it gives (`ledgerwick_row_open` with "PRPay"); mark them;
// close. A run is for one frequency or LEDGERWICK_ALL, one group or 0, one employee or 0.

// Makes sure that every period due has an open pay row. A second call finds the rows of the first.
// Shape:  naid, name, prpid, first_day, last_day, imported (empty for none), week, period (a pay period code,
//         or minus the tax month). `unchecked` tells that some piecework has not been checked.
// Errors: 5 for an employee without pay history, of whom every period since 1899 would fall due.
LEDGERWICK_C_API int32_t ledgerwick_run_open(ledgerwick_session* session, ledgerwick_date pay_date,
                                             int32_t frequency, int32_t group, int32_t naid,
                                             ledgerwick_table** out, int32_t* unchecked,
                                             ledgerwick_error* error);
// The open rows up to a pay date: naid, name, prpid, pay_date, period_end, week, period, pay,
// visited, status.
LEDGERWICK_C_API int32_t ledgerwick_run_rows(ledgerwick_session* session, ledgerwick_date pay_date,
                                             int32_t frequency, int32_t group, int32_t naid,
                                             ledgerwick_table** out, ledgerwick_error* error);
// Marks open rows as worked out and reported (PRPStatus 3, PRPHasBeenVisited), as a program does
// that has. Only such rows count as paid when they are loaded.
LEDGERWICK_C_API int32_t ledgerwick_run_mark_calculated(ledgerwick_session* session,
                                                        ledgerwick_date pay_date, int32_t frequency,
                                                        int32_t group, int32_t naid, int32_t* rows,
                                                        ledgerwick_error* error);
// Withdraws the visited mark from an employee's open rows.
LEDGERWICK_C_API int32_t ledgerwick_reset_visited(ledgerwick_session* session, int32_t naid,
                                                  ledgerwick_error* error);
// Closes the open rows, clears the imported pay and the checked piecework that they paid, and loads
// each employee again. Each employee is closed whole or not at all; those before a failure stay
// closed.
// Shape:  naid, name, rows, paid_to, next_pay_before, next_pay, next_period_end.
LEDGERWICK_C_API int32_t ledgerwick_run_close(ledgerwick_session* session, ledgerwick_date pay_date,
                                              int32_t frequency, int32_t group, int32_t naid,
                                              ledgerwick_table** out, ledgerwick_error* error);
// Adds a closed empty row for each period skipped in this year, and tells them: prpid, naid, name,
// week, period, pay_date, late_reason.
LEDGERWICK_C_API int32_t ledgerwick_fill_missing_periods(ledgerwick_session* session,
                                                         ledgerwick_table** out,
                                                         ledgerwick_error* error);

// Puts a pay value from elsewhere in place of what was imported for the employee before; the next
// run shows it. The closing of a run takes it out.
LEDGERWICK_C_API int32_t ledgerwick_import_pay(ledgerwick_session* session, int32_t naid,
                                               ledgerwick_money value, ledgerwick_error* error);
// Reads imported pay and piecework into the current employments, as opening a run does.
LEDGERWICK_C_API int32_t ledgerwick_load_imported(ledgerwick_session* session,
                                                  ledgerwick_error* error);
// The checked piecework of an employee's current employment, as it was loaded last: first the
// totals by item, then the rows by day.
LEDGERWICK_C_API int32_t ledgerwick_piecework(ledgerwick_session* session, int32_t naid,
                                              ledgerwick_date from, ledgerwick_date to,
                                              ledgerwick_table** out, ledgerwick_money* total,
                                              ledgerwick_error* error);

// ---- auto-enrolment -----------------------------------------------------------------------------

// Where the regular workers stand by their closed pay rows (with `open_rows` the open ones) up to a
// date, by name; with `naid` other than 0 that one alone. Columns as `GetAEStatus` names them.
LEDGERWICK_C_API int32_t ledgerwick_ae_status(ledgerwick_session* session, ledgerwick_date up_to,
                                              int32_t payroll_year, int32_t open_rows, int32_t naid,
                                              ledgerwick_table** out, ledgerwick_error* error);
// The regular workers for pick lists, and with `full` for exports. Columns as `C_ActiveEmployees`
// names them.
LEDGERWICK_C_API int32_t ledgerwick_ae_employees(ledgerwick_session* session, int32_t full,
                                                 ledgerwick_table** out, ledgerwick_error* error);
// One worker's assessments, as one row: first, previous and current date and category, and the pay
// of the last row that counts.
LEDGERWICK_C_API int32_t ledgerwick_ae_assessment(ledgerwick_session* session, int32_t naid,
                                                  ledgerwick_date up_to, int32_t payroll_year,
                                                  int32_t open_rows, ledgerwick_table** out,
                                                  ledgerwick_error* error);
// The rates of a scheme, or the re-enrolment date, have changed: open pay rows that rest on them are
// to be worked again.
LEDGERWICK_C_API int32_t ledgerwick_ae_scheme_changed(ledgerwick_session* session, int32_t scheme,
                                                      ledgerwick_error* error);
LEDGERWICK_C_API int32_t ledgerwick_ae_re_enrolment_changed(ledgerwick_session* session,
                                                            ledgerwick_date from,
                                                            ledgerwick_date to,
                                                            ledgerwick_error* error);

// The letters of auto-enrolment.
enum {
    LEDGERWICK_ENROLMENT = 1,              // the worker has been enrolled
    LEDGERWICK_POSTPONEMENT = 2,           // the assessment is put off
    LEDGERWICK_NOT_ELIGIBLE = 3,           // the worker does not qualify
    LEDGERWICK_RE_ENROLMENT = 4,           // the worker has been enrolled again
    LEDGERWICK_ENROLMENT_ATTACHMENT = 500  // what is attached to an enrolment
};
// The workers to whom a letter of the kind goes: naid, name.
LEDGERWICK_C_API int32_t ledgerwick_ae_recipients(ledgerwick_session* session, int32_t letter,
                                                  ledgerwick_table** out, ledgerwick_error* error);
// The letter to one worker, whole, with line feeds.
// Errors: 91 for an unknown employee, 53 when there is no template of the kind.
LEDGERWICK_C_API int32_t ledgerwick_ae_letter(ledgerwick_session* session, int32_t naid,
                                              int32_t letter, const char** text,
                                              ledgerwick_error* error);

// What is wrong with the template of a letter, whose kind its file name says: line, column, fault.
// Errors: 53 when there is no such file.
LEDGERWICK_C_API int32_t ledgerwick_ae_check_template(ledgerwick_session* session, const char* path,
                                                      ledgerwick_table** out,
                                                      ledgerwick_error* error);

#ifdef __cplusplus
}
#endif

#endif
