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

// A scene with the renderer side drawing it from the start. How the live set is kept is the
// frame driver's (tested with it); here: the counts the program prints and the model loader.
struct Fixture {
    Fixture() { scene.add("points", makePointFeature(1)); }
    Scene scene{"test"};
    RendererSide renderer{scene.sharedRoot()};
};

TEST(RendererSideTest, TheFirstFrameCountsEveryEntityAddedLiveAndShown) {
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
        EXPECT_TRUE(f.renderer.driver().isLive(*entity));
    }
}

TEST(RendererSideTest, ADroppedLabelIsCountedWithItsHintLine) {
    Fixture f;
    f.renderer.runFrame(1);
    pointStyle(f.scene, 1).setLabelSymbol(nullptr);
    const FrameCounts counts = f.renderer.runFrame(2);
    EXPECT_EQ(counts.updated, 1u);
    EXPECT_EQ(counts.reportedRemoved, 1u);
    EXPECT_EQ(counts.removed, 2u);
    EXPECT_EQ(counts.added, 0u);
    EXPECT_EQ(counts.live, 2u);
    EXPECT_EQ(counts.shown, 2u);
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

TEST(RendererSideTest, ModelsLoadTwoFramesAfterTheyShowUp) {
    Scene scene("models");
    RendererSide renderer(scene.sharedRoot());
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
