#include "StyleProperties.h"

#include "Common/Color.h"
#include "Data/HeightReference.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace keo::Source::detail {

namespace {

using Kind = ResolvedMaterial::Kind;

constexpr StaticType BOOLEAN = StaticType::Boolean;
constexpr StaticType NUMBER = StaticType::Number;
constexpr StaticType STRING = StaticType::String;
constexpr StaticType COLOR = StaticType::Color;
constexpr const char* A_BOOLEAN = "a boolean";
constexpr const char* A_NUMBER = "a number";
constexpr const char* A_STRING = "a string";
constexpr const char* A_COLOR = "a color";
constexpr const char* A_FINITE_NUMBER = "a finite number";
constexpr const char* A_HEIGHT_REFERENCE = "a height reference name";
constexpr const char* A_DASH_PATTERN = "a whole number from 0 to 65535";
constexpr double DASH_PATTERN_MAX = 65535.0;
constexpr std::uint16_t DEFAULT_DASH_PATTERN = 255;
constexpr double DEFAULT_DASH_LENGTH = 16.0;

const std::array<const char*, 7> HEIGHT_REFERENCE_NAMES{
    "absolute",          "clampToGround",  "relativeToGround",  "clampToTerrain",
    "relativeToTerrain", "clampTo3DTiles", "relativeTo3DTiles",
};

float toFloat(const Value& value) {
    return static_cast<float>(value.asNumber());
}

bool storeHeightReference(ResolvedStyle& style, const Value& value) {
    for (std::size_t i = 0; i < HEIGHT_REFERENCE_NAMES.size(); ++i) {
        if (value.asString() == HEIGHT_REFERENCE_NAMES[i]) {
            style.heightReference = static_cast<keo::HeightReference>(i);
            return true;
        }
    }
    return false;
}

// Heights become positions: a NaN or an infinity would spoil the rings for good.
bool storeFinite(double& field, const Value& value) {
    if (!std::isfinite(value.asNumber())) {
        return false;
    }
    field = value.asNumber();
    return true;
}

bool dashPatternFits(const Value& value) {
    const double pattern = value.asNumber();
    return pattern >= 0.0 && pattern <= DASH_PATTERN_MAX && std::floor(pattern) == pattern;
}

// The material properties of a material of kind reached through Access.
template <ResolvedMaterial& (*Access)(ResolvedStyle&), StyleParts Part>
const std::vector<PropertySpec>& materialProperties(Kind kind) {
    static const std::vector<PropertySpec> SOLID{
        {"color", COLOR, A_COLOR, Value(keo::Color::WHITE),
         [](ResolvedStyle& s, const Value& v) { return Access(s).color = v.asColor(), true; },
         Part},
    };
    static const std::vector<PropertySpec> DASH{
        SOLID[0],
        {"gapColor", COLOR, A_COLOR, Value(keo::Color::TRANSPARENT),
         [](ResolvedStyle& s, const Value& v) { return Access(s).gapColor = v.asColor(), true; },
         Part},
        {"dashPattern", NUMBER, A_DASH_PATTERN, Value(static_cast<double>(DEFAULT_DASH_PATTERN)),
         [](ResolvedStyle& s, const Value& v) {
             if (!dashPatternFits(v)) {
                 return false;
             }
             Access(s).dashPattern = static_cast<std::uint16_t>(v.asNumber());
             return true;
         },
         Part},
        {"dashLength", NUMBER, A_NUMBER, Value(DEFAULT_DASH_LENGTH),
         [](ResolvedStyle& s, const Value& v) { return Access(s).dashLength = toFloat(v), true; },
         Part},
    };
    return kind == Kind::Dash ? DASH : SOLID;
}

ResolvedMaterial& polylineMaterial(ResolvedStyle& style) {
    return style.polyline->material;
}

ResolvedMaterial& polygonFill(ResolvedStyle& style) {
    return style.polygon->fill;
}

ResolvedMaterial& extrusionMaterial(ResolvedStyle& style) {
    return style.extrusion->material;
}

} // namespace

const std::vector<PropertySpec>& ruleProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"visible", BOOLEAN, A_BOOLEAN, Value(true),
         [](ResolvedStyle& s, const Value& v) { return s.visible = v.asBoolean(), true; },
         PART_FEATURE},
        {"heightReference", STRING, A_HEIGHT_REFERENCE, Value("absolute"), storeHeightReference,
         PART_FEATURE},
    };
    return SPECS;
}

const std::vector<PropertySpec>& labelProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"text", STRING, A_STRING, Value(""),
         [](ResolvedStyle& s, const Value& v) { return s.label->text = v.asString(), true; },
         PART_LABEL_TEXT},
        {"font", STRING, A_STRING, Value(""),
         [](ResolvedStyle& s, const Value& v) { return s.label->font = v.asString(), true; },
         PART_LABEL},
        {"size", NUMBER, A_NUMBER, Value(12),
         [](ResolvedStyle& s, const Value& v) { return s.label->size = toFloat(v), true; },
         PART_LABEL},
        {"color", COLOR, A_COLOR, Value(keo::Color::WHITE),
         [](ResolvedStyle& s, const Value& v) { return s.label->color = v.asColor(), true; },
         PART_LABEL},
        {"outlineColor", COLOR, A_COLOR, Value(keo::Color::BLACK),
         [](ResolvedStyle& s, const Value& v) { return s.label->outlineColor = v.asColor(), true; },
         PART_LABEL},
        {"outlineWidth", NUMBER, A_NUMBER, Value(1),
         [](ResolvedStyle& s, const Value& v) { return s.label->outlineWidth = toFloat(v), true; },
         PART_LABEL},
    };
    return SPECS;
}

const std::vector<PropertySpec>& labelOffsetProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"0", NUMBER, A_NUMBER, Value(0),
         [](ResolvedStyle& s, const Value& v) { return s.label->offset.x = toFloat(v), true; },
         PART_LABEL},
        {"1", NUMBER, A_NUMBER, Value(0),
         [](ResolvedStyle& s, const Value& v) { return s.label->offset.y = toFloat(v), true; },
         PART_LABEL},
    };
    return SPECS;
}

const std::vector<PropertySpec>& distanceProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"0", NUMBER, A_NUMBER, Value(0),
         [](ResolvedStyle& s, const Value& v) {
             return s.distanceDisplayCondition->setNear(toFloat(v)), true;
         },
         PART_FEATURE},
        {"1", NUMBER, A_NUMBER, Value(static_cast<double>(std::numeric_limits<float>::max())),
         [](ResolvedStyle& s, const Value& v) {
             return s.distanceDisplayCondition->setFar(toFloat(v)), true;
         },
         PART_FEATURE},
    };
    return SPECS;
}

const std::vector<PropertySpec>& pointProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"color", COLOR, A_COLOR, Value(keo::Color::WHITE),
         [](ResolvedStyle& s, const Value& v) { return s.point->color = v.asColor(), true; },
         PART_POINT},
        {"size", NUMBER, A_NUMBER, Value(8),
         [](ResolvedStyle& s, const Value& v) { return s.point->size = toFloat(v), true; },
         PART_POINT},
        {"outlineColor", COLOR, A_COLOR, Value(keo::Color::BLACK),
         [](ResolvedStyle& s, const Value& v) { return s.point->outlineColor = v.asColor(), true; },
         PART_POINT},
        {"outlineWidth", NUMBER, A_NUMBER, Value(1),
         [](ResolvedStyle& s, const Value& v) { return s.point->outlineWidth = toFloat(v), true; },
         PART_POINT},
        {"image", STRING, A_STRING, Value(""),
         [](ResolvedStyle& s, const Value& v) { return s.point->image = v.asString(), true; },
         PART_POINT},
        {"imageScale", NUMBER, A_NUMBER, Value(1),
         [](ResolvedStyle& s, const Value& v) { return s.point->imageScale = toFloat(v), true; },
         PART_POINT},
    };
    return SPECS;
}

const std::vector<PropertySpec>& polylineProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"width", NUMBER, A_NUMBER, Value(2),
         [](ResolvedStyle& s, const Value& v) { return s.polyline->width = toFloat(v), true; },
         PART_LINE},
    };
    return SPECS;
}

const std::vector<PropertySpec>& polygonProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"filled", BOOLEAN, A_BOOLEAN, Value(true),
         [](ResolvedStyle& s, const Value& v) { return s.polygon->filled = v.asBoolean(), true; },
         PART_FILL},
        {"outline", BOOLEAN, A_BOOLEAN, Value(true),
         [](ResolvedStyle& s, const Value& v) { return s.polygon->outline = v.asBoolean(), true; },
         PART_OUTLINE},
        {"outlineColor", COLOR, A_COLOR, Value(keo::Color::BLACK),
         [](ResolvedStyle& s, const Value& v) {
             return s.polygon->outlineColor = v.asColor(), true;
         },
         PART_OUTLINE},
        {"outlineWidth", NUMBER, A_NUMBER, Value(1),
         [](ResolvedStyle& s, const Value& v) {
             return s.polygon->outlineWidth = toFloat(v), true;
         },
         PART_OUTLINE},
    };
    return SPECS;
}

const std::vector<PropertySpec>& extrusionProperties() {
    static const std::vector<PropertySpec> SPECS{
        {"height", NUMBER, A_FINITE_NUMBER, Value(0),
         [](ResolvedStyle& s, const Value& v) { return storeFinite(s.extrusion->height, v); },
         PART_EXTRUSION},
        {"base", NUMBER, A_FINITE_NUMBER, Value(0),
         [](ResolvedStyle& s, const Value& v) { return storeFinite(s.extrusion->base, v); },
         PART_EXTRUSION},
    };
    return SPECS;
}

const std::vector<PropertySpec>& polylineMaterialProperties(Kind kind) {
    return materialProperties<polylineMaterial, PART_LINE>(kind);
}

const std::vector<PropertySpec>& polygonFillProperties(Kind kind) {
    return materialProperties<polygonFill, PART_FILL>(kind);
}

const std::vector<PropertySpec>& extrusionMaterialProperties(Kind kind) {
    return materialProperties<extrusionMaterial, PART_EXTRUSION_MATERIAL>(kind);
}

} // namespace keo::Source::detail
