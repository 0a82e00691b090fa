#include "Data/VelocityOrientationProperty.h"

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/CallbackPositionProperty.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/PathPositionArrayProperty.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using keo::CallbackPositionProperty;
using keo::Cartographic;
using keo::ConstantPositionProperty;
using keo::Ellipsoid;
using keo::Quaternion;
using keo::TimePoint;
using keo::Vector3;
using keo::VelocityOrientationProperty;

constexpr double TOLERANCE = 1e-6;

// A point on the equator and prime meridian moving along the surface: longitude (east) or
// latitude (north) grows by 1e-5 rad per second, about 64 m/s.
std::shared_ptr<CallbackPositionProperty> movingOnTheSurface(bool east) {
    return std::make_shared<CallbackPositionProperty>([east](const TimePoint& t) {
        const double angle = 1e-5 * t.seconds();
        const Cartographic c =
            east ? Cartographic::fromRadians(angle, 0.0) : Cartographic::fromRadians(0.0, angle);
        return std::optional<Vector3<double>>(Ellipsoid::WGS84.cartographicToCartesian(c));
    });
}

// Checks that the orientation turns the local x, y and z axes into the given ECEF directions.
void expectAxes(const std::optional<Quaternion>& q, const Vector3<double>& x,
                const Vector3<double>& y, const Vector3<double>& z) {
    ASSERT_TRUE(q.has_value());
    const Vector3<double> axes[3] = {q->rotate({1.0, 0.0, 0.0}), q->rotate({0.0, 1.0, 0.0}),
                                     q->rotate({0.0, 0.0, 1.0})};
    const Vector3<double> expected[3] = {x, y, z};
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(axes[i].x, expected[i].x, TOLERANCE) << "axis " << i;
        EXPECT_NEAR(axes[i].y, expected[i].y, TOLERANCE) << "axis " << i;
        EXPECT_NEAR(axes[i].z, expected[i].z, TOLERANCE) << "axis " << i;
    }
}

TEST(VelocityOrientationPropertyTest, MovingEastOnTheEquatorFacesEastWithZUp) {
    // At (lon 0, lat 0): east is +y, north +z, up +x.
    const VelocityOrientationProperty p(movingOnTheSurface(true));
    expectAxes(p.getValue(TimePoint()), {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {1.0, 0.0, 0.0});
    EXPECT_FALSE(p.isConstant());
}

TEST(VelocityOrientationPropertyTest, MovingNorthFacesNorthWithYToTheWest) {
    // x = north (+z), z = up (+x), y = z × x = +x × +z = -y (west).
    const VelocityOrientationProperty p(movingOnTheSurface(false));
    expectAxes(p.getValue(TimePoint()), {0.0, 0.0, 1.0}, {0.0, -1.0, 0.0}, {1.0, 0.0, 0.0});
}

TEST(VelocityOrientationPropertyTest, StillPointHasTheEastNorthUpFrame) {
    // At (lon 90°, lat 0), (0, a, 0): east is -x, north +z, up +y.
    const Vector3<double> p = Ellipsoid::WGS84.cartographicToCartesian(
        Cartographic::fromRadians(keo::Math::PI_OVER_TWO, 0.0));
    const VelocityOrientationProperty still(std::make_shared<ConstantPositionProperty>(p, 0));
    expectAxes(still.getValue(TimePoint::fromSeconds(3.0)), {-1.0, 0.0, 0.0}, {0.0, 0.0, 1.0},
               {0.0, 1.0, 0.0});
    EXPECT_TRUE(still.isConstant());
}

TEST(VelocityOrientationPropertyTest, OnThePolarAxisEastIsTheYAxis) {
    // North pole: up +z, east +y, north = up × east = -x.
    const Vector3<double> pole{0.0, 0.0, Ellipsoid::WGS84.getPolarRadius()};
    expectAxes(VelocityOrientationProperty::eastNorthUp(pole), {0.0, 1.0, 0.0}, {-1.0, 0.0, 0.0},
               {0.0, 0.0, 1.0});
}

TEST(VelocityOrientationPropertyTest, VerticalMotionHasTheEastNorthUpFrame) {
    const auto rising = std::make_shared<CallbackPositionProperty>([](const TimePoint& t) {
        return std::optional<Vector3<double>>({6378137.0 + 10.0 * t.seconds(), 0.0, 0.0});
    });
    expectAxes(VelocityOrientationProperty(rising).getValue(TimePoint()), {0.0, 1.0, 0.0},
               {0.0, 0.0, 1.0}, {1.0, 0.0, 0.0});
}

TEST(VelocityOrientationPropertyTest, LastValueUsesTheStepBehind) {
    // Moving +y at 100 m/s until second 10, nothing after it.
    const auto ending = std::make_shared<CallbackPositionProperty>([](const TimePoint& t) {
        if (t.seconds() > 10.0) {
            return std::optional<Vector3<double>>();
        }
        return std::optional<Vector3<double>>({6378137.0, 100.0 * t.seconds(), 0.0});
    });
    const VelocityOrientationProperty p(ending);
    expectAxes(p.getValue(TimePoint::fromSeconds(10.0)), {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0},
               {1.0, 0.0, 0.0});
    EXPECT_FALSE(p.getValue(TimePoint::fromSeconds(11.0)).has_value());
}

TEST(VelocityOrientationPropertyTest, FollowsAPathAlongItsSegments) {
    // A path heading north from the equator at lon 0 (along +z).
    const double a = Ellipsoid::WGS84.getEquatorialRadius();
    auto path = std::make_shared<keo::PathPositionArrayProperty>(
        std::vector<Vector3<double>>{{a, 0.0, 0.0}, {a, 0.0, 1000.0}});
    path->setSpeed(10.0);
    const VelocityOrientationProperty p(path);
    expectAxes(p.getValue(TimePoint::fromSeconds(0.0)), {0.0, 0.0, 1.0}, {0.0, -1.0, 0.0},
               {1.0, 0.0, 0.0});
    EXPECT_FALSE(p.isConstant());
}

TEST(VelocityOrientationPropertyTest, NoPositionGivesNoOrientation) {
    const VelocityOrientationProperty none(nullptr);
    EXPECT_FALSE(none.getValue(TimePoint()).has_value());
    EXPECT_TRUE(none.isConstant());
    const VelocityOrientationProperty empty(std::make_shared<ConstantPositionProperty>());
    EXPECT_FALSE(empty.getValue(TimePoint()).has_value());
    const VelocityOrientationProperty centre(
        std::make_shared<ConstantPositionProperty>(Vector3<double>{0.0, 0.0, 0.0}));
    EXPECT_FALSE(centre.getValue(TimePoint()).has_value());
}

TEST(VelocityOrientationPropertyTest, KeepsThePositionItFollows) {
    const auto position = movingOnTheSurface(true);
    EXPECT_EQ(VelocityOrientationProperty(position).getPosition(), position);
}

} // namespace
