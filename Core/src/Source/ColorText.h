#pragma once

#include "Common/Color.h"

#include <optional>
#include <string>
#include <string_view>

namespace keo::Source::detail {

/**
 * @brief The colour that @p text spells in CSS: "#rgb", "#rgba", "#rrggbb", "#rrggbbaa",
 * "rgb(r, g, b)" and "rgba(r, g, b, a)" with r, g, b in 0..255 and a in 0..1, or one of the
 * seventeen colour names of CSS 2.1 and "transparent" (any case). Empty for any other text.
 */
std::optional<keo::Color> parseColor(std::string_view text);

/** @brief @p color as "rgba(r,g,b,a)": bytes 0..255 rounded, alpha in its shortest form. */
std::string colorText(const keo::Color& color);

} // namespace keo::Source::detail
