#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace keo::Source::detail {

/**
 * @brief The attribute names a style sheet or expression reads, each given a slot (its index in
 * the order first met), so that evaluation reads attributes by index rather than by name.
 */
class FieldTable final {
public:
    /** @brief The slot of @p name, added when new. */
    std::uint32_t intern(const std::string& name) {
        const auto found = slots_.find(name);
        if (found != slots_.end()) {
            return found->second;
        }
        const auto slot = static_cast<std::uint32_t>(names_.size());
        names_.push_back(name);
        slots_.emplace(name, slot);
        return slot;
    }
    /** @brief The slot of @p name, or empty when the table does not hold it. */
    std::optional<std::uint32_t> find(const std::string& name) const {
        const auto found = slots_.find(name);
        if (found == slots_.end()) {
            return std::nullopt;
        }
        return found->second;
    }
    /** @brief The names by slot. */
    const std::vector<std::string>& names() const noexcept { return names_; }
    /** @brief The number of slots. */
    std::size_t size() const noexcept { return names_.size(); }

private:
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::uint32_t> slots_;
};

} // namespace keo::Source::detail
