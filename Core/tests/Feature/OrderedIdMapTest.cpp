// The id-keyed list of collections: insertion order, look-up and erasure by id, values appended
// unindexed and found later, taking the values out, and reusing the nodes handed back.

#include "OrderedIdMap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <list>
#include <memory>
#include <random>
#include <vector>

namespace {

using keo::Feature::detail::OrderedIdMap;

struct Item {
    explicit Item(std::uint64_t itemId)
        : id(itemId) {}
    std::uint64_t getId() const { return id; }
    std::uint64_t id;
};

using Map = OrderedIdMap<std::shared_ptr<Item>, int>;

std::vector<std::uint64_t> idsOf(const Map::ValueList& values) {
    std::vector<std::uint64_t> ids;
    for (const auto& value : values) {
        ids.push_back(value->getId());
    }
    return ids;
}

TEST(OrderedIdMapTest, ValuesKeepTheOrderOfInsertionAndAreFoundById) {
    Map map;
    for (const std::uint64_t id : {30u, 10u, 20u}) {
        int* extra = map.insert(std::make_shared<Item>(id));
        ASSERT_NE(extra, nullptr);
        *extra = static_cast<int>(id) + 1;
    }
    EXPECT_EQ(idsOf(map.values()), (std::vector<std::uint64_t>{30, 10, 20}));
    ASSERT_NE(map.find(10), nullptr);
    EXPECT_EQ(map.find(10)->getId(), 10u);
    EXPECT_EQ(map.find(11), nullptr);
    ASSERT_NE(map.findExtra(20), nullptr);
    EXPECT_EQ(*map.findExtra(20), 21);
}

TEST(OrderedIdMapTest, InsertingAnIdHeldAlreadyChangesNothingAndReleasesTheValue) {
    Map map;
    const auto first = std::make_shared<Item>(7);
    map.insert(first);
    const auto other = std::make_shared<Item>(7);
    EXPECT_EQ(map.insert(other), nullptr);
    EXPECT_EQ(other.use_count(), 1); // the map kept no reference to the refused value
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(map.find(7), first);
    EXPECT_EQ(idsOf(map.values()), (std::vector<std::uint64_t>{7}));
}

TEST(OrderedIdMapTest, ExtractTakesTheValueAndItsExtraOut) {
    Map map;
    *map.insert(std::make_shared<Item>(1)) = 100;
    *map.insert(std::make_shared<Item>(2)) = 200;
    int extra = 0;
    const auto taken = map.extract(1, &extra);
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(taken->getId(), 1u);
    EXPECT_EQ(extra, 100);
    EXPECT_FALSE(map.contains(1));
    EXPECT_EQ(map.extract(1), nullptr);
    EXPECT_FALSE(map.erase(1));
    EXPECT_TRUE(map.erase(2));
    EXPECT_TRUE(map.empty());
}

TEST(OrderedIdMapTest, ValuesAppendedUnindexedAreFoundErasedAndVisited) {
    Map map;
    map.insert(std::make_shared<Item>(1));
    map.appendUnindexed(std::make_shared<Item>(2));
    map.appendUnindexed(std::make_shared<Item>(3));
    EXPECT_EQ(idsOf(map.values()), (std::vector<std::uint64_t>{1, 2, 3}));
    EXPECT_TRUE(map.contains(3)); // the index catches up here
    EXPECT_EQ(*map.findExtra(2), 0);
    map.appendUnindexed(std::make_shared<Item>(4));
    EXPECT_TRUE(map.erase(4));
    EXPECT_TRUE(map.erase(2));
    EXPECT_EQ(map.insert(std::make_shared<Item>(3)), nullptr);
    EXPECT_NE(map.insert(std::make_shared<Item>(5)), nullptr);
    EXPECT_EQ(idsOf(map.values()), (std::vector<std::uint64_t>{1, 3, 5}));
    std::vector<std::uint64_t> visited;
    map.forEachExtra([&visited](const std::shared_ptr<Item>& value, int&) {
        visited.push_back(value->getId());
    });
    EXPECT_EQ(visited.size(), 3u);
}

TEST(OrderedIdMapTest, TheLastValueAppendedUnindexedCanBeTakenBack) {
    Map map;
    map.appendUnindexed(std::make_shared<Item>(1));
    const auto item = std::make_shared<Item>(2);
    map.appendUnindexed(item);
    map.dropLastUnindexed();
    EXPECT_EQ(item.use_count(), 1);
    EXPECT_EQ(idsOf(map.values()), (std::vector<std::uint64_t>{1}));
    EXPECT_FALSE(map.contains(2));
    EXPECT_TRUE(map.contains(1));
}

TEST(OrderedIdMapTest, TakeValuesEmptiesTheMapIndexAndUnindexedValuesAlike) {
    Map map;
    map.insert(std::make_shared<Item>(1));
    map.appendUnindexed(std::make_shared<Item>(2));
    const Map::ValueList taken = map.takeValues();
    EXPECT_EQ(idsOf(taken), (std::vector<std::uint64_t>{1, 2}));
    EXPECT_TRUE(map.empty());
    EXPECT_FALSE(map.contains(1));
    EXPECT_FALSE(map.contains(2));
    map.appendUnindexed(std::make_shared<Item>(2));
    EXPECT_TRUE(map.contains(2));
    EXPECT_EQ(map.size(), 1u);
}

TEST(OrderedIdMapTest, RecycledNodesAreReusedWithTheirOldValuesReleased) {
    Map map;
    const auto item = std::make_shared<Item>(1);
    map.insert(item);
    map.insert(std::make_shared<Item>(2));
    Map::ValueList taken = map.takeValues();
    map.recycle(taken, 1);
    EXPECT_TRUE(taken.empty());
    EXPECT_EQ(item.use_count(), 1); // the node kept holds no value
    map.insert(std::make_shared<Item>(3));
    map.appendUnindexed(std::make_shared<Item>(4));
    EXPECT_EQ(idsOf(map.values()), (std::vector<std::uint64_t>{3, 4}));
    EXPECT_TRUE(map.contains(4));
}

TEST(OrderedIdMapTest, RandomMixOfInsertionsAppendsAndErasuresMatchesAListModel) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        std::mt19937 random(seed);
        Map map;
        std::list<std::uint64_t> model;
        for (int step = 0; step < 2000; ++step) {
            const std::uint64_t id = random() % 200;
            const bool held = std::find(model.begin(), model.end(), id) != model.end();
            switch (random() % 4) {
            case 0:
                EXPECT_EQ(map.insert(std::make_shared<Item>(id)) != nullptr, !held);
                if (!held) {
                    model.push_back(id);
                }
                break;
            case 1:
                if (!held) {
                    map.appendUnindexed(std::make_shared<Item>(id));
                    model.push_back(id);
                }
                break;
            case 2:
                EXPECT_EQ(map.erase(id), held);
                model.remove(id);
                break;
            default:
                EXPECT_EQ(map.contains(id), held);
                break;
            }
        }
        EXPECT_EQ(idsOf(map.values()), std::vector<std::uint64_t>(model.begin(), model.end()));
    }
}

} // namespace
