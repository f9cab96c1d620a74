// A keyed store that keeps the order in which its keys were added. Keys are compared exactly.
//
//   Dictionary<std::string, int> d;
//   d.Add("b", 1); d.Add("a", 2);
//   d.Item("a") == 2; d.Keys() is {"b", "a"}; d.Exists("A") is false
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <list>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ledgerwick/values/error.h"

namespace ledgerwick {

// Values under keys that are compared exactly, in the order in which they were added.
template <class Key, class Value, class Hash = std::hash<Key>>
class Dictionary {
  public:
    using Entry = std::pair<const Key, Value>;                         // a key with its value
    using const_iterator = typename std::list<Entry>::const_iterator;  // a place among them

    Dictionary() = default;
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;
    // Takes the entries.
    Dictionary(Dictionary&&) noexcept = default;
    // The same, replacing those it had.
    Dictionary& operator=(Dictionary&&) noexcept = default;

    // Errors: 457 when the key is there already; the store stays as it was.
    void Add(const Key& key, Value value) {
        if (index_.contains(key)) raise(error_number::duplicateKey, "Dictionary.Add");
        entries_.emplace_back(key, std::move(value));
        index_.insert(std::prev(entries_.end()));
    }
    bool Exists(const Key& key) const { return index_.contains(key); }  // whether the key is there

    // The value under a key, or a null pointer.
    Value* Find(const Key& key) {
        const auto found = index_.find(key);
        return found == index_.end() ? nullptr : &(*found)->second;
    }
    const Value* Find(const Key& key) const {
        const auto found = index_.find(key);
        return found == index_.end() ? nullptr : &(*found)->second;
    }

    // The value under a key. The reference lives until the key is removed.
    // Errors: 3265 when the key is not there.
    Value& Item(const Key& key) { return (*indexed(key))->second; }
    const Value& Item(const Key& key) const { return (*indexed(key))->second; }

    // Replaces the value under a key, or adds the key at the end.
    void Item(const Key& key, Value value) {
        if (Value* present = Find(key)) {
            *present = std::move(value);
        } else {
            Add(key, std::move(value));
        }
    }

    // Errors: 3265 when the key is not there.
    void Remove(const Key& key) {
        const auto found = indexed(key);
        const Position position = *found;
        index_.erase(found);
        entries_.erase(position);
    }
    // Removes every entry.
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
    // The number of entries.
    std::int32_t Count() const noexcept { return static_cast<std::int32_t>(entries_.size()); }

    // Entries in the order in which they were added.
    const_iterator begin() const noexcept { return entries_.begin(); }
    // After the last entry.
    const_iterator end() const noexcept { return entries_.end(); }

  private:
    using Position = typename std::list<Entry>::iterator;

    // The index holds positions only; their keys stand in the entries.
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(const Key& key) const { return Hash{}(key); }
        std::size_t operator()(Position position) const { return Hash{}(position->first); }
    };
    struct KeyEqual {
        using is_transparent = void;
        bool operator()(Position a, Position b) const { return a->first == b->first; }
        bool operator()(const Key& a, Position b) const { return a == b->first; }
        bool operator()(Position a, const Key& b) const { return a->first == b; }
    };
    using Index = std::unordered_set<Position, KeyHash, KeyEqual>;

    typename Index::const_iterator indexed(const Key& key) const {
        const auto found = index_.find(key);
        if (found == index_.end()) raise(error_number::noSuchItem, "Dictionary.Item");
        return found;
    }

    std::list<Entry> entries_;
    Index index_;
};

}  // namespace ledgerwick
