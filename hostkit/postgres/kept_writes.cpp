#include "hostkit/postgres/kept_writes.h"

#include <algorithm>

namespace ledgerwick::postgres {

KeptTable& KeptWrites::of(const TableRef& table) {
    for (KeptTable& kept : tables_) {
        if (kept.table->name == table->name) return kept;
    }
    tables_.push_back({table, {}, {}, 0, {}});
    return tables_.back();
}

void KeptWrites::add(const TableRef& table, Image image, const Facts& facts) {
    KeptTable& kept = of(table);
    const auto [known, isFirst] = kept.imageOf.emplace(image.key, kept.images.size());
    std::map<int, int> counted;
    for (const auto& [column, number] : facts) {
        KeptTable::Numbers& numbers = kept.numbers[column];
        ++numbers.values[number];
        if (isFirst && counted[column]++ == 0) ++numbers.images;
    }
    if (isFirst) {
        kept.images.push_back(std::move(image));
        ++size_;
        return;
    }
    Image& before = kept.images[known->second];
    for (std::size_t i = 0; i < image.touched.size(); ++i) {
        if (!image.touched[i]) continue;
        before.touched[i] = true;
        before.values[i] = std::move(image.values[i]);
    }
}

TableSet KeptWrites::tables() const noexcept {
    TableSet set = 0;
    for (const KeptTable& kept : tables_) {
        if (!kept.images.empty()) set |= kept.table->bit;
    }
    return set;
}

TableSet KeptWrites::seenBy(const Spelling& spelling,
                            std::span<const std::int64_t> literals) const {
    TableSet seen = 0;
    for (const KeptTable& kept : tables_) {
        if (kept.images.empty() || (kept.table->bit & spelling.tables) == 0) continue;
        if (mightSee(kept, spelling, literals)) seen |= kept.table->bit;
    }
    return seen;
}

bool KeptWrites::mightSee(const KeptTable& kept, const Spelling& spelling,
                          std::span<const std::int64_t> literals) {
    return std::none_of(
        spelling.equalities.begin(), spelling.equalities.end(), [&](const Equality& equality) {
            if (equality.table->name != kept.table->name) return false;
            const std::int64_t number = literals[equality.literal];
            const auto numbers = kept.numbers.find(equality.column);
            return number != noNumber && numbers != kept.numbers.end() &&
                   numbers->second.images == kept.images.size() &&
                   numbers->second.values.find(number) == numbers->second.values.end();
        });
}

void KeptWrites::clear(TableSet tables) noexcept {
    for (KeptTable& kept : tables_) {
        if ((kept.table->bit & tables) == 0) continue;
        size_ -= kept.images.size();
        kept.images.clear();
        kept.imageOf.clear();
        kept.numbers.clear();
        kept.nextKey = 0;
    }
}

}  // namespace ledgerwick::postgres
