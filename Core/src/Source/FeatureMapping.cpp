#include "FeatureMapping.h"

#include "Feature/BillboardSymbol.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/MultiGeometry.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolygonGeometry.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"

#include <string>
#include <utility>
#include <vector>

namespace keo::Source::detail {

namespace {

using keo::Feature::BillboardSymbol;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::LineDashMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::Material;
using keo::Feature::MultiGeometry;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;
using keo::Feature::PolygonGeometry;
using keo::Feature::PolygonStyle;
using keo::Feature::PolygonSymbol;
using keo::Feature::PolylineStyle;

// ---- geometries --------------------------------------------------------------------------------

PolygonGeometry::Hierarchy hierarchyOf(const PolygonRings& rings) {
    PolygonGeometry::Hierarchy hierarchy;
    hierarchy.positions = rings.positions;
    hierarchy.holes.reserve(rings.holes.size());
    for (const PolygonRings& hole : rings.holes) {
        hierarchy.holes.push_back(hierarchyOf(hole));
    }
    return hierarchy;
}

// The geometry of each part of the record's kind, in order.
std::vector<std::shared_ptr<Geometry>> partsOf(const RecordGeometry& geometry) {
    std::vector<std::shared_ptr<Geometry>> parts;
    parts.reserve(geometry.partCount());
    switch (geometry.kind) {
    case GeometryKind::Point:
        for (const Cartographic& point : geometry.points) {
            parts.push_back(std::make_shared<keo::Feature::PointGeometry>(point));
        }
        break;
    case GeometryKind::Line:
        for (const auto& line : geometry.lines) {
            parts.push_back(std::make_shared<keo::Feature::PolylineGeometry>(line));
        }
        break;
    case GeometryKind::Polygon:
        for (const PolygonRings& polygon : geometry.polygons) {
            parts.push_back(std::make_shared<PolygonGeometry>(hierarchyOf(polygon)));
        }
        break;
    }
    return parts;
}

std::shared_ptr<keo::Feature::Style> styleFor(GeometryKind kind) {
    switch (kind) {
    case GeometryKind::Point:
        return std::make_shared<PointStyle>();
    case GeometryKind::Line:
        return std::make_shared<PolylineStyle>();
    case GeometryKind::Polygon:
        return std::make_shared<PolygonStyle>();
    }
    return nullptr;
}

void raiseRings(PolygonGeometry::Hierarchy& hierarchy, double delta) {
    for (Cartographic& position : hierarchy.positions) {
        position.height += delta;
    }
    for (PolygonGeometry::Hierarchy& hole : hierarchy.holes) {
        raiseRings(hole, delta);
    }
}

// Adds @p delta metres to the height of every ring of every polygon of @p geometry.
void raisePolygons(Geometry& geometry, double delta) {
    if (geometry.getType() == Geometry::Type::Polygon) {
        auto& polygon = static_cast<PolygonGeometry&>(geometry);
        PolygonGeometry::Hierarchy raised = polygon.getHierarchy();
        raiseRings(raised, delta);
        polygon.setHierarchy(raised);
    } else if (geometry.getType() == Geometry::Type::Multi) {
        for (const auto& component : static_cast<MultiGeometry&>(geometry).getComponents()) {
            if (component != nullptr) {
                raisePolygons(*component, delta);
            }
        }
    }
}

// ---- symbols and materials ---------------------------------------------------------------------

// The symbol a slot holds (@p current), or a new one installed through @p install when the slot
// holds none.
template <typename Held, typename Install>
Held& symbolIn(const std::shared_ptr<Held>& current, Install&& install) {
    if (current != nullptr) {
        return *current;
    }
    auto made = std::make_shared<Held>();
    Held& held = *made;
    install(std::move(made));
    return held;
}

// Paints @p holder (a line or a polygon symbol) with one colour: its ColorMaterial recoloured,
// or a new one.
template <typename Holder>
void applyColor(const keo::Color& color, Holder& holder) {
    const std::shared_ptr<Material>& held = holder.getMaterial();
    if (held != nullptr && held->getType() == Material::Type::Color) {
        static_cast<ColorMaterial&>(*held).setColor(color);
        return;
    }
    holder.setMaterial(std::make_shared<ColorMaterial>(color));
}

// Paints @p holder with @p resolved: a solid colour, or dashes; the material held is edited when
// it is of the kind asked for, replaced otherwise.
template <typename Holder>
void applyMaterial(const ResolvedMaterial& resolved, Holder& holder) {
    if (resolved.kind == ResolvedMaterial::Kind::Solid) {
        applyColor(resolved.color, holder);
        return;
    }
    const std::shared_ptr<Material>& held = holder.getMaterial();
    if (held == nullptr || held->getType() != Material::Type::LineDash) {
        holder.setMaterial(std::make_shared<LineDashMaterial>(
            resolved.color, resolved.gapColor, resolved.dashPattern, resolved.dashLength));
        return;
    }
    auto& dash = static_cast<LineDashMaterial&>(*held);
    dash.setColor(resolved.color);
    dash.setGapColor(resolved.gapColor);
    dash.setDashPattern(resolved.dashPattern);
    dash.setDashLength(resolved.dashLength);
}

// The label's look (PART_LABEL) and text (PART_LABEL_TEXT); no label for a rule without one.
void applyLabel(const std::optional<ResolvedLabel>& resolved, keo::Feature::Feature& feature,
                keo::Feature::Style& style, StyleParts parts) {
    if (!resolved) {
        style.setLabelSymbol(nullptr);
        feature.setLabelText({});
        return;
    }
    LabelSymbol& label = symbolIn<LabelSymbol>(style.getLabelSymbol(),
                                               [&](auto symbol) { style.setLabelSymbol(symbol); });
    if ((parts & PART_LABEL) != 0) {
        label.setFont(resolved->font);
        label.setSize(resolved->size);
        label.setFillColor(resolved->color);
        label.setOutlineColor(resolved->outlineColor);
        label.setOutlineWidth(resolved->outlineWidth);
        label.setPixelOffset(resolved->offset);
    }
    if ((parts & PART_LABEL_TEXT) != 0) {
        // Without a text of its own the label shows the feature's name; a text that resolves to
        // nothing shows no label.
        label.setEnabled(!resolved->text || !resolved->text->empty());
        feature.setLabelText(resolved->text.value_or(std::string()));
    }
}

void applyPointStyle(const ResolvedPointStyle& resolved, PointStyle& style) {
    PointSymbol& dot = symbolIn<PointSymbol>(style.getPointSymbol(),
                                             [&](auto symbol) { style.setPointSymbol(symbol); });
    dot.setColor(resolved.color);
    dot.setPixelSize(resolved.size);
    dot.setOutlineColor(resolved.outlineColor);
    dot.setOutlineWidth(resolved.outlineWidth);
    if (resolved.image.empty()) {
        style.setBillboardSymbol(nullptr);
        return;
    }
    BillboardSymbol& image = symbolIn<BillboardSymbol>(
        style.getBillboardSymbol(), [&](auto symbol) { style.setBillboardSymbol(symbol); });
    image.setImage(resolved.image);
    image.setScale(resolved.imageScale);
}

void applyPolylineStyle(const ResolvedPolylineStyle& resolved, PolylineStyle& style) {
    LineSymbol& line = symbolIn<LineSymbol>(style.getLineSymbol(),
                                            [&](auto symbol) { style.setLineSymbol(symbol); });
    line.setWidth(resolved.width);
    applyMaterial(resolved.material, line);
}

// The surface: filled (PART_FILL) and outlined (PART_OUTLINE) as the rule says; hidden (no area,
// no outline) for a rule that gives the polygon only an extrusion.
void applySurface(const std::optional<ResolvedPolygonStyle>& resolved, PolygonStyle& style,
                  StyleParts parts) {
    PolygonSymbol& surface = symbolIn<PolygonSymbol>(
        style.getPolygonSymbol(), [&](auto symbol) { style.setPolygonSymbol(symbol); });
    surface.setEnabled(resolved.has_value());
    if (!resolved) {
        return;
    }
    if ((parts & PART_FILL) != 0) {
        surface.setFill(resolved->filled);
        applyMaterial(resolved->fill, surface);
    }
    if ((parts & PART_OUTLINE) == 0) {
        return;
    }
    if (!resolved->outline) {
        surface.setOutLineSymbol(nullptr);
        return;
    }
    LineSymbol& outline = symbolIn<LineSymbol>(
        surface.getOutLineSymbol(), [&](auto symbol) { surface.setOutLineSymbol(symbol); });
    outline.setWidth(resolved->outlineWidth);
    applyColor(resolved->outlineColor, outline);
}

// The extrusion: raised from the rings (which stand on the base) by the height above the base
// (PART_EXTRUSION); a wall and a roof, both drawn by one PolygonSymbol of the material
// (PART_EXTRUSION_MATERIAL).
void applyExtrusion(const std::optional<ResolvedExtrusionStyle>& resolved, PolygonStyle& style,
                    StyleParts parts) {
    if (!resolved) {
        style.setExtrusionSymbol(nullptr);
        return;
    }
    ExtrusionSymbol& extrusion = symbolIn<ExtrusionSymbol>(
        style.getExtrusionSymbol(), [&](auto symbol) { style.setExtrusionSymbol(symbol); });
    if ((parts & PART_EXTRUSION) != 0) {
        extrusion.setHeightReference(ExtrusionSymbol::HeightReference::Relative);
        extrusion.setHeight(resolved->height - resolved->base);
    }
    if ((parts & PART_EXTRUSION_MATERIAL) == 0) {
        return;
    }
    const std::shared_ptr<keo::Feature::Symbol>& body = extrusion.getBodySymbol();
    if (body == nullptr || body->getType() != keo::Feature::Symbol::Type::Polygon ||
        extrusion.getTailSymbol() != body) {
        auto surface = std::make_shared<PolygonSymbol>();
        extrusion.setBodySymbol(surface);
        extrusion.setTailSymbol(surface);
    }
    applyMaterial(resolved->material, static_cast<PolygonSymbol&>(*extrusion.getBodySymbol()));
}

// The symbols of the style's own kind: the parts @p parts names of them.
void applyKindStyle(const ResolvedStyle& resolved, keo::Feature::Style& style, StyleParts parts) {
    if (PointStyle* point = style.asPointStyle(); point != nullptr) {
        if ((parts & PART_POINT) != 0 && resolved.point) {
            applyPointStyle(*resolved.point, *point);
        }
    } else if (PolylineStyle* line = style.asPolylineStyle(); line != nullptr) {
        if ((parts & PART_LINE) != 0 && resolved.polyline) {
            applyPolylineStyle(*resolved.polyline, *line);
        }
    } else if (PolygonStyle* polygon = style.asPolygonStyle(); polygon != nullptr) {
        if ((parts & (PART_FILL | PART_OUTLINE)) != 0) {
            applySurface(resolved.polygon, *polygon, parts);
        }
        if ((parts & (PART_EXTRUSION | PART_EXTRUSION_MATERIAL)) != 0) {
            applyExtrusion(resolved.extrusion, *polygon, parts);
        }
    }
}

// Raises the polygon rings of @p objects to the extrusion base of @p resolved (0 without one).
void applyBase(const ResolvedStyle& resolved, FeatureObjects& objects) {
    const double base = resolved.extrusion ? resolved.extrusion->base : 0.0;
    if (base != objects.raisedBy && objects.geometry != nullptr) {
        raisePolygons(*objects.geometry, base - objects.raisedBy);
        objects.raisedBy = base;
    }
}

} // namespace

FeatureObjects mapRecord(const RecordGeometry& geometry) {
    std::vector<std::shared_ptr<Geometry>> parts = partsOf(geometry);
    if (parts.empty()) {
        return {};
    }
    FeatureObjects objects;
    objects.style = styleFor(geometry.kind);
    if (geometry.multi) {
        objects.geometry = std::make_shared<MultiGeometry>(std::move(parts));
    } else {
        objects.geometry = std::move(parts.front());
    }
    return objects;
}

void applyStyle(const ResolvedStyle& resolved, FeatureObjects& objects, StyleParts parts) {
    keo::Feature::Feature& feature = *objects.feature;
    keo::Feature::Style& style = *objects.style;
    if ((parts & PART_FEATURE) != 0) {
        feature.setShow(resolved.visible);
        feature.setDistanceDisplayCondition(resolved.distanceDisplayCondition);
        style.setHeightReference(resolved.heightReference);
    }
    if ((parts & (PART_LABEL | PART_LABEL_TEXT)) != 0) {
        applyLabel(resolved.label, feature, style, parts);
    }
    applyKindStyle(resolved, style, parts);
    if ((parts & PART_EXTRUSION) != 0) {
        applyBase(resolved, objects);
    }
}

} // namespace keo::Source::detail
