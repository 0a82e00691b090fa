#include "DataRun.h"

#include "FrameLog.h"
#include "Program.h"
#include "Scene.h"

#include "Data/Entity.h"
#include "Data/Layer.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/MultiGeometry.h"
#include "Source/LoadOptions.h"
#include "Source/StyleSheet.h"
#include "Source/VectorSource.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

namespace keo::scene {

namespace {

using Feature::Geometry;

// Opens @p file at @p path, named by the command line's @p option; false with the reason in
// @p error when it cannot.
bool openFile(std::ifstream& file, const std::string& path, const char* option,
              std::string& error) {
    file.open(path, std::ios::binary);
    if (!file.is_open()) {
        error =
            std::string("cannot open ") + option + " file '" + path + "': " + std::strerror(errno);
        return false;
    }
    return true;
}

// The file name of @p path without its folders and its last extension.
std::string stemOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

const char* kindName(Geometry::Type type, bool plural) {
    switch (type) {
    case Geometry::Type::Point:
        return plural ? "points" : "point";
    case Geometry::Type::Polyline:
        return plural ? "polylines" : "polyline";
    case Geometry::Type::Polygon:
        return plural ? "polygons" : "polygon";
    default:
        return plural ? "geometries" : "geometry";
    }
}

std::string describeGeometry(const Geometry* geometry) {
    if (geometry == nullptr) {
        return "no geometry";
    }
    const auto* multi = dynamic_cast<const Feature::MultiGeometry*>(geometry);
    if (multi == nullptr) {
        return kindName(geometry->getType(), false);
    }
    const std::size_t parts = multi->getNumComponents();
    return "multi geometry of " + std::to_string(parts) + " " +
           kindName(multi->getComponentType(), parts != 1);
}

// The entities of the tree under @p root, and those of them that are showing.
std::pair<std::size_t, std::size_t> countEntities(const Entity* root) {
    std::size_t all = 0;
    std::size_t showing = 0;
    std::vector<const Entity*> stack;
    if (root != nullptr) {
        stack.push_back(root);
    }
    while (!stack.empty()) {
        const Entity* entity = stack.back();
        stack.pop_back();
        ++all;
        showing += entity->isShowing() ? 1U : 0U;
        for (const auto& child : entity->getChildren()) {
            stack.push_back(child.get());
        }
    }
    return {all, showing};
}

} // namespace

DataRun::~DataRun() = default;

std::unique_ptr<DataRun> DataRun::load(const Options& options, Scene& scene, Failure& failure) {
    std::unique_ptr<DataRun> run(new DataRun());
    Source::LoadOptions load;
    load.read.layer = options.layer;
    if (!options.stylePath.empty()) {
        std::ifstream file;
        if (!openFile(file, options.stylePath, "--style", failure.message)) {
            failure.status = EXIT_USAGE;
            return nullptr;
        }
        const std::string text{std::istreambuf_iterator<char>(file),
                               std::istreambuf_iterator<char>()};
        load.styleSheet = Source::StyleSheet::parse(text, run->report_);
        if (load.styleSheet == nullptr) {
            failure = {"cannot load --style file '" + options.stylePath +
                           "': " + run->report_.error(),
                       EXIT_FAILED};
            return nullptr;
        }
    }
    // Checked here, as the other files named on the command line are: GDAL's own message for a
    // file that is not there would not say so plainly.
    std::ifstream data;
    if (!openFile(data, options.dataPath, "--data", failure.message)) {
        failure.status = EXIT_USAGE;
        return nullptr;
    }
    run->groupName_ = options.layer.empty() ? stemOf(options.dataPath) : options.layer;
    Feature::FeatureGroup& group = scene.group(run->groupName_);
    load.group = group.shared_from_this();
    scene.collection().suspendEvents();
    run->source_ = Source::VectorSource::loadFile(options.dataPath, load, run->report_);
    if (run->source_ != nullptr) {
        for (const auto& feature : leafFeatures(group)) {
            scene.collection().add(feature);
        }
    }
    scene.collection().resumeEvents();
    if (run->source_ == nullptr) {
        const bool missingLayer = run->report_.count(Source::LoadReport::Issue::LayerMissing) > 0;
        failure = {"cannot load --data file '" + options.dataPath + "': " + run->report_.error(),
                   missingLayer ? EXIT_USAGE : EXIT_FAILED};
        return nullptr;
    }
    return run;
}

std::size_t DataRun::size() const noexcept {
    return source_ != nullptr ? source_->size() : 0;
}

std::string DataRun::header(const Options& options, const Scene& scene) const {
    std::ostringstream out;
    out << "keo-scene: " << options.dataPath;
    if (!options.layer.empty()) {
        out << ", layer \"" << options.layer << "\"";
    }
    out << ", styled by "
        << (options.stylePath.empty() ? std::string("the default style sheet") : options.stylePath)
        << ", " << options.frames << " frame" << (options.frames == 1 ? "" : "s") << " of "
        << FRAME_SECONDS << " s\n";
    out << "load report: " << report_.toText();
    out << "scene: layer \"" << scene.layer()->getName() << "\", group \"" << groupName_ << "\"; "
        << size() << " features, also in a collection\n\n";
    return out.str();
}

std::string DataRun::summary(const Scene& scene) const {
    std::string text = "\nfeatures in tree order:\n";
    for (const auto& feature : scene.features()) {
        const auto [all, showing] = countEntities(feature->_getImplHandle().get());
        text += "feature " + std::to_string(feature->getId()) + " \"" + feature->getName() +
                "\": " + describeGeometry(feature->getGeometry().get()) + ", " +
                std::to_string(all) + " entities, " + std::to_string(showing) + " showing\n";
    }
    return text;
}

} // namespace keo::scene
