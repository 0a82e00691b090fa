#pragma once

#include "Options.h"

#include "Source/LoadReport.h"

#include <cstddef>
#include <memory>
#include <string>

namespace keo::Source {
class VectorSource;
} // namespace keo::Source

namespace keo::scene {

class Scene;

/**
 * @brief The vector data a run plays in place of the sample (--data FILE, with --layer NAME and
 * --style FILE): the file read through keoSource, styled by the sheet (or the default sheet), its
 * features put into one subgroup of the scene, named after the layer, and into the scene's
 * collection. The source stays with the run, so that its features stay live.
 */
class DataRun final {
public:
    /** @brief Why a load failed: the message (one line) and the exit status it calls for. */
    struct Failure {
        /** @brief What went wrong, without the program name. */
        std::string message;
        /**
         * @brief EXIT_USAGE when the command line names something that is not there (a file
         * that cannot be opened, a layer the data does not have), EXIT_FAILED when a file's
         * content cannot be loaded (a style sheet or data that does not parse).
         */
        int status = 0;
    };

    /**
     * @brief Loads the data @p options names into @p scene; null when it cannot, with the reason
     * in @p failure. The collection's notifications are suspended meanwhile: the load is one
     * notification.
     */
    static std::unique_ptr<DataRun> load(const Options& options, Scene& scene, Failure& failure);
    ~DataRun();
    DataRun(const DataRun&) = delete;
    DataRun& operator=(const DataRun&) = delete;

    /** @brief The name of the subgroup that holds the features (the layer's name). */
    const std::string& groupName() const noexcept { return groupName_; }
    /** @brief The number of features made. */
    std::size_t size() const noexcept;
    /** @brief What the load found. */
    const Source::LoadReport& report() const noexcept { return report_; }

    /**
     * @brief The text printed before the first frame: what was loaded and how it is styled, the
     * load report (its totals, a line per kind of finding and the kept messages) and the scene.
     */
    std::string header(const Options& options, const Scene& scene) const;
    /**
     * @brief The text printed after the last frame: one line per feature in tree order with its
     * id, name and geometry, and how many entities its tree holds and how many of them show.
     */
    std::string summary(const Scene& scene) const;

private:
    DataRun() = default;

    std::unique_ptr<Source::VectorSource> source_;
    Source::LoadReport report_;
    std::string groupName_;
};

} // namespace keo::scene
