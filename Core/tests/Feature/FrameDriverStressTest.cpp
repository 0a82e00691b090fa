// An application thread edits features while the render thread plays frames through a
// FrameDriver. Run under ThreadSanitizer, this shows that the driver's frame and the features'
// edits never race: each feature locks itself while it updates and while it is edited, and the
// driver touches the tree's structure only on its own thread.

#include "Common/Cartographic.h"
#include "Data/Entity.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/FrameDriver.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Entity;
using keo::Feature::Feature;
using keo::Feature::FeatureGroup;
using keo::Feature::FrameDriver;
using keo::Feature::PointGeometry;
using keo::Feature::PointStyle;

constexpr int FEATURES = 50;
constexpr int EDITS = 20000;

struct Point {
    std::shared_ptr<Feature> feature;
    std::shared_ptr<PointGeometry> geometry;
    std::shared_ptr<PointStyle> style;
};

Point makePoint(std::uint64_t id) {
    Point point;
    point.geometry = std::make_shared<PointGeometry>(Cartographic::fromDegrees(1.0, 1.0, 0.0));
    point.style = std::make_shared<PointStyle>();
    point.style->setPointSymbol(std::make_shared<keo::Feature::PointSymbol>());
    auto label = std::make_shared<keo::Feature::LabelSymbol>();
    label->setShowHintLine(true);
    point.style->setLabelSymbol(label);
    point.feature = std::make_shared<Feature>(id);
    point.feature->setName("point");
    point.feature->setGeometry(point.geometry);
    point.feature->setStyle(point.style);
    return point;
}

TEST(FrameDriverStressTest, EditsOnOneThreadAndFramesOnAnotherNeitherRaceNorLoseAnEntity) {
    const auto root = std::make_shared<FeatureGroup>(std::uint64_t{1000});
    std::vector<Point> points;
    for (int i = 0; i < FEATURES; ++i) {
        points.push_back(makePoint(static_cast<std::uint64_t>(i + 1)));
        root->add(points.back().feature);
    }
    FrameDriver driver(root);
    std::atomic<bool> editing{true};
    std::set<const Entity*> live;
    std::size_t frames = 0;
    std::thread renderer([&] {
        while (editing.load()) {
            const auto changes = driver.frame();
            for (const auto& entity : changes.removed) {
                live.erase(entity.get());
            }
            for (const auto& entity : changes.added) {
                live.insert(entity.get());
            }
            ++frames;
        }
    });

    for (int i = 0; i < EDITS; ++i) {
        Point& point = points[static_cast<std::size_t>(i % FEATURES)];
        switch (i % 6) {
        case 0:
            point.geometry->setPosition(Cartographic::fromDegrees(1.0 + i * 1e-6, 1.0, 0.0));
            break;
        case 1:
            point.style->getLabelSymbol()->setShowHintLine(i % 12 != 1);
            break;
        case 2:
            point.feature->setHighlight(i % 12 == 2);
            break;
        case 3:
            point.feature->setShow(i % 12 != 3);
            break;
        case 4:
            point.feature->setName(i % 12 == 4 ? "" : "point");
            break;
        default:
            point.style->getPointSymbol()->setPixelSize(static_cast<float>(i % 10));
            break;
        }
    }
    editing.store(false);
    renderer.join();

    // A last frame after the edits: the renderer's view equals every feature's tree.
    const auto changes = driver.frame();
    for (const auto& entity : changes.removed) {
        live.erase(entity.get());
    }
    for (const auto& entity : changes.added) {
        live.insert(entity.get());
    }
    EXPECT_GT(frames, 0u);
    EXPECT_EQ(driver.verify(), "");
    EXPECT_EQ(live.size(), driver.getLiveCount());
}

} // namespace
