// The piecework of an employment: its open order lines, which of them fall into a period, and their
// move up to a closed line.
#include <string>
#include <vector>

#include "ledgerwick/employment/employment.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/records/codes.h"
#include "ledgerwick/records/schema.h"
#include "ledgerwick/values/format.h"
#include "ledgerwick/values/text.h"

namespace ledgerwick {
namespace {

using Earnings = std::shared_ptr<CImportedEarnings>;

// From the first day to the end of the last, whatever the time of day.
struct EarningsPeriod {
    Date first;
    Date last;
    bool holds(const Earnings& line) const {
        return line->EarningsDate() >= first && line->EarningsDate() < last.addDays(1);
    }
};

template <class Key>
CImportedEarnings& takeOrMake(Dictionary<Key, Earnings>& lines, const Key& key) {
    if (!lines.Exists(key)) lines.Add(key, std::make_shared<CImportedEarnings>());
    return *lines.Item(key);
}

std::string setClauses(std::int16_t toStatus, std::int32_t invoice, const Variant& orderReference) {
    std::string clauses = "   OrdStatus = " + std::to_string(toStatus) + " ";
    if (toStatus != code::closedOrder) return clauses;
    if (invoice != 0) clauses += ", OrdInvID = " + std::to_string(invoice) + " ";
    const bool isNullObject = orderReference.isObject() && !orderReference.toObject();
    if (!orderReference.isEmpty() && !isNullObject) {
        const std::string reference = orderReference.toText("UpdateImportedEarnings");
        clauses += ", OrdRef = '" + replaceAll(reference, "'", "''") + "' ";
    }
    return clauses;
}

std::string commaList(const std::vector<Earnings>& lines) {
    std::string ids;
    for (const Earnings& line : lines) {
        if (!ids.empty()) ids += ',';
        ids += std::to_string(line->OrdID());
    }
    return ids;
}

// Adds a line, or a sum of lines, to a sum that goes by `date`.
void addTo(CImportedEarnings& sum, const CImportedEarnings& line, Date date) {
    sum.EarningsDate(date);
    sum.OrdDSID(line.OrdDSID());
    sum.Qty(sum.Qty() + line.Qty());
    sum.Value(sum.Value() + line.Value());
    sum.UoPCode(line.UoPCode());
    sum.Desc(line.Desc());
}

ResultTable emptyEarningsTable() {
    ResultTable table;
    table.Append("OrdDate", FieldType::Date);
    table.Append("OrdDSID", FieldType::Int32);
    table.Append("OrdQty", FieldType::Single);
    table.Append("ItemDesc", FieldType::FixedText, 70);
    table.Append("UoPCode", FieldType::FixedText, 10);
    table.Append("OrdPrice", FieldType::Currency);
    table.Open();
    return table;
}

void addRow(ResultTable& table, const CImportedEarnings& sum) {
    table.AddNew();
    table.Fields("OrdDate", sum.EarningsDate());
    table.Fields("OrdDSID", sum.OrdDSID());
    table.Fields("OrdQty", sum.Qty());
    table.Fields("OrdPrice", sum.Value());
    table.Fields("ItemDesc", sum.Desc());
    table.Fields("UoPCode", sum.UoPCode());
    table.Update();
}

}  // namespace

void cEmployment::ResetImportedPay() {
    HasImportedPay(false);
    ImportedPayValue(Currency());
    earnings_.reset();
}

void cEmployment::AddImportedEarnings(Recordset& rsPay) {
    if (!earnings_) earnings_ = std::make_unique<EarningsStore>();
    const std::int16_t status = rsPay.GetInt16(field::OrdStatus);
    EarningsByOrder& target =
        status == code::uncheckedOrder ? earnings_->unchecked : earnings_->checked;

    CImportedEarnings& line = takeOrMake(target, rsPay.GetInt32(field::OrdID));
    line.OrdID(rsPay.GetInt32(field::OrdID));
    line.OrdDSID(rsPay.GetInt32(field::OrdDSID));
    line.Qty(rsPay.GetSingle(field::Qty));
    line.UoPCode(std::string(rsPay.GetText(field::UoPCode)));
    line.Desc(rsPay.GetText(field::DSDesc));
    line.Value(readMoney(rsPay.Value(field::NetPrice), DLLGlobal::g().strCurFormat(),
                         field::NetPrice.text()));
    line.EarningsDate(rsPay.GetDate(field::OrdActionDate));
    line.OrdStatus(status);
}

bool cEmployment::HasImportedEarnings(Date dEPSDate, Date dEPEDate, Currency& curValue,
                                      bool* bHasUnchecked) const {
    curValue = Currency();
    if (bHasUnchecked) *bHasUnchecked = false;
    if (!earnings_) return false;

    const EarningsPeriod period{dEPSDate, dEPEDate};
    bool found = false;
    Currency sum;
    for (const auto& [id, line] : earnings_->checked) {
        if (!period.holds(line)) continue;
        sum += line->Value();
        found = true;
    }
    curValue = sum;
    if (bHasUnchecked) {
        for (const auto& [id, line] : earnings_->unchecked) {
            if (!period.holds(line)) continue;
            *bHasUnchecked = true;
            break;
        }
    }
    return found;
}

bool cEmployment::UpdateImportedEarnings(std::int16_t iToStatus, Date dEPSDate, Date dEPEDate,
                                         std::int32_t lInvID, const Variant& vOrdRef) {
    if (!earnings_) return false;
    const EarningsPeriod period{dEPSDate, dEPEDate};
    std::vector<Earnings> below;
    for (const auto& [id, line] : earnings_->checked) {
        if (period.holds(line) && line->OrdStatus() < iToStatus) below.push_back(line);
    }
    if (below.empty()) return false;

    const std::string statement = "    UPDATE ORDERS SET " +
                                  setClauses(iToStatus, lInvID, vOrdRef) + "WHERE    OrdStatus < " +
                                  std::to_string(iToStatus) + "    AND    ORDID IN (" +
                                  commaList(below) + ")";
    DLLGlobal::g().DBDll().Execute(statement, failOnError);
    for (const Earnings& line : below) line->OrdStatus(iToStatus);
    return false;
}

ResultTable cEmployment::ImportedEarningsRS(Date dEPSDate, Date dEPEDate, Currency& curTot) const {
    ResultTable table = emptyEarningsTable();
    curTot = Currency();
    if (earnings_) {
        const EarningsPeriod period{dEPSDate, dEPEDate};
        Dictionary<std::string, Earnings> byDay;
        for (const auto& [id, line] : earnings_->checked) {
            if (!period.holds(line)) continue;
            const std::string key = formatDate(line->EarningsDate(), "dd/mm/yyyy") + "|" +
                                    std::to_string(line->OrdDSID());
            addTo(takeOrMake(byDay, key), *line, line->EarningsDate().dateOnly());
        }
        Dictionary<std::int32_t, Earnings> byItem;
        for (const auto& [key, day] : byDay) {
            addRow(table, *day);
            addTo(takeOrMake(byItem, day->OrdDSID()), *day, Date());
        }
        for (const auto& [item, total] : byItem) {
            addRow(table, *total);
            curTot += total->Value();
        }
    }
    table.Sort("OrdDate ASC, ItemDesc ASC");
    return table;
}

}  // namespace ledgerwick
