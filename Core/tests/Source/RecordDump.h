#pragma once

#include "Source/Record.h"
#include "Source/RecordSet.h"
#include "Source/Value.h"

#include "Common/Cartographic.h"
#include "Common/Math.h"

#include <cstdio>
#include <map>
#include <string>

namespace keo::Source::test {

/** @p position as "(lon lat h)" in degrees and metres, with every digit of the doubles. */
inline std::string dump(const Cartographic& position) {
    char text[96];
    std::snprintf(text, sizeof text, "(%.17g %.17g %.17g)",
                  position.longitude.value() * 180.0 / keo::Math::PI,
                  position.latitude.value() * 180.0 / keo::Math::PI, position.height);
    return text;
}

inline std::string dump(const std::vector<Cartographic>& positions) {
    std::string text = "[";
    for (const Cartographic& position : positions) {
        text += dump(position);
    }
    return text + "]";
}

inline std::string dump(const PolygonRings& polygon) {
    std::string text = "{" + dump(polygon.positions);
    for (const PolygonRings& hole : polygon.holes) {
        text += " hole " + dump(hole);
    }
    return text + "}";
}

/** The geometry as text: kind, multi flag and every part. */
inline std::string dump(const RecordGeometry& geometry) {
    static const char* const KINDS[] = {"point", "line", "polygon"};
    std::string text = std::string(KINDS[static_cast<int>(geometry.kind)]) +
                       (geometry.multi ? " multi" : "") + ":";
    for (const Cartographic& point : geometry.points) {
        text += " " + dump(point);
    }
    for (const auto& line : geometry.lines) {
        text += " " + dump(line);
    }
    for (const PolygonRings& polygon : geometry.polygons) {
        text += " " + dump(polygon);
    }
    return text;
}

/** The attributes as text, sorted by name: name=tag:value. */
inline std::string dump(const keo::Feature::Feature::AttributeMap& attributes) {
    std::map<std::string, std::string> sorted;
    for (const auto& [name, value] : attributes) {
        sorted[name] = std::to_string(value.type) + ":" + Value::fromAttribute(value).describe();
    }
    std::string text;
    for (const auto& [name, value] : sorted) {
        text += name + "=" + value + " ";
    }
    return text;
}

/** The record as text; with @p withId its id too. */
inline std::string dump(const Record& record, bool withId = true) {
    std::string text = "#" + std::to_string(record.index);
    if (withId) {
        text += record.id ? " id " + std::to_string(*record.id) : " no id";
    }
    return text + " name \"" + record.name + "\" " + dump(record.geometry) + " | " +
           dump(record.attributes);
}

/** Every record of @p set as text, one per line; with @p withId their ids too. */
inline std::string dump(const RecordSet& set, bool withId = true) {
    std::string text;
    for (const Record& record : set.records) {
        text += dump(record, withId) + "\n";
    }
    return text;
}

} // namespace keo::Source::test
