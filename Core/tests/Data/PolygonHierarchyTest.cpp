#include "Data/PolygonHierarchy.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::PolygonHierarchy;
using keo::Vector3;

TEST(PolygonHierarchyTest, DefaultIsAnEmptyRingWithoutHoles) {
    const PolygonHierarchy hierarchy;
    EXPECT_TRUE(hierarchy.positions.empty());
    EXPECT_TRUE(hierarchy.holes.empty());
}

TEST(PolygonHierarchyTest, HoldsARingAndNestedHoles) {
    const PolygonHierarchy island({{0.4, 0.4, 0.0}, {0.6, 0.4, 0.0}, {0.5, 0.6, 0.0}});
    const PolygonHierarchy hole({{0.2, 0.2, 0.0}, {0.8, 0.2, 0.0}, {0.5, 0.8, 0.0}}, {island});
    const PolygonHierarchy outer({{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.5, 1.0, 0.0}}, {hole});
    ASSERT_EQ(outer.holes.size(), 1u);
    ASSERT_EQ(outer.holes[0].holes.size(), 1u);
    EXPECT_EQ(outer.holes[0].holes[0].positions[2], Vector3<double>(0.5, 0.6, 0.0));
}

TEST(PolygonHierarchyTest, EqualityComparesRingsAndHolesDeeply) {
    const PolygonHierarchy a({{1.0, 0.0, 0.0}}, {PolygonHierarchy({{2.0, 0.0, 0.0}})});
    PolygonHierarchy b = a;
    EXPECT_EQ(a, b);
    b.holes[0].positions[0].x = 3.0;
    EXPECT_NE(a, b);
    const PolygonHierarchy withNan({{std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0}});
    EXPECT_NE(withNan, withNan);
}

} // namespace
