#include "Data/PolylineVolumeGraphics.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using keo::PolylineVolumeGraphics;
using keo::Vector2;
using keo::Vector3;

TEST(PolylineVolumeGraphicsTest, DefaultsAreAFilledVolumeClosedAtBothEnds) {
    const PolylineVolumeGraphics graphics;
    EXPECT_TRUE(graphics.getPositions().empty());
    EXPECT_TRUE(graphics.getShape().empty());
    EXPECT_TRUE(graphics.getCloseStart());
    EXPECT_TRUE(graphics.getCloseEnd());
    EXPECT_TRUE(graphics.isFill());
}

TEST(PolylineVolumeGraphicsTest, FieldsReadBackAsSet) {
    PolylineVolumeGraphics graphics;
    const std::vector<Vector3<double>> positions{{1.0, 0.0, 0.0}, {2.0, 0.0, 0.0}};
    const std::vector<Vector2<double>> shape{{-1.0, 0.0}, {1.0, 0.0}, {0.0, 2.0}};
    graphics.setPositions(positions);
    graphics.setShape(shape);
    graphics.setCloseStart(false);
    graphics.setCloseEnd(false);
    graphics.setFill(false);
    EXPECT_EQ(graphics.getPositions(), positions);
    EXPECT_EQ(graphics.getShape(), shape);
    EXPECT_FALSE(graphics.getCloseStart());
    EXPECT_FALSE(graphics.getCloseEnd());
    EXPECT_FALSE(graphics.isFill());
}

TEST(PolylineVolumeGraphicsTest, OptionsAreTakenAsGiven) {
    PolylineVolumeGraphics::ConstructorOptions options;
    options.shape = {{0.0, 0.0}, {1.0, 0.0}};
    options.closeEnd = false;
    const PolylineVolumeGraphics graphics(options);
    EXPECT_EQ(graphics.getShape(), options.shape);
    EXPECT_TRUE(graphics.getCloseStart());
    EXPECT_FALSE(graphics.getCloseEnd());
}

TEST(PolylineVolumeGraphicsTest, DescribeWritesTheShapeAndCaps) {
    PolylineVolumeGraphics graphics;
    graphics.setShape({{-0.5, 0.0}, {0.5, 0.0}, {0.0, 1.0}});
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 14u);
    EXPECT_EQ(e[10], (keo::FieldList::Entry{"positions", "[]"}));
    EXPECT_EQ(e[11], (keo::FieldList::Entry{"shape", "[[-0.5, 0], [0.5, 0], [0, 1]]"}));
    EXPECT_EQ(e[12], (keo::FieldList::Entry{"closeStart", "true"}));
}

} // namespace
