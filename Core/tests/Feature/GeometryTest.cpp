#include "Feature/Geometry.h"

#include "Data/ColorMaterialProperty.h"
#include "Data/Entity.h"
#include "Data/Image.h"
#include "Data/LabelGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "FeatureTestSupport.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using keo::Color;
using keo::DistanceDisplayCondition;
using keo::Entity;
using keo::LabelGraphics;
using keo::PolylineGraphics;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::LineSymbol;
using keo::Feature::Style;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::TestGeometry;
using keo::Feature::test::TestStyle;

// A root entity, a feature and a style with a label symbol, to drive updateLabel directly.
struct LabelScene {
    LabelScene() {
        feature.setName("name");
        style.setLabelSymbol(symbol);
    }
    bool update() { return geometry.updateLabel(*root, feature, &style); }
    std::shared_ptr<Entity> label() const { return root->getChildByName("label-symbol"); }
    const LabelGraphics& graphics() const {
        return *label()->getGeometryGraphics()->as<LabelGraphics>();
    }
    std::shared_ptr<Entity> hintLine() const {
        const auto l = label();
        return l ? l->getChildByName("hint-line") : nullptr;
    }

    std::shared_ptr<Entity> root = std::make_shared<Entity>();
    Feature feature{std::uint64_t{1}};
    TestGeometry geometry;
    TestStyle style;
    std::shared_ptr<LabelSymbol> symbol = std::make_shared<LabelSymbol>();
};

// --- the base --------------------------------------------------------------------------------

TEST(GeometryTest, TypeCodesAreTheKitsCodes) {
    EXPECT_EQ(static_cast<int>(Geometry::Type::Base), 0);
    EXPECT_EQ(static_cast<int>(Geometry::Type::Multi), 1);
    EXPECT_EQ(static_cast<int>(Geometry::Type::Point), 300);
    EXPECT_EQ(static_cast<int>(Geometry::Type::Polyline), 301);
    EXPECT_EQ(static_cast<int>(Geometry::Type::Polygon), 302);
    EXPECT_EQ(static_cast<int>(Geometry::Type::Rectangle), 303);
    EXPECT_EQ(static_cast<int>(Geometry::Type::Ellipse), 304);
}

TEST(GeometryTest, CloneOfAGeometryWithAnAnchorHasNoAnchor) {
    TestGeometry geometry;
    geometry.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    geometry.storeAnchor({1.0, 2.0, 3.0});
    ASSERT_TRUE(geometry.getDistanceDisplayConditionAnchor().has_value());
    const auto copy = geometry.clone();
    EXPECT_FALSE(copy->getDistanceDisplayConditionAnchor().has_value());
    EXPECT_EQ(copy->getDistanceDisplayCondition(), geometry.getDistanceDisplayCondition());
}

TEST(GeometryTest, CloneHasNoListeners) {
    TestGeometry geometry;
    EventRecorder recorder(geometry);
    const auto copy = geometry.clone();
    copy->setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_EQ(recorder.events, "");
}

TEST(GeometryTest, SettingAnEqualDistanceConditionRaisesNoEvent) {
    TestGeometry geometry;
    EventRecorder recorder(geometry);
    geometry.setDistanceDisplayCondition(std::nullopt);
    EXPECT_EQ(recorder.events, "");
    geometry.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_EQ(recorder.events, "LUD");
    geometry.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_EQ(recorder.events, "LUD");
    geometry.setDistanceDisplayCondition(std::nullopt);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(GeometryTest, ANaNDistanceConditionAlwaysCountsAsAChange) {
    TestGeometry geometry;
    EventRecorder recorder(geometry);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    geometry.setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, nan));
    geometry.setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, nan));
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(GeometryTest, AssignCopiesTheDistanceConditionButNotTheAnchor) {
    TestGeometry source;
    source.setDistanceDisplayCondition(DistanceDisplayCondition(3.0f, 4.0f));
    source.storeAnchor({1.0, 1.0, 1.0});
    TestGeometry target;
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(target.getDistanceDisplayCondition(), source.getDistanceDisplayCondition());
    EXPECT_FALSE(target.getDistanceDisplayConditionAnchor().has_value());
    EXPECT_EQ(recorder.events, "LUD");
    target.assign(source); // equal: nothing
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(GeometryTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    TestGeometry source(Geometry::Type::Polygon);
    source.setDistanceDisplayCondition(DistanceDisplayCondition(3.0f, 4.0f));
    TestGeometry target(Geometry::Type::Point);
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_FALSE(target.getDistanceDisplayCondition().has_value());
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, keo::Feature::test::ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Geometry");
    EXPECT_EQ(records[0].location.line, 65);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Geometry::assign");
}

TEST(GeometryTest, ApplyShadowsReachesEveryGraphicsDepthFirst) {
    const auto root = std::make_shared<Entity>();
    root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    const auto child = std::make_shared<Entity>();
    child->setParent(root);
    const auto grandChild = std::make_shared<Entity>();
    grandChild->setParent(child);
    grandChild->setGeometryGraphics(std::make_shared<LabelGraphics>());

    keo::Feature::applyShadowsToEntity(*root, 1);

    EXPECT_EQ(root->getGeometryGraphics()->getShadows(), keo::ShadowMode::Enabled);
    EXPECT_EQ(child->getGeometryGraphics(), nullptr);
    EXPECT_EQ(grandChild->getGeometryGraphics()->getShadows(), keo::ShadowMode::Enabled);

    keo::Feature::applyShadowsToEntity(*root, 99); // not a mode: left as it was
    EXPECT_EQ(root->getGeometryGraphics()->getShadows(), keo::ShadowMode::Enabled);
    keo::Feature::applyShadowsToEntity(*root, -1);
    EXPECT_EQ(grandChild->getGeometryGraphics()->getShadows(), keo::ShadowMode::Enabled);
}

// --- updateLabel -------------------------------------------------------------------------------

TEST(GeometryTest, TheLabelShowsTheLabelTextBeforeTheName) {
    LabelScene scene;
    scene.feature.setLabelText("label text");
    EXPECT_TRUE(scene.update());
    ASSERT_NE(scene.label(), nullptr);
    EXPECT_EQ(scene.graphics().getText(), "label text");
    scene.feature.setLabelText("");
    scene.update();
    EXPECT_EQ(scene.graphics().getText(), "name");
}

TEST(GeometryTest, ANewLabelIsNamedAttachedReportedAndGivenTheDefaultFont) {
    LabelScene scene;
    scene.update();
    const auto label = scene.label();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getParent(), scene.root.get());
    const auto added = scene.feature._takeAddedEntities();
    ASSERT_EQ(added.size(), 1u);
    EXPECT_EQ(added[0], label);
    // The symbol's empty font is handed over as it is; its size replaces the default 30.
    EXPECT_EQ(scene.graphics().getFontSize(), 12.0f);
    // A second update reuses the label.
    scene.update();
    EXPECT_EQ(scene.label(), label);
    EXPECT_TRUE(scene.feature._takeAddedEntities().empty());
}

TEST(GeometryTest, AFeatureWithoutLabelTextAndNameGetsNoLabelAndLosesAnExistingOne) {
    LabelScene scene;
    scene.update();
    const auto label = scene.label();
    ASSERT_NE(label, nullptr);
    scene.feature.setName("");
    EXPECT_TRUE(scene.update());
    EXPECT_EQ(scene.label(), nullptr);
    EXPECT_EQ(label->getParent(), nullptr);
    const auto removed = scene.feature._takeRemovedEntities();
    ASSERT_EQ(removed.size(), 1u);
    EXPECT_EQ(removed[0], label);

    LabelScene empty;
    empty.feature.setName("");
    empty.update();
    EXPECT_EQ(empty.label(), nullptr);
    EXPECT_TRUE(empty.feature._takeAddedEntities().empty());
}

TEST(GeometryTest, ADisabledOrMissingSymbolRemovesTheLabel) {
    LabelScene scene;
    scene.update();
    scene.symbol->setEnabled(false);
    scene.update();
    EXPECT_EQ(scene.label(), nullptr);

    scene.symbol->setEnabled(true);
    scene.update();
    ASSERT_NE(scene.label(), nullptr);
    scene.style.setLabelSymbol(nullptr);
    scene.update();
    EXPECT_EQ(scene.label(), nullptr);

    scene.style.setLabelSymbol(scene.symbol);
    scene.update();
    EXPECT_TRUE(scene.geometry.updateLabel(*scene.root, scene.feature, nullptr));
    EXPECT_EQ(scene.label(), nullptr);
}

TEST(GeometryTest, TheLabelGraphicsTakeEverySymbolField) {
    LabelScene scene;
    const auto image = std::make_shared<keo::Image>();
    LabelSymbol& s = *scene.symbol;
    s.setFont("serif");
    s.setSize(18.0f);
    s.setScale(1.5f);
    s.setShowOutline(false);
    s.setShowBackground(true);
    s.setFillColor(Color::RED);
    s.setOutlineColor(Color::GREEN);
    s.setOutlineWidth(2.0f);
    s.setBackgroundColor(Color::BLUE);
    s.setBackgroundPadding({1.0f, 2.0f, 3.0f, 4.0f});
    s.setBackgroundImage(image);
    s.setPixelOffset({5.0f, 6.0f});
    s.setHorizontalOrigin(keo::HorizontalOrigin::Left);
    s.setVerticalOrigin(keo::VerticalOrigin::Top);
    s.setAvoidance(false);
    scene.style.setHeightReference(keo::HeightReference::ClampToGround);
    scene.update();

    const LabelGraphics& g = scene.graphics();
    EXPECT_EQ(g.getFont(), "serif");
    EXPECT_EQ(g.getFontSize(), 18.0f);
    EXPECT_EQ(g.getScale(), 1.5f);
    EXPECT_EQ(g.getStyle(), keo::LabelStyle::Fill);
    EXPECT_EQ(g.getFillColor(), Color::RED);
    EXPECT_EQ(g.getOutlineColor(), Color::GREEN);
    EXPECT_EQ(g.getOutlineWidth(), 2.0f);
    EXPECT_TRUE(g.getShowBackground());
    EXPECT_EQ(g.getBackgroundColor(), Color::BLUE);
    EXPECT_EQ(g.getBackgroundPadding(), keo::Vector4<float>(1.0f, 2.0f, 3.0f, 4.0f));
    EXPECT_EQ(std::get<std::shared_ptr<keo::Image>>(g.getBackgroundImage()), image);
    EXPECT_EQ(g.getPixelOffset(), keo::Vector2<float>(5.0f, 6.0f));
    EXPECT_EQ(g.getHorizontalOrigin(), keo::HorizontalOrigin::Left);
    EXPECT_EQ(g.getVerticalOrigin(), keo::VerticalOrigin::Top);
    EXPECT_FALSE(g.getAvoidance());
    EXPECT_EQ(g.getHeightReference(), keo::HeightReference::ClampToGround);

    s.setShowOutline(true);
    scene.update();
    EXPECT_EQ(scene.graphics().getStyle(), keo::LabelStyle::FillAndOutline);
}

TEST(GeometryTest, HighlightingAFeatureRecoloursItsLabelWithTheHighlightColour) {
    LabelScene scene;
    scene.symbol->setFillColor(Color::RED);
    scene.feature.setHighlight(true);
    scene.update();
    EXPECT_EQ(scene.graphics().getFillColor(), Color::HIGHLIGHTCOLOR);
    scene.feature.setHighlight(false);
    scene.update();
    EXPECT_EQ(scene.graphics().getFillColor(), Color::RED);
}

TEST(GeometryTest, HighlightReachesTheLabelThroughTheFeatureUpdate) {
    Feature feature;
    feature.setName("n");
    const auto style = std::make_shared<TestStyle>();
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    feature.setGeometry(std::make_shared<TestGeometry>());
    feature.setStyle(style);
    feature._updateEntityInCull(false);
    feature.setHighlight(true);
    feature._updateEntityInCull(false);
    const auto label = feature._getImplHandle()->getChildByName("label-symbol");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getGeometryGraphics()->as<LabelGraphics>()->getFillColor(),
              Color::HIGHLIGHTCOLOR);
}

TEST(GeometryTest, TheLabelDistanceConditionIsTheIntersectionOfFeatureAndSymbol) {
    LabelScene scene;
    scene.update();
    EXPECT_FALSE(scene.graphics().getDistanceDisplayCondition().has_value());

    scene.symbol->setDistanceDisplayCondition(DistanceDisplayCondition(10.0f, 100.0f));
    scene.update();
    EXPECT_EQ(scene.graphics().getDistanceDisplayCondition(),
              DistanceDisplayCondition(10.0f, 100.0f));

    scene.feature.setDistanceDisplayCondition(DistanceDisplayCondition(50.0f, 500.0f));
    scene.update();
    EXPECT_EQ(scene.graphics().getDistanceDisplayCondition(),
              DistanceDisplayCondition(50.0f, 100.0f));

    scene.symbol->setDistanceDisplayCondition(std::nullopt);
    scene.update();
    EXPECT_EQ(scene.graphics().getDistanceDisplayCondition(),
              DistanceDisplayCondition(50.0f, 500.0f));
}

TEST(GeometryTest, AFieldNameTakesTheTextFromThatAttribute) {
    LabelScene scene;
    scene.symbol->setFieldName("field");
    using keo::Feature::AttributeValue;
    const auto textOf = [&scene](const AttributeValue& value) -> std::string {
        scene.feature.setAttribute("field", value);
        scene.update();
        const auto label = scene.label();
        return label ? scene.graphics().getText() : "<no label>";
    };
    EXPECT_EQ(textOf({0, std::any(std::string("road"))}), "road");
    EXPECT_EQ(textOf({0, std::any(42)}), "42");
    EXPECT_EQ(textOf({0, std::any(std::int64_t{-9000000000})}), "-9000000000");
    EXPECT_EQ(textOf({0, std::any(0.1)}), "0.1");
    EXPECT_EQ(textOf({0, std::any(0.1f)}), "0.1");
    EXPECT_EQ(textOf({0, std::any(true)}), "true");
    EXPECT_EQ(textOf({0, std::any(false)}), "false");
    EXPECT_EQ(textOf({0, std::any()}), "<no label>");
    scene.feature.removeAttribute("field");
    scene.update();
    EXPECT_EQ(scene.label(), nullptr);
}

TEST(GeometryTest, TheHintLineIsDrawnWhenAskedAndRemovedWhenNot) {
    LabelScene scene;
    scene.symbol->setPixelOffset({10.0f, 20.0f});
    scene.symbol->setShowHintLine(true);
    scene.symbol->setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    scene.style.setHeightReference(keo::HeightReference::ClampToTerrain);
    scene.update();
    const auto hint = scene.hintLine();
    ASSERT_NE(hint, nullptr);
    const auto added = scene.feature._takeAddedEntities();
    ASSERT_EQ(added.size(), 2u);
    EXPECT_EQ(added[1], hint);
    const auto* line = hint->getGeometryGraphics()->as<PolylineGraphics>();
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getWidth(), 1.0f);
    const auto* material = line->getMaterial()->asColorMaterialProperty();
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->getColor(), Color::WHITE);
    EXPECT_EQ(line->getPixelOffsets(),
              (std::vector<keo::Vector2<float>>{{0.0f, 0.0f}, {10.0f, 20.0f}}));
    EXPECT_EQ(line->getClassificationType(), keo::ClassificationType::Terrain);
    EXPECT_EQ(line->getHeightReference(), keo::HeightReference::ClampToTerrain);
    EXPECT_EQ(line->getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 2.0f));

    scene.symbol->setHintLineMode(LabelSymbol::HintLineMode::Elbow);
    scene.update();
    EXPECT_EQ(line->getPixelOffsets(),
              (std::vector<keo::Vector2<float>>{{0.0f, 0.0f}, {0.0f, 20.0f}, {10.0f, 20.0f}}));

    scene.symbol->setShowHintLine(false);
    scene.update();
    EXPECT_EQ(scene.hintLine(), nullptr);
    const auto removed = scene.feature._takeRemovedEntities();
    ASSERT_EQ(removed.size(), 1u);
    EXPECT_EQ(removed[0], hint);
}

TEST(GeometryTest, TheHintLineTakesWidthAndMaterialFromItsLineSymbol) {
    LabelScene scene;
    scene.symbol->setShowHintLine(true);
    const auto lineSymbol = std::make_shared<LineSymbol>();
    lineSymbol->setWidth(3.0f);
    lineSymbol->setMaterial(std::make_shared<keo::Feature::ColorMaterial>(Color::YELLOW));
    scene.symbol->setHintLineSymbol(lineSymbol);
    scene.update();
    const auto* line = scene.hintLine()->getGeometryGraphics()->as<PolylineGraphics>();
    EXPECT_EQ(line->getWidth(), 3.0f);
    EXPECT_EQ(line->getMaterial()->getColor(), Color::YELLOW);

    scene.feature.setHighlight(true);
    scene.update();
    EXPECT_EQ(line->getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
}

TEST(GeometryTest, AnAbsoluteHeightLeavesTheHintLineUndraped) {
    LabelScene scene;
    scene.symbol->setShowHintLine(true);
    scene.update();
    const auto* line = scene.hintLine()->getGeometryGraphics()->as<PolylineGraphics>();
    EXPECT_FALSE(line->getClassificationType().has_value());
}

} // namespace
