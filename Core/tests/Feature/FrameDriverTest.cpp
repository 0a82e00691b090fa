#include "Feature/FrameDriver.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Data/Entity.h"
#include "Data/Layer.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/Geometry.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"
#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using keo::Entity;
using keo::Feature::Feature;
using keo::Feature::FeatureGroup;
using keo::Feature::FrameChanges;
using keo::Feature::FrameDriver;
using keo::Feature::LabelSymbol;
using keo::Feature::PointStyle;
using keo::Feature::test::CapturedLog;

constexpr const char* LABEL = "label-symbol";
constexpr const char* HINT_LINE = "hint-line";
constexpr const char* BILLBOARD = "billboard-symbol";

// A dot, an image and a label with a hint line: four entities.
std::shared_ptr<PointStyle> pointStyleWithEverything() {
    auto style = std::make_shared<PointStyle>();
    style->setPointSymbol(std::make_shared<keo::Feature::PointSymbol>());
    auto billboard = std::make_shared<keo::Feature::BillboardSymbol>();
    billboard->setImage("pin.png");
    style->setBillboardSymbol(billboard);
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    style->setLabelSymbol(label);
    return style;
}

std::shared_ptr<keo::Feature::PointGeometry> pointAt(std::uint64_t id) {
    return std::make_shared<keo::Feature::PointGeometry>(
        keo::Cartographic::fromDegrees(10.0 + static_cast<double>(id) * 0.01, 50.0, 0.0));
}

std::shared_ptr<Feature> makePoint(std::uint64_t id) {
    auto feature = std::make_shared<Feature>(id);
    feature->setName("point " + std::to_string(id));
    feature->setGeometry(pointAt(id));
    feature->setStyle(pointStyleWithEverything());
    return feature;
}

std::set<const Entity*> pointers(const std::vector<std::shared_ptr<Entity>>& entities) {
    std::set<const Entity*> set;
    for (const auto& entity : entities) {
        set.insert(entity.get());
    }
    return set;
}

std::set<const Entity*> liveSet(const FrameDriver& driver) {
    const auto entities = driver.getLiveEntities();
    return std::set<const Entity*>(entities.begin(), entities.end());
}

// A root group with two subgroups, "a" holding features 1 and 2, "b" holding feature 3.
struct Tree {
    Tree() {
        root->add(a);
        root->add(b);
        for (std::uint64_t id = 1; id <= 3; ++id) {
            auto feature = makePoint(id);
            styles[id] = pointStyleWithEverything();
            feature->setStyle(styles[id]);
            (id < 3 ? a : b)->add(feature);
        }
    }
    // The style feature @p id (1 to 3) was made with.
    PointStyle& style(std::uint64_t id) { return *styles.at(id); }
    std::shared_ptr<Feature> feature(std::uint64_t id) const {
        for (const auto& group : {a, b}) {
            if (auto node = group->getById(id)) {
                return std::static_pointer_cast<Feature>(node);
            }
        }
        return nullptr;
    }

    std::shared_ptr<FeatureGroup> root = std::make_shared<FeatureGroup>(std::uint64_t{100});
    std::shared_ptr<FeatureGroup> a = std::make_shared<FeatureGroup>(std::uint64_t{101});
    std::shared_ptr<FeatureGroup> b = std::make_shared<FeatureGroup>(std::uint64_t{102});
    std::map<std::uint64_t, std::shared_ptr<PointStyle>> styles;
};

// The tree after its first frame through a driver.
struct DrawnTree : Tree {
    DrawnTree() { driver.frame(); }
    FrameDriver driver{root};
};

TEST(FrameDriverTest, TheFirstFrameUpdatesEveryFeatureAndMakesEveryEntityLive) {
    Tree tree;
    FrameDriver driver(tree.root);
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(changes.features, 3u);
    EXPECT_EQ(changes.updated, 3u);
    EXPECT_EQ(changes.reportedAdded, 12u);
    EXPECT_EQ(changes.added.size(), 12u);
    EXPECT_TRUE(changes.removed.empty());
    EXPECT_EQ(driver.getLiveCount(), 12u);
    EXPECT_EQ(driver.getFrameCount(), 1u);
    EXPECT_EQ(driver.verify(), "");
    for (std::uint64_t id = 1; id <= 3; ++id) {
        for (const auto& entity : tree.feature(id)->_getAllEntities()) {
            EXPECT_TRUE(driver.isLive(*entity));
        }
    }
    // Feature by feature in tree order, each root before its children.
    EXPECT_EQ(changes.added[0], tree.feature(1)->_getImplHandle());
    EXPECT_EQ(changes.added[8], tree.feature(3)->_getImplHandle());
}

TEST(FrameDriverTest, ACleanFrameVisitsEveryFeatureAndChangesNothing) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(changes.features, 3u);
    EXPECT_EQ(changes.updated, 0u);
    EXPECT_EQ(changes.reportedAdded + changes.reportedRemoved, 0u);
    EXPECT_TRUE(changes.added.empty());
    EXPECT_TRUE(changes.removed.empty());
    EXPECT_EQ(driver.getLiveCount(), 12u);
}

TEST(FrameDriverTest, LiveEntitiesAreListedFeatureByFeatureEachDepthFirstFromItsRoot) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    tree.style(2).setLabelSymbol(nullptr);
    driver.frame();
    const auto entities = driver.getLiveEntities();
    ASSERT_EQ(entities.size(), driver.getLiveCount());
    ASSERT_EQ(entities.size(), 10u);
    const auto root = tree.feature(1)->_getImplHandle();
    const auto label = root->getChildByName(LABEL);
    EXPECT_EQ(entities[0], root.get());
    EXPECT_EQ(entities[1], label.get());
    EXPECT_EQ(entities[2], label->getChildByName(HINT_LINE).get());
    EXPECT_EQ(entities[3]->getParent(), root.get());
    EXPECT_EQ(entities[4], tree.feature(2)->_getImplHandle().get());
    EXPECT_EQ(entities[5]->getParent(), entities[4]);
    EXPECT_EQ(entities[6], tree.feature(3)->_getImplHandle().get());
}

TEST(FrameDriverTest, ADroppedLabelLeavesWithItsHintLine) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto label = tree.feature(1)->_getImplHandle()->getChildByName(LABEL);
    const auto hintLine = label->getChildByName(HINT_LINE);
    tree.style(1).setLabelSymbol(nullptr);
    const FrameChanges changes = driver.frame();
    // Only the label is reported; the hint line below it leaves too.
    EXPECT_EQ(changes.updated, 1u);
    EXPECT_EQ(changes.reportedRemoved, 1u);
    EXPECT_EQ(pointers(changes.removed), (std::set<const Entity*>{label.get(), hintLine.get()}));
    EXPECT_TRUE(changes.added.empty());
    EXPECT_FALSE(driver.isLive(*label));
    EXPECT_FALSE(driver.isLive(*hintLine));
    EXPECT_EQ(driver.getLiveCount(), 10u);
    EXPECT_EQ(driver.verify(), "");
}

TEST(FrameDriverTest, AFeatureRemovedFromMemoryHasAllItsEntitiesDroppedOnTheNextFrame) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto feature = tree.feature(1);
    const auto entities = feature->_getAllEntities();
    ASSERT_TRUE(tree.a->removeFromMemory(feature));
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(changes.features, 2u);
    EXPECT_EQ(changes.reportedRemoved, 0u);
    EXPECT_EQ(pointers(changes.removed), pointers(entities));
    EXPECT_EQ(driver.getLiveCount(), 8u);
    EXPECT_EQ(feature->_getFrameRecord(), nullptr); // the driver let go of it
    for (const auto& entity : entities) {
        EXPECT_FALSE(driver.isLive(*entity));
    }
    EXPECT_EQ(driver.verify(), "");
}

// Feature 1 leaves the tree; the record of feature 3 (the last one made) takes its place in the
// driver's books. Feature 3 then drops its label: the driver must find the moved record.
void dropTheLastFeaturesLabelAfterTheFirstLeft(Tree& tree, FrameDriver& driver) {
    ASSERT_TRUE(tree.a->removeFromMemory(tree.feature(1)));
    driver.frame();
    const FrameChanges clean = driver.frame();
    EXPECT_EQ(clean.features, 2u);
    EXPECT_TRUE(clean.added.empty()); // not taken for a newcomer
    EXPECT_TRUE(clean.removed.empty());
    const auto feature = tree.feature(3);
    const auto label = feature->_getImplHandle()->getChildByName(LABEL);
    const auto hintLine = label->getChildByName(HINT_LINE);
    tree.style(3).setLabelSymbol(nullptr);
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(pointers(changes.removed), (std::set<const Entity*>{label.get(), hintLine.get()}));
    EXPECT_FALSE(driver.isLive(*label));
    EXPECT_TRUE(driver.isLive(*feature->_getImplHandle()));
    EXPECT_EQ(driver.getLiveCount(), 6u);
    EXPECT_EQ(driver.pick(*feature->_getImplHandle()), feature);
    EXPECT_EQ(driver.verify(), "");
}

TEST(FrameDriverTest, TheRecordThatFillsTheGapOfALeavingFeatureStillFollowsItsFeature) {
    DrawnTree tree;
    dropTheLastFeaturesLabelAfterTheFirstLeft(tree, tree.driver);
}

TEST(FrameDriverTest, ASecondDriversMovedRecordStillFollowsItsFeature) {
    DrawnTree tree;
    // The features keep the first driver's record; the second one files its own records apart.
    FrameDriver second(tree.root);
    second.frame();
    dropTheLastFeaturesLabelAfterTheFirstLeft(tree, second);
}

TEST(FrameDriverTest, AFeatureThatComesBackAfterAFrameReportsAllItsEntitiesAgain) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto feature = tree.feature(1);
    tree.a->removeFromMemory(feature);
    driver.frame();
    tree.b->add(feature);
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(pointers(changes.added), pointers(feature->_getAllEntities()));
    EXPECT_TRUE(changes.removed.empty());
    EXPECT_EQ(driver.getLiveCount(), 12u);
    EXPECT_EQ(driver.verify(), "");
}

TEST(FrameDriverTest, AnEntityReportedAndDroppedWithinOneUpdateDoesNotJoin) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto feature = tree.feature(1);
    const auto billboard = feature->_getImplHandle()->getChildByName(BILLBOARD);
    tree.a->removeFromMemory(feature);
    driver.frame();
    // Back in the tree, the feature reports all its entities again; the same update drops the
    // image, so the billboard stands in both of its lists but hangs under the root no more.
    tree.a->add(feature);
    tree.style(1).getBillboardSymbol()->setEnabled(false);
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(changes.reportedAdded, 4u);
    EXPECT_EQ(changes.reportedRemoved, 1u);
    EXPECT_EQ(changes.added.size(), 3u);
    EXPECT_TRUE(changes.removed.empty());
    EXPECT_FALSE(driver.isLive(*billboard));
    EXPECT_EQ(driver.verify(), "");
}

TEST(FrameDriverTest, AFeatureTakenOutAndPutBackBetweenFramesKeepsItsEntities) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto feature = tree.feature(1);
    const auto billboard = feature->_getImplHandle()->getChildByName(BILLBOARD);
    tree.a->removeFromMemory(feature);
    tree.a->add(feature);
    tree.style(1).getBillboardSymbol()->setEnabled(false);
    const FrameChanges changes = driver.frame();
    // It never missed a frame: only what its update changed is reported.
    ASSERT_EQ(changes.removed.size(), 1u);
    EXPECT_EQ(changes.removed[0], billboard);
    EXPECT_TRUE(changes.added.empty());
    EXPECT_FALSE(driver.isLive(*billboard));
    EXPECT_EQ(driver.verify(), "");
}

TEST(FrameDriverTest, AFeatureMovedToAnotherGroupKeepsItsEntitiesAndItsPlaceInTheOrderChanges) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto feature = tree.feature(1);
    tree.a->removeFromMemory(feature);
    tree.b->add(feature);
    const FrameChanges changes = driver.frame();
    EXPECT_TRUE(changes.added.empty());
    EXPECT_TRUE(changes.removed.empty());
    EXPECT_EQ(driver.getLiveEntities().back()->getParent(), feature->_getImplHandle().get());
    EXPECT_EQ(driver.verify(), "");
}

TEST(FrameDriverTest, AHiddenGroupKeepsItsEntitiesLiveWithTheirRootsHidden) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    tree.a->setShow(false);
    const FrameChanges changes = driver.frame();
    EXPECT_TRUE(changes.added.empty());
    EXPECT_TRUE(changes.removed.empty());
    EXPECT_EQ(driver.getLiveCount(), 12u);
    EXPECT_FALSE(tree.feature(1)->_getImplHandle()->isShowing());
    EXPECT_TRUE(tree.feature(3)->_getImplHandle()->isShowing());
    tree.a->setShow(true);
    driver.frame();
    EXPECT_TRUE(tree.feature(1)->_getImplHandle()->isShowing());
}

TEST(FrameDriverTest, PickingFromEveryEntityOfATreeFindsItsFeature) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    for (std::uint64_t id = 1; id <= 3; ++id) {
        const auto feature = tree.feature(id);
        for (const auto& entity : feature->_getAllEntities()) {
            const auto picked = driver.pick(*entity);
            ASSERT_NE(picked, nullptr);
            EXPECT_EQ(picked, feature);
            EXPECT_EQ(picked->getId(), id);
        }
    }
    EXPECT_EQ(driver.pick(Entity("elsewhere")), nullptr);
    // A feature that left the tree is no longer picked.
    const auto root = tree.feature(2)->_getImplHandle();
    tree.a->removeFromMemory(tree.feature(2));
    driver.frame();
    EXPECT_EQ(driver.pick(*root), nullptr);
}

TEST(FrameDriverTest, TheLayerOfTheRootGroupHoldsTheRootEntitiesOfTheLiveSet) {
    Tree tree;
    const auto layer = std::make_shared<keo::Layer>("scene");
    tree.root->_setLayer(layer);
    {
        FrameDriver driver(tree.root);
        driver.frame();
        EXPECT_EQ(layer->getEntityCount(), 3u);
        for (std::uint64_t id = 1; id <= 3; ++id) {
            EXPECT_TRUE(layer->containsEntity(tree.feature(id)->_getImplHandle().get()));
        }
        const auto root = tree.feature(3)->_getImplHandle();
        tree.b->removeFromMemory(tree.feature(3));
        driver.frame();
        EXPECT_EQ(layer->getEntityCount(), 2u);
        EXPECT_FALSE(layer->containsEntity(root.get()));
        // A label dropped by an update is not a root: the layer keeps the feature's root.
        tree.style(1).setLabelSymbol(nullptr);
        driver.frame();
        EXPECT_EQ(layer->getEntityCount(), 2u);
    }
    EXPECT_EQ(layer->getEntityCount(), 2u) << "the layer is the application's; it keeps its roots";
}

TEST(FrameDriverTest, ADestroyedDriverLetsGoOfTheFeaturesAndANewOneReportsEverythingAgain) {
    Tree tree;
    {
        FrameDriver first(tree.root);
        first.frame();
    }
    EXPECT_EQ(tree.feature(1)->_getFrameRecord(), nullptr);
    FrameDriver second(tree.root);
    const FrameChanges changes = second.frame();
    EXPECT_EQ(changes.added.size(), 12u);
    EXPECT_EQ(second.verify(), "");
}

TEST(FrameDriverTest, ASecondDriverOverTheSameTreeKeepsRecordsOfItsOwn) {
    Tree tree;
    FrameDriver first(tree.root);
    first.frame();
    FrameDriver second(tree.root);
    const FrameChanges changes = second.frame();
    EXPECT_EQ(changes.added.size(), 12u); // each feature reports everything to a new driver
    EXPECT_EQ(second.verify(), "");
    EXPECT_EQ(second.pick(*tree.feature(2)->_getImplHandle()), tree.feature(2));
    EXPECT_EQ(first.pick(*tree.feature(2)->_getImplHandle()), tree.feature(2));
    tree.a->removeFromMemory(tree.feature(2));
    EXPECT_EQ(second.frame().removed.size(), 4u);
    EXPECT_EQ(first.frame().removed.size(), 4u);
}

TEST(FrameDriverTest, ANullRootIsAnEmptyTree) {
    FrameDriver driver(nullptr);
    const FrameChanges changes = driver.frame();
    EXPECT_EQ(changes.features, 0u);
    EXPECT_EQ(driver.getLiveCount(), 0u);
    EXPECT_EQ(driver.verify(), "");
    EXPECT_EQ(driver.pick(Entity()), nullptr);
}

TEST(FrameDriverTest, VerifyNamesEntitiesOfATreeThatWereNeverReported) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    const auto stray = std::make_shared<Entity>("stray");
    stray->setParent(tree.feature(1)->_getImplHandle());
    EXPECT_EQ(driver.verify(),
              "the live set differs from the features' entity trees; 1 in a feature's tree but "
              "not live: \"stray\" of feature 1 \"point 1\"");
}

TEST(FrameDriverTest, VerifyNamesLiveEntitiesThatLeftEveryTree) {
    DrawnTree tree;
    FrameDriver& driver = tree.driver;
    tree.feature(1)->_getImplHandle()->getChildByName(BILLBOARD)->setParent(nullptr);
    EXPECT_EQ(driver.verify(),
              "the live set differs from the features' entity trees; 1 live but in no feature's "
              "tree: \"billboard-symbol\" of feature 1 \"point 1\"");
}

// A red line with a label.
std::shared_ptr<keo::Feature::PolylineStyle> lineStyle() {
    auto line = std::make_shared<keo::Feature::LineSymbol>();
    line->setMaterial(std::make_shared<keo::Feature::ColorMaterial>(keo::Color::RED));
    auto style = std::make_shared<keo::Feature::PolylineStyle>();
    style->setLineSymbol(line);
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    return style;
}

std::shared_ptr<keo::Feature::PolylineGeometry> shortLine() {
    return std::make_shared<keo::Feature::PolylineGeometry>(
        std::vector<keo::Cartographic>{keo::Cartographic::fromDegrees(1.0, 1.0, 0.0),
                                       keo::Cartographic::fromDegrees(1.1, 1.0, 0.0)});
}

std::shared_ptr<Feature> makeLine(std::uint64_t id) {
    auto feature = std::make_shared<Feature>(id);
    feature->setName("line " + std::to_string(id));
    feature->setGeometry(shortLine());
    feature->setStyle(lineStyle());
    return feature;
}

TEST(FrameDriverTest, RandomEditsFrameAfterFrameKeepTheLiveSetAndTheChangesExact) {
    Tree tree;
    FrameDriver driver(tree.root);
    std::mt19937 random(20261123);
    std::uint64_t nextId = 10;
    std::vector<std::shared_ptr<Feature>> detached;
    const auto features = [&tree] {
        std::vector<std::shared_ptr<Feature>> all;
        for (const auto& group : {tree.a, tree.b}) {
            for (const auto& node : group->getFeatures()) {
                all.push_back(std::static_pointer_cast<Feature>(node));
            }
        }
        return all;
    };
    const CapturedLog log; // a point style on a line, and back, is logged as a mismatch
    std::set<const Entity*> live;
    for (int frame = 0; frame < 300; ++frame) {
        const int edits = static_cast<int>(random() % 4);
        for (int e = 0; e < edits; ++e) {
            const auto all = features();
            const auto pickOne = [&]() -> std::shared_ptr<Feature> {
                return all.empty() ? nullptr : all[random() % all.size()];
            };
            const auto group = random() % 2 == 0 ? tree.a : tree.b;
            switch (random() % 9) {
            case 0:
                group->add(random() % 2 == 0 ? makePoint(nextId) : makeLine(nextId));
                ++nextId;
                break;
            case 1:
                if (const auto f = pickOne()) {
                    f->getParent()->removeFromMemory(f);
                    if (random() % 2 == 0) {
                        detached.push_back(f);
                    }
                }
                break;
            case 2:
                if (!detached.empty()) {
                    group->add(detached.back());
                    detached.pop_back();
                }
                break;
            case 3:
                if (const auto f = pickOne()) { // moved to a group, maybe the same
                    f->getParent()->removeFromMemory(f);
                    group->add(f);
                }
                break;
            case 4:
                if (const auto f = pickOne()) {
                    f->setShow(!f->isShow());
                }
                break;
            case 5:
                group->setShow(!group->isShow());
                break;
            case 6:
                if (const auto f = pickOne()) {
                    f->setName(f->getName().empty() ? "named" : "");
                }
                break;
            case 7:
                if (const auto f = pickOne()) {
                    f->setHighlight(!f->isHighlight());
                }
                break;
            case 8:
                if (const auto f = pickOne()) { // another kind of geometry and style
                    if (f->getGeometry()->getType() == keo::Feature::Geometry::Type::Point) {
                        f->setGeometry(shortLine());
                        f->setStyle(lineStyle());
                    } else {
                        f->setGeometry(pointAt(f->getId()));
                        f->setStyle(pointStyleWithEverything());
                    }
                }
                break;
            }
        }
        const FrameChanges changes = driver.frame();
        SCOPED_TRACE(frame);
        for (const auto& entity : changes.removed) {
            ASSERT_EQ(live.erase(entity.get()), 1u) << "removed but not live before";
        }
        for (const auto& entity : changes.added) {
            ASSERT_TRUE(live.insert(entity.get()).second) << "added but live already";
        }
        ASSERT_EQ(live, liveSet(driver));
        ASSERT_EQ(driver.getLiveCount(), live.size());
        ASSERT_EQ(driver.verify(), "");
    }
}

} // namespace
