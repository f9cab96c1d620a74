#include "hostkit/report/table.h"

#include "hostkit/services/terminal_text.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::report {

Table::Table(std::string name, std::vector<std::string> columns)
    : name_(std::move(name)), columns_(std::move(columns)) {}

void Table::add(std::vector<Variant> row) {
    row.resize(columns_.size());
    rows_.push_back(std::move(row));
}

std::vector<std::size_t> Table::shownColumns() const {
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const bool wanted = shownColumns_.empty() ||
                            std::find(shownColumns_.begin(), shownColumns_.end(), columns_[i]) !=
                                shownColumns_.end();
        if (wanted) shown.push_back(i);
    }
    return shown;
}

std::string readable(const Variant& value) {
    switch (value.kind()) {
        case VariantKind::Empty:
        case VariantKind::Null:
            return {};
        case VariantKind::Boolean:
            return value.toBoolean() ? "yes" : "no";
        case VariantKind::Currency:
            return formatNumber(value.toCurrency(), "#,##0.00");
        case VariantKind::Date:
            return value.toDate().isSet() ? value.toDate().toIso() : std::string();
        default:
            return withoutControls(value.toText());
    }
}

}  // namespace ledgerwick::report
