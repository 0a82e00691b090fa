#include "Data/Image.h"

#include <utility>

namespace keo {

Image::Image(std::uint32_t width, std::uint32_t height, std::vector<std::uint8_t> rgba) {
    // Computed in 64 bits so that a huge width × height cannot wrap around.
    const std::uint64_t expected = std::uint64_t{width} * std::uint64_t{height} * 4u;
    if (rgba.size() != expected) {
        return;
    }
    width_ = width;
    height_ = height;
    rgba_ = std::move(rgba);
}

} // namespace keo
