// Feeds arbitrary bytes as GeoJSON text through the reader and then the live source (with its
// default style and an area field), so that every geometry and attribute path is walked. Any
// crash, sanitizer report or leak fails the run.
#include "Source/LoadOptions.h"
#include "Source/LoadReport.h"
#include "Source/VectorSource.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    keo::Source::LoadOptions options;
    options.read.areaField = "area";
    options.read.nameField = "";
    keo::Source::LoadReport report;
    const auto source = keo::Source::VectorSource::loadText(text, options, report);
    (void)report.toText();
    return 0;
}
