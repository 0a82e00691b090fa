#include "Data/PolygonGraphics.h"

#include "GraphicsSupport.h"

#include <utility>

namespace keo {

PolygonGraphics::PolygonGraphics()
    : PolygonGraphics(ConstructorOptions()) {}

PolygonGraphics::PolygonGraphics(const ConstructorOptions& options)
    : GroundGeometryGraphics(Type::Polygon, options, options, options) {
    setHierarchy(options.hierarchy);
    setPerPositionHeight(options.perPositionHeight);
    setShadowVolumeHeightScale(options.shadowVolumeHeightScale);
}

PolygonGraphics::~PolygonGraphics() = default;

namespace {

bool isEmpty(const PolygonHierarchy& hierarchy) noexcept {
    return hierarchy.positions.empty() && hierarchy.holes.empty();
}

// Every empty polygon shares one empty hierarchy: a default polygon allocates nothing for it.
const std::shared_ptr<const PolygonHierarchy>& emptyHierarchy() {
    static const auto EMPTY = std::make_shared<const PolygonHierarchy>();
    return EMPTY;
}

} // namespace

void PolygonGraphics::setHierarchy(PolygonHierarchy hierarchy) {
    if (isEmpty(hierarchy)) {
        hierarchy_ = emptyHierarchy();
    } else {
        hierarchy_ = std::make_shared<const PolygonHierarchy>(std::move(hierarchy));
    }
}

void PolygonGraphics::setHierarchy(std::shared_ptr<const PolygonHierarchy> hierarchy) {
    if (hierarchy == nullptr || isEmpty(*hierarchy)) {
        hierarchy_ = emptyHierarchy();
    } else {
        hierarchy_ = std::move(hierarchy);
    }
}

void PolygonGraphics::setShadowVolumeHeightScale(double scale) noexcept {
    detail::assignNonNegative(shadowVolumeHeightScale_, scale);
}

void PolygonGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GroundGeometryGraphics::describe(fields, time);
    detail::addField(fields, "hierarchy", *hierarchy_);
    detail::addField(fields, "perPositionHeight", perPositionHeight_);
    detail::addField(fields, "shadowVolumeHeightScale", shadowVolumeHeightScale_);
}

} // namespace keo
