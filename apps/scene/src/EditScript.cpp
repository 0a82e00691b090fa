#include "EditScript.h"

#include "Sample.h"
#include "SampleKinds.h"
#include "Scene.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Radian.h"
#include "Feature/ColorMaterial.h"
#include "Feature/EllipseGeometry.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/MultiGeometry.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolygonGeometry.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/RectangleGeometry.h"

#include <cctype>
#include <memory>

namespace keo::scene {

namespace {

// The sample's features, by their place in the sample table.
constexpr std::uint64_t MARKER_ID = FIRST_FEATURE_ID;
constexpr std::uint64_t PIN_ID = FIRST_FEATURE_ID + 1;
constexpr std::uint64_t SPHERE_ID = FIRST_FEATURE_ID + 6;
constexpr std::uint64_t DRONE_ID = FIRST_FEATURE_ID + 7;
constexpr std::uint64_t PATROL_ID = FIRST_FEATURE_ID + 9;
constexpr std::uint64_t PARK_ID = FIRST_FEATURE_ID + 13;
constexpr std::uint64_t DISTRICT_ID = FIRST_FEATURE_ID + 14;
constexpr std::uint64_t BUILDING_ID = FIRST_FEATURE_ID + 15;
constexpr std::uint64_t STADIUM_ID = FIRST_FEATURE_ID + 19;
constexpr std::uint64_t SEARCH_AREA_ID = FIRST_FEATURE_ID + 20;
constexpr std::uint64_t FLEET_ID = FIRST_FEATURE_ID + 21;
constexpr std::uint64_t RIVER_ID = FIRST_FEATURE_ID + 22;
constexpr std::uint64_t ISLANDS_ID = FIRST_FEATURE_ID + 23;

template <typename Kind>
Kind& geometryOf(Scene& scene, std::uint64_t id) {
    return static_cast<Kind&>(*scene.feature(id)->getGeometry());
}

void recolourMarker(Scene& scene) {
    scene.style(MARKER_ID)->asPointStyle()->getPointSymbol()->setColor(Color::YELLOW);
}

void moveMarker(Scene& scene) {
    auto& geometry = static_cast<Feature::PointGeometry&>(*scene.feature(MARKER_ID)->getGeometry());
    geometry.setPosition(Cartographic::fromDegrees(116.39, 39.9145, 0.0));
}

void hideParticles(Scene& scene) {
    scene.group("particles").setShow(false);
}

void showParticles(Scene& scene) {
    scene.group("particles").setShow(true);
}

void highlightPin(Scene& scene) {
    scene.feature(PIN_ID)->setHighlight(true);
}

void swapMarkerStyle(Scene& scene) {
    scene.setStyle(MARKER_ID, makePinStyle());
}

void replaceSphere(Scene& scene) {
    scene.remove(SPHERE_ID);
    scene.add("markers", makeMarker(BEACON_ID, "Beacon"));
}

void relabelAll(Scene& scene) {
    Feature::FeatureCollection& collection = scene.collection();
    collection.suspendEvents();
    for (const auto& feature : collection.getValues()) {
        std::string text = feature->getName();
        for (char& c : text) {
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
        feature->setLabelText(text);
    }
    collection.resumeEvents();
}

void dropDroneHintLine(Scene& scene) {
    scene.style(DRONE_ID)->getLabelSymbol()->setShowHintLine(false);
}

void setPatrolRoute(Scene& scene, std::size_t vertices) {
    auto& geometry =
        static_cast<Feature::PolylineGeometry&>(*scene.feature(PATROL_ID)->getGeometry());
    geometry.setPositions(patrolRoute(vertices));
}

void extendPatrol(Scene& scene) {
    setPatrolRoute(scene, 5);
}

void shortenPatrol(Scene& scene) {
    setPatrolRoute(scene, 3);
}

void raiseBuilding(Scene& scene) {
    scene.style(BUILDING_ID)->asPolygonStyle()->getExtrusionSymbol()->setHeight(60.0);
}

void punchSecondPond(Scene& scene) {
    auto& geometry = static_cast<Feature::PolygonGeometry&>(*scene.feature(PARK_ID)->getGeometry());
    geometry.setHierarchy(parkHierarchy(true));
}

void dropParkEdgeLabels(Scene& scene) {
    scene.style(PARK_ID)->asPolygonStyle()->getPolygonSymbol()->getLengthLabelSymbol()->setEnabled(
        false);
}

void recolourDistrict(Scene& scene) {
    auto& symbol = *scene.style(DISTRICT_ID)->asPolygonStyle()->getPolygonSymbol();
    symbol.setMaterial(std::make_shared<Feature::ColorMaterial>(Color(0.3f, 0.5f, 0.9f, 0.5f)));
}

void widenSearchArea(Scene& scene) {
    geometryOf<Feature::EllipseGeometry>(scene, SEARCH_AREA_ID).setSemiMajorAxis(1400.0);
}

void narrowSearchArea(Scene& scene) {
    geometryOf<Feature::EllipseGeometry>(scene, SEARCH_AREA_ID).setSemiMinorAxis(300.0);
}

void moveBoat(Scene& scene) {
    const auto& fleet = geometryOf<Feature::MultiGeometry>(scene, FLEET_ID);
    Cartographic place = fleetBoat(2);
    place.latitude = Radian(place.latitude.value() + 400.0 / 6378137.0);
    static_cast<Feature::PointGeometry&>(*fleet.getComponents()[2]).setPosition(place);
}

void dropRiverBranch(Scene& scene) {
    auto& river = geometryOf<Feature::MultiGeometry>(scene, RIVER_ID);
    river.remove(river.getComponents()[1].get());
}

void turnStadium(Scene& scene) {
    geometryOf<Feature::RectangleGeometry>(scene, STADIUM_ID).setRotate(Radian(0.6));
}

void addIsland(Scene& scene) {
    geometryOf<Feature::MultiGeometry>(scene, ISLANDS_ID).add(makeIsland(3));
}

} // namespace

const std::vector<ScriptedEdit>& editScript() {
    static const std::vector<ScriptedEdit> script = {
        {2, "recolour the dot of \"Marker\" from red to yellow", &recolourMarker},
        {3, "move \"Marker\" 500 m north", &moveMarker},
        {3, "raise \"Building\" from 45 m to 60 m", &raiseBuilding},
        {4, "hide the group \"particles\"", &hideParticles},
        {4, "widen \"Search area\": major semi-axis 900 m to 1400 m", &widenSearchArea},
        {5, "show the group \"particles\" again", &showParticles},
        {5, "punch a second pond into \"Park\"", &punchSecondPond},
        {6, "highlight \"Pin\"", &highlightPin},
        {6, "move the third boat of \"Fleet\" 400 m north", &moveBoat},
        {7, "swap the style of \"Marker\" for an image with a hint-lined label", &swapMarkerStyle},
        {7, "turn off the edge labels of \"Park\"", &dropParkEdgeLabels},
        {8, "remove \"Sphere spray\" and add the marker \"Beacon\" (id 2001)", &replaceSphere},
        {8, "narrow \"Search area\": minor semi-axis 500 m to 300 m", &narrowSearchArea},
        {9, "label every feature with its name in capitals, collection suspended", &relabelAll},
        {10, "turn off the hint line of \"Drone\"", &dropDroneHintLine},
        {10, "drop the second branch of \"River\"", &dropRiverBranch},
        {11, "recolour the fill of \"District\" blue", &recolourDistrict},
        {11, "append a vertex to \"Patrol\" (4 to 5 vertices)", &extendPatrol},
        {11, "turn \"Stadium\" from 0.35 rad to 0.6 rad", &turnStadium},
        {12, "shorten \"Patrol\" to 3 vertices: its segment labels 2 and 3 go", &shortenPatrol},
        {12, "add a fourth island to \"Islands\"", &addIsland},
    };
    return script;
}

std::vector<std::string> applyEditsBefore(std::uint32_t frame, Scene& scene) {
    std::vector<std::string> applied;
    for (const ScriptedEdit& edit : editScript()) {
        if (edit.beforeFrame == frame) {
            edit.apply(scene);
            applied.emplace_back(edit.description);
        }
    }
    return applied;
}

} // namespace keo::scene
