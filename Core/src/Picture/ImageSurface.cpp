#include "ImageSurface.h"

#include "Data/Image.h"

#include <cctype>
#include <cstdint>
#include <cstring>

namespace keo::Picture::detail {

namespace {

bool endsWithPng(const std::string& path) {
    if (path.size() < 4) {
        return false;
    }
    std::string extension = path.substr(path.size() - 4);
    for (char& c : extension) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return extension == ".png";
}

// One RGBA pixel as Cairo's native-endian, premultiplied ARGB word.
std::uint32_t premultiplied(const std::uint8_t* rgba) noexcept {
    const std::uint32_t a = rgba[3];
    const auto scale = [a](std::uint8_t c) {
        return (static_cast<std::uint32_t>(c) * a + 127) / 255;
    };
    return (a << 24) | (scale(rgba[0]) << 16) | (scale(rgba[1]) << 8) | scale(rgba[2]);
}

} // namespace

SurfaceHandle surfaceOfImage(const Image& image) {
    if (image.isEmpty()) {
        return nullptr;
    }
    const int width = static_cast<int>(image.getWidth());
    const int height = static_cast<int>(image.getHeight());
    SurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    cairo_surface_flush(surface.get());
    unsigned char* data = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    const std::uint8_t* source = image.getPixels().data();
    for (std::size_t y = 0; y < image.getHeight(); ++y) {
        for (std::size_t x = 0; x < image.getWidth(); ++x) {
            const std::uint32_t word = premultiplied(source + (y * image.getWidth() + x) * 4);
            std::memcpy(data + y * stride + x * 4, &word, sizeof word);
        }
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

SurfaceHandle surfaceOfPngFile(const std::string& uri) {
    const std::string scheme = "file://";
    std::string path = uri.rfind(scheme, 0) == 0 ? uri.substr(scheme.size()) : uri;
    if (path.find("://") != std::string::npos || !endsWithPng(path)) {
        return nullptr;
    }
    SurfaceHandle surface(cairo_image_surface_create_from_png(path.c_str()));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    return surface;
}

} // namespace keo::Picture::detail
