#include "ledgerwick/values/dictionary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;
using ::testing::ElementsAre;

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
    EXPECT_EQ(nullptr, store.Find("%forename%"));
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
    const auto moved = std::move(store);
    EXPECT_EQ(&kept, &moved.Item(-1));
    EXPECT_EQ(501, moved.Count());
    EXPECT_EQ(999, moved.Item(999));
}

TEST(Dictionary, CanBeUsedAgainAfterRemoveAll) {
    Dictionary<int, int> store;
    store.Add(1, 1);
    store.RemoveAll();
    EXPECT_EQ(0, store.Count());
    EXPECT_TRUE(store.begin() == store.end());
    store.Add(1, 2);
    EXPECT_EQ(2, store.Item(1));
}

}  // namespace
}  // namespace ledgerwick
