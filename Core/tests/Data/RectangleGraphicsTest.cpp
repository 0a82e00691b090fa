#include "Data/RectangleGraphics.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::GlobeRectangle;
using keo::Radian;
using keo::RectangleGraphics;

TEST(RectangleGraphicsTest, DefaultIsTheEmptyRectangleWithoutRotation) {
    const RectangleGraphics graphics;
    EXPECT_EQ(graphics.getCoordinates(), GlobeRectangle::EMPTY);
    EXPECT_TRUE(graphics.getCoordinates().isEmpty());
    EXPECT_EQ(graphics.getRotation(), Radian(0.0));
    EXPECT_EQ(graphics.getStRotation(), Radian(0.0));
}

TEST(RectangleGraphicsTest, CoordinatesRotationAndTextureRotationReadBackAsSet) {
    RectangleGraphics graphics;
    const GlobeRectangle bounds(0.1, 0.2, 0.3, 0.4);
    graphics.setCoordinates(bounds);
    graphics.setRotation(Radian(0.5));
    graphics.setStRotation(Radian(0.5));
    EXPECT_EQ(graphics.getCoordinates(), bounds);
    EXPECT_EQ(graphics.getRotation(), Radian(0.5));
    EXPECT_EQ(graphics.getStRotation(), Radian(0.5));
}

TEST(RectangleGraphicsTest, OptionsGiveCoordinatesAndBothRotations) {
    RectangleGraphics::ConstructorOptions options;
    options.coordinates = GlobeRectangle(-0.1, -0.1, 0.1, 0.1);
    options.rotation = Radian(0.3);
    options.stRotation = Radian(0.3);
    const RectangleGraphics graphics(options);
    EXPECT_EQ(graphics.getCoordinates(), options.coordinates);
    EXPECT_EQ(graphics.getRotation(), Radian(0.3));
    EXPECT_EQ(graphics.getStRotation(), Radian(0.3));
}

TEST(RectangleGraphicsTest, NanRotationIsIgnoredAndNanBoundsAreStoredAsAnEmptyRectangle) {
    RectangleGraphics graphics;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    graphics.setRotation(Radian(0.2));
    graphics.setRotation(Radian(nan));
    EXPECT_EQ(graphics.getRotation(), Radian(0.2));
    graphics.setCoordinates(GlobeRectangle(0.0, nan, 0.1, 0.1));
    EXPECT_TRUE(graphics.getCoordinates().isEmpty());
}

TEST(RectangleGraphicsTest, DescribeWritesTheBoundsAsAnObject) {
    RectangleGraphics graphics;
    graphics.setCoordinates(GlobeRectangle(0.25, 0.5, 0.75, 1.0));
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 16u);
    EXPECT_EQ(e[14], (keo::FieldList::Entry{
                         "coordinates",
                         "{\"west\": 0.25, \"south\": 0.5, \"east\": 0.75, \"north\": 1}"}));
    EXPECT_EQ(e[15], (keo::FieldList::Entry{"rotation", "0"}));
}

} // namespace
