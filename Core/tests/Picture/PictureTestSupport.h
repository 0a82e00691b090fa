#pragma once

// Small scenes for the picture tests: entities placed in metres east, north and up of one place,
// and pixel probes on the rendered pictures.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/Vector3.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"
#include "Data/Image.h"
#include "Picture/Options.h"
#include "Picture/Raster.h"
#include "Picture/Renderer.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace keo::Picture::test {

/** @brief The place every test scene is built around (degrees). */
constexpr double ORIGIN_LONGITUDE = 116.39;
constexpr double ORIGIN_LATITUDE = 39.91;

/** @brief The ECEF position @p east, @p north metres from the origin, @p up metres high. */
inline Vector3<double> at(double east, double north, double up = 0.0) {
    constexpr double RADIUS = 6378137.0;
    const double latitude = ORIGIN_LATITUDE * M_PI / 180.0;
    return Ellipsoid::WGS84.cartographicToCartesian(Cartographic::fromRadians(
        ORIGIN_LONGITUDE * M_PI / 180.0 + east / (RADIUS * std::cos(latitude)),
        latitude + north / RADIUS, up));
}

/** @brief An entity named @p name with @p graphics, at @p position when one is given. */
inline std::shared_ptr<Entity> entityWith(std::shared_ptr<GeometryGraphics> graphics,
                                          const Vector3<double>* position = nullptr,
                                          const std::string& name = "") {
    auto entity = std::make_shared<Entity>(name);
    entity->setGeometryGraphics(std::move(graphics));
    if (position != nullptr) {
        entity->setPosition(std::make_shared<ConstantPositionProperty>(*position));
    }
    return entity;
}

/** @brief Raw pointers to @p entities, as the renderer takes them. */
inline std::vector<const Entity*> pointers(const std::vector<std::shared_ptr<Entity>>& entities) {
    std::vector<const Entity*> result;
    for (const auto& entity : entities) {
        result.push_back(entity.get());
    }
    return result;
}

/** @brief Small options: no decorations or title, the given size and view. */
inline Options smallOptions(std::uint32_t width = 200, std::uint32_t height = 200,
                            View view = View::Map) {
    Options options;
    options.width = width;
    options.height = height;
    options.decorations = false;
    options.view = view;
    return options;
}

/** @brief The picture of @p entities made in memory with @p options. */
inline Raster render(const std::vector<std::shared_ptr<Entity>>& entities,
                     const Options& options = smallOptions()) {
    return Renderer(options).render(pointers(entities));
}

/** @brief A pixel of a rendered picture. */
struct Pixel {
    int r = 0;
    int g = 0;
    int b = 0;
    int a = 0;
};

/** @brief The pixel at column @p x and row @p y of @p image. */
inline Pixel pixelAt(const Image& image, int x, int y) {
    const std::size_t i =
        (static_cast<std::size_t>(y) * image.getWidth() + static_cast<std::size_t>(x)) * 4;
    const auto& p = image.getPixels();
    return {p[i], p[i + 1], p[i + 2], p[i + 3]};
}

/** @brief Whether @p pixel is @p color within @p tolerance per channel (0..255). */
inline bool isColor(const Pixel& pixel, const Color& color, int tolerance = 8) {
    const auto near = [tolerance](int value, float unit) {
        return std::abs(value - static_cast<int>(std::lround(unit * 255.0f))) <= tolerance;
    };
    return near(pixel.r, color.r) && near(pixel.g, color.g) && near(pixel.b, color.b);
}

/** @brief Pixels in the box [x0, x1) × [y0, y1) that differ from @p background. */
inline int inkCount(const Image& image, int x0, int y0, int x1, int y1, const Color& background) {
    int count = 0;
    for (int y = y0; y < y1; ++y) {
        for (int x = x0; x < x1; ++x) {
            count += isColor(pixelAt(image, x, y), background, 2) ? 0 : 1;
        }
    }
    return count;
}

/** @brief inkCount over the whole picture. */
inline int inkCount(const Image& image, const Color& background) {
    return inkCount(image, 0, 0, static_cast<int>(image.getWidth()),
                    static_cast<int>(image.getHeight()), background);
}

} // namespace keo::Picture::test
