#pragma once

#include <cstdint>
#include <string>

namespace keo {

/**
 * @brief Whom an entity tree belongs to, as a scene dump names it on the tree's root: the kind
 * of owner (for example "feature"), its id and its name.
 */
struct EntityOwner {
    /** @brief The kind of owner, a word (for example "feature"). */
    std::string kind;
    /** @brief The owner's id. */
    std::uint64_t id = 0;
    /** @brief The owner's name (may be empty). */
    std::string name;
};

} // namespace keo
