#include "Feature/FeatureCollection.h"

#include "Common/InvalidParametersException.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using keo::InvalidParametersException;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::FeatureGroup;
using keo::Feature::test::ChangeCounter;
using keo::Feature::test::Ids;
using keo::Feature::test::idsOf;
using keo::Feature::test::makeFeature;

// One delivered notification, as ids.
struct Batch {
    Ids added;
    Ids removed;
    Ids changed;

    bool operator==(const Batch& other) const {
        return added == other.added && removed == other.removed && changed == other.changed;
    }
};
using Batches = std::vector<Batch>;

void PrintTo(const Batch& batch, std::ostream* out) {
    *out << "{added " << ::testing::PrintToString(batch.added) << ", removed "
         << ::testing::PrintToString(batch.removed) << ", changed "
         << ::testing::PrintToString(batch.changed) << "}";
}

Batch addedOnly(Ids ids) {
    return {std::move(ids), {}, {}};
}
Batch removedOnly(Ids ids) {
    return {{}, std::move(ids), {}};
}
Batch changedOnly(Ids ids) {
    return {{}, {}, std::move(ids)};
}

// Records every notification of a collection; `onNotify` (if set) runs after each record,
// `duringFirst` (if set) after the first one.
struct Notifications {
    explicit Notifications(FeatureCollection& collection) {
        collection.getCollectionChanged()->addEventListener(
            [this](FeatureCollection* source, const FeatureCollection::FeatureList& added,
                   const FeatureCollection::FeatureList& removed,
                   const FeatureCollection::ChangedList& changed) {
                sources.push_back(source);
                batches.push_back({idsOf(added), idsOf(removed), idsOf(changed)});
                if (onNotify) {
                    onNotify();
                }
                if (duringFirst && batches.size() == 1) {
                    duringFirst();
                }
            });
    }
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

    std::vector<FeatureCollection*> sources;
    std::vector<Batch> batches;
    std::function<void()> onNotify;
    std::function<void()> duringFirst; // runs while the first notification is delivered
};

// Makes @p feature report a change of its definition, as an edit between two frames does: the
// frame update opens a new cycle (a feature reports once per cycle), then the label text changes.
void edit(Feature& feature) {
    feature._updateEntityInCull(false);
    feature.setLabelText(feature.getLabelText() + "x");
}

// Runs @p call, expects it to throw the collection's InvalidParametersException with these
// fields, and returns nothing else.
void expectInvalidParameters(const std::function<void()>& call, const std::string& message,
                             const std::string& function, int line) {
    try {
        call();
        ADD_FAILURE() << "no exception for " << function;
    } catch (const InvalidParametersException& error) {
        EXPECT_EQ(error.getErrorCode(), 2);
        EXPECT_EQ(error.getMessage(), message);
        EXPECT_STREQ(error.what(), message.c_str());
        EXPECT_EQ(error.getFunction(), function);
        EXPECT_EQ(error.getFile(), "Core/src/Feature/FeatureCollection");
        EXPECT_EQ(error.getLine(), line);
    }
}

// A collection whose notifications are recorded from the start.
class FeatureCollectionTest : public ::testing::Test {
protected:
    // A new feature with @p id added as a member; what that addition notified is forgotten.
    std::shared_ptr<Feature> member(std::uint64_t id) {
        auto feature = makeFeature(id);
        collection.add(feature);
        notifications.batches.clear();
        notifications.sources.clear();
        return feature;
    }

    FeatureCollection collection;
    Notifications notifications{collection};
};

// --- membership ------------------------------------------------------------------------------

TEST_F(FeatureCollectionTest, NewCollectionIsEmptyShownAndNotNotifying) {
    EXPECT_TRUE(collection.getValues().empty());
    EXPECT_TRUE(collection.isShow());
    EXPECT_FALSE(collection.isFiring());
    EXPECT_FALSE(collection.isRefire());
    EXPECT_EQ(collection.getSuspendCount(), 0u);
    EXPECT_NE(collection.getCollectionChanged(), nullptr);
}

TEST_F(FeatureCollectionTest, EachCollectionDrawsItsOwnId) {
    const FeatureCollection a;
    const FeatureCollection b;
    EXPECT_NE(a.getId(), b.getId());
}

TEST_F(FeatureCollectionTest, AddReturnsTheFeatureAndKeepsMembersInInsertionOrder) {
    const auto first = makeFeature(30);
    const auto second = makeFeature(10);
    const auto third = makeFeature(20);

    EXPECT_EQ(collection.add(first), first);
    collection.add(second);
    collection.add(third);

    EXPECT_EQ(idsOf(collection.getValues()), (Ids{30, 10, 20}));
    EXPECT_EQ(collection.getById(10), second);
    EXPECT_TRUE(collection.contains(third));
    EXPECT_EQ(collection.getById(99), nullptr);
    EXPECT_FALSE(collection.contains(makeFeature(99)));
}

TEST_F(FeatureCollectionTest, ContainsComparesIdsNotObjects) {
    collection.add(makeFeature(4));
    EXPECT_TRUE(collection.contains(makeFeature(4)));
}

TEST_F(FeatureCollectionTest, AddingSecondFeatureWithExistingIdThrowsEvenForAnotherObject) {
    const auto held = member(7);
    const auto other = makeFeature(7);

    expectInvalidParameters([&] { collection.add(other); },
                            "An feature with id 7 already exists in this collection.",
                            "FeatureCollection::add()", 63);

    EXPECT_EQ(collection.getById(7), held);
    EXPECT_EQ(collection.getValues().size(), 1u);
    EXPECT_TRUE(notifications.batches.empty());
    // The rejected object is not watched: its edits reach no notification.
    edit(*other);
    EXPECT_TRUE(notifications.batches.empty());
}

TEST_F(FeatureCollectionTest, ARejectedDuplicateLeavesTheWaitingBatchesAsTheyWere) {
    const auto returning = member(5);
    collection.suspendEvents();
    collection.add(makeFeature(1));
    collection.add(makeFeature(2));
    collection.remove(*returning);
    expectInvalidParameters([&] { collection.add(makeFeature(2)); },
                            "An feature with id 2 already exists in this collection.",
                            "FeatureCollection::add()", 63);
    collection.add(makeFeature(3));
    collection.add(returning); // back from the removed batch: in neither batch
    collection.resumeEvents();
    EXPECT_EQ(notifications.batches, Batches{addedOnly({1, 2, 3})});
    EXPECT_EQ(idsOf(collection.getValues()), (Ids{1, 2, 3, 5}));
}

TEST_F(FeatureCollectionTest, AddingTheSameObjectTwiceThrows) {
    const auto feature = member(18446744073709551615u);
    expectInvalidParameters(
        [&] { collection.add(feature); },
        "An feature with id 18446744073709551615 already exists in this collection.",
        "FeatureCollection::add()", 63);
    // Still watched once: one edit, one change.
    edit(*feature);
    EXPECT_EQ(notifications.batches, Batches{changedOnly({18446744073709551615u})});
}

TEST_F(FeatureCollectionTest, AddingNullThrowsTheRequiredError) {
    expectInvalidParameters([&] { collection.add(nullptr); }, "feature is required.",
                            "FeatureCollection::add()", 53);
    EXPECT_TRUE(collection.getValues().empty());
}

TEST_F(FeatureCollectionTest, ContainsWithNullThrowsTheRequiredErrorWithoutFullStop) {
    expectInvalidParameters([&] { (void)collection.contains(nullptr); }, "feature is required",
                            "FeatureCollection::contains()", 174);
}

TEST_F(FeatureCollectionTest, RemoveByIdOfAnAbsentIdReturnsFalseAndNotifiesNothing) {
    member(1);
    EXPECT_FALSE(collection.removeById(2));
    EXPECT_TRUE(notifications.batches.empty());
}

TEST_F(FeatureCollectionTest, RemoveTakesTheMemberWithTheFeaturesId) {
    const auto held = member(3);
    Feature sameId(std::uint64_t{3});
    EXPECT_TRUE(collection.remove(sameId));
    EXPECT_FALSE(collection.contains(held));
    EXPECT_FALSE(collection.remove(*held));
}

TEST_F(FeatureCollectionTest, RemoveByIdZeroReturnsFalseWithoutTakingTheLock) {
    const auto zero = member(0); // a member with id 0 cannot be removed by id
    bool answeredWhileLocked = false;
    bool answer = true;
    notifications.onNotify = [&] {
        // Listeners run with the collection's lock held: another thread gets an answer at once
        // only if removeById(0) does not wait for that lock.
        auto other = std::async(std::launch::async, [&] { return collection.removeById(0); });
        answeredWhileLocked = other.wait_for(std::chrono::seconds(30)) == std::future_status::ready;
        answer = other.get();
    };
    collection.add(makeFeature(1));

    EXPECT_TRUE(answeredWhileLocked);
    EXPECT_FALSE(answer);
    EXPECT_TRUE(collection.contains(zero));
}

TEST_F(FeatureCollectionTest, RemovedFeatureIsNoLongerWatched) {
    const auto feature = member(1);
    collection.removeById(1);
    edit(*feature);
    EXPECT_EQ(notifications.batches, Batches{removedOnly({1})});
}

TEST_F(FeatureCollectionTest, DestroyedCollectionStopsWatchingItsMembers) {
    const auto feature = makeFeature(1);
    int notified = 0;
    {
        FeatureCollection scoped;
        scoped.add(feature);
        scoped.getCollectionChanged()->addEventListener([&notified](auto&&...) { ++notified; });
    }
    edit(*feature); // the collection's listener is gone: nothing is called
    EXPECT_EQ(notified, 0);
    ChangeCounter counter(*feature);
    edit(*feature);
    EXPECT_EQ(counter.count, 1);
}

// --- notifications ---------------------------------------------------------------------------

TEST_F(FeatureCollectionTest, EachOperationNotifiesAtOnceWithTheCollection) {
    const auto feature = makeFeature(5);

    collection.add(feature);
    edit(*feature);
    collection.removeById(5);

    EXPECT_EQ(notifications.batches, (Batches{addedOnly({5}), changedOnly({5}), removedOnly({5})}));
    EXPECT_EQ(notifications.sources, (std::vector<FeatureCollection*>(3, &collection)));
}

TEST_F(FeatureCollectionTest, BatchesKeepTheOrderInWhichFeaturesEnteredThem) {
    std::map<std::uint64_t, std::shared_ptr<Feature>> features;
    for (const std::uint64_t id : {1u, 2u, 3u}) {
        features[id] = makeFeature(id);
    }
    for (const std::uint64_t id : {4u, 5u, 6u}) {
        features[id] = member(id);
    }

    collection.suspendEvents();
    collection.add(features[3]);
    collection.add(features[1]);
    collection.add(features[2]);
    edit(*features[6]);
    edit(*features[4]);
    edit(*features[6]); // already waiting: keeps its place
    collection.removeById(5);
    collection.removeById(4); // leaves the changed batch for the removed one
    collection.resumeEvents();

    EXPECT_EQ(notifications.batches, (Batches{{{3, 1, 2}, {5, 4}, {6}}}));
}

TEST_F(FeatureCollectionTest, AChangeOfAFeatureWaitingInTheAddedBatchIsNotReported) {
    const auto feature = makeFeature(1);

    collection.suspendEvents();
    collection.add(feature);
    edit(*feature);
    collection.resumeEvents();

    EXPECT_EQ(notifications.batches, Batches{addedOnly({1})});
}

TEST_F(FeatureCollectionTest, AddThenRemoveWhileSuspendedYieldsNoNotification) {
    const auto feature = makeFeature(1);

    collection.suspendEvents();
    collection.add(feature);
    edit(*feature);
    EXPECT_TRUE(collection.removeById(1));
    collection.resumeEvents();

    EXPECT_TRUE(notifications.batches.empty());
    EXPECT_TRUE(collection.getValues().empty());
}

TEST_F(FeatureCollectionTest, RemoveThenReAddWithinOneBatchIsReportedAsNeitherButLaterChangesAre) {
    const auto feature = member(1);

    collection.suspendEvents();
    collection.removeById(1);
    collection.add(feature);
    collection.resumeEvents();
    EXPECT_TRUE(notifications.batches.empty());

    edit(*feature);
    EXPECT_EQ(notifications.batches, Batches{changedOnly({1})});
}

TEST_F(FeatureCollectionTest, ReAddingAnotherObjectWithTheRemovedIdWatchesOnlyTheNewObject) {
    const auto old = member(1);
    const auto replacement = makeFeature(1);

    collection.suspendEvents();
    collection.removeById(1);
    collection.add(replacement);
    collection.resumeEvents();
    edit(*old);
    EXPECT_TRUE(notifications.batches.empty());

    edit(*replacement);
    EXPECT_EQ(notifications.batches, Batches{changedOnly({1})});
    EXPECT_EQ(collection.getById(1), replacement);
}

TEST_F(FeatureCollectionTest, RemoveAllReportsMembersNotWaitingAsAddedAndNotifiesOnce) {
    const auto a = makeFeature(1);
    const auto b = makeFeature(2);
    const auto c = makeFeature(3);
    collection.add(a);
    collection.add(b);

    collection.suspendEvents();
    edit(*b);
    collection.add(c);
    collection.resumeEvents();
    notifications.batches.clear();

    collection.suspendEvents();
    edit(*a);
    const auto d = makeFeature(4);
    collection.add(d);
    collection.removeAll();
    collection.resumeEvents();

    EXPECT_EQ(notifications.batches, Batches{removedOnly({1, 2, 3})});
    EXPECT_TRUE(collection.getValues().empty());

    edit(*a);
    edit(*d);
    EXPECT_EQ(notifications.batches.size(), 1u); // no member is watched any more
}

TEST_F(FeatureCollectionTest, RemoveAllOfAnEmptyCollectionNotifiesNothing) {
    collection.removeAll();
    EXPECT_TRUE(notifications.batches.empty());
}

TEST_F(FeatureCollectionTest, FireChangedEventWithNothingRecordedNotifiesNothing) {
    collection.fireChangedEvent();
    EXPECT_TRUE(notifications.batches.empty());
}

TEST_F(FeatureCollectionTest, DirectChangeReportOfAMemberJoinsTheChangedBatch) {
    const auto feature = member(1);
    collection._onFeatureDefinitionChanged(feature.get());
    collection._onFeatureDefinitionChanged(nullptr);
    EXPECT_EQ(notifications.batches, Batches{changedOnly({1})});
}

// --- suspend and resume ----------------------------------------------------------------------

TEST_F(FeatureCollectionTest, ResumeEventsWithNoMatchingSuspendEventsThrowsAndChangesNothing) {
    expectInvalidParameters([&] { collection.resumeEvents(); },
                            "resumeEvents can not be called before suspendEvents.",
                            "FeatureCollection::resumeEvents()", 42);
    EXPECT_EQ(collection.getSuspendCount(), 0u);

    // Once more after a balanced pair, with something recorded and suspended.
    collection.suspendEvents();
    collection.resumeEvents();
    collection.suspendEvents();
    collection.add(makeFeature(1));
    collection.resumeEvents();
    notifications.batches.clear();
    expectInvalidParameters([&] { collection.resumeEvents(); },
                            "resumeEvents can not be called before suspendEvents.",
                            "FeatureCollection::resumeEvents()", 42);
    EXPECT_EQ(collection.getSuspendCount(), 0u);
    EXPECT_TRUE(notifications.batches.empty());
    EXPECT_EQ(collection.getValues().size(), 1u);
}

TEST_F(FeatureCollectionTest, NestedSuspendNotifiesOnceAtTheOutermostResume) {
    collection.suspendEvents();
    collection.add(makeFeature(1));
    collection.suspendEvents();
    EXPECT_EQ(collection.getSuspendCount(), 2u);
    collection.add(makeFeature(2));
    collection.resumeEvents();
    EXPECT_EQ(collection.getSuspendCount(), 1u);
    collection.fireChangedEvent();
    EXPECT_TRUE(notifications.batches.empty());

    collection.resumeEvents();
    EXPECT_EQ(collection.getSuspendCount(), 0u);
    EXPECT_EQ(notifications.batches, Batches{addedOnly({1, 2})});
}

TEST_F(FeatureCollectionTest, BulkAddInsideSuspendProducesOneNotification) {
    collection.suspendEvents();
    Ids expected;
    for (std::uint64_t id = 1; id <= 100; ++id) {
        collection.add(makeFeature(id));
        expected.push_back(id);
    }
    collection.resumeEvents();
    EXPECT_EQ(notifications.batches, Batches{addedOnly(expected)});
}

// --- re-entrant listeners --------------------------------------------------------------------

TEST_F(FeatureCollectionTest,
       AFeatureThatChangesDuringDeliveryIsReportedInASecondDeliveryOfTheSameCall) {
    const auto feature = member(1);
    const auto added = makeFeature(2);
    notifications.duringFirst = [&] {
        EXPECT_TRUE(collection.isFiring());
        edit(*feature);
        EXPECT_TRUE(collection.isRefire());
    };

    collection.add(added);

    EXPECT_EQ(notifications.batches, (Batches{addedOnly({2}), changedOnly({1})}));
    EXPECT_FALSE(collection.isFiring());
    EXPECT_FALSE(collection.isRefire());
}

TEST_F(FeatureCollectionTest, AJustAddedFeatureEditedByAListenerIsReportedAsChangedNext) {
    const auto feature = makeFeature(1);
    notifications.duringFirst = [&] { edit(*feature); };
    collection.add(feature);
    EXPECT_EQ(notifications.batches, (Batches{addedOnly({1}), changedOnly({1})}));
}

TEST_F(FeatureCollectionTest, AListenerThatRemovesAFeatureIsToldInTheSameCall) {
    member(1);
    notifications.duringFirst = [&] { EXPECT_TRUE(collection.removeById(1)); };

    collection.add(makeFeature(2));

    EXPECT_EQ(notifications.batches, (Batches{addedOnly({2}), removedOnly({1})}));
    EXPECT_EQ(idsOf(collection.getValues()), (Ids{2}));
}

TEST_F(FeatureCollectionTest, AListenerThatRemovesTheFeatureJustAddedReportsItRemoved) {
    notifications.duringFirst = [&] { collection.removeById(1); };
    collection.add(makeFeature(1));
    EXPECT_EQ(notifications.batches, (Batches{addedOnly({1}), removedOnly({1})}));
}

TEST_F(FeatureCollectionTest, AListenerAddedDuringDeliveryHearsOnlyTheNextDelivery) {
    std::vector<Batch> heardByLate;
    const auto listenLate = [&] {
        collection.getCollectionChanged()->addEventListener(
            [&heardByLate](FeatureCollection*, const FeatureCollection::FeatureList& added,
                           const FeatureCollection::FeatureList& removed,
                           const FeatureCollection::ChangedList& changed) {
                heardByLate.push_back({idsOf(added), idsOf(removed), idsOf(changed)});
            });
    };
    notifications.duringFirst = [&] { listenLate(); };

    collection.add(makeFeature(1));
    EXPECT_EQ(notifications.batches.size(), 1u);
    EXPECT_TRUE(heardByLate.empty());

    collection.add(makeFeature(2));
    ASSERT_EQ(heardByLate.size(), 1u);
    EXPECT_EQ(heardByLate[0].added, (Ids{2}));
}

TEST_F(FeatureCollectionTest, AListenerAddedDuringDeliveryHearsTheRefireOfTheSameCall) {
    int lateCalls = 0;
    notifications.duringFirst = [&] {
        collection.getCollectionChanged()->addEventListener(
            [&lateCalls](auto&&...) { ++lateCalls; });
        collection.add(makeFeature(2));
    };
    collection.add(makeFeature(1));
    EXPECT_EQ(notifications.batches, (Batches{addedOnly({1}), addedOnly({2})}));
    EXPECT_EQ(lateCalls, 1);
}

TEST_F(FeatureCollectionTest, ARefireAskedForWithNothingNewDeliversEmptyBatches) {
    notifications.duringFirst = [&] { collection.fireChangedEvent(); };
    collection.add(makeFeature(1));
    EXPECT_EQ(notifications.batches, (Batches{addedOnly({1}), Batch{}}));
}

TEST_F(FeatureCollectionTest, WhileTheFiringFlagIsSetChangesAskForARefireInsteadOfNotifying) {
    collection.setFiring(true);
    collection.add(makeFeature(1));
    EXPECT_TRUE(notifications.batches.empty());
    EXPECT_TRUE(collection.isRefire());

    collection.setFiring(false);
    collection.setRefire(false);
    collection.fireChangedEvent();
    EXPECT_EQ(notifications.batches, Batches{addedOnly({1})});
}

TEST_F(FeatureCollectionTest, AThrowingListenerLeavesTheCollectionNotifying) {
    notifications.duringFirst = [&] { throw std::runtime_error("listener failed"); };
    EXPECT_THROW(collection.add(makeFeature(1)), std::runtime_error);
    EXPECT_FALSE(collection.isFiring());
    EXPECT_TRUE(collection.contains(makeFeature(1)));

    collection.add(makeFeature(2));
    EXPECT_EQ(notifications.batches, (Batches{addedOnly({1}), addedOnly({2})}));
}

// --- show ------------------------------------------------------------------------------------

TEST_F(FeatureCollectionTest, SetShowStoresTheFlagAndReRaisesOnlyFeaturesWhoseShowingChanged) {
    const auto shown = makeFeature(1);
    const auto hidden = makeFeature(2);
    hidden->setShow(false);
    const auto group = std::make_shared<FeatureGroup>();
    const auto underHiddenGroup = makeFeature(3);
    group->add(underHiddenGroup);
    group->setShow(false);
    for (const auto& feature : {shown, hidden, underHiddenGroup}) {
        collection.add(feature);
        feature->_updateEntityInCull(false); // a new cycle: each could raise again
    }
    notifications.batches.clear();
    ChangeCounter shownCounter(*shown);
    ChangeCounter hiddenCounter(*hidden);
    ChangeCounter groupedCounter(*underHiddenGroup);

    collection.setShow(false);

    // The collection's flag is not part of a feature's showing state: no state changed.
    EXPECT_FALSE(collection.isShow());
    EXPECT_EQ(shownCounter.count + hiddenCounter.count + groupedCounter.count, 0);
    EXPECT_TRUE(notifications.batches.empty());
    EXPECT_EQ(collection.getSuspendCount(), 0u);
    EXPECT_TRUE(shown->isShowing());

    collection.setShow(true);
    EXPECT_TRUE(collection.isShow());
    EXPECT_EQ(shownCounter.count + hiddenCounter.count + groupedCounter.count, 0);
}

TEST_F(FeatureCollectionTest, SetShowWithTheCurrentValueDoesNothing) {
    member(1);
    collection.setShow(true);
    EXPECT_TRUE(collection.isShow());
    EXPECT_TRUE(notifications.batches.empty());
}

TEST_F(FeatureCollectionTest, ChangesRecordedWhileSetShowRunsAreDeliveredByItsResume) {
    const auto feature = member(1);
    collection.suspendEvents();
    edit(*feature);
    collection.setShow(false); // its resume leaves the outer suspension in force
    EXPECT_TRUE(notifications.batches.empty());
    collection.resumeEvents();
    EXPECT_EQ(notifications.batches, Batches{changedOnly({1})});
}

// --- the rules against a model ---------------------------------------------------------------

// The rules of the collection, restated on plain vectors of ids.
class CollectionModel {
public:
    void add(std::uint64_t id) {
        members_.push_back(id);
        if (!erase(removed_, id)) {
            added_.push_back(id);
        }
    }
    bool remove(std::uint64_t id) {
        if (!erase(members_, id)) {
            return false;
        }
        if (!erase(added_, id)) {
            removed_.push_back(id);
            erase(changed_, id);
        }
        return true;
    }
    void removeAll() {
        for (const std::uint64_t id : members_) {
            if (!contains(added_, id)) {
                removed_.push_back(id);
            }
        }
        members_.clear();
        added_.clear();
        changed_.clear();
    }
    void change(std::uint64_t id) {
        if (contains(members_, id) && !contains(added_, id) && !contains(changed_, id)) {
            changed_.push_back(id);
        }
    }
    void suspend() { ++suspended_; }
    void resume() { --suspended_; }
    int suspended() const { return suspended_; }

    // The notification the collection must have sent after the last operation, if any.
    bool takeDue(Batch& batch) {
        if (suspended_ != 0 || (added_.empty() && removed_.empty() && changed_.empty())) {
            return false;
        }
        batch = {added_, removed_, changed_};
        added_.clear();
        removed_.clear();
        changed_.clear();
        return true;
    }
    bool isMember(std::uint64_t id) const { return contains(members_, id); }
    const Ids& members() const { return members_; }

private:
    static bool contains(const Ids& ids, std::uint64_t id) {
        return std::find(ids.begin(), ids.end(), id) != ids.end();
    }
    static bool erase(Ids& ids, std::uint64_t id) {
        const auto found = std::find(ids.begin(), ids.end(), id);
        if (found == ids.end()) {
            return false;
        }
        ids.erase(found);
        return true;
    }

    Ids members_;
    Ids added_;
    Ids removed_;
    Ids changed_;
    int suspended_ = 0;
};

bool disjoint(const Ids& a, const Ids& b) {
    return std::none_of(a.begin(), a.end(), [&b](std::uint64_t id) {
        return std::find(b.begin(), b.end(), id) != b.end();
    });
}

void runRandomSequence(unsigned seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    constexpr std::uint64_t POOL = 12;
    constexpr int STEPS = 400;
    std::mt19937 random(seed);
    std::vector<std::shared_ptr<Feature>> pool;
    for (std::uint64_t id = 1; id <= POOL; ++id) {
        pool.push_back(makeFeature(id));
    }
    FeatureCollection collection;
    CollectionModel model;
    Notifications notifications(collection);
    notifications.onNotify = [&] {
        // Invariants of every delivered batch, checked while the listener runs.
        const Batch& batch = notifications.batches.back();
        EXPECT_TRUE(disjoint(batch.added, batch.removed));
        EXPECT_TRUE(disjoint(batch.changed, batch.added));
        for (const std::uint64_t id : batch.added) {
            EXPECT_TRUE(collection.getById(id) != nullptr);
        }
    };
    std::uniform_int_distribution<int> operation(0, 99);
    std::uniform_int_distribution<std::uint64_t> pick(0, POOL - 1);

    for (int step = 0; step < STEPS; ++step) {
        const std::size_t before = notifications.batches.size();
        const auto& feature = pool[pick(random)];
        const std::uint64_t id = feature->getId();
        const int op = operation(random);
        if (op < 30) {
            if (model.isMember(id)) {
                EXPECT_THROW(collection.add(feature), InvalidParametersException);
            } else {
                collection.add(feature);
                model.add(id);
            }
        } else if (op < 50) {
            EXPECT_EQ(collection.removeById(id), model.remove(id));
        } else if (op < 85) {
            edit(*feature);
            model.change(id);
        } else if (op < 92) {
            collection.suspendEvents();
            model.suspend();
        } else if (op < 98) {
            if (model.suspended() > 0) {
                collection.resumeEvents();
                model.resume();
            }
        } else {
            collection.removeAll();
            model.removeAll();
        }

        Batch due;
        if (model.takeDue(due)) {
            ASSERT_EQ(notifications.batches.size(), before + 1) << "step " << step;
            const Batch& got = notifications.batches.back();
            EXPECT_EQ(got.added, due.added) << "step " << step;
            EXPECT_EQ(got.removed, due.removed) << "step " << step;
            EXPECT_EQ(got.changed, due.changed) << "step " << step;
        } else {
            ASSERT_EQ(notifications.batches.size(), before) << "step " << step;
        }
        ASSERT_EQ(idsOf(collection.getValues()), model.members()) << "step " << step;
    }
}

TEST_F(FeatureCollectionTest, RandomSequencesFollowTheBatchRulesOfASimpleModel) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        runRandomSequence(seed);
        if (HasFatalFailure()) {
            return;
        }
    }
}

} // namespace
