// The flat hash index of collections and groups: look-up, insertion, erasure (with the slots
// after an erased one shifted back and its entry left vacant for reuse), growth and clearing,
// keys whose hashes agree in their high bits, checked against std::unordered_map.

#include "FlatIdMap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using keo::detail::FlatIdMap;

// The value under @p key, which the test expects to be held: a missing one fails the test and
// reads as a default value.
template <typename V>
V valueOf(const FlatIdMap<V>& map, std::uint64_t key) {
    const V* value = map.find(key);
    EXPECT_NE(value, nullptr) << key;
    return value != nullptr ? *value : V{};
}

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
    EXPECT_EQ(valueOf(map, 0), 1);
    EXPECT_EQ(valueOf(map, std::numeric_limits<std::uint64_t>::max()), 2);
    EXPECT_TRUE(map.erase(0));
    EXPECT_FALSE(map.contains(0));
    EXPECT_EQ(valueOf(map, std::numeric_limits<std::uint64_t>::max()), 2);
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

// Keys whose hashes are 0, 1, 2, ...: their high bits, which pick the home slot and form the
// check each slot keeps, are all alike, so every key lands in one long probe run and only the
// stored key tells them apart.
std::vector<std::uint64_t> keysWithAlikeHashes(std::size_t count) {
    // The multiplier is odd, so it has an inverse modulo 2^64 (Newton's iteration doubles the
    // number of correct low bits at each step: 5 steps from 3 bits reach 64).
    const std::uint64_t multiplier = FlatIdMap<int>::HASH_MULTIPLIER;
    std::uint64_t inverse = multiplier;
    for (int step = 0; step < 5; ++step) {
        inverse *= 2 - multiplier * inverse;
    }
    std::vector<std::uint64_t> keys;
    for (std::uint64_t n = 0; n < count; ++n) {
        keys.push_back(n * inverse);
    }
    return keys;
}

TEST(FlatIdMapTest, KeysWhoseHashesAgreeInTheirHighBitsAreToldApart) {
    const std::vector<std::uint64_t> keys = keysWithAlikeHashes(600);
    ASSERT_EQ(keys[1] * FlatIdMap<int>::HASH_MULTIPLIER, 1u);
    FlatIdMap<std::string> map;
    std::unordered_map<std::uint64_t, std::string> model;
    for (const std::uint64_t key : keys) {
        const auto made = map.tryEmplace(key);
        ASSERT_TRUE(made.second);
        *made.first = std::to_string(key);
        model[key] = std::to_string(key);
    }
    expectSameContent(map, model);
    // Erasing from the middle of the run shifts the later keys back; each stays reachable.
    for (std::size_t n = 0; n < keys.size(); n += 3) {
        EXPECT_TRUE(map.erase(keys[n]));
        model.erase(keys[n]);
    }
    expectSameContent(map, model);
    EXPECT_FALSE(map.tryEmplace(keys[1]).second);
    EXPECT_TRUE(map.tryEmplace(keys[0]).second);
}

TEST(FlatIdMapTest, ErasedEntriesAreReusedAndOtherValuesStayWhereTheyAre) {
    FlatIdMap<std::string> map;
    for (std::uint64_t key = 100; key < 140; ++key) {
        *map.tryEmplace(key).first = "v" + std::to_string(key);
    }
    const std::string* kept = map.find(139);
    EXPECT_TRUE(map.erase(100));
    EXPECT_TRUE(map.erase(120));
    EXPECT_EQ(map.find(139), kept); // erasing moved no other value
    // New keys take the vacant entries, with fresh values.
    const auto first = map.tryEmplace(500);
    const auto second = map.tryEmplace(501);
    ASSERT_TRUE(first.second);
    ASSERT_TRUE(second.second);
    EXPECT_EQ(*first.first, "");
    EXPECT_EQ(*second.first, "");
    *first.first = "v500";
    EXPECT_EQ(map.find(139), kept);
    EXPECT_EQ(map.size(), 40u);
    for (std::uint64_t key = 101; key < 140; ++key) {
        if (key != 120) {
            ASSERT_NE(map.find(key), nullptr) << key;
            EXPECT_EQ(valueOf(map, key), "v" + std::to_string(key));
        }
    }
    EXPECT_EQ(valueOf(map, 500), "v500");
    EXPECT_FALSE(map.contains(100));
    EXPECT_FALSE(map.contains(120));
}

TEST(FlatIdMapTest, AValueErasedIsReleasedAtOnce) {
    FlatIdMap<std::shared_ptr<int>> map;
    const auto value = std::make_shared<int>(3);
    *map.tryEmplace(1).first = value;
    *map.tryEmplace(2).first = value;
    EXPECT_EQ(value.use_count(), 3);
    EXPECT_TRUE(map.erase(1));
    EXPECT_EQ(value.use_count(), 2);
    EXPECT_TRUE(map.erase(2)); // the last one: the map empties
    EXPECT_EQ(value.use_count(), 1);
}

TEST(FlatIdMapTest, ErasingMostEntriesAndFillingThemAgainKeepsEveryValue) {
    // 20,000 entries span ten blocks of entries; erasing all but ten leaves vacant entries that
    // the insertions afterwards fill again.
    FlatIdMap<std::uint64_t> map;
    std::mt19937_64 random(11);
    std::vector<std::uint64_t> keys(20000);
    for (auto& key : keys) {
        key = random();
        *map.tryEmplace(key).first = key ^ 0x5555U;
    }
    for (std::size_t n = 10; n < keys.size(); ++n) {
        ASSERT_TRUE(map.erase(keys[n]));
    }
    EXPECT_EQ(map.size(), 10u);
    for (std::size_t n = 0; n < 10; ++n) {
        ASSERT_NE(map.find(keys[n]), nullptr);
        EXPECT_EQ(valueOf(map, keys[n]), keys[n] ^ 0x5555U);
    }
    for (std::size_t n = 10; n < keys.size(); ++n) {
        ASSERT_TRUE(map.tryEmplace(keys[n]).second);
    }
    EXPECT_EQ(map.size(), keys.size());
    std::size_t visited = 0;
    map.forEach([&visited](std::uint64_t, std::uint64_t&) { ++visited; });
    EXPECT_EQ(visited, keys.size());
}

TEST(FlatIdMapTest, NewKeysWhoseSlotsWaitAreFoundAndNotMadeTwice) {
    // New keys are added without a look-up and their slots written in groups later; every
    // operation in between must still see them.
    FlatIdMap<std::uint64_t> map;
    std::mt19937_64 random(5);
    std::vector<std::uint64_t> keys;
    for (int n = 0; n < 1000; ++n) {
        const std::uint64_t key = random();
        const auto made = map.tryEmplace(key);
        ASSERT_TRUE(made.second);
        *made.first = key + 1;
        keys.push_back(key);
        const auto again = map.tryEmplace(key); // its slot may still wait
        ASSERT_FALSE(again.second);
        EXPECT_EQ(*again.first, key + 1);
        if (n % 7 == 0) {
            for (const std::uint64_t held : keys) {
                ASSERT_TRUE(map.contains(held)) << n;
            }
        }
    }
    EXPECT_EQ(map.size(), keys.size());
    std::size_t visited = 0;
    map.forEach([&](std::uint64_t key, std::uint64_t& value) {
        EXPECT_EQ(value, key + 1);
        ++visited;
    });
    EXPECT_EQ(visited, keys.size());
}

TEST(FlatIdMapTest, KeysErasedInGreatNumbersAreMadeAgainAsNew) {
    // Erased keys leave their bits in the filter until it is set anew; either way they are
    // absent and can be made again.
    FlatIdMap<int> map;
    std::vector<std::uint64_t> keys;
    for (std::uint64_t key = 1; key <= 4000; ++key) {
        keys.push_back(key * 0x10001U);
        *map.tryEmplace(keys.back()).first = 1;
    }
    for (std::size_t n = 0; n < 3900; ++n) {
        ASSERT_TRUE(map.erase(keys[n]));
        EXPECT_FALSE(map.contains(keys[n]));
    }
    for (std::size_t n = 0; n < 3900; n += 3) {
        EXPECT_TRUE(map.tryEmplace(keys[n]).second) << n;
    }
    for (std::size_t n = 3900; n < keys.size(); ++n) {
        EXPECT_FALSE(map.tryEmplace(keys[n]).second) << n;
    }
    EXPECT_EQ(map.size(), 1300u + 100u);
}

TEST(FlatIdMapTest, PrefetchChangesNothing) {
    FlatIdMap<int> map;
    map.prefetch(1); // an empty map has no index yet
    *map.tryEmplace(1).first = 5;
    map.prefetch(1);
    map.prefetch(2);
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(valueOf(map, 1), 5);
    EXPECT_FALSE(map.contains(2));
}

} // namespace
