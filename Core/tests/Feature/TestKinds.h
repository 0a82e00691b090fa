#pragma once

// Geometry and style kinds of the tests' own, to drive the bases and the feature before (and
// independently of) the real kinds.

#include "Data/Entity.h"
#include "Data/PointGraphics.h"
#include "Feature/Feature.h"
#include "Feature/Geometry.h"
#include "Feature/Style.h"

#include <memory>
#include <string>
#include <vector>

namespace keo::Feature::test {

/**
 * A geometry of a chosen kind code. `_updateGeometry` puts point graphics on the root;
 * `_updateStyle` makes a child "part" (reported to the feature) and runs the label step. Either
 * can be told to fail.
 */
class TestGeometry final : public Geometry {
public:
    explicit TestGeometry(Type type = Type::Point)
        : type_(type) {}
    TestGeometry(const TestGeometry&) = default;

    void assign(const Geometry& other) override { Geometry::assign(other); }
    std::unique_ptr<Geometry> clone() const override {
        return std::make_unique<TestGeometry>(*this);
    }
    Type getType() const override { return type_; }

    bool _updateGeometry(Entity& entity, const Style* /*style*/) override {
        ++geometryUpdates;
        if (!entity.getGeometryGraphics()) {
            entity.setGeometryGraphics(std::make_shared<PointGraphics>());
        }
        return geometryResult;
    }
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override {
        ++styleUpdates;
        if (!entity.getChildByName("part")) {
            auto part = std::make_shared<Entity>("part");
            part->setParent(entity.shared_from_this());
            feature._addEntity(part);
        }
        updateLabel(entity, feature, style);
        return styleResult;
    }

    const std::vector<Cartographic>* _getCartographicPositions() const override {
        return positions.empty() ? nullptr : &positions;
    }

    /** Stores an anchor as a kind does during its update. */
    void storeAnchor(const Vector3<double>& anchor) { setDistanceDisplayConditionAnchor(anchor); }

    /** Edits the geometry's own data through the edit rule, as a kind's setter does. */
    void edit() {
        _raiseChangedLockEvent(true);
        ++revision;
        _raiseChangedLockEvent(false);
        _raiseDefinitionChangedEvent();
    }

    bool geometryResult = true;
    bool styleResult = true;
    int geometryUpdates = 0;
    int styleUpdates = 0;
    int revision = 0;
    /** Vertices handed to the feature for its extent, as line and area kinds do; none if empty. */
    std::vector<Cartographic> positions;

private:
    Type type_;
};

/** A style of a chosen kind code with nothing of its own beyond the base. */
class TestStyle final : public Style {
public:
    explicit TestStyle(Type type = Type::Point)
        : Style(type) {}
    TestStyle(const TestStyle&) = default;
    std::shared_ptr<Style> clone() const override { return std::make_shared<TestStyle>(*this); }
};

} // namespace keo::Feature::test
