#pragma once

#include "Data/DataExport.h"

#include <cstdint>
#include <vector>

namespace keo {

/**
 * @brief A decoded image: width and height in pixels and its pixels as RGBA bytes, row by row
 * from the top (width × height × 4 bytes).
 */
class KEO_DATA_API Image final {
public:
    /** @brief An empty image (0 × 0). */
    Image() = default;
    /**
     * @brief An image of the given size and pixels. If @p rgba does not hold exactly
     * width × height × 4 bytes, the image is made empty (0 × 0) instead.
     */
    Image(std::uint32_t width, std::uint32_t height, std::vector<std::uint8_t> rgba);

    /** @brief Width in pixels. */
    std::uint32_t getWidth() const noexcept { return width_; }
    /** @brief Height in pixels. */
    std::uint32_t getHeight() const noexcept { return height_; }
    /** @brief The RGBA bytes, row by row from the top. */
    const std::vector<std::uint8_t>& getPixels() const noexcept { return rgba_; }
    /** @brief Whether the image has no pixels (also an image made with a width or height of 0). */
    bool isEmpty() const noexcept { return rgba_.empty(); }

    /** @brief Equality of size and every byte. */
    bool operator==(const Image& o) const noexcept {
        return width_ == o.width_ && height_ == o.height_ && rgba_ == o.rgba_;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const Image& o) const noexcept { return !(*this == o); }

private:
    std::uint32_t width_ = 0;
    std::uint32_t height_ = 0;
    std::vector<std::uint8_t> rgba_;
};

} // namespace keo
