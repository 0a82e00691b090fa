#include "Data/Entity.h"

#include "Data/ConstantPositionProperty.h"
#include "Data/PointGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/VelocityOrientationProperty.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Entity;

std::shared_ptr<Entity> makeEntity(const std::string& name) {
    return std::make_shared<Entity>(name);
}

std::vector<std::string> childNames(const Entity& entity) {
    std::vector<std::string> names;
    for (const auto& child : entity.getChildren()) {
        names.push_back(child->getName());
    }
    return names;
}

TEST(EntityTest, NewEntityIsAShownAsynchronousRootWithNothingAttached) {
    const Entity entity;
    EXPECT_EQ(entity.getName(), "");
    EXPECT_TRUE(entity.isShow());
    EXPECT_TRUE(entity.isShowing());
    EXPECT_TRUE(entity._isAsynchronous());
    EXPECT_EQ(entity.getParent(), nullptr);
    EXPECT_TRUE(entity.getChildren().empty());
    EXPECT_EQ(entity.getPosition(), nullptr);
    EXPECT_EQ(entity.getOrientation(), nullptr);
    EXPECT_EQ(entity.getGeometryGraphics(), nullptr);
}

TEST(EntityTest, NameShowAndAsynchronousReadBackAsSet) {
    Entity entity("first");
    EXPECT_EQ(entity.getName(), "first");
    entity.setName("label-symbol");
    entity.setShow(false);
    entity._setAsynchronous(false);
    EXPECT_EQ(entity.getName(), "label-symbol");
    EXPECT_FALSE(entity.isShow());
    EXPECT_FALSE(entity._isAsynchronous());
}

TEST(EntityTest, SetParentAppendsChildrenInOrder) {
    const auto root = makeEntity("root");
    const auto a = makeEntity("a");
    const auto b = makeEntity("b");
    const auto c = makeEntity("c");
    EXPECT_TRUE(b->setParent(root));
    EXPECT_TRUE(a->setParent(root));
    EXPECT_TRUE(c->setParent(root));
    EXPECT_EQ(childNames(*root), (std::vector<std::string>{"b", "a", "c"}));
    EXPECT_EQ(a->getParent(), root.get());
}

TEST(EntityTest, ReservingChildrenMakesRoomOnceAndKeepsTheChildren) {
    const auto root = makeEntity("root");
    const auto a = makeEntity("a");
    ASSERT_TRUE(a->setParent(root));
    root->reserveChildren(3);
    const auto* const storage = root->getChildren().data();
    const auto b = makeEntity("b");
    const auto c = makeEntity("c");
    ASSERT_TRUE(b->setParent(root));
    ASSERT_TRUE(c->setParent(root));
    // The list grew into the room made: no entity was moved to a new list.
    EXPECT_EQ(root->getChildren().data(), storage);
    EXPECT_EQ(childNames(*root), (std::vector<std::string>{"a", "b", "c"}));
    root->reserveChildren(1);
    EXPECT_EQ(childNames(*root), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(EntityTest, ReparentingMovesTheChildFromTheOldParentToTheEndOfTheNew) {
    const auto first = makeEntity("first");
    const auto second = makeEntity("second");
    const auto kept = makeEntity("kept");
    const auto moved = makeEntity("moved");
    const auto other = makeEntity("other");
    kept->setParent(first);
    moved->setParent(first);
    other->setParent(second);

    EXPECT_TRUE(moved->setParent(second));

    EXPECT_EQ(childNames(*first), (std::vector<std::string>{"kept"}));
    EXPECT_EQ(childNames(*second), (std::vector<std::string>{"other", "moved"}));
    EXPECT_EQ(moved->getParent(), second.get());
}

TEST(EntityTest, SettingTheSameParentAgainKeepsTheChildsPlace) {
    const auto root = makeEntity("root");
    const auto a = makeEntity("a");
    const auto b = makeEntity("b");
    a->setParent(root);
    b->setParent(root);
    EXPECT_TRUE(a->setParent(root));
    EXPECT_EQ(childNames(*root), (std::vector<std::string>{"a", "b"}));
}

TEST(EntityTest, SetParentNullDetachesAndTheChildLivesOnWhileHeld) {
    const auto root = makeEntity("root");
    std::weak_ptr<Entity> watch;
    {
        const auto child = makeEntity("child");
        watch = child;
        child->setParent(root);
    }
    // Only the parent holds the child now.
    ASSERT_FALSE(watch.expired());
    const std::shared_ptr<Entity> held = watch.lock();
    EXPECT_TRUE(held->setParent(nullptr));
    EXPECT_EQ(held->getParent(), nullptr);
    EXPECT_TRUE(root->getChildren().empty());
    EXPECT_EQ(held->getName(), "child");
}

TEST(EntityTest, DetachedChildHeldOnlyByItsParentIsReleasedWhenDetached) {
    const auto root = makeEntity("root");
    std::weak_ptr<Entity> watch;
    {
        const auto child = makeEntity("child");
        watch = child;
        child->setParent(root);
    }
    root->getChildren().front()->setParent(nullptr);
    EXPECT_TRUE(watch.expired());
}

TEST(EntityTest, GetChildByNameFindsTheFirstOfTwoEqualNames) {
    const auto root = makeEntity("root");
    const auto other = makeEntity("other");
    const auto first = makeEntity("twin");
    const auto second = makeEntity("twin");
    other->setParent(root);
    first->setParent(root);
    second->setParent(root);
    EXPECT_EQ(root->getChildByName("twin"), first);
    EXPECT_EQ(root->getChildByName("other"), other);
}

TEST(EntityTest, GetChildByNameLooksAtDirectChildrenOnly) {
    const auto root = makeEntity("root");
    const auto child = makeEntity("label-symbol");
    const auto grandchild = makeEntity("hint-line");
    child->setParent(root);
    grandchild->setParent(child);
    EXPECT_EQ(root->getChildByName("hint-line"), nullptr);
    EXPECT_EQ(root->getChildByName("missing"), nullptr);
    EXPECT_EQ(child->getChildByName("hint-line"), grandchild);
}

TEST(EntityTest, SetParentRefusesItselfAndItsDescendants) {
    const auto root = makeEntity("root");
    const auto child = makeEntity("child");
    const auto grandchild = makeEntity("grandchild");
    child->setParent(root);
    grandchild->setParent(child);

    EXPECT_FALSE(root->setParent(root));
    EXPECT_FALSE(root->setParent(child));
    EXPECT_FALSE(root->setParent(grandchild));
    EXPECT_FALSE(child->setParent(grandchild));

    // Nothing changed.
    EXPECT_EQ(root->getParent(), nullptr);
    EXPECT_EQ(child->getParent(), root.get());
    EXPECT_EQ(grandchild->getParent(), child.get());
    EXPECT_EQ(childNames(*root), (std::vector<std::string>{"child"}));
    EXPECT_EQ(childNames(*child), (std::vector<std::string>{"grandchild"}));
}

TEST(EntityTest, SetParentIsRefusedForAnEntityNotHeldBySharedPtr) {
    const auto root = makeEntity("root");
    Entity local("local");
    EXPECT_FALSE(local.setParent(root));
    EXPECT_EQ(local.getParent(), nullptr);
    EXPECT_TRUE(root->getChildren().empty());
}

TEST(EntityTest, IsAncestorOfFollowsParentLinks) {
    const auto root = makeEntity("root");
    const auto child = makeEntity("child");
    const auto grandchild = makeEntity("grandchild");
    child->setParent(root);
    grandchild->setParent(child);
    EXPECT_TRUE(root->isAncestorOf(grandchild.get()));
    EXPECT_TRUE(child->isAncestorOf(grandchild.get()));
    EXPECT_FALSE(grandchild->isAncestorOf(root.get()));
    EXPECT_FALSE(root->isAncestorOf(root.get()));
    EXPECT_FALSE(root->isAncestorOf(nullptr));
}

TEST(EntityTest, DestroyingAParentDetachesTheChildrenHeldElsewhere) {
    auto root = makeEntity("root");
    const auto child = makeEntity("child");
    const auto grandchild = makeEntity("grandchild");
    child->setParent(root);
    grandchild->setParent(child);

    root.reset();

    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_EQ(grandchild->getParent(), child.get());
    EXPECT_EQ(childNames(*child), (std::vector<std::string>{"grandchild"}));
}

TEST(EntityTest, DestroyingAParentReleasesChildrenHeldOnlyByIt) {
    auto root = makeEntity("root");
    std::weak_ptr<Entity> child;
    std::weak_ptr<Entity> grandchild;
    {
        const auto c = makeEntity("child");
        const auto g = makeEntity("grandchild");
        c->setParent(root);
        g->setParent(c);
        child = c;
        grandchild = g;
    }
    root.reset();
    EXPECT_TRUE(child.expired());
    EXPECT_TRUE(grandchild.expired());
}

TEST(EntityTest, AVeryDeepChainIsReleasedWithoutExhaustingTheStack) {
    auto root = makeEntity("root");
    std::weak_ptr<Entity> deepest;
    {
        std::shared_ptr<Entity> parent = root;
        for (int i = 0; i < 300000; ++i) {
            auto child = std::make_shared<Entity>();
            child->setParent(parent);
            parent = child;
        }
        deepest = parent;
    }
    ASSERT_FALSE(deepest.expired());
    root.reset();
    EXPECT_TRUE(deepest.expired());
}

TEST(EntityTest, RemoveAllChildrenDetachesEveryChild) {
    const auto root = makeEntity("root");
    const auto a = makeEntity("a");
    const auto b = makeEntity("b");
    a->setParent(root);
    b->setParent(root);
    root->removeAllChildren();
    EXPECT_TRUE(root->getChildren().empty());
    EXPECT_EQ(a->getParent(), nullptr);
    EXPECT_EQ(b->getParent(), nullptr);
}

TEST(EntityTest, IsShowingIsFalseUnderAHiddenAncestor) {
    const auto root = makeEntity("root");
    const auto child = makeEntity("child");
    const auto grandchild = makeEntity("grandchild");
    child->setParent(root);
    grandchild->setParent(child);
    root->setShow(false);
    EXPECT_TRUE(grandchild->isShow());
    EXPECT_FALSE(grandchild->isShowing());
    root->setShow(true);
    EXPECT_TRUE(grandchild->isShowing());
}

TEST(EntityTest, PositionOrientationAndGraphicsReadBackAndClearWithNull) {
    const auto entity = makeEntity("e");
    const auto position =
        std::make_shared<keo::ConstantPositionProperty>(keo::Vector3<double>(6378137.0, 0.0, 0.0));
    const auto orientation = std::make_shared<keo::VelocityOrientationProperty>(position);
    const auto graphics = std::make_shared<keo::PointGraphics>();

    entity->setPosition(position);
    entity->setOrientation(orientation);
    entity->setGeometryGraphics(graphics);
    EXPECT_EQ(entity->getPosition(), position);
    EXPECT_EQ(entity->getOrientation(), orientation);
    EXPECT_EQ(entity->getGeometryGraphics(), graphics);

    entity->setPosition(nullptr);
    entity->setOrientation(nullptr);
    entity->setGeometryGraphics(nullptr);
    EXPECT_EQ(entity->getPosition(), nullptr);
    EXPECT_EQ(entity->getOrientation(), nullptr);
    EXPECT_EQ(entity->getGeometryGraphics(), nullptr);
}

TEST(EntityTest, SetGeometryGraphicsReplacesThePreviousComponent) {
    const auto entity = makeEntity("e");
    entity->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    const auto line = std::make_shared<keo::PolylineGraphics>();
    entity->setGeometryGraphics(line);
    EXPECT_EQ(entity->getGeometryGraphics(), line);
    EXPECT_EQ(entity->getGeometryGraphics()->getType(), keo::GeometryGraphics::Type::Polyline);
}

} // namespace
