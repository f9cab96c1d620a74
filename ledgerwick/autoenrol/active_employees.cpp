#include <span>

#include "ledgerwick/employee/employee_list.h"
#include "ledgerwick/employee/regular.h"
#include "ledgerwick/host/payroll_functions.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

// A field of the table, and its value for one worker; null where the table leaves it unfilled.
struct Column {
    const char* name;
    FieldType type;
    std::int32_t size;
    Variant (*value)(cEmployee& employee);
};

Variant int64(std::int32_t value) {
    return static_cast<std::int64_t>(value);
}

// clang-format off
constexpr Column shortColumns[] = {
    {"NAID",                 FieldType::Int64,      0, [](cEmployee& e) { return int64(e.NAID()); }},
    {"NASeq",                FieldType::Text,       3, nullptr},
    {"NABusName",            FieldType::Text,     100, [](cEmployee& e) { return Variant(e.BusName()); }},
    {"NABusNameSort",        FieldType::Text,     110, [](cEmployee& e) { return Variant(padOrCut(e.Seq(), 3) + e.BusName()); }},
    {"NExpPayDate",          FieldType::Date,       0, [](cEmployee& e) { return Variant(e.CurEmployment()->NExpPayDate()); }},
};
constexpr Column longColumns[] = {
    {"PayFreq",              FieldType::Int32,      0, [](cEmployee& e) { return Variant(e.PayFrequency()); }},
    {"DoB",                  FieldType::Date,       0, [](cEmployee& e) { return Variant(e.DOB()); }},
    {"Sex",                  FieldType::Text,       1, [](cEmployee& e) { return Variant(e.Sex()); }},
    {"NITable",              FieldType::Text,       1, [](cEmployee& e) { return Variant(e.NITable()); }},
    {"Director",             FieldType::Boolean,    0, [](cEmployee& e) { return Variant(e.Director()); }},
    {"PenWorkplaceSchemeID", FieldType::Int64,      0, [](cEmployee& e) { return int64(e.PenWorkplaceSchemeID()); }},
    {"PenEEDeductPC",        FieldType::Single,     0, [](cEmployee& e) { return Variant(e.PenWorkplaceEEDeductPC()); }},
    {"PenERDeductPC",        FieldType::Single,     0, [](cEmployee& e) { return Variant(e.PenWorkplaceERDeductPC()); }},
    {"PenEEDeductFlat",      FieldType::Currency,   0, [](cEmployee& e) { return Variant(e.PenWorkplaceEEDeductFlat()); }},
    {"PenERDeductFlat",      FieldType::Currency,   0, [](cEmployee& e) { return Variant(e.PenWorkplaceERDeductFlat()); }},
    {"LastPayDate",          FieldType::Date,       0, [](cEmployee& e) { return Variant(e.CurEmployment()->LastPayDate()); }},
    {"PREGroup",             FieldType::Int64,      0, [](cEmployee& e) { return int64(e.Group()); }},
    {"PostCode",             FieldType::Text,      10, [](cEmployee& e) { return Variant(e.PostCode()); }},
    {"TaxCode",              FieldType::Text,       8, [](cEmployee& e) { return Variant(e.TaxCode()); }},
    {"ShortName",            FieldType::Text,     100, [](cEmployee& e) { return Variant(e.ShortName()); }},
    {"Country",              FieldType::Text,     100, [](cEmployee& e) { return Variant(e.Country()); }},
};
// clang-format on

void append(ResultTable& table, std::span<const Column> columns) {
    for (const Column& column : columns) table.Append(column.name, column.type, column.size);
}

void fill(ResultTable& table, std::span<const Column> columns, cEmployee& employee) {
    for (const Column& column : columns) {
        if (column.value) table.Fields(column.name, column.value(employee));
    }
}

}  // namespace

ResultTable CPayrollFunctions::C_ActiveEmployees(bool bIncPOFields) {
    ResultTable table;
    append(table, shortColumns);
    if (bIncPOFields) append(table, longColumns);
    table.Open();

    for (const auto& held : employeeList().Employees()) {
        cEmployee& employee = used(held, "C_ActiveEmployees");
        if (!isRegularActive(employee)) continue;
        table.AddNew();
        fill(table, shortColumns, employee);
        if (bIncPOFields) fill(table, longColumns, employee);
        table.Update();
    }
    table.Sort("NABusNameSort");
    return table;
}

}  // namespace ledgerwick
