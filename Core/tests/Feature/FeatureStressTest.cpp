// One thread edits a feature while another runs its frame updates and takes the entities, as an
// application thread and a renderer thread do. Run under ThreadSanitizer, this shows that the
// feature's lock (held through the changed-lock events for the length of every edit) keeps the two
// apart, and that the lock order never deadlocks.

#include "Data/Entity.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>

namespace {

using keo::Entity;
using keo::Feature::Feature;
using keo::Feature::LabelSymbol;
using keo::Feature::test::TestGeometry;
using keo::Feature::test::TestStyle;

constexpr int ITERATIONS = 100000;

std::shared_ptr<TestStyle> makeStyle() {
    auto style = std::make_shared<TestStyle>();
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    label->setHintLineSymbol(std::make_shared<keo::Feature::LineSymbol>());
    style->setLabelSymbol(label);
    return style;
}

TEST(FeatureStressTest, EditsOnOneThreadAndUpdatesOnAnotherNeitherRaceNorDeadlock) {
    Feature feature;
    feature.setName("stress");
    feature.setGeometry(std::make_shared<TestGeometry>());
    feature.setStyle(makeStyle());

    std::atomic<bool> editing{true};
    std::atomic<int> definitionChanges{0};
    feature._addDefinitionChangedEventListener(
        [&definitionChanges](Feature*) { ++definitionChanges; });

    // The renderer side: what it has taken as added and not yet as removed.
    std::set<const Entity*> live;
    const auto frame = [&feature, &live] {
        feature._updateEntityInCull(false);
        for (const auto& e : feature._takeAddedEntities()) {
            live.insert(e.get());
        }
        for (const auto& e : feature._takeRemovedEntities()) {
            live.erase(e.get());
        }
    };

    std::thread renderer([&editing, &frame] {
        while (editing.load()) {
            frame();
        }
    });

    // The application side. The styles it swaps in are made on this thread; the label symbol it
    // edits is always the one held by the feature's current style.
    auto style = makeStyle();
    for (int i = 0; i < ITERATIONS; ++i) {
        LabelSymbol& label = *style->getLabelSymbol();
        switch (i % 8) {
        case 0:
            feature.setStyle(style);
            break;
        case 1:
            label.setSize(static_cast<float>(10 + i % 20));
            break;
        case 2:
            feature.setName(i % 16 == 2 ? "stress" : "renamed");
            break;
        case 3:
            feature.setShow(i % 16 != 3);
            break;
        case 4:
            feature.setHighlight(i % 16 == 4);
            break;
        case 5:
            label.setShowHintLine(i % 16 == 5);
            break;
        case 6:
            label.getHintLineSymbol()->setWidth(static_cast<float>(i % 5));
            break;
        default:
            if (i % 64 == 7) {
                style = makeStyle();
            }
            label.setFillColor(i % 16 == 7 ? keo::Color::RED : keo::Color::WHITE);
            break;
        }
    }
    feature.setShow(true);
    editing.store(false);
    renderer.join();

    frame();
    std::set<const Entity*> tree;
    for (const auto& e : feature._getAllEntities()) {
        tree.insert(e.get());
    }
    EXPECT_EQ(live, tree);
    EXPECT_TRUE(feature._isEntityReady());
    EXPECT_GT(definitionChanges.load(), 0);
}

} // namespace
