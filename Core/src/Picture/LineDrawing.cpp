// Polylines: through their positions, or through pixel offsets from the entity's position, painted
// as their material says (colour, dash, glow, outline or arrow).
#include "Drawing.h"

#include "Data/PolylineDashMaterialProperty.h"
#include "Data/PolylineGlowMaterialProperty.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineOutlineMaterialProperty.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace keo::Picture::detail {

namespace {

using MaterialType = MaterialProperty::Type;

// The on and off lengths of a 16-part dash pattern, starting with a dash (of length 0 when the
// pattern starts with a gap) and of even count, as the painter's dash array wants them.
std::vector<double> dashLengths(std::uint16_t pattern, double repeat) {
    const double part = repeat / 16.0;
    std::vector<double> lengths;
    const auto isOn = [pattern](unsigned bit) {
        return ((static_cast<unsigned>(pattern) >> bit) & 1u) != 0;
    };
    for (unsigned bit = 0; bit < 16; ++bit) {
        const bool on = isOn(bit);
        const bool expectOn = lengths.size() % 2 == 0;
        if (bit > 0 && on == isOn(bit - 1)) {
            lengths.back() += part;
            continue;
        }
        if (on != expectOn) {
            lengths.push_back(0.0);
        }
        lengths.push_back(part);
    }
    if (lengths.size() % 2 != 0) {
        lengths.push_back(0.0);
    }
    return lengths;
}

void applyDash(StrokeShape& shape, const PolylineDashMaterialProperty& dash) {
    const auto repeat = static_cast<double>(dash.getDashLength());
    if (!(repeat > 0.0) || !std::isfinite(repeat) || dash.getDashPattern() == 0xFFFF) {
        return;
    }
    shape.look = LineLook::Dash;
    shape.dashes = dashLengths(dash.getDashPattern(), repeat);
    shape.second = dash.getGapColor();
}

// The stroke of @p line at @p time, without its points.
StrokeShape lineStyle(const PolylineGraphics& line, const TimePoint& time) {
    StrokeShape shape;
    const MaterialProperty* material = line.getMaterial().get();
    shape.color = materialColor(material, time);
    shape.width = static_cast<double>(line.getWidth());
    if (material == nullptr) {
        return shape;
    }
    switch (material->getType()) {
    case MaterialType::PolylineDash:
        applyDash(shape, *material->asPolylineDashMaterialProperty());
        break;
    case MaterialType::PolylineGlow: {
        const float power = material->asPolylineGlowMaterialProperty()->getGlowPower();
        shape.look = LineLook::Glow;
        shape.amount = std::isnan(power) ? 0.0 : std::clamp(static_cast<double>(power), 0.0, 1.0);
        break;
    }
    case MaterialType::PolylineOutline: {
        const auto& outline = *material->asPolylineOutlineMaterialProperty();
        const auto width = static_cast<double>(outline.getOutlineWidth());
        shape.look = LineLook::Outline;
        shape.second = outline.getOutlineColor();
        shape.amount = width > 0.0 ? width : 0.0;
        break;
    }
    case MaterialType::PolylineArrow:
        shape.look = LineLook::Arrow;
        break;
    default:
        break;
    }
    return shape;
}

// A line in screen space: the entity's position on the picture, then each offset from it.
bool drawOffsetLine(const Subject& subject, const PolylineGraphics& line, StrokeShape shape,
                    DrawContext& context) {
    const auto at = projectAnchor(subject, context);
    if (!at || line.getPixelOffsets().size() < 2) {
        return false;
    }
    for (const auto& offset : line.getPixelOffsets()) {
        shape.points.push_back(
            {at->x + static_cast<double>(offset.x), at->y - static_cast<double>(offset.y)});
    }
    context.list.add(Layer::Lines, at->depth, std::move(shape));
    return true;
}

} // namespace

bool drawPolyline(const Subject& subject, DrawContext& context) {
    const auto& line = static_cast<const PolylineGraphics&>(*subject.graphics);
    if (!(line.getWidth() > 0.0f)) {
        return false;
    }
    StrokeShape style = lineStyle(line, context.time);
    if (!line.getPixelOffsets().empty()) {
        return drawOffsetLine(subject, line, std::move(style), context);
    }
    if (subject.rings.empty() || subject.rings.front().size() < 2) {
        return false;
    }
    bool drew = false;
    for (const auto& run :
         context.camera.projectLine(toLocal(subject.rings.front(), context.frame))) {
        StrokeShape shape = style;
        shape.points = flat(run);
        context.list.add(Layer::Lines, meanDepth(run), std::move(shape));
        drew = true;
    }
    return drew;
}

} // namespace keo::Picture::detail
