#include "tests/payrun/pay_office.h"

#include "hostkit/store/company_recordset.h"
#include "ledgerwick/records/statement.h"

namespace ledgerwick::test {

const History& yearStart(PR_Pay_Freq frequency) {
    static const std::map<PR_Pay_Freq, History> starts{
        {PFREQ_1Weekly, {0, "2016-04-05", "2016-04-08", "2016-04-12"}},
        {PFREQ_2Weekly, {0, "2016-04-05", "2016-04-15", "2016-04-19"}},
        {PFREQ_4Weekly, {0, "2016-04-05", "2016-04-29", "2016-05-03"}},
        {PFREQ_Monthly, {0, "2016-03-31", "2016-04-30", "2016-04-30"}},
        {PFREQ_Quarterly, {0, "2016-03-31", "2016-06-30", "2016-06-30"}},
        {PFREQ_BiAnnual, {0, "2016-03-31", "2016-09-30", "2016-09-30"}},
        {PFREQ_Annual, {0, "2016-03-31", "2017-03-31", "2017-03-31"}}};
    return starts.at(frequency);
}

PayOffice::PayOffice() : library_(std::make_shared<FailingDatabase>(company.database())) {
    company.useDatabase(library_);
    company.parameter("PRNExpD_M1", 0).parameter("PREPED_M1", 0);
}

Person& PayOffice::hire(std::int32_t naid, PR_Pay_Freq frequency) {
    return hire(naid, frequency, yearStart(frequency));
}

Person& PayOffice::hire(std::int32_t naid, PR_Pay_Freq frequency, const History& history) {
    Person& person = company.employee(naid).paid(frequency);
    payroll().C_CreateStartingPayRecord(naid, history.lastWeek, day(history.lastEPE),
                                        day(history.nextPay), day(history.nextEPE));
    return person;
}

std::vector<Column> PayOffice::open(Date payDate, std::int32_t frequency, std::int32_t group,
                                    std::int32_t naid) {
    Variant array;
    payroll().C_InputHoursInit(payDate, frequency, group, naid, &array);
    const VariantArray& cells = array.array();
    std::vector<Column> columns;
    for (std::int32_t n = 1; n <= cells.upperBound(2); ++n) {
        if (cells.at(1, n).isEmpty()) continue;
        columns.push_back({cells.at(1, n).toInt32(), cells.at(2, n).toInt32(),
                           cells.at(3, n).toDate(), cells.at(4, n).toDate(), cells.at(6, n),
                           cells.at(7, n).toInt32(), cells.at(8, n).toInt32()});
    }
    return columns;
}

std::vector<TableRow> PayOffice::payRows(const std::string& where) {
    const auto rows = company.database().OpenRecordset(
        statement("SELECT * FROM PRPay WHERE @ ORDER BY PRPID", {where}), RecordsetType::Snapshot);
    const auto& fields = dynamic_cast<const store::CompanyRecordset&>(*rows);
    std::vector<TableRow> result;
    for (; !rows->Eof(); rows->MoveNext()) {
        TableRow& row = result.emplace_back();
        for (std::size_t i = 0; i < fields.fieldCount(); ++i) {
            row.emplace(fields.fieldName(i), rows->Value(fields.fieldName(i)));
        }
    }
    return result;
}

std::vector<std::int32_t> numbersOf(const std::vector<TableRow>& rows, std::string_view field) {
    std::vector<std::int32_t> numbers;
    for (const TableRow& row : rows) numbers.push_back(row.find(field)->second.toInt32());
    return numbers;
}

std::vector<std::string> datesOf(const std::vector<TableRow>& rows, std::string_view field) {
    std::vector<std::string> dates;
    for (const TableRow& row : rows) dates.push_back(row.find(field)->second.toDate().toIso());
    return dates;
}

}  // namespace ledgerwick::test
