#include "Feature/PointStyle.h"

#include "Common/Color.h"
#include "Common/Vector3.h"
#include "Data/HeightReference.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/ModelSymbol.h"
#include "Feature/ParticleEmitter.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointSymbol.h"
#include "FeatureTestSupport.h"
#include "StyleSlotTestSupport.h"
#include "SymbolTestSupport.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using keo::Color;
using keo::HeightReference;
using keo::Feature::BillboardSymbol;
using keo::Feature::CircleEmitter;
using keo::Feature::LabelSymbol;
using keo::Feature::ModelSymbol;
using keo::Feature::ParticleSystemSymbol;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;
using keo::Feature::Style;
using keo::Feature::Symbol;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectAssignKindLogged;
using keo::Feature::test::FieldOrder;
using keo::Feature::test::TestStyle;

using Slot = keo::Feature::test::StyleSlot<PointStyle>;

template <typename Kind, typename Setter, typename Getter, typename Edit>
Slot makeSlot(std::string name, Setter setter, Getter getter, Edit edit) {
    return keo::Feature::test::makeStyleSlot<Kind, PointStyle>(std::move(name), setter, getter,
                                                               edit);
}

std::vector<Slot> allSlots() {
    return {
        makeSlot<PointSymbol>("point", &PointStyle::setPointSymbol,
                              static_cast<const std::shared_ptr<PointSymbol>& (PointStyle::*)()>(
                                  &PointStyle::getPointSymbol),
                              [](PointSymbol& s) { s.setPixelSize(s.getPixelSize() + 1.0f); }),
        makeSlot<BillboardSymbol>(
            "billboard", &PointStyle::setBillboardSymbol,
            static_cast<const std::shared_ptr<BillboardSymbol>& (PointStyle::*)()>(
                &PointStyle::getBillboardSymbol),
            [](BillboardSymbol& s) { s.setScale(s.getScale() + 1.0f); }),
        makeSlot<ModelSymbol>("model", &PointStyle::setModelSymbol,
                              static_cast<const std::shared_ptr<ModelSymbol>& (PointStyle::*)()>(
                                  &PointStyle::getModelSymbol),
                              [](ModelSymbol& s) { s.setAllowPicking(!s.isAllowPicking()); }),
        makeSlot<ParticleSystemSymbol>(
            "particle system", &PointStyle::setParticleSystemSymbol,
            static_cast<const std::shared_ptr<ParticleSystemSymbol>& (PointStyle::*)()>(
                &PointStyle::getParticleSystemSymbol),
            [](ParticleSystemSymbol& s) { s.setGravity(s.getGravity() - 1.0f); }),
    };
}

// A style with a symbol in every slot, each with a value that differs from the default.
std::shared_ptr<PointStyle> fullStyle() {
    auto style = std::make_shared<PointStyle>();
    for (const auto& slot : allSlots()) {
        const auto symbol = slot.make();
        slot.edit(*symbol);
        slot.set(*style, symbol);
    }
    return style;
}

TEST(PointStyleTest, ANewStyleIsOfThePointKindAndHoldsNoSymbol) {
    PointStyle style;
    const PointStyle& constStyle = style;
    EXPECT_EQ(style.getType(), Style::Type::Point);
    EXPECT_EQ(style.asPointStyle(), &style);
    EXPECT_EQ(constStyle.asPointStyle(), &style);
    EXPECT_EQ(static_cast<Style&>(style).asPointStyle(), &style);
    EXPECT_EQ(style.asPolylineStyle(), nullptr);
    EXPECT_EQ(style.getPointSymbol(), nullptr);
    EXPECT_EQ(style.getBillboardSymbol(), nullptr);
    EXPECT_EQ(style.getModelSymbol(), nullptr);
    EXPECT_EQ(style.getParticleSystemSymbol(), nullptr);
    EXPECT_EQ(style.getLabelSymbol(), nullptr);
}

TEST(PointStyleTest, AConstStyleGivesTheDotAsASharedPointerAndTheOthersAsConstPointers) {
    using ConstStyle = const PointStyle&;
    static_assert(
        std::is_same_v<std::decay_t<decltype(std::declval<ConstStyle>().getPointSymbol())>,
                       std::shared_ptr<PointSymbol>>);
    static_assert(std::is_same_v<decltype(std::declval<ConstStyle>().getBillboardSymbol()),
                                 const BillboardSymbol*>);
    static_assert(
        std::is_same_v<decltype(std::declval<ConstStyle>().getModelSymbol()), const ModelSymbol*>);
    static_assert(std::is_same_v<decltype(std::declval<ConstStyle>().getParticleSystemSymbol()),
                                 const ParticleSystemSymbol*>);
    const auto style = fullStyle();
    const PointStyle& constStyle = *style;
    EXPECT_EQ(constStyle.getPointSymbol(), style->getPointSymbol());
    EXPECT_EQ(constStyle.getBillboardSymbol(), style->getBillboardSymbol().get());
    EXPECT_EQ(constStyle.getModelSymbol(), style->getModelSymbol().get());
    EXPECT_EQ(constStyle.getParticleSystemSymbol(), style->getParticleSystemSymbol().get());
}

TEST(PointStyleTest, SettingTheSamePointerTwiceRaisesEventsOnlyTheFirstTime) {
    keo::Feature::test::expectTheSamePointerTwiceRaisesOnce(allSlots());
}

TEST(PointStyleTest, EveryHeldSymbolsEditReachesTheStyleBracketedByLockAndUnlock) {
    keo::Feature::test::expectHeldSymbolsEditsReachTheStyle(allSlots());
}

TEST(PointStyleTest, AfterReplacingTheBillboardOnlyTheNewOnesEditsReachTheStyle) {
    PointStyle style;
    const auto b1 = std::make_shared<BillboardSymbol>();
    const auto b2 = std::make_shared<BillboardSymbol>();
    style.setBillboardSymbol(b1);
    style.setBillboardSymbol(b2);
    const EventRecorder recorder(style);
    b1->setScale(3.0f);
    EXPECT_EQ(recorder.events, "");
    b2->setScale(3.0f);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PointStyleTest, ReplacingASymbolStopsTheOldOnesEditsInEverySlot) {
    keo::Feature::test::expectAReplacedSymbolIsNoLongerHeard(allSlots());
}

TEST(PointStyleTest, SettingNullRaisesOneChangeAndLeavesTheSlotEmpty) {
    keo::Feature::test::expectSettingNullEmptiesTheSlot(allSlots());
}

TEST(PointStyleTest, TheNewSymbolIsRelayedOnlyAfterTheStylesOwnChangeForTheSwap) {
    PointStyle style;
    const auto symbol = std::make_shared<PointSymbol>();
    const EventRecorder recorder(style);
    bool first = true;
    // An edit of the new symbol made while the style reports the swap is not yet relayed.
    style._addDefinitionChangedEventListener([&](const Style*) {
        if (first) {
            first = false;
            symbol->setPixelSize(5.0f);
        }
    });
    style.setPointSymbol(symbol);
    EXPECT_EQ(recorder.events, "LUD");
    symbol->setPixelSize(6.0f);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(PointStyleTest, TheParticleSymbolsEmitterEditsReachTheStyle) {
    PointStyle style;
    const auto particles = std::make_shared<ParticleSystemSymbol>();
    style.setParticleSystemSymbol(particles);
    const EventRecorder recorder(style);
    static_cast<CircleEmitter&>(*particles->getEmitter()).setRadius(2.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PointStyleTest, AssigningAStyleOfAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    TestStyle polygon(Style::Type::Polygon);
    polygon.setShadows(1);
    polygon.setLabelSymbol(std::make_shared<LabelSymbol>());
    PointStyle style;
    const EventRecorder recorder(style);
    style.assign(polygon);
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(style.getShadows(), 0);
    EXPECT_EQ(style.getLabelSymbol(), nullptr);
    expectAssignKindLogged(log, "Core/src/Feature/PointStyle", "keo::Feature::PointStyle::assign");
}

TEST(PointStyleTest, AssigningAPointStyleToAPolygonStyleLogsAndChangesNothing) {
    const CapturedLog log;
    const auto point = fullStyle();
    TestStyle polygon(Style::Type::Polygon);
    const EventRecorder recorder(polygon);
    polygon.assign(*point);
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, keo::Feature::test::ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Style::assign");
}

TEST(PointStyleTest, AnotherClassWithThePointCodeIsNotReadAsAPointStyle) {
    const CapturedLog log;
    TestStyle impostor(Style::Type::Point);
    impostor.setShadows(2);
    PointStyle style;
    style.assign(impostor);
    EXPECT_EQ(style.getShadows(), 0);
    expectAssignKindLogged(log, "Core/src/Feature/PointStyle", "keo::Feature::PointStyle::assign");
}

TEST(PointStyleTest, AssignOntoAHeldSymbolKeepsTheSameObjectAndItsListeners) {
    for (const auto& slot : allSlots()) {
        SCOPED_TRACE(slot.name);
        PointStyle source;
        const auto sourceSymbol = slot.make();
        slot.edit(*sourceSymbol);
        slot.set(source, sourceSymbol);
        PointStyle target;
        const auto held = slot.make();
        slot.set(target, held);
        const EventRecorder heldRecorder(*held);
        const EventRecorder recorder(target);
        target.assign(source);
        EXPECT_EQ(slot.get(target), held);
        // A particle symbol's assign also takes the source's emitter: one more change.
        const std::string changes = slot.name == "particle system" ? "LUDLUD" : "LUD";
        EXPECT_EQ(heldRecorder.events, changes) << "the held symbol is edited in place";
        EXPECT_EQ(recorder.events, changes) << "and its edits are relayed by the style";
        slot.edit(*held);
        EXPECT_EQ(recorder.events, changes + "LUD") << "the held symbol is still relayed";
    }
}

TEST(PointStyleTest, AssigningAStyleWithAnEmptySlotEmptiesTheTargetsSlot) {
    for (const auto& slot : allSlots()) {
        SCOPED_TRACE(slot.name);
        const PointStyle source;
        PointStyle target;
        const auto held = slot.make();
        slot.set(target, held);
        const EventRecorder recorder(target);
        target.assign(source);
        EXPECT_EQ(slot.get(target), nullptr);
        EXPECT_EQ(recorder.events, "LUD");
        slot.edit(*held);
        EXPECT_EQ(recorder.events, "LUD") << "the dropped symbol is no longer relayed";
    }
}

TEST(PointStyleTest, AssignIntoAnEmptySlotInstallsAClone) {
    for (const auto& slot : allSlots()) {
        SCOPED_TRACE(slot.name);
        PointStyle source;
        const auto sourceSymbol = slot.make();
        slot.edit(*sourceSymbol);
        slot.set(source, sourceSymbol);
        PointStyle target;
        target.assign(source);
        const auto installed = slot.get(target);
        ASSERT_NE(installed, nullptr);
        EXPECT_NE(installed, sourceSymbol);
        EXPECT_EQ(installed->getType(), sourceSymbol->getType());
        const EventRecorder sourceRecorder(source);
        const EventRecorder targetRecorder(target);
        slot.edit(*installed);
        EXPECT_EQ(targetRecorder.events, "LUD");
        EXPECT_EQ(sourceRecorder.events, "");
    }
}

TEST(PointStyleTest, AssignCopiesTheValuesOfHeldSymbols) {
    const auto source = fullStyle();
    source->getPointSymbol()->setColor(Color::RED);
    source->getBillboardSymbol()->setImage("marker.png");
    source->getModelSymbol()->setScale(keo::Vector3<double>(2.0, 2.0, 2.0));
    source->getParticleSystemSymbol()->setEmissionRate(40.0f);
    const auto target = fullStyle();
    target->assign(*source);
    EXPECT_EQ(target->getPointSymbol()->getColor(), Color::RED);
    EXPECT_EQ(std::get<std::string>(target->getBillboardSymbol()->getImage()), "marker.png");
    EXPECT_EQ(target->getModelSymbol()->getScale(), keo::Vector3<double>(2.0, 2.0, 2.0));
    EXPECT_EQ(target->getParticleSystemSymbol()->getEmissionRate(), 40.0f);
    // The particle symbol's assign shares the source's emitter.
    EXPECT_EQ(target->getParticleSystemSymbol()->getEmitter(),
              source->getParticleSystemSymbol()->getEmitter());
}

TEST(PointStyleTest, AssignCopiesTheBaseFirstThenTheSlotsInOrder) {
    const auto source = fullStyle();
    source->setLabelSymbol(std::make_shared<LabelSymbol>());
    source->setHeightReference(HeightReference::ClampToGround);
    source->setShadows(1);
    PointStyle target;
    FieldOrder order(target);
    order.add("label", [&] { return target.getLabelSymbol() != nullptr; });
    order.add("height",
              [&] { return target.getHeightReference() == HeightReference::ClampToGround; });
    order.add("shadows", [&] { return target.getShadows() == 1; });
    order.add("point", [&] { return target.getPointSymbol() != nullptr; });
    order.add("billboard", [&] { return target.getBillboardSymbol() != nullptr; });
    order.add("model", [&] { return target.getModelSymbol() != nullptr; });
    order.add("particles", [&] { return target.getParticleSystemSymbol() != nullptr; });
    target.assign(*source);
    const std::vector<std::string> expected{"label",     "height", "shadows",  "point",
                                            "billboard", "model",  "particles"};
    EXPECT_EQ(order.order(), expected);
}

TEST(PointStyleTest, AssigningAnEqualStyleRaisesNothing) {
    const auto source = fullStyle();
    const auto target = source->clone();
    // The particle symbols differ only by their emitters, which assign shares; share them first.
    target->assign(*source);
    const EventRecorder recorder(*target);
    target->assign(*source);
    EXPECT_EQ(recorder.events, "");
}

TEST(PointStyleTest, ACopyHoldsItsOwnCopiesOfTheSymbolsAndRelaysThem) {
    const auto source = fullStyle();
    source->setLabelSymbol(std::make_shared<LabelSymbol>());
    source->setShadows(3);
    const auto cloned = std::static_pointer_cast<PointStyle>(source->clone());
    PointStyle copied(*source);
    const EventRecorder sourceRecorder(*source);
    for (PointStyle* const copy : {cloned.get(), &copied}) {
        EXPECT_EQ(copy->getShadows(), 3);
        ASSERT_NE(copy->getLabelSymbol(), nullptr);
        EXPECT_NE(copy->getLabelSymbol(), source->getLabelSymbol());
        EXPECT_EQ(copy->getPointSymbol()->getPixelSize(), source->getPointSymbol()->getPixelSize());
        EXPECT_EQ(copy->getBillboardSymbol()->getScale(), source->getBillboardSymbol()->getScale());
        EXPECT_EQ(copy->getModelSymbol()->isAllowPicking(),
                  source->getModelSymbol()->isAllowPicking());
        EXPECT_EQ(copy->getParticleSystemSymbol()->getGravity(),
                  source->getParticleSystemSymbol()->getGravity());
        // A copied particle symbol has an emitter of its own.
        EXPECT_NE(copy->getParticleSystemSymbol()->getEmitter(),
                  source->getParticleSystemSymbol()->getEmitter());
    }
    for (PointStyle* const copy : {cloned.get(), &copied}) {
        const EventRecorder recorder(*copy);
        std::string expected;
        for (const auto& slot : allSlots()) {
            SCOPED_TRACE(slot.name);
            const auto symbol = slot.get(*copy);
            ASSERT_NE(symbol, nullptr);
            EXPECT_NE(symbol, slot.get(*source));
            slot.edit(*symbol);
            expected += "LUD";
            EXPECT_EQ(recorder.events, expected);
            slot.edit(*slot.get(*source));
            EXPECT_EQ(recorder.events, expected)
                << "the source's symbols are not relayed by a copy";
        }
    }
    EXPECT_EQ(sourceRecorder.events, "LUDLUDLUDLUDLUDLUDLUDLUD");
}

TEST(PointStyleTest, ACopyLeavesEmptySlotsEmpty) {
    PointStyle source;
    source.setModelSymbol(std::make_shared<ModelSymbol>());
    const PointStyle copy(source);
    EXPECT_EQ(copy.getPointSymbol(), nullptr);
    EXPECT_EQ(copy.getBillboardSymbol(), nullptr);
    EXPECT_NE(copy.getModelSymbol(), nullptr);
    EXPECT_EQ(copy.getParticleSystemSymbol(), nullptr);
}

TEST(PointStyleTest, ACopyHasNoListeners) {
    PointStyle source;
    const EventRecorder recorder(source);
    PointStyle copy(source);
    copy.setShadows(1);
    copy.setPointSymbol(std::make_shared<PointSymbol>());
    EXPECT_EQ(recorder.events, "");
}

} // namespace
