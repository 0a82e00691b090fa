#include "Data/SceneDump.h"

#include "Data/Entity.h"
#include "Data/FieldList.h"
#include "Data/GeometryGraphics.h"
#include "Data/OrientationProperty.h"
#include "Data/PositionProperty.h"
#include "GraphicsSupport.h"

#include <cstddef>
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

std::string SceneDump::toJson(const Entity& root, const TimePoint& time) {
    std::string out;
    // An entity at depth d sits in its parent's "children" array: two levels per generation.
    const auto indentOf = [](std::size_t depth) { return depth * 4; };
    const auto writeField = [&out](std::size_t indent, const std::string& name,
                                   const std::string& json, bool last) {
        out += pad(indent) + FieldList::quote(name) + ": " + json + (last ? "\n" : ",\n");
    };
    walk(
        root,
        [&](const Entity& entity, std::size_t depth) {
            const std::size_t indent = indentOf(depth);
            out += pad(indent) + "{\n";
            writeField(indent + 2, "name", FieldList::quote(entity.getName()), false);
            const FieldList own = entityFields(entity, time);
            for (const auto& [name, json] : own.entries()) {
                writeField(indent + 2, name, json, false);
            }
            const FieldList graphics = graphicsFields(entity, time);
            if (graphics.entries().empty()) {
                writeField(indent + 2, "graphics", "null", false);
            } else {
                out += pad(indent + 2) + "\"graphics\": {\n";
                const auto& entries = graphics.entries();
                for (std::size_t i = 0; i < entries.size(); ++i) {
                    writeField(indent + 4, entries[i].first, entries[i].second,
                               i + 1 == entries.size());
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

std::string SceneDump::toText(const Entity& root, const TimePoint& time) {
    std::string out;
    walk(
        root,
        [&](const Entity& entity, std::size_t depth) {
            const std::size_t indent = depth * 2;
            out += pad(indent) + "Entity " + FieldList::quote(entity.getName()) + "\n";
            const FieldList own = entityFields(entity, time);
            for (const auto& [name, json] : own.entries()) {
                out += pad(indent + 2) + name + ": " + json + "\n";
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
                    out += pad(indent + 4) + entries[i].first + ": " + entries[i].second + "\n";
                }
            }
            out +=
                pad(indent + 2) + "children: " + std::to_string(entity.getChildren().size()) + "\n";
        },
        [](bool) {}, [](const Entity&, std::size_t) {});
    return out;
}

} // namespace keo
