#include "Picture/Renderer.h"

#include "CairoHandles.h"
#include "Composer.h"

#include "Data/Entity.h"
#include "Picture/PictureError.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

namespace keo::Picture {

namespace {

using detail::ContextHandle;
using detail::SurfaceHandle;

// The file a picture is written to, as Cairo's stream writer sees it.
struct FileSink {
    std::FILE* file = nullptr;
    bool failed = false;
    int error = 0;
};

cairo_status_t writeChunk(void* closure, const unsigned char* data, unsigned int length) {
    auto* sink = static_cast<FileSink*>(closure);
    if (std::fwrite(data, 1, length, sink->file) != length) {
        sink->failed = true;
        sink->error = errno;
        return CAIRO_STATUS_WRITE_ERROR;
    }
    return CAIRO_STATUS_SUCCESS;
}

std::string quoted(const std::string& path) {
    return "'" + path + "'";
}

// Draws on a surface of the options' size and finishes it (so a vector surface writes it all).
Report drawOn(cairo_surface_t* surface, const std::vector<const Entity*>& entities,
              const Options& options) {
    ContextHandle cr(cairo_create(surface));
    Report report = detail::compose(cr.get(), entities, options);
    cr.reset();
    cairo_surface_flush(surface);
    return report;
}

// The pixels of an image surface as RGBA bytes, not premultiplied.
Image imageOf(cairo_surface_t* surface) {
    const auto width = static_cast<std::uint32_t>(cairo_image_surface_get_width(surface));
    const auto height = static_cast<std::uint32_t>(cairo_image_surface_get_height(surface));
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    const unsigned char* data = cairo_image_surface_get_data(surface);
    std::vector<std::uint8_t> rgba(std::size_t{width} * height * 4);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            std::uint32_t word = 0;
            std::memcpy(&word, data + y * stride + x * 4, sizeof word);
            const std::uint32_t a = word >> 24;
            const auto channel = [a](std::uint32_t c) {
                return static_cast<std::uint8_t>(a == 0 ? 0 : (c * 255 + a / 2) / a);
            };
            std::uint8_t* out = &rgba[(y * width + x) * 4];
            out[0] = channel((word >> 16) & 0xFF);
            out[1] = channel((word >> 8) & 0xFF);
            out[2] = channel(word & 0xFF);
            out[3] = static_cast<std::uint8_t>(a);
        }
    }
    return Image(width, height, std::move(rgba));
}

SurfaceHandle vectorSurface(Format format, FileSink& sink, const Options& options) {
    const double width = options.width;
    const double height = options.height;
    if (format == Format::Svg) {
        return SurfaceHandle(cairo_svg_surface_create_for_stream(writeChunk, &sink, width, height));
    }
    return SurfaceHandle(cairo_pdf_surface_create_for_stream(writeChunk, &sink, width, height));
}

// Draws the picture and sends it to @p sink; the status of the last Cairo step.
cairo_status_t writePicture(Format format, FileSink& sink,
                            const std::vector<const Entity*>& entities, const Options& options,
                            Report& report) {
    if (format == Format::Png) {
        SurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32,
                                                         static_cast<int>(options.width),
                                                         static_cast<int>(options.height)));
        report = drawOn(surface.get(), entities, options);
        return cairo_surface_write_to_png_stream(surface.get(), writeChunk, &sink);
    }
    SurfaceHandle surface = vectorSurface(format, sink, options);
    report = drawOn(surface.get(), entities, options);
    cairo_surface_finish(surface.get());
    return cairo_surface_status(surface.get());
}

} // namespace

Renderer::Renderer(Options options)
    : options_(std::move(options)) {
    const auto fits = [](std::uint32_t size) { return size >= 1 && size <= Options::MAX_SIZE; };
    if (!fits(options_.width) || !fits(options_.height)) {
        throw PictureError("picture size " + std::to_string(options_.width) + "x" +
                           std::to_string(options_.height) + " is outside 1x1 to " +
                           std::to_string(Options::MAX_SIZE) + "x" +
                           std::to_string(Options::MAX_SIZE));
    }
}

Raster Renderer::render(const std::vector<const Entity*>& entities) const {
    SurfaceHandle surface(cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, static_cast<int>(options_.width), static_cast<int>(options_.height)));
    Raster raster;
    raster.report = drawOn(surface.get(), entities, options_);
    raster.image = imageOf(surface.get());
    return raster;
}

Report Renderer::writeFile(const std::string& path,
                           const std::vector<const Entity*>& entities) const {
    const auto format = formatFromPath(path);
    if (!format) {
        throw PictureError("cannot tell the format of " + quoted(path) +
                           ": the file name must end in .png, .svg or .pdf");
    }
    return writeFile(path, *format, entities);
}

Report Renderer::writeFile(const std::string& path, Format format,
                           const std::vector<const Entity*>& entities) const {
    FileSink sink;
    sink.file = std::fopen(path.c_str(), "wb");
    if (sink.file == nullptr) {
        throw PictureError("cannot open " + quoted(path) + " for writing: " + std::strerror(errno));
    }
    Report report;
    const cairo_status_t status = writePicture(format, sink, entities, options_, report);
    const bool closed = std::fclose(sink.file) == 0;
    if (sink.failed || !closed || status != CAIRO_STATUS_SUCCESS) {
        const int error = sink.failed ? sink.error : errno;
        throw PictureError("could not write the picture to " + quoted(path) + ": " +
                           (status != CAIRO_STATUS_SUCCESS && !sink.failed
                                ? std::string(cairo_status_to_string(status))
                                : std::string(std::strerror(error))));
    }
    return report;
}

std::vector<const Entity*>
Renderer::collectTrees(const std::vector<std::shared_ptr<Entity>>& roots) {
    std::vector<const Entity*> entities;
    std::vector<const Entity*> pending;
    for (auto it = roots.rbegin(); it != roots.rend(); ++it) {
        if (*it) {
            pending.push_back(it->get());
        }
    }
    // Depth first without recursion, so that deep trees cannot exhaust the stack.
    while (!pending.empty()) {
        const Entity* entity = pending.back();
        pending.pop_back();
        entities.push_back(entity);
        const auto& children = entity->getChildren();
        for (auto it = children.rbegin(); it != children.rend(); ++it) {
            pending.push_back(it->get());
        }
    }
    return entities;
}

} // namespace keo::Picture
