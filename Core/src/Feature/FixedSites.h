#pragma once

#include "FeatureLog.h"

// The sites that the kit's log records, exceptions and parameter checks name with a fixed line.
// Applications and their tests match on these, so the line stays what it is however the code
// around it moves; every other site is the real line (KEO_FEATURE_SITE).
namespace keo::Feature::detail::site {

// The kind checks of the bases' assign.
inline constexpr SourceSite GEOMETRY_ASSIGN{"Core/src/Feature/Geometry", 65,
                                            "keo::Feature::Geometry::assign"};
inline constexpr SourceSite STYLE_ASSIGN{"Core/src/Feature/Style", 57,
                                         "keo::Feature::Style::assign"};
inline constexpr SourceSite SYMBOL_ASSIGN{"Core/src/Feature/Symbol", 35,
                                          "keo::Feature::Symbol::assign"};

// A style that does not fit the geometry, found when either is set on a feature.
inline constexpr SourceSite FEATURE_SET_GEOMETRY{"Core/src/Feature/Feature", 201,
                                                 "keo::Feature::Feature::setGeometry"};
inline constexpr SourceSite FEATURE_SET_STYLE{"Core/src/Feature/Feature", 244,
                                              "keo::Feature::Feature::setStyle"};

// The kind check of a multi geometry's assign, and the ring check of a polygon's styling step.
inline constexpr SourceSite MULTI_GEOMETRY_ASSIGN{"Core/src/Feature/MultiGeometry", 42,
                                                  "keo::Feature::MultiGeometry::assign"};
inline constexpr SourceSite POLYGON_UPDATE_STYLE{"Core/src/Feature/PolygonGeometry", 707,
                                                 "keo::Feature::PolygonGeometry::_updateStyle"};

// Misuse of a collection: the exception names the function as "FeatureCollection::add()".
inline constexpr SourceSite COLLECTION_RESUME_WITHOUT_SUSPEND{
    "Core/src/Feature/FeatureCollection", 42, "FeatureCollection::resumeEvents()"};
inline constexpr SourceSite COLLECTION_ADD_NULL{"Core/src/Feature/FeatureCollection", 53,
                                                "FeatureCollection::add()"};
inline constexpr SourceSite COLLECTION_ADD_DUPLICATE{"Core/src/Feature/FeatureCollection", 63,
                                                     "FeatureCollection::add()"};
inline constexpr SourceSite COLLECTION_CONTAINS_NULL{"Core/src/Feature/FeatureCollection", 174,
                                                     "FeatureCollection::contains()"};

// The particle emitters' parameter checks: the constructors' at the public header, the setters'
// at the source. The function is the enclosing one, as the assertion report gives it.
inline constexpr SourceSite BOX_EMITTER_DIMENSION_X{"Core/src/Feature/ParticleEmitter", 79, {}};
inline constexpr SourceSite BOX_EMITTER_DIMENSION_Y{"Core/src/Feature/ParticleEmitter", 80, {}};
inline constexpr SourceSite BOX_EMITTER_DIMENSION_Z{"Core/src/Feature/ParticleEmitter", 81, {}};
inline constexpr SourceSite CIRCLE_EMITTER_SET_RADIUS{"Core/src/Feature/ParticleEmitter", 120, {}};
inline constexpr SourceSite CIRCLE_EMITTER_RADIUS{"Core/include/Feature/ParticleEmitter", 124, {}};
inline constexpr SourceSite SPHERE_EMITTER_SET_RADIUS{"Core/src/Feature/ParticleEmitter", 194, {}};
inline constexpr SourceSite SPHERE_EMITTER_RADIUS{"Core/include/Feature/ParticleEmitter", 198, {}};

} // namespace keo::Feature::detail::site
