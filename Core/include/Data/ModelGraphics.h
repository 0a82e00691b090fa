#pragma once

#include "Common/Color.h"
#include "Common/Radian.h"
#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"

#include <memory>
#include <optional>

namespace keo {

class Resource;

/**
 * @brief A 3D model loaded from a resource and placed at its entity's position, turned by the
 * entity's orientation and then by its own rotation, and scaled per axis.
 *
 * The model's axes are x east, y north and z up in the frame of the entity. Whoever loads the
 * model reports when it is ready and gives its bounding box, so that others can place things
 * relative to the model (for example a label on top of it). Changing the URI makes the model not
 * ready again until the new one is loaded.
 */
class KEO_DATA_API ModelGraphics final : public GeometryGraphics {
public:
    /** @brief The model's own fields, with their defaults. */
    struct Fields {
        /** @brief The model file; null: nothing is drawn. */
        std::shared_ptr<Resource> uri;
        /** @brief Scale along the model's x, y and z axes. */
        Vector3<double> scale = Vector3<double>(1.0, 1.0, 1.0);
        /** @brief Rotation about the model's x, y and z axes, radians, applied in that order. */
        Vector3<Radian> rotation;
        /** @brief Colour multiplied with the model's own colours. */
        Color color = Color(1.0f, 1.0f, 1.0f, 1.0f);
        /** @brief Whether the model can be picked with the mouse. */
        bool allowPicking = true;
    };
    /** @brief Everything a model is made from: common and model fields. */
    struct ConstructorOptions : CommonOptions, Fields {};

    /**
     * @brief The box that encloses the loaded model, in the model's own frame before scaling:
     * the centre and the half extents along x, y and z, metres.
     */
    struct BoundingBox {
        /** @brief Centre of the box, metres. */
        Vector3<double> center;
        /** @brief Half the box's size along each axis, metres. */
        Vector3<double> halfExtents;
    };

    /** @brief A model of the default options (no URI). */
    ModelGraphics();
    /** @brief A model of @p options; values follow the setters' rules. */
    explicit ModelGraphics(const ConstructorOptions& options);
    ~ModelGraphics() override;

    /** @brief Whether @p type is Type::Model. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Model; }

    /** @brief The model file; null (the default) when there is none. */
    const std::shared_ptr<Resource>& getUri() const noexcept { return fields_.uri; }
    /**
     * @brief Sets the model file (shared with the caller). When its URI differs from the current
     * one (null differs from every resource), the model is no longer ready and its bounding box is
     * cleared.
     */
    void setUri(std::shared_ptr<Resource> uri) noexcept;
    /** @brief The scale per axis (default (1, 1, 1)). */
    const Vector3<double>& getScale() const noexcept { return fields_.scale; }
    /** @brief Sets the scale; a scale with a NaN is ignored, negative components become 0. */
    void setScale(const Vector3<double>& scale) noexcept;
    /** @brief The rotation per axis, radians (default (0, 0, 0)). */
    const Vector3<Radian>& getRotation() const noexcept { return fields_.rotation; }
    /** @brief Sets the rotation, radians; a rotation with a NaN is ignored. */
    void setRotation(const Vector3<Radian>& rotation) noexcept;
    /** @brief The colour (default opaque white). */
    const Color& getColor() const noexcept { return fields_.color; }
    /** @brief Sets the colour (stored as given). */
    void setColor(const Color& color) noexcept { fields_.color = color; }
    /** @brief Whether the model can be picked (default true). */
    bool isAllowPicking() const noexcept { return fields_.allowPicking; }
    /** @brief Lets the model be picked, or not. */
    void setAllowPicking(bool allow) noexcept { fields_.allowPicking = allow; }

    /** @brief Whether the model is loaded and can be drawn (default false). */
    bool isReady() const noexcept { return ready_; }
    /** @brief Reports the model loaded (true) or not (false); set by whoever loads it. */
    void setReady(bool ready) noexcept { ready_ = ready; }
    /** @brief The loaded model's bounding box; empty until the loader gives it. */
    const std::optional<BoundingBox>& getBoundingBox() const noexcept { return boundingBox_; }
    /**
     * @brief Sets the bounding box (empty clears it); set by whoever loads the model. A box with
     * a NaN is ignored; negative half extents become 0.
     */
    void setBoundingBox(const std::optional<BoundingBox>& box) noexcept;
    /**
     * @brief Height of the top of the scaled model above the model's origin, metres: the box
     * centre's z plus its z half extent times the z scale. Empty unless the model is ready and has
     * a bounding box.
     */
    std::optional<double> computeTopHeight() const noexcept;

    /** @brief Writes the common fields, then the model's, with "ready" and "boundingBox". */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
    std::optional<BoundingBox> boundingBox_;
    bool ready_ = false;
};

} // namespace keo
