// The dense storage behind the hash index: entries appended across block boundaries keep their
// values and addresses, and clearing or destroying the entries destroys exactly what was made.

#include "BlockArray.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace {

using keo::detail::BlockArray;

// Counts the entries alive, to check that each one made is destroyed once.
struct Counted {
    static int alive;
    Counted() { ++alive; }
    ~Counted() { --alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    std::size_t value = 0;
};
int Counted::alive = 0;

TEST(BlockArrayTest, EntriesAppendedAcrossBlocksKeepTheirValuesAndAddresses) {
    BlockArray<std::size_t> array;
    std::vector<const std::size_t*> addresses;
    for (std::size_t n = 0; n < 5000; ++n) {
        std::size_t& entry = array.emplaceBack();
        EXPECT_EQ(entry, 0u); // default-made
        entry = n * 3;
        addresses.push_back(&entry);
    }
    ASSERT_EQ(array.size(), 5000u);
    for (std::size_t n = 0; n < 5000; ++n) {
        ASSERT_EQ(array[n], n * 3) << n;
        EXPECT_EQ(&array[n], addresses[n]) << n; // growing moved nothing
    }
    const BlockArray<std::size_t>& constant = array;
    EXPECT_EQ(constant[4999], 4999u * 3);
}

TEST(BlockArrayTest, PoppingTheLastEntryDestroysOnlyItAndTheNextAppendReusesItsPlace) {
    BlockArray<Counted> array;
    for (std::size_t n = 0; n < 17; ++n) { // the 17th entry opens the second block
        array.emplaceBack().value = n;
    }
    EXPECT_EQ(array.back().value, 16u);
    const Counted* last = &array.back();
    array.popBack();
    EXPECT_EQ(Counted::alive, 16);
    EXPECT_EQ(array.size(), 16u);
    EXPECT_EQ(array.back().value, 15u);
    Counted& again = array.emplaceBack();
    EXPECT_EQ(&again, last);    // its block was kept
    EXPECT_EQ(again.value, 0u); // made anew
    EXPECT_EQ(Counted::alive, 17);
    array.clear();
    EXPECT_EQ(Counted::alive, 0);
}

TEST(BlockArrayTest, ClearingDestroysEveryEntryOnceAndTheArrayFillsAgain) {
    {
        BlockArray<Counted> array;
        for (std::size_t n = 0; n < 1000; ++n) {
            array.emplaceBack().value = n;
        }
        EXPECT_EQ(Counted::alive, 1000);
        array.clear();
        EXPECT_EQ(Counted::alive, 0);
        EXPECT_EQ(array.size(), 0u);
        for (std::size_t n = 0; n < 100; ++n) {
            array.emplaceBack().value = n;
        }
        EXPECT_EQ(array[99].value, 99u);
        EXPECT_EQ(Counted::alive, 100);
    }
    EXPECT_EQ(Counted::alive, 0); // the destructor destroyed the rest
}

TEST(BlockArrayTest, DestroyingTheEntriesKeepsTheBlocksForTheNextOnes) {
    BlockArray<Counted> array;
    for (std::size_t n = 0; n < 100; ++n) {
        array.emplaceBack().value = n;
    }
    const Counted* seventieth = &array[70];
    array.destroyEntries();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ(array.size(), 0u);
    for (std::size_t n = 0; n < 100; ++n) {
        array.emplaceBack().value = n + 1000;
    }
    EXPECT_EQ(&array[70], seventieth); // the same block holds entry 70 again
    EXPECT_EQ(array[70].value, 1070u);
}

} // namespace
