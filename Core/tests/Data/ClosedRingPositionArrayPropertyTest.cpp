#include "Data/ClosedRingPositionArrayProperty.h"

#include "Data/ConstantPositionArrayProperty.h"
#include "Data/PolygonGraphics.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using keo::ClosedRingPositionArrayProperty;
using keo::TimePoint;
using keo::Vector3;
using Points = std::vector<Vector3<double>>;

const Points RING{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};

std::shared_ptr<const Points> shared(Points points) {
    return std::make_shared<const Points>(std::move(points));
}

TEST(ClosedRingPositionArrayPropertyTest, GivesTheRingWithItsFirstPointAgainAtEveryTime) {
    const ClosedRingPositionArrayProperty p(shared(RING));
    const Points closed{RING[0], RING[1], RING[2], RING[0]};
    EXPECT_EQ(p.getValues(TimePoint()), closed);
    EXPECT_EQ(p.getValues(TimePoint::fromSeconds(1e6)), closed);
    EXPECT_TRUE(p.isConstant());
}

TEST(ClosedRingPositionArrayPropertyTest, ReadsTheSharedRingWithoutCopyingIt) {
    const auto ring = shared(RING);
    const ClosedRingPositionArrayProperty p(ring);
    EXPECT_EQ(p.getRing().get(), ring.get());
    EXPECT_EQ(ring.use_count(), 2);
}

TEST(ClosedRingPositionArrayPropertyTest, NullAndEmptyRingsHaveNoPoints) {
    EXPECT_TRUE(ClosedRingPositionArrayProperty(nullptr).getValues(TimePoint()).empty());
    EXPECT_TRUE(ClosedRingPositionArrayProperty(shared({})).getValues(TimePoint()).empty());
}

TEST(ClosedRingPositionArrayPropertyTest, NonFinitePointsAreLeftOutAsAConstantListLeavesThemOut) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    // The same values as a constant list of the closed ring: its first point is dropped at both
    // ends when it is not finite.
    for (const Points& ring : {Points{{1.0, 1.0, 1.0}, {nan, 0.0, 0.0}, {2.0, 2.0, 2.0}},
                               Points{{0.0, inf, 0.0}, {1.0, 1.0, 1.0}, {2.0, 2.0, 2.0}}}) {
        Points closed = ring;
        closed.push_back(ring.front());
        EXPECT_EQ(ClosedRingPositionArrayProperty(shared(ring)).getValues(TimePoint()),
                  keo::ConstantPositionArrayProperty(closed).getPoints());
    }
}

TEST(ClosedRingPositionArrayPropertyTest, EqualsComparesKindAndRingPoints) {
    const ClosedRingPositionArrayProperty p(shared(RING));
    EXPECT_TRUE(p.equals(ClosedRingPositionArrayProperty(shared(RING))));
    EXPECT_FALSE(p.equals(ClosedRingPositionArrayProperty(shared({RING[0], RING[1]}))));
    EXPECT_FALSE(
        p.equals(keo::ConstantPositionArrayProperty({RING[0], RING[1], RING[2], RING[0]})));
    EXPECT_TRUE(ClosedRingPositionArrayProperty(nullptr).equals(
        ClosedRingPositionArrayProperty(shared({}))));
}

TEST(ClosedRingPositionArrayPropertyTest, AnOutlineKeepsAReplacedHierarchyAlive) {
    keo::PolygonGraphics polygon;
    polygon.setHierarchy(keo::PolygonHierarchy(RING));
    const auto& held = polygon.getSharedHierarchy();
    const ClosedRingPositionArrayProperty outline(
        std::shared_ptr<const Points>(held, &held->positions));
    polygon.setHierarchy(keo::PolygonHierarchy(Points{RING[2], RING[1], RING[0]}));
    EXPECT_EQ(outline.getValues(TimePoint()), (Points{RING[0], RING[1], RING[2], RING[0]}));
}

} // namespace
