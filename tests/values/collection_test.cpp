#include "ledgerwick/values/collection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/errors.h"

namespace ledgerwick {
namespace {

using test::raisedBy;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

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
    EXPECT_EQ(5, raisedBy([&] { list.Add(9, "b", {.before = "a", .after = "a"}); }));
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

TEST(Collection, HoldsItemsThatCannotBeCopiedAndLeavesThemInPlace) {
    Collection<std::unique_ptr<int>> list;
    list.Add(std::make_unique<int>(7), "7");
    const auto* first = &list.Item("7");
    for (int i = 0; i < 2000; ++i) list.Add(nullptr, {}, {.before = "7"});
    auto moved = std::move(list);
    EXPECT_EQ(first, moved.Find("7"));
    EXPECT_EQ(first, &moved.Item(2001));
    moved.Clear();
    EXPECT_EQ(0, moved.Count());
    EXPECT_TRUE(moved.begin() == moved.end());
    moved.Add(nullptr, "7");
    EXPECT_EQ(1, moved.Count());
}

// A plain vector that does the same, for comparison.
struct Model {
    std::vector<std::pair<std::string, int>> items;

    auto find(const std::string& key) {
        return std::find_if(items.begin(), items.end(),
                            [&](const auto& item) { return item.first == key; });
    }
    std::vector<int> values() const {
        std::vector<int> result;
        for (const auto& item : items) result.push_back(item.second);
        return result;
    }
};

class RandomEdits {
  public:
    explicit RandomEdits(unsigned seed) : random_(seed) {}

    void add() {
        const std::string key = std::to_string(next_);
        const auto position = static_cast<std::ptrdiff_t>(below(model_.items.size() + 1));
        const auto beside = model_.items.begin() + position;
        const bool before = beside != model_.items.end() && below(2) == 0;
        if (before) {
            const std::string other = beside->first;
            list_.Add(next_, key, {.before = other});
            model_.items.insert(beside, {key, next_});
        } else if (beside != model_.items.end()) {
            const std::string other = beside->first;
            list_.Add(next_, key, {.after = other});
            model_.items.insert(beside + 1, {key, next_});
        } else {
            list_.Add(next_, key);
            model_.items.emplace_back(key, next_);
        }
        ++next_;
    }
    void remove() {
        if (model_.items.empty()) return;
        const std::size_t position = below(model_.items.size());
        const auto item = model_.items.begin() + static_cast<std::ptrdiff_t>(position);
        if (below(2) == 0) {
            list_.Remove(item->first);
        } else {
            list_.Remove(static_cast<std::int32_t>(position) + 1);
        }
        model_.items.erase(item);
    }
    void lookUp() {
        if (model_.items.empty()) return;
        const std::size_t position = below(model_.items.size());
        const auto& [key, value] = model_.items[position];
        ASSERT_EQ(value, list_.Item(static_cast<std::int32_t>(position) + 1));
        ASSERT_EQ(value, list_.Item(key));
    }
    void compareAll() const {
        ASSERT_EQ(static_cast<std::int32_t>(model_.items.size()), list_.Count());
        ASSERT_EQ(model_.values(), itemsOf(list_));
    }
    // A step of a list that tends to grow, or to shrink.
    void step(bool growing) {
        const std::size_t dice = below(10);
        if (dice < (growing ? 5u : 2u)) {
            add();
        } else if (dice < 7) {
            remove();
        } else {
            lookUp();
        }
    }

  private:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }

    std::mt19937 random_;
    int next_ = 1;
    Collection<int> list_;
    Model model_;
};

TEST(Collection, AgreesWithAPlainListThroughManyRandomEdits) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        RandomEdits edits(seed);
        for (int i = 0; i < 2000; ++i) edits.add();
        for (int round = 0; round < 4; ++round) {
            for (int i = 0; i < 2000; ++i) edits.step(round % 2 == 0);
            edits.compareAll();
            if (HasFatalFailure()) FAIL() << "seed " << seed << ", round " << round;
        }
        for (int i = 0; i < 6000; ++i) edits.remove();
        edits.compareAll();
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
    for (std::int32_t i = 1; i <= 20'000; ++i) {
        list.Remove(1);
        list.Remove(500'001 + 20'000 - i);
    }
    EXPECT_EQ(million, list.Count());
    std::int32_t expected = 0;
    for (const std::int32_t item : list) ASSERT_EQ(++expected, item);
}

}  // namespace
}  // namespace ledgerwick
