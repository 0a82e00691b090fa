#pragma once

#include "Data/ClassificationType.h"
#include "Data/DataExport.h"
#include "Data/DistanceDisplayCondition.h"
#include "Data/HeightReference.h"
#include "Data/ShadowMode.h"
#include "Data/TimePoint.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace keo {

class FieldList;
class Image;
class MaterialProperty;

/**
 * @brief The graphics component of an entity: what the renderer draws at the entity's position.
 * The base of every graphics kind (billboard, label, point, model, polyline, polyline volume,
 * polygon, wall, ellipse, rectangle, particle system).
 *
 * The base holds what all kinds share: the show flag, shadows, the height reference, the optional
 * classification type (the surfaces the graphics is draped on), the optional distance display
 * condition and the material. Each kind is made from a ConstructorOptions record (Options for the
 * particle system) that carries these common fields too, with the defaults of CommonOptions.
 *
 * Setters never fail. Enumerations outside their named values are ignored (the previous value
 * stays); each kind documents how it treats NaN and out-of-range numbers. Graphics are held
 * through std::shared_ptr by entities, are not copyable, and have no lock of their own.
 */
class KEO_DATA_API GeometryGraphics {
public:
    /** @brief The graphics kinds, as reported by getType(). */
    enum class Type : std::uint8_t {
        Polyline = 1,        ///< PolylineGraphics.
        Polygon = 3,         ///< PolygonGraphics.
        Wall = 7,            ///< WallGraphics.
        Rectangle = 10,      ///< RectangleGraphics.
        Ellipse = 11,        ///< EllipseGraphics.
        Billboard = 20,      ///< BillboardGraphics.
        Label = 21,          ///< LabelGraphics.
        Point = 22,          ///< PointGraphics.
        Model = 23,          ///< ModelGraphics.
        PolylineVolume = 24, ///< PolylineVolumeGraphics.
        ParticleSystem = 25, ///< ParticleSystemGraphics.
    };

    /** @brief The fields every graphics kind shares, with their defaults. */
    struct CommonOptions {
        /** @brief Whether the graphics is drawn. */
        bool show = true;
        /** @brief Whether it casts and receives shadows. */
        ShadowMode shadows = ShadowMode::Disabled;
        /** @brief Where its heights are measured from. */
        HeightReference heightReference = HeightReference::Absolute;
        /** @brief The surfaces it is draped on; empty: not draped, drawn at its own heights. */
        std::optional<ClassificationType> classificationType;
        /** @brief The camera distances at which it is shown; empty: at every distance. */
        std::optional<DistanceDisplayCondition> distanceDisplayCondition;
        /**
         * @brief How its surface is painted; null: the renderer's default for the kind (a white
         * colour; labels, billboards, points, models and particle systems ignore materials).
         */
        std::shared_ptr<MaterialProperty> material;
    };

    virtual ~GeometryGraphics();

    GeometryGraphics(const GeometryGraphics&) = delete;
    GeometryGraphics& operator=(const GeometryGraphics&) = delete;

    /** @brief The kind of this graphics component. */
    Type getType() const noexcept { return common_.type; }
    /** @brief The class name of the kind, e.g. "PolylineGraphics". */
    const char* getTypeName() const noexcept { return typeName(common_.type); }
    /** @brief The class name of a kind; "GeometryGraphics" for a value outside the enumeration. */
    static const char* typeName(Type type) noexcept;

    /**
     * @brief This graphics as the kind @p T (a concrete kind or GroundGeometryGraphics), or null
     * when it is of another kind.
     */
    template <typename T>
    T* as() noexcept {
        return T::isKindOf(common_.type) ? static_cast<T*>(this) : nullptr;
    }
    /** @brief This graphics as the kind @p T, or null when it is of another kind. */
    template <typename T>
    const T* as() const noexcept {
        return T::isKindOf(common_.type) ? static_cast<const T*>(this) : nullptr;
    }

    /** @brief Whether the graphics is drawn (default true). */
    bool isShow() const noexcept { return common_.show; }
    /** @brief Shows or hides the graphics. */
    void setShow(bool show) noexcept { common_.show = show; }

    /** @brief The shadow mode (default Disabled). */
    ShadowMode getShadows() const noexcept { return common_.shadows; }
    /** @brief Sets the shadow mode; a value outside ShadowMode is ignored. */
    void setShadows(ShadowMode shadows) noexcept;

    /** @brief The height reference (default Absolute). */
    HeightReference getHeightReference() const noexcept { return common_.heightReference; }
    /** @brief Sets the height reference; a value outside HeightReference is ignored. */
    void setHeightReference(HeightReference heightReference) noexcept;

    /** @brief The classification type; empty (the default) when the graphics is not draped. */
    const std::optional<ClassificationType>& getClassificationType() const noexcept {
        return common_.classificationType;
    }
    /**
     * @brief Sets the classification type; empty stops draping. A value outside
     * ClassificationType is ignored.
     */
    void setClassificationType(const std::optional<ClassificationType>& type) noexcept;

    /** @brief The distance display condition; empty (the default): shown at every distance. */
    const std::optional<DistanceDisplayCondition>& getDistanceDisplayCondition() const noexcept {
        return common_.distanceDisplayCondition;
    }
    /** @brief Sets the distance display condition (stored as given, see DistanceDisplayCondition).
     */
    void
    setDistanceDisplayCondition(const std::optional<DistanceDisplayCondition>& condition) noexcept;

    /** @brief The material; null (the default): the renderer's default for the kind. */
    const std::shared_ptr<MaterialProperty>& getMaterial() const noexcept {
        return common_.material;
    }
    /** @brief Sets the material, shared with whoever else holds it; null clears it. */
    void setMaterial(std::shared_ptr<MaterialProperty> material) noexcept;

    /**
     * @brief Writes the graphics' fields for a scene dump, named as their setters: the base writes
     * the common fields (the material as a JSON object with its "type" and its own fields, or
     * null), each kind then its own. Time-varying fields are evaluated at @p time.
     */
    virtual void describe(FieldList& fields, const TimePoint& time) const;

protected:
    /** @brief A graphics component of kind @p type with the common fields of @p options. */
    GeometryGraphics(Type type, const CommonOptions& options);

private:
    // The common fields and the kind, ordered to leave no padding.
    struct Common {
        std::shared_ptr<MaterialProperty> material;
        std::optional<DistanceDisplayCondition> distanceDisplayCondition;
        std::optional<ClassificationType> classificationType;
        Type type;
        bool show;
        ShadowMode shadows;
        HeightReference heightReference;
    };

    Common common_;
};

} // namespace keo
