#include "Data/Layer.h"

#include "Data/Entity.h"

#include <gtest/gtest.h>

#include <memory>

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

} // namespace
