#pragma once

// The renderer side of the tests: the live set of one feature's entities, kept from its added and
// removed lists by the rules a renderer follows, and compared with the feature's entity tree.

#include "Data/Entity.h"
#include "Feature/Feature.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace keo::Feature::test {

/**
 * What a renderer draws of one feature. Each frame updates the feature, then takes the removed
 * list first (an entity leaves with everything it holds), then the added list (an entity joins
 * only while it hangs under the feature's root).
 */
class RendererModel final {
public:
    explicit RendererModel(Feature& feature) noexcept
        : feature_(feature) {}

    /** Runs one frame: the update, then the two lists. */
    void frame() {
        feature_._updateEntityInCull(false);
        for (const auto& removed : feature_._takeRemovedEntities()) {
            leave(*removed);
        }
        for (const auto& added : feature_._takeAddedEntities()) {
            if (hangsUnderRoot(*added)) {
                live_.insert(added.get());
            }
        }
    }

    /** Checks that the live set is exactly the feature's entity tree. */
    void expectLiveSetIsTheTree() const {
        std::set<const Entity*> tree;
        for (const auto& entity : feature_._getAllEntities()) {
            tree.insert(entity.get());
        }
        EXPECT_EQ(live_, tree);
    }

    /** The entities drawn. */
    const std::set<const Entity*>& live() const noexcept { return live_; }

private:
    void leave(const Entity& entity) {
        live_.erase(&entity);
        for (const auto& child : entity.getChildren()) {
            leave(*child);
        }
    }

    bool hangsUnderRoot(const Entity& entity) const {
        const Entity* root = feature_._getImplHandle().get();
        for (const Entity* it = &entity; it != nullptr; it = it->getParent()) {
            if (it == root) {
                return true;
            }
        }
        return false;
    }

    Feature& feature_;
    std::set<const Entity*> live_;
};

} // namespace keo::Feature::test
