#include "Data/ClassificationType.h"
#include "Data/HeightReference.h"
#include "Data/HorizontalOrigin.h"
#include "Data/LabelStyle.h"
#include "Data/ShadowMode.h"
#include "Data/VerticalOrigin.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

namespace {

using keo::ClassificationType;
using keo::HeightReference;

template <typename E>
E from(int value) {
    return static_cast<E>(value);
}

TEST(EnumerationsTest, HeightReferenceIsOneByteWithTheSevenKindsInOrder) {
    static_assert(sizeof(HeightReference) == 1);
    static_assert(std::is_same_v<std::underlying_type_t<HeightReference>, std::uint8_t>);
    EXPECT_EQ(static_cast<int>(HeightReference::Absolute), 0);
    EXPECT_EQ(static_cast<int>(HeightReference::ClampToGround), 1);
    EXPECT_EQ(static_cast<int>(HeightReference::RelativeToGround), 2);
    EXPECT_EQ(static_cast<int>(HeightReference::ClampToTerrain), 3);
    EXPECT_EQ(static_cast<int>(HeightReference::RelativeToTerrain), 4);
    EXPECT_EQ(static_cast<int>(HeightReference::ClampTo3DTiles), 5);
    EXPECT_EQ(static_cast<int>(HeightReference::RelativeTo3DTiles), 6);
    EXPECT_TRUE(isValid(from<HeightReference>(6)));
    EXPECT_FALSE(isValid(from<HeightReference>(7)));
}

TEST(EnumerationsTest, ClassificationTypeCodes) {
    EXPECT_EQ(static_cast<int>(ClassificationType::Terrain), 0);
    EXPECT_EQ(static_cast<int>(ClassificationType::Tiles3D), 1);
    EXPECT_EQ(static_cast<int>(ClassificationType::Both), 2);
    EXPECT_TRUE(isValid(ClassificationType::Both));
    EXPECT_FALSE(isValid(from<ClassificationType>(3)));
}

TEST(EnumerationsTest, LabelStyleCodes) {
    EXPECT_EQ(static_cast<int>(keo::LabelStyle::Fill), 0);
    EXPECT_EQ(static_cast<int>(keo::LabelStyle::Outline), 1);
    EXPECT_EQ(static_cast<int>(keo::LabelStyle::FillAndOutline), 2);
    EXPECT_FALSE(isValid(from<keo::LabelStyle>(3)));
}

TEST(EnumerationsTest, OriginsStartAtTheCentre) {
    EXPECT_EQ(static_cast<int>(keo::HorizontalOrigin::Center), 0);
    EXPECT_EQ(static_cast<int>(keo::HorizontalOrigin::Left), 1);
    EXPECT_EQ(static_cast<int>(keo::VerticalOrigin::Center), 0);
    EXPECT_EQ(static_cast<int>(keo::VerticalOrigin::Bottom), 1);
    EXPECT_TRUE(isValid(keo::HorizontalOrigin::Right));
    EXPECT_FALSE(isValid(from<keo::HorizontalOrigin>(3)));
    EXPECT_TRUE(isValid(keo::VerticalOrigin::Top));
    EXPECT_FALSE(isValid(from<keo::VerticalOrigin>(4)));
}

TEST(EnumerationsTest, ShadowModeCodes) {
    EXPECT_EQ(static_cast<int>(keo::ShadowMode::Disabled), 0);
    EXPECT_EQ(static_cast<int>(keo::ShadowMode::Enabled), 1);
    EXPECT_TRUE(isValid(keo::ShadowMode::ReceiveOnly));
    EXPECT_FALSE(isValid(from<keo::ShadowMode>(4)));
}

} // namespace
