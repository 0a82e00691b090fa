#include "Data/ParticleBurst.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::ParticleBurst;

TEST(ParticleBurstTest, DefaultIsFiftyParticlesAtTheStart) {
    constexpr ParticleBurst burst;
    EXPECT_EQ(burst.getTime(), 0.0f);
    EXPECT_EQ(burst.getMinimum(), 50.0f);
    EXPECT_EQ(burst.getMaximum(), 50.0f);
}

TEST(ParticleBurstTest, MembersReadBackInDeclaredOrder) {
    constexpr ParticleBurst burst(2.5f, 10.0f, 30.0f);
    EXPECT_EQ(burst.getTime(), 2.5f);
    EXPECT_EQ(burst.getMinimum(), 10.0f);
    EXPECT_EQ(burst.getMaximum(), 30.0f);
}

TEST(ParticleBurstTest, EqualityComparesEveryMemberExactly) {
    EXPECT_EQ(ParticleBurst(1.0f, 2.0f, 3.0f), ParticleBurst(1.0f, 2.0f, 3.0f));
    EXPECT_NE(ParticleBurst(1.0f, 2.0f, 3.0f), ParticleBurst(1.0f, 2.0f, 4.0f));
    EXPECT_NE(ParticleBurst(0.0f, 2.0f, 3.0f), ParticleBurst(1.0f, 2.0f, 3.0f));
    const ParticleBurst withNan(std::numeric_limits<float>::quiet_NaN(), 1.0f, 1.0f);
    EXPECT_NE(withNan, withNan);
}

} // namespace
