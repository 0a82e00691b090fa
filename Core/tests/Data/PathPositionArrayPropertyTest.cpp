#include "Data/PathPositionArrayProperty.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

namespace {

using keo::PathPositionArrayProperty;
using keo::PositionArrayProperty;
using keo::PositionProperty;
using keo::TimePoint;
using keo::Vector3;
using Points = std::vector<Vector3<double>>;

// An L-shaped route: 100 m along x, then 100 m along y; 200 m in all.
const Vector3<double> A{0.0, 0.0, 0.0};
const Vector3<double> B{100.0, 0.0, 0.0};
const Vector3<double> C{100.0, 100.0, 0.0};

TimePoint at(double seconds) {
    return TimePoint::fromSeconds(seconds);
}

// A path over A, B, C at 10 m/s whose clock has been started at time 0.
std::unique_ptr<PathPositionArrayProperty> startedPath() {
    auto path = std::make_unique<PathPositionArrayProperty>(Points{A, B, C});
    path->setSpeed(10.0);
    path->getValue(at(0.0));
    return path;
}

void expectNear(const std::optional<Vector3<double>>& actual, const Vector3<double>& expected) {
    ASSERT_TRUE(actual.has_value());
    EXPECT_NEAR(actual->x, expected.x, 1e-9);
    EXPECT_NEAR(actual->y, expected.y, 1e-9);
    EXPECT_NEAR(actual->z, expected.z, 1e-9);
}

TEST(PathPositionArrayPropertyTest, DefaultsAreOpenLoopingForwardAtThreeHundredMetresPerSecond) {
    const PathPositionArrayProperty path(Points{A, B, C});
    EXPECT_FALSE(path.isClosed());
    EXPECT_TRUE(path.isLoop());
    EXPECT_FALSE(path.isReversed());
    EXPECT_EQ(path.getSpeed(), 300.0);
    EXPECT_EQ(path.getPathPoints(), (Points{A, B, C}));
    EXPECT_DOUBLE_EQ(path.getLength(), 200.0);
    EXPECT_FALSE(path.isConstant());
}

TEST(PathPositionArrayPropertyTest, ClockStartsAtTheFirstEvaluation) {
    PathPositionArrayProperty path(Points{A, B, C});
    path.setSpeed(10.0);
    expectNear(path.getValue(at(5.0)), A); // the first evaluation: the start
    expectNear(path.getValue(at(7.0)), {20.0, 0.0, 0.0});
}

TEST(PathPositionArrayPropertyTest, MovesAtTheSpeedAlongTheChords) {
    auto path = startedPath();
    expectNear(path->getValue(at(5.0)), {50.0, 0.0, 0.0});
    expectNear(path->getValue(at(15.0)), {100.0, 50.0, 0.0}); // 150 m: 50 m past B
    EXPECT_DOUBLE_EQ(path->getDistance(at(15.0)), 150.0);
}

TEST(PathPositionArrayPropertyTest, TimesBeforeTheStartGiveTheStart) {
    auto path = startedPath();
    expectNear(path->getValue(at(-3.0)), A);
}

TEST(PathPositionArrayPropertyTest, StopsAtTheEndWithoutLoop) {
    auto path = startedPath();
    path->setLoop(false);
    expectNear(path->getValue(at(25.0)), C);
    expectNear(path->getValue(at(1000.0)), C);
}

TEST(PathPositionArrayPropertyTest, LoopWrapsAroundAfterTheLastPoint) {
    auto path = startedPath();
    expectNear(path->getValue(at(25.0)), {50.0, 0.0, 0.0}); // 250 m = one lap of 200 + 50
    expectNear(path->getValue(at(45.0)), {50.0, 0.0, 0.0}); // 450 m = two laps + 50
}

TEST(PathPositionArrayPropertyTest, ClosedAddsTheSegmentBackToTheFirstPoint) {
    auto path = startedPath();
    path->setClosed(true);
    const double closing = 100.0 * std::sqrt(2.0);
    EXPECT_DOUBLE_EQ(path->getLength(), 200.0 + closing);
    // Half-way along the closing segment from C to A: 200 + closing / 2 metres.
    expectNear(path->getValue(at((200.0 + closing / 2.0) / 10.0)), {50.0, 50.0, 0.0});
    path->setLoop(false);
    expectNear(path->getValue(at(1000.0)), A); // a closed route ends where it began
}

TEST(PathPositionArrayPropertyTest, ReversedTravelsThePointsBackwards) {
    PathPositionArrayProperty path(Points{A, B, C});
    path.setSpeed(10.0);
    path.setReversed(true);
    expectNear(path.getValue(at(0.0)), C);
    expectNear(path.getValue(at(5.0)), {100.0, 50.0, 0.0});
    expectNear(path.getValue(at(15.0)), {50.0, 0.0, 0.0});
    EXPECT_EQ(path.getPathPoints(), (Points{A, B, C})); // the given order is kept
}

TEST(PathPositionArrayPropertyTest, RestartPutsThePointBackAtTheStart) {
    auto path = startedPath();
    expectNear(path->getValue(at(5.0)), {50.0, 0.0, 0.0});
    path->restart();
    expectNear(path->getValue(at(10.0)), A); // the clock starts again here
    expectNear(path->getValue(at(12.0)), {20.0, 0.0, 0.0});
}

TEST(PathPositionArrayPropertyTest, SetPathPointsMidwayKeepsTheDistanceTravelled) {
    auto path = startedPath();
    expectNear(path->getValue(at(5.0)), {50.0, 0.0, 0.0});
    path->setPathPoints({A, {0.0, 200.0, 0.0}});
    expectNear(path->getValue(at(6.0)), {0.0, 60.0, 0.0}); // 60 m along the new route
    EXPECT_DOUBLE_EQ(path->getLength(), 200.0);
}

TEST(PathPositionArrayPropertyTest, SetSpeedMidwayGoesOnFromTheCurrentPoint) {
    auto path = startedPath();
    expectNear(path->getValue(at(5.0)), {50.0, 0.0, 0.0});
    path->setSpeed(20.0);
    expectNear(path->getValue(at(6.0)), {70.0, 0.0, 0.0}); // 50 m, then 1 s at 20 m/s
}

TEST(PathPositionArrayPropertyTest, ValuesGrowAlongThePath) {
    auto path = startedPath();
    EXPECT_EQ(path->getValues(at(0.0)), (Points{A}));
    EXPECT_EQ(path->getValues(at(5.0)), (Points{A, {50.0, 0.0, 0.0}}));
    EXPECT_EQ(path->getValues(at(10.0)), (Points{A, B})); // exactly on B: not repeated
    EXPECT_EQ(path->getValues(at(15.0)), (Points{A, B, {100.0, 50.0, 0.0}}));
    EXPECT_EQ(path->getValues(at(25.0)), (Points{A, {50.0, 0.0, 0.0}})); // the second lap
    path->setLoop(false);
    EXPECT_EQ(path->getValues(at(30.0)), (Points{A, B, C}));
}

TEST(PathPositionArrayPropertyTest, NoPointsGiveNoPositionAndNoValues) {
    const PathPositionArrayProperty path;
    EXPECT_FALSE(path.getValue(at(1.0)).has_value());
    EXPECT_TRUE(path.getValues(at(1.0)).empty());
    EXPECT_EQ(path.getLength(), 0.0);
    EXPECT_TRUE(path.isConstant());
}

TEST(PathPositionArrayPropertyTest, OnePointStaysThere) {
    PathPositionArrayProperty path(Points{B});
    path.setClosed(true);
    expectNear(path.getValue(at(0.0)), B);
    expectNear(path.getValue(at(100.0)), B);
    EXPECT_EQ(path.getValues(at(100.0)), (Points{B}));
    EXPECT_TRUE(path.isConstant());
}

TEST(PathPositionArrayPropertyTest, RouteOfLengthZeroStaysAtTheFirstPoint) {
    PathPositionArrayProperty path(Points{B, B, B});
    expectNear(path.getValue(at(0.0)), B);
    expectNear(path.getValue(at(100.0)), B);
    EXPECT_TRUE(path.isConstant());
}

TEST(PathPositionArrayPropertyTest, UnusableSpeedsAreStoredButDoNotMoveThePoint) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double speed : {0.0, -10.0, nan, std::numeric_limits<double>::infinity()}) {
        PathPositionArrayProperty path(Points{A, B, C});
        path.setSpeed(speed);
        expectNear(path.getValue(at(0.0)), A);
        expectNear(path.getValue(at(10.0)), A);
        EXPECT_TRUE(path.isConstant()) << speed;
        EXPECT_TRUE(std::isnan(speed) ? std::isnan(path.getSpeed()) : path.getSpeed() == speed);
    }
}

TEST(PathPositionArrayPropertyTest, ZeroSpeedMidwayHoldsThePoint) {
    auto path = startedPath();
    expectNear(path->getValue(at(5.0)), {50.0, 0.0, 0.0});
    path->setSpeed(0.0);
    expectNear(path->getValue(at(50.0)), {50.0, 0.0, 0.0});
    path->setSpeed(10.0);
    expectNear(path->getValue(at(51.0)), {60.0, 0.0, 0.0});
}

TEST(PathPositionArrayPropertyTest, NonFinitePathPointsAreDropped) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    PathPositionArrayProperty path(Points{A, {nan, 0.0, 0.0}, B});
    EXPECT_EQ(path.getPathPoints(), (Points{A, B}));
    path.setPathPoints({{0.0, std::numeric_limits<double>::infinity(), 0.0}, C});
    EXPECT_EQ(path.getPathPoints(), (Points{C}));
}

TEST(PathPositionArrayPropertyTest, NaNTimeNeitherStartsTheClockNorMovesThePoint) {
    PathPositionArrayProperty path(Points{A, B, C});
    path.setSpeed(10.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectNear(path.getValue(at(nan)), A);
    expectNear(path.getValue(at(10.0)), A); // the clock starts here, not at the NaN
    expectNear(path.getValue(at(11.0)), {10.0, 0.0, 0.0});
    expectNear(path.getValue(at(nan)), {10.0, 0.0, 0.0}); // where the clock stands
}

TEST(PathPositionArrayPropertyTest, InfinitelyLateTimeGivesTheEndOrForALoopTheStart) {
    auto path = startedPath();
    const double infinity = std::numeric_limits<double>::infinity();
    expectNear(path->getValue(at(infinity)), A);
    path->setLoop(false);
    expectNear(path->getValue(at(infinity)), C);
    expectNear(path->getValue(at(-infinity)), A);
}

TEST(PathPositionArrayPropertyTest, EqualsOnlyItselfThroughEitherBase) {
    PathPositionArrayProperty path(Points{A, B});
    const PathPositionArrayProperty other(Points{A, B});
    const PositionProperty& asPosition = path;
    const PositionArrayProperty& asArray = path;
    EXPECT_TRUE(path.equals(asPosition));
    EXPECT_TRUE(path.equals(asArray));
    EXPECT_FALSE(path.equals(static_cast<const PositionProperty&>(other)));
    EXPECT_FALSE(path.equals(static_cast<const PositionArrayProperty&>(other)));
}

TEST(PathPositionArrayPropertyTest, IsFoundAgainFromEitherBaseByDynamicType) {
    std::shared_ptr<PositionArrayProperty> positions =
        std::make_shared<PathPositionArrayProperty>(Points{A, B});
    auto* path = dynamic_cast<PathPositionArrayProperty*>(positions.get());
    ASSERT_NE(path, nullptr);
    path->setPathPoints({A, C});
    EXPECT_EQ(path->getPathPoints(), (Points{A, C}));
}

TEST(PathPositionArrayPropertyTest, ConcurrentEditsAndEvaluationsGiveFinitePointsOnTheRoute) {
    PathPositionArrayProperty path(Points{A, B, C});
    path.setSpeed(10.0);
    std::atomic<bool> done{false};
    std::thread editor([&] {
        for (int i = 0; i < 2000; ++i) {
            path.setPathPoints(i % 2 == 0 ? Points{A, B, C} : Points{A, B});
            path.setSpeed(i % 3 == 0 ? 0.0 : 10.0);
            path.setClosed(i % 5 == 0);
            path.setReversed(i % 7 == 0);
            if (i % 11 == 0) {
                path.restart();
            }
        }
        done = true;
    });
    int evaluations = 0;
    bool allOnTheRoute = true;
    for (double t = 0.0; !done || evaluations < 100; t += 0.01, ++evaluations) {
        const auto value = path.getValue(at(t));
        // Every route used above lies in the square [0, 100] × [0, 100] of the plane z = 0.
        allOnTheRoute = allOnTheRoute && value && value->x >= 0.0 && value->x <= 100.0 &&
                        value->y >= 0.0 && value->y <= 100.0 && value->z == 0.0;
        allOnTheRoute = allOnTheRoute && !path.getValues(at(t)).empty();
    }
    editor.join();
    EXPECT_TRUE(allOnTheRoute);
}

} // namespace
