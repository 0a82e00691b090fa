// The program's heap count: blocks are counted at the size the allocator gave them, and a pause
// leaves out what is made and freed under it while readings after it still differ by what the
// code between them kept.

#include "MemoryUse.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <memory>

namespace {

using keo::scene::currentMemoryUse;
using keo::scene::HeapCountPause;
using Block = std::array<char, 4096>;

TEST(MemoryUseTest, ABlockKeptIsCountedAtLeastAtItsSizeUntilItIsFreed) {
    const std::size_t before = currentMemoryUse().heap;
    auto block = std::make_unique<Block>();
    const std::size_t during = currentMemoryUse().heap;
    EXPECT_GE(during - before, sizeof(Block));
    block.reset();
    EXPECT_EQ(currentMemoryUse().heap, before);
}

TEST(MemoryUseTest, APauseLeavesOutWhatIsMadeAndFreedUnderItAndCountingResumesAfter) {
    auto madeBefore = std::make_unique<Block>();
    const std::size_t before = currentMemoryUse().heap;
    {
        const HeapCountPause pause;
        auto madeUnder = std::make_unique<std::array<char, 8192>>();
        madeUnder.reset();
        madeBefore.reset(); // made while counting, freed under the pause: still in the reading
        EXPECT_EQ(currentMemoryUse().heap, before);
    }
    EXPECT_EQ(currentMemoryUse().heap, before);
    auto madeAfter = std::make_unique<Block>();
    EXPECT_GE(currentMemoryUse().heap - before, sizeof(Block)); // counted again
    madeAfter.reset();
    EXPECT_EQ(currentMemoryUse().heap, before);
}

TEST(MemoryUseTest, PausesNestAndCountingResumesWhenTheLastOneEnds) {
    const std::size_t before = currentMemoryUse().heap;
    std::unique_ptr<Block> madeUnderOuter;
    {
        const HeapCountPause outer;
        { const HeapCountPause inner; }
        madeUnderOuter = std::make_unique<Block>(); // still paused
        EXPECT_EQ(currentMemoryUse().heap, before);
    }
    auto madeAfter = std::make_unique<Block>();
    EXPECT_GE(currentMemoryUse().heap - before, sizeof(Block));
}

} // namespace
