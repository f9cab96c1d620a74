#include "hostkit/rowsets/tables.h"

#include <algorithm>

#include "ledgerwick/values/text.h"

namespace ledgerwick::rowsets {

int FieldIndex::search(std::string_view name) const noexcept {
    for (std::size_t i = 0; i < names_.size(); ++i) {
        if (equalsIgnoringCase(names_[i], name)) return static_cast<int>(i);
    }
    return none;
}

int Table::find(std::string_view column) const noexcept {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (equalsIgnoringCase(columns[i].name, column)) return static_cast<int>(i);
    }
    return -1;
}

bool isRead(FieldList reads, std::string_view column) {
    return reads.empty() || std::any_of(reads.begin(), reads.end(), [&](const FieldName& name) {
               return equalsIgnoringCase(name.text(), column);
           });
}

}  // namespace ledgerwick::rowsets
