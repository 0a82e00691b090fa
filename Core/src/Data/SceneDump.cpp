#include "Data/SceneDump.h"

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/Entity.h"
#include "Data/FieldList.h"
#include "Data/GeometryGraphics.h"
#include "Data/OrientationProperty.h"
#include "Data/PositionProperty.h"
#include "GraphicsSupport.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace keo {

namespace {

std::string pad(std::size_t spaces) {
    return std::string(spaces, ' ');
}

// The entity's own fields, without its name (which each form writes its own way).
FieldList entityFields(const Entity& entity, const TimePoint& time) {
    FieldList fields;
    fields.add("show", entity.isShow());
    fields.add("asynchronous", entity._isAsynchronous());
    const auto& position = entity.getPosition();
    detail::addField(fields, "position",
                     position ? position->getValue(time) : std::optional<Vector3<double>>());
    const auto& orientation = entity.getOrientation();
    const std::optional<Quaternion> q =
        orientation ? orientation->getValue(time) : std::optional<Quaternion>();
    fields.addJson("orientation",
                   q ? detail::toJson(Vector4<double>(q->x, q->y, q->z, q->w)) : "null");
    return fields;
}

// Deeper below the ellipsoid than this, a position is no place on the globe (a test point near
// the Earth's centre, say): it gets no degrees.
constexpr double DEEPEST_PLACE = -100000.0;

// The entity's position on WGS84 at @p time, when it has one that is a place on the globe.
std::optional<Cartographic> cartographicOf(const Entity& entity, const TimePoint& time) {
    const auto& position = entity.getPosition();
    const std::optional<Vector3<double>> value =
        position ? position->getValue(time) : std::optional<Vector3<double>>();
    if (!value) {
        return std::nullopt;
    }
    const std::optional<Cartographic> place = Ellipsoid::WGS84.cartesianToCartographic(*value);
    return place && place->height >= DEEPEST_PLACE ? place : std::nullopt;
}

// @p value rounded to @p decimals places, without the minus sign of a value that rounds to 0.
double printable(double value, int decimals) {
    return std::abs(value) < 0.5 * std::pow(10.0, -decimals) ? 0.0 : value;
}

// The text beside a position: longitude and latitude in degrees, height in metres.
std::string cartographicText(const Cartographic& place) {
    char text[96];
    std::snprintf(text, sizeof text, " (longitude %.6f\u00b0, latitude %.6f\u00b0, height %.2f m)",
                  printable(Math::toDegrees(place.longitude.value()), 6),
                  printable(Math::toDegrees(place.latitude.value()), 6),
                  printable(place.height, 2));
    return text;
}

// @p value to @p decimals places (without a minus sign on 0), for numbers that a conversion
// leaves with noise in their last digits.
double rounded(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return printable(std::round(value * scale) / scale, decimals);
}

// The same as a JSON object: degrees to 1e-9 (a tenth of a millimetre), metres to millimetres.
std::string cartographicJson(const std::optional<Cartographic>& place) {
    if (!place) {
        return "null";
    }
    return "{\"longitude\": " +
           FieldList::number(rounded(Math::toDegrees(place->longitude.value()), 9)) +
           ", \"latitude\": " +
           FieldList::number(rounded(Math::toDegrees(place->latitude.value()), 9)) +
           ", \"height\": " + FieldList::number(rounded(place->height, 3)) + "}";
}

// How the root names its owner in text: ` of feature 1001 "Marker"`.
std::string ownerText(const std::optional<EntityOwner>& owner) {
    if (!owner) {
        return std::string();
    }
    return " of " + owner->kind + " " + std::to_string(owner->id) + " " +
           FieldList::quote(owner->name);
}

// The graphics component's fields after its "type"; empty when the entity has none.
FieldList graphicsFields(const Entity& entity, const TimePoint& time) {
    FieldList fields;
    if (const auto& graphics = entity.getGeometryGraphics()) {
        fields.add("type", graphics->getTypeName());
        graphics->describe(fields, time);
    }
    return fields;
}

// Walks the tree depth first without recursion: open() is called on entering an entity with its
// depth, separator() before each child after the first, close() after its last child.
template <typename Open, typename Separator, typename Close>
void walk(const Entity& root, Open open, Separator separator, Close close) {
    struct Frame {
        const Entity* entity;
        std::size_t next;
    };
    std::vector<Frame> stack{{&root, 0}};
    open(root, std::size_t{0});
    while (!stack.empty()) {
        Frame& frame = stack.back();
        const auto& children = frame.entity->getChildren();
        const std::size_t depth = stack.size() - 1;
        if (frame.next < children.size()) {
            const Entity& child = *children[frame.next];
            separator(frame.next == 0);
            ++frame.next;
            open(child, depth + 1);
            stack.push_back({&child, 0});
        } else {
            close(*frame.entity, depth);
            stack.pop_back();
        }
    }
}

} // namespace

std::string SceneDump::toJson(const Entity& root, const TimePoint& time,
                              const std::optional<EntityOwner>& owner) {
    std::string out;
    // An entity at depth d sits in its parent's "children" array: two levels per generation.
    const auto indentOf = [](std::size_t depth) { return depth * 4; };
    const auto writeField = [&out](std::size_t indent, const std::string& name,
                                   const std::string& json, bool last) {
        out += pad(indent) + FieldList::quote(name) + ": " + json + (last ? "\n" : ",\n");
    };
    // An entry, then the name of an enumeration's value as a further field.
    const auto writeEntry = [&writeField](std::size_t indent, const FieldList::Entry& entry,
                                          bool last) {
        if (entry.word.empty()) {
            writeField(indent, entry.name, entry.json, last);
            return;
        }
        writeField(indent, entry.name, entry.json, false);
        writeField(indent, entry.name + "Name", FieldList::quote(entry.word), last);
    };
    walk(
        root,
        [&](const Entity& entity, std::size_t depth) {
            const std::size_t indent = indentOf(depth);
            out += pad(indent) + "{\n";
            writeField(indent + 2, "name", FieldList::quote(entity.getName()), false);
            if (depth == 0 && owner) {
                writeField(indent + 2, "owner",
                           "{\"kind\": " + FieldList::quote(owner->kind) +
                               ", \"id\": " + std::to_string(owner->id) +
                               ", \"name\": " + FieldList::quote(owner->name) + "}",
                           false);
            }
            const FieldList own = entityFields(entity, time);
            for (const auto& entry : own.entries()) {
                writeEntry(indent + 2, entry, false);
                if (entry.name == "position") {
                    writeField(indent + 2, "positionCartographic",
                               cartographicJson(cartographicOf(entity, time)), false);
                }
            }
            const FieldList graphics = graphicsFields(entity, time);
            if (graphics.entries().empty()) {
                writeField(indent + 2, "graphics", "null", false);
            } else {
                out += pad(indent + 2) + "\"graphics\": {\n";
                const auto& entries = graphics.entries();
                for (std::size_t i = 0; i < entries.size(); ++i) {
                    writeEntry(indent + 4, entries[i], i + 1 == entries.size());
                }
                out += pad(indent + 2) + "},\n";
            }
            out += pad(indent + 2) + "\"children\": [";
        },
        [&](bool first) { out += first ? "\n" : ",\n"; },
        [&](const Entity& entity, std::size_t depth) {
            const std::size_t indent = indentOf(depth);
            if (!entity.getChildren().empty()) {
                out += "\n" + pad(indent + 2);
            }
            out += "]\n" + pad(indent) + "}";
        });
    out += "\n";
    return out;
}

std::string SceneDump::toText(const Entity& root, const TimePoint& time,
                              const std::optional<EntityOwner>& owner) {
    std::string out;
    // An entry's line: the name of an enumeration's value stands beside its number.
    const auto line = [&out](std::size_t indent, const FieldList::Entry& entry) {
        out += pad(indent) + entry.name + ": " + entry.json;
        if (!entry.word.empty()) {
            out += " (" + entry.word + ")";
        }
    };
    walk(
        root,
        [&](const Entity& entity, std::size_t depth) {
            const std::size_t indent = depth * 2;
            out += pad(indent) + "Entity " + FieldList::quote(entity.getName()) +
                   (depth == 0 ? ownerText(owner) : std::string()) + "\n";
            const FieldList own = entityFields(entity, time);
            for (const auto& entry : own.entries()) {
                line(indent + 2, entry);
                if (entry.name == "position") {
                    if (const auto place = cartographicOf(entity, time)) {
                        out += cartographicText(*place);
                    }
                }
                out += "\n";
            }
            const FieldList graphics = graphicsFields(entity, time);
            const auto& entries = graphics.entries();
            if (entries.empty()) {
                out += pad(indent + 2) + "graphics: null\n";
            } else {
                // The first entry is the class name, written on the "graphics" line itself.
                out += pad(indent + 2) +
                       "graphics: " + entity.getGeometryGraphics()->getTypeName() + "\n";
                for (std::size_t i = 1; i < entries.size(); ++i) {
                    line(indent + 4, entries[i]);
                    out += "\n";
                }
            }
            out +=
                pad(indent + 2) + "children: " + std::to_string(entity.getChildren().size()) + "\n";
        },
        [](bool) {}, [](const Entity&, std::size_t) {});
    return out;
}

} // namespace keo
