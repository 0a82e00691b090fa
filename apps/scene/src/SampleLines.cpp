#include "SampleKinds.h"

#include "Common/Color.h"
#include "Common/Math.h"
#include "Common/Vector2.h"
#include "Data/HeightReference.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineGlowMaterial.h"
#include "Feature/LineOutlineMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/LineVolumeSymbol.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"

#include <cmath>
#include <memory>
#include <utility>

namespace keo::scene {

namespace {

using Feature::LengthLabelSymbol;
using Feature::LineSymbol;
using Feature::PolylineGeometry;
using Feature::PolylineStyle;

std::shared_ptr<Feature::LabelSymbol> lineLabel() {
    auto label = std::make_shared<Feature::LabelSymbol>();
    label->setFont("sans-serif");
    label->setSize(14.0f);
    label->setPixelOffset(Vector2<float>(0.0f, -16.0f));
    return label;
}

std::shared_ptr<LineSymbol> lineOf(std::shared_ptr<Feature::Material> material, float width) {
    auto line = std::make_shared<LineSymbol>();
    line->setMaterial(std::move(material));
    line->setWidth(width);
    return line;
}

SceneFeature assembleLine(std::uint64_t id, const std::string& name,
                          std::vector<Cartographic> positions,
                          std::shared_ptr<PolylineStyle> style) {
    return assemble(id, name, std::make_shared<PolylineGeometry>(std::move(positions)),
                    std::move(style));
}

} // namespace

Cartographic samplePlace(double east, double north, double height) {
    return Cartographic::fromDegrees(116.39 + east, 39.91 + north, height);
}

SceneFeature makeRoad(std::uint64_t id, const std::string& name) {
    auto road =
        lineOf(std::make_shared<Feature::LineDashMaterial>(Color::YELLOW, Color::BLACK), 4.0f);
    auto lengths = std::make_shared<LengthLabelSymbol>();
    lengths->setUnit(LengthLabelSymbol::LengthUnit::Kilometer);
    lengths->setDecimalPlaces(3);
    road->setLengthLabelSymbol(std::move(lengths));
    auto style = std::make_shared<PolylineStyle>();
    style->setLineSymbol(std::move(road));
    style->setLabelSymbol(lineLabel());
    // Relative to the ground: a line is drawn clamped instead (with a warning), and its lengths
    // are measured on the ellipsoid.
    style->setHeightReference(HeightReference::RelativeToGround);
    return assembleLine(id, name,
                        {samplePlace(0.02, -0.02, 0.0), samplePlace(0.03, -0.015, 0.0),
                         samplePlace(0.04, -0.02, 0.0), samplePlace(0.05, -0.01, 0.0)},
                        std::move(style));
}

std::vector<Cartographic> patrolRoute(std::size_t vertices) {
    std::vector<Cartographic> route;
    for (std::size_t i = 0; i < vertices; ++i) {
        const double step = static_cast<double>(i);
        route.push_back(samplePlace(0.02 + 0.006 * step, 0.02 + 0.004 * std::sin(step), 30.0));
    }
    return route;
}

SceneFeature makePatrol(std::uint64_t id, const std::string& name) {
    auto patrol = lineOf(
        std::make_shared<Feature::LineGlowMaterial>(Color(0.0f, 0.9f, 1.0f, 1.0f), 0.3f), 6.0f);
    Feature::Path path;
    path.enabled = true;
    path.speed = 50.0f;
    patrol->setPath(path);
    auto lengths = std::make_shared<LengthLabelSymbol>();
    lengths->setShowTotal(false);
    lengths->setDecimalPlaces(0);
    patrol->setLengthLabelSymbol(std::move(lengths));
    auto style = std::make_shared<PolylineStyle>();
    style->setLineSymbol(std::move(patrol));
    style->setLabelSymbol(lineLabel());
    return assembleLine(id, name, patrolRoute(4), std::move(style));
}

SceneFeature makeFence(std::uint64_t id, const std::string& name) {
    auto body = std::make_shared<Feature::PolygonSymbol>(
        std::make_shared<Feature::ColorMaterial>(Color(0.55f, 0.35f, 0.2f, 0.8f)));
    body->setOutLineSymbol(lineOf(std::make_shared<Feature::ColorMaterial>(Color::BLACK), 1.0f));
    auto extrusion = std::make_shared<Feature::ExtrusionSymbol>();
    extrusion->setHeight(3.0);
    extrusion->setBodySymbol(std::move(body));
    extrusion->setTailSymbol(
        lineOf(std::make_shared<Feature::ColorMaterial>(Color(0.3f, 0.2f, 0.1f, 1.0f)), 2.0f));
    auto style = std::make_shared<PolylineStyle>();
    style->setExtrusionSymbol(std::move(extrusion));
    style->setLineSymbol(lineOf(std::make_shared<Feature::ColorMaterial>(Color::BLACK), 1.0f));
    return assembleLine(id, name,
                        {samplePlace(-0.02, -0.02, 50.0), samplePlace(-0.02, -0.025, 50.0),
                         samplePlace(-0.03, -0.025, 50.0)},
                        std::move(style));
}

SceneFeature makePipe(std::uint64_t id, const std::string& name) {
    // A circle of 0.5 m radius in eight points.
    std::vector<Vector2<double>> circle;
    for (int i = 0; i < 8; ++i) {
        const double angle = Math::TWO_PI * i / 8.0;
        circle.emplace_back(0.5 * std::cos(angle), 0.5 * std::sin(angle));
    }
    auto pipe = std::make_shared<Feature::LineVolumeSymbol>();
    pipe->setShape(std::move(circle));
    pipe->setMaterial(std::make_shared<Feature::ColorMaterial>(Color(0.6f, 0.6f, 0.65f, 1.0f)));
    auto style = std::make_shared<PolylineStyle>();
    style->setLineVolumeSymbol(std::move(pipe));
    return assembleLine(id, name,
                        {samplePlace(-0.02, 0.02, 10.0), samplePlace(-0.025, 0.025, 12.0),
                         samplePlace(-0.03, 0.025, 12.0)},
                        std::move(style));
}

SceneFeature makeCanal(std::uint64_t id, const std::string& name) {
    auto style = std::make_shared<PolylineStyle>();
    style->setLineSymbol(
        lineOf(std::make_shared<Feature::ColorMaterial>(Color(0.1f, 0.3f, 0.8f, 1.0f)), 8.0f));
    style->setOverlayLineSymbol(lineOf(
        std::make_shared<Feature::LineOutlineMaterial>(Color::WHITE, Color::BLUE, 1.0f), 2.0f));
    style->setLabelSymbol(lineLabel());
    style->setHeightReference(HeightReference::ClampToGround);
    return assembleLine(id, name,
                        {samplePlace(0.0, -0.03, 0.0), samplePlace(0.01, -0.035, 0.0),
                         samplePlace(0.02, -0.03, 0.0)},
                        std::move(style));
}

} // namespace keo::scene
