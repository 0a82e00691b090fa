#pragma once

#include "Common/Color.h"
#include "Data/HorizontalOrigin.h"
#include "Data/VerticalOrigin.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace keo {
class Image;
class LabelGraphics;
} // namespace keo

namespace keo::Picture::detail {

/** @brief A point of the picture, pixels from the top-left corner (y down). */
struct Point2 {
    double x = 0.0;
    double y = 0.0;
};

/** @brief A filled area: rings filled together by the even-odd rule (holes stay open). */
struct FillShape {
    std::vector<std::vector<Point2>> rings;
    /** @brief Fill colour; fully transparent: not filled. */
    Color fill = Color::TRANSPARENT;
    /** @brief Outline colour, drawn when the outline width is above 0. */
    Color outline = Color::TRANSPARENT;
    double outlineWidth = 0.0;
};

/** @brief How a stroked line is painted beyond its colour and width. */
enum class LineLook : std::uint8_t { Solid, Dash, Glow, Outline, Arrow };

/** @brief A stroked line. */
struct StrokeShape {
    std::vector<Point2> points;
    bool closed = false;
    Color color = Color::WHITE;
    double width = 1.0;
    LineLook look = LineLook::Solid;
    /** @brief Dash: on and off lengths in pixels, starting with a dash. */
    std::vector<double> dashes;
    /** @brief Dash: the colour painted between the dashes; outline: the outline colour. */
    Color second = Color::TRANSPARENT;
    /** @brief Glow: the fraction of the width that glows; outline: its width on each side. */
    double amount = 0.0;
};

/** @brief A round dot with an optional ring around it. */
struct DotShape {
    Point2 centre;
    double diameter = 1.0;
    Color color = Color::WHITE;
    Color outline = Color::BLACK;
    double outlineWidth = 0.0;
};

/**
 * @brief An image drawn upright at an anchor; a marked placeholder when it cannot be read. Its
 * size is resolved when painted: the given width and height, else the image's own, times scale.
 */
struct ImageShape {
    /** @brief The anchor: the entity's position moved by the pixel offset. */
    Point2 anchor;
    std::optional<double> width;
    std::optional<double> height;
    double scale = 1.0;
    HorizontalOrigin horizontal = HorizontalOrigin::Center;
    VerticalOrigin vertical = VerticalOrigin::Center;
    Color tint = Color::WHITE;
    /** @brief The decoded image, or null to read the file at uri. */
    const Image* image = nullptr;
    std::string uri;
};

/** @brief A label: the text and its look are read from the label graphics when painted. */
struct TextShape {
    /** @brief Where the entity's position falls on the picture (the label's anchor mark). */
    Point2 position;
    const LabelGraphics* label = nullptr;
};

/** @brief What a mark stands for. */
enum class MarkKind : std::uint8_t {
    Particles,    ///< The centre of a particle emitter: a star of spokes.
    PendingModel, ///< A model that is not loaded yet: a dashed box with a cross.
};

/** @brief A symbolic mark of a fixed size in pixels. */
struct MarkShape {
    Point2 centre;
    double size = 12.0;
    Color color = Color::WHITE;
    MarkKind kind = MarkKind::Particles;
};

/** @brief The painting layers, painted in this order. */
enum class Layer : std::uint8_t { Ground, Lines, Solids, Markers, Labels };

/** @brief One shape to paint, with the layer and depth that place it in the painting order. */
struct DrawItem {
    Layer layer = Layer::Ground;
    /** @brief Distance from the camera, metres: farther shapes of a layer are painted first. */
    double depth = 0.0;
    /** @brief Insertion order: among equal layers and depths, earlier shapes are painted first. */
    std::uint32_t order = 0;
    std::variant<FillShape, StrokeShape, DotShape, ImageShape, TextShape, MarkShape> shape;
};

/** @brief The shapes of one picture, put in painting order by sort(). */
class DrawList final {
public:
    /** @brief Adds @p shape to @p layer at @p depth. */
    template <typename Shape>
    void add(Layer layer, double depth, Shape shape) {
        items_.push_back(DrawItem{layer, depth, next_++, std::move(shape)});
    }
    /** @brief The number of shapes. */
    std::size_t size() const noexcept { return items_.size(); }
    /** @brief Sorts by layer, then far to near, then insertion order. */
    void sort();
    /** @brief The shapes (in painting order after sort). */
    const std::vector<DrawItem>& items() const noexcept { return items_; }

private:
    std::vector<DrawItem> items_;
    std::uint32_t next_ = 0;
};

} // namespace keo::Picture::detail
