#include "Feature/Feature.h"

#include "Common/Math.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Feature/FeatureGroup.h"
#include "Feature/LabelSymbol.h"
#include "FeatureTestSupport.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using keo::Entity;
using keo::Feature::Feature;
using keo::Feature::FeatureGroup;
using keo::Feature::FeatureStatus;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::Style;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::ChangeCounter;
using keo::Feature::test::TestGeometry;
using keo::Feature::test::TestStyle;

constexpr int SHOW_CHANGED = keo::Feature::ShowChanged;
constexpr int ATTRIBUTE_CHANGED = keo::Feature::AttributeChanged;
constexpr int CONTENT_CHANGED = keo::Feature::ContentChanged;

std::vector<std::string> names(const std::vector<std::shared_ptr<Entity>>& entities) {
    std::vector<std::string> out;
    for (const auto& e : entities) {
        out.push_back(e->getName());
    }
    return out;
}

// A feature with a point test geometry and a point test style carrying a label symbol.
struct LabelledFeature {
    LabelledFeature() {
        feature.setName("name");
        geometry = std::make_shared<TestGeometry>(Geometry::Type::Point);
        style = std::make_shared<TestStyle>(Style::Type::Point);
        label = std::make_shared<LabelSymbol>();
        style->setLabelSymbol(label);
        feature.setGeometry(geometry);
        feature.setStyle(style);
    }
    std::shared_ptr<Entity> labelEntity() const {
        return feature._getImplHandle()->getChildByName("label-symbol");
    }
    Feature feature{std::uint64_t{7}};
    std::shared_ptr<TestGeometry> geometry;
    std::shared_ptr<TestStyle> style;
    std::shared_ptr<LabelSymbol> label;
};

// --- identity --------------------------------------------------------------------------------

TEST(FeatureTest, GivenIdIsKept) {
    EXPECT_EQ(Feature(std::uint64_t{42}).getId(), 42u);
}

TEST(FeatureTest, EmptyOptionalIdDrawsAFreshIdFromAUuid) {
    const Feature a;
    const Feature b(std::nullopt);
    EXPECT_NE(a.getId(), b.getId());
}

TEST(FeatureTest, TwoCopiesOfOneFeatureHaveDifferentIds) {
    const Feature source(std::uint64_t{5});
    const Feature copy(source);
    const auto clone = source.clone();
    EXPECT_NE(copy.getId(), source.getId());
    EXPECT_NE(clone->getId(), source.getId());
    EXPECT_NE(clone->getId(), copy.getId());
}

TEST(FeatureTest, NewFeatureHasTheDocumentedDefaults) {
    const Feature feature;
    EXPECT_TRUE(feature.isShow());
    EXPECT_FALSE(feature.isGroup());
    EXPECT_EQ(feature.getParent(), nullptr);
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::None);
    EXPECT_EQ(feature.getFeatureChangeType(), 0);
    EXPECT_FALSE(feature.isHighlight());
    EXPECT_TRUE(feature._isAsynchronous());
    EXPECT_EQ(feature._getImplHandle(), nullptr);
    EXPECT_EQ(feature.getGeometry(), nullptr);
    EXPECT_EQ(feature.getStyle(), nullptr);
    EXPECT_EQ(feature._getBoundingSphere(), nullptr);
    EXPECT_GE(feature.getAttributes().bucket_count(), 8u); // asks for 8; the library may round up
    EXPECT_EQ(feature.getAttributes().max_load_factor(), 1.0f);
}

// --- the change rule -------------------------------------------------------------------------

TEST(FeatureTest, SetShowWithTheCurrentValueRecordsNothing) {
    Feature feature;
    ChangeCounter counter(feature);
    feature.setShow(true);
    EXPECT_EQ(counter.count, 0);
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::None);
    EXPECT_EQ(feature.getFeatureChangeType(), 0);
}

TEST(FeatureTest, SetShowRaisesOnceAndRecordsShowChanged) {
    Feature feature;
    ChangeCounter counter(feature);
    feature.setShow(false);
    EXPECT_EQ(counter.count, 1);
    EXPECT_EQ(counter.last, &feature);
    EXPECT_FALSE(feature.isShow());
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::Modified);
    EXPECT_EQ(feature.getFeatureChangeType(), SHOW_CHANGED);
}

TEST(FeatureTest, HidingAFeatureUnderAHiddenParentRaisesNothingButRecordsShowChanged) {
    const auto group = std::make_shared<FeatureGroup>();
    const auto feature = std::make_shared<Feature>();
    group->add(feature);
    group->setShow(false);
    feature->setFeatureStatus(FeatureStatus::None);
    feature->resetChangeType(static_cast<keo::Feature::FeatureChangeType>(0));
    ChangeCounter counter(*feature);

    feature->setShow(false);

    EXPECT_FALSE(feature->isShow());
    EXPECT_EQ(counter.count, 0);
    EXPECT_EQ(feature->getFeatureChangeType(), SHOW_CHANGED);
}

TEST(FeatureTest, AfterTheFirstChangeFurtherChangesAddNoFlags) {
    Feature feature;
    feature.setLabelText("a");
    feature.setShow(false);
    feature.setUserDefinedAttribute("u");
    EXPECT_EQ(feature.getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::Modified);

    feature.setFeatureStatus(FeatureStatus::None);
    feature.setShow(true);
    EXPECT_EQ(feature.getFeatureChangeType(), CONTENT_CHANGED | SHOW_CHANGED);
}

TEST(FeatureTest, AttributeChangesAlwaysAddTheirFlag) {
    Feature feature;
    feature.setShow(false);
    ASSERT_EQ(feature.getFeatureStatus(), FeatureStatus::Modified);
    feature.setAttribute("a", {1, std::any(1)});
    EXPECT_EQ(feature.getFeatureChangeType(), SHOW_CHANGED | ATTRIBUTE_CHANGED);

    Feature other;
    other.setAttributeNull("n");
    EXPECT_EQ(other.getFeatureStatus(), FeatureStatus::Modified);
    EXPECT_EQ(other.getFeatureChangeType(), ATTRIBUTE_CHANGED);

    Feature third;
    third.setAttributes({{"k", {2, std::any(std::string("v"))}}});
    EXPECT_EQ(third.getFeatureChangeType(), ATTRIBUTE_CHANGED);
    EXPECT_EQ(third.getAttributes().size(), 1u);
}

TEST(FeatureTest, SetNameAssignsContentChangedInsteadOfAddingIt) {
    Feature feature;
    feature.addChangeType(keo::Feature::ShowChanged);
    feature.setName("n");
    EXPECT_EQ(feature.getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::Modified);
    EXPECT_EQ(feature.getName(), "n");
}

TEST(FeatureTest, SetDescriptionAssignsContentChangedInsteadOfAddingIt) {
    Feature feature;
    feature.addChangeType(keo::Feature::AttributeChanged);
    feature.setDescription("d");
    EXPECT_EQ(feature.getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_EQ(feature.getDescription(), "d");
}

TEST(FeatureTest, SetNameWithTheSameTextChangesNothing) {
    Feature feature;
    ChangeCounter counter(feature);
    feature.setName("");
    EXPECT_EQ(counter.count, 0);
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::None);
}

TEST(FeatureTest, AssignmentCopiesNameDescriptionShowAndAssignsContentChanged) {
    Feature source(std::uint64_t{1});
    source.setName("source");
    source.setDescription("about");
    source.setShow(false);
    source.setAttribute("a", {3, std::any(3)});
    Feature target(std::uint64_t{2});
    target.addChangeType(keo::Feature::ShowChanged);

    target = source;

    EXPECT_EQ(target.getId(), 2u);
    EXPECT_EQ(target.getName(), "source");
    EXPECT_EQ(target.getDescription(), "about");
    EXPECT_FALSE(target.isShow());
    EXPECT_EQ(target.getAttributes().count("a"), 1u);
    EXPECT_EQ(target.getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_EQ(target.getFeatureStatus(), FeatureStatus::Modified);
}

TEST(FeatureTest, ResetChangeTypeAssigns) {
    Feature feature;
    feature.addChangeType(keo::Feature::ShowChanged);
    feature.addChangeType(keo::Feature::AttributeChanged);
    EXPECT_EQ(feature.getFeatureChangeType(), SHOW_CHANGED | ATTRIBUTE_CHANGED);
    feature.resetChangeType(keo::Feature::ContentChanged);
    EXPECT_EQ(feature.getFeatureChangeType(), CONTENT_CHANGED);
    feature.resetChangeType(static_cast<keo::Feature::FeatureChangeType>(0));
    EXPECT_EQ(feature.getFeatureChangeType(), 0);
}

TEST(FeatureTest, UserDefinedAttributeRecordsContentChangedWithoutEvent) {
    Feature feature;
    ChangeCounter counter(feature);
    feature.setUserDefinedAttribute("x");
    EXPECT_EQ(feature.getUserDefinedAttribute(), "x");
    EXPECT_EQ(feature.getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_EQ(counter.count, 0);
}

TEST(FeatureTest, AttachmentFilesAreStoredWithoutEventOrChange) {
    Feature feature;
    ChangeCounter counter(feature);
    const std::vector<std::string> files{"a.pdf", "b.png"};
    feature.setAttachmentFiles(files);
    EXPECT_EQ(feature.getAttachmentFiles(), files);
    feature.setAttachmentFiles(std::vector<std::string>{"c"});
    EXPECT_EQ(feature.getAttachmentFiles(), std::vector<std::string>{"c"});
    EXPECT_EQ(counter.count, 0);
    EXPECT_EQ(feature.getFeatureChangeType(), 0);
}

// --- attributes ------------------------------------------------------------------------------

TEST(FeatureTest, SetAttributeOverwritesTagAndValue) {
    Feature feature;
    feature.setAttribute("k", {1, std::any(1)});
    feature.setAttribute("k", {2, std::any(std::string("two"))});
    const auto& value = feature.getAttributes().at("k");
    EXPECT_EQ(value.type, 2);
    EXPECT_EQ(std::any_cast<std::string>(value.value), "two");
}

TEST(FeatureTest, SetAttributeNullKeepsTheTagAndInsertsAMissingKey) {
    Feature feature;
    feature.setAttribute("k", {4, std::any(1.5)});
    feature.setAttributeNull("k");
    feature.setAttributeNull("missing");
    EXPECT_EQ(feature.getAttributes().at("k").type, 4);
    EXPECT_TRUE(feature.getAttributes().at("k").isNull());
    EXPECT_EQ(feature.getAttributes().at("missing").type, 0);
    EXPECT_TRUE(feature.getAttributes().at("missing").isNull());
}

TEST(FeatureTest, RemoveAttributeReportsWhetherTheKeyWasThereAndRecordsNoChange) {
    Feature feature;
    feature.setAttribute("k", {1, std::any(1)});
    feature.setFeatureStatus(FeatureStatus::None);
    feature.resetChangeType(static_cast<keo::Feature::FeatureChangeType>(0));
    EXPECT_FALSE(feature.removeAttribute("other"));
    EXPECT_TRUE(feature.removeAttribute("k"));
    EXPECT_TRUE(feature.getAttributes().empty());
    EXPECT_EQ(feature.getFeatureChangeType(), 0);
    EXPECT_EQ(feature.getFeatureStatus(), FeatureStatus::None);
}

TEST(FeatureTest, RenameAttributeToItselfReturnsTrueAndKeepsTheValue) {
    Feature feature;
    feature.setAttribute("a", {9, std::any(std::string("v"))});
    EXPECT_TRUE(feature.renameAttribute("a", "a"));
    ASSERT_EQ(feature.getAttributes().count("a"), 1u);
    EXPECT_EQ(feature.getAttributes().at("a").type, 9);
    EXPECT_EQ(std::any_cast<std::string>(feature.getAttributes().at("a").value), "v");
}

TEST(FeatureTest, RenameAttributeMovesTagAndValueOverwritingTheNewKey) {
    Feature feature;
    feature.setAttribute("old", {1, std::any(10)});
    feature.setAttribute("new", {2, std::any(20)});
    feature.setFeatureStatus(FeatureStatus::None);
    feature.resetChangeType(static_cast<keo::Feature::FeatureChangeType>(0));
    EXPECT_TRUE(feature.renameAttribute("old", "new"));
    EXPECT_EQ(feature.getAttributes().count("old"), 0u);
    EXPECT_EQ(feature.getAttributes().at("new").type, 1);
    EXPECT_EQ(std::any_cast<int>(feature.getAttributes().at("new").value), 10);
    EXPECT_EQ(feature.getFeatureChangeType(), 0);
}

TEST(FeatureTest, RenameAttributeOfAMissingKeyReturnsFalse) {
    Feature feature;
    EXPECT_FALSE(feature.renameAttribute("missing", "x"));
    EXPECT_TRUE(feature.getAttributes().empty());
}

// --- geometry and style kinds ----------------------------------------------------------------

struct KindCase {
    Geometry::Type geometry;
    Style::Type style;
    bool matches;
};

TEST(FeatureTest, KindCheckLogsEveryPairOutsideTheTableFromBothSetters) {
    using G = Geometry::Type;
    using S = Style::Type;
    const std::vector<G> geometries{G::Point,     G::Polyline, G::Polygon,
                                    G::Rectangle, G::Ellipse,  G::Multi};
    const std::vector<S> styles{S::Point, S::Polyline, S::Polygon, S::Ellipse};
    for (const G g : geometries) {
        for (const S s : styles) {
            const bool matches =
                (g == G::Point && s == S::Point) || (g == G::Polyline && s == S::Polyline) ||
                (g == G::Polygon && s == S::Polygon) || (g == G::Rectangle && s == S::Polygon);
            SCOPED_TRACE(testing::Message() << "geometry " << static_cast<int>(g) << ", style "
                                            << static_cast<int>(s));
            {
                const CapturedLog log;
                Feature feature;
                const auto style = std::make_shared<TestStyle>(s);
                feature.setStyle(style);
                const auto geometry = std::make_shared<TestGeometry>(g);
                feature.setGeometry(geometry);
                EXPECT_EQ(feature.getGeometry(), geometry);
                const auto records = log.records();
                ASSERT_EQ(records.size(), matches ? 0u : 1u);
                if (!matches) {
                    EXPECT_EQ(records[0].message, "风格和几何体不匹配，风格不起作用。");
                    EXPECT_EQ(records[0].level, 3);
                    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Feature");
                    EXPECT_EQ(records[0].location.line, 201);
                    EXPECT_EQ(records[0].location.function, "keo::Feature::Feature::setGeometry");
                }
            }
            {
                const CapturedLog log;
                Feature feature;
                feature.setGeometry(std::make_shared<TestGeometry>(g));
                const auto style = std::make_shared<TestStyle>(s);
                feature.setStyle(style);
                EXPECT_EQ(feature.getStyle(), style.get());
                const auto records = log.records();
                ASSERT_EQ(records.size(), matches ? 0u : 1u);
                if (!matches) {
                    EXPECT_EQ(records[0].message, "风格和几何体不匹配，风格不起作用。");
                    EXPECT_EQ(records[0].level, 3);
                    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Feature");
                    EXPECT_EQ(records[0].location.line, 244);
                    EXPECT_EQ(records[0].location.function, "keo::Feature::Feature::setStyle");
                }
            }
        }
    }
}

TEST(FeatureTest, PolylineStyleOnAPointGeometryLogsOncePerCallAndIsStored) {
    const CapturedLog log;
    Feature feature;
    feature.setGeometry(std::make_shared<TestGeometry>(Geometry::Type::Point));
    feature.setStyle(std::make_shared<TestStyle>(Style::Type::Polyline));
    EXPECT_EQ(log.records().size(), 1u);
    const auto second = std::make_shared<TestStyle>(Style::Type::Polyline);
    feature.setStyle(second);
    EXPECT_EQ(log.records().size(), 2u);
    EXPECT_EQ(feature.getStyle(), second.get());
    feature.setStyle(second); // the same style: nothing, no record
    EXPECT_EQ(log.records().size(), 2u);
}

TEST(FeatureTest, NoKindCheckWhileOneSideIsMissing) {
    const CapturedLog log;
    Feature feature;
    feature.setStyle(std::make_shared<TestStyle>(Style::Type::Ellipse));
    feature.setGeometry(nullptr);
    Feature other;
    other.setGeometry(std::make_shared<TestGeometry>(Geometry::Type::Ellipse));
    EXPECT_TRUE(log.records().empty());
}

// --- events ----------------------------------------------------------------------------------

TEST(FeatureTest, DefinitionChangedIsRaisedOncePerUpdateCycle) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    ChangeCounter counter(f.feature);

    f.feature.setLabelText("a");
    f.label->setSize(20.0f);
    f.geometry->edit();
    f.style->setShadows(1);
    f.feature.setHighlight(true);
    EXPECT_EQ(counter.count, 1);

    f.feature._updateEntityInCull(false);
    f.label->setSize(21.0f);
    f.feature.setLabelText("b");
    EXPECT_EQ(counter.count, 2);
}

TEST(FeatureTest, EditsOfTheGeometryAndStyleMarkTheFeatureDirty) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    ASSERT_TRUE(f.feature._isEntityReady());
    f.geometry->edit();
    EXPECT_FALSE(f.feature._isEntityReady());
    f.feature._updateEntityInCull(false);
    f.label->setFillColor(keo::Color::RED);
    EXPECT_FALSE(f.feature._isEntityReady());
}

TEST(FeatureTest, ReplacedGeometryNoLongerReachesTheFeature) {
    Feature feature;
    const auto first = std::make_shared<TestGeometry>();
    const auto second = std::make_shared<TestGeometry>();
    feature.setGeometry(first);
    feature.setGeometry(second);
    feature._updateEntityInCull(false);
    ChangeCounter counter(feature);
    first->edit();
    EXPECT_EQ(counter.count, 0);
    EXPECT_TRUE(feature._isEntityReady());
    second->edit();
    EXPECT_EQ(counter.count, 1);
}

TEST(FeatureTest, ReplacedStyleNoLongerReachesTheFeature) {
    Feature feature;
    const auto first = std::make_shared<TestStyle>();
    const auto second = std::make_shared<TestStyle>();
    feature.setStyle(first);
    feature.setStyle(second);
    feature._updateEntityInCull(false);
    ChangeCounter counter(feature);
    first->setShadows(2);
    EXPECT_EQ(counter.count, 0);
    second->setShadows(2);
    EXPECT_EQ(counter.count, 1);
}

TEST(FeatureTest, AListenerWithAnEmptyFunctionFailsWithBadFunctionCall) {
    Feature feature;
    feature._addDefinitionChangedEventListener(std::function<void(Feature*)>());
    EXPECT_THROW(feature._raiseDefinitionChangedEvent(), std::bad_function_call);
}

TEST(FeatureTest, EqualLabelTextAndDistanceConditionRaiseNothing) {
    Feature feature;
    ChangeCounter counter(feature);
    feature.setLabelText("");
    feature.setDistanceDisplayCondition(std::nullopt);
    EXPECT_EQ(counter.count, 0);
    feature.setDistanceDisplayCondition(keo::DistanceDisplayCondition(1.0f, 2.0f));
    feature._updateEntityInCull(false);
    feature.setDistanceDisplayCondition(keo::DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_EQ(counter.count, 1);
}

TEST(FeatureTest, ANaNDistanceConditionAlwaysCountsAsAChange) {
    Feature feature;
    ChangeCounter counter(feature);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    feature.setDistanceDisplayCondition(keo::DistanceDisplayCondition(nan, 2.0f));
    feature._updateEntityInCull(false);
    feature.setDistanceDisplayCondition(keo::DistanceDisplayCondition(nan, 2.0f));
    EXPECT_EQ(counter.count, 2);
}

TEST(FeatureTest, SetHighlightClonesTheStyleAndMarksTheStyleDirty) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    ChangeCounter counter(f.feature);
    f.feature.setHighlight(true);
    EXPECT_TRUE(f.feature.isHighlight());
    EXPECT_FALSE(f.feature._isEntityReady());
    EXPECT_EQ(counter.count, 1);
    f.feature.setHighlight(true);
    f.feature._updateEntityInCull(false);
    f.feature.setHighlight(true);
    EXPECT_EQ(counter.count, 1);
    f.feature.setHighlight(false);
    EXPECT_EQ(counter.count, 2);
    EXPECT_EQ(f.geometry->geometryUpdates, 1);
}

// --- _updateEntityInCull -----------------------------------------------------------------------

TEST(FeatureTest, FirstUpdateCreatesTheRootAndReportsIt) {
    Feature feature;
    feature._updateEntityInCull(false);
    ASSERT_NE(feature._getImplHandle(), nullptr);
    const auto added = feature._takeAddedEntities();
    ASSERT_EQ(added.size(), 1u);
    EXPECT_EQ(added[0], feature._getImplHandle());
    EXPECT_TRUE(feature._takeAddedEntities().empty());
    EXPECT_TRUE(feature._takeRemovedEntities().empty());
    // The root lives as long as the feature.
    const auto root = feature._getImplHandle();
    feature._updateEntityInCull(false);
    EXPECT_EQ(feature._getImplHandle(), root);
}

TEST(FeatureTest, AnUpdateThatHandsItsListsOverAppendsWhatWasRecordedBeforeThenItsOwn) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    const auto root = f.feature._getImplHandle();
    // Recorded outside an update and not taken: handed over first, in order.
    f.feature._removeEntity(root);
    f.feature._addEntity(root);
    f.label->setSize(40.0f);
    std::vector<std::shared_ptr<Entity>> added{nullptr};
    std::vector<std::shared_ptr<Entity>> removed;
    EXPECT_TRUE(f.feature._updateEntityInCull(false, added, removed));
    // What the caller's lists held stays in front.
    ASSERT_GE(added.size(), 2u);
    EXPECT_EQ(added[0], nullptr);
    EXPECT_EQ(added[1], root);
    ASSERT_FALSE(removed.empty());
    EXPECT_EQ(removed[0], root);
    // Nothing is left with the feature: its own lists were handed over with the rest.
    EXPECT_TRUE(f.feature._takeAddedEntities().empty());
    EXPECT_TRUE(f.feature._takeRemovedEntities().empty());
    // The next update that keeps its lists records into them again.
    f.label->setSize(41.0f);
    f.feature._updateEntityInCull(false);
    f.feature._addEntity(root);
    EXPECT_EQ(f.feature._takeAddedEntities().back(), root);
}

TEST(FeatureTest, TheRarelyUsedFieldsReadEmptyUntilSetAndCanBeEmptiedAgain) {
    Feature feature;
    EXPECT_EQ(feature.getUserDefinedAttribute(), "");
    EXPECT_TRUE(feature.getAttachmentFiles().empty());
    EXPECT_EQ(feature._getOriginDataSource(), nullptr);
    EXPECT_EQ(feature._getBoundingSphere(), nullptr);
    EXPECT_EQ(feature.getLabelText(), "");
    EXPECT_EQ(feature.getDescription(), "");
    feature.setUserDefinedAttribute("note");
    feature.setLabelText("label");
    feature.setDescription("description");
    feature._setBoundingSphere(keo::BoundingSphere(keo::Vector3<double>(1.0, 2.0, 3.0), 4.0));
    ASSERT_NE(feature._getBoundingSphere(), nullptr);
    EXPECT_EQ(feature._getBoundingSphere()->getRadius(), 4.0);
    // A copy takes the texts, not the bounding sphere.
    const Feature copy(feature);
    EXPECT_EQ(copy.getUserDefinedAttribute(), "note");
    EXPECT_EQ(copy.getLabelText(), "label");
    EXPECT_EQ(copy.getDescription(), "description");
    EXPECT_EQ(copy._getBoundingSphere(), nullptr);
    feature.setUserDefinedAttribute("");
    feature.setLabelText("");
    feature.setDescription("");
    EXPECT_EQ(feature.getUserDefinedAttribute(), "");
    EXPECT_EQ(feature.getLabelText(), "");
    EXPECT_EQ(feature.getDescription(), "");
    // An assignment from a feature without them empties them.
    Feature other;
    other = copy;
    EXPECT_EQ(other.getUserDefinedAttribute(), "note");
    other = Feature();
    EXPECT_EQ(other.getUserDefinedAttribute(), "");
    EXPECT_EQ(other.getLabelText(), "");
    EXPECT_EQ(other.getDescription(), "");
}

TEST(FeatureTest, UpdateRunsTheGeometryThenTheStyleAndReportsChildren) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(f.geometry->geometryUpdates, 1);
    EXPECT_EQ(f.geometry->styleUpdates, 1);
    EXPECT_EQ(names(f.feature._takeAddedEntities()),
              (std::vector<std::string>{"", "part", "label-symbol"}));
    EXPECT_TRUE(f.feature._isEntityReady());

    f.feature._updateEntityInCull(false); // clean: nothing runs
    EXPECT_EQ(f.geometry->geometryUpdates, 1);
    EXPECT_EQ(f.geometry->styleUpdates, 1);

    f.label->setSize(40.0f); // style only
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(f.geometry->geometryUpdates, 1);
    EXPECT_EQ(f.geometry->styleUpdates, 2);

    f.geometry->edit(); // geometry: both
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(f.geometry->geometryUpdates, 2);
    EXPECT_EQ(f.geometry->styleUpdates, 3);
    EXPECT_TRUE(f.feature._takeAddedEntities().empty());
}

TEST(FeatureTest, AddAgainReportsTheRootAndAllDescendants) {
    LabelledFeature f;
    f.label->setShowHintLine(true);
    f.feature._updateEntityInCull(false);
    f.feature._takeAddedEntities();
    f.feature._updateEntityInCull(true);
    EXPECT_EQ(names(f.feature._takeAddedEntities()),
              (std::vector<std::string>{"", "part", "label-symbol", "hint-line"}));
}

TEST(FeatureTest, AHiddenFeatureHidesItsRootAndUpdatesNothing) {
    LabelledFeature f;
    f.feature.setShow(false);
    f.feature._updateEntityInCull(false);
    ASSERT_NE(f.feature._getImplHandle(), nullptr);
    EXPECT_FALSE(f.feature._getImplHandle()->isShow());
    EXPECT_EQ(f.geometry->geometryUpdates, 0);
    EXPECT_TRUE(f.feature._isEntityReady()); // nothing to draw

    f.feature.setShow(true);
    EXPECT_FALSE(f.feature._isEntityReady());
    f.feature._updateEntityInCull(false);
    EXPECT_TRUE(f.feature._getImplHandle()->isShow());
    EXPECT_EQ(f.geometry->geometryUpdates, 1);
}

TEST(FeatureTest, AFeatureUnderAHiddenGroupIsNotUpdated) {
    const auto group = std::make_shared<FeatureGroup>();
    const auto feature = std::make_shared<Feature>();
    const auto geometry = std::make_shared<TestGeometry>();
    feature->setGeometry(geometry);
    group->add(feature);
    group->setShow(false);
    feature->_updateEntityInCull(false);
    EXPECT_FALSE(feature->_getImplHandle()->isShow());
    EXPECT_EQ(geometry->geometryUpdates, 0);
    EXPECT_TRUE(feature->_isEntityReady());
}

TEST(FeatureTest, WithoutGeometryTheDirtyFlagsAreClearedAndNothingIsBuilt) {
    Feature feature;
    feature.setStyle(std::make_shared<TestStyle>());
    EXPECT_FALSE(feature._isEntityReady());
    feature._updateEntityInCull(false);
    EXPECT_TRUE(feature._isEntityReady());
    EXPECT_TRUE(feature._getImplHandle()->getChildren().empty());
}

TEST(FeatureTest, AFailingStyleUpdateTearsAllChildrenDownAndClearsTheDirtyFlags) {
    LabelledFeature f;
    f.label->setShowHintLine(true);
    f.feature._updateEntityInCull(false);
    const auto built = f.feature._getAllEntities();
    ASSERT_EQ(built.size(), 4u);
    f.feature._takeAddedEntities();

    f.geometry->styleResult = false;
    f.geometry->edit();
    f.feature._updateEntityInCull(false);

    const auto removed = f.feature._takeRemovedEntities();
    EXPECT_EQ(names(removed), (std::vector<std::string>{"part", "label-symbol", "hint-line"}));
    EXPECT_TRUE(f.feature._getImplHandle()->getChildren().empty());
    EXPECT_EQ(f.feature._getImplHandle()->getGeometryGraphics(), nullptr);
    EXPECT_TRUE(f.feature._isEntityReady());
    // Nothing is retried until the next change.
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(f.geometry->geometryUpdates, 2);
}

TEST(FeatureTest, AFailingGeometryUpdateStillRunsTheStyleThenTearsDown) {
    LabelledFeature f;
    f.geometry->geometryResult = false;
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(f.geometry->styleUpdates, 1);
    EXPECT_EQ(names(f.feature._takeRemovedEntities()),
              (std::vector<std::string>{"part", "label-symbol"}));
    EXPECT_TRUE(f.feature._getImplHandle()->getChildren().empty());
    EXPECT_EQ(f.feature._getImplHandle()->getGeometryGraphics(), nullptr);
    EXPECT_TRUE(f.feature._isEntityReady());
}

TEST(FeatureTest, AGeometryOfAnotherKindClearsTheOldGraphicsAndChildren) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    f.feature._takeAddedEntities();

    // The same kind keeps what is there.
    f.feature.setGeometry(std::make_shared<TestGeometry>(Geometry::Type::Point));
    f.feature._updateEntityInCull(false);
    EXPECT_TRUE(f.feature._takeRemovedEntities().empty());

    // Another kind starts afresh.
    const auto polygon = std::make_shared<TestGeometry>(Geometry::Type::Polygon);
    {
        const CapturedLog log; // polygon geometry with a point style: logged
        f.feature.setGeometry(polygon);
    }
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(names(f.feature._takeRemovedEntities()),
              (std::vector<std::string>{"part", "label-symbol"}));
    EXPECT_EQ(names(f.feature._takeAddedEntities()),
              (std::vector<std::string>{"part", "label-symbol"}));
    EXPECT_EQ(polygon->geometryUpdates, 1);
}

TEST(FeatureTest, RemovingTheGeometryClearsTheGraphicsOnTheNextUpdate) {
    LabelledFeature f;
    f.feature._updateEntityInCull(false);
    f.feature._takeAddedEntities();
    f.feature.setGeometry(nullptr);
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(f.feature._getImplHandle()->getGeometryGraphics(), nullptr);
    EXPECT_EQ(names(f.feature._takeRemovedEntities()),
              (std::vector<std::string>{"part", "label-symbol"}));
}

TEST(FeatureTest, TheAsynchronousFlagReachesEveryEntity) {
    LabelledFeature f;
    f.label->setShowHintLine(true);
    f.feature._updateEntityInCull(false);
    for (const auto& e : f.feature._getAllEntities()) {
        EXPECT_TRUE(e->_isAsynchronous());
    }
    ChangeCounter counter(f.feature);
    f.feature._setAsynchronous(false);
    EXPECT_EQ(counter.count, 1);
    EXPECT_FALSE(f.feature._isAsynchronous());
    for (const auto& e : f.feature._getAllEntities()) {
        EXPECT_FALSE(e->_isAsynchronous()) << e->getName();
    }
    f.feature._setAsynchronous(false);
    EXPECT_EQ(counter.count, 1);
    // Entities made later get the flag when reported.
    f.feature._updateEntityInCull(false);
    f.geometry->edit();
    f.feature.setGeometry(std::make_shared<TestGeometry>(Geometry::Type::Polyline));
    {
        const CapturedLog log;
        f.feature._updateEntityInCull(false);
    }
    for (const auto& e : f.feature._takeAddedEntities()) {
        EXPECT_FALSE(e->_isAsynchronous());
    }
}

TEST(FeatureTest, GetAllEntitiesListsTheRootThenItsDescendantsDepthFirst) {
    LabelledFeature f;
    f.label->setShowHintLine(true);
    EXPECT_TRUE(f.feature._getAllEntities().empty());
    f.feature._updateEntityInCull(false);
    EXPECT_EQ(names(f.feature._getAllEntities()),
              (std::vector<std::string>{"", "part", "label-symbol", "hint-line"}));
}

TEST(FeatureTest, AnEntityMayStandInBothLists) {
    Feature feature;
    const auto entity = std::make_shared<Entity>("x");
    feature._addEntity(entity);
    feature._removeEntity(entity);
    feature._addEntity(entity);
    EXPECT_EQ(feature._takeAddedEntities().size(), 2u);
    EXPECT_EQ(feature._takeRemovedEntities().size(), 1u);
}

// --- copies ----------------------------------------------------------------------------------

TEST(FeatureTest, ACopyHasNoEntitiesItsOwnObjectsAndItsOwnSubscriptions) {
    LabelledFeature f;
    f.feature.setAttribute("a", {1, std::any(1)});
    f.feature.setUserDefinedAttribute("u");
    f.feature.setAttachmentFiles({"f"});
    f.feature.setLabelText("text");
    f.feature.setDistanceDisplayCondition(keo::DistanceDisplayCondition(1.0f, 9.0f));
    f.feature._setAsynchronous(false);
    f.feature.setHighlight(true);
    f.geometry->setDistanceDisplayCondition(keo::DistanceDisplayCondition(2.0f, 3.0f));
    f.feature._updateEntityInCull(false);

    const auto cloned = f.feature.clone();
    auto& copy = static_cast<Feature&>(*cloned);

    EXPECT_NE(copy.getId(), f.feature.getId());
    EXPECT_EQ(copy.getName(), "name");
    EXPECT_EQ(copy.getAttributes().count("a"), 1u);
    EXPECT_EQ(copy.getUserDefinedAttribute(), "u");
    EXPECT_EQ(copy.getAttachmentFiles(), std::vector<std::string>{"f"});
    EXPECT_EQ(copy.getLabelText(), "text");
    EXPECT_EQ(copy.getDistanceDisplayCondition(), f.feature.getDistanceDisplayCondition());
    EXPECT_FALSE(copy._isAsynchronous());
    EXPECT_FALSE(copy.isHighlight());
    EXPECT_EQ(copy._getImplHandle(), nullptr);
    EXPECT_FALSE(copy._isEntityReady());
    ASSERT_NE(copy.getGeometry(), nullptr);
    EXPECT_NE(copy.getGeometry(), f.geometry);
    EXPECT_EQ(copy.getGeometry()->getDistanceDisplayCondition(),
              f.geometry->getDistanceDisplayCondition());
    ASSERT_NE(copy.getStyle(), nullptr);
    EXPECT_NE(copy.getStyle(), f.style.get());
    EXPECT_NE(copy.getStyle()->getLabelSymbol(), f.label);

    // Editing the source's objects does not reach the copy, and the copy's own edits do.
    copy._updateEntityInCull(false);
    ChangeCounter copyCounter(copy);
    ChangeCounter sourceCounter(f.feature);
    f.geometry->edit();
    EXPECT_EQ(copyCounter.count, 0);
    static_cast<TestGeometry&>(*copy.getGeometry()).edit();
    EXPECT_EQ(copyCounter.count, 1);
    EXPECT_EQ(sourceCounter.count, 1);
}

// --- bounding volumes ------------------------------------------------------------------------

TEST(FeatureTest, TheBoundingSphereIsDroppedWhenTheGeometryChanges) {
    Feature feature;
    const auto geometry = std::make_shared<TestGeometry>();
    feature.setGeometry(geometry);
    feature._setBoundingSphere(keo::BoundingSphere(keo::Vector3<double>(1.0, 2.0, 3.0), 4.0));
    ASSERT_NE(feature._getBoundingSphere(), nullptr);
    EXPECT_EQ(feature._getBoundingSphere()->getRadius(), 4.0);
    feature.setLabelText("style change keeps it");
    EXPECT_NE(feature._getBoundingSphere(), nullptr);
    geometry->edit();
    EXPECT_EQ(feature._getBoundingSphere(), nullptr);
}

TEST(FeatureTest, TheGlobeRectangleIsEmptyWithoutAGeometryOrForKindsWithoutVertices) {
    Feature feature;
    EXPECT_FALSE(feature._getGlobeRectangle().has_value());
    feature.setGeometry(std::make_shared<TestGeometry>());
    EXPECT_FALSE(feature._getGlobeRectangle().has_value());
}

TEST(FeatureTest, TheGlobeRectangleOfALineKindIsComputedOnceAndAgainAfterAGeometryChange) {
    Feature feature;
    const auto geometry = std::make_shared<TestGeometry>(Geometry::Type::Polyline);
    geometry->positions = {keo::Cartographic::fromDegrees(10.0, 20.0),
                           keo::Cartographic::fromDegrees(12.0, 25.0)};
    feature.setGeometry(geometry);
    const auto& first = feature._getGlobeRectangle();
    ASSERT_TRUE(first.has_value());
    EXPECT_DOUBLE_EQ(first->getWest(), keo::Math::toRadians(10.0));
    EXPECT_DOUBLE_EQ(first->getNorth(), keo::Math::toRadians(25.0));

    // Cached: a change of the vertices alone is not seen until the geometry reports an edit.
    geometry->positions.push_back(keo::Cartographic::fromDegrees(15.0, 30.0));
    EXPECT_DOUBLE_EQ(feature._getGlobeRectangle()->getNorth(), keo::Math::toRadians(25.0));
    geometry->edit();
    EXPECT_DOUBLE_EQ(feature._getGlobeRectangle()->getNorth(), keo::Math::toRadians(30.0));
    EXPECT_DOUBLE_EQ(feature._getGlobeRectangle()->getEast(), keo::Math::toRadians(15.0));
}

} // namespace
