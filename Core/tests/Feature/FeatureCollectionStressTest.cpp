// Threads: features edited on one thread (their own settings, their point geometry and the
// symbols of their point styles, and style swaps), updated on another, and added to and removed
// from a collection on others. The tsan preset runs these tests ("*Stress*") to show there is no
// data race and no lock-order inversion (the lock order is feature, then collection).

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/InvalidParametersException.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::InvalidParametersException;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::PointGeometry;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;

constexpr std::uint64_t FEATURE_COUNT = 24;
constexpr int ROUNDS = 150;

// Where a member's point stands in a round of edits.
Cartographic placeOf(std::uint64_t id, int round) {
    return Cartographic::fromDegrees(100.0 + static_cast<double>(id) * 0.01,
                                     30.0 + static_cast<double>(round) * 0.001, 10.0);
}

std::shared_ptr<PointStyle> makePointStyle() {
    auto style = std::make_shared<PointStyle>();
    style->setPointSymbol(std::make_shared<PointSymbol>());
    return style;
}

// A point feature with two point styles of its own, which the editor swaps, so that its frame
// updates build and rebuild entities.
struct Member {
    explicit Member(std::uint64_t id)
        : feature(std::make_shared<Feature>(id))
        , geometry(std::make_shared<PointGeometry>(placeOf(id, 0)))
        , styles{makePointStyle(), makePointStyle()} {
        feature->setGeometry(geometry);
        feature->setStyle(styles[0]);
    }
    std::shared_ptr<Feature> feature;
    std::shared_ptr<PointGeometry> geometry;
    std::array<std::shared_ptr<PointStyle>, 2> styles;
};

// The style a member wears after the edits of @p round.
std::size_t styleOfRound(int round) {
    return static_cast<std::size_t>(round % 2);
}

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

// Edits every feature ROUNDS times through its setters and those of its geometry and style, each
// of which changes the feature under its lock and then reports the change (taking the
// collection's lock after the feature's); the styles are swapped every round.
void editAll(const std::vector<Member>& members) {
    for (int round = 0; round < ROUNDS; ++round) {
        for (const Member& member : members) {
            member.feature->setLabelText(std::to_string(round));
            member.feature->setShow(round % 2 == 0);
            member.feature->setHighlight(round % 3 == 0);
            member.geometry->setPosition(placeOf(member.feature->getId(), round));
            const auto& style = member.styles[styleOfRound(round)];
            style->getPointSymbol()->setPixelSize(static_cast<float>(round % 20 + 1));
            style->getPointSymbol()->setColor(round % 2 == 0 ? Color::RED : Color::GREEN);
            member.feature->setStyle(style);
        }
    }
}

// What the edits left behind once every thread is done: the last round's settings.
void expectLastRound(const std::vector<Member>& members) {
    const std::string lastText = std::to_string(ROUNDS - 1);
    const std::size_t lastStyle = styleOfRound(ROUNDS - 1);
    for (const Member& member : members) {
        EXPECT_EQ(member.feature->getLabelText(), lastText);
        EXPECT_EQ(member.feature->getStyle(), member.styles[lastStyle].get());
        EXPECT_EQ(member.styles[lastStyle]->getPointSymbol()->getPixelSize(),
                  static_cast<float>((ROUNDS - 1) % 20 + 1));
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
    expectLastRound(members);

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
    expectLastRound(members);
    EXPECT_EQ(notificationsForOneEditEach(members, notified),
              static_cast<int>(notified.members.size()));
}

} // namespace
