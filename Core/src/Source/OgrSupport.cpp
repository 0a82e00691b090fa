#include "OgrSupport.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_vsi.h>

#include <atomic>
#include <mutex>

namespace keo::Source::detail {

namespace {

std::atomic<unsigned long long> memoryFileCounter{0};

} // namespace

void registerDrivers() {
    static std::once_flag once;
    std::call_once(once, [] { GDALAllRegister(); });
}

QuietErrors::QuietErrors() {
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
}

QuietErrors::~QuietErrors() {
    CPLPopErrorHandler();
}

std::string QuietErrors::lastMessage() {
    const char* message = CPLGetLastErrorMsg();
    return message != nullptr && *message != '\0' ? message : "no reason given";
}

MemoryFile::MemoryFile(std::string_view text, const std::string& extension)
    : path_("/vsimem/keo-source-" + std::to_string(++memoryFileCounter) + extension) {
    // VSIFileFromMemBuffer would take the buffer over without copying: a copy keeps the caller's
    // text untouched and the file's lifetime independent of it.
    VSILFILE* file = VSIFOpenL(path_.c_str(), "wb");
    if (file != nullptr) {
        VSIFWriteL(text.data(), 1, text.size(), file);
        VSIFCloseL(file);
    }
}

MemoryFile::~MemoryFile() {
    VSIUnlink(path_.c_str());
}

GDALDatasetUniquePtr openVector(const std::string& path) {
    return GDALDatasetUniquePtr(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
}

TransformationPtr transformationToWgs84(const OGRSpatialReference* source, bool& failed) {
    failed = false;
    if (source == nullptr) {
        return nullptr;
    }
    OGRSpatialReference from(*source);
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (from.IsSame(&wgs84)) {
        return nullptr;
    }
    TransformationPtr transformation(OGRCreateCoordinateTransformation(&from, &wgs84));
    failed = transformation == nullptr;
    return transformation;
}

} // namespace keo::Source::detail
