// Every kind of callable the events of the kit take: lambdas, function pointers, std::function
// (moved in or copied), mutable and generic lambdas, a null pointer. Each is added, heard and
// counted, so a change of the compile-time listener check that refused one of them, or stored it
// differently, shows here. What the check refuses is tested on its trait at the end, and the
// message a refused listener gets by the compile-failure tests of CMakeLists.txt.
#include "Feature/detail/ListenerCheck.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"
#include "Feature/PointStyle.h"
#include "Feature/Publisher.h"
#include "Feature/Style.h"

#include "Common/Color.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Feature::ColorMaterial;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::FeatureGroup;
using keo::Feature::PointStyle;
using keo::Feature::Publisher;
using keo::Feature::Style;
using keo::Feature::detail::IS_LISTENER;
using FeatureList = std::vector<std::shared_ptr<Feature>>;

// What the plain functions below heard; each test starts by clearing it.
std::vector<std::string> heardByFunctions;

void styleChanged(const Style* /*style*/) {
    heardByFunctions.emplace_back("style");
}
void definitionChanged() {
    heardByFunctions.emplace_back("definition");
}
void lockChanged(bool locked) {
    heardByFunctions.emplace_back(locked ? "lock" : "unlock");
}
void featureChanged(Feature* feature) {
    heardByFunctions.emplace_back("feature " + std::to_string(feature->getId()));
}
void treeChanged(const FeatureList& added, const FeatureList& removed) {
    heardByFunctions.emplace_back("tree +" + std::to_string(added.size()) + " -" +
                                  std::to_string(removed.size()));
}

TEST(ListenerCheckTest, AStyleTakesEveryKindOfCallableOfItsSignature) {
    heardByFunctions.clear();
    PointStyle style;
    std::vector<const Style*> heard;
    int mutableCalls = 0;
    std::function<void(const Style*)> copied = [&heard](const Style* s) { heard.push_back(s); };

    style._addDefinitionChangedEventListener([&heard](const Style* s) { heard.push_back(s); });
    style._addDefinitionChangedEventListener(styleChanged);
    style._addDefinitionChangedEventListener(&styleChanged);
    style._addDefinitionChangedEventListener(
        std::function<void(const Style*)>([&heard](const Style* s) { heard.push_back(s); }));
    style._addDefinitionChangedEventListener(copied);
    style._addDefinitionChangedEventListener(
        [count = 0, &mutableCalls](const Style*) mutable { mutableCalls = ++count; });
    style._addDefinitionChangedEventListener([&heard](const auto* s) { heard.push_back(s); });
    style._addDefinitionChangedEventListener([&heard](auto&&...) { heard.push_back(nullptr); });
    style.setShadows(1);
    style.setShadows(2);

    // Per change: the lambda, the moved and the copied std::function, the generic lambda (each
    // with the style), then the variadic generic lambda.
    const Style* const self = &style;
    EXPECT_EQ(heard, (std::vector<const Style*>{self, self, self, self, nullptr, self, self, self,
                                                self, nullptr}));
    EXPECT_EQ(heardByFunctions, (std::vector<std::string>{"style", "style", "style", "style"}));
    EXPECT_EQ(mutableCalls, 2) << "the mutable lambda kept its own count between calls";
}

TEST(ListenerCheckTest, AMaterialTakesCallablesOfBothOfItsEvents) {
    heardByFunctions.clear();
    ColorMaterial material;
    std::vector<std::string> heard;
    std::function<void(bool)> copiedLock = [&heard](bool locked) {
        heard.push_back(locked ? "copied lock" : "copied unlock");
    };

    material._addDefinitionChangedEventListener([&heard] { heard.emplace_back("lambda"); });
    material._addDefinitionChangedEventListener(definitionChanged);
    material._addDefinitionChangedEventListener([&heard]() mutable { heard.emplace_back("m"); });
    material._addChangedLockEventListener(lockChanged);
    material._addChangedLockEventListener(copiedLock);
    material._addChangedLockEventListener(
        [&heard](auto locked) { heard.push_back(locked ? "generic lock" : "generic unlock"); });
    material.setColor(keo::Color::RED);

    EXPECT_EQ(heard, (std::vector<std::string>{"copied lock", "generic lock", "copied unlock",
                                               "generic unlock", "lambda", "m"}));
    EXPECT_EQ(heardByFunctions, (std::vector<std::string>{"lock", "unlock", "definition"}));
}

TEST(ListenerCheckTest, AFeatureTakesEveryKindOfCallableOfItsSignature) {
    heardByFunctions.clear();
    Feature feature(42u);
    std::vector<std::string> heard;
    std::function<void(Feature*)> copied = [&heard](Feature*) { heard.emplace_back("copied"); };

    feature._addDefinitionChangedEventListener(
        [&heard](Feature*) { heard.emplace_back("lambda"); });
    feature._addDefinitionChangedEventListener(&featureChanged);
    feature._addDefinitionChangedEventListener(
        std::function<void(Feature*)>([&heard](Feature*) { heard.emplace_back("moved"); }));
    feature._addDefinitionChangedEventListener(copied);
    feature._addDefinitionChangedEventListener([&heard](auto* changed) {
        heard.push_back("generic " + std::to_string(changed->getId()));
    });
    feature.setName("renamed");

    EXPECT_EQ(heard, (std::vector<std::string>{"lambda", "moved", "copied", "generic 42"}));
    EXPECT_EQ(heardByFunctions, std::vector<std::string>{"feature 42"});
}

TEST(ListenerCheckTest, AGroupTakesEveryKindOfCallableOfItsSignature) {
    heardByFunctions.clear();
    const auto group = std::make_shared<FeatureGroup>(1u);
    std::vector<std::string> heard;
    FeatureGroup::AddedOrRemovedCallback copied = [&heard](const FeatureList& added,
                                                           const FeatureList&) {
        heard.push_back("copied +" + std::to_string(added.size()));
    };

    group->_addFeatureAddedOrRemovedEventListener(
        [&heard](const FeatureList& added, const FeatureList&) {
            heard.push_back("lambda +" + std::to_string(added.size()));
        });
    group->_addFeatureAddedOrRemovedEventListener(treeChanged);
    group->_addFeatureAddedOrRemovedEventListener(FeatureGroup::AddedOrRemovedCallback(
        [&heard](const FeatureList&, const FeatureList&) { heard.emplace_back("moved"); }));
    group->_addFeatureAddedOrRemovedEventListener(copied);
    group->_addFeatureAddedOrRemovedEventListener([&heard](const auto& added, const auto& removed) {
        heard.push_back("generic +" + std::to_string(added.size()) + " -" +
                        std::to_string(removed.size()));
    });
    group->add(std::make_shared<Feature>(2u));

    EXPECT_EQ(heard,
              (std::vector<std::string>{"lambda +1", "moved", "copied +1", "generic +1 -0"}));
    EXPECT_EQ(heardByFunctions, std::vector<std::string>{"tree +1 -0"});
}

TEST(ListenerCheckTest, ACollectionTakesEveryKindOfCallableOfItsSignature) {
    FeatureCollection collection;
    std::vector<std::string> heard;
    FeatureCollection::CollectionChangedCallback copied =
        [&heard](FeatureCollection*, const FeatureCollection::FeatureList& added,
                 const FeatureCollection::FeatureList&, const FeatureCollection::ChangedList&) {
            heard.push_back("copied +" + std::to_string(added.size()));
        };

    collection.getCollectionChanged()->addEventListener(
        [&heard](FeatureCollection*, const FeatureCollection::FeatureList& added,
                 const FeatureCollection::FeatureList&, const FeatureCollection::ChangedList&) {
            heard.push_back("lambda +" + std::to_string(added.size()));
        });
    collection.getCollectionChanged()->addEventListener(copied);
    collection.getCollectionChanged()->addEventListener(
        [&heard](auto*, const auto& added, auto&&...) {
            heard.push_back("generic +" + std::to_string(added.size()));
        });
    collection.add(std::make_shared<Feature>(3u));

    EXPECT_EQ(heard, (std::vector<std::string>{"lambda +1", "copied +1", "generic +1"}));
}

TEST(ListenerCheckTest, ANullPointerStillMakesAnEmptyListener) {
    Publisher<std::function<void(bool)>> event;
    const auto handle = event.addEventListener(nullptr);
    EXPECT_FALSE(handle.expired());
    EXPECT_EQ(event.getListenerCount(), 1u);
    EXPECT_THROW(event.raiseEvent(true), std::bad_function_call);
}

// The check's trait, for what is taken and what is refused (a refused listener does not compile,
// so it is only asked about here).
using StyleSignature = void(const Style*);
static_assert(IS_LISTENER<StyleSignature, decltype(styleChanged)>);
static_assert(IS_LISTENER<StyleSignature, decltype(&styleChanged)>);
static_assert(IS_LISTENER<StyleSignature, std::function<void(const Style*)>&>);
static_assert(IS_LISTENER<StyleSignature, std::nullptr_t>);
static_assert(IS_LISTENER<StyleSignature, int (*)(const Style*)>, "a result is ignored");
static_assert(IS_LISTENER<StyleSignature, void (*)(const void*)>, "arguments convert");
static_assert(!IS_LISTENER<StyleSignature, void (*)(int)>);
static_assert(!IS_LISTENER<StyleSignature, void (*)()>);
static_assert(!IS_LISTENER<StyleSignature, void (*)(const Style*, int)>);
static_assert(!IS_LISTENER<StyleSignature, std::function<void(Feature*)>>);
static_assert(!IS_LISTENER<StyleSignature, int>);
static_assert(IS_LISTENER<void(bool), decltype(lockChanged)>);
static_assert(!IS_LISTENER<void(bool), decltype(definitionChanged)>);
static_assert(!IS_LISTENER<void(), decltype(lockChanged)>);
static_assert(IS_LISTENER<FeatureGroup::AddedOrRemovedSignature, decltype(treeChanged)>);
static_assert(!IS_LISTENER<FeatureGroup::AddedOrRemovedSignature, decltype(featureChanged)>);

} // namespace
