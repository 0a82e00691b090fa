#include "Feature/ParticleEmitter.h"

#include "Data/BoxEmitter.h"
#include "Data/CircleEmitter.h"
#include "Data/ConeEmitter.h"
#include "Data/SphereEmitter.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace {

using keo::Radian;
using keo::Vector3;
using keo::Feature::BoxEmitter;
using keo::Feature::CircleEmitter;
using keo::Feature::ConeEmitter;
using keo::Feature::ParticleEmitter;
using keo::Feature::SphereEmitter;
using namespace keo::Feature::test;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

using Dimensions = Vector3<double>;

// The data-library emitter of @p emitter after an update, as its concrete kind.
template <typename Data>
Data& updated(const ParticleEmitter& emitter) {
    const auto& data = emitter._update();
    EXPECT_NE(data, nullptr);
    return dynamic_cast<Data&>(*data);
}

// --- kinds and construction ---

TEST(ParticleEmitterTest, TypeCodesAreTheKitsCodes) {
    EXPECT_EQ(static_cast<int>(ParticleEmitter::Type::Base), 0);
    EXPECT_EQ(BoxEmitter(Dimensions(1.0, 1.0, 1.0)).getType(), ParticleEmitter::Type::Box);
    EXPECT_EQ(static_cast<int>(ParticleEmitter::Type::Box), 1);
    EXPECT_EQ(CircleEmitter(1.0).getType(), ParticleEmitter::Type::Circle);
    EXPECT_EQ(static_cast<int>(ParticleEmitter::Type::Circle), 2);
    EXPECT_EQ(ConeEmitter(Radian(0.5)).getType(), ParticleEmitter::Type::Cone);
    EXPECT_EQ(static_cast<int>(ParticleEmitter::Type::Cone), 3);
    EXPECT_EQ(SphereEmitter(1.0).getType(), ParticleEmitter::Type::Sphere);
    EXPECT_EQ(static_cast<int>(ParticleEmitter::Type::Sphere), 4);
}

TEST(ParticleEmitterTest, ConstructorsStoreTheirParameter) {
    EXPECT_EQ(BoxEmitter(Dimensions(1.0, 2.0, 3.0)).getDimensions(), Dimensions(1.0, 2.0, 3.0));
    EXPECT_EQ(CircleEmitter(0.25).getRadius(), 0.25);
    EXPECT_EQ(ConeEmitter(Radian(0.7)).getAngle(), Radian(0.7));
    EXPECT_EQ(SphereEmitter(4.0).getRadius(), 4.0);
}

TEST(ParticleEmitterTest, BoxOfZeroDimensionsIsValid) {
    const BoxEmitter box(Dimensions(0.0, 0.0, 0.0));
    EXPECT_EQ(box.getDimensions(), Dimensions(0.0, 0.0, 0.0));
}

TEST(ParticleEmitterTest, ConeAcceptsAnyAngle) {
    ConeEmitter cone(Radian(-10.0));
    cone.setAngle(Radian(NOT_A_NUMBER));
    EXPECT_NE(cone.getAngle(), cone.getAngle()); // NaN stored as given
}

// --- setters and their events ---

TEST(ParticleEmitterTest, SetDimensionsRaisesOneChangeAndNothingForTheSameValue) {
    BoxEmitter box(Dimensions(1.0, 1.0, 1.0));
    const EventRecorder recorder(box);
    box.setDimensions({1.0, 1.0, 1.0});
    EXPECT_EQ(recorder.events, "");
    box.setDimensions({1.0, 0.0, 2.0});
    box.setDimensions({1.0, 0.0, 2.0});
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(box.getDimensions(), Dimensions(1.0, 0.0, 2.0));
}

TEST(ParticleEmitterTest, CircleSetRadiusRaisesOneChangeAndNothingForTheSameValue) {
    CircleEmitter circle(1.0);
    const EventRecorder recorder(circle);
    circle.setRadius(1.0);
    EXPECT_EQ(recorder.events, "");
    circle.setRadius(2.0);
    circle.setRadius(2.0);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(circle.getRadius(), 2.0);
}

TEST(ParticleEmitterTest, ConeSetAngleRaisesOneChangeAndNothingForTheSameValue) {
    ConeEmitter cone(Radian(0.5));
    const EventRecorder recorder(cone);
    cone.setAngle(Radian(0.5));
    EXPECT_EQ(recorder.events, "");
    cone.setAngle(Radian(0.25));
    cone.setAngle(Radian(0.25));
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ParticleEmitterTest, SphereSetRadiusRaisesOneChangeAndNothingForTheSameValue) {
    SphereEmitter sphere(1.0);
    const EventRecorder recorder(sphere);
    sphere.setRadius(1.0);
    EXPECT_EQ(recorder.events, "");
    sphere.setRadius(3.0);
    sphere.setRadius(3.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ParticleEmitterTest, ConeNaNAngleIsAlwaysAChange) {
    ConeEmitter cone(Radian(0.5));
    const EventRecorder recorder(cone);
    cone.setAngle(Radian(NOT_A_NUMBER));
    cone.setAngle(Radian(NOT_A_NUMBER));
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(ParticleEmitterTest, ValueIsStoredWhileTheLockIsHeld) {
    CircleEmitter circle(1.0);
    double seenAtUnlock = 0.0;
    circle._addChangedLockEventListener([&](bool locked) {
        if (!locked) {
            seenAtUnlock = circle.getRadius();
        }
    });
    circle.setRadius(5.0);
    EXPECT_EQ(seenAtUnlock, 5.0);
}

// --- the cached data-library emitter ---

TEST(ParticleEmitterTest, FirstUpdateMakesADataEmitterOfTheSameKindAndParameter) {
    EXPECT_EQ(updated<keo::BoxEmitter>(BoxEmitter(Dimensions(1.0, 2.0, 3.0))).getDimensions(),
              Dimensions(1.0, 2.0, 3.0));
    EXPECT_EQ(updated<keo::CircleEmitter>(CircleEmitter(0.5)).getRadius(), 0.5);
    EXPECT_EQ(updated<keo::ConeEmitter>(ConeEmitter(Radian(0.3))).getAngle(), Radian(0.3));
    EXPECT_EQ(updated<keo::SphereEmitter>(SphereEmitter(2.0)).getRadius(), 2.0);
}

TEST(ParticleEmitterTest, UpdateAfterAChangeRefreshesTheSameDataEmitterInPlace) {
    BoxEmitter box(Dimensions(1.0, 1.0, 1.0));
    const auto first = box._update();
    box.setDimensions({4.0, 5.0, 6.0});
    const auto second = box._update();
    EXPECT_EQ(first, second);
    EXPECT_EQ(dynamic_cast<keo::BoxEmitter&>(*second).getDimensions(), Dimensions(4.0, 5.0, 6.0));

    CircleEmitter circle(1.0);
    auto& circleData = updated<keo::CircleEmitter>(circle);
    circle.setRadius(7.0);
    EXPECT_EQ(&updated<keo::CircleEmitter>(circle), &circleData);
    EXPECT_EQ(circleData.getRadius(), 7.0);

    ConeEmitter cone(Radian(0.1));
    auto& coneData = updated<keo::ConeEmitter>(cone);
    cone.setAngle(Radian(0.9));
    EXPECT_EQ(&updated<keo::ConeEmitter>(cone), &coneData);
    EXPECT_EQ(coneData.getAngle(), Radian(0.9));

    SphereEmitter sphere(1.0);
    auto& sphereData = updated<keo::SphereEmitter>(sphere);
    sphere.setRadius(8.0);
    EXPECT_EQ(&updated<keo::SphereEmitter>(sphere), &sphereData);
    EXPECT_EQ(sphereData.getRadius(), 8.0);
}

TEST(ParticleEmitterTest, UpdateWithoutAChangeLeavesTheDataEmitterAlone) {
    CircleEmitter circle(1.0);
    auto& data = updated<keo::CircleEmitter>(circle);
    data.setRadius(42.0); // written by someone else: only a change of the emitter overwrites it
    EXPECT_EQ(updated<keo::CircleEmitter>(circle).getRadius(), 42.0);
    circle.setRadius(1.0); // equal: not a change
    EXPECT_EQ(updated<keo::CircleEmitter>(circle).getRadius(), 42.0);
    circle.setRadius(2.0);
    EXPECT_EQ(updated<keo::CircleEmitter>(circle).getRadius(), 2.0);
}

TEST(ParticleEmitterTest, ChangeBeforeTheFirstUpdateIsInTheNewDataEmitter) {
    SphereEmitter sphere(1.0);
    sphere.setRadius(9.0);
    EXPECT_EQ(updated<keo::SphereEmitter>(sphere).getRadius(), 9.0);
}

// --- copy and move ---

TEST(ParticleEmitterTest, CopyHasTheSameParameterFreshEventsAndNoDataEmitter) {
    CircleEmitter source(3.0);
    const EventRecorder sourceRecorder(source);
    const auto& sourceData = source._update();
    CircleEmitter copy(source);
    EXPECT_EQ(copy.getRadius(), 3.0);
    EXPECT_NE(copy._update(), sourceData);
    const EventRecorder copyRecorder(copy);
    copy.setRadius(4.0);
    EXPECT_EQ(copyRecorder.events, "LUD");
    EXPECT_EQ(sourceRecorder.events, "");
    EXPECT_EQ(source.getRadius(), 3.0);
}

TEST(ParticleEmitterTest, CopiesOfEveryKindKeepTheirParameter) {
    const BoxEmitter box(Dimensions(1.0, 2.0, 3.0));
    EXPECT_EQ(BoxEmitter(box).getDimensions(), box.getDimensions());
    const ConeEmitter cone(Radian(0.4));
    EXPECT_EQ(ConeEmitter(cone).getAngle(), cone.getAngle());
    const SphereEmitter sphere(6.0);
    EXPECT_EQ(SphereEmitter(sphere).getRadius(), 6.0);
}

TEST(ParticleEmitterTest, MoveLeavesTheSourceWithItsListenersAndDataEmitter) {
    BoxEmitter source(Dimensions(1.0, 1.0, 1.0));
    const EventRecorder sourceRecorder(source);
    const auto data = source._update();
    BoxEmitter moved(std::move(source));
    EXPECT_EQ(moved.getDimensions(), Dimensions(1.0, 1.0, 1.0));
    EXPECT_NE(moved._update(), data);
    source.setDimensions({2.0, 2.0, 2.0}); // NOLINT(bugprone-use-after-move): stays usable
    EXPECT_EQ(sourceRecorder.events, "LUD");
    EXPECT_EQ(source._update(), data);

    CircleEmitter circle(1.0);
    EXPECT_EQ(CircleEmitter(std::move(circle)).getRadius(), 1.0);
    ConeEmitter cone(Radian(0.2));
    EXPECT_EQ(ConeEmitter(std::move(cone)).getAngle(), Radian(0.2));
    SphereEmitter sphere(2.0);
    EXPECT_EQ(SphereEmitter(std::move(sphere)).getRadius(), 2.0);
}

// --- checks that stop the process ---

// @p text with the special characters of a regular expression escaped.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (std::string("\\^$.|?*+()[]{}").find(c) != std::string::npos) {
            result += '\\';
        }
        result += c;
    }
    return result;
}

// The start of the standard assertion report at @p site for an expression beginning with
// @p expressionStart, as a regular expression.
std::string reportStart(const std::string& site, const std::string& expressionStart) {
    return escaped(site) + ": .*Assertion `" + escaped(expressionStart);
}

// The standard assertion report at @p site for exactly @p expression, as a regular expression.
std::string report(const std::string& site, const std::string& expression) {
    return reportStart(site, expression) + "' failed";
}

class ParticleEmitterDeathTest : public testing::Test {
protected:
    void SetUp() override { testing::GTEST_FLAG(death_test_style) = "threadsafe"; }
};

TEST_F(ParticleEmitterDeathTest, CircleOfRadiusZeroStops) {
    EXPECT_DEATH(CircleEmitter(0.0),
                 report("Core/include/Feature/ParticleEmitter:124", "radius > 0.0"));
}

TEST_F(ParticleEmitterDeathTest, CircleOfNaNRadiusStops) {
    EXPECT_DEATH(CircleEmitter{NOT_A_NUMBER},
                 report("Core/include/Feature/ParticleEmitter:124", "radius > 0.0"));
}

TEST_F(ParticleEmitterDeathTest, CircleSetRadiusToZeroStops) {
    CircleEmitter circle(1.0);
    EXPECT_DEATH(circle.setRadius(0.0),
                 report("Core/src/Feature/ParticleEmitter:120", "value > 0.0"));
}

TEST_F(ParticleEmitterDeathTest, SphereOfNegativeRadiusStops) {
    EXPECT_DEATH(SphereEmitter(-1.0),
                 report("Core/include/Feature/ParticleEmitter:198", "radius > 0"));
}

TEST_F(ParticleEmitterDeathTest, SphereSetRadiusToANegativeValueStops) {
    SphereEmitter sphere(1.0);
    EXPECT_DEATH(sphere.setRadius(-2.0),
                 report("Core/src/Feature/ParticleEmitter:194", "value > 0"));
}

TEST_F(ParticleEmitterDeathTest, SetDimensionsWithANegativeXStopsWithTheXMessage) {
    BoxEmitter box(Dimensions(0.0, 0.0, 0.0));
    EXPECT_DEATH(box.setDimensions({-1.0, 0.0, 0.0}),
                 report("Core/src/Feature/ParticleEmitter:79",
                        "value.x >= 0.0 && \"dimensions.x must be greater than or equal to 0.0\""));
}

TEST_F(ParticleEmitterDeathTest, SetDimensionsWithANegativeYStopsWithTheYMessage) {
    BoxEmitter box(Dimensions(0.0, 0.0, 0.0));
    EXPECT_DEATH(box.setDimensions({0.0, -1.0, 0.0}),
                 report("Core/src/Feature/ParticleEmitter:80",
                        "value.y >= 0.0 && \"dimensions.y must be greater than or equal to 0.0\""));
}

TEST_F(ParticleEmitterDeathTest, SetDimensionsWithANegativeZStopsWithTheZMessage) {
    BoxEmitter box(Dimensions(0.0, 0.0, 0.0));
    EXPECT_DEATH(box.setDimensions({0.0, 0.0, -1.0}),
                 report("Core/src/Feature/ParticleEmitter:81",
                        "value.z >= 0.0 && \"dimensions.z must be greater than or equal to 0.0\""));
}

TEST_F(ParticleEmitterDeathTest, SetDimensionsChecksXBeforeYAndZ) {
    BoxEmitter box(Dimensions(0.0, 0.0, 0.0));
    EXPECT_DEATH(box.setDimensions({-1.0, -1.0, -1.0}),
                 reportStart("Core/src/Feature/ParticleEmitter:79", "value.x >= 0.0"));
}

TEST_F(ParticleEmitterDeathTest, BoxConstructedWithANegativeDimensionStops) {
    EXPECT_DEATH(BoxEmitter(Dimensions(0.0, 0.0, -0.5)),
                 reportStart("Core/src/Feature/ParticleEmitter:81", "value.z >= 0.0"));
}

TEST_F(ParticleEmitterDeathTest, SetDimensionsWithNaNStops) {
    BoxEmitter box(Dimensions(1.0, 1.0, 1.0));
    EXPECT_DEATH(box.setDimensions({1.0, NOT_A_NUMBER, 1.0}),
                 reportStart("Core/src/Feature/ParticleEmitter:80", "value.y >= 0.0"));
}

} // namespace
