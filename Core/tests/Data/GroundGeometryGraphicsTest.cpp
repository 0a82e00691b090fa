#include "Data/GroundGeometryGraphics.h"

#include "Data/EllipseGraphics.h"
#include "Data/FieldList.h"
#include "Data/PolygonGraphics.h"
#include "Data/RectangleGraphics.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::GroundGeometryGraphics;
using keo::Radian;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(GroundGeometryGraphicsTest, DefaultsLieAtHeightZeroWithOneDegreeGranularity) {
    const keo::EllipseGraphics ellipse;
    const GroundGeometryGraphics& graphics = ellipse;
    EXPECT_EQ(graphics.getHeight(), 0.0);
    EXPECT_FALSE(graphics.getExtrudedHeight().has_value());
    EXPECT_EQ(graphics.getGranularity(), 0.017453292519943295);
    EXPECT_EQ(graphics.getStRotation(), Radian(0.0));
    EXPECT_EQ(graphics.getOutlineColor(), keo::Color::BLACK);
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f);
}

TEST(GroundGeometryGraphicsTest, FieldsReadBackAsSet) {
    keo::PolygonGraphics polygon;
    GroundGeometryGraphics& graphics = polygon;
    graphics.setHeight(120.0);
    graphics.setExtrudedHeight(300.0);
    graphics.setGranularity(0.001);
    graphics.setStRotation(Radian(0.75));
    EXPECT_EQ(graphics.getHeight(), 120.0);
    EXPECT_EQ(graphics.getExtrudedHeight(), 300.0);
    EXPECT_EQ(graphics.getGranularity(), 0.001);
    EXPECT_EQ(graphics.getStRotation(), Radian(0.75));
    graphics.setExtrudedHeight(std::nullopt);
    EXPECT_FALSE(graphics.getExtrudedHeight().has_value());
}

TEST(GroundGeometryGraphicsTest, NanIsIgnoredAndGranularityMustBePositive) {
    keo::RectangleGraphics rectangle;
    GroundGeometryGraphics& graphics = rectangle;
    graphics.setHeight(-20.0); // below the ellipsoid is a valid height
    graphics.setHeight(NOT_A_NUMBER);
    graphics.setExtrudedHeight(5.0);
    graphics.setExtrudedHeight(NOT_A_NUMBER);
    graphics.setStRotation(Radian(NOT_A_NUMBER));
    graphics.setGranularity(0.0);
    graphics.setGranularity(-1.0);
    graphics.setGranularity(NOT_A_NUMBER);
    EXPECT_EQ(graphics.getHeight(), -20.0);
    EXPECT_EQ(graphics.getExtrudedHeight(), 5.0);
    EXPECT_EQ(graphics.getStRotation(), Radian(0.0));
    EXPECT_EQ(graphics.getGranularity(), 0.017453292519943295);
}

TEST(GroundGeometryGraphicsTest, AreaOptionsAreTakenAsGiven) {
    keo::EllipseGraphics::ConstructorOptions options;
    options.height = 12.0;
    options.extrudedHeight = 40.0;
    options.granularity = NOT_A_NUMBER;
    options.stRotation = Radian(0.5);
    const keo::EllipseGraphics graphics(options);
    EXPECT_EQ(graphics.getHeight(), 12.0);
    EXPECT_EQ(graphics.getExtrudedHeight(), 40.0);
    EXPECT_EQ(graphics.getGranularity(), 0.017453292519943295); // NaN falls back
    EXPECT_EQ(graphics.getStRotation(), Radian(0.5));
}

TEST(GroundGeometryGraphicsTest, DescribeWritesTheAreaFieldsAfterFillAndOutline) {
    keo::EllipseGraphics graphics;
    graphics.setExtrudedHeight(10.0);
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_GE(e.size(), 14u);
    EXPECT_EQ(e[10], (keo::FieldList::Entry{"height", "0"}));
    EXPECT_EQ(e[11], (keo::FieldList::Entry{"extrudedHeight", "10"}));
    EXPECT_EQ(e[12], (keo::FieldList::Entry{"granularity", "0.017453292519943295"}));
    EXPECT_EQ(e[13], (keo::FieldList::Entry{"stRotation", "0"}));
}

} // namespace
