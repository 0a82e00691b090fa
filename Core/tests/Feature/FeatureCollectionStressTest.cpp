// Threads: features edited on one thread, updated on another, and added to and removed from a
// collection on others. The tsan preset runs these tests ("*Stress*") to show there is no data
// race and no lock-order inversion (the lock order is feature, then collection).

#include "Common/InvalidParametersException.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using keo::InvalidParametersException;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::Geometry;
using keo::Feature::Style;
using keo::Feature::test::TestGeometry;
using keo::Feature::test::TestStyle;

constexpr std::uint64_t FEATURE_COUNT = 24;
constexpr int ROUNDS = 150;

// A feature with a geometry and a style, so that its frame updates build entities.
struct Member {
    explicit Member(std::uint64_t id)
        : feature(std::make_shared<Feature>(id))
        , geometry(std::make_shared<TestGeometry>(Geometry::Type::Point)) {
        feature->setGeometry(geometry);
        feature->setStyle(std::make_shared<TestStyle>(Style::Type::Point));
    }
    std::shared_ptr<Feature> feature;
    std::shared_ptr<TestGeometry> geometry;
};

/**
 * Follows membership through the notifications alone: an added feature must not be known yet, a
 * removed one must be, a changed one must be a member. Runs under the collection's lock.
 */
class NotifiedMembership {
public:
    explicit NotifiedMembership(FeatureCollection& collection) {
        collection.getCollectionChanged()->addEventListener(
            [this](FeatureCollection*, const FeatureCollection::FeatureList& added,
                   const FeatureCollection::FeatureList& removed,
                   const FeatureCollection::ChangedList& changed) {
                for (const auto& feature : added) {
                    violations += members.insert(feature->getId()).second ? 0 : 1;
                }
                for (const auto& feature : removed) {
                    violations += members.erase(feature->getId()) == 1 ? 0 : 1;
                }
                for (const Feature* feature : changed) {
                    violations += members.count(feature->getId()) == 1 ? 0 : 1;
                }
                ++notifications;
            });
    }
    std::set<std::uint64_t> members;
    int violations = 0;
    int notifications = 0;
};

std::vector<Member> makeMembers() {
    std::vector<Member> members;
    for (std::uint64_t id = 1; id <= FEATURE_COUNT; ++id) {
        members.emplace_back(id);
    }
    return members;
}

// Edits every feature ROUNDS times through its setters, each of which changes the feature under
// its lock and then reports the change (taking the collection's lock after the feature's).
void editAll(const std::vector<Member>& members) {
    for (int round = 0; round < ROUNDS; ++round) {
        for (const Member& member : members) {
            member.feature->setLabelText(std::to_string(round));
            member.feature->setShow(round % 2 == 0);
            member.feature->setHighlight(round % 3 == 0);
        }
    }
}

// Once the threads are done: one more edit of every feature in a new frame. Each member reports
// it in a notification of its own; a feature that is no longer a member reports nothing.
int notificationsForOneEditEach(const std::vector<Member>& members,
                                const NotifiedMembership& notified) {
    const int before = notified.notifications;
    for (const Member& member : members) {
        member.feature->_updateEntityInCull(false);
        member.feature->setLabelText("final");
    }
    return notified.notifications - before;
}

// Runs the frame update of every feature ROUNDS times and takes its entities, as a renderer does.
void updateAll(const std::vector<Member>& members) {
    for (int round = 0; round < ROUNDS; ++round) {
        for (const Member& member : members) {
            member.feature->_updateEntityInCull(false);
            member.feature->_takeAddedEntities();
            member.feature->_takeRemovedEntities();
        }
    }
}

// Adds the feature when it is not a member (another thread may add it first) and removes it
// otherwise; every few rounds inside a suspended batch, now and then removing everything.
void churn(FeatureCollection& collection, const std::vector<Member>& members, int salt) {
    for (int round = 0; round < ROUNDS; ++round) {
        const bool batch = round % 5 == 0;
        if (batch) {
            collection.suspendEvents();
        }
        for (std::size_t i = 0; i < members.size(); ++i) {
            const auto& feature = members[i].feature;
            if ((round + static_cast<int>(i) + salt) % 3 == 0) {
                collection.removeById(feature->getId());
            } else if (!collection.contains(feature)) {
                try {
                    collection.add(feature);
                } catch (const InvalidParametersException&) {
                    // Another thread added it between the check and the add.
                }
            }
        }
        if (batch) {
            collection.resumeEvents();
        }
        if (round % 37 == 36) {
            collection.removeAll();
        }
    }
}

std::set<std::uint64_t> memberIds(const FeatureCollection& collection) {
    std::set<std::uint64_t> ids;
    for (const auto& feature : collection.getValues()) {
        ids.insert(feature->getId());
    }
    return ids;
}

TEST(FeatureCollectionStressTest, EditsUpdatesAndMembershipChangesOnThreeThreads) {
    const std::vector<Member> members = makeMembers();
    FeatureCollection collection;
    NotifiedMembership notified(collection);

    std::thread editor([&members] { editAll(members); });
    std::thread updater([&members] { updateAll(members); });
    std::thread mover([&] { churn(collection, members, 0); });
    editor.join();
    updater.join();
    mover.join();

    EXPECT_EQ(notified.violations, 0);
    EXPECT_GT(notified.notifications, 0);
    EXPECT_EQ(notified.members, memberIds(collection));
    for (const Member& member : members) {
        EXPECT_EQ(member.feature->getLabelText(), std::to_string(ROUNDS - 1));
    }

    // Every member is still watched exactly once, and no former member is.
    EXPECT_EQ(notificationsForOneEditEach(members, notified),
              static_cast<int>(notified.members.size()));
    EXPECT_EQ(notified.violations, 0);
}

TEST(FeatureCollectionStressTest, TwoThreadsAddingAndRemovingTheSameFeaturesWhileTheyAreEdited) {
    const std::vector<Member> members = makeMembers();
    FeatureCollection collection;
    NotifiedMembership notified(collection);

    std::thread editor([&members] { editAll(members); });
    std::thread first([&] { churn(collection, members, 0); });
    std::thread second([&] { churn(collection, members, 1); });
    editor.join();
    first.join();
    second.join();

    EXPECT_EQ(notified.violations, 0);
    EXPECT_EQ(notified.members, memberIds(collection));
    EXPECT_EQ(notificationsForOneEditEach(members, notified),
              static_cast<int>(notified.members.size()));
}

} // namespace
