#pragma once

#include "Data/DataExport.h"
#include "Data/Resource.h"

#include <string>
#include <utility>

namespace keo {

/**
 * @brief Where a set of features was loaded from: a display name and the resource (file or URL)
 * that was read. Features keep a non-owning pointer to their origin, so a data source must outlive
 * the features that name it.
 */
class KEO_DATA_API DataSource final {
public:
    /** @brief A data source with an empty name and an empty resource URI. */
    DataSource() = default;
    /** @brief A data source named @p name that was read from @p resource. */
    DataSource(std::string name, Resource resource)
        : name_(std::move(name))
        , resource_(std::move(resource)) {}

    /** @brief The display name. */
    const std::string& getName() const noexcept { return name_; }
    /** @brief Sets the display name (any text, kept as given). */
    void setName(std::string name) { name_ = std::move(name); }
    /** @brief The resource that was read. */
    const Resource& getResource() const noexcept { return resource_; }
    /** @brief Sets the resource that was read. */
    void setResource(Resource resource) { resource_ = std::move(resource); }

private:
    std::string name_;
    Resource resource_;
};

} // namespace keo
