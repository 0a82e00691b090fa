#include "RendererSide.h"
#include "Sample.h"
#include "Scene.h"

#include "Common/Cartographic.h"
#include "Data/Entity.h"
#include "Data/ModelGraphics.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using keo::Entity;
using keo::Feature::Feature;
using keo::Feature::LabelSymbol;
using keo::Feature::PointStyle;
using keo::scene::FrameCounts;
using keo::scene::RendererSide;
using keo::scene::Scene;
using keo::scene::SceneFeature;

// A point feature with a dot, an image and a label with a hint line, made for these tests.
SceneFeature makePointFeature(std::uint64_t id) {
    auto style = std::make_shared<PointStyle>();
    style->setPointSymbol(std::make_shared<keo::Feature::PointSymbol>());
    auto billboard = std::make_shared<keo::Feature::BillboardSymbol>();
    billboard->setImage("pin.png");
    style->setBillboardSymbol(billboard);
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    style->setLabelSymbol(label);
    auto feature = std::make_shared<Feature>(id);
    feature->setName("point " + std::to_string(id));
    feature->setGeometry(std::make_shared<keo::Feature::PointGeometry>(
        keo::Cartographic::fromDegrees(10.0, 50.0, 0.0)));
    feature->setStyle(style);
    return SceneFeature{feature, style};
}

PointStyle& pointStyle(const Scene& scene, std::uint64_t id) {
    return *scene.style(id)->asPointStyle();
}

// A scene with the renderer side watching it from the start.
struct Fixture {
    Fixture() { scene.add("points", makePointFeature(1)); }
    Scene scene{"test"};
    RendererSide renderer{scene.root()};
};

TEST(RendererSideTest, TheFirstFrameMakesEveryEntityLive) {
    Fixture f;
    const FrameCounts counts = f.renderer.runFrame(1);
    // Root (with the dot), billboard, label and its hint line.
    EXPECT_EQ(counts.features, 1u);
    EXPECT_EQ(counts.updated, 1u);
    EXPECT_EQ(counts.reportedAdded, 4u);
    EXPECT_EQ(counts.added, 4u);
    EXPECT_EQ(counts.removed, 0u);
    EXPECT_EQ(counts.live, 4u);
    EXPECT_EQ(counts.shown, 4u);
    EXPECT_EQ(f.renderer.verify(), "");
    for (const auto& entity : f.scene.feature(1)->_getAllEntities()) {
        EXPECT_TRUE(f.renderer.isLive(entity));
    }
}

TEST(RendererSideTest, LiveEntitiesListsTheLiveSetRootFirstThenDepthFirst) {
    Fixture f;
    f.scene.add("points", makePointFeature(2));
    f.renderer.runFrame(1);
    const auto root = f.scene.feature(1)->_getImplHandle();
    const auto label = root->getChildByName("label-symbol");
    pointStyle(f.scene, 2).setLabelSymbol(nullptr);
    f.renderer.runFrame(2);

    const auto entities = f.renderer.liveEntities();
    ASSERT_EQ(entities.size(), f.renderer.liveCount());
    // Feature 1: its root, the label with its hint line, the billboard; then feature 2 without
    // its label: its root and its billboard.
    ASSERT_EQ(entities.size(), 6u);
    EXPECT_EQ(entities[0], root.get());
    EXPECT_EQ(entities[1], label.get());
    EXPECT_EQ(entities[2], label->getChildByName("hint-line").get());
    EXPECT_EQ(entities[3]->getParent(), root.get());
    EXPECT_EQ(entities[4], f.scene.feature(2)->_getImplHandle().get());
    EXPECT_EQ(entities[5]->getParent(), entities[4]);
}

TEST(RendererSideTest, ACleanFrameChangesNothing) {
    Fixture f;
    f.renderer.runFrame(1);
    const FrameCounts counts = f.renderer.runFrame(2);
    EXPECT_EQ(counts.updated, 0u);
    EXPECT_EQ(counts.reportedAdded + counts.reportedRemoved, 0u);
    EXPECT_EQ(counts.live, 4u);
}

TEST(RendererSideTest, ADroppedLabelTakesItsHintLineWithIt) {
    Fixture f;
    f.renderer.runFrame(1);
    const auto label = f.scene.feature(1)->_getImplHandle()->getChildByName("label-symbol");
    const auto hintLine = label->getChildByName("hint-line");
    pointStyle(f.scene, 1).setLabelSymbol(nullptr);

    const FrameCounts counts = f.renderer.runFrame(2);
    // Only the label is reported; the renderer drops the hint line below it too.
    EXPECT_EQ(counts.reportedRemoved, 1u);
    EXPECT_EQ(counts.removed, 2u);
    EXPECT_EQ(counts.live, 2u);
    EXPECT_FALSE(f.renderer.isLive(label));
    EXPECT_FALSE(f.renderer.isLive(hintLine));
    EXPECT_EQ(f.renderer.verify(), "");
}

TEST(RendererSideTest, AnEntityInBothListsThatLeftTheTreeIsNotLive) {
    Fixture f;
    f.renderer.runFrame(1);
    const auto feature = f.scene.feature(1);
    const auto billboard = feature->_getImplHandle()->getChildByName("billboard-symbol");
    // The feature leaves the scene and comes back: its next update reports every entity again.
    // Hiding the image meanwhile makes that same update drop the billboard, so it stands in
    // both lists of the frame.
    auto& group = f.scene.group("points");
    group.removeFromMemory(feature);
    group.add(feature);
    pointStyle(f.scene, 1).getBillboardSymbol()->setEnabled(false);

    const FrameCounts counts = f.renderer.runFrame(2);
    EXPECT_EQ(counts.reportedAdded, 4u);
    EXPECT_EQ(counts.reportedRemoved, 1u);
    EXPECT_EQ(counts.removed, 4u); // all four dropped when the feature left
    EXPECT_EQ(counts.added, 3u);   // the billboard stays out
    EXPECT_EQ(counts.live, 3u);
    EXPECT_FALSE(f.renderer.isLive(billboard));
    EXPECT_EQ(f.renderer.verify(), "");
}

TEST(RendererSideTest, AFeatureThatLeavesTheSceneHasAllItsEntitiesDropped) {
    Fixture f;
    f.scene.add("points", makePointFeature(2));
    f.renderer.runFrame(1);
    const auto entities = f.scene.feature(1)->_getAllEntities();
    ASSERT_TRUE(f.scene.remove(1));

    EXPECT_EQ(f.renderer.liveCount(), 4u);
    for (const auto& entity : entities) {
        EXPECT_FALSE(f.renderer.isLive(entity));
    }
    const FrameCounts counts = f.renderer.runFrame(2);
    EXPECT_EQ(counts.features, 1u);
    EXPECT_EQ(counts.removed, 4u);
    EXPECT_EQ(counts.reportedRemoved, 0u);
    EXPECT_EQ(counts.live, 4u);
    EXPECT_EQ(f.renderer.verify(), "");
}

TEST(RendererSideTest, AHiddenGroupKeepsItsEntitiesLiveButNotShown) {
    Fixture f;
    f.renderer.runFrame(1);
    f.scene.group("points").setShow(false);
    FrameCounts counts = f.renderer.runFrame(2);
    EXPECT_EQ(counts.live, 4u);
    EXPECT_EQ(counts.shown, 0u);
    f.scene.group("points").setShow(true);
    counts = f.renderer.runFrame(3);
    EXPECT_EQ(counts.shown, 4u);
}

TEST(RendererSideTest, VerifyNamesEntitiesInATreeThatWereNeverReported) {
    Fixture f;
    f.renderer.runFrame(1);
    // An entity hung under the feature's root behind the library's back is never reported.
    const auto stray = std::make_shared<Entity>("stray");
    stray->setParent(f.scene.feature(1)->_getImplHandle());
    EXPECT_EQ(f.renderer.verify(),
              "the live set differs from the features' entity trees; 1 in a feature's tree but "
              "not live: \"stray\" of feature 1 \"point 1\"");
}

TEST(RendererSideTest, VerifyNamesLiveEntitiesThatLeftEveryTree) {
    Fixture f;
    f.renderer.runFrame(1);
    // Detached behind the library's back: still live, but in no tree.
    f.scene.feature(1)->_getImplHandle()->getChildByName("billboard-symbol")->setParent(nullptr);
    EXPECT_EQ(f.renderer.verify(),
              "the live set differs from the features' entity trees; 1 live but in no feature's "
              "tree: \"billboard-symbol\" of feature 1 \"point 1\"");
}

TEST(RendererSideTest, ModelsLoadTwoFramesAfterTheyShowUp) {
    Scene scene("models");
    RendererSide renderer(scene.root());
    keo::scene::populateSample(scene, 3); // the third sample feature is the tower
    const auto model = [&scene] {
        const auto entity = scene.feature(keo::scene::FIRST_FEATURE_ID + 2)
                                ->_getImplHandle()
                                ->getChildByName("model-symbol");
        return entity->getGeometryGraphics()->as<keo::ModelGraphics>();
    };
    EXPECT_TRUE(renderer.runFrame(1).loaded.empty());
    EXPECT_FALSE(model()->isReady());
    EXPECT_TRUE(renderer.runFrame(2).loaded.empty());
    const FrameCounts third = renderer.runFrame(3);
    ASSERT_EQ(third.loaded.size(), 1u);
    EXPECT_EQ(third.loaded[0], "models/tower.glb of feature 1003 \"Tower\" is ready");
    EXPECT_TRUE(model()->isReady());
    ASSERT_TRUE(model()->getBoundingBox().has_value());
    EXPECT_EQ(model()->getBoundingBox()->halfExtents.z, 15.0);
    EXPECT_TRUE(renderer.runFrame(4).loaded.empty());
}

} // namespace
