#include "Feature/MultiGeometry.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/InvalidParametersException.h"
#include "Data/Entity.h"
#include "Data/PointGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/TimePoint.h"
#include "EntityTestSupport.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolygonGeometry.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"
#include "Feature/RectangleGeometry.h"
#include "FeatureTestSupport.h"
#include "RendererModel.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::DistanceDisplayCondition;
using keo::Ellipsoid;
using keo::Entity;
using keo::PointGraphics;
using keo::Vector3;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::MultiGeometry;
using keo::Feature::PointGeometry;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;
using keo::Feature::PolylineGeometry;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::cartesian;
using keo::Feature::test::ChangeCounter;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::positionOf;
using keo::Feature::test::RendererModel;

Cartographic degrees(double longitude, double latitude) {
    return Cartographic::fromDegrees(longitude, latitude, 0.0);
}

std::shared_ptr<PointGeometry> pointAt(double longitude, double latitude) {
    return std::make_shared<PointGeometry>(degrees(longitude, latitude));
}

// A fleet of @p count markers in a row.
std::shared_ptr<MultiGeometry> fleet(std::size_t count) {
    auto multi = std::make_shared<MultiGeometry>();
    for (std::size_t i = 0; i < count; ++i) {
        multi->add(pointAt(120.0 + 0.01 * static_cast<double>(i), 30.0));
    }
    return multi;
}

std::shared_ptr<PointStyle> markerStyle() {
    auto style = std::make_shared<PointStyle>();
    auto symbol = std::make_shared<PointSymbol>();
    symbol->setColor(Color::RED);
    style->setPointSymbol(symbol);
    return style;
}

const PointGeometry& pointOf(const MultiGeometry& multi, std::size_t i) {
    return static_cast<const PointGeometry&>(*multi.getComponents()[i]);
}

std::optional<Vector3<double>> positionOf(const PointGeometry& point) {
    return point.getPosition()->getValue(keo::TimePoint());
}

// A feature drawing a multi geometry with a point style, and what a renderer sees of it.
struct FleetFeature {
    explicit FleetFeature(std::size_t count)
        : multi(fleet(count)) {
        const CapturedLog log; // a multi geometry matches no style: the mismatch is logged
        feature.setStyle(style);
        feature.setGeometry(multi);
    }
    const std::vector<std::shared_ptr<Entity>>& children() const {
        return feature._getImplHandle()->getChildren();
    }

    Feature feature{std::uint64_t{7}};
    std::shared_ptr<PointStyle> style = markerStyle();
    std::shared_ptr<MultiGeometry> multi;
    RendererModel renderer{feature};
};

// --- components and their events ---------------------------------------------------------------

TEST(MultiGeometryTest, AnEmptyMultiGeometryHasComponentTypeZeroAndBuildsNoChildren) {
    MultiGeometry multi;
    EXPECT_EQ(multi.getType(), Geometry::Type::Multi);
    EXPECT_EQ(static_cast<int>(multi.getType()), 1);
    EXPECT_EQ(multi.getComponentType(), Geometry::Type::Base);
    EXPECT_EQ(static_cast<int>(multi.getComponentType()), 0);
    EXPECT_EQ(multi.getNumComponents(), 0u);
    const auto root = std::make_shared<Entity>();
    const Feature feature;
    EXPECT_TRUE(multi._updateGeometry(*root, nullptr));
    EXPECT_TRUE(multi._updateStyle(*root, feature, nullptr));
    EXPECT_TRUE(root->getChildren().empty());
}

TEST(MultiGeometryTest, AddingAComponentRaisesOneLockOneUnlockAndOneDefinitionChange) {
    MultiGeometry multi;
    const EventRecorder recorder(multi);
    const auto point = pointAt(120.0, 30.0);
    EXPECT_EQ(multi.add(point), point.get());
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(multi.getNumComponents(), 1u);
    EXPECT_EQ(multi.getComponents()[0], point);
}

TEST(MultiGeometryTest, LaterEditsOfAComponentReachTheMultiGeometrysListeners) {
    MultiGeometry multi;
    const auto point = pointAt(120.0, 30.0);
    multi.add(point);
    const EventRecorder recorder(multi);
    point->setPosition(degrees(121.0, 31.0));
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(MultiGeometryTest, ANullComponentIsHeldAndSkippedAndAComponentHeldTwiceIsHeardTwice) {
    MultiGeometry multi;
    EXPECT_EQ(multi.add(nullptr), nullptr);
    const auto point = pointAt(120.0, 30.0);
    multi.add(point);
    multi.add(point);
    EXPECT_EQ(multi.getNumComponents(), 3u);
    EXPECT_EQ(multi.getComponentType(), Geometry::Type::Base); // the first is null
    const EventRecorder recorder(multi);
    point->setPosition(degrees(121.0, 31.0));
    EXPECT_EQ(recorder.events, "LLUUDD");
    const auto root = std::make_shared<Entity>();
    const Feature feature;
    EXPECT_TRUE(multi._updateStyle(*root, feature, markerStyle().get()));
    ASSERT_EQ(root->getChildren().size(), 3u); // the null component's child is made, left empty
    EXPECT_EQ(root->getChildren()[0]->getGeometryGraphics(), nullptr);
    EXPECT_NE(root->getChildren()[2]->getGeometryGraphics(), nullptr);
}

TEST(MultiGeometryTest, TheConstructorAddsEachComponentInOrder) {
    const auto a = pointAt(120.0, 30.0);
    const auto b = pointAt(121.0, 30.0);
    MultiGeometry multi({a, b});
    EXPECT_EQ(multi.getComponents(), (std::vector<std::shared_ptr<Geometry>>{a, b}));
    const EventRecorder recorder(multi);
    b->setPosition(degrees(0.0, 0.0));
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(MultiGeometryTest, TheComponentTypeLooksThroughNestedMultiGeometriesToTheFirstComponent) {
    auto inner = std::make_shared<MultiGeometry>();
    MultiGeometry outer;
    outer.add(inner);
    EXPECT_EQ(outer.getComponentType(), Geometry::Type::Base); // an empty inner one
    inner->add(std::make_shared<PolylineGeometry>());
    EXPECT_EQ(outer.getComponentType(), Geometry::Type::Polyline);
    MultiGeometry points;
    points.add(pointAt(0.0, 0.0));
    points.add(std::make_shared<PolylineGeometry>());
    EXPECT_EQ(points.getComponentType(), Geometry::Type::Point); // the first one decides
}

TEST(MultiGeometryTest, AMultiGeometryCannotHoldItselfDirectlyOrThroughAnother) {
    auto outer = std::make_shared<MultiGeometry>();
    auto inner = std::make_shared<MultiGeometry>();
    outer->add(inner);
    const CapturedLog log;
    const EventRecorder recorder(*outer);
    EXPECT_EQ(outer->add(outer), nullptr);
    EXPECT_EQ(inner->add(outer), nullptr);
    EXPECT_EQ(outer->getNumComponents(), 1u);
    EXPECT_EQ(inner->getNumComponents(), 0u);
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.function, "keo::Feature::MultiGeometry::add");
    EXPECT_EQ(records[0].message,
              "a multi geometry cannot hold itself: the component is not added");
    EXPECT_EQ(outer->getComponentType(), Geometry::Type::Base);
}

TEST(MultiGeometryTest, RemoveDropsTheFirstOccurrenceStopsRelayingItAndKeepsTheOthersHeard) {
    const auto a = pointAt(120.0, 30.0);
    const auto b = pointAt(121.0, 30.0);
    const auto c = pointAt(122.0, 30.0);
    MultiGeometry multi({a, b, c});
    const EventRecorder recorder(multi);
    EXPECT_FALSE(multi.remove(pointAt(0.0, 0.0).get()));
    EXPECT_EQ(recorder.events, "");
    EXPECT_TRUE(multi.remove(a.get()));
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(multi.getComponents(), (std::vector<std::shared_ptr<Geometry>>{b, c}));
    a->setPosition(degrees(0.0, 0.0));
    EXPECT_EQ(recorder.events, "LUD");
    b->setPosition(degrees(0.0, 0.0));
    c->setPosition(degrees(0.0, 0.0));
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
}

TEST(MultiGeometryTest, ClearRaisesOneChangeOnlyWhenThereWereComponents) {
    const auto a = pointAt(120.0, 30.0);
    MultiGeometry multi({a, pointAt(121.0, 30.0)});
    const EventRecorder recorder(multi);
    multi.clear();
    EXPECT_EQ(recorder.events, "LUD");
    multi.clear();
    EXPECT_EQ(recorder.events, "LUD");
    a->setPosition(degrees(0.0, 0.0));
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(MultiGeometryTest, TheDestroyedMultiGeometryIsNoLongerCalledByItsComponents) {
    const auto point = pointAt(120.0, 30.0);
    { MultiGeometry multi({point}); }
    const EventRecorder recorder(*point);
    point->setPosition(degrees(0.0, 0.0)); // must not reach the gone multi geometry
    EXPECT_EQ(recorder.events, "LUD");
}

// --- copy and assign ---------------------------------------------------------------------------

TEST(MultiGeometryTest, ACopyHoldsClonesOfTheComponentsAndHearsOnlyThem) {
    const auto source = fleet(3);
    source->add(nullptr);
    source->setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    const auto cloned = source->clone();
    const auto& clone = static_cast<const MultiGeometry&>(*cloned);
    MultiGeometry copy(*source);
    for (const MultiGeometry* each : {&clone, static_cast<const MultiGeometry*>(&copy)}) {
        ASSERT_EQ(each->getNumComponents(), 4u);
        EXPECT_EQ(each->getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 2.0f));
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NE(each->getComponents()[i], source->getComponents()[i]);
            EXPECT_EQ(positionOf(pointOf(*each, i)), positionOf(pointOf(*source, i)));
        }
        EXPECT_EQ(each->getComponents()[3], nullptr);
    }
    const EventRecorder recorder(copy);
    const EventRecorder sourceRecorder(*source);
    static_cast<PointGeometry&>(*source->getComponents()[0]).setPosition(degrees(0.0, 0.0));
    EXPECT_EQ(recorder.events, "");
    static_cast<PointGeometry&>(*copy.getComponents()[0]).setPosition(degrees(0.0, 0.0));
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(sourceRecorder.events, "LUD");
}

TEST(MultiGeometryTest, AssignDropsTheComponentsCopiesTheConditionAndAddsClones) {
    const auto source = fleet(2);
    source->setDistanceDisplayCondition(DistanceDisplayCondition(5.0f, 50.0f));
    const auto held = pointAt(0.0, 0.0);
    MultiGeometry target({held});
    const EventRecorder recorder(target);
    target.assign(*source);
    // Dropped (one change), the condition, then each added component.
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD");
    ASSERT_EQ(target.getNumComponents(), 2u);
    EXPECT_NE(target.getComponents()[0], source->getComponents()[0]);
    EXPECT_EQ(target.getDistanceDisplayCondition(), DistanceDisplayCondition(5.0f, 50.0f));
    const EventRecorder after(target);
    held->setPosition(degrees(1.0, 1.0));
    EXPECT_EQ(after.events, "");
}

TEST(MultiGeometryTest, AssignOfAnEmptyMultiGeometryToAnEmptyOneRaisesNothing) {
    MultiGeometry target;
    const EventRecorder recorder(target);
    target.assign(MultiGeometry());
    EXPECT_EQ(recorder.events, "");
}

TEST(MultiGeometryTest, AssigningItselfOrOneOfItsComponentsKeepsTheComponentsAsCopies) {
    auto multi = fleet(2);
    multi->assign(*multi);
    ASSERT_EQ(multi->getNumComponents(), 2u);
    EXPECT_EQ(multi->getComponentType(), Geometry::Type::Point);
    auto outer = std::make_shared<MultiGeometry>();
    outer->add(fleet(3));
    outer->assign(*outer->getComponents()[0]);
    EXPECT_EQ(outer->getNumComponents(), 3u);
    EXPECT_EQ(outer->getComponentType(), Geometry::Type::Point);
}

TEST(MultiGeometryTest, AssignFromAnotherKindLogsAtLine42AndChangesNothing) {
    const CapturedLog log;
    const auto target = fleet(2);
    const EventRecorder recorder(*target);
    target->assign(PointGeometry(Cartographic()));
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(target->getNumComponents(), 2u);
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, "类型不同无法赋值！");
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/MultiGeometry");
    EXPECT_EQ(records[0].location.line, 42);
    EXPECT_EQ(records[0].location.function, "keo::Feature::MultiGeometry::assign");
}

// --- drawing -----------------------------------------------------------------------------------

TEST(MultiGeometryTest, EachComponentIsDrawnIntoItsOwnChildInComponentOrder) {
    FleetFeature f(3);
    f.renderer.frame();
    ASSERT_EQ(f.children().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(positionOf(*f.children()[i]), positionOf(pointOf(*f.multi, i)));
        EXPECT_NE(f.children()[i]->getGeometryGraphics()->as<PointGraphics>(), nullptr);
    }
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, TheGeometryStepSkipsComponentsThatHaveNoChildYet) {
    const auto multi = fleet(3);
    const auto root = std::make_shared<Entity>();
    std::make_shared<Entity>()->setParent(root);
    EXPECT_TRUE(multi->_updateGeometry(*root, markerStyle().get()));
    ASSERT_EQ(root->getChildren().size(), 1u);
    EXPECT_EQ(positionOf(*root->getChildren()[0]), positionOf(pointOf(*multi, 0)));
}

TEST(MultiGeometryTest, AComponentConditionIsDrawnWithinTheMultiGeometrysAndRestoredAfterwards) {
    FleetFeature f(2);
    f.multi->setDistanceDisplayCondition(DistanceDisplayCondition(100.0f, 500.0f));
    auto& first = static_cast<PointGeometry&>(*f.multi->getComponents()[0]);
    first.setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, 300.0f));
    const EventRecorder componentRecorder(first);
    const EventRecorder multiRecorder(*f.multi);
    f.renderer.frame();
    const auto* drawn = f.children()[0]->getGeometryGraphics()->as<PointGraphics>();
    EXPECT_EQ(drawn->getDistanceDisplayCondition(), DistanceDisplayCondition(100.0f, 300.0f));
    const auto* second = f.children()[1]->getGeometryGraphics()->as<PointGraphics>();
    EXPECT_EQ(second->getDistanceDisplayCondition(), DistanceDisplayCondition(100.0f, 500.0f));
    EXPECT_EQ(first.getDistanceDisplayCondition(), DistanceDisplayCondition(0.0f, 300.0f));
    EXPECT_FALSE(f.multi->getComponents()[1]->getDistanceDisplayCondition());
    // The component heard the loan and the return; its holder relayed neither.
    EXPECT_EQ(componentRecorder.events, "LUDLUD");
    EXPECT_EQ(multiRecorder.events, "");
}

TEST(MultiGeometryTest, AComponentWhoseDrawingThrowsStillGetsItsOwnConditionBack) {
    MultiGeometry multi;
    multi.setDistanceDisplayCondition(DistanceDisplayCondition(100.0f, 500.0f));
    const auto empty = std::make_shared<keo::Feature::RectangleGeometry>();
    empty->setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, 300.0f));
    multi.add(empty);
    const auto root = std::make_shared<Entity>();
    const Feature feature;
    EXPECT_THROW(multi._updateStyle(*root, feature, nullptr), keo::InvalidParametersException);
    EXPECT_EQ(empty->getDistanceDisplayCondition(), DistanceDisplayCondition(0.0f, 300.0f));
    const EventRecorder recorder(multi);
    empty->setRotate(keo::Radian(1.0)); // relaying again after the throw
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(MultiGeometryTest, DrawingUnderAConditionLeavesTheFeatureCleanForTheNextFrame) {
    FleetFeature f(2);
    f.multi->setDistanceDisplayCondition(DistanceDisplayCondition(100.0f, 500.0f));
    f.renderer.frame();
    const ChangeCounter changes(f.feature);
    f.renderer.frame();
    f.renderer.frame();
    EXPECT_EQ(changes.count, 0);
}

TEST(MultiGeometryTest, ChildrenBeyondTheComponentsAreDetachedAndReported) {
    FleetFeature f(4);
    f.renderer.frame();
    const std::vector<std::shared_ptr<Entity>> before = f.children();
    f.multi->assign(*fleet(2));
    f.renderer.frame();
    ASSERT_EQ(f.children().size(), 2u);
    EXPECT_EQ(f.children()[0], before[0]); // re-used by position
    EXPECT_EQ(f.children()[1], before[1]);
    EXPECT_EQ(before[3]->getParent(), nullptr);
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, RemovingAComponentMovesTheLaterOnesUpIntoTheChildrenBeforeThem) {
    FleetFeature f(3);
    f.renderer.frame();
    const std::vector<std::shared_ptr<Entity>> before = f.children();
    const auto third = f.multi->getComponents()[2];
    ASSERT_TRUE(f.multi->remove(f.multi->getComponents()[0].get()));
    f.renderer.frame();
    ASSERT_EQ(f.children().size(), 2u);
    EXPECT_EQ(f.children()[0], before[0]);
    EXPECT_EQ(f.children()[1], before[1]);
    EXPECT_EQ(positionOf(*f.children()[1]), positionOf(static_cast<const PointGeometry&>(*third)));
    EXPECT_EQ(f.renderer.live().count(before[2].get()), 0u);
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, ReorderingTheComponentsRedrawsEachChildWithItsNewComponent) {
    FleetFeature f(3);
    f.renderer.frame();
    const std::vector<std::shared_ptr<Geometry>> order = f.multi->getComponents();
    MultiGeometry reversed;
    for (auto it = order.rbegin(); it != order.rend(); ++it) {
        reversed.add(*it);
    }
    f.multi->assign(reversed);
    f.renderer.frame();
    ASSERT_EQ(f.children().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(positionOf(*f.children()[i]),
                  positionOf(static_cast<const PointGeometry&>(*order[2 - i])));
    }
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, AComponentEditReachesTheFeatureOncePerCycle) {
    FleetFeature f(3);
    f.renderer.frame();
    const ChangeCounter changes(f.feature);
    auto& second = static_cast<PointGeometry&>(*f.multi->getComponents()[1]);
    second.setPosition(degrees(100.0, 10.0));
    second.setPosition(degrees(101.0, 11.0));
    EXPECT_EQ(changes.count, 1);
    f.renderer.frame();
    EXPECT_EQ(positionOf(*f.children()[1]), cartesian(degrees(101.0, 11.0)));
    second.setPosition(degrees(102.0, 12.0));
    EXPECT_EQ(changes.count, 2);
}

TEST(MultiGeometryTest, EveryComponentGetsTheFeaturesLabelInItsOwnChild) {
    FleetFeature f(2);
    f.feature.setName("fleet");
    f.style->setLabelSymbol(std::make_shared<LabelSymbol>());
    f.renderer.frame();
    for (const auto& child : f.children()) {
        EXPECT_NE(child->getChildByName("label-symbol"), nullptr);
    }
    EXPECT_EQ(f.feature._getImplHandle()->getChildByName("label-symbol"), nullptr);
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, NestedMultiGeometriesDrawIntoChildrenOfChildren) {
    auto outer = std::make_shared<MultiGeometry>();
    outer->add(fleet(2));
    outer->add(fleet(3));
    Feature feature(std::uint64_t{8});
    feature.setGeometry(outer);
    {
        const CapturedLog log;
        feature.setStyle(markerStyle());
    }
    RendererModel renderer(feature);
    renderer.frame();
    const auto& children = feature._getImplHandle()->getChildren();
    ASSERT_EQ(children.size(), 2u);
    EXPECT_EQ(children[0]->getChildren().size(), 2u);
    EXPECT_EQ(children[1]->getChildren().size(), 3u);
    renderer.expectLiveSetIsTheTree();
}

// --- the feature -------------------------------------------------------------------------------

TEST(MultiGeometryTest, EveryStyleOnAMultiGeometryIsLoggedAsAMismatch) {
    const CapturedLog log;
    Feature feature;
    feature.setGeometry(fleet(1));
    feature.setStyle(markerStyle());
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, "风格和几何体不匹配，风格不起作用。");
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Feature");
    EXPECT_EQ(records[0].location.line, 244);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Feature::setStyle");
}

TEST(MultiGeometryTest, AnotherMultiGeometryOfTheSameComponentKindKeepsTheChildren) {
    FleetFeature f(2);
    f.renderer.frame();
    const std::vector<std::shared_ptr<Entity>> before = f.children();
    f.feature.setGeometry(fleet(2));
    f.renderer.frame();
    EXPECT_EQ(f.children(), before);
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, AMultiGeometryOfAnotherComponentKindStartsAfresh) {
    FleetFeature f(2);
    f.renderer.frame();
    const std::vector<std::shared_ptr<Entity>> before = f.children();
    auto lines = std::make_shared<MultiGeometry>();
    lines->add(std::make_shared<PolylineGeometry>(
        std::vector<Cartographic>{degrees(120.0, 30.0), degrees(120.1, 30.1)}));
    {
        const CapturedLog log;
        f.feature.setGeometry(lines);
    }
    f.renderer.frame();
    ASSERT_EQ(f.children().size(), 1u);
    EXPECT_NE(f.children()[0], before[0]);
    EXPECT_EQ(before[0]->getParent(), nullptr);
    f.renderer.expectLiveSetIsTheTree();
}

TEST(MultiGeometryTest, TwoEmptyMultiGeometriesAreOfTheSameKindAndAPointIsNot) {
    Feature feature;
    feature.setGeometry(std::make_shared<MultiGeometry>());
    feature._updateEntityInCull(false);
    feature._takeAddedEntities();
    feature.setGeometry(std::make_shared<MultiGeometry>());
    feature._updateEntityInCull(false);
    EXPECT_TRUE(feature._takeRemovedEntities().empty());
    feature.setGeometry(fleet(1));
    feature._updateEntityInCull(false); // kind 300 against 0: the children start afresh
    feature.setGeometry(pointAt(1.0, 1.0));
    feature._updateEntityInCull(false);
    EXPECT_TRUE(feature._getImplHandle()->getChildren().empty());
}

TEST(MultiGeometryTest, EditsFrameAfterFrameKeepTheLiveSetEqualToTheTree) {
    FleetFeature f(3);
    f.feature.setName("fleet");
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    const std::vector<std::function<void()>> edits = {
        [&] { f.style->setLabelSymbol(label); },
        [&] { f.multi->add(pointAt(123.0, 31.0)); },
        [&] {
            static_cast<PointGeometry&>(*f.multi->getComponents()[2])
                .setPosition(degrees(1.0, 2.0));
        },
        [&] { f.multi->remove(f.multi->getComponents()[1].get()); },
        [&] { f.multi->setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, 9.0f)); },
        [&] { label->setShowHintLine(false); },
        [&] { f.multi->clear(); },
        [&] { f.multi->assign(*fleet(5)); },
        [&] { f.feature.setGeometry(pointAt(0.0, 0.0)); },
        [&] { f.feature.setGeometry(fleet(2)); },
    };
    f.renderer.frame();
    f.renderer.expectLiveSetIsTheTree();
    for (std::size_t i = 0; i < edits.size(); ++i) {
        SCOPED_TRACE(i);
        const CapturedLog log;
        edits[i]();
        f.renderer.frame();
        f.renderer.expectLiveSetIsTheTree();
    }
    EXPECT_EQ(f.children().size(), 2u);
}

} // namespace
