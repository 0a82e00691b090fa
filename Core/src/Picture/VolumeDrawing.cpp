// Polyline volumes: the cross-section swept along the path, with caps at the ends.
#include "Drawing.h"

#include "Data/PolylineVolumeGraphics.h"

namespace keo::Picture::detail {

namespace {

using Ring = std::vector<Vector3<double>>;

// The cross-section placed at path vertex @p i: x to the right of the direction of travel, y up.
Ring sectionAt(const Ring& path, std::size_t i, const std::vector<Vector2<double>>& shape) {
    const Vector3<double>& before = path[i == 0 ? 0 : i - 1];
    const Vector3<double>& after = path[i + 1 == path.size() ? i : i + 1];
    const Vector3<double> direction = (after - before).normalize();
    Vector3<double> right = direction.cross(Vector3<double>(0.0, 0.0, 1.0));
    // A vertical path has no "right": any horizontal axis will do.
    right = right.magnitude() > 1e-9 ? right.normalize() : Vector3<double>(1.0, 0.0, 0.0);
    const Vector3<double> up = right.cross(direction).normalize();
    Ring section;
    section.reserve(shape.size());
    for (const auto& corner : shape) {
        section.push_back(path[i] + right * corner.x + up * corner.y);
    }
    return section;
}

} // namespace

bool drawVolume(const Subject& subject, DrawContext& context) {
    const auto& volume = static_cast<const PolylineVolumeGraphics&>(*subject.graphics);
    const auto& shape = volume.getShape();
    if (subject.rings.empty() || subject.rings.front().size() < 2 || shape.size() < 3) {
        return false;
    }
    const FaceStyle style =
        faceStyleOf(volume, materialColor(volume.getMaterial().get(), context.time));
    const Ring path = toLocal(subject.rings.front(), context.frame);
    std::vector<Ring> sections;
    for (std::size_t i = 0; i < path.size(); ++i) {
        sections.push_back(sectionAt(path, i, shape));
    }
    bool drew = false;
    for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
        for (std::size_t j = 0; j < shape.size(); ++j) {
            const std::size_t k = (j + 1) % shape.size();
            drew |=
                addFace({sections[i][j], sections[i][k], sections[i + 1][k], sections[i + 1][j]},
                        style, context);
        }
    }
    if (volume.getCloseStart()) {
        drew |= addFace(sections.front(), style, context);
    }
    if (volume.getCloseEnd()) {
        drew |= addFace(sections.back(), style, context);
    }
    return drew;
}

} // namespace keo::Picture::detail
