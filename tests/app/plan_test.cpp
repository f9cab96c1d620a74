// A plan against what the step then writes: the tables before, with the plan put into them, are the
// tables after.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "app/commands/pay_run.h"
#include "app/commands/plan.h"
#include "hostkit/exchange/company_files.h"
#include "hostkit/exchange/tables.h"
#include "hostkit/recording/recording_database.h"
#include "hostkit/recording/statement_parts.h"

namespace ledgerwick::app {
namespace {

const Date payDate = Date::fromYmd(2026, 1, 30);

using Cells = std::map<std::string, std::string>;  // "PRPay 7 PRPWeekNo": "43"

std::string rowName(std::string_view table, const std::string& key) {
    return std::string(table) + " " + key + " ";
}

void addCells(Recordset& row, const exchange::TableLayout& table, const std::string& key,
              Cells& cells) {
    for (const exchange::FieldLayout& field : table.fields) {
        if (!field.isKey) {
            cells[rowName(table.name, key) + field.name] =
                exchange::writeField(row.Value(field.name), field);
        }
    }
}

// The row's key, or the employee where a table has none.
std::string keyIn(Recordset& row, const exchange::TableLayout& table) {
    return row.Value(table.key() ? table.key()->name : table.fields[0].name).toText();
}

// Of the pay rows the last ones: no step is to touch the others.
Cells cellsOf(store::CompanyStore& database) {
    Cells cells;
    for (const exchange::TableLayout& table : exchange::companyTables(database)) {
        if (table.isSettings) continue;
        const std::string recent = table.name == "PRPay" ? " WHERE PRPPayDate > #1/20/2026#" : "";
        const auto rows =
            database.OpenRecordset("SELECT * FROM " + table.name + recent, RecordsetType::Snapshot);
        for (; !rows->Eof(); rows->MoveNext()) addCells(*rows, table, keyIn(*rows, table), cells);
    }
    return cells;
}

void putInto(Cells& cells, const recording::RowChange& change, store::CompanyStore& database) {
    const auto tables = exchange::companyTables(database);
    const auto table = std::find_if(tables.begin(), tables.end(),
                                    [&](const auto& each) { return each.name == change.table; });
    const std::string key =
        change.key.isEmpty() ? std::to_string(change.naid) : change.key.toText();
    if (change.kind == recording::ChangeKind::Removed) {
        std::erase_if(cells, [&](const auto& cell) {
            return cell.first.starts_with(rowName(table->name, key));
        });
        return;
    }
    if (change.kind == recording::ChangeKind::Added) {
        const auto blank = database.OpenRecordset("SELECT * FROM " + table->name + " WHERE False",
                                                  RecordsetType::Dynaset);
        blank->AddNew();
        addCells(*blank, *table, key, cells);
    }
    for (const recording::FieldChange& field : change.fields) {
        const exchange::FieldLayout& layout = *table->field(field.field);
        std::string& cell = cells[rowName(table->name, key) + layout.name];
        if (change.kind == recording::ChangeKind::Changed) {
            EXPECT_EQ(cell, exchange::writeField(field.from, layout));
        }
        cell = exchange::writeField(field.to, layout);
    }
}

TEST(Plan, IsExactlyWhatTheStepThenWrites) {
    const auto database = exchange::openOrCreate(":memory:");
    exchange::importCompany(*database, SAMPLE_COMPANY);
    const auto sessionOver = [](const std::shared_ptr<Database>& opened) {
        auto session = std::make_unique<HostSession>(opened, payDate);
        session->list().LoadEmployees();
        return session;
    };
    struct Step {
        RunStep run;
        Selection selection;
        std::size_t rows;
    };
    const Step steps[] = {
        {openStep, {payDate, PFREQ_1Weekly, 0, 0}, 17},            // added
        {openStep, {payDate.addDays(7), PFREQ_SelAll, 0, 0}, 67},  // 17 moved on, 50 added
        {closeStep, {payDate.addDays(7), PFREQ_1Weekly, 0, 0}, 43},
        {closeStep, {payDate.addDays(7), PFREQ_SelAll, 0, 0}, 33},  // longer dates looked ahead
        {closeStep, {payDate.addDays(7), PFREQ_SelAll, 0, 0}, 0},   // nothing is left
    };
    for (const Step& step : steps) {
        const Cells before = cellsOf(*database);
        const auto recording = std::make_shared<RecordingDatabase>(database);
        auto session = sessionOver(recording);
        database->rehearse([&] { step.run(*session, step.selection); });
        ASSERT_EQ(cellsOf(*database), before);

        const auto changes = recording->changes();
        EXPECT_EQ(changes.size(), step.rows);
        Cells planned = before;
        for (const auto& change : changes) putInto(planned, change, *database);
        session = sessionOver(database);
        step.run(*session, step.selection);
        EXPECT_EQ(cellsOf(*database), planned);
    }
}

TEST(Plan, AStatementIsTakenApartOutsideOfItsTexts) {
    const auto parts = recording::partsOf(
        "UPDATE PRPay LEFT JOIN PensionSchemes ON PSID = PRPPenWorkplaceSchemeID SET "
        "PRPay.PRPStatus "
        "= iif(1, 2, 3), OrdRef = 'it''s = here, WHERE' WHERE PSID IN (SELECT 1 WHERE True)");
    EXPECT_EQ(parts.table, "PRPay");
    EXPECT_EQ(parts.source, "PRPay LEFT JOIN PensionSchemes ON PSID = PRPPenWorkplaceSchemeID");
    EXPECT_THAT(parts.assigned, testing::ElementsAre("PRPStatus", "OrdRef"));
    EXPECT_EQ(parts.condition, "PSID IN (SELECT 1 WHERE True)");
    EXPECT_EQ(recording::partsOf("DELETE FROM PRPayImport").source, "PRPayImport");
}

TEST(Recording, ANewRowLeavesASetWhereItStood) {
    const auto file = exchange::openOrCreate(":memory:");
    file->createSchema();
    file->exec("INSERT INTO PRPay (PRPID, PRPNAID) VALUES (1, 7), (2, 7)");
    RecordingDatabase recording(file);
    const auto rows =
        recording.OpenRecordset("SELECT * FROM PRPay ORDER BY PRPID", RecordsetType::Dynaset);
    const auto add = [&] {
        rows->AddNew();
        rows->Value("PRPNAID", std::int32_t{8});
        rows->Update();
    };
    add();
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    rows->MoveLast();
    rows->MoveNext();
    add();
    EXPECT_TRUE(rows->Eof());
}

}  // namespace
}  // namespace ledgerwick::app
