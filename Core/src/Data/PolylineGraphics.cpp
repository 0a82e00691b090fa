#include "Data/PolylineGraphics.h"

#include "Data/ColorMaterialProperty.h"
#include "Data/ConstantPositionArrayProperty.h"
#include "GraphicsSupport.h"

#include <algorithm>
#include <utility>

namespace keo {

PolylineGraphics::PolylineGraphics()
    : PolylineGraphics(ConstructorOptions()) {}

PolylineGraphics::PolylineGraphics(const ConstructorOptions& options)
    : GeometryGraphics(Type::Polyline, options) {
    setPositions(options.positions);
    setWidth(options.width);
    setClampToGround(options.clampToGround);
    setShadowVolumeHeightScale(options.shadowVolumeHeightScale);
    setPixelOffsets(options.pixelOffsets);
}

PolylineGraphics::~PolylineGraphics() = default;

std::shared_ptr<MaterialProperty> PolylineGraphics::getDefaultMaterial() {
    return std::make_shared<ColorMaterialProperty>(Color(1.0f, 1.0f, 1.0f, 1.0f));
}

void PolylineGraphics::setPositions(std::shared_ptr<PositionArrayProperty> positions) noexcept {
    fields_.positions = std::move(positions);
}

void PolylineGraphics::setPositions(std::vector<Vector3<double>> points) {
    fields_.positions = std::make_shared<ConstantPositionArrayProperty>(std::move(points));
}

std::vector<Vector3<double>> PolylineGraphics::getPositionValues(const TimePoint& time) const {
    return fields_.positions ? fields_.positions->getValues(time) : std::vector<Vector3<double>>();
}

void PolylineGraphics::setWidth(float width) noexcept {
    detail::assignNonNegative(fields_.width, width);
}

void PolylineGraphics::setShadowVolumeHeightScale(double scale) noexcept {
    detail::assignNonNegative(fields_.shadowVolumeHeightScale, scale);
}

void PolylineGraphics::setPixelOffsets(std::vector<Vector2<float>> offsets) {
    offsets.erase(
        std::remove_if(offsets.begin(), offsets.end(),
                       [](const Vector2<float>& offset) { return detail::isNan(offset); }),
        offsets.end());
    fields_.pixelOffsets = std::move(offsets);
}

void PolylineGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    if (fields_.positions) {
        detail::addField(fields, "positions", fields_.positions->getValues(time));
        detail::addField(fields, "positionsConstant", fields_.positions->isConstant());
    } else {
        fields.addNull("positions");
        fields.addNull("positionsConstant");
    }
    detail::addField(fields, "width", fields_.width);
    detail::addField(fields, "clampToGround", fields_.clampToGround);
    detail::addField(fields, "shadowVolumeHeightScale", fields_.shadowVolumeHeightScale);
    detail::addField(fields, "pixelOffsets", fields_.pixelOffsets);
}

} // namespace keo
