#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"

#include <optional>
#include <string>

namespace keo::Source {

/**
 * @brief The resolved label of a feature: its text and how it looks.
 *
 * An empty `text` (not given by the rule) shows the feature's name, as a label symbol without a
 * field name does; a given text that resolves to "" shows no label.
 */
struct ResolvedLabel final {
    /** @brief The text from the rule's expression; empty when the rule gives none. */
    std::optional<std::string> text;
    /** @brief The font handed to the label; empty: the default font. */
    std::string font;
    /** @brief The text size, pixels (default 12). */
    float size = 12.0f;
    /** @brief The text colour (default opaque white). */
    keo::Color color = keo::Color::WHITE;
    /** @brief The outline colour (default opaque black). */
    keo::Color outlineColor = keo::Color::BLACK;
    /** @brief The outline width, pixels (default 1). */
    float outlineWidth = 1.0f;
    /** @brief The offset from the labelled point, pixels right and up (default (0, 0)). */
    keo::Vector2<float> offset{0.0f, 0.0f};

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedLabel& o) const {
        return text == o.text && font == o.font && size == o.size && color == o.color &&
               outlineColor == o.outlineColor && outlineWidth == o.outlineWidth &&
               offset.x == o.offset.x && offset.y == o.offset.y;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedLabel& o) const { return !(*this == o); }
};

} // namespace keo::Source
