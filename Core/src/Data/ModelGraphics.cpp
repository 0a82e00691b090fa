#include "Data/ModelGraphics.h"

#include "Data/Resource.h"
#include "GraphicsSupport.h"

#include <utility>

namespace keo {

namespace {

bool sameUri(const Resource* a, const Resource* b) noexcept {
    if (a == nullptr || b == nullptr) {
        return a == b;
    }
    return *a == *b;
}

} // namespace

ModelGraphics::ModelGraphics()
    : ModelGraphics(ConstructorOptions()) {}

ModelGraphics::ModelGraphics(const ConstructorOptions& options)
    : GeometryGraphics(Type::Model, options) {
    setUri(options.uri);
    setScale(options.scale);
    setRotation(options.rotation);
    setColor(options.color);
    setAllowPicking(options.allowPicking);
}

ModelGraphics::~ModelGraphics() = default;

void ModelGraphics::setUri(std::shared_ptr<Resource> uri) noexcept {
    if (!sameUri(fields_.uri.get(), uri.get())) {
        ready_ = false;
        boundingBox_.reset();
    }
    fields_.uri = std::move(uri);
}

void ModelGraphics::setScale(const Vector3<double>& scale) noexcept {
    detail::assignNonNegative(fields_.scale, scale);
}

void ModelGraphics::setRotation(const Vector3<Radian>& rotation) noexcept {
    detail::assignUnlessNan(fields_.rotation, rotation);
}

void ModelGraphics::setBoundingBox(const std::optional<BoundingBox>& box) noexcept {
    if (!box) {
        boundingBox_.reset();
        return;
    }
    if (detail::isNan(box->center) || detail::isNan(box->halfExtents)) {
        return;
    }
    BoundingBox checked{box->center, {}};
    detail::assignNonNegative(checked.halfExtents, box->halfExtents);
    boundingBox_ = checked;
}

std::optional<double> ModelGraphics::computeTopHeight() const noexcept {
    if (!ready_ || !boundingBox_) {
        return std::nullopt;
    }
    return boundingBox_->center.z + boundingBox_->halfExtents.z * fields_.scale.z;
}

void ModelGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    detail::addField(fields, "uri", fields_.uri);
    detail::addField(fields, "scale", fields_.scale);
    detail::addField(fields, "rotation", fields_.rotation);
    detail::addField(fields, "color", fields_.color);
    detail::addField(fields, "allowPicking", fields_.allowPicking);
    detail::addField(fields, "ready", ready_);
    if (boundingBox_) {
        fields.addJson("boundingBox",
                       "{\"center\": " + detail::toJson(boundingBox_->center) +
                           ", \"halfExtents\": " + detail::toJson(boundingBox_->halfExtents) + "}");
    } else {
        fields.addNull("boundingBox");
    }
}

} // namespace keo
