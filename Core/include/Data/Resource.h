#pragma once

#include "Data/DataExport.h"

#include <string>
#include <utility>

namespace keo {

/** @brief A resource to load, named by its URI (a file path or a URL), kept as given. */
class KEO_DATA_API Resource final {
public:
    /** @brief A resource with an empty URI. */
    Resource() = default;
    /** @brief A resource of the given URI. */
    explicit Resource(std::string uri)
        : uri_(std::move(uri)) {}

    /** @brief The URI. */
    const std::string& getUri() const noexcept { return uri_; }

    /** @brief Equality of the URIs. */
    bool operator==(const Resource& o) const noexcept { return uri_ == o.uri_; }
    /** @brief Negation of operator==. */
    bool operator!=(const Resource& o) const noexcept { return !(*this == o); }

private:
    std::string uri_;
};

} // namespace keo
