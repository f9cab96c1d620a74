// A keyed store that keeps the order in which its keys were added. Keys are compared exactly.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ledgerwick/values/error.h"

namespace ledgerwick {

template <class Key, class Value, class Hash = std::hash<Key>>
class Dictionary {
  public:
    using Entry = std::pair<const Key, Value>;
    using const_iterator = typename std::list<Entry>::const_iterator;

    // Errors: 457 when the key is there already; the store stays as it was.
    void Add(const Key& key, Value value) {
        if (index_.contains(key)) raise(error_number::duplicateKey, "Dictionary.Add");
        entries_.emplace_back(key, std::move(value));
        index_.emplace(key, std::prev(entries_.end()));
    }
    bool Exists(const Key& key) const { return index_.contains(key); }

    // The value under a key. The reference lives until the key is removed.
    // Errors: 3265 when the key is not there.
    Value& Item(const Key& key) { return find(key)->second; }
    const Value& Item(const Key& key) const { return find(key)->second; }

    // Replaces the value under a key, or adds the key at the end.
    void Item(const Key& key, Value value) {
        const auto found = index_.find(key);
        if (found == index_.end()) {
            Add(key, std::move(value));
        } else {
            found->second->second = std::move(value);
        }
    }

    // Errors: 3265 when the key is not there.
    void Remove(const Key& key) {
        const auto position = find(key);
        index_.erase(key);
        entries_.erase(position);
    }
    void RemoveAll() noexcept {
        index_.clear();
        entries_.clear();
    }

    // The keys in the order in which they were added.
    std::vector<Key> Keys() const {
        std::vector<Key> keys;
        keys.reserve(entries_.size());
        for (const auto& entry : entries_) keys.push_back(entry.first);
        return keys;
    }
    std::int32_t Count() const noexcept { return static_cast<std::int32_t>(entries_.size()); }

    // Entries in the order in which they were added.
    const_iterator begin() const noexcept { return entries_.begin(); }
    const_iterator end() const noexcept { return entries_.end(); }

  private:
    using Position = typename std::list<Entry>::iterator;

    Position find(const Key& key) const {
        const auto found = index_.find(key);
        if (found == index_.end()) raise(error_number::noSuchItem, "Dictionary.Item");
        return found->second;
    }

    std::list<Entry> entries_;
    std::unordered_map<Key, Position, Hash> index_;
};

}  // namespace ledgerwick
