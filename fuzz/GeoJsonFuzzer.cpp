// Feeds arbitrary bytes as GeoJSON text through the reader and then the live source (with its
// default style and an area field), and gives every feature made its first update, so that every
// geometry and attribute path is walked and every kind drawn. Any crash, sanitizer report or leak
// fails the run.
#include "Common/Log.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Source/LoadOptions.h"
#include "Source/LoadReport.h"
#include "Source/VectorSource.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The kit logs what it cannot draw (and a style on a multi geometry); printing each record
    // would make the console the bottleneck.
    static const bool SILENT = (keo::Log::getInstance().clearSinks(), true);
    (void)SILENT;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    keo::Source::LoadOptions options;
    options.read.areaField = "area";
    options.read.nameField = "";
    keo::Source::LoadReport report;
    const auto source = keo::Source::VectorSource::loadText(text, options, report);
    (void)report.toText();
    if (source != nullptr) {
        for (const auto& node : source->group()->getFeatures()) {
            if (auto* feature = dynamic_cast<keo::Feature::Feature*>(node.get())) {
                feature->_updateEntityInCull(true);
            }
        }
    }
    return 0;
}
