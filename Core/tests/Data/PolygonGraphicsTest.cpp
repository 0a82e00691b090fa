#include "Data/PolygonGraphics.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using keo::PolygonGraphics;
using keo::PolygonHierarchy;

PolygonHierarchy squareWithHole() {
    PolygonHierarchy hole({{0.25, 0.25, 0.0}, {0.75, 0.25, 0.0}, {0.5, 0.75, 0.0}});
    return PolygonHierarchy({{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 0.0}, {0.0, 1.0, 0.0}},
                            {hole});
}

TEST(PolygonGraphicsTest, DefaultsAreAnEmptyHierarchyAtTheAreaHeight) {
    const PolygonGraphics graphics;
    EXPECT_TRUE(graphics.getHierarchy().positions.empty());
    EXPECT_TRUE(graphics.getHierarchy().holes.empty());
    EXPECT_FALSE(graphics.isPerPositionHeight());
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 1.0);
    EXPECT_TRUE(graphics.isFill());
    EXPECT_FALSE(graphics.isOutline());
}

TEST(PolygonGraphicsTest, HierarchyWithHolesReadsBackAsSet) {
    PolygonGraphics graphics;
    graphics.setHierarchy(squareWithHole());
    EXPECT_EQ(graphics.getHierarchy(), squareWithHole());
    ASSERT_EQ(graphics.getHierarchy().holes.size(), 1u);
    EXPECT_EQ(graphics.getHierarchy().holes[0].positions.size(), 3u);
}

TEST(PolygonGraphicsTest, TheSharedHierarchyIsTheOneReadAndANewOneReplacesIt) {
    PolygonGraphics graphics;
    ASSERT_NE(graphics.getSharedHierarchy(), nullptr);
    EXPECT_EQ(graphics.getSharedHierarchy().get(), &graphics.getHierarchy());
    graphics.setHierarchy(squareWithHole());
    const auto first = graphics.getSharedHierarchy();
    EXPECT_EQ(first.get(), &graphics.getHierarchy());
    EXPECT_EQ(*first, squareWithHole());
    // Set again, even to an equal hierarchy, it is a new one: the first is left as it was.
    graphics.setHierarchy(squareWithHole());
    EXPECT_NE(graphics.getSharedHierarchy(), first);
    EXPECT_EQ(*first, squareWithHole());
}

TEST(PolygonGraphicsTest, EmptyPolygonsShareOneEmptyHierarchy) {
    PolygonGraphics graphics;
    graphics.setHierarchy(squareWithHole());
    graphics.setHierarchy(PolygonHierarchy());
    EXPECT_EQ(graphics.getSharedHierarchy(), PolygonGraphics().getSharedHierarchy());
    EXPECT_TRUE(graphics.getHierarchy().positions.empty());
}

TEST(PolygonGraphicsTest, AHierarchyHandedInSharedIsHeldItselfAndNullOrEmptyIsTheEmptyOne) {
    const auto shared = std::make_shared<const PolygonHierarchy>(squareWithHole());
    PolygonGraphics first;
    PolygonGraphics second;
    first.setHierarchy(shared);
    second.setHierarchy(shared);
    EXPECT_EQ(first.getSharedHierarchy(), shared);
    EXPECT_EQ(second.getSharedHierarchy(), shared);
    EXPECT_EQ(first.getHierarchy(), squareWithHole());

    const auto empty = PolygonGraphics().getSharedHierarchy();
    first.setHierarchy(std::shared_ptr<const PolygonHierarchy>());
    EXPECT_EQ(first.getSharedHierarchy(), empty);
    second.setHierarchy(std::make_shared<const PolygonHierarchy>());
    EXPECT_EQ(second.getSharedHierarchy(), empty);
    // The shared hierarchy itself is left as it was.
    EXPECT_EQ(*shared, squareWithHole());
}

TEST(PolygonGraphicsTest, SwitchesReadBackAsSet) {
    PolygonGraphics graphics;
    graphics.setPerPositionHeight(true);
    graphics.setShadowVolumeHeightScale(3.0);
    graphics.setFill(false);
    graphics.setOutline(true);
    EXPECT_TRUE(graphics.isPerPositionHeight());
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 3.0);
    EXPECT_FALSE(graphics.isFill());
    EXPECT_TRUE(graphics.isOutline());
}

TEST(PolygonGraphicsTest, NanScaleIsIgnoredAndNegativeScaleBecomesZero) {
    PolygonGraphics graphics;
    graphics.setShadowVolumeHeightScale(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 1.0);
    graphics.setShadowVolumeHeightScale(-1.0);
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 0.0);
}

TEST(PolygonGraphicsTest, OptionsAreTakenAsGiven) {
    PolygonGraphics::ConstructorOptions options;
    options.hierarchy = squareWithHole();
    options.perPositionHeight = true;
    const PolygonGraphics graphics(options);
    EXPECT_EQ(graphics.getHierarchy(), squareWithHole());
    EXPECT_TRUE(graphics.isPerPositionHeight());
}

TEST(PolygonGraphicsTest, DescribeWritesTheHierarchyRecursively) {
    PolygonGraphics graphics;
    graphics.setHierarchy(PolygonHierarchy({{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}},
                                           {PolygonHierarchy({{0.5, 0.5, 0.5}})}));
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 17u);
    EXPECT_EQ(e[14], (keo::FieldList::Entry{"hierarchy",
                                            "{\"positions\": [[1, 0, 0], [0, 1, 0], [0, 0, 1]], "
                                            "\"holes\": [{\"positions\": [[0.5, 0.5, 0.5]], "
                                            "\"holes\": []}]}"}));
    EXPECT_EQ(e[15], (keo::FieldList::Entry{"perPositionHeight", "false"}));
    EXPECT_EQ(e[16], (keo::FieldList::Entry{"shadowVolumeHeightScale", "1"}));
}

} // namespace
