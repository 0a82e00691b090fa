#pragma once

#include "Common/Color.h"

namespace keo::Feature {

/**
 * @brief The colour shown in place of the colour @p own of a symbol or material: the kit-wide
 * keo::Color::HIGHLIGHTCOLOR while @p highlight, else @p own. The one rule by which every symbol
 * and material shows a highlighted feature; nothing is marked changed by it, so highlighting
 * switches on and off from one update to the next.
 */
inline const Color& shownColor(const Color& own, bool highlight) noexcept {
    return highlight ? Color::HIGHLIGHTCOLOR : own;
}

} // namespace keo::Feature
