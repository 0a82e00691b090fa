#include "SampleKinds.h"

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Data/HeightReference.h"
#include "Data/Image.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/ImageTileSizeUnit.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolygonDynamicMaterial.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace keo::scene {

namespace {

using Feature::ExtrusionSymbol;
using Feature::PolygonGeometry;
using Feature::PolygonStyle;
using Feature::PolygonSymbol;
using Hierarchy = PolygonGeometry::Hierarchy;

// A ring of corners given as (east, north) degrees from the sample's centre, at @p height.
std::vector<Cartographic> ring(const std::vector<std::pair<double, double>>& corners,
                               double height = 0.0) {
    std::vector<Cartographic> positions;
    for (const auto& [east, north] : corners) {
        positions.push_back(samplePlace(east, north, height));
    }
    return positions;
}

std::shared_ptr<Feature::LineSymbol> outline(const Color& color, float width) {
    auto line = std::make_shared<Feature::LineSymbol>();
    line->setMaterial(std::make_shared<Feature::ColorMaterial>(color));
    line->setWidth(width);
    return line;
}

std::shared_ptr<PolygonSymbol> fill(const Color& color) {
    return std::make_shared<PolygonSymbol>(std::make_shared<Feature::ColorMaterial>(color));
}

std::shared_ptr<Feature::LabelSymbol> areaLabel() {
    auto label = std::make_shared<Feature::LabelSymbol>();
    label->setFont("sans-serif");
    label->setSize(14.0f);
    return label;
}

SceneFeature assembleArea(std::uint64_t id, const std::string& name, const Hierarchy& hierarchy,
                          std::shared_ptr<PolygonStyle> style) {
    return assemble(id, name, std::make_shared<PolygonGeometry>(hierarchy), std::move(style));
}

Hierarchy outerOnly(std::vector<Cartographic> positions) {
    Hierarchy hierarchy;
    hierarchy.positions = std::move(positions);
    return hierarchy;
}

// A footprint 0.001 degree square at (@p east, @p north) from the centre, 40 m up, extruded by
// @p height metres as @p reference says.
SceneFeature makeExtruded(std::uint64_t id, const std::string& name, double east, double north,
                          double height, ExtrusionSymbol::HeightReference reference) {
    auto body = fill(Color(0.75f, 0.72f, 0.68f, 1.0f));
    body->setOutLineSymbol(outline(Color(0.3f, 0.3f, 0.3f, 1.0f), 1.0f));
    auto roof = fill(Color(0.55f, 0.2f, 0.15f, 1.0f));
    roof->setOutLineSymbol(outline(Color::BLACK, 1.5f));
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setHeight(height);
    extrusion->setHeightReference(reference);
    extrusion->setBodySymbol(std::move(body));
    extrusion->setTailSymbol(std::move(roof));
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(fill(Color(0.5f, 0.5f, 0.5f, 1.0f)));
    style->setExtrusionSymbol(std::move(extrusion));
    style->setLabelSymbol(areaLabel());
    const double size = 0.001;
    return assembleArea(id, name,
                        outerOnly(ring({{east, north},
                                        {east + size, north},
                                        {east + size, north + size},
                                        {east, north + size}},
                                       40.0)),
                        std::move(style));
}

} // namespace

Hierarchy parkHierarchy(bool secondPond) {
    Hierarchy park = outerOnly(ring({{0.03, 0.03}, {0.04, 0.03}, {0.04, 0.04}, {0.03, 0.04}}));
    park.holes.push_back(
        outerOnly(ring({{0.032, 0.032}, {0.035, 0.032}, {0.035, 0.035}, {0.032, 0.035}})));
    if (secondPond) {
        park.holes.push_back(
            outerOnly(ring({{0.036, 0.036}, {0.038, 0.036}, {0.038, 0.038}, {0.036, 0.038}})));
    }
    return park;
}

SceneFeature makePark(std::uint64_t id, const std::string& name) {
    auto lawn = fill(Color(0.2f, 0.6f, 0.2f, 0.8f));
    lawn->setOutLineSymbol(outline(Color(0.1f, 0.3f, 0.1f, 1.0f), 2.0f));
    auto lengths = std::make_shared<Feature::LengthLabelSymbol>();
    lengths->setDecimalPlaces(0);
    lawn->setLengthLabelSymbol(std::move(lengths));
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(std::move(lawn));
    style->setLabelSymbol(areaLabel());
    return assembleArea(id, name, parkHierarchy(false), std::move(style));
}

SceneFeature makeDistrict(std::uint64_t id, const std::string& name) {
    // A U: the middle of its extent lies in the notch between the arms.
    auto style = std::make_shared<PolygonStyle>();
    auto area = fill(Color(0.9f, 0.8f, 0.3f, 0.5f));
    area->setOutLineSymbol(outline(Color(0.6f, 0.5f, 0.1f, 1.0f), 1.0f));
    style->setPolygonSymbol(std::move(area));
    style->setLabelSymbol(areaLabel());
    return assembleArea(id, name,
                        outerOnly(ring({{-0.05, 0.03},
                                        {-0.02, 0.03},
                                        {-0.02, 0.06},
                                        {-0.03, 0.06},
                                        {-0.03, 0.04},
                                        {-0.04, 0.04},
                                        {-0.04, 0.06},
                                        {-0.05, 0.06}})),
                        std::move(style));
}

SceneFeature makeBuilding(std::uint64_t id, const std::string& name) {
    return makeExtruded(id, name, 0.005, 0.005, 45.0, ExtrusionSymbol::HeightReference::Relative);
}

SceneFeature makeTowerBlock(std::uint64_t id, const std::string& name) {
    return makeExtruded(id, name, 0.008, 0.005, 120.0, ExtrusionSymbol::HeightReference::Absolute);
}

SceneFeature makePlaza(std::uint64_t id, const std::string& name) {
    auto tiles = std::make_shared<Feature::PolygonDynamicMaterial>();
    tiles->setImage(std::string("images/paving.png"));
    tiles->setTileSize(Vector2<float>(20.0f, 20.0f));
    tiles->setTileSizeUnit(Feature::ImageTileSizeUnit::Meter);
    tiles->setMoving(true);
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(std::make_shared<PolygonSymbol>(std::move(tiles)));
    style->setLabelSymbol(areaLabel());
    return assembleArea(
        id, name,
        outerOnly(ring({{0.01, -0.005}, {0.013, -0.005}, {0.013, -0.003}, {0.01, -0.003}}, 45.0)),
        std::move(style));
}

SceneFeature makeField(std::uint64_t id, const std::string& name) {
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(fill(Color(0.7f, 0.6f, 0.3f, 0.6f)));
    style->setLabelSymbol(areaLabel());
    // Relative to the terrain: a filled area cannot follow it and is drawn clamped instead.
    style->setHeightReference(HeightReference::RelativeToTerrain);
    return assembleArea(
        id, name,
        outerOnly(ring({{-0.04, -0.04}, {-0.03, -0.04}, {-0.03, -0.035}, {-0.04, -0.035}}, 5.0)),
        std::move(style));
}

} // namespace keo::scene
