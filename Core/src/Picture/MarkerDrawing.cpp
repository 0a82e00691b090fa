// The kinds drawn at the entity's position, facing the camera: points, billboards and labels.
#include "Drawing.h"

#include "Data/BillboardGraphics.h"
#include "Data/Image.h"
#include "Data/LabelGraphics.h"
#include "Data/PointGraphics.h"

#include <string>
#include <variant>

namespace keo::Picture::detail {

namespace {

Point2 offsetBy(const ScreenPoint& point, const Vector2<float>& offset) noexcept {
    // Offsets count y upwards; the picture counts it downwards.
    return {point.x + static_cast<double>(offset.x), point.y - static_cast<double>(offset.y)};
}

std::optional<double> size(const std::optional<float>& value) {
    return value ? std::optional<double>(static_cast<double>(*value)) : std::nullopt;
}

} // namespace

bool drawPoint(const Subject& subject, DrawContext& context) {
    const auto& point = static_cast<const PointGraphics&>(*subject.graphics);
    const auto at = projectAnchor(subject, context);
    if (!at || !(point.getPixelSize() > 0.0f || point.getOutlineWidth() > 0.0f)) {
        return false;
    }
    DotShape dot;
    dot.centre = {at->x, at->y};
    dot.diameter = static_cast<double>(point.getPixelSize());
    dot.color = point.getColor();
    dot.outline = point.getOutlineColor();
    dot.outlineWidth = static_cast<double>(point.getOutlineWidth());
    context.list.add(Layer::Markers, at->depth, dot);
    return true;
}

bool drawBillboard(const Subject& subject, DrawContext& context) {
    const auto& billboard = static_cast<const BillboardGraphics&>(*subject.graphics);
    const auto at = projectAnchor(subject, context);
    const auto* uri = std::get_if<std::string>(&billboard.getImage());
    const auto* image = std::get_if<std::shared_ptr<Image>>(&billboard.getImage());
    const bool hasImage = uri != nullptr ? !uri->empty() : (image != nullptr && *image);
    if (!at || !hasImage || !(billboard.getScale() > 0.0f)) {
        return false;
    }
    ImageShape shape;
    shape.anchor = offsetBy(*at, billboard.getPixelOffset());
    shape.width = size(billboard.getWidth());
    shape.height = size(billboard.getHeight());
    shape.scale = static_cast<double>(billboard.getScale());
    shape.horizontal = billboard.getHorizontalOrigin();
    shape.vertical = billboard.getVerticalOrigin();
    shape.tint = billboard.getColor();
    if (uri != nullptr) {
        shape.uri = *uri;
    } else {
        shape.image = image->get();
    }
    context.list.add(Layer::Markers, at->depth, std::move(shape));
    return true;
}

bool drawLabel(const Subject& subject, DrawContext& context) {
    const auto& label = static_cast<const LabelGraphics&>(*subject.graphics);
    const auto at = projectAnchor(subject, context);
    if (!at || label.getText().empty() || !(label.getFontSize() * label.getScale() > 0.0f)) {
        return false;
    }
    context.list.add(Layer::Labels, at->depth, TextShape{{at->x, at->y}, &label});
    return true;
}

} // namespace keo::Picture::detail
