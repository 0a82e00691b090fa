#pragma once

#include <gdal_priv.h>
#include <ogr_spatialref.h>

#include <memory>
#include <string>
#include <string_view>

namespace keo::Source::detail {

/** @brief Registers GDAL's drivers once for the process. */
void registerDrivers();

/**
 * @brief While it lives, GDAL reports its errors to no one (the reader turns them into report
 * entries) and the last error starts empty.
 */
class QuietErrors final {
public:
    QuietErrors();
    ~QuietErrors();
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

    /** @brief GDAL's last error message, or "no reason given". */
    static std::string lastMessage();
};

/**
 * @brief A file in GDAL's memory file system whose content is a text, removed with the object;
 * its path can be opened (read-only) as any file.
 */
class MemoryFile final {
public:
    /**
     * @brief A memory file under a fresh path ending in @p extension that reads @p text in place,
     * without a copy: the text must stay unchanged while the object lives, and the file must only
     * be opened read-only.
     */
    MemoryFile(std::string_view text, const std::string& extension);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /** @brief The path to open. */
    const std::string& path() const noexcept { return path_; }

private:
    std::string path_;
};

/** @brief The dataset at @p path opened read-only as vector data, or null. */
GDALDatasetUniquePtr openVector(const std::string& path);

/** @brief Owns an OGR coordinate transformation. */
struct TransformationDeleter {
    /** @brief Destroys @p transformation. */
    void operator()(OGRCoordinateTransformation* transformation) const noexcept {
        OGRCoordinateTransformation::DestroyCT(transformation);
    }
};

/** @brief An owned coordinate transformation. */
using TransformationPtr = std::unique_ptr<OGRCoordinateTransformation, TransformationDeleter>;

/**
 * @brief The transformation from @p source to WGS84 longitude, latitude (both read in the
 * traditional longitude-first order); null when @p source is null or already WGS84 longitude,
 * latitude. Sets @p failed when a transformation is needed but cannot be made.
 */
TransformationPtr transformationToWgs84(const OGRSpatialReference* source, bool& failed);

} // namespace keo::Source::detail
