#pragma once

#include "Picture/Format.h"
#include "Picture/Options.h"
#include "Picture/PictureExport.h"
#include "Picture/Raster.h"
#include "Picture/Report.h"

#include <memory>
#include <string>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Picture {

/**
 * @brief Draws entities into a picture: what a renderer would show of them at the options' time,
 * seen from the map view or the oblique view, written as PNG, SVG or PDF or kept in memory.
 *
 * Each entity given draws its own graphics component only (its children are drawn when they are
 * given too; collectTrees lists whole trees). Properties are evaluated at Options::time. An
 * entity is left out when it or an ancestor is hidden, when its graphics are hidden, and when
 * its distance display condition excludes the camera's distance to it (measured to the entity's
 * position, or to the centre of its positions for kinds without one). Every graphics kind is
 * drawn: points, billboards (the image when it is decoded or a local PNG file, else a marked
 * placeholder), labels (with a small anchor mark), polylines with their materials, polygons with
 * holes, rectangles, ellipses, walls, polyline volumes, the oriented bounding boxes of models
 * (a marked placeholder until a model is ready) and the emitter shapes of particle systems.
 * Surface materials are drawn in their main colour, times the breathing factor at the time.
 *
 * The picture has no terrain: the ground is the WGS84 ellipsoid, clamped graphics lie on it and
 * relative heights are read as heights above it. Shapes are painted in layers: ground areas,
 * then lines, then walls, extrusions, volumes and model boxes sorted far to near and shaded by
 * a fixed light, then points, billboards and particle marks (far to near), then labels. Labels
 * are all drawn; overlap avoidance is not applied.
 *
 * Positions with a NaN or infinite coordinate are skipped and counted (Report::invalidPositions);
 * a position, positions or orientation property that throws is read as having no value. A
 * picture with nothing to draw carries a note instead. A renderer holds only its options and can
 * draw any number of pictures; it reads the entities while it draws, so they must not be edited
 * meanwhile.
 */
class KEO_PICTURE_API Renderer final {
public:
    /**
     * @brief A renderer of @p options. Throws PictureError when the width or height is 0 or
     * greater than Options::MAX_SIZE.
     */
    explicit Renderer(Options options);

    /** @brief The options. */
    const Options& getOptions() const noexcept { return options_; }

    /**
     * @brief Draws @p entities (null pointers are counted and skipped) into pixels of the
     * options' size. Never throws for any entity content.
     */
    Raster render(const std::vector<const Entity*>& entities) const;

    /**
     * @brief Draws @p entities and writes the picture to @p path in the format its extension
     * names (formatFromPath). Throws PictureError, before drawing anything, for an extension that
     * names no format or a file that cannot be opened for writing, and after drawing when the
     * file cannot be written completely.
     */
    Report writeFile(const std::string& path, const std::vector<const Entity*>& entities) const;

    /**
     * @brief Draws @p entities and writes the picture to @p path in @p format, whatever the
     * extension. Throws PictureError as writeFile does.
     */
    Report writeFile(const std::string& path, Format format,
                     const std::vector<const Entity*>& entities) const;

    /**
     * @brief Every entity of the trees under @p roots, each root before its children, depth
     * first in order (null roots are skipped). The pointers are valid while the trees live.
     */
    static std::vector<const Entity*>
    collectTrees(const std::vector<std::shared_ptr<Entity>>& roots);

private:
    Options options_;
};

} // namespace keo::Picture
