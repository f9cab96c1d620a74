// An ordered list whose items also have keys; positions run from 1.
//
//   Collection<int> c;
//   c.Add(10, "a"); c.Add(30, "c"); c.Add(20, "b", {.before = "c"});
//   c.Item(2) == 20; c.Item("c") == 30;
//
// Look-up by key and by position, `Add` and `Remove` stay fast in a list of a million: items stand
// in chunks of a bounded length, so that no operation moves or walks the whole list.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ledgerwick/values/checked.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick {

// Where `Add` puts a new item: at the end, or beside the item of a key or of a position from 1.
struct Placement {
    std::string_view before{};        // key of the item that it goes before
    std::string_view after{};         // key of the item that it goes after
    std::int32_t beforePosition = 0;  // position of the item that it goes before
    std::int32_t afterPosition = 0;   // position of the item that it goes after
};

// Keys are compared exactly. An item stays where it is in memory until it is removed.
template <class T>
class Collection {
  public:
    Collection() = default;
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    // Takes the items; `other` is empty afterwards.
    Collection(Collection&& other) noexcept { swap(other); }
    // The same, replacing the items it had.
    Collection& operator=(Collection&& other) noexcept {
        Collection(std::move(other)).swap(*this);
        return *this;
    }

    // Adds an item. An empty key adds it without one.
    // Errors: 457 when the key is there already, 3265 or 9 when the key or the position to stand
    //         beside is not, 5 when both sides are named; the list stays as it was.
    void Add(T item, std::string_view key = {}, Placement where = {});

    // An item by key, or by position from 1.
    // Errors: 3265 for an unknown key, 9 for a position outside the list.
    T& Item(std::string_view key) const { return nodeOf(key).item; }
    T& Item(std::int32_t position) const;

    // The item under a key, or a null pointer.
    T* Find(std::string_view key) const noexcept {
        Node* node = findNode(key);
        return node == nullptr ? nullptr : &node->item;
    }

    // Errors: as Item; the list stays as it was.
    void Remove(std::string_view key);
    void Remove(std::int32_t position);
    void Clear() noexcept { *this = Collection(); }  // removes every item

    std::int32_t Count() const noexcept { return count_; }  // the number of items

    // Walks the items in order. Adding and removing ends every walk: its next step fails. Whoever
    // changes the list on the way walks over a copy of the keys.
    class Iterator;
    Iterator begin() const noexcept { return Iterator(this, 0); }             // at the first item
    Iterator end() const noexcept { return Iterator(this, chunks_.size()); }  // after the last one

  private:
    struct Chunk;
    struct Node {
        std::string key;
        T item;
        Chunk* chunk = nullptr;
    };
    // A stretch of neighbours, never empty.
    struct Chunk {
        std::vector<std::unique_ptr<Node>> nodes;
        std::size_t ordinal = 0;  // its place in `chunks_`
    };
    struct ChunkSlot {
        std::unique_ptr<Chunk> chunk;
        std::int32_t length = 0;
        mutable std::int32_t start = 0;  // items before the chunk, once it is known
    };
    struct Place {
        std::size_t chunk;
        std::size_t offset;
    };

    // Not declared noexcept, which makes the index keep each hash value: without them, walking a
    // bucket and growing would read every node.
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const {
            return std::hash<std::string_view>{}(key);
        }
        std::size_t operator()(const Node* node) const { return (*this)(node->key); }
    };
    struct KeyEqual {
        using is_transparent = void;
        static std::string_view keyOf(std::string_view key) noexcept { return key; }
        static std::string_view keyOf(const Node* node) noexcept { return node->key; }
        template <class A, class B>
        bool operator()(A a, B b) const noexcept {
            return keyOf(a) == keyOf(b);
        }
    };
    using Index = std::unordered_set<Node*, KeyHash, KeyEqual>;

    static constexpr std::size_t chunkCapacity = 512;
    // Up to this length a walk over the keys beats an index, and saves its memory.
    static constexpr std::int32_t longestWithoutIndex = 8;

    void swap(Collection& other) noexcept {
        chunks_.swap(other.chunks_);
        index_.swap(other.index_);
        std::swap(count_, other.count_);
        std::swap(startsKnown_, other.startsKnown_);
        ++changes_;
        ++other.changes_;
    }

    Node* findNode(std::string_view key) const noexcept;
    Node& nodeOf(std::string_view key) const {
        Node* node = findNode(key);
        if (node == nullptr) raise(error_number::noSuchItem, "Collection.Item", key);
        return *node;
    }
    static Place placeOf(const Node& node) noexcept;
    Place placeOf(std::int32_t position) const;
    Place placeFor(Placement where) const;

    void insert(Place place, std::unique_ptr<Node> node);
    void erase(Place place) noexcept;
    Chunk& insertChunk(std::size_t at);
    Place makeRoom(Place place);
    void renumberFrom(std::size_t chunk) noexcept;
    void forgetStartsFrom(std::size_t chunk) const noexcept;
    void lengthChanged(std::size_t chunk) noexcept;
    void addToIndex(Node* node);

    std::vector<ChunkSlot> chunks_;
    std::unique_ptr<Index> index_;
    std::int32_t count_ = 0;
    mutable std::uint32_t startsKnown_ = 0;  // the number of chunks whose `start` is known
    std::uint32_t changes_ = 0;              // items added and removed so far
};

// A place in the list, which lasts until an item is added or removed.
template <class T>
class Collection<T>::Iterator {
  public:
    // What the standard library asks of a place in a list.
    using iterator_category = std::forward_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using reference = T&;

    Iterator() = default;
    // The item at this place.
    // Errors: 5 when an item was added or removed since the walk began; so for all of these.
    T& operator*() const {
        requireUnchanged();
        return list_->chunks_[chunk_].chunk->nodes[offset_]->item;
    }
    T* operator->() const { return &**this; }  // a member of that item
    // Goes on to the next item.
    Iterator& operator++() {
        requireUnchanged();
        if (++offset_ == list_->chunks_[chunk_].chunk->nodes.size()) {
            ++chunk_;
            offset_ = 0;
        }
        return *this;
    }
    Iterator operator++(int) {
        const Iterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const Iterator&, const Iterator&) noexcept =
        default;  // whether both stand at the same item

  private:
    friend class Collection;
    Iterator(const Collection* list, std::size_t chunk) noexcept
        : list_(list), changes_(list->changes_), chunk_(chunk) {}

    void requireUnchanged() const {
        if (changes_ == list_->changes_) return;
        raise(error_number::invalidCall, "Collection",
              "the list has changed during the walk; walk over a copy of its keys");
    }

    const Collection* list_ = nullptr;
    std::uint32_t changes_ = 0;  // of the list when the walk began
    std::size_t chunk_ = 0;
    std::size_t offset_ = 0;
};

template <class T>
void Collection<T>::Add(T item, std::string_view key, Placement where) {
    if (!key.empty() && findNode(key) != nullptr) {
        raise(error_number::duplicateKey, "Collection.Add", key);
    }
    const Place place = placeFor(where);
    auto node = std::make_unique<Node>(Node{std::string(key), std::move(item)});
    Node* added = node.get();
    insert(place, std::move(node));
    addToIndex(added);
}

template <class T>
T& Collection<T>::Item(std::int32_t position) const {
    const Place place = placeOf(position);
    return chunks_[place.chunk].chunk->nodes[place.offset]->item;
}

template <class T>
void Collection<T>::Remove(std::string_view key) {
    erase(placeOf(nodeOf(key)));
}

template <class T>
void Collection<T>::Remove(std::int32_t position) {
    erase(placeOf(position));
}

template <class T>
typename Collection<T>::Node* Collection<T>::findNode(std::string_view key) const noexcept {
    if (key.empty()) return nullptr;
    if (index_ != nullptr) {
        const auto found = index_->find(key);
        return found == index_->end() ? nullptr : *found;
    }
    for (const auto& slot : chunks_) {
        for (const auto& node : slot.chunk->nodes) {
            if (node->key == key) return node.get();
        }
    }
    return nullptr;
}

template <class T>
typename Collection<T>::Place Collection<T>::placeOf(const Node& node) noexcept {
    const auto& nodes = node.chunk->nodes;
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const auto& candidate) {
        return candidate.get() == &node;
    });
    return {node.chunk->ordinal, static_cast<std::size_t>(found - nodes.begin())};
}

template <class T>
typename Collection<T>::Place Collection<T>::placeOf(std::int32_t position) const {
    if (position < 1 || position > count_) {
        raise(error_number::subscriptOutOfRange, "Collection.Item");
    }
    const std::int32_t before = position - 1;
    if (startsKnown_ == 0) {
        chunks_.front().start = 0;
        startsKnown_ = 1;
    }
    // Of the chunks whose start is known, the last one that begins at the position or before it;
    // from the last known one on, the starts are worked out once.
    const auto begin = chunks_.begin();
    auto slot =
        std::prev(std::upper_bound(begin, begin + startsKnown_, before,
                                   [](std::int32_t n, const ChunkSlot& s) { return n < s.start; }));
    while (before - slot->start >= slot->length) {
        const std::int32_t start = slot->start + slot->length;
        ++slot;
        slot->start = start;
        ++startsKnown_;
    }
    return {static_cast<std::size_t>(slot - begin), static_cast<std::size_t>(before - slot->start)};
}

template <class T>
typename Collection<T>::Place Collection<T>::placeFor(Placement where) const {
    const auto named = [](std::string_view key, std::int32_t position) {
        return !key.empty() || position != 0;
    };
    const auto placeNamed = [this](std::string_view key, std::int32_t position) {
        return key.empty() ? placeOf(position) : placeOf(nodeOf(key));
    };
    const bool before = named(where.before, where.beforePosition);
    const bool after = named(where.after, where.afterPosition);
    if (before && after) {
        raise(error_number::invalidCall, "Collection.Add", "both before and after");
    }
    if (before) return placeNamed(where.before, where.beforePosition);
    if (after) {
        const Place place = placeNamed(where.after, where.afterPosition);
        return {place.chunk, place.offset + 1};
    }
    if (chunks_.empty()) return {0, 0};
    return {chunks_.size() - 1, chunks_.back().chunk->nodes.size()};
}

template <class T>
void Collection<T>::insert(Place place, std::unique_ptr<Node> node) {
    place = makeRoom(place);
    Chunk& chunk = *chunks_[place.chunk].chunk;
    node->chunk = &chunk;
    chunk.nodes.insert(chunk.nodes.begin() + static_cast<std::ptrdiff_t>(place.offset),
                       std::move(node));
    lengthChanged(place.chunk);
    count_ = addInt32(count_, 1, "Collection.Add");
    ++changes_;
}

// The place once its chunk exists and has room.
template <class T>
typename Collection<T>::Place Collection<T>::makeRoom(Place place) {
    if (place.chunk == chunks_.size()) {
        insertChunk(place.chunk);
        return place;
    }
    Chunk& full = *chunks_[place.chunk].chunk;
    if (full.nodes.size() < chunkCapacity) return place;
    Chunk& next = insertChunk(place.chunk + 1);
    // A list that grows at its end keeps its chunks full.
    const bool atEnd = place.chunk + 2 == chunks_.size() && place.offset == chunkCapacity;
    const std::size_t kept = atEnd ? chunkCapacity : chunkCapacity / 2;
    const auto moved = full.nodes.begin() + static_cast<std::ptrdiff_t>(kept);
    next.nodes.assign(std::move_iterator(moved), std::move_iterator(full.nodes.end()));
    full.nodes.erase(moved, full.nodes.end());
    for (const auto& node : next.nodes) node->chunk = &next;
    lengthChanged(place.chunk);
    lengthChanged(place.chunk + 1);
    return place.offset < kept ? place : Place{place.chunk + 1, place.offset - kept};
}

template <class T>
void Collection<T>::erase(Place place) noexcept {
    auto& nodes = chunks_[place.chunk].chunk->nodes;
    const auto position = nodes.begin() + static_cast<std::ptrdiff_t>(place.offset);
    const std::unique_ptr<Node> removed = std::move(*position);
    if (index_ != nullptr && !removed->key.empty()) index_->erase(removed.get());
    nodes.erase(position);
    --count_;
    ++changes_;
    if (!nodes.empty()) {
        lengthChanged(place.chunk);
        return;
    }
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(place.chunk));
    renumberFrom(place.chunk);
    forgetStartsFrom(place.chunk);
}

template <class T>
typename Collection<T>::Chunk& Collection<T>::insertChunk(std::size_t at) {
    ChunkSlot slot;
    slot.chunk = std::make_unique<Chunk>();
    const auto place =
        chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(at), std::move(slot));
    renumberFrom(at);
    forgetStartsFrom(at);
    return *place->chunk;
}

template <class T>
void Collection<T>::renumberFrom(std::size_t chunk) noexcept {
    for (; chunk < chunks_.size(); ++chunk) chunks_[chunk].chunk->ordinal = chunk;
}

template <class T>
void Collection<T>::forgetStartsFrom(std::size_t chunk) const noexcept {
    startsKnown_ = std::min(startsKnown_, static_cast<std::uint32_t>(chunk));
}

template <class T>
void Collection<T>::lengthChanged(std::size_t chunk) noexcept {
    chunks_[chunk].length = static_cast<std::int32_t>(chunks_[chunk].chunk->nodes.size());
    forgetStartsFrom(chunk + 1);
}

template <class T>
void Collection<T>::addToIndex(Node* node) {
    if (index_ != nullptr) {
        if (!node->key.empty()) index_->insert(node);
        return;
    }
    if (count_ <= longestWithoutIndex) return;
    auto index = std::make_unique<Index>();
    for (const auto& slot : chunks_) {
        for (const auto& each : slot.chunk->nodes) {
            if (!each->key.empty()) index->insert(each.get());
        }
    }
    index_ = std::move(index);
}

}  // namespace ledgerwick
