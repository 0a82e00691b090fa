#include "Data/PointGraphics.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::Color;
using keo::PointGraphics;

TEST(PointGraphicsTest, DefaultsAreOneWhitePixelWithoutOutline) {
    const PointGraphics graphics;
    EXPECT_EQ(graphics.getPixelSize(), 1.0f);
    EXPECT_EQ(graphics.getColor(), Color::WHITE);
    EXPECT_EQ(graphics.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(graphics.getOutlineWidth(), 0.0f);
}

TEST(PointGraphicsTest, FieldsReadBackAsSet) {
    PointGraphics graphics;
    graphics.setPixelSize(8.0f);
    graphics.setColor(Color::YELLOW);
    graphics.setOutlineColor(Color::RED);
    graphics.setOutlineWidth(2.0f);
    EXPECT_EQ(graphics.getPixelSize(), 8.0f);
    EXPECT_EQ(graphics.getColor(), Color::YELLOW);
    EXPECT_EQ(graphics.getOutlineColor(), Color::RED);
    EXPECT_EQ(graphics.getOutlineWidth(), 2.0f);
}

TEST(PointGraphicsTest, OptionsAreTakenAsGiven) {
    PointGraphics::ConstructorOptions options;
    options.pixelSize = 5.0f;
    options.color = Color::GREEN;
    const PointGraphics graphics(options);
    EXPECT_EQ(graphics.getPixelSize(), 5.0f);
    EXPECT_EQ(graphics.getColor(), Color::GREEN);
}

TEST(PointGraphicsTest, NanSizeIsIgnoredAndNegativeSizeBecomesZero) {
    PointGraphics graphics;
    graphics.setPixelSize(4.0f);
    graphics.setPixelSize(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(graphics.getPixelSize(), 4.0f);
    graphics.setPixelSize(-4.0f);
    graphics.setOutlineWidth(-1.0f);
    EXPECT_EQ(graphics.getPixelSize(), 0.0f);
    EXPECT_EQ(graphics.getOutlineWidth(), 0.0f);
}

TEST(PointGraphicsTest, DescribeWritesThePointFields) {
    PointGraphics graphics;
    graphics.setPixelSize(10.0f);
    graphics.setColor(Color::RED);
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 10u);
    EXPECT_EQ(e[6], (keo::FieldList::Entry{"pixelSize", "10"}));
    EXPECT_EQ(e[7], (keo::FieldList::Entry{"color", "\"#ff0000\""}));
    EXPECT_EQ(e[8], (keo::FieldList::Entry{"outlineColor", "\"#000000\""}));
    EXPECT_EQ(e[9], (keo::FieldList::Entry{"outlineWidth", "0"}));
}

} // namespace
