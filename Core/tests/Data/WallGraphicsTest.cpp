#include "Data/WallGraphics.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using keo::Vector3;
using keo::WallGraphics;

TEST(WallGraphicsTest, DefaultsAreAFilledWallWithoutPositionsOrHeights) {
    const WallGraphics graphics;
    EXPECT_TRUE(graphics.getPositions().empty());
    EXPECT_TRUE(graphics.getMinimumHeights().empty());
    EXPECT_TRUE(graphics.getMaximumHeights().empty());
    EXPECT_TRUE(graphics.isFill());
    EXPECT_FALSE(graphics.isOutline());
}

TEST(WallGraphicsTest, PositionsAndHeightsReadBackAsSet) {
    WallGraphics graphics;
    const std::vector<Vector3<double>> positions{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}};
    graphics.setPositions(positions);
    graphics.setMinimumHeights({80.0, 80.0, 80.0});
    graphics.setMaximumHeights({100.0, 100.0, 100.0});
    EXPECT_EQ(graphics.getPositions(), positions);
    EXPECT_EQ(graphics.getMinimumHeights(), (std::vector<double>{80.0, 80.0, 80.0}));
    EXPECT_EQ(graphics.getMaximumHeights(), (std::vector<double>{100.0, 100.0, 100.0}));
}

TEST(WallGraphicsTest, HeightListsOfAnotherLengthAreStoredAsGiven) {
    WallGraphics graphics;
    graphics.setPositions({{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}});
    graphics.setMinimumHeights({5.0});
    graphics.setMaximumHeights({});
    EXPECT_EQ(graphics.getMinimumHeights(), (std::vector<double>{5.0}));
    EXPECT_TRUE(graphics.getMaximumHeights().empty());
}

TEST(WallGraphicsTest, OptionsAreTakenAsGiven) {
    WallGraphics::ConstructorOptions options;
    options.positions = {{1.0, 2.0, 3.0}};
    options.maximumHeights = {7.0};
    options.outline = true;
    const WallGraphics graphics(options);
    EXPECT_EQ(graphics.getPositions(), options.positions);
    EXPECT_EQ(graphics.getMaximumHeights(), options.maximumHeights);
    EXPECT_TRUE(graphics.isOutline());
}

TEST(WallGraphicsTest, DescribeWritesThePositionsAndHeights) {
    WallGraphics graphics;
    graphics.setPositions({{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}});
    graphics.setMinimumHeights({0.0, 0.5});
    graphics.setMaximumHeights({50.0, 50.0});
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 13u);
    EXPECT_EQ(e[10], (keo::FieldList::Entry{"positions", "[[1, 2, 3], [4, 5, 6]]"}));
    EXPECT_EQ(e[11], (keo::FieldList::Entry{"minimumHeights", "[0, 0.5]"}));
    EXPECT_EQ(e[12], (keo::FieldList::Entry{"maximumHeights", "[50, 50]"}));
}

} // namespace
