#include "Data/GeometryGraphics.h"

#include "Data/MaterialProperty.h"
#include "GraphicsSupport.h"

#include <utility>

namespace keo {

GeometryGraphics::GeometryGraphics(Type type, const CommonOptions& options)
    // The enumerations start from their defaults and go through their setters, so that a value
    // a setter would ignore leaves the default in place.
    : common_{
          options.material,     options.distanceDisplayCondition, std::nullopt, type, options.show,
          ShadowMode::Disabled, HeightReference::Absolute} {
    setShadows(options.shadows);
    setHeightReference(options.heightReference);
    setClassificationType(options.classificationType);
}

GeometryGraphics::~GeometryGraphics() = default;

const char* GeometryGraphics::typeName(Type type) noexcept {
    switch (type) {
    case Type::Polyline:
        return "PolylineGraphics";
    case Type::Polygon:
        return "PolygonGraphics";
    case Type::Wall:
        return "WallGraphics";
    case Type::Rectangle:
        return "RectangleGraphics";
    case Type::Ellipse:
        return "EllipseGraphics";
    case Type::Billboard:
        return "BillboardGraphics";
    case Type::Label:
        return "LabelGraphics";
    case Type::Point:
        return "PointGraphics";
    case Type::Model:
        return "ModelGraphics";
    case Type::PolylineVolume:
        return "PolylineVolumeGraphics";
    case Type::ParticleSystem:
        return "ParticleSystemGraphics";
    }
    return "GeometryGraphics";
}

void GeometryGraphics::setShadows(ShadowMode shadows) noexcept {
    detail::assignIfValid(common_.shadows, shadows);
}

void GeometryGraphics::setHeightReference(HeightReference heightReference) noexcept {
    detail::assignIfValid(common_.heightReference, heightReference);
}

void GeometryGraphics::setClassificationType(
    const std::optional<ClassificationType>& type) noexcept {
    if (!type) {
        common_.classificationType.reset();
    } else if (isValid(*type)) {
        common_.classificationType = type;
    }
}

void GeometryGraphics::setDistanceDisplayCondition(
    const std::optional<DistanceDisplayCondition>& condition) noexcept {
    common_.distanceDisplayCondition = condition;
}

void GeometryGraphics::setMaterial(std::shared_ptr<MaterialProperty> material) noexcept {
    common_.material = std::move(material);
}

void GeometryGraphics::describe(FieldList& fields, const TimePoint& /*time*/) const {
    detail::addField(fields, "show", common_.show);
    detail::addField(fields, "shadows", common_.shadows);
    detail::addField(fields, "heightReference", common_.heightReference);
    detail::addField(fields, "classificationType", common_.classificationType);
    detail::addField(fields, "distanceDisplayCondition", common_.distanceDisplayCondition);
    fields.addJson("material", detail::describeObject(common_.material.get()));
}

} // namespace keo
