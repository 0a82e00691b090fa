#include "LengthLabels.h"

#include "ChildEntity.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/LabelGraphics.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/SymbolContext.h"

#include <charconv>
#include <utility>
#include <vector>

namespace keo::Feature::detail {

namespace {

// The frame number of a position held in the Earth-fixed frame.
constexpr int FIXED_FRAME = 0;

} // namespace

std::shared_ptr<PositionProperty> positionAt(const Vector3<double>& point) {
    return std::make_shared<ConstantPositionProperty>(point, FIXED_FRAME);
}

bool drawLengthLabel(Entity& entity, std::string_view name, const Vector3<double>& point,
                     std::string text, const LengthLabelSymbol& symbol,
                     const SymbolContext& context) {
    bool created = false;
    const auto child = findOrCreateChild(entity, name, context.feature, &created);
    child->setPosition(positionAt(point));
    symbol._fill(ensureGraphics<LabelGraphics>(*child), context, std::move(text));
    return created;
}

std::optional<std::size_t> segmentIndex(std::string_view name) noexcept {
    const std::string_view prefix = ChildEntityName::LENGTH_LABEL_SEGMENT_PREFIX;
    if (name.size() <= prefix.size() || name.substr(0, prefix.size()) != prefix) {
        return std::nullopt;
    }
    const std::string_view digits = name.substr(prefix.size());
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return index;
}

bool removeSegmentLabelsFrom(Entity& entity, std::size_t count, const Feature& feature) {
    std::vector<std::shared_ptr<Entity>> surplus;
    for (const auto& child : entity.getChildren()) {
        const std::optional<std::size_t> index = segmentIndex(child->getName());
        if (index && *index >= count) {
            surplus.push_back(child);
        }
    }
    for (const auto& child : surplus) {
        removeEntity(child, feature);
    }
    return !surplus.empty();
}

} // namespace keo::Feature::detail
