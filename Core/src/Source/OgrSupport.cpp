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
    // Copying a text of tens of megabytes would cost as much as a good part of reading it. GDAL
    // neither frees nor, opening read-only, writes a buffer it does not own; an empty text has no
    // buffer to lend, and makes an empty file.
    VSILFILE* file =
        text.empty()
            ? VSIFOpenL(path_.c_str(), "wb")
            : VSIFileFromMemBuffer(path_.c_str(),
                                   reinterpret_cast<GByte*>(const_cast<char*>(text.data())),
                                   static_cast<vsi_l_offset>(text.size()), FALSE);
    if (file != nullptr) {
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
