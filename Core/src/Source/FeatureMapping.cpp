#include "FeatureMapping.h"

#include "Feature/BillboardSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <string>

namespace keo::Source::detail {

namespace {

using keo::Feature::BillboardSymbol;
using keo::Feature::LabelSymbol;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;

// The symbol held by a slot of style, made and installed first when the slot is empty.
template <typename Symbol, typename Get, typename Set>
Symbol& symbolOf(Get&& get, Set&& set) {
    if (get() == nullptr) {
        set(std::make_shared<Symbol>());
    }
    return *get();
}

void applyLabel(const std::optional<ResolvedLabel>& resolved, keo::Feature::Feature& feature,
                keo::Feature::Style& style) {
    if (!resolved) {
        style.setLabelSymbol(nullptr);
        feature.setLabelText({});
        return;
    }
    LabelSymbol& label = symbolOf<LabelSymbol>([&] { return style.getLabelSymbol(); },
                                               [&](auto symbol) { style.setLabelSymbol(symbol); });
    label.setFont(resolved->font);
    label.setSize(resolved->size);
    label.setFillColor(resolved->color);
    label.setOutlineColor(resolved->outlineColor);
    label.setOutlineWidth(resolved->outlineWidth);
    label.setPixelOffset(resolved->offset);
    // Without a text of its own the label shows the feature's name; a text that resolves to
    // nothing shows no label.
    label.setEnabled(!resolved->text || !resolved->text->empty());
    feature.setLabelText(resolved->text.value_or(std::string()));
}

void applyPointStyle(const ResolvedPointStyle& resolved, PointStyle& style) {
    PointSymbol& dot = symbolOf<PointSymbol>([&] { return style.getPointSymbol(); },
                                             [&](auto symbol) { style.setPointSymbol(symbol); });
    dot.setColor(resolved.color);
    dot.setPixelSize(resolved.size);
    dot.setOutlineColor(resolved.outlineColor);
    dot.setOutlineWidth(resolved.outlineWidth);
    if (resolved.image.empty()) {
        style.setBillboardSymbol(nullptr);
        return;
    }
    BillboardSymbol& image =
        symbolOf<BillboardSymbol>([&] { return style.getBillboardSymbol(); },
                                  [&](auto symbol) { style.setBillboardSymbol(symbol); });
    image.setImage(resolved.image);
    image.setScale(resolved.imageScale);
}

// The symbols of the style's own kind. The line and polygon styles take theirs here (the line
// width and material, the fill, outline and extrusion) once keoFeature has their classes.
void applyKindStyle(const ResolvedStyle& resolved, keo::Feature::Style& style) {
    if (PointStyle* point = style.asPointStyle(); point != nullptr && resolved.point) {
        applyPointStyle(*resolved.point, *point);
    }
}

} // namespace

MappedFeature mapRecord(const RecordGeometry& geometry) {
    if (geometry.multi) {
        return mapMulti(geometry);
    }
    switch (geometry.kind) {
    case GeometryKind::Point:
        return mapPoint(geometry);
    case GeometryKind::Line:
        return mapPolyline(geometry);
    case GeometryKind::Polygon:
        return mapPolygon(geometry);
    }
    return {};
}

MappedFeature mapPoint(const RecordGeometry& geometry) {
    if (geometry.points.empty()) {
        return {};
    }
    return {std::make_shared<keo::Feature::PointGeometry>(geometry.points.front()),
            std::make_shared<PointStyle>()};
}

MappedFeature mapPolyline(const RecordGeometry&) {
    return {};
}

MappedFeature mapPolygon(const RecordGeometry&) {
    return {};
}

MappedFeature mapMulti(const RecordGeometry&) {
    return {};
}

void applyStyle(const ResolvedStyle& resolved, keo::Feature::Feature& feature,
                keo::Feature::Style& style) {
    feature.setShow(resolved.visible);
    feature.setDistanceDisplayCondition(resolved.distanceDisplayCondition);
    style.setHeightReference(resolved.heightReference);
    applyLabel(resolved.label, feature, style);
    applyKindStyle(resolved, style);
}

} // namespace keo::Source::detail
