#include "Data/PolylineDynamicMaterialProperty.h"

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
using keo::PolylineDynamicMaterialProperty;
using keo::TimePoint;

TEST(PolylineDynamicMaterialPropertyTest, DefaultsAreNoImageFiftyPixelsAtSixtyPerMinute) {
    const PolylineDynamicMaterialProperty p;
    EXPECT_EQ(p.getType(), PolylineDynamicMaterialProperty::TYPE);
    EXPECT_EQ(p.getRate(), 60.0f);
    EXPECT_EQ(std::get<std::string>(p.getImage()), "");
    EXPECT_EQ(p.getTextureSize(), 50.0f);
    EXPECT_EQ(p.getColor(), Color::WHITE);
}

TEST(PolylineDynamicMaterialPropertyTest, OptionsAreReadBackInOrder) {
    auto image = std::make_shared<Image>();
    const PolylineDynamicMaterialProperty p({30.0f, image, 25.0f, Color::BLUE});
    EXPECT_EQ(p.getRate(), 30.0f);
    EXPECT_EQ(std::get<std::shared_ptr<Image>>(p.getImage()), image);
    EXPECT_EQ(p.getTextureSize(), 25.0f);
    EXPECT_EQ(p.getColor(), Color::BLUE);
}

TEST(PolylineDynamicMaterialPropertyTest, SettersAreReadBack) {
    PolylineDynamicMaterialProperty p;
    p.setRate(-15.0f);
    p.setImage(std::string("arrow.png"));
    p.setTextureSize(10.0f);
    EXPECT_EQ(p.getRate(), -15.0f);
    EXPECT_EQ(std::get<std::string>(p.getImage()), "arrow.png");
    EXPECT_EQ(p.getTextureSize(), 10.0f);
}

TEST(PolylineDynamicMaterialPropertyTest, TextureOffsetMovesRateOverSixtyImagesPerSecond) {
    PolylineDynamicMaterialProperty p; // 60 per minute: one image length per second
    EXPECT_DOUBLE_EQ(p.getTextureOffset(TimePoint::fromSeconds(2.25)), 0.25);
    p.setRate(-30.0f); // half an image per second, backwards: -0.5 s → 0.75
    EXPECT_DOUBLE_EQ(p.getTextureOffset(TimePoint::fromSeconds(0.5)), 0.75);
    p.setRate(std::numeric_limits<float>::infinity());
    EXPECT_EQ(p.getTextureOffset(TimePoint::fromSeconds(0.5)), 0.0);
}

TEST(PolylineDynamicMaterialPropertyTest, DescribeAddsRateImageAndTextureSize) {
    FieldList fields;
    PolylineDynamicMaterialProperty({30.0f, std::string("arrow.png"), 25.0f, Color::BLUE})
        .describe(fields);
    ASSERT_EQ(fields.entries().size(), 6u);
    EXPECT_EQ(fields.entries()[3], (FieldList::Entry{"rate", "30"}));
    EXPECT_EQ(fields.entries()[4], (FieldList::Entry{"image", "\"arrow.png\""}));
    EXPECT_EQ(fields.entries()[5], (FieldList::Entry{"textureSize", "25"}));
}

} // namespace
