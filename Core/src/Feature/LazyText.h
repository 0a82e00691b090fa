#pragma once

// Texts most objects never set (a description, a label text) are held by a pointer and made on
// first use; empty reads as the empty string.

#include <memory>
#include <string>

namespace keo::Feature::detail {

/** @brief The text in @p slot, or the empty string when none was made. */
inline const std::string& textIn(const std::unique_ptr<std::string>& slot) noexcept {
    static const std::string none;
    return slot ? *slot : none;
}

/** @brief Stores @p text in @p slot, making the string only for a non-empty first text. */
inline void storeText(std::unique_ptr<std::string>& slot, const std::string& text) {
    if (slot) {
        *slot = text;
    } else if (!text.empty()) {
        slot = std::make_unique<std::string>(text);
    }
}

} // namespace keo::Feature::detail
