#pragma once

// The shared paths of every material kind: the setter shape and the create-or-refresh update.
// Included by the material sources only.

#include "Feature/Highlight.h"
#include "Feature/Material.h"

#include "EditRule.h"
#include "FeatureLog.h"

#include "Data/MaterialProperty.h"

#include <memory>
#include <utility>

namespace keo::Feature {

namespace detail {

/** @brief @p property as its kind @p Property (the as...MaterialProperty casts), or null. */
template <typename Property>
Property* asKind(MaterialProperty& property) noexcept {
    return property.getType() == Property::TYPE ? static_cast<Property*>(&property) : nullptr;
}

} // namespace detail

template <typename T, typename U>
bool Material::editField(T& field, U&& value) {
    return detail::applyEdit(*this, field, std::forward<U>(value), [this] { changed_ = true; });
}

template <typename Property, typename MakeOptions, typename Refresh, typename Push>
void Material::refreshMaterial(bool highlight, MakeOptions&& makeOptions, Refresh&& refresh,
                               Push&& push) const {
    Property* property = nullptr;
    if (!material_) {
        auto created = std::make_shared<Property>(makeOptions());
        property = created.get();
        material_ = std::move(created);
    } else {
        property = detail::asKind<Property>(*material_);
        if (changed_ && property) {
            refresh(*property);
        }
    }
    if (property) {
        push(*property);
    }
    Material::updateImplMaterial(highlight);
    changed_ = false;
}

} // namespace keo::Feature
