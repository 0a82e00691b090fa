#include "Data/WallDynamicMaterialProperty.h"

#include "Data/FieldList.h"
#include "Data/Image.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using keo::Color;
using keo::FieldList;
using keo::Image;
using keo::TimePoint;
using keo::Vector2;
using keo::WallDynamicMaterialProperty;

TEST(WallDynamicMaterialPropertyTest, DefaultsAreOneTileMovingAlongUAtSixtyPerMinute) {
    const WallDynamicMaterialProperty p;
    EXPECT_EQ(p.getType(), WallDynamicMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
    EXPECT_EQ(p.getRate(), 60.0f);
    EXPECT_EQ(std::get<std::string>(p.getImage()), "");
    EXPECT_EQ(p.getRepeat(), (Vector2<float>{1.0f, 1.0f}));
    EXPECT_EQ(p.getMovementDirection(), (Vector2<float>{1.0f, 0.0f}));
    EXPECT_TRUE(p.isDynamic());
}

TEST(WallDynamicMaterialPropertyTest, OptionsAreReadBackInOrder) {
    auto image = std::make_shared<Image>();
    const WallDynamicMaterialProperty p(
        {Color::RED, 120.0f, image, {10.0f, 0.5f}, {0.0f, 1.0f}, false});
    EXPECT_EQ(p.getColor(), Color::RED);
    EXPECT_EQ(p.getRate(), 120.0f);
    EXPECT_EQ(std::get<std::shared_ptr<Image>>(p.getImage()), image);
    EXPECT_EQ(p.getRepeat(), (Vector2<float>{10.0f, 0.5f}));
    EXPECT_EQ(p.getMovementDirection(), (Vector2<float>{0.0f, 1.0f}));
    EXPECT_FALSE(p.isDynamic());
}

TEST(WallDynamicMaterialPropertyTest, SettersAreReadBack) {
    WallDynamicMaterialProperty p;
    p.setRate(6.0f);
    p.setImage(std::string("flow.png"));
    p.setRepeat({4.0f, 2.0f});
    p.setMovementDirection({-1.0f, 0.0f});
    p.setDynamic(false);
    EXPECT_EQ(p.getRate(), 6.0f);
    EXPECT_EQ(std::get<std::string>(p.getImage()), "flow.png");
    EXPECT_EQ(p.getRepeat(), (Vector2<float>{4.0f, 2.0f}));
    EXPECT_EQ(p.getMovementDirection(), (Vector2<float>{-1.0f, 0.0f}));
    EXPECT_FALSE(p.isDynamic());
}

TEST(WallDynamicMaterialPropertyTest, TextureOffsetFollowsTheUnitDirection) {
    WallDynamicMaterialProperty p;
    p.setMovementDirection({0.0f, 2.0f}); // normalised to (0, 1)
    const Vector2<float> offset = p.getTextureOffset(TimePoint::fromSeconds(1.5));
    EXPECT_FLOAT_EQ(offset.x, 0.0f);
    EXPECT_FLOAT_EQ(offset.y, 0.5f); // 1.5 tiles moved: half a tile past the last whole one
}

TEST(WallDynamicMaterialPropertyTest, TextureOffsetIsZeroWhenStillOrTheDirectionIsUnusable) {
    WallDynamicMaterialProperty p;
    p.setDynamic(false);
    EXPECT_EQ(p.getTextureOffset(TimePoint::fromSeconds(1.5)), (Vector2<float>{0.0f, 0.0f}));
    p.setDynamic(true);
    p.setMovementDirection({0.0f, 0.0f});
    EXPECT_EQ(p.getTextureOffset(TimePoint::fromSeconds(1.5)), (Vector2<float>{0.0f, 0.0f}));
    p.setMovementDirection({std::numeric_limits<float>::quiet_NaN(), 1.0f});
    EXPECT_EQ(p.getTextureOffset(TimePoint::fromSeconds(1.5)), (Vector2<float>{0.0f, 0.0f}));
}

TEST(WallDynamicMaterialPropertyTest, DescribeAddsEveryOwnField) {
    FieldList fields;
    WallDynamicMaterialProperty(
        {Color::RED, 120.0f, std::string("flow.png"), {10.0f, 0.5f}, {0.0f, 1.0f}, false})
        .describe(fields);
    ASSERT_EQ(fields.entries().size(), 8u);
    EXPECT_EQ(fields.entries()[3], (FieldList::Entry{"rate", "120"}));
    EXPECT_EQ(fields.entries()[4], (FieldList::Entry{"image", "\"flow.png\""}));
    EXPECT_EQ(fields.entries()[5], (FieldList::Entry{"repeat", "[10, 0.5]"}));
    EXPECT_EQ(fields.entries()[6], (FieldList::Entry{"movementDirection", "[0, 1]"}));
    EXPECT_EQ(fields.entries()[7], (FieldList::Entry{"dynamic", "false"}));
}

} // namespace
