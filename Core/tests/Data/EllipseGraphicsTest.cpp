#include "Data/EllipseGraphics.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::EllipseGraphics;
using keo::Radian;

TEST(EllipseGraphicsTest, DefaultsHaveZeroAxesAndTheAreaDefaults) {
    const EllipseGraphics graphics;
    EXPECT_EQ(graphics.getSemiMajorAxis(), 0.0);
    EXPECT_EQ(graphics.getSemiMinorAxis(), 0.0);
    EXPECT_EQ(graphics.getRotation(), Radian(0.0));
    EXPECT_EQ(graphics.getGranularity(), 0.017453292519943295);
    EXPECT_EQ(graphics.getOutlineColor(), keo::Color::BLACK);
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f);
    EXPECT_TRUE(graphics.isFill());
}

TEST(EllipseGraphicsTest, OptionsGiveTheSemiAxes) {
    EllipseGraphics::ConstructorOptions options;
    options.semiMajorAxis = 300.0;
    options.semiMinorAxis = 200.0;
    options.rotation = Radian(0.25);
    const EllipseGraphics graphics(options);
    EXPECT_EQ(graphics.getSemiMajorAxis(), 300.0);
    EXPECT_EQ(graphics.getSemiMinorAxis(), 200.0);
    EXPECT_EQ(graphics.getRotation(), Radian(0.25));
}

TEST(EllipseGraphicsTest, FieldsReadBackAsSetAndAMinorAxisMayBeTheLarger) {
    EllipseGraphics graphics;
    graphics.setSemiMajorAxis(10.0);
    graphics.setSemiMinorAxis(20.0);
    graphics.setRotation(Radian(-1.0));
    EXPECT_EQ(graphics.getSemiMajorAxis(), 10.0);
    EXPECT_EQ(graphics.getSemiMinorAxis(), 20.0);
    EXPECT_EQ(graphics.getRotation(), Radian(-1.0));
}

TEST(EllipseGraphicsTest, NanAxesAreIgnoredAndNegativeAxesBecomeZero) {
    EllipseGraphics graphics;
    graphics.setSemiMajorAxis(10.0);
    graphics.setSemiMajorAxis(std::numeric_limits<double>::quiet_NaN());
    graphics.setSemiMinorAxis(-5.0);
    EXPECT_EQ(graphics.getSemiMajorAxis(), 10.0);
    EXPECT_EQ(graphics.getSemiMinorAxis(), 0.0);
}

TEST(EllipseGraphicsTest, DescribeEndsWithTheAxesAndRotation) {
    EllipseGraphics graphics;
    graphics.setSemiMajorAxis(1.5);
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 17u);
    EXPECT_EQ(e[14], (keo::FieldList::Entry{"semiMajorAxis", "1.5"}));
    EXPECT_EQ(e[15], (keo::FieldList::Entry{"semiMinorAxis", "0"}));
    EXPECT_EQ(e[16], (keo::FieldList::Entry{"rotation", "0"}));
}

} // namespace
