// Draws point features through the installed kit as an application would: cities and ports with
// a dot and a label taken from an attribute, in a group tree under a layer and in a collection;
// a frame driver plays the frames, the program edits between them and prints what changed.
#include <keoCommon.h>
#include <keoData.h>
#include <keoFeature.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Feature::AttributeValue;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::FeatureGroup;
using keo::Feature::FrameChanges;
using keo::Feature::FrameDriver;

// The type tag this program gives its text attributes (the kit keeps tags as given).
constexpr std::int32_t TEXT = 1;

std::shared_ptr<keo::Feature::PointStyle> placeStyle(const keo::Color& color) {
    auto dot = std::make_shared<keo::Feature::PointSymbol>();
    dot->setPixelSize(8.0f);
    dot->setColor(color);
    auto label = std::make_shared<keo::Feature::LabelSymbol>();
    label->setFieldName("display"); // the text comes from the feature's "display" attribute
    label->setSize(16.0f);
    auto style = std::make_shared<keo::Feature::PointStyle>();
    style->setPointSymbol(dot);
    style->setLabelSymbol(label);
    return style;
}

std::shared_ptr<Feature> place(std::uint64_t id, const std::string& display,
                               std::shared_ptr<keo::Feature::PointGeometry> geometry,
                               std::shared_ptr<keo::Feature::Style> style) {
    auto feature = std::make_shared<Feature>(id);
    feature->setName(display);
    feature->setAttribute("display", AttributeValue{TEXT, std::string(display)});
    feature->setGeometry(std::move(geometry));
    feature->setStyle(std::move(style));
    return feature;
}

std::shared_ptr<keo::Feature::PointGeometry> at(double longitude, double latitude) {
    return std::make_shared<keo::Feature::PointGeometry>(
        keo::Cartographic::fromDegrees(longitude, latitude, 0.0));
}

// The collection's notices since the last frame: (notices, added, removed, changed).
struct Notices {
    int notices = 0;
    std::size_t added = 0;
    std::size_t removed = 0;
    std::size_t changed = 0;
};

void print(std::uint64_t frame, const FrameChanges& changes, const FrameDriver& driver,
           Notices& notices) {
    std::printf("frame %llu: %zu features visited, %zu rebuilt, entities +%zu -%zu, %zu live; "
                "collection %d notice(s) +%zu -%zu ~%zu\n",
                static_cast<unsigned long long>(frame), changes.features, changes.updated,
                changes.added.size(), changes.removed.size(), driver.getLiveCount(),
                notices.notices, notices.added, notices.removed, notices.changed);
    notices = Notices{};
}

} // namespace

int main() {
    // The tree: a layer, its root group, one group per kind of place.
    auto layer = std::make_shared<keo::Layer>("places");
    auto root = std::make_shared<FeatureGroup>(std::uint64_t{1});
    root->setName("places");
    root->_setLayer(layer);
    auto cities = std::make_shared<FeatureGroup>(std::uint64_t{2});
    cities->setName("cities");
    auto ports = std::make_shared<FeatureGroup>(std::uint64_t{3});
    ports->setName("ports");
    root->add(cities);
    root->add(ports);

    // The same features in a collection, whose listener counts what it is told.
    FeatureCollection collection;
    Notices notices;
    const keo::Feature::ScopedListener listener(collection.getCollectionChanged()->addEventListener(
        [&notices](FeatureCollection*, const FeatureCollection::FeatureList& added,
                   const FeatureCollection::FeatureList& removed,
                   const FeatureCollection::ChangedList& changed) {
            ++notices.notices;
            notices.added += added.size();
            notices.removed += removed.size();
            notices.changed += changed.size();
        }));

    const auto cityStyle = placeStyle(keo::Color::RED);
    const auto portStyle = placeStyle(keo::Color::BLUE);
    collection.suspendEvents();
    const auto lyon = at(4.8357, 45.764);
    for (const auto& feature :
         {place(10, "Paris", at(2.3522, 48.8566), cityStyle), place(11, "Lyon", lyon, cityStyle),
          place(12, "Toulouse", at(1.4442, 43.6047), cityStyle)}) {
        cities->add(feature);
        collection.add(feature);
    }
    for (const auto& feature : {place(20, "Marseille", at(5.3698, 43.2965), portStyle),
                                place(21, "Le Havre", at(0.1079, 49.4944), portStyle)}) {
        ports->add(feature);
        collection.add(feature);
    }
    collection.resumeEvents();

    // The renderer side: one call a frame.
    FrameDriver driver(root);
    FrameChanges changes = driver.frame();
    print(1, changes, driver, notices);
    const bool firstFrameRight =
        changes.features == 5 && changes.added.size() == 10 && layer->getEntityCount() == 5;

    // Edits between frames: a city moves, the ports get bigger labels, Toulouse leaves.
    lyon->setPosition(keo::Cartographic::fromDegrees(4.85, 45.75, 0.0));
    portStyle->getLabelSymbol()->setSize(20.0f);
    const auto toulouse = cities->getById(12);
    cities->removeFromMemory(toulouse);
    collection.removeById(12);
    changes = driver.frame();
    print(2, changes, driver, notices);
    const bool secondFrameRight = changes.updated == 3 && changes.removed.size() == 2;

    // A new port comes, and the cities are hidden.
    const auto nice = place(22, "Nice", at(7.262, 43.7102), portStyle);
    ports->add(nice);
    collection.add(nice);
    cities->setShow(false);
    changes = driver.frame();
    print(3, changes, driver, notices);

    // A clean frame changes nothing.
    changes = driver.frame();
    print(4, changes, driver, notices);
    const bool cleanFrameRight =
        changes.updated == 0 && changes.added.empty() && changes.removed.empty();

    // Picking: from the label entity of Nice back to its feature.
    const auto label =
        nice->_getImplHandle()->getChildByName(std::string(keo::Feature::ChildEntityName::LABEL));
    const auto picked = label ? driver.pick(*label) : nullptr;
    std::printf("picked: feature %llu \"%s\" (label text \"%s\")\n",
                static_cast<unsigned long long>(picked ? picked->getId() : 0),
                picked ? picked->getName().c_str() : "",
                label ? label->getGeometryGraphics()->as<keo::LabelGraphics>()->getText().c_str()
                      : "");

    const std::string difference = driver.verify();
    if (!firstFrameRight || !secondFrameRight || !cleanFrameRight || picked != nice ||
        !difference.empty()) {
        std::fprintf(stderr, "unexpected frames: %s\n", difference.c_str());
        return 1;
    }
    std::printf("the live set equals the features' entity trees\n");
    return 0;
}
