#include "Feature/FeatureGroup.h"

#include "Data/Layer.h"
#include "Feature/Feature.h"
#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using keo::Layer;
using keo::Feature::Feature;
using keo::Feature::FeatureBase;
using keo::Feature::FeatureChangeType;
using keo::Feature::FeatureGroup;
using keo::Feature::FeatureStatus;
using keo::Feature::test::ChangeCounter;
using keo::Feature::test::Ids;
using keo::Feature::test::idsOf;
using keo::Feature::test::makeFeature;

constexpr int SHOW_CHANGED = keo::Feature::ShowChanged;
constexpr int CONTENT_CHANGED = keo::Feature::ContentChanged;

std::shared_ptr<FeatureGroup> makeGroup(std::uint64_t id) {
    return std::make_shared<FeatureGroup>(id);
}

// A group with the id @p id holding @p children, added in order.
std::shared_ptr<FeatureGroup> groupOf(std::uint64_t id,
                                      const std::vector<std::shared_ptr<FeatureBase>>& children) {
    auto group = makeGroup(id);
    for (const auto& child : children) {
        group->add(child);
    }
    return group;
}

// Added-or-removed events, each as (added ids, removed ids).
using Events = std::vector<std::pair<Ids, Ids>>;

// Records the added-or-removed events of a group as (added ids, removed ids).
struct GroupEvents {
    explicit GroupEvents(FeatureGroup& group) {
        group._addFeatureAddedOrRemovedEventListener(
            [this](const std::vector<std::shared_ptr<Feature>>& added,
                   const std::vector<std::shared_ptr<Feature>>& removed) {
                events.emplace_back(idsOf(added), idsOf(removed));
            });
    }
    GroupEvents(const GroupEvents&) = delete;
    GroupEvents& operator=(const GroupEvents&) = delete;
    Events events;
};

// Sets a node's bookkeeping back to "nothing recorded".
void resetStatus(FeatureBase& node) {
    node.setFeatureStatus(FeatureStatus::None);
    node.resetChangeType(static_cast<FeatureChangeType>(0));
}

// A group 100 holding feature 1, group 200 (holding features 2 and 3) and feature 4.
struct Tree {
    std::shared_ptr<Feature> f1 = makeFeature(1);
    std::shared_ptr<Feature> f2 = makeFeature(2);
    std::shared_ptr<Feature> f3 = makeFeature(3);
    std::shared_ptr<Feature> f4 = makeFeature(4);
    std::shared_ptr<FeatureGroup> inner = groupOf(200, {f2, f3});
    std::shared_ptr<FeatureGroup> root = groupOf(100, {f1, inner, f4});
};

// --- basics ----------------------------------------------------------------------------------

TEST(FeatureGroupTest, NewGroupIsAnEmptyShownGroupWithTheGivenId) {
    const FeatureGroup group(std::uint64_t{9});
    EXPECT_EQ(group.getId(), 9u);
    EXPECT_TRUE(group.isGroup());
    EXPECT_TRUE(group.getFeatures().empty());
    EXPECT_TRUE(group.isShow());
    EXPECT_EQ(group.getParent(), nullptr);
    EXPECT_NE(FeatureGroup().getId(), FeatureGroup().getId());
}

TEST(FeatureGroupTest, AddAppendsSetsTheParentAndReportsTheLeafFeatures) {
    const auto group = makeGroup(100);
    GroupEvents events(*group);
    const auto feature = makeFeature(1);
    const auto sub = groupOf(200, {makeFeature(2), groupOf(300, {makeFeature(3)}), makeFeature(4)});

    EXPECT_TRUE(group->add(feature));
    EXPECT_TRUE(group->add(sub));

    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{1, 200}));
    EXPECT_EQ(feature->getParent(), group.get());
    EXPECT_EQ(sub->getParent(), group.get());
    ASSERT_EQ(events.events.size(), 2u);
    EXPECT_EQ(events.events[0], std::make_pair(Ids{1}, Ids{}));
    EXPECT_EQ(events.events[1], std::make_pair(Ids{2, 3, 4}, Ids{})); // depth first, list order
}

TEST(FeatureGroupTest, AddAndInsertOfNullReturnFalse) {
    const auto group = makeGroup(100);
    GroupEvents events(*group);
    EXPECT_FALSE(group->add(nullptr));
    EXPECT_FALSE(group->insert(0, nullptr));
    EXPECT_TRUE(events.events.empty());
    EXPECT_EQ(group->getFeatureStatus(), FeatureStatus::None);
}

// --- insert ----------------------------------------------------------------------------------

TEST(FeatureGroupTest, InsertPlacesTheNodeBeforeTheChildAtThePosition) {
    const auto group = groupOf(100, {makeFeature(1), makeFeature(2), makeFeature(3)});

    EXPECT_TRUE(group->insert(0, makeFeature(10)));
    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{10, 1, 2, 3}));
    EXPECT_TRUE(group->insert(2, makeFeature(20)));
    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{10, 1, 20, 2, 3}));
    EXPECT_TRUE(group->insert(5, makeFeature(30))); // the number of children appends
    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{10, 1, 20, 2, 3, 30}));
}

TEST(FeatureGroupTest, InsertPastTheEndReturnsFalseAndLeavesTheNodeWhereItWas) {
    const auto group = groupOf(100, {makeFeature(1)});
    const auto feature = makeFeature(2);
    const auto other = groupOf(200, {feature});
    GroupEvents events(*other);

    EXPECT_FALSE(group->insert(2, feature));

    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{1}));
    EXPECT_EQ(feature->getParent(), other.get());
    EXPECT_TRUE(events.events.empty());
}

TEST(FeatureGroupTest, InsertIntoAnEmptyGroupAtZeroAppends) {
    const auto group = makeGroup(100);
    EXPECT_TRUE(group->insert(0, makeFeature(1)));
    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{1}));
    EXPECT_FALSE(group->insert(2, makeFeature(2)));
}

TEST(FeatureGroupTest, InsertOfAChildOfTheSameGroupCountsThePositionAfterItLeft) {
    const auto first = makeFeature(1);
    const auto group = groupOf(100, {first, makeFeature(2), makeFeature(3)});
    GroupEvents events(*group);

    // Position 2 is checked against three children; once feature 1 has left, [2, 3] remain and
    // position 2 is their end.
    EXPECT_TRUE(group->insert(2, first));
    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{2, 3, 1}));
    EXPECT_EQ(events.events, (Events{{{}, {1}}, {{1}, {}}}));

    // Position 3 is valid for three children and past the end of the two that remain: appends.
    EXPECT_TRUE(group->insert(3, group->getFeatures().front()));
    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{3, 1, 2}));
}

// --- moving between groups -------------------------------------------------------------------

TEST(FeatureGroupTest, AddingAFeatureOfAnotherGroupMovesItAndBothGroupsReportIt) {
    const auto from = makeGroup(100);
    const auto to = makeGroup(200);
    const auto feature = makeFeature(1);
    from->add(feature);
    GroupEvents fromEvents(*from);
    GroupEvents toEvents(*to);

    EXPECT_TRUE(to->add(feature));

    EXPECT_TRUE(from->getFeatures().empty());
    EXPECT_EQ(idsOf(to->getFeatures()), (Ids{1}));
    EXPECT_EQ(feature->getParent(), to.get());
    ASSERT_EQ(fromEvents.events.size(), 1u);
    EXPECT_EQ(fromEvents.events[0], std::make_pair(Ids{}, Ids{1}));
    ASSERT_EQ(toEvents.events.size(), 1u);
    EXPECT_EQ(toEvents.events[0], std::make_pair(Ids{1}, Ids{}));
}

TEST(FeatureGroupTest, MovingAGroupMovesItsSubscriptionToTheNewParent) {
    const auto from = makeGroup(100);
    const auto to = makeGroup(200);
    const auto moved = makeGroup(300);
    moved->add(makeFeature(1));
    from->add(moved);
    GroupEvents fromEvents(*from);
    GroupEvents toEvents(*to);

    to->insert(0, moved);
    EXPECT_EQ(fromEvents.events, (Events{{{}, {1}}}));
    EXPECT_EQ(toEvents.events, (Events{{{1}, {}}}));

    moved->add(makeFeature(2));
    EXPECT_EQ(fromEvents.events.size(), 1u); // the old parent no longer hears the moved group
    ASSERT_EQ(toEvents.events.size(), 2u);
    EXPECT_EQ(toEvents.events[1], std::make_pair(Ids{2}, Ids{}));
}

TEST(FeatureGroupTest, ReAddingAChildMovesItToTheEndWithARemovalAndAnAddition) {
    const auto first = makeFeature(1);
    const auto group = groupOf(100, {first, makeFeature(2)});
    GroupEvents events(*group);

    group->add(first);

    EXPECT_EQ(idsOf(group->getFeatures()), (Ids{2, 1}));
    EXPECT_EQ(events.events, (Events{{{}, {1}}, {{1}, {}}}));
}

// --- layers and statuses ---------------------------------------------------------------------

TEST(FeatureGroupTest, TheLayerIsFoundOnlyAtTheRoot) {
    Tree tree;
    const auto rootLayer = std::make_shared<Layer>("root");
    const auto innerLayer = std::make_shared<Layer>("inner");
    tree.inner->_setLayer(innerLayer);
    EXPECT_EQ(tree.f2->getLayer(), nullptr); // the inner group's layer is ignored
    EXPECT_EQ(tree.inner->getLayer(), nullptr);
    EXPECT_EQ(tree.inner->_getSelfLayer(), innerLayer);

    tree.root->_setLayer(rootLayer);
    EXPECT_EQ(tree.f2->getLayer(), rootLayer);
    EXPECT_EQ(tree.f1->getLayer(), rootLayer);
    EXPECT_EQ(tree.inner->getLayer(), rootLayer);
    EXPECT_EQ(tree.root->getLayer(), rootLayer);
    const FeatureBase& constLeaf = *tree.f3;
    EXPECT_EQ(constLeaf.getLayer(), rootLayer.get());
    const FeatureGroup& constRoot = *tree.root;
    EXPECT_EQ(constRoot._getSelfLayer(), rootLayer.get());
}

TEST(FeatureGroupTest, NoLayerWithoutAParentOrOnceTheLayerIsGone) {
    EXPECT_EQ(makeFeature(1)->getLayer(), nullptr);
    const auto orphan = makeFeature(2);
    const FeatureBase& constOrphan = *orphan;
    EXPECT_EQ(constOrphan.getLayer(), nullptr);

    Tree tree;
    auto layer = std::make_shared<Layer>();
    tree.root->_setLayer(layer);
    ASSERT_EQ(tree.f1->getLayer(), layer);
    layer.reset();
    EXPECT_EQ(tree.f1->getLayer(), nullptr);
    EXPECT_EQ(tree.root->_getSelfLayer(), nullptr);
}

TEST(FeatureGroupTest, ANodeFromAnotherLayerAndItsSubtreeAreMarkedAdded) {
    const auto group = makeGroup(100);
    const auto layer = std::make_shared<Layer>();
    group->_setLayer(layer);
    Tree other;
    const auto otherLayer = std::make_shared<Layer>();
    other.root->_setLayer(otherLayer);
    resetStatus(*other.inner);
    resetStatus(*other.f2);

    EXPECT_TRUE(group->add(other.inner));

    EXPECT_EQ(other.inner->getFeatureStatus(), FeatureStatus::Added);
    EXPECT_EQ(other.f2->getFeatureStatus(), FeatureStatus::Added);
    EXPECT_EQ(other.f3->getFeatureStatus(), FeatureStatus::Added);
    EXPECT_EQ(group->getFeatureStatus(), FeatureStatus::Modified);
    EXPECT_EQ(group->getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_EQ(other.f1->getFeatureStatus(), FeatureStatus::Added); // from its own first add
}

TEST(FeatureGroupTest, ANodeMovedWithinItsLayerKeepsItsStatusAndLeavesTheGroupUnmarked) {
    Tree tree;
    const auto layer = std::make_shared<Layer>();
    tree.root->_setLayer(layer);
    const auto target = makeGroup(300);
    tree.root->add(target);
    for (FeatureBase* node :
         {static_cast<FeatureBase*>(tree.inner.get()), static_cast<FeatureBase*>(tree.f2.get()),
          static_cast<FeatureBase*>(target.get())}) {
        resetStatus(*node);
    }

    EXPECT_TRUE(target->add(tree.inner));

    EXPECT_EQ(tree.inner->getFeatureStatus(), FeatureStatus::None);
    EXPECT_EQ(tree.f2->getFeatureStatus(), FeatureStatus::None);
    EXPECT_EQ(target->getFeatureStatus(), FeatureStatus::None);
    EXPECT_EQ(target->getFeatureChangeType(), 0);
    EXPECT_EQ(tree.inner->getParent(), target.get());
}

TEST(FeatureGroupTest, NodesWithoutAnyLayerCountAsFromAnotherLayer) {
    const auto group = makeGroup(100);
    const auto feature = makeFeature(1);
    group->add(feature);
    resetStatus(*feature);
    resetStatus(*group);
    group->add(feature); // neither has a layer: not the same layer
    EXPECT_EQ(feature->getFeatureStatus(), FeatureStatus::Added);
    EXPECT_EQ(group->getFeatureStatus(), FeatureStatus::Modified);
}

// --- soft removal ----------------------------------------------------------------------------

TEST(FeatureGroupTest, RemoveOfANodeWithoutParentReturnsFalse) {
    const auto group = makeGroup(100);
    const auto orphan = makeFeature(1);
    EXPECT_FALSE(group->remove(orphan));
    EXPECT_FALSE(group->remove(nullptr));
    EXPECT_TRUE(orphan->isShow());
    EXPECT_EQ(orphan->getFeatureStatus(), FeatureStatus::None);
    EXPECT_EQ(group->getFeatureStatus(), FeatureStatus::None);
}

TEST(FeatureGroupTest, RemoveKeepsTheNodeInGetFeaturesHiddenAndMarkedRemoved) {
    Tree tree;
    resetStatus(*tree.root);
    GroupEvents events(*tree.root);
    ChangeCounter counter(*tree.f1);

    EXPECT_TRUE(tree.root->remove(tree.f1));

    EXPECT_EQ(idsOf(tree.root->getFeatures()), (Ids{1, 200, 4}));
    EXPECT_EQ(tree.f1->getParent(), tree.root.get());
    EXPECT_FALSE(tree.f1->isShow());
    EXPECT_EQ(tree.f1->getFeatureStatus(), FeatureStatus::Removed);
    EXPECT_EQ(counter.count, 1); // hiding it changed its showing state
    EXPECT_EQ(tree.root->getFeatureStatus(), FeatureStatus::Modified);
    EXPECT_EQ(tree.root->getFeatureChangeType(), CONTENT_CHANGED);
    EXPECT_TRUE(events.events.empty());
}

TEST(FeatureGroupTest, RemoveOfAGroupHidesAndMarksItsWholeSubtree) {
    Tree tree;
    const auto deeper = makeGroup(300);
    const auto f5 = makeFeature(5);
    deeper->add(f5);
    tree.inner->add(deeper);

    EXPECT_TRUE(tree.root->remove(tree.inner));

    for (const auto& node :
         std::vector<std::shared_ptr<FeatureBase>>{tree.inner, tree.f2, tree.f3, deeper, f5}) {
        EXPECT_FALSE(node->isShow()) << node->getId();
        EXPECT_EQ(node->getFeatureStatus(), FeatureStatus::Removed) << node->getId();
    }
    EXPECT_TRUE(tree.f1->isShow());
    EXPECT_NE(tree.f1->getFeatureStatus(), FeatureStatus::Removed);
}

TEST(FeatureGroupTest, RemoveDoesNotCheckThatTheNodeBelongsToThisGroup) {
    Tree tree;
    const auto stranger = makeGroup(300);
    resetStatus(*stranger);
    EXPECT_TRUE(stranger->remove(tree.f2));
    EXPECT_EQ(tree.f2->getFeatureStatus(), FeatureStatus::Removed);
    EXPECT_EQ(tree.f2->getParent(), tree.inner.get());
    EXPECT_EQ(stranger->getFeatureChangeType(), CONTENT_CHANGED);
}

TEST(FeatureGroupTest, RemoveAllMarksEverySubtreeAndSetsTheStatusUnconditionally) {
    Tree tree;
    tree.root->setFeatureStatus(FeatureStatus::Removed);
    tree.root->resetChangeType(keo::Feature::ShowChanged);

    tree.root->removeAll();

    EXPECT_EQ(tree.root->getFeatureStatus(), FeatureStatus::Modified);
    EXPECT_EQ(tree.root->getFeatureChangeType(), SHOW_CHANGED | CONTENT_CHANGED);
    EXPECT_EQ(tree.root->getFeatures().size(), 3u);
    for (const auto& node : std::vector<std::shared_ptr<FeatureBase>>{tree.f1, tree.inner, tree.f2,
                                                                      tree.f3, tree.f4}) {
        EXPECT_FALSE(node->isShow()) << node->getId();
        EXPECT_EQ(node->getFeatureStatus(), FeatureStatus::Removed) << node->getId();
    }
    EXPECT_TRUE(tree.root->isShow());
}

// --- hard removal ----------------------------------------------------------------------------

TEST(FeatureGroupTest, RemoveFromMemoryTakesTheNodeOutAndReportsItsLeaves) {
    Tree tree;
    GroupEvents events(*tree.root);

    EXPECT_TRUE(tree.root->removeFromMemory(tree.inner));

    EXPECT_EQ(idsOf(tree.root->getFeatures()), (Ids{1, 4}));
    EXPECT_EQ(tree.inner->getParent(), nullptr);
    EXPECT_EQ(tree.f2->getParent(), tree.inner.get());
    EXPECT_EQ(events.events, (Events{{{}, {2, 3}}}));
    EXPECT_TRUE(tree.inner->isShow());

    EXPECT_FALSE(tree.root->removeFromMemory(tree.inner)); // no parent any more
    EXPECT_FALSE(tree.root->removeFromMemory(nullptr));
}

TEST(FeatureGroupTest, RemoveFromMemoryOfAnotherGroupsNodeIsThatGroupsSoftRemoval) {
    Tree tree;
    const auto stranger = makeGroup(300);
    GroupEvents innerEvents(*tree.inner);
    GroupEvents strangerEvents(*stranger);

    EXPECT_TRUE(stranger->removeFromMemory(tree.f2));

    EXPECT_EQ(idsOf(tree.inner->getFeatures()), (Ids{2, 3}));
    EXPECT_EQ(tree.f2->getParent(), tree.inner.get());
    EXPECT_FALSE(tree.f2->isShow());
    EXPECT_EQ(tree.f2->getFeatureStatus(), FeatureStatus::Removed);
    EXPECT_TRUE(innerEvents.events.empty());
    EXPECT_TRUE(strangerEvents.events.empty());
}

TEST(FeatureGroupTest, RemoveFromMemoryDisconnectsTheChildGroupsSubscription) {
    Tree tree;
    GroupEvents events(*tree.root);
    tree.root->removeFromMemory(tree.inner);
    events.events.clear();

    tree.inner->add(makeFeature(7));
    tree.inner->removeFromMemory(tree.f2);

    EXPECT_TRUE(events.events.empty());
}

TEST(FeatureGroupTest, RemoveAllFromMemoryReportsEveryLeafOnceAndEmptiesTheGroup) {
    Tree tree;
    GroupEvents events(*tree.root);
    std::size_t childrenSeenByListener = 0;
    tree.root->_addFeatureAddedOrRemovedEventListener([&](const auto&, const auto&) {
        childrenSeenByListener = tree.root->getFeatures().size();
    });

    tree.root->removeAllFromMemory();

    EXPECT_EQ(events.events, (Events{{{}, {1, 2, 3, 4}}}));
    EXPECT_EQ(childrenSeenByListener, 3u); // the event comes before the list is cleared
    EXPECT_TRUE(tree.root->getFeatures().empty());
    EXPECT_EQ(tree.f1->getParent(), nullptr);
    EXPECT_EQ(tree.inner->getParent(), nullptr);
    EXPECT_EQ(tree.f2->getParent(), tree.inner.get());

    events.events.clear();
    tree.inner->add(makeFeature(7)); // the former child group is no longer heard
    EXPECT_TRUE(events.events.empty());
}

TEST(FeatureGroupTest, RemoveAllFromMemoryOfAnEmptyGroupRaisesAnEmptyEvent) {
    const auto group = makeGroup(100);
    GroupEvents events(*group);
    group->removeAllFromMemory();
    EXPECT_EQ(events.events, (Events{{{}, {}}}));
}

// --- events climbing -------------------------------------------------------------------------

TEST(FeatureGroupTest, EventsClimbThreeLevelsToTheRoot) {
    const auto root = makeGroup(100);
    const auto middle = makeGroup(200);
    const auto bottom = makeGroup(300);
    root->add(middle);
    middle->add(bottom);
    GroupEvents rootEvents(*root);
    GroupEvents middleEvents(*middle);
    const auto feature = makeFeature(1);

    bottom->add(feature);
    bottom->removeFromMemory(feature);
    bottom->add(makeFeature(2));
    bottom->removeAllFromMemory();

    const Events expected{{{1}, {}}, {{}, {1}}, {{2}, {}}, {{}, {2}}};
    EXPECT_EQ(rootEvents.events, expected);
    EXPECT_EQ(middleEvents.events, expected);
}

// --- lookup ----------------------------------------------------------------------------------

TEST(FeatureGroupTest, GetByIdFindsFeaturesDepthFirst) {
    Tree tree;
    EXPECT_EQ(tree.root->getById(3), tree.f3);
    EXPECT_EQ(tree.root->getById(4), tree.f4);
    EXPECT_EQ(tree.root->getById(99), nullptr);

    const auto twin = makeFeature(4);
    tree.inner->add(twin); // inner comes before f4 in the root's list
    EXPECT_EQ(tree.root->getById(4), twin);
}

TEST(FeatureGroupTest, GetByIdWithTheIdOfASubgroupReturnsNull) {
    Tree tree;
    EXPECT_EQ(tree.root->getById(200), nullptr);
    EXPECT_EQ(tree.root->getById(100), nullptr);
}

// --- show ------------------------------------------------------------------------------------

TEST(FeatureGroupTest, HidingAGroupTellsEveryFeatureWhoseShowingChanged) {
    Tree tree;
    tree.f3->setShow(false);
    ChangeCounter c1(*tree.f1);
    ChangeCounter c2(*tree.f2);
    ChangeCounter c3(*tree.f3);
    resetStatus(*tree.root);

    tree.root->setShow(false);

    EXPECT_EQ(c1.count, 1);
    EXPECT_EQ(c2.count, 1);
    EXPECT_EQ(c3.count, 0); // hidden by its own flag
    EXPECT_FALSE(tree.f2->isShowing());
    EXPECT_EQ(tree.root->getFeatureChangeType(), SHOW_CHANGED);
    EXPECT_EQ(tree.root->getFeatureStatus(), FeatureStatus::Modified);

    for (const auto& f : {tree.f1, tree.f2}) {
        f->_updateEntityInCull(false); // a new cycle: each may report again
    }
    tree.root->setShow(true);
    EXPECT_EQ(c1.count, 2);
    EXPECT_EQ(c2.count, 2);
    EXPECT_TRUE(tree.f2->isShowing());
}

TEST(FeatureGroupTest, AHiddenSubgroupKeepsItsSubtreeOutOfTheWalk) {
    Tree tree;
    tree.inner->setShow(false);
    ChangeCounter c2(*tree.f2);
    ChangeCounter c4(*tree.f4);
    tree.root->setShow(false);
    EXPECT_EQ(c2.count, 0);
    EXPECT_EQ(c4.count, 1);
}

TEST(FeatureGroupTest, SetShowWithTheCurrentValueDoesNothing) {
    Tree tree;
    ChangeCounter c1(*tree.f1);
    resetStatus(*tree.root);
    tree.root->setShow(true);
    EXPECT_EQ(c1.count, 0);
    EXPECT_EQ(tree.root->getFeatureStatus(), FeatureStatus::None);
}

TEST(FeatureGroupTest, HidingAGroupWhoseParentIsHiddenRaisesNoFeatureEventButMarksShowChanged) {
    Tree tree;
    tree.root->setShow(false);
    ChangeCounter c2(*tree.f2);
    resetStatus(*tree.inner);

    tree.inner->setShow(false);

    EXPECT_FALSE(tree.inner->isShow());
    EXPECT_EQ(c2.count, 0);
    EXPECT_EQ(tree.inner->getFeatureChangeType(), SHOW_CHANGED);
    EXPECT_EQ(tree.inner->getFeatureStatus(), FeatureStatus::Modified);
}

// --- copies and lifetime ---------------------------------------------------------------------

TEST(FeatureGroupTest, ACopiedGroupOwnsADeepCopyWithItsOwnLinksAndSubscriptions) {
    Tree tree;
    tree.root->setName("root");
    tree.f2->setName("two");
    const auto layer = std::make_shared<Layer>();
    tree.root->_setLayer(layer);

    const std::unique_ptr<FeatureBase> clone = tree.root->clone();
    ASSERT_TRUE(clone->isGroup());
    auto& copied = static_cast<FeatureGroup&>(*clone);

    EXPECT_NE(copied.getId(), tree.root->getId());
    EXPECT_EQ(copied.getName(), "root");
    EXPECT_EQ(copied._getSelfLayer(), nullptr); // the layer is not copied
    ASSERT_EQ(copied.getFeatures().size(), 3u);
    const auto copiedInner =
        std::static_pointer_cast<FeatureGroup>(*std::next(copied.getFeatures().begin()));
    ASSERT_TRUE(copiedInner->isGroup());
    EXPECT_NE(copiedInner, tree.inner);
    EXPECT_EQ(copiedInner->getParent(), &copied);
    ASSERT_EQ(copiedInner->getFeatures().size(), 2u);
    const auto& copiedTwo = copiedInner->getFeatures().front();
    EXPECT_NE(copiedTwo, tree.f2);
    EXPECT_NE(copiedTwo->getId(), tree.f2->getId());
    EXPECT_EQ(copiedTwo->getName(), "two");
    EXPECT_EQ(copiedTwo->getParent(), copiedInner.get());
    EXPECT_EQ(copied.getFeatureStatus(), FeatureStatus::Modified); // children came through add
    EXPECT_EQ(copiedTwo->getFeatureStatus(), FeatureStatus::Added);

    GroupEvents originalEvents(*tree.root);
    GroupEvents copyEvents(copied);
    copiedInner->add(makeFeature(9));
    EXPECT_TRUE(originalEvents.events.empty());
    ASSERT_EQ(copyEvents.events.size(), 1u);
    EXPECT_EQ(copyEvents.events[0].first, (Ids{9}));
    tree.inner->add(makeFeature(8));
    EXPECT_EQ(copyEvents.events.size(), 1u);
    EXPECT_EQ(originalEvents.events.size(), 1u);
}

TEST(FeatureGroupTest, ADestroyedGroupLeavesItsChildrenWithoutParentAndUnheard) {
    const auto inner = makeGroup(200);
    const auto feature = makeFeature(1);
    groupOf(100, {inner, feature}); // the group is gone at the end of the statement
    EXPECT_EQ(inner->getParent(), nullptr);
    EXPECT_EQ(feature->getParent(), nullptr);
    EXPECT_TRUE(feature->isShowing());
    GroupEvents events(*inner);
    inner->add(makeFeature(2)); // the gone root's listener was disconnected
    EXPECT_EQ(events.events.size(), 1u);
}

TEST(FeatureGroupTest, TwoChildGroupsWithOneIdAreHeardAndDisconnectedEachOnItsOwn) {
    const auto a = makeGroup(7);
    const auto b = makeGroup(7);
    const auto root = groupOf(100, {a, b});
    GroupEvents events(*root);

    root->removeFromMemory(a);
    a->add(makeFeature(1)); // no longer a child: not heard
    b->add(makeFeature(2)); // still a child: heard

    EXPECT_EQ(events.events, (Events{{{}, {}}, {{2}, {}}}));
}

TEST(FeatureGroupTest, AGroupRefusesItselfAndItsAncestors) {
    const auto root = std::make_shared<FeatureGroup>();
    const auto middle = std::make_shared<FeatureGroup>();
    const auto leaf = std::make_shared<FeatureGroup>();
    ASSERT_TRUE(root->add(middle));
    ASSERT_TRUE(middle->add(leaf));
    EXPECT_FALSE(leaf->add(leaf));
    EXPECT_FALSE(leaf->add(root));
    EXPECT_FALSE(leaf->insert(0, middle));
    // Nothing moved.
    EXPECT_EQ(root->getParent(), nullptr);
    EXPECT_EQ(middle->getParent(), root.get());
    EXPECT_EQ(leaf->getParent(), middle.get());
    EXPECT_TRUE(leaf->getFeatures().empty());
    EXPECT_EQ(root->getFeatures().size(), 1u);
}

} // namespace
