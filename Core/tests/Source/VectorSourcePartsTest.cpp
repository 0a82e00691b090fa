// An attribute edit through the source evaluates again only the values that read the attribute,
// and hands on only the parts of the style those values belong to: every other symbol and
// material of the feature is left as it is, and no other feature redraws.
#include "Source/VectorSource.h"

#include "SourceTestSupport.h"

#include "Common/Color.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineStyle.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::AttributeValue;
using keo::Feature::ColorMaterial;
using keo::Feature::Feature;
using keo::Feature::Material;
using keo::Feature::PolygonSymbol;
using keo::Feature::Style;
using keo::Source::LoadOptions;
using keo::Source::LoadReport;
using keo::Source::test::integer;
using keo::Source::test::Loaded;
using keo::Source::test::text;

// A block (id 1), a road (id 2) and a well (id 3); each attribute drives one part of the style.
const char* const PLACES = R"({"type": "FeatureCollection", "features": [
  {"type": "Feature", "id": 1,
   "properties": {"title": "Block", "tint": "red", "edge": 2, "height": 30, "base": 0,
                  "stone": "granite", "hidden": 0, "note": "a", "fontSize": 12},
   "geometry": {"type": "Polygon", "coordinates": [[[6, 46], [6.02, 46], [6.02, 46.02], [6, 46]]]}},
  {"type": "Feature", "id": 2, "properties": {"title": "Road", "lanes": 2, "hidden": 0, "fontSize": 12},
   "geometry": {"type": "LineString", "coordinates": [[6.0, 45.0], [6.1, 45.1]]}},
  {"type": "Feature", "id": 3, "properties": {"title": "Well", "pop": 5, "hidden": 0, "fontSize": 12},
   "geometry": {"type": "Point", "coordinates": [6.0, 45.5]}}
]})";

const char* const SHEET = R"json({"rules": [{
  "point": {"size": ["get", "pop"]},
  "polyline": {"width": ["get", "lanes"]},
  "polygon": {"fill": ["match", ["get", "tint"], "red", "#ff0000", "#00ff00"],
              "outlineWidth": ["get", "edge"]},
  "extrusion": {"height": ["get", "height"], "base": ["get", "base"],
                "material": ["match", ["get", "stone"], "granite", "#808080", "#c0c0c0"]},
  "label": {"text": ["get", "title"], "size": ["get", "fontSize"]},
  "visible": ["!=", ["get", "hidden"], 1]
}]})json";

// A value no rule of the sheet gives: a part that still holds it was not handed on again.
constexpr float MARK = 99.0f;
const char* const MARK_TEXT = "mark";
const Color MARK_COLOUR(1.0f, 0.0f, 1.0f);

Loaded load() {
    return keo::Source::test::loadText(PLACES, SHEET, LoadOptions{});
}

// The feature gives its style out read-only; the test edits it as the application that holds the
// style would.
Style& styleOf(Feature& feature) {
    return const_cast<Style&>(*feature.getStyle());
}

ColorMaterial& colourOf(const std::shared_ptr<Material>& material) {
    return dynamic_cast<ColorMaterial&>(*material);
}

PolygonSymbol& extrusionBodyOf(keo::Feature::PolygonStyle& style) {
    return dynamic_cast<PolygonSymbol&>(*style.getExtrusionSymbol()->getBodySymbol());
}

// Gives every part of @p feature's style a value the sheet does not give, as an application
// editing the symbols behind the source's back would.
void mark(Feature& feature) {
    feature.setShow(false);
    feature.setLabelText(MARK_TEXT);
    Style& style = styleOf(feature);
    style.getLabelSymbol()->setSize(MARK);
    if (auto* point = style.asPointStyle(); point != nullptr) {
        point->getPointSymbol()->setPixelSize(MARK);
    } else if (auto* line = style.asPolylineStyle(); line != nullptr) {
        line->getLineSymbol()->setWidth(MARK);
    } else if (auto* polygon = style.asPolygonStyle(); polygon != nullptr) {
        const auto& surface = polygon->getPolygonSymbol();
        colourOf(surface->getMaterial()).setColor(MARK_COLOUR);
        surface->getOutLineSymbol()->setWidth(MARK);
        polygon->getExtrusionSymbol()->setHeight(MARK);
        colourOf(extrusionBodyOf(*polygon).getMaterial()).setColor(MARK_COLOUR);
    }
}

// The parts of @p feature's style that lost their mark, in a fixed order, space separated.
std::string handedOn(Feature& feature) {
    std::vector<std::string> parts;
    Style& style = styleOf(feature);
    const auto note = [&parts](bool lost, const char* part) {
        if (lost) {
            parts.emplace_back(part);
        }
    };
    note(feature.isShow(), "feature");
    note(style.getLabelSymbol()->getSize() != MARK, "label");
    note(feature.getLabelText() != MARK_TEXT, "label-text");
    if (auto* point = style.asPointStyle(); point != nullptr) {
        note(point->getPointSymbol()->getPixelSize() != MARK, "point");
    } else if (auto* line = style.asPolylineStyle(); line != nullptr) {
        note(line->getLineSymbol()->getWidth() != MARK, "line");
    } else if (auto* polygon = style.asPolygonStyle(); polygon != nullptr) {
        const auto& surface = polygon->getPolygonSymbol();
        note(colourOf(surface->getMaterial()).getColor() != MARK_COLOUR, "fill");
        note(surface->getOutLineSymbol()->getWidth() != MARK, "outline");
        note(polygon->getExtrusionSymbol()->getHeight() != static_cast<double>(MARK), "extrusion");
        note(colourOf(extrusionBodyOf(*polygon).getMaterial()).getColor() != MARK_COLOUR,
             "extrusion-material");
    }
    std::string joined;
    for (const std::string& part : parts) {
        joined += joined.empty() ? part : " " + part;
    }
    return joined;
}

struct Edit {
    std::uint64_t id;
    const char* attribute;
    AttributeValue value;
    // The parts the edit hands on again.
    const char* parts;
};

// Marks every part of the feature, edits one attribute through the source, and returns the
// parts that the edit handed on.
std::string partsHandedOnBy(const Edit& edit) {
    Loaded loaded = load();
    EXPECT_NE(loaded.source, nullptr);
    if (loaded.source == nullptr) {
        return "<no source>";
    }
    const auto feature = loaded.source->feature(edit.id);
    mark(*feature);
    LoadReport report;
    EXPECT_TRUE(loaded.source->setAttribute(edit.id, edit.attribute, edit.value, report));
    EXPECT_EQ(report.problemCount(), 0U) << report.toText();
    return handedOn(*feature);
}

TEST(VectorSourcePartsTest, EveryPartKeepsItsMarkUntilAnEdit) {
    // A check of the test's own helpers: marking is seen as marking on every part.
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(1);
    mark(*block);
    EXPECT_EQ(handedOn(*block), "");
}

TEST(VectorSourcePartsTest, AnEditOfThePolygonHandsOnOnlyThePartsThatReadTheAttribute) {
    const std::vector<Edit> edits{
        {1, "tint", text("blue"), "fill"},
        {1, "edge", integer(3), "outline"},
        {1, "height", integer(40), "extrusion"},
        {1, "base", integer(5), "extrusion"},
        {1, "stone", text("brick"), "extrusion-material"},
        {1, "title", text("Tower"), "label-text"},
        {1, "fontSize", integer(14), "label"},
        {1, "hidden", integer(2), "feature"},
        {1, "note", text("b"), ""},
    };
    for (const Edit& edit : edits) {
        EXPECT_EQ(partsHandedOnBy(edit), edit.parts) << edit.attribute;
    }
}

TEST(VectorSourcePartsTest, AnEditOfALineOrAPointHandsOnOnlyThePartsThatReadTheAttribute) {
    const std::vector<Edit> edits{
        {2, "lanes", integer(4), "line"},     {2, "title", text("Lane"), "label-text"},
        {2, "hidden", integer(2), "feature"}, {2, "fontSize", integer(14), "label"},
        {3, "pop", integer(9), "point"},      {3, "title", text("Spring"), "label-text"},
        {3, "hidden", integer(2), "feature"},
    };
    for (const Edit& edit : edits) {
        EXPECT_EQ(partsHandedOnBy(edit), edit.parts) << edit.id << " " << edit.attribute;
    }
}

TEST(VectorSourcePartsTest, AnEditOfTheFillRecoloursTheSurfaceAndLeavesTheWallAndLabelAsDrawn) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(1);
    const auto road = loaded.source->feature(2);
    block->_updateEntityInCull(false);
    road->_updateEntityInCull(false);
    auto& polygon = *styleOf(*block).asPolygonStyle();
    int wallChanges = 0;
    int labelChanges = 0;
    int fillChanges = 0;
    polygon.getExtrusionSymbol()->_addDefinitionChangedEventListener([&] { ++wallChanges; });
    polygon.getLabelSymbol()->_addDefinitionChangedEventListener([&] { ++labelChanges; });
    polygon.getPolygonSymbol()->getMaterial()->_addDefinitionChangedEventListener(
        [&] { ++fillChanges; });
    LoadReport report;
    loaded.source->setAttribute(1, "tint", text("blue"), report);
    EXPECT_EQ(fillChanges, 1);
    EXPECT_EQ(wallChanges, 0);
    EXPECT_EQ(labelChanges, 0);
    EXPECT_EQ(colourOf(polygon.getPolygonSymbol()->getMaterial()).getColor(), Color::GREEN);
    EXPECT_FALSE(block->_isEntityReady()) << "the block redraws on its next update";
    EXPECT_TRUE(road->_isEntityReady()) << "nothing else redraws";
}

} // namespace
