#include "Common/Uuid.h"

#include <gtest/gtest.h>

#include <regex>
#include <thread>
#include <unordered_set>
#include <vector>

namespace {

using keo::Uuid;

TEST(UuidTest, AMillionDrawsNeverRepeatAndCarryVersionAndVariant) {
    constexpr std::size_t DRAWS = 1000000;
    std::unordered_set<Uuid> seen;
    seen.reserve(DRAWS);
    for (std::size_t i = 0; i < DRAWS; ++i) {
        const Uuid u = keo::uuid4();
        ASSERT_EQ(u.version(), 4u);
        ASSERT_EQ(u.variant(), 2u);
        ASSERT_TRUE(seen.insert(u).second) << "repeat after " << i << " draws";
    }
    EXPECT_EQ(seen.size(), DRAWS);
}

TEST(UuidTest, DrawsFromManyThreadsNeverRepeat) {
    constexpr int THREADS = 4;
    constexpr int PER_THREAD = 50000;
    std::vector<std::vector<Uuid>> draws(THREADS);
    std::vector<std::thread> threads;
    for (int t = 0; t < THREADS; ++t) {
        threads.emplace_back([&draws, t] {
            for (int i = 0; i < PER_THREAD; ++i) {
                draws[static_cast<std::size_t>(t)].push_back(keo::uuid4());
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    std::unordered_set<Uuid> all;
    for (const auto& list : draws) {
        all.insert(list.begin(), list.end());
    }
    EXPECT_EQ(all.size(), static_cast<std::size_t>(THREADS * PER_THREAD));
}

TEST(UuidTest, RandomBitsAreBalanced) {
    // Each of the 122 random bits is set in about half of 20,000 draws (binomial sd ~71).
    constexpr int DRAWS = 20000;
    std::vector<int> ones(128, 0);
    for (int i = 0; i < DRAWS; ++i) {
        const Uuid u = keo::uuid4();
        for (int bit = 0; bit < 64; ++bit) {
            ones[static_cast<std::size_t>(bit)] += static_cast<int>((u.high >> bit) & 1u);
            ones[static_cast<std::size_t>(64 + bit)] += static_cast<int>((u.low >> bit) & 1u);
        }
    }
    for (int bit = 0; bit < 128; ++bit) {
        const bool fixed = (bit >= 12 && bit <= 15) || bit >= 126;
        if (!fixed) {
            EXPECT_NEAR(ones[static_cast<std::size_t>(bit)], DRAWS / 2, 500) << bit;
        }
    }
}

TEST(UuidTest, CanonicalTextIsLowerCase8_4_4_4_12) {
    const Uuid u{0x0123456789ABCDEFULL, 0xFEDCBA9876543210ULL};
    EXPECT_EQ(u.toString(), "01234567-89ab-cdef-fedc-ba9876543210");
    const std::regex canonical(
        "^[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$");
    for (int i = 0; i < 100; ++i) {
        EXPECT_TRUE(std::regex_match(keo::uuid4().toString(), canonical));
    }
}

TEST(UuidTest, ParsesCanonicalTextInEitherCase) {
    const Uuid u = keo::uuid4();
    EXPECT_EQ(Uuid::fromString(u.toString()), u);
    EXPECT_EQ(Uuid::fromString("01234567-89AB-CDEF-FEDC-BA9876543210"),
              (Uuid{0x0123456789ABCDEFULL, 0xFEDCBA9876543210ULL}));
}

TEST(UuidTest, RejectsMalformedText) {
    for (const char* text :
         {"", "01234567-89ab-cdef-fedc-ba987654321", "01234567-89ab-cdef-fedc-ba98765432100",
          "0123456789ab-cdef-fedc-ba98-76543210", "01234567-89ab-cdef-fedc-ba987654321g",
          "{1234567-89ab-cdef-fedc-ba9876543210"}) {
        EXPECT_FALSE(Uuid::fromString(text).has_value()) << text;
    }
}

TEST(UuidTest, OrderingFollowsTheText) {
    const Uuid a{1, 5};
    const Uuid b{1, 6};
    const Uuid c{2, 0};
    EXPECT_LT(a, b);
    EXPECT_LT(b, c);
    EXPECT_FALSE(c < a);
    EXPECT_LT(a.toString(), c.toString());
}

} // namespace
