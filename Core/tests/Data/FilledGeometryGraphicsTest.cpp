#include "Data/FilledGeometryGraphics.h"

#include "Data/FieldList.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/WallGraphics.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::Color;
using keo::FilledGeometryGraphics;

TEST(FilledGeometryGraphicsTest, DefaultsFillWithoutOutline) {
    const keo::WallGraphics wall;
    const FilledGeometryGraphics& graphics = wall;
    EXPECT_TRUE(graphics.isFill());
    EXPECT_FALSE(graphics.isOutline());
    EXPECT_EQ(graphics.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f);
}

TEST(FilledGeometryGraphicsTest, FillAndOutlineReadBackAsSet) {
    keo::PolylineVolumeGraphics volume;
    FilledGeometryGraphics& graphics = volume;
    graphics.setFill(false);
    graphics.setOutline(true);
    graphics.setOutlineColor(Color(0.5f, 1.0f, 0.5f, 1.0f));
    graphics.setOutlineWidth(3.0f);
    EXPECT_FALSE(graphics.isFill());
    EXPECT_TRUE(graphics.isOutline());
    EXPECT_EQ(graphics.getOutlineColor(), Color(0.5f, 1.0f, 0.5f, 1.0f));
    EXPECT_EQ(graphics.getOutlineWidth(), 3.0f);
}

TEST(FilledGeometryGraphicsTest, OutlineWidthIgnoresNanAndClampsNegative) {
    keo::WallGraphics graphics;
    graphics.setOutlineWidth(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f);
    graphics.setOutlineWidth(-2.0f);
    EXPECT_EQ(graphics.getOutlineWidth(), 0.0f);
}

TEST(FilledGeometryGraphicsTest, FillOptionsAreTakenAsGiven) {
    keo::WallGraphics::ConstructorOptions options;
    options.fill = false;
    options.outline = true;
    options.outlineColor = Color::RED;
    options.outlineWidth = std::numeric_limits<float>::quiet_NaN();
    const keo::WallGraphics graphics(options);
    EXPECT_FALSE(graphics.isFill());
    EXPECT_TRUE(graphics.isOutline());
    EXPECT_EQ(graphics.getOutlineColor(), Color::RED);
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f); // NaN falls back to the default
}

TEST(FilledGeometryGraphicsTest, DescribeWritesFillAndOutlineAfterTheCommonFields) {
    const keo::WallGraphics graphics;
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_GE(e.size(), 10u);
    EXPECT_EQ(e[6], (keo::FieldList::Entry{"fill", "true"}));
    EXPECT_EQ(e[7], (keo::FieldList::Entry{"outline", "false"}));
    EXPECT_EQ(e[8], (keo::FieldList::Entry{"outlineColor", "\"#000000\""}));
    EXPECT_EQ(e[9], (keo::FieldList::Entry{"outlineWidth", "1"}));
}

} // namespace
