#pragma once

#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace keo::Feature::test {

/**
 * Checks the edit rule of one setter on a fresh Owner: @p value (different from the default)
 * raises lock, unlock and one definition change; setting it again raises nothing.
 */
template <typename Owner, typename Value, typename Setter>
void expectOneChangeThenNone(Setter&& set, const Value& value) {
    Owner owner;
    const EventRecorder recorder(owner);
    set(owner, value);
    EXPECT_EQ(recorder.events, "LUD");
    set(owner, value);
    EXPECT_EQ(recorder.events, "LUD") << "an equal value must raise nothing";
}

/** Checks that setting @p nanValue (holding a NaN) twice is a change both times. */
template <typename Owner, typename Value, typename Setter>
void expectNaNAlwaysChanges(Setter&& set, const Value& nanValue) {
    Owner owner;
    const EventRecorder recorder(owner);
    set(owner, nanValue);
    set(owner, nanValue);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

/**
 * Watches the order in which assign copies fields: each definition change of the target names
 * the fields that have just become equal to the source's.
 */
class FieldOrder {
public:
    /** Starts watching @p target; add the fields before assigning. */
    template <typename Owner>
    explicit FieldOrder(Owner& target) {
        target._addDefinitionChangedEventListener([this](auto&&...) { onChange(); });
    }
    FieldOrder(const FieldOrder&) = delete;
    FieldOrder& operator=(const FieldOrder&) = delete;

    /** A field named @p name; @p copied tells whether the target's field equals the source's. */
    void add(std::string name, std::function<bool()> copied) {
        fields_.push_back({std::move(name), std::move(copied), false});
    }

    /** The field names in the order they were copied, one group per definition change. */
    const std::vector<std::string>& order() const { return order_; }

private:
    struct Field {
        std::string name;
        std::function<bool()> copied;
        bool seen;
    };

    void onChange() {
        std::string group;
        for (auto& field : fields_) {
            if (!field.seen && field.copied()) {
                field.seen = true;
                group += (group.empty() ? "" : "+") + field.name;
            }
        }
        order_.push_back(group);
    }

    std::vector<Field> fields_;
    std::vector<std::string> order_;
};

/**
 * Checks that @p log holds exactly one record: the assign kind message at level 3 from
 * @p sourcePath (without extension; the real line of its call) in function @p function.
 */
inline void expectAssignKindLogged(const CapturedLog& log, const std::string& sourcePath,
                                   const std::string& function) {
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, sourcePath);
    const int line = logSiteLine(sourcePath, function);
    EXPECT_GT(line, 0);
    EXPECT_EQ(records[0].location.line, line);
    EXPECT_EQ(records[0].location.function, function);
}

/**
 * Checks that assigning a symbol of kind Other (disabled) to a default Target logs the kind
 * message (see expectAssignKindLogged) and changes nothing: no event, still enabled.
 */
template <typename Target, typename Other>
void expectAssignFromAnotherKindIgnored(const std::string& sourcePath,
                                        const std::string& function) {
    const CapturedLog log;
    Other other;
    other.setEnabled(false);
    Target target;
    const EventRecorder recorder(target);
    target.assign(other);
    EXPECT_EQ(recorder.events, "");
    EXPECT_TRUE(target.isEnabled());
    expectAssignKindLogged(log, sourcePath, function);
}

/**
 * Checks that a clone and a copy-constructed copy of @p source have its fields (compared by
 * @p expectSame(copy, source)) and events of their own: @p edit on a copy raises its events
 * only, never the source's.
 */
template <typename Kind, typename ExpectSame, typename Edit>
void expectCopiesAreIndependent(Kind& source, ExpectSame&& expectSame, Edit&& edit) {
    const EventRecorder sourceRecorder(source);
    const auto cloned = source.clone();
    ASSERT_EQ(cloned->getType(), source.getType());
    auto& clone = static_cast<Kind&>(*cloned);
    Kind copy(source);
    for (Kind* const each : {&clone, &copy}) {
        expectSame(*each, source);
        const EventRecorder recorder(*each);
        edit(*each);
        EXPECT_EQ(recorder.events, "LUD");
    }
    EXPECT_EQ(sourceRecorder.events, "");
}

} // namespace keo::Feature::test
