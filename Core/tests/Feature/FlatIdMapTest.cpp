// The flat hash index of collections and groups: look-up, insertion, erasure (with the entries
// after an erased one shifted back), growth and clearing, checked against std::unordered_map.

#include "Feature/FlatIdMap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using keo::Feature::detail::FlatIdMap;

// Every entry of @p model is found in @p map with its value, and the sizes agree.
void expectSameContent(FlatIdMap<std::string>& map,
                       const std::unordered_map<std::uint64_t, std::string>& model) {
    ASSERT_EQ(map.size(), model.size());
    EXPECT_EQ(map.empty(), model.empty());
    for (const auto& entry : model) {
        const std::string* value = map.find(entry.first);
        ASSERT_NE(value, nullptr) << entry.first;
        EXPECT_EQ(*value, entry.second);
    }
    std::size_t visited = 0;
    map.forEach([&](std::uint64_t key, const std::string& value) {
        ++visited;
        const auto found = model.find(key);
        ASSERT_NE(found, model.end()) << key;
        EXPECT_EQ(value, found->second);
    });
    EXPECT_EQ(visited, model.size());
}

TEST(FlatIdMapTest, AnEmptyMapFindsNothing) {
    FlatIdMap<int> map;
    EXPECT_TRUE(map.empty());
    EXPECT_EQ(map.find(0), nullptr);
    EXPECT_FALSE(map.contains(42));
    EXPECT_FALSE(map.erase(42));
    int out = 7;
    EXPECT_FALSE(map.take(42, out));
    EXPECT_EQ(out, 7);
}

TEST(FlatIdMapTest, TryEmplaceMakesAValueOnceAndFindsItAgain) {
    FlatIdMap<int> map;
    const auto made = map.tryEmplace(5);
    ASSERT_TRUE(made.second);
    EXPECT_EQ(*made.first, 0);
    *made.first = 50;
    const auto again = map.tryEmplace(5);
    EXPECT_FALSE(again.second);
    EXPECT_EQ(*again.first, 50);
    EXPECT_EQ(map.size(), 1u);
}

TEST(FlatIdMapTest, KeyZeroAndTheLargestKeyAreOrdinaryKeys) {
    FlatIdMap<int> map;
    *map.tryEmplace(0).first = 1;
    *map.tryEmplace(std::numeric_limits<std::uint64_t>::max()).first = 2;
    EXPECT_EQ(*map.find(0), 1);
    EXPECT_EQ(*map.find(std::numeric_limits<std::uint64_t>::max()), 2);
    EXPECT_TRUE(map.erase(0));
    EXPECT_FALSE(map.contains(0));
    EXPECT_EQ(*map.find(std::numeric_limits<std::uint64_t>::max()), 2);
}

TEST(FlatIdMapTest, TakeMovesTheValueOutAndErasesIt) {
    FlatIdMap<std::string> map;
    *map.tryEmplace(9).first = "nine";
    std::string out;
    EXPECT_TRUE(map.take(9, out));
    EXPECT_EQ(out, "nine");
    EXPECT_FALSE(map.contains(9));
    EXPECT_TRUE(map.empty());
}

TEST(FlatIdMapTest, RandomInsertionsAndErasuresMatchAStandardMap) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937_64 random(seed);
        // Few distinct keys, so that erasures hit held keys often and probe runs get long.
        std::uniform_int_distribution<std::uint64_t> keys(0, 300);
        FlatIdMap<std::string> map;
        std::unordered_map<std::uint64_t, std::string> model;
        for (int step = 0; step < 3000; ++step) {
            const std::uint64_t key = keys(random) * (seed % 2 == 0 ? 1 : 4096);
            if (random() % 3 == 0) {
                EXPECT_EQ(map.erase(key), model.erase(key) == 1);
            } else {
                const auto made = map.tryEmplace(key);
                const bool fresh = model.find(key) == model.end();
                EXPECT_EQ(made.second, fresh);
                *made.first = std::to_string(step);
                model[key] = std::to_string(step);
            }
        }
        expectSameContent(map, model);
    }
}

TEST(FlatIdMapTest, ManyConsecutiveKeysSurviveGrowthAndErasureOfEveryOther) {
    FlatIdMap<std::string> map;
    std::unordered_map<std::uint64_t, std::string> model;
    for (std::uint64_t key = 1; key <= 5000; ++key) {
        *map.tryEmplace(key).first = std::to_string(key);
        model[key] = std::to_string(key);
    }
    for (std::uint64_t key = 2; key <= 5000; key += 2) {
        EXPECT_TRUE(map.erase(key));
        model.erase(key);
    }
    expectSameContent(map, model);
}

TEST(FlatIdMapTest, ClearEmptiesSmallAndLargeMapsWhichStayUsable) {
    for (const std::uint64_t count : {std::uint64_t{10}, std::uint64_t{5000}}) {
        FlatIdMap<int> map;
        for (std::uint64_t key = 0; key < count; ++key) {
            *map.tryEmplace(key).first = 1;
        }
        map.clear();
        EXPECT_TRUE(map.empty());
        EXPECT_FALSE(map.contains(0));
        EXPECT_FALSE(map.contains(count - 1));
        EXPECT_TRUE(map.tryEmplace(3).second);
        EXPECT_EQ(map.size(), 1u);
    }
}

} // namespace
