#pragma once

#include "Feature/Material.h"

#include "FeatureTestSupport.h"

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Data/MaterialProperty.h"
#include "Data/PolygonGraphics.h"
#include "Data/WallGraphics.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace keo::Feature::test {

/**
 * Whether @p material's changed flag was set, read through @p property (its cached property):
 * a material hands its breathing rate to the property only while changed. Updates the material,
 * so the flag is clear afterwards.
 */
inline bool takeChangedFlag(Material& material, MaterialProperty& property) {
    constexpr float untouched = -12345.0f;
    property.setBreathingRate(untouched);
    material._getMaterial(false);
    return property.getBreathingRate() != untouched;
}

/**
 * Checks one setter of a material of kind M against the edit rule, on a copy of @p prototype
 * whose property exists and whose changed flag is clear: the current value raises nothing and
 * leaves the flag clear; @p newValue raises lock, unlock and one definition change, is stored and
 * sets the flag.
 */
template <typename M, typename Value, typename Setter, typename Getter>
void expectSetterRule(const M& prototype, Setter setter, Getter getter, const Value& newValue) {
    M material(prototype);
    const auto property = material._getMaterial(false);
    EventRecorder recorder(material);
    const auto current = (material.*getter)();
    (material.*setter)(current);
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(takeChangedFlag(material, *property));
    (material.*setter)(newValue);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_TRUE((material.*getter)() == newValue);
    EXPECT_TRUE(takeChangedFlag(material, *property));
}

/** A field of a material of kind M, named, with a test of whether two materials agree on it. */
template <typename M>
struct FieldProbe {
    std::string name;
    std::function<bool(const M&, const M&)> equal;
};

/** What assigning showed: the events raised and the fields in the order they took the value. */
struct AssignTrace {
    std::string events;
    std::vector<std::string> order;
};

/**
 * Assigns @p source to a copy of @p target and traces it: at each definition change, the fields
 * of @p fields that have just come to agree with @p source are appended to the order.
 */
template <typename M>
AssignTrace traceAssign(const M& target, const M& source,
                        const std::vector<FieldProbe<M>>& fields) {
    M copy(target);
    AssignTrace trace;
    std::vector<bool> done(fields.size(), false);
    EventRecorder recorder(copy);
    copy._addDefinitionChangedEventListener([&] {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (!done[i] && fields[i].equal(copy, source)) {
                done[i] = true;
                trace.order.push_back(fields[i].name);
            }
        }
    });
    copy.assign(source);
    trace.events = recorder.events;
    return trace;
}

/**
 * Checks that assigning @p other (of another kind) to a copy of @p target logs the kind mismatch
 * once at level 3 from the kind @p name's assign and raises nothing.
 */
template <typename M>
void expectAssignFromOtherKindLogs(const M& target, const Material& other,
                                   const std::string& name) {
    M copy(target);
    const CapturedLog log;
    EventRecorder recorder(copy);
    copy.assign(other);
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/" + name);
    EXPECT_EQ(records[0].location.line,
              logSiteLine("Core/src/Feature/" + name, "keo::Feature::" + name + "::assign"));
    EXPECT_NE(records[0].location.line, 0);
    EXPECT_EQ(records[0].location.function, "keo::Feature::" + name + "::assign");
}

/** The Cartesian position (ECEF metres, WGS84) of a longitude and latitude in degrees. */
inline Vector3<double> cartesianOfDegrees(double longitude, double latitude) {
    return Ellipsoid::WGS84.cartographicToCartesian(Cartographic::fromDegrees(longitude, latitude));
}

/** Polygon graphics whose outer ring is the rectangle of the given bounds in degrees. */
inline std::unique_ptr<PolygonGraphics> polygonOfDegrees(double west, double south, double east,
                                                         double north) {
    auto polygon = std::make_unique<PolygonGraphics>();
    polygon->setHierarchy(
        PolygonHierarchy({cartesianOfDegrees(west, south), cartesianOfDegrees(east, south),
                          cartesianOfDegrees(east, north), cartesianOfDegrees(west, north)}));
    return polygon;
}

/** Wall graphics along @p positions with the given height lists, metres. */
inline std::unique_ptr<WallGraphics> wallOf(std::vector<Vector3<double>> positions,
                                            std::vector<double> minimumHeights,
                                            std::vector<double> maximumHeights) {
    auto wall = std::make_unique<WallGraphics>();
    wall->setPositions(std::move(positions));
    wall->setMinimumHeights(std::move(minimumHeights));
    wall->setMaximumHeights(std::move(maximumHeights));
    return wall;
}

/** A wall of two positions 1000 m apart, from 0 m to 50 m high. */
inline std::unique_ptr<WallGraphics> wallOf1000By50() {
    return wallOf({{6378137.0, 0.0, 0.0}, {6378137.0, 1000.0, 0.0}}, {0.0, 0.0}, {50.0, 50.0});
}

} // namespace keo::Feature::test
