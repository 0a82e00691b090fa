#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/PositionArrayProperty.h"

#include <memory>
#include <vector>

namespace keo {

/**
 * @brief The points of a ring held elsewhere, closed: the ring's points in order and its first
 * point again at the end, the same at every time.
 *
 * The ring is shared, not copied: an outline drawn along a polygon's ring reads the points that
 * the polygon already holds (see PolygonGraphics::getSharedHierarchy and the aliasing constructor
 * of std::shared_ptr), so a polygon and its outline keep one list between them. The ring must not
 * change while the property holds it; a polygon that gets a new hierarchy keeps the old one alive
 * for as long as an outline still reads it.
 *
 * Points with a NaN or infinite component are left out of the values, so a reader never sees
 * them. Immutable after construction, so it may be read from any thread.
 */
class KEO_DATA_API ClosedRingPositionArrayProperty final : public PositionArrayProperty {
public:
    /** @brief The closed ring of @p ring's points (none if @p ring is null or empty). */
    explicit ClosedRingPositionArrayProperty(
        std::shared_ptr<const std::vector<Vector3<double>>> ring) noexcept;
    ~ClosedRingPositionArrayProperty() override;

    /** @brief The ring as it is held (without the closing point; may be null). */
    const std::shared_ptr<const std::vector<Vector3<double>>>& getRing() const noexcept {
        return ring_;
    }
    /**
     * @brief The ring's finite points in order, then its first point again when that one is
     * finite; no points for an empty ring. @p time is not used.
     */
    std::vector<Vector3<double>> getValues(const TimePoint& time) const override;
    /** @brief Always true. */
    bool isConstant() const noexcept override { return true; }
    /**
     * @brief Whether @p other is also a ClosedRingPositionArrayProperty whose ring has the same
     * points in the same order (exactly).
     */
    bool equals(const PositionArrayProperty& other) const noexcept override;

private:
    std::shared_ptr<const std::vector<Vector3<double>>> ring_;
};

} // namespace keo
