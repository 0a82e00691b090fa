#include "Data/WallGraphics.h"

#include "GraphicsSupport.h"

#include <utility>

namespace keo {

WallGraphics::WallGraphics()
    : WallGraphics(ConstructorOptions()) {}

WallGraphics::WallGraphics(const ConstructorOptions& options)
    : FilledGeometryGraphics(Type::Wall, options, options)
    , fields_(options) {}

WallGraphics::~WallGraphics() = default;

void WallGraphics::setPositions(std::vector<Vector3<double>> positions) noexcept {
    fields_.positions = std::move(positions);
}

void WallGraphics::setMinimumHeights(std::vector<double> heights) noexcept {
    fields_.minimumHeights = std::move(heights);
}

void WallGraphics::setMaximumHeights(std::vector<double> heights) noexcept {
    fields_.maximumHeights = std::move(heights);
}

void WallGraphics::describe(FieldList& fields, const TimePoint& time) const {
    FilledGeometryGraphics::describe(fields, time);
    detail::addField(fields, "positions", fields_.positions);
    detail::addField(fields, "minimumHeights", fields_.minimumHeights);
    detail::addField(fields, "maximumHeights", fields_.maximumHeights);
}

} // namespace keo
