#include "ledgerwick/values/collection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "ledgerwick/values/dictionary.h"
#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;
using ::testing::ElementsAre;

template <class T>
std::vector<T> itemsOf(const Collection<T>& list) {
    return {list.begin(), list.end()};
}

TEST(Collection, PutsItemsAtTheEndOrBesideAnother) {
    Collection<int> list;
    list.Add(1, "a");
    list.Add(4, "d");
    list.Add(2, "b", {.after = "a"});
    list.Add(3, {}, {.before = "d"});
    list.Add(0, {}, {.beforePosition = 1});
    list.Add(5, "e", {.afterPosition = 5});
    EXPECT_THAT(itemsOf(list), ElementsAre(0, 1, 2, 3, 4, 5));
    EXPECT_EQ(2, list.Item("b"));
    EXPECT_EQ(3, list.Item(4));
    EXPECT_EQ(6, list.Count());
}

TEST(Collection, StaysAsItWasWhenAnOperationFails) {
    Collection<int> list;
    list.Add(1, "a");
    list.Add(2);
    EXPECT_EQ(457, raisedBy([&] { list.Add(9, "a"); }));
    EXPECT_EQ(3265, raisedBy([&] { list.Add(9, "b", {.before = "x"}); }));
    EXPECT_EQ(9, raisedBy([&] { list.Add(9, "b", {.afterPosition = 3}); }));
    EXPECT_EQ(5, raisedBy([&] { list.Add(9, "b", {.before = "a", .afterPosition = 1}); }));
    EXPECT_EQ(3265, raisedBy([&] { list.Item("x"); }));
    EXPECT_EQ(3265, raisedBy([&] { list.Item(""); }));
    EXPECT_EQ(9, raisedBy([&] { list.Item(0); }));
    EXPECT_EQ(9, raisedBy([&] { list.Item(3); }));
    EXPECT_EQ(3265, raisedBy([&] { list.Remove("x"); }));
    EXPECT_EQ(9, raisedBy([&] { list.Remove(3); }));
    EXPECT_THAT(itemsOf(list), ElementsAre(1, 2));
    EXPECT_EQ(nullptr, list.Find("b"));
}

TEST(Collection, EndsAWalkWithAnErrorOnceItIsChanged) {
    Collection<int> list;
    for (const char* key : {"a", "b", "c"}) list.Add(1, key);
    int visited = 0;
    EXPECT_EQ(raisedBy([&] {
                  for (const int item : list) {
                      visited += item;
                      list.Remove("a");
                      list.Add(1, "a");
                  }
              }),
              error_number::invalidCall);
    EXPECT_EQ(visited, 1);
}

TEST(Collection, HoldsItemsThatCannotBeCopiedAndLeavesThemInPlace) {
    Collection<std::unique_ptr<int>> list;
    list.Add(std::make_unique<int>(7), "7");
    const auto* first = &list.Item("7");
    for (int i = 0; i < 2000; ++i) list.Add(nullptr, {}, {.before = "7"});
    auto moved = std::move(list);
    EXPECT_EQ(first, moved.Find("7"));
    EXPECT_EQ(first, &moved.Item(2001));
    moved.Clear();
    EXPECT_TRUE(moved.begin() == moved.end());
    moved.Add(nullptr, "7");
    EXPECT_EQ(1, moved.Count());
}

// Grows, stays and shrinks; the key of an item is its text.
TEST(Collection, AgreesWithAPlainListThroughManyRandomEdits) {
    std::mt19937 random(20160406);
    Collection<int> list;
    std::vector<int> model;
    const auto keyAt = [&](std::size_t place) { return std::to_string(model[place]); };
    for (int item = 1; item <= 30'000; ++item) {
        const unsigned growing = item <= 10'000 ? 8 : item <= 20'000 ? 5 : 1;
        const bool adds = model.empty() || random() % 10 < growing;
        const std::size_t place = random() % (model.size() + (adds ? 1 : 0));
        const auto position = static_cast<std::int32_t>(place) + 1;
        const auto there = model.begin() + static_cast<std::ptrdiff_t>(place);
        const bool odd = random() % 2 == 1;
        if (adds && place == model.size()) {
            list.Add(item, std::to_string(item));
            model.push_back(item);
        } else if (adds) {
            const std::string other = keyAt(place);
            list.Add(item, std::to_string(item),
                     odd ? Placement{.before = other} : Placement{.after = other});
            model.insert(odd ? there : there + 1, item);
        } else {
            odd ? list.Remove(keyAt(place)) : list.Remove(position);
            model.erase(there);
        }
        if (place < model.size()) {
            ASSERT_EQ(model[place], list.Item(position));
            ASSERT_EQ(model[place], list.Item(keyAt(place)));
        }
        if (item % 1000 == 0) {
            ASSERT_EQ(model, itemsOf(list)) << item;
        }
    }
}

// Any step that walked or moved the whole list would make this run for hours.
TEST(Collection, WorksAtBothEndsAndInTheMiddleOfAMillion) {
    constexpr std::int32_t million = 1'000'000;
    Collection<std::int32_t> list;
    for (std::int32_t i = 1; i <= million; ++i) list.Add(i, std::to_string(i));
    for (std::int32_t i = 1; i <= million; ++i) ASSERT_EQ(i, list.Item(i));
    for (std::int32_t i = million; i >= 1; i -= 7) ASSERT_EQ(i, list.Item(std::to_string(i)));

    for (std::int32_t i = 1; i <= 20'000; ++i) {
        list.Add(-i, std::to_string(-i), {.before = "1"});
        list.Add(-i, {}, {.after = "500000"});
        ASSERT_EQ(million, list.Item(list.Count()));
        ASSERT_EQ(-i, list.Item(500'000 + i + 1));
    }
    for (std::int32_t i = 1; i <= 20'000; ++i) list.Remove(1);
    for (std::int32_t i = 20'000; i >= 1; --i) list.Remove(500'000 + i);
    EXPECT_EQ(million, list.Count());
    std::int32_t expected = 0;
    for (const std::int32_t item : list) ASSERT_EQ(++expected, item);
}

TEST(Dictionary, KeepsTheOrderInWhichKeysWereAdded) {
    Dictionary<std::string, int> store;
    store.Add("b", 1);
    store.Add("a", 2);
    store.Item("c", 3);
    store.Item("b", 4);
    store.Remove("a");
    store.Add("a", 5);
    EXPECT_THAT(store.Keys(), ElementsAre("b", "c", "a"));
    EXPECT_EQ(4, store.Item("b"));
    EXPECT_EQ(3, store.Count());
}

TEST(Dictionary, ComparesKeysExactly) {
    Dictionary<std::string, int> store;
    store.Add("%Forename%", 1);
    EXPECT_FALSE(store.Exists("%forename%"));
    EXPECT_EQ(3265, raisedBy([&] { store.Item("%forename%"); }));
    EXPECT_EQ(3265, raisedBy([&] { store.Remove("%forename%"); }));
    EXPECT_EQ(457, raisedBy([&] { store.Add("%Forename%", 2); }));
    EXPECT_EQ(1, store.Item("%Forename%"));
}

TEST(Dictionary, LeavesValuesInPlaceWhileOthersComeAndGo) {
    Dictionary<int, int> store;
    store.Add(-1, 7);
    const int& kept = store.Item(-1);
    for (int key = 0; key < 1000; ++key) store.Add(key, key);
    for (int key = 0; key < 1000; key += 2) store.Remove(key);
    auto moved = std::move(store);
    EXPECT_EQ(&kept, &moved.Item(-1));
    EXPECT_EQ(501, moved.Count());
    EXPECT_EQ(999, moved.Item(999));
    moved.RemoveAll();
    EXPECT_TRUE(moved.begin() == moved.end());
    moved.Add(1, 2);
    EXPECT_EQ(2, moved.Item(1));
}

}  // namespace
}  // namespace ledgerwick
