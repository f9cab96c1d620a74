// An ordered list whose items also have keys; positions run from 1.
//
//   Collection<int> c;
//   c.Add(10, "a"); c.Add(30, "c"); c.Add(20, "b", {.before = "c"});
//   c.Item(2) == 20; c.Item("c") == 30;
//
// Look-up by key and by position, `Add` and `Remove` stay fast in a list of a million: items stand
// in chunks of a bounded length, so that no operation moves or walks the whole list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ledgerwick/values/error.h"

namespace ledgerwick {

// Where `Add` puts a new item: at the end, or beside the item of a key.
struct Placement {
    std::string_view before{};
    std::string_view after{};
};

template <class T>
class Collection {
  public:
    Collection() = default;
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    Collection(Collection&&) noexcept = default;
    Collection& operator=(Collection&&) noexcept = default;

    // Adds an item. An empty key adds it without one.
    // Errors: 457 when the key is there already, 3265 when the key to stand beside is not, 5 when
    //         both sides are named; the list stays as it was.
    void Add(T item, std::string_view key = {}, Placement where = {});

    // An item by key, or by position from 1.
    // Errors: 3265 for an unknown key, 9 for a position outside the list.
    T& Item(std::string_view key) const;
    T& Item(std::int32_t position) const;

    // The item under a key, or a null pointer.
    T* Find(std::string_view key) const noexcept;

    // Errors: as Item; the list stays as it was.
    void Remove(std::string_view key);
    void Remove(std::int32_t position);
    void Clear() noexcept;

    std::int32_t Count() const noexcept { return count_; }

    // Walks the items in order. Adding and removing ends every walk.
    class Iterator;
    Iterator begin() const noexcept;
    Iterator end() const noexcept;
};

}  // namespace ledgerwick
