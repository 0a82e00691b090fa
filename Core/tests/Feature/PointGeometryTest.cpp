#include "Feature/PointGeometry.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/Matrix3.h"
#include "Common/Matrix4.h"
#include "Data/BillboardGraphics.h"
#include "Data/CallbackPositionProperty.h"
#include "Data/CircleEmitter.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/Entity.h"
#include "Data/Image.h"
#include "Data/LabelGraphics.h"
#include "Data/ModelGraphics.h"
#include "Data/ParticleSystemGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/Resource.h"
#include "Data/SphereEmitter.h"
#include "Data/VelocityOrientationProperty.h"
#include "EntityTestSupport.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/ModelSymbol.h"
#include "Feature/ParticleEmitter.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "FeatureTestSupport.h"
#include "SymbolTestSupport.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using keo::BillboardGraphics;
using keo::Cartographic;
using keo::Color;
using keo::DistanceDisplayCondition;
using keo::Ellipsoid;
using keo::Entity;
using keo::HeightReference;
using keo::LabelGraphics;
using keo::ModelGraphics;
using keo::ParticleSystemGraphics;
using keo::PointGraphics;
using keo::PositionProperty;
using keo::Radian;
using keo::ShadowMode;
using keo::TimePoint;
using keo::Vector3;
using keo::Feature::BillboardSymbol;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::ModelSymbol;
using keo::Feature::ParticleSystemSymbol;
using keo::Feature::PointGeometry;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;
using keo::Feature::Style;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::cartesian;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectAssignKindLogged;
using keo::Feature::test::graphicsOf;
using keo::Feature::test::TestGeometry;
using keo::Feature::test::TestStyle;

constexpr const char* LABEL = "label-symbol";
constexpr const char* HINT_LINE = "hint-line";
constexpr const char* BILLBOARD = "billboard-symbol";
constexpr const char* MODEL = "model-symbol";
constexpr const char* PARTICLES = "particle-system--symbol";

const Cartographic PLACE = Cartographic::fromDegrees(116.39, 39.91, 50.0);
const Cartographic OTHER_PLACE = Cartographic::fromDegrees(121.47, 31.23, 10.0);

std::optional<Vector3<double>> valueAtZero(const std::shared_ptr<PositionProperty>& position) {
    return position ? position->getValue(TimePoint()) : std::nullopt;
}

void expectNear(const std::optional<Vector3<double>>& actual, const Vector3<double>& expected) {
    ASSERT_TRUE(actual.has_value());
    EXPECT_NEAR(actual->x, expected.x, 1e-6);
    EXPECT_NEAR(actual->y, expected.y, 1e-6);
    EXPECT_NEAR(actual->z, expected.z, 1e-6);
}

// A point moving east at 10 m/s from PLACE: a position that is not constant.
std::shared_ptr<PositionProperty> movingPosition() {
    return std::make_shared<keo::CallbackPositionProperty>([](const TimePoint& time) {
        Cartographic c = PLACE;
        c.longitude = Radian(c.longitude.value() + 10.0 * time.seconds() / 6378137.0);
        return std::optional<Vector3<double>>(cartesian(c));
    });
}

std::shared_ptr<PointSymbol> makePointSymbol() {
    auto symbol = std::make_shared<PointSymbol>();
    symbol->setPixelSize(7.0f);
    symbol->setColor(Color::RED);
    return symbol;
}

std::shared_ptr<BillboardSymbol> makeBillboardSymbol() {
    auto symbol = std::make_shared<BillboardSymbol>();
    symbol->setImage("marker.png");
    symbol->setColor(Color::GREEN);
    return symbol;
}

std::shared_ptr<ModelSymbol> makeModelSymbol() {
    auto symbol = std::make_shared<ModelSymbol>();
    symbol->setModelUri(std::make_shared<keo::Resource>("tower.glb"));
    symbol->setColor(Color::BLUE);
    return symbol;
}

std::shared_ptr<ParticleSystemSymbol> makeParticleSymbol() {
    auto symbol = std::make_shared<ParticleSystemSymbol>();
    symbol->setImage(std::make_shared<keo::Image>());
    symbol->setStartColor(Color::RED);
    symbol->setEndColor(Color::GREEN);
    return symbol;
}

// A root entity, a feature, a point geometry and a point style, to drive the geometry's update
// directly.
struct PointScene {
    PointScene() { feature.setName("name"); }

    bool updateStyle() { return geometry._updateStyle(*root, feature, &style); }
    bool updateBoth() {
        const bool ok = geometry._updateGeometry(*root, &style);
        return updateStyle() && ok;
    }
    std::shared_ptr<Entity> child(const char* name) const { return root->getChildByName(name); }
    std::vector<std::string> childNames() const {
        std::vector<std::string> names;
        for (const auto& c : root->getChildren()) {
            names.push_back(c->getName());
        }
        return names;
    }
    // Fills every slot and the label with a shown symbol.
    void fillStyle() {
        style.setPointSymbol(makePointSymbol());
        style.setBillboardSymbol(makeBillboardSymbol());
        style.setModelSymbol(makeModelSymbol());
        style.setParticleSystemSymbol(makeParticleSymbol());
        style.setLabelSymbol(std::make_shared<LabelSymbol>());
    }
    ModelGraphics& modelGraphics() const {
        return *child(MODEL)->getGeometryGraphics()->as<ModelGraphics>();
    }

    std::shared_ptr<Entity> root = std::make_shared<Entity>();
    Feature feature{std::uint64_t{1}};
    PointGeometry geometry{PLACE};
    PointStyle style;
};

// --- data, setters, copy and assign ------------------------------------------------------------

TEST(PointGeometryTest, APointIsOfKind300) {
    EXPECT_EQ(static_cast<int>(PointGeometry(false).getType()), 300);
    EXPECT_EQ(PointGeometry(PLACE).getType(), Geometry::Type::Point);
}

TEST(PointGeometryTest, TheOverlayConstructorGivesNoPosition) {
    const PointGeometry overlay(true);
    EXPECT_EQ(overlay.getPosition(), nullptr);
    EXPECT_TRUE(overlay.isOverlay());
    EXPECT_FALSE(PointGeometry(false).isOverlay());
}

TEST(PointGeometryTest, TheCartographicConstructorHoldsAConstantFixedCartesianPosition) {
    const PointGeometry point(PLACE);
    EXPECT_FALSE(point.isOverlay());
    const auto* position = dynamic_cast<const keo::ConstantPositionProperty*>(point.getPosition());
    ASSERT_NE(position, nullptr);
    EXPECT_TRUE(position->isConstant());
    EXPECT_EQ(position->getReferenceFrame(), keo::ReferenceFrame::Fixed);
    EXPECT_EQ(position->getValue(TimePoint()), cartesian(PLACE));
}

TEST(PointGeometryTest, MovingToTheSameCartographicPointRaisesNothing) {
    PointGeometry point(PLACE);
    const PositionProperty* held = point.getPosition();
    const EventRecorder recorder(point);
    point.setPosition(PLACE);
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(point.getPosition(), held);
}

TEST(PointGeometryTest, MovingToAnotherPointStoresANewConstantPosition) {
    PointGeometry point(PLACE);
    const PositionProperty* held = point.getPosition();
    const EventRecorder recorder(point);
    point.setPosition(OTHER_PLACE);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_NE(point.getPosition(), held);
    EXPECT_TRUE(point.getPosition()->isConstant());
    EXPECT_EQ(point.getPosition()->getValue(TimePoint()), cartesian(OTHER_PLACE));
}

TEST(PointGeometryTest, ACartographicPositionReplacesAMovingOneAndFillsAnEmptyOne) {
    PointGeometry point(PLACE);
    point.setPosition(movingPosition());
    const EventRecorder recorder(point);
    point.setPosition(PLACE); // the moving position is at PLACE at time zero
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_TRUE(point.getPosition()->isConstant());

    PointGeometry empty(false);
    const EventRecorder emptyRecorder(empty);
    empty.setPosition(PLACE);
    EXPECT_EQ(emptyRecorder.events, "LUD");
}

TEST(PointGeometryTest, SettingTheHeldOrAnEqualPropertyRaisesNothing) {
    PointGeometry point(false);
    const EventRecorder recorder(point);
    point.setPosition(std::shared_ptr<PositionProperty>());
    EXPECT_EQ(recorder.events, "") << "null over null";
    const auto position = std::make_shared<keo::ConstantPositionProperty>(cartesian(PLACE));
    point.setPosition(position);
    EXPECT_EQ(recorder.events, "LUD");
    point.setPosition(position);
    point.setPosition(std::make_shared<keo::ConstantPositionProperty>(cartesian(PLACE)));
    EXPECT_EQ(recorder.events, "LUD") << "the same pointer, then an equal property";
    EXPECT_EQ(point.getPosition(), position.get());
}

TEST(PointGeometryTest, AnotherPropertyOrNullIsAChange) {
    PointGeometry point(PLACE);
    const EventRecorder recorder(point);
    const auto moving = movingPosition();
    point.setPosition(moving);
    EXPECT_EQ(point.getPosition(), moving.get());
    point.setPosition(movingPosition()); // callback positions never equal another
    point.setPosition(std::shared_ptr<PositionProperty>());
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    EXPECT_EQ(point.getPosition(), nullptr);
}

TEST(PointGeometryTest, ACloneHasThePositionAndOverlayButNoAnchorAndNoListeners) {
    PointScene scene;
    PointGeometry overlay(true);
    overlay.setPosition(PLACE);
    overlay.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    // A hint line stores the anchor.
    const auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    scene.style.setLabelSymbol(label);
    overlay._updateStyle(*scene.root, scene.feature, &scene.style);
    ASSERT_TRUE(overlay.getDistanceDisplayConditionAnchor().has_value());

    const EventRecorder recorder(overlay);
    const auto cloned = overlay.clone();
    const auto& copy = static_cast<const PointGeometry&>(*cloned);
    EXPECT_EQ(copy.getPosition(), overlay.getPosition());
    EXPECT_TRUE(copy.isOverlay());
    EXPECT_EQ(copy.getDistanceDisplayCondition(), overlay.getDistanceDisplayCondition());
    EXPECT_FALSE(copy.getDistanceDisplayConditionAnchor().has_value());
    static_cast<PointGeometry&>(*cloned).setPosition(OTHER_PLACE);
    EXPECT_EQ(recorder.events, "");
}

TEST(PointGeometryTest, AssignCopiesConditionAndPositionButNotTheOverlay) {
    PointGeometry source(true);
    source.setPosition(OTHER_PLACE);
    source.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    PointGeometry target(PLACE);
    const EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUDLUD");
    EXPECT_EQ(target.getPosition(), source.getPosition());
    EXPECT_EQ(target.getDistanceDisplayCondition(), source.getDistanceDisplayCondition());
    EXPECT_FALSE(target.isOverlay());
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUDLUD") << "an equal geometry raises nothing";
}

TEST(PointGeometryTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    TestGeometry polyline(Geometry::Type::Polyline);
    polyline.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    PointGeometry point(PLACE);
    const EventRecorder recorder(point);
    point.assign(polyline);
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(point.getDistanceDisplayCondition().has_value());
    expectAssignKindLogged(log, "Core/src/Feature/PointGeometry",
                           "keo::Feature::PointGeometry::assign");
}

TEST(PointGeometryTest, AnotherClassWithThePointCodeIsNotReadAsAPoint) {
    const CapturedLog log;
    TestGeometry impostor(Geometry::Type::Point);
    PointGeometry point(PLACE);
    point.assign(impostor);
    EXPECT_NE(point.getPosition(), nullptr);
    expectAssignKindLogged(log, "Core/src/Feature/PointGeometry",
                           "keo::Feature::PointGeometry::assign");
}

// --- _updateStyle: which children and graphics ------------------------------------------------

enum class Presence { Absent, Hidden, Shown };

struct Combination {
    Presence point;
    Presence billboard;
    Presence model;
    Presence particles;
    bool label;
};

template <typename Symbol, typename Make>
std::shared_ptr<Symbol> symbolFor(Presence presence, Make&& make) {
    if (presence == Presence::Absent) {
        return nullptr;
    }
    auto symbol = make();
    symbol->setEnabled(presence == Presence::Shown);
    return symbol;
}

std::string describe(const Combination& c) {
    const char* names[] = {"absent", "hidden", "shown"};
    return std::string("point ") + names[static_cast<int>(c.point)] + ", billboard " +
           names[static_cast<int>(c.billboard)] + ", model " + names[static_cast<int>(c.model)] +
           ", particles " + names[static_cast<int>(c.particles)] + (c.label ? ", label" : "");
}

std::vector<Combination> allCombinations() {
    std::vector<Combination> all;
    const Presence each[] = {Presence::Absent, Presence::Hidden, Presence::Shown};
    for (const Presence point : each) {
        for (const Presence billboard : each) {
            for (const Presence model : each) {
                for (const Presence particles : each) {
                    for (const bool label : {false, true}) {
                        all.push_back({point, billboard, model, particles, label});
                    }
                }
            }
        }
    }
    return all;
}

std::vector<std::string> names(const std::vector<std::shared_ptr<Entity>>& entities) {
    std::vector<std::string> result;
    for (const auto& e : entities) {
        result.push_back(e->getName());
    }
    return result;
}

// Runs _updateStyle with the style of @p c, on a fresh root (@p fromFull false) or on a root
// that every symbol and the label have drawn on before, and checks children, reports, the root's
// graphics and the result.
void checkCombination(const Combination& c, bool fromFull) {
    SCOPED_TRACE(describe(c) + (fromFull ? " (after everything was drawn)" : " (first update)"));
    PointScene scene;
    if (fromFull) {
        scene.fillStyle();
        ASSERT_TRUE(scene.updateStyle());
        scene.feature._takeAddedEntities();
    }
    const auto before = scene.childNames();
    PointStyle style;
    style.setPointSymbol(symbolFor<PointSymbol>(c.point, makePointSymbol));
    style.setBillboardSymbol(symbolFor<BillboardSymbol>(c.billboard, makeBillboardSymbol));
    style.setModelSymbol(symbolFor<ModelSymbol>(c.model, makeModelSymbol));
    style.setParticleSystemSymbol(symbolFor<ParticleSystemSymbol>(c.particles, makeParticleSymbol));
    if (c.label) {
        style.setLabelSymbol(std::make_shared<LabelSymbol>());
    }

    const bool result = scene.geometry._updateStyle(*scene.root, scene.feature, &style);

    std::vector<std::string> expected;
    if (c.label) {
        expected.push_back(LABEL);
    }
    if (c.billboard == Presence::Shown) {
        expected.push_back(BILLBOARD);
    }
    if (c.model == Presence::Shown) {
        expected.push_back(MODEL);
    }
    if (c.particles == Presence::Shown) {
        expected.push_back(PARTICLES);
    }
    EXPECT_EQ(scene.childNames(), expected);
    std::vector<std::string> added;
    std::vector<std::string> removed;
    for (const auto& name : expected) {
        if (std::find(before.begin(), before.end(), name) == before.end()) {
            added.push_back(name);
        }
    }
    for (const auto& name : before) {
        if (std::find(expected.begin(), expected.end(), name) == expected.end()) {
            removed.push_back(name);
        }
    }
    EXPECT_EQ(names(scene.feature._takeAddedEntities()), added);
    EXPECT_EQ(names(scene.feature._takeRemovedEntities()), removed);

    const bool drawn = c.label || c.point == Presence::Shown || c.billboard == Presence::Shown ||
                       c.model == Presence::Shown || c.particles == Presence::Shown;
    EXPECT_EQ(result, drawn);
    const auto* dot = graphicsOf<PointGraphics>(*scene.root);
    if (c.point == Presence::Shown) {
        ASSERT_NE(dot, nullptr);
        EXPECT_EQ(dot->getPixelSize(), 7.0f);
    } else if (drawn) {
        EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    } else {
        // Nothing drawn: the root keeps the dot it had, or gets a default one.
        ASSERT_NE(dot, nullptr);
        EXPECT_EQ(dot->getPixelSize(), fromFull ? 7.0f : PointGraphics().getPixelSize());
    }
}

TEST(PointGeometryTest, EveryCombinationOfSymbolsOnAFreshEntity) {
    for (const auto& c : allCombinations()) {
        checkCombination(c, false);
    }
}

TEST(PointGeometryTest, EveryCombinationOfSymbolsAfterEverythingWasDrawn) {
    for (const auto& c : allCombinations()) {
        checkCombination(c, true);
    }
}

TEST(PointGeometryTest, ASecondUpdateReusesTheChildrenAndTheirGraphics) {
    PointScene scene;
    scene.fillStyle();
    ASSERT_TRUE(scene.updateBoth());
    const auto added = scene.feature._takeAddedEntities();
    EXPECT_EQ(names(added), (std::vector<std::string>{LABEL, BILLBOARD, MODEL, PARTICLES}));
    const auto billboardGraphics = scene.child(BILLBOARD)->getGeometryGraphics();
    const auto rootGraphics = scene.root->getGeometryGraphics();
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_TRUE(scene.feature._takeAddedEntities().empty());
    EXPECT_TRUE(scene.feature._takeRemovedEntities().empty());
    EXPECT_EQ(scene.child(BILLBOARD)->getGeometryGraphics(), billboardGraphics);
    EXPECT_EQ(scene.root->getGeometryGraphics(), rootGraphics);
    EXPECT_EQ(scene.child(BILLBOARD)->getParent(), scene.root.get());
}

TEST(PointGeometryTest, AHiddenBillboardRemovesItsChildThroughTheFeature) {
    PointScene scene;
    scene.style.setBillboardSymbol(makeBillboardSymbol());
    scene.updateStyle();
    const auto billboard = scene.child(BILLBOARD);
    ASSERT_NE(billboard, nullptr);
    scene.feature._takeAddedEntities();
    scene.style.getBillboardSymbol()->setEnabled(false);
    scene.updateStyle();
    EXPECT_EQ(scene.child(BILLBOARD), nullptr);
    EXPECT_EQ(billboard->getParent(), nullptr);
    EXPECT_EQ(scene.feature._takeRemovedEntities(),
              std::vector<std::shared_ptr<Entity>>{billboard});
}

TEST(PointGeometryTest, AModelWithoutUriCreatesNoChildAndKeepsAnExistingOne) {
    PointScene scene;
    scene.style.setModelSymbol(std::make_shared<ModelSymbol>());
    scene.updateStyle();
    EXPECT_EQ(scene.child(MODEL), nullptr);
    EXPECT_TRUE(scene.feature._takeAddedEntities().empty());

    const auto uri = std::make_shared<keo::Resource>("tower.glb");
    scene.style.getModelSymbol()->setModelUri(uri);
    scene.updateStyle();
    const auto model = scene.child(MODEL);
    ASSERT_NE(model, nullptr);
    scene.style.getModelSymbol()->setModelUri(nullptr);
    scene.updateStyle();
    EXPECT_EQ(scene.child(MODEL), model);
    EXPECT_TRUE(scene.feature._takeRemovedEntities().empty());
    EXPECT_EQ(scene.modelGraphics().getUri(), uri) << "the kept child is not updated either";
}

TEST(PointGeometryTest, AParticleSymbolWithoutImageCreatesNoChildAndKeepsAnExistingOne) {
    PointScene scene;
    scene.style.setParticleSystemSymbol(std::make_shared<ParticleSystemSymbol>());
    scene.updateStyle();
    EXPECT_EQ(scene.child(PARTICLES), nullptr);
    scene.style.getParticleSystemSymbol()->setImage(std::make_shared<keo::Image>());
    scene.updateStyle();
    const auto particles = scene.child(PARTICLES);
    ASSERT_NE(particles, nullptr);
    scene.style.getParticleSystemSymbol()->setImage(nullptr);
    scene.updateStyle();
    EXPECT_EQ(scene.child(PARTICLES), particles);
}

TEST(PointGeometryTest, APointStyleWithoutSymbolsOrLabelStillGetsADefaultDot) {
    PointScene scene;
    EXPECT_FALSE(scene.updateStyle());
    const auto* dot = graphicsOf<PointGraphics>(*scene.root);
    ASSERT_NE(dot, nullptr);
    EXPECT_EQ(dot->getPixelSize(), PointGraphics().getPixelSize());
    EXPECT_EQ(dot->getColor(), PointGraphics().getColor());
    EXPECT_TRUE(scene.root->getChildren().empty());
}

TEST(PointGeometryTest, WithoutAStyleTheBillboardAndModelGoButTheParticlesStay) {
    PointScene scene;
    scene.fillStyle();
    scene.updateStyle();
    const auto billboard = scene.child(BILLBOARD);
    const auto model = scene.child(MODEL);
    const auto label = scene.child(LABEL);
    scene.feature._takeAddedEntities();

    EXPECT_FALSE(scene.geometry._updateStyle(*scene.root, scene.feature, nullptr));
    EXPECT_EQ(scene.childNames(), std::vector<std::string>{PARTICLES});
    EXPECT_EQ(scene.feature._takeRemovedEntities(),
              (std::vector<std::shared_ptr<Entity>>{label, billboard, model}));
    EXPECT_TRUE(scene.feature._takeAddedEntities().empty());
    // The root's dot was cleared, and with nothing drawn a default one is given.
    const auto* dot = graphicsOf<PointGraphics>(*scene.root);
    ASSERT_NE(dot, nullptr);
    EXPECT_EQ(dot->getPixelSize(), PointGraphics().getPixelSize());
}

TEST(PointGeometryTest, AStyleOfAnotherKindDrawsOnlyTheLabel) {
    PointScene scene;
    scene.fillStyle();
    scene.updateStyle();
    scene.feature._takeAddedEntities();
    TestStyle polygon(Style::Type::Polygon);
    polygon.setLabelSymbol(std::make_shared<LabelSymbol>());
    EXPECT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, &polygon));
    EXPECT_EQ(scene.childNames(), (std::vector<std::string>{LABEL, PARTICLES}));
    EXPECT_EQ(names(scene.feature._takeRemovedEntities()),
              (std::vector<std::string>{BILLBOARD, MODEL}));
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr) << "the label is drawn, so no dot";
}

// --- _updateStyle: what the graphics take --------------------------------------------------------

TEST(PointGeometryTest, TheDotTakesSizeColourHeightReferenceAndCondition) {
    PointScene scene;
    scene.style.setPointSymbol(makePointSymbol());
    scene.style.setHeightReference(HeightReference::ClampToGround);
    scene.geometry.setDistanceDisplayCondition(DistanceDisplayCondition(5.0f, 500.0f));
    EXPECT_TRUE(scene.updateStyle());
    const auto* dot = graphicsOf<PointGraphics>(*scene.root);
    ASSERT_NE(dot, nullptr);
    EXPECT_EQ(dot->getPixelSize(), 7.0f);
    EXPECT_EQ(dot->getColor(), Color::RED);
    EXPECT_EQ(dot->getHeightReference(), HeightReference::ClampToGround);
    EXPECT_EQ(dot->getDistanceDisplayCondition(), DistanceDisplayCondition(5.0f, 500.0f));
}

TEST(PointGeometryTest, TheBillboardTakesEverySymbolField) {
    PointScene scene;
    const auto symbol = makeBillboardSymbol();
    const auto image = std::make_shared<keo::Image>();
    symbol->setImage(image);
    symbol->setWidth(32.0f);
    symbol->setHeight(24.0f);
    symbol->setScale(1.5f);
    symbol->setHorizontalOrigin(keo::HorizontalOrigin::Left);
    symbol->setVerticalOrigin(keo::VerticalOrigin::Bottom);
    symbol->setPixelOffset(keo::Vector2<float>(3.0f, -4.0f));
    scene.style.setBillboardSymbol(symbol);
    scene.style.setHeightReference(HeightReference::RelativeToGround);
    scene.updateStyle();
    const auto* graphics = graphicsOf<BillboardGraphics>(*scene.child(BILLBOARD));
    ASSERT_NE(graphics, nullptr);
    EXPECT_EQ(graphics->getImage(), keo::ImageSource(image));
    EXPECT_EQ(graphics->getWidth(), std::optional<float>(32.0f));
    EXPECT_EQ(graphics->getHeight(), std::optional<float>(24.0f));
    EXPECT_EQ(graphics->getScale(), 1.5f);
    EXPECT_EQ(graphics->getColor(), Color::GREEN);
    EXPECT_EQ(graphics->getHorizontalOrigin(), keo::HorizontalOrigin::Left);
    EXPECT_EQ(graphics->getVerticalOrigin(), keo::VerticalOrigin::Bottom);
    EXPECT_EQ(graphics->getPixelOffset(), keo::Vector2<float>(3.0f, -4.0f));
    EXPECT_EQ(graphics->getHeightReference(), HeightReference::RelativeToGround);
}

TEST(PointGeometryTest, TheModelTakesEverySymbolField) {
    PointScene scene;
    const auto symbol = makeModelSymbol();
    symbol->setScale(Vector3<double>(2.0, 3.0, 4.0));
    symbol->setRotation(Vector3<Radian>(Radian(0.1), Radian(0.2), Radian(0.3)));
    symbol->setAllowPicking(false);
    scene.style.setModelSymbol(symbol);
    scene.style.setHeightReference(HeightReference::ClampToTerrain);
    scene.updateStyle();
    const auto& graphics = scene.modelGraphics();
    EXPECT_EQ(graphics.getUri(), symbol->getModelUri());
    EXPECT_EQ(graphics.getScale(), Vector3<double>(2.0, 3.0, 4.0));
    EXPECT_EQ(graphics.getRotation(), Vector3<Radian>(Radian(0.1), Radian(0.2), Radian(0.3)));
    EXPECT_EQ(graphics.getColor(), Color::BLUE);
    EXPECT_FALSE(graphics.isAllowPicking());
    EXPECT_EQ(graphics.getHeightReference(), HeightReference::ClampToTerrain);
}

TEST(PointGeometryTest, TheParticleGraphicsAreFilledFromTheSymbol) {
    PointScene scene;
    const auto symbol = makeParticleSymbol();
    symbol->setBursts({keo::ParticleBurst(1.0f, 2.0f, 3.0f)});
    symbol->setMinimumImageSize(keo::Vector2<float>(2.0f, 3.0f));
    symbol->setMaximumImageSize(keo::Vector2<float>(4.0f, 5.0f));
    symbol->setStartScale(0.5f);
    symbol->setEndScale(2.5f);
    symbol->setEmissionRate(20.0f);
    symbol->setMinimumSpeed(2.0f);
    symbol->setMaximumSpeed(6.0f);
    symbol->setMinimumParticleLife(1.0f);
    symbol->setMaximumParticleLife(3.0f);
    symbol->setSizeInMeters(true);
    symbol->setLoop(false);
    symbol->setLifetime(16.0f);
    symbol->setGravity(-9.8f);
    scene.style.setParticleSystemSymbol(symbol);
    scene.style.setHeightReference(HeightReference::ClampToGround);
    scene.feature.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 90.0f));
    scene.updateStyle();
    const auto* graphics = graphicsOf<ParticleSystemGraphics>(*scene.child(PARTICLES));
    ASSERT_NE(graphics, nullptr);
    EXPECT_EQ(graphics->getBursts(), symbol->getBursts());
    EXPECT_EQ(graphics->getImage(), symbol->getImage());
    EXPECT_EQ(graphics->getMinimumImageSize(), keo::Vector2<float>(2.0f, 3.0f));
    EXPECT_EQ(graphics->getMaximumImageSize(), keo::Vector2<float>(4.0f, 5.0f));
    EXPECT_EQ(graphics->getStartColor(), Color::RED);
    EXPECT_EQ(graphics->getEndColor(), Color::GREEN);
    EXPECT_EQ(graphics->getStartScale(), 0.5f);
    EXPECT_EQ(graphics->getEndScale(), 2.5f);
    EXPECT_EQ(graphics->getEmissionRate(), 20.0f);
    EXPECT_EQ(graphics->getMinimumSpeed(), 2.0f);
    EXPECT_EQ(graphics->getMaximumSpeed(), 6.0f);
    EXPECT_EQ(graphics->getMinimumParticleLife(), 1.0f);
    EXPECT_EQ(graphics->getMaximumParticleLife(), 3.0f);
    EXPECT_TRUE(graphics->isSizeInMeters());
    EXPECT_FALSE(graphics->isLoop());
    EXPECT_EQ(graphics->getLifetime(), 16.0f);
    EXPECT_EQ(graphics->getGravity(), -9.8f);
    EXPECT_EQ(graphics->getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 90.0f));
    EXPECT_EQ(graphics->getHeightReference(), ParticleSystemGraphics().getHeightReference())
        << "the particles take no height reference";
}

TEST(PointGeometryTest, TheEmitterIsUpdatedAndSetOnTheParticleGraphics) {
    PointScene scene;
    scene.style.setParticleSystemSymbol(makeParticleSymbol());
    scene.updateStyle();
    const auto* graphics = graphicsOf<ParticleSystemGraphics>(*scene.child(PARTICLES));
    ASSERT_NE(graphics, nullptr);
    const auto emitter = graphics->getEmitter();
    ASSERT_NE(emitter, nullptr);
    const auto* circle = dynamic_cast<const keo::CircleEmitter*>(emitter.get());
    ASSERT_NE(circle, nullptr);
    EXPECT_EQ(circle->getRadius(), 0.5);

    auto& featureEmitter = static_cast<keo::Feature::CircleEmitter&>(
        *scene.style.getParticleSystemSymbol()->getEmitter());
    featureEmitter.setRadius(3.0);
    scene.updateStyle();
    EXPECT_EQ(graphics->getEmitter(), emitter) << "the cached emitter is refreshed in place";
    EXPECT_EQ(circle->getRadius(), 3.0);

    scene.style.getParticleSystemSymbol()->setEmitter(
        std::make_shared<keo::Feature::SphereEmitter>(2.0));
    scene.updateStyle();
    EXPECT_NE(graphics->getEmitter(), emitter);
    EXPECT_NE(dynamic_cast<const keo::SphereEmitter*>(graphics->getEmitter().get()), nullptr);
}

TEST(PointGeometryTest, TheEmitterMatrixTakesHeadingThenZeroThenPitch) {
    PointScene scene;
    const auto symbol = makeParticleSymbol();
    symbol->setHeading(Radian(0.3));
    symbol->setPitch(Radian(0.7));
    scene.style.setParticleSystemSymbol(symbol);
    scene.updateStyle();
    const auto* graphics = graphicsOf<ParticleSystemGraphics>(*scene.child(PARTICLES));
    ASSERT_NE(graphics, nullptr);
    const keo::HeadingPitchRoll placed(Radian(0.3), Radian(0.0), Radian(0.7));
    EXPECT_EQ(graphics->getEmitterModelMatrix(),
              keo::Matrix4(keo::Matrix3::fromHeadingPitchRoll(placed)));
    const keo::HeadingPitchRoll asNamed(Radian(0.3), Radian(0.7), Radian(0.0));
    EXPECT_NE(graphics->getEmitterModelMatrix(),
              keo::Matrix4(keo::Matrix3::fromHeadingPitchRoll(asNamed)))
        << "the pitch is the third angle, not the second";
}

TEST(PointGeometryTest, HighlightRecoloursPointBillboardAndModelButNotTheParticles) {
    PointScene scene;
    scene.fillStyle();
    scene.feature.setHighlight(true);
    scene.updateStyle();
    EXPECT_EQ(graphicsOf<PointGraphics>(*scene.root)->getColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphicsOf<BillboardGraphics>(*scene.child(BILLBOARD))->getColor(),
              Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(scene.modelGraphics().getColor(), Color::HIGHLIGHTCOLOR);
    const auto* particles = graphicsOf<ParticleSystemGraphics>(*scene.child(PARTICLES));
    EXPECT_EQ(particles->getStartColor(), Color::RED);
    EXPECT_EQ(particles->getEndColor(), Color::GREEN);

    scene.feature.setHighlight(false);
    scene.updateStyle();
    EXPECT_EQ(graphicsOf<PointGraphics>(*scene.root)->getColor(), Color::RED);
    EXPECT_EQ(graphicsOf<BillboardGraphics>(*scene.child(BILLBOARD))->getColor(), Color::GREEN);
    EXPECT_EQ(scene.modelGraphics().getColor(), Color::BLUE);
}

TEST(PointGeometryTest, TheSymbolsShowWithinBothTheFeaturesAndTheGeometrysConditions) {
    const std::optional<DistanceDisplayCondition> none;
    const DistanceDisplayCondition feature(10.0f, 1000.0f);
    const DistanceDisplayCondition geometry(100.0f, 5000.0f);
    struct Case {
        std::optional<DistanceDisplayCondition> feature;
        std::optional<DistanceDisplayCondition> geometry;
        std::optional<DistanceDisplayCondition> expected;
    };
    const Case cases[] = {
        {none, none, none},
        {none, geometry, geometry},
        {feature, none, feature},
        {feature, geometry, DistanceDisplayCondition(100.0f, 1000.0f)},
    };
    for (const auto& c : cases) {
        PointScene scene;
        scene.fillStyle();
        scene.feature.setDistanceDisplayCondition(c.feature);
        scene.geometry.setDistanceDisplayCondition(c.geometry);
        scene.updateStyle();
        EXPECT_EQ(scene.root->getGeometryGraphics()->getDistanceDisplayCondition(), c.expected);
        for (const char* name : {BILLBOARD, MODEL, PARTICLES}) {
            SCOPED_TRACE(name);
            EXPECT_EQ(scene.child(name)->getGeometryGraphics()->getDistanceDisplayCondition(),
                      c.expected);
        }
    }
}

TEST(PointGeometryTest, TheStylesShadowsReachEveryGraphics) {
    PointScene scene;
    scene.fillStyle();
    scene.style.setShadows(static_cast<int>(ShadowMode::CastOnly));
    scene.updateStyle();
    EXPECT_EQ(scene.root->getGeometryGraphics()->getShadows(), ShadowMode::CastOnly);
    for (const auto& child : scene.root->getChildren()) {
        SCOPED_TRACE(child->getName());
        EXPECT_EQ(child->getGeometryGraphics()->getShadows(), ShadowMode::CastOnly);
    }
}

TEST(PointGeometryTest, TheLabelOfAPointTakesItsOverlayFlag) {
    for (const bool overlay : {true, false}) {
        PointScene scene;
        PointGeometry point(overlay);
        point.setPosition(PLACE);
        scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
        point._updateStyle(*scene.root, scene.feature, &scene.style);
        const auto label = scene.child(LABEL);
        ASSERT_NE(label, nullptr);
        const LabelGraphics* graphics = graphicsOf<LabelGraphics>(*label);
        ASSERT_NE(graphics, nullptr);
        EXPECT_EQ(graphics->isOverlay(), overlay);
    }
}

TEST(PointGeometryTest, TheLabelOfAnotherKindKeepsItsOwnOverlaySetting) {
    PointScene scene;
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    TestGeometry impostor(Geometry::Type::Point);
    impostor.updateLabel(*scene.root, scene.feature, &scene.style);
    auto& label = *scene.child(LABEL)->getGeometryGraphics()->as<LabelGraphics>();
    label.setOverlay(true);
    impostor.updateLabel(*scene.root, scene.feature, &scene.style);
    EXPECT_TRUE(label.isOverlay());
}

// --- positions -----------------------------------------------------------------------------------

TEST(PointGeometryTest, TheGeometryUpdateGivesEveryEntityThePosition) {
    PointScene scene;
    scene.fillStyle();
    scene.updateStyle();
    scene.geometry.setPosition(OTHER_PLACE);
    EXPECT_TRUE(scene.geometry._updateGeometry(*scene.root, &scene.style));
    const auto expected = cartesian(OTHER_PLACE);
    for (const auto& entity : {scene.root, scene.child(BILLBOARD), scene.child(MODEL),
                               scene.child(PARTICLES), scene.child(LABEL)}) {
        SCOPED_TRACE(entity->getName());
        expectNear(valueAtZero(entity->getPosition()), expected);
    }
    EXPECT_EQ(scene.root->getPosition().get(), scene.geometry.getPosition());
    EXPECT_EQ(scene.child(BILLBOARD)->getPosition().get(), scene.geometry.getPosition());
}

TEST(PointGeometryTest, TheStyleUpdatePlacesOnlyNewLabelsAndBillboards) {
    PointScene scene;
    scene.fillStyle();
    scene.updateStyle();
    const auto oldPosition = scene.child(BILLBOARD)->getPosition();
    const auto oldLabelPosition = scene.child(LABEL)->getPosition();
    scene.geometry.setPosition(OTHER_PLACE);
    scene.updateStyle();
    EXPECT_EQ(scene.root->getPosition().get(), scene.geometry.getPosition());
    EXPECT_EQ(scene.child(MODEL)->getPosition().get(), scene.geometry.getPosition());
    EXPECT_EQ(scene.child(PARTICLES)->getPosition().get(), scene.geometry.getPosition());
    EXPECT_EQ(scene.child(BILLBOARD)->getPosition(), oldPosition);
    EXPECT_EQ(scene.child(LABEL)->getPosition(), oldLabelPosition);
    scene.geometry._updateGeometry(*scene.root, &scene.style);
    EXPECT_EQ(scene.child(BILLBOARD)->getPosition().get(), scene.geometry.getPosition());
    EXPECT_NE(scene.child(LABEL)->getPosition(), oldLabelPosition);
}

TEST(PointGeometryTest, AConstantPositionGivesModelAndParticlesNoOrientation) {
    PointScene scene;
    scene.fillStyle();
    scene.updateBoth();
    EXPECT_EQ(scene.child(MODEL)->getOrientation(), nullptr);
    EXPECT_EQ(scene.child(PARTICLES)->getOrientation(), nullptr);
    EXPECT_EQ(scene.child(BILLBOARD)->getOrientation(), nullptr);
    scene.geometry.setPosition(std::shared_ptr<PositionProperty>());
    scene.updateBoth();
    EXPECT_EQ(scene.child(MODEL)->getOrientation(), nullptr) << "nor does no position";
}

TEST(PointGeometryTest, AMovingPositionTurnsModelAndParticlesAlongThePath) {
    PointScene scene;
    scene.fillStyle();
    const auto moving = movingPosition();
    scene.geometry.setPosition(moving);
    scene.updateBoth();
    for (const char* name : {MODEL, PARTICLES}) {
        SCOPED_TRACE(name);
        const auto* orientation = dynamic_cast<const keo::VelocityOrientationProperty*>(
            scene.child(name)->getOrientation().get());
        ASSERT_NE(orientation, nullptr);
        EXPECT_EQ(orientation->getPosition(), moving);
        EXPECT_TRUE(orientation->getValue(TimePoint()).has_value());
    }
    EXPECT_EQ(scene.child(BILLBOARD)->getOrientation(), nullptr);
    scene.geometry.setPosition(PLACE);
    scene.updateBoth();
    EXPECT_EQ(scene.child(MODEL)->getOrientation(), nullptr);
}

TEST(PointGeometryTest, TheLabelSitsAtTheModelsPositionUntilTheModelIsReady) {
    PointScene scene;
    scene.fillStyle();
    scene.style.getModelSymbol()->setScale(Vector3<double>(1.0, 1.0, 2.0));
    scene.updateBoth();
    const auto labelPosition = scene.child(LABEL)->getPosition();
    ASSERT_NE(labelPosition, nullptr);
    EXPECT_FALSE(labelPosition->isConstant());
    expectNear(valueAtZero(labelPosition), cartesian(PLACE));

    // Loaded: the box's centre is 2 m up and it is 3 m high on each side of it, scaled by 2.
    auto& model = scene.modelGraphics();
    model.setBoundingBox(
        ModelGraphics::BoundingBox{Vector3<double>(0.0, 0.0, 2.0), Vector3<double>(1.0, 1.0, 3.0)});
    model.setReady(true);
    Cartographic top = PLACE;
    top.height += 2.0 + 3.0 * 2.0;
    expectNear(valueAtZero(labelPosition), cartesian(top));
    scene.updateBoth();
    expectNear(valueAtZero(scene.child(LABEL)->getPosition()), cartesian(top));
}

TEST(PointGeometryTest, TheLabelFollowsAMovingModel) {
    PointScene scene;
    scene.fillStyle();
    scene.geometry.setPosition(movingPosition());
    scene.updateBoth();
    const auto labelPosition = scene.child(LABEL)->getPosition();
    const auto at = TimePoint::fromSeconds(5.0);
    EXPECT_EQ(labelPosition->getValue(at), scene.child(MODEL)->getPosition()->getValue(at));
    scene.geometry.setPosition(std::shared_ptr<PositionProperty>());
    scene.geometry._updateGeometry(*scene.root, &scene.style);
    EXPECT_FALSE(scene.child(LABEL)->getPosition()->getValue(at).has_value())
        << "a model without position gives the label none";
}

TEST(PointGeometryTest, WithoutAModelTheLabelAndHintLineTakeThePointAndTheAnchorIsStored) {
    PointScene scene;
    const auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    scene.style.setLabelSymbol(label);
    scene.updateBoth();
    const auto hintLine = scene.child(LABEL)->getChildByName(HINT_LINE);
    ASSERT_NE(hintLine, nullptr);
    EXPECT_EQ(scene.child(LABEL)->getPosition().get(), scene.geometry.getPosition());
    EXPECT_EQ(hintLine->getPosition().get(), scene.geometry.getPosition());
    EXPECT_EQ(scene.geometry.getDistanceDisplayConditionAnchor(),
              std::optional<Vector3<double>>(cartesian(PLACE)));

    scene.geometry.setPosition(OTHER_PLACE);
    scene.updateStyle();
    EXPECT_EQ(scene.geometry.getDistanceDisplayConditionAnchor(),
              std::optional<Vector3<double>>(cartesian(OTHER_PLACE)))
        << "the hint line follows every update, and the anchor with it";

    scene.geometry.setPosition(std::shared_ptr<PositionProperty>());
    scene.updateBoth();
    EXPECT_FALSE(scene.geometry.getDistanceDisplayConditionAnchor().has_value())
        << "no position clears the anchor";
}

TEST(PointGeometryTest, OverAModelTheHintLineRidesOnTheModelAndTheAnchorIsLeft) {
    PointScene scene;
    scene.fillStyle();
    scene.style.getLabelSymbol()->setShowHintLine(true);
    scene.updateBoth();
    const auto hintLine = scene.child(LABEL)->getChildByName(HINT_LINE);
    ASSERT_NE(hintLine, nullptr);
    EXPECT_NE(dynamic_cast<const keo::CallbackPositionProperty*>(hintLine->getPosition().get()),
              nullptr);
    EXPECT_FALSE(scene.geometry.getDistanceDisplayConditionAnchor().has_value());
    auto& model = scene.modelGraphics();
    model.setBoundingBox(
        ModelGraphics::BoundingBox{Vector3<double>(0.0, 0.0, 1.0), Vector3<double>(1.0, 1.0, 1.0)});
    model.setReady(true);
    Cartographic top = PLACE;
    top.height += 2.0;
    expectNear(valueAtZero(hintLine->getPosition()), cartesian(top));
}

// --- through a feature, frame after frame
// ---------------------------------------------------------

// A point feature with every symbol and the frame loop of a renderer: each frame runs the update
// and checks that the added and dropped entities are exactly the difference of the entity tree.
class PointFeatureFrames : public ::testing::Test {
protected:
    PointFeatureFrames() {
        feature.setName("tower");
        scene.fillStyle();
        style = std::make_shared<PointStyle>(scene.style);
        feature.setGeometry(geometry);
        feature.setStyle(style);
    }

    // Runs one frame and returns the names of the added and removed entities ("" for the root).
    std::pair<std::vector<std::string>, std::vector<std::string>> frame() {
        const auto before = feature._getAllEntities();
        feature._updateEntityInCull(false);
        const auto after = feature._getAllEntities();
        const auto added = feature._takeAddedEntities();
        const auto removed = feature._takeRemovedEntities();
        EXPECT_EQ(asSet(added), difference(after, before));
        EXPECT_EQ(asSet(removed), difference(before, after));
        return {names(added), names(removed)};
    }

    std::vector<std::string> tree() const {
        std::vector<std::string> result;
        for (const auto& e : feature._getAllEntities()) {
            result.push_back(e->getName());
        }
        return result;
    }

    const Entity& root() { return *feature._getImplHandle(); }
    std::shared_ptr<Entity> child(const char* name) { return root().getChildByName(name); }

    static std::set<const Entity*> asSet(const std::vector<std::shared_ptr<Entity>>& entities) {
        std::set<const Entity*> result;
        for (const auto& e : entities) {
            result.insert(e.get());
        }
        return result;
    }
    static std::set<const Entity*> difference(const std::vector<std::shared_ptr<Entity>>& a,
                                              const std::vector<std::shared_ptr<Entity>>& b) {
        std::set<const Entity*> result = asSet(a);
        for (const auto& e : b) {
            result.erase(e.get());
        }
        return result;
    }

    PointScene scene; // makes the symbols
    Feature feature{std::uint64_t{7}};
    std::shared_ptr<PointGeometry> geometry = std::make_shared<PointGeometry>(PLACE);
    std::shared_ptr<PointStyle> style;
};

using Names = std::vector<std::string>;

TEST_F(PointFeatureFrames, EveryEditShowsInTheNextFrameWithTheEntitiesAddedAndDropped) {
    // First frame: the root and its four children.
    auto [added, removed] = frame();
    EXPECT_EQ(added, (Names{"", LABEL, BILLBOARD, MODEL, PARTICLES}));
    EXPECT_TRUE(removed.empty());
    EXPECT_EQ(tree(), (Names{"", LABEL, BILLBOARD, MODEL, PARTICLES}));
    EXPECT_EQ(graphicsOf<LabelGraphics>(*child(LABEL))->getText(), "tower");
    EXPECT_TRUE(feature._isEntityReady());

    // Nothing changed: nothing happens.
    std::tie(added, removed) = frame();
    EXPECT_TRUE(added.empty() && removed.empty());

    // Move: every entity follows, nothing is added or dropped.
    geometry->setPosition(OTHER_PLACE);
    EXPECT_FALSE(feature._isEntityReady());
    std::tie(added, removed) = frame();
    EXPECT_TRUE(added.empty() && removed.empty());
    for (const auto& entity : feature._getAllEntities()) {
        SCOPED_TRACE(entity->getName());
        expectNear(valueAtZero(entity->getPosition()), cartesian(OTHER_PLACE));
    }

    // Recolour the dot.
    style->getPointSymbol()->setColor(Color::YELLOW);
    std::tie(added, removed) = frame();
    EXPECT_TRUE(added.empty() && removed.empty());
    EXPECT_EQ(graphicsOf<PointGraphics>(root())->getColor(), Color::YELLOW);

    // Hide the billboard, then show it again: a new child.
    const auto oldBillboard = child(BILLBOARD);
    style->getBillboardSymbol()->setEnabled(false);
    std::tie(added, removed) = frame();
    EXPECT_TRUE(added.empty());
    EXPECT_EQ(removed, Names{BILLBOARD});
    EXPECT_EQ(tree(), (Names{"", LABEL, MODEL, PARTICLES}));
    style->getBillboardSymbol()->setEnabled(true);
    std::tie(added, removed) = frame();
    EXPECT_EQ(added, Names{BILLBOARD});
    EXPECT_NE(child(BILLBOARD), oldBillboard);
    expectNear(valueAtZero(child(BILLBOARD)->getPosition()), cartesian(OTHER_PLACE));

    // Highlight.
    feature.setHighlight(true);
    std::tie(added, removed) = frame();
    EXPECT_TRUE(added.empty() && removed.empty());
    EXPECT_EQ(graphicsOf<PointGraphics>(root())->getColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphicsOf<BillboardGraphics>(*child(BILLBOARD))->getColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphicsOf<ModelGraphics>(*child(MODEL))->getColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphicsOf<LabelGraphics>(*child(LABEL))->getFillColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphicsOf<ParticleSystemGraphics>(*child(PARTICLES))->getStartColor(), Color::RED);
    feature.setHighlight(false);
    frame();
    EXPECT_EQ(graphicsOf<PointGraphics>(root())->getColor(), Color::YELLOW);

    // Swap the style for one with a dot and a model only: label, billboard and particles go.
    auto swapped = std::make_shared<PointStyle>();
    swapped->setPointSymbol(makePointSymbol());
    swapped->setModelSymbol(makeModelSymbol());
    feature.setStyle(swapped);
    std::tie(added, removed) = frame();
    EXPECT_TRUE(added.empty());
    EXPECT_EQ(removed, (Names{LABEL, BILLBOARD, PARTICLES}));
    EXPECT_EQ(tree(), (Names{"", MODEL}));
    EXPECT_EQ(graphicsOf<PointGraphics>(root())->getColor(), Color::RED);

    // Edits of the old style no longer reach the feature.
    style->getPointSymbol()->setColor(Color::BLACK);
    EXPECT_TRUE(feature._isEntityReady());
}

TEST_F(PointFeatureFrames, TheModelsLabelRidesOnItOnceLoaded) {
    frame();
    auto& model = *child(MODEL)->getGeometryGraphics()->as<ModelGraphics>();
    model.setBoundingBox(
        ModelGraphics::BoundingBox{Vector3<double>(0.0, 0.0, 5.0), Vector3<double>(1.0, 1.0, 5.0)});
    model.setReady(true);
    Cartographic top = PLACE;
    top.height += 10.0;
    expectNear(valueAtZero(child(LABEL)->getPosition()), cartesian(top));
    // A recolour keeps the loaded model, so the label stays on top.
    style->getModelSymbol()->setColor(Color::YELLOW);
    frame();
    expectNear(valueAtZero(child(LABEL)->getPosition()), cartesian(top));
}

TEST_F(PointFeatureFrames, AFeatureWithOnlyTheDotDrawsItOnTheRoot) {
    auto dotOnly = std::make_shared<PointStyle>();
    dotOnly->setPointSymbol(makePointSymbol());
    feature.setStyle(dotOnly);
    auto [added, removed] = frame();
    EXPECT_EQ(added, Names{""});
    EXPECT_EQ(tree(), Names{""});
    EXPECT_EQ(graphicsOf<PointGraphics>(root())->getPixelSize(), 7.0f);
    expectNear(valueAtZero(root().getPosition()), cartesian(PLACE));
}

} // namespace
