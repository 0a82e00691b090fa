#include "Data/Layer.h"

#include "Data/Entity.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Entity;
using keo::Layer;

TEST(LayerTest, NewLayerIsShownAndEmpty) {
    const Layer layer("roads");
    EXPECT_EQ(layer.getName(), "roads");
    EXPECT_TRUE(layer.isShow());
    EXPECT_TRUE(layer.getEntities().empty());
}

TEST(LayerTest, NameAndShowReadBackAsSet) {
    Layer layer;
    layer.setName("buildings");
    layer.setShow(false);
    EXPECT_EQ(layer.getName(), "buildings");
    EXPECT_FALSE(layer.isShow());
}

TEST(LayerTest, EntitiesAreKeptInOrderOnceEach) {
    Layer layer;
    const auto a = std::make_shared<Entity>("a");
    const auto b = std::make_shared<Entity>("b");
    EXPECT_TRUE(layer.addEntity(b));
    EXPECT_TRUE(layer.addEntity(a));
    EXPECT_FALSE(layer.addEntity(a));
    EXPECT_FALSE(layer.addEntity(nullptr));
    ASSERT_EQ(layer.getEntities().size(), 2u);
    EXPECT_EQ(layer.getEntities()[0], b);
    EXPECT_EQ(layer.getEntities()[1], a);
    EXPECT_TRUE(layer.containsEntity(a.get()));
    EXPECT_FALSE(layer.containsEntity(nullptr));
}

TEST(LayerTest, RemoveEntityReportsWhetherItWasHeld) {
    Layer layer;
    const auto a = std::make_shared<Entity>("a");
    const auto other = std::make_shared<Entity>("other");
    layer.addEntity(a);
    EXPECT_FALSE(layer.removeEntity(other.get()));
    EXPECT_FALSE(layer.removeEntity(nullptr));
    EXPECT_TRUE(layer.removeEntity(a.get()));
    EXPECT_FALSE(layer.containsEntity(a.get()));
    layer.addEntity(a);
    layer.addEntity(other);
    layer.removeAllEntities();
    EXPECT_TRUE(layer.getEntities().empty());
}

TEST(LayerTest, RemovingKeepsTheOthersInOrderAndReAddingAppends) {
    Layer layer;
    std::vector<std::shared_ptr<Entity>> entities;
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        entities.push_back(std::make_shared<Entity>(name));
        layer.addEntity(entities.back());
    }
    EXPECT_TRUE(layer.removeEntity(entities[1].get()));
    EXPECT_TRUE(layer.removeEntity(entities[3].get()));
    EXPECT_TRUE(layer.addEntity(entities[1]));
    EXPECT_EQ(layer.getEntityCount(), 4u);
    std::string order;
    for (const auto& entity : layer.getEntities()) {
        order += entity->getName();
    }
    EXPECT_EQ(order, "aceb");
    EXPECT_FALSE(layer.containsEntity(entities[3].get()));
    EXPECT_TRUE(layer.containsEntity(entities[1].get()));
}

TEST(LayerTest, ManyRootsCanBeAddedAndRemovedInAnyOrder) {
    Layer layer;
    std::vector<std::shared_ptr<Entity>> entities;
    for (int i = 0; i < 10'000; ++i) {
        entities.push_back(std::make_shared<Entity>(std::to_string(i)));
        ASSERT_TRUE(layer.addEntity(entities.back()));
    }
    // Remove every entity whose number is not a multiple of 3, from the back.
    for (int i = 9'999; i >= 0; --i) {
        if (i % 3 != 0) {
            ASSERT_TRUE(layer.removeEntity(entities[static_cast<std::size_t>(i)].get()));
        }
    }
    const auto& kept = layer.getEntities();
    ASSERT_EQ(kept.size(), 3'334u);
    for (std::size_t k = 0; k < kept.size(); ++k) {
        EXPECT_EQ(kept[k], entities[3 * k]);
        EXPECT_TRUE(layer.containsEntity(kept[k].get()));
    }
    EXPECT_FALSE(layer.removeEntity(entities[1].get()));
}

TEST(LayerTest, AfterTheGapsCloseEachEntityIsStillRemovedFromItsOwnPlace) {
    Layer layer;
    std::vector<std::shared_ptr<Entity>> entities;
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
        entities.push_back(std::make_shared<Entity>(name));
        layer.addEntity(entities.back());
    }
    // Three removals of six close the gaps and renumber the places of the three left.
    for (const std::size_t i : {0u, 2u, 4u}) {
        ASSERT_TRUE(layer.removeEntity(entities[i].get()));
    }
    ASSERT_TRUE(layer.removeEntity(entities[3].get()));
    ASSERT_TRUE(layer.addEntity(entities[0]));
    std::string order;
    for (const auto& entity : layer.getEntities()) {
        order += entity->getName();
    }
    EXPECT_EQ(order, "bfa");
    EXPECT_EQ(layer.getEntityCount(), 3u);
}

TEST(LayerTest, AfterRemovingAllTheSameEntitiesCanBeAddedAgain) {
    Layer layer;
    const auto a = std::make_shared<Entity>("a");
    const auto b = std::make_shared<Entity>("b");
    layer.addEntity(a);
    layer.addEntity(b);
    layer.removeAllEntities();
    EXPECT_EQ(layer.getEntityCount(), 0u);
    EXPECT_FALSE(layer.containsEntity(a.get()));
    EXPECT_TRUE(layer.addEntity(b));
    EXPECT_TRUE(layer.addEntity(a));
    ASSERT_EQ(layer.getEntities().size(), 2u);
    EXPECT_EQ(layer.getEntities()[0], b);
    EXPECT_EQ(layer.getEntities()[1], a);
}

TEST(LayerTest, AnEntityOnlyTheLayerHeldGoesWithItsRemovalOrWithTheLayer) {
    std::weak_ptr<Entity> removed;
    std::weak_ptr<Entity> kept;
    {
        Layer layer;
        auto first = std::make_shared<Entity>("first");
        auto second = std::make_shared<Entity>("second");
        removed = first;
        kept = second;
        const Entity* const firstAddress = first.get();
        layer.addEntity(std::move(first));
        layer.addEntity(std::move(second));
        EXPECT_TRUE(layer.removeEntity(firstAddress));
        EXPECT_TRUE(removed.expired());
        EXPECT_FALSE(kept.expired());
    }
    EXPECT_TRUE(kept.expired());
}

} // namespace
