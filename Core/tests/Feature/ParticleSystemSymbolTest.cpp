#include "Feature/ParticleSystemSymbol.h"

#include "Common/HeadingPitchRoll.h"
#include "Common/Matrix3.h"
#include "Common/Matrix4.h"
#include "Data/Image.h"
#include "Data/ParticleSystemGraphics.h"
#include "Feature/Feature.h"
#include "Feature/PointSymbol.h"
#include "Feature/SymbolContext.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Image;
using keo::ParticleBurst;
using keo::Radian;
using keo::Vector2;
using keo::Vector3;
using keo::Feature::BoxEmitter;
using keo::Feature::CircleEmitter;
using keo::Feature::ConeEmitter;
using keo::Feature::ParticleEmitter;
using keo::Feature::ParticleSystemSymbol;
using keo::Feature::SphereEmitter;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

using Bursts = std::vector<ParticleBurst>;
using FloatSetter = void (ParticleSystemSymbol::*)(float);

// Every float setter with a value that differs from its default.
const std::vector<std::pair<FloatSetter, float>>& floatSetters() {
    static const std::vector<std::pair<FloatSetter, float>> setters{
        {&ParticleSystemSymbol::setStartScale, 2.0f},
        {&ParticleSystemSymbol::setEndScale, 0.5f},
        {&ParticleSystemSymbol::setEmissionRate, 20.0f},
        {&ParticleSystemSymbol::setMinimumSpeed, 0.5f},
        {&ParticleSystemSymbol::setMaximumSpeed, 3.0f},
        {&ParticleSystemSymbol::setMinimumParticleLife, 1.0f},
        {&ParticleSystemSymbol::setMaximumParticleLife, 9.0f},
        {&ParticleSystemSymbol::setLifetime, 16.0f},
        {&ParticleSystemSymbol::setGravity, -9.8f},
    };
    return setters;
}

// A symbol whose every field differs from the default, with @p emitter and @p image.
std::shared_ptr<ParticleSystemSymbol> makeEdited(std::shared_ptr<ParticleEmitter> emitter,
                                                 std::shared_ptr<Image> image) {
    auto symbol = std::make_shared<ParticleSystemSymbol>();
    symbol->setEnabled(false);
    symbol->setEmitter(std::move(emitter));
    symbol->setBursts({ParticleBurst(1.0f, 10.0f, 20.0f), ParticleBurst(2.0f, 5.0f, 5.0f)});
    symbol->setImage(std::move(image));
    symbol->setMinimumImageSize({2.0f, 3.0f});
    symbol->setMaximumImageSize({4.0f, 6.0f});
    symbol->setStartColor(Color::RED);
    symbol->setEndColor(Color::YELLOW);
    for (const auto& [set, value] : floatSetters()) {
        (symbol.get()->*set)(value);
    }
    symbol->setSizeInMeters(true);
    symbol->setLoop(false);
    symbol->setHeading(Radian(0.5));
    symbol->setPitch(Radian(-0.25));
    return symbol;
}

std::shared_ptr<Image> makeImage() {
    return std::make_shared<Image>(1u, 1u, std::vector<std::uint8_t>{9, 9, 9, 255});
}

// Every field but the emitter equal.
void expectSameFieldsButTheEmitter(const ParticleSystemSymbol& a, const ParticleSystemSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.getBursts(), b.getBursts());
    EXPECT_EQ(a.getImage(), b.getImage());
    EXPECT_EQ(a.getMinimumImageSize(), b.getMinimumImageSize());
    EXPECT_EQ(a.getMaximumImageSize(), b.getMaximumImageSize());
    EXPECT_EQ(a.getStartColor(), b.getStartColor());
    EXPECT_EQ(a.getEndColor(), b.getEndColor());
    EXPECT_EQ(a.getStartScale(), b.getStartScale());
    EXPECT_EQ(a.getEndScale(), b.getEndScale());
    EXPECT_EQ(a.getEmissionRate(), b.getEmissionRate());
    EXPECT_EQ(a.getMinimumSpeed(), b.getMinimumSpeed());
    EXPECT_EQ(a.getMaximumSpeed(), b.getMaximumSpeed());
    EXPECT_EQ(a.getMinimumParticleLife(), b.getMinimumParticleLife());
    EXPECT_EQ(a.getMaximumParticleLife(), b.getMaximumParticleLife());
    EXPECT_EQ(a.isSizeInMeters(), b.isSizeInMeters());
    EXPECT_EQ(a.isLoop(), b.isLoop());
    EXPECT_EQ(a.getLifetime(), b.getLifetime());
    EXPECT_EQ(a.getGravity(), b.getGravity());
    EXPECT_EQ(a.getHeading(), b.getHeading());
    EXPECT_EQ(a.getPitch(), b.getPitch());
}

// --- defaults ---

TEST(ParticleSystemSymbolTest, DefaultHasACircleEmitterOfRadiusHalfAMetreLoopsAndLivesForever) {
    const ParticleSystemSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::ParticleSystem);
    ASSERT_NE(symbol.getEmitter(), nullptr);
    ASSERT_EQ(symbol.getEmitter()->getType(), ParticleEmitter::Type::Circle);
    EXPECT_EQ(static_cast<const CircleEmitter&>(*symbol.getEmitter()).getRadius(), 0.5);
    EXPECT_EQ(symbol.isLoop(), 1.0f);
    EXPECT_EQ(symbol.getLifetime(), std::numeric_limits<float>::max());
    EXPECT_EQ(symbol.getLifetime(), 3.4028235e38f);
}

TEST(ParticleSystemSymbolTest, IsLoopOfADefaultSymbolReturnsOnePointZero) {
    const ParticleSystemSymbol symbol;
    const float loop = symbol.isLoop(); // a float result, kept as declared
    EXPECT_EQ(loop, 1.0f);
}

TEST(ParticleSystemSymbolTest, IsLoopReturnsZeroWhenNotLooping) {
    ParticleSystemSymbol symbol;
    symbol.setLoop(false);
    EXPECT_EQ(symbol.isLoop(), 0.0f);
}

TEST(ParticleSystemSymbolTest, DefaultHasTheDocumentedParticleFields) {
    const ParticleSystemSymbol symbol;
    EXPECT_TRUE(symbol.isEnabled());
    EXPECT_TRUE(symbol.getBursts().empty());
    EXPECT_EQ(symbol.getImage(), nullptr);
    EXPECT_EQ(symbol.getMinimumImageSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(symbol.getMaximumImageSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(symbol.getStartColor(), Color::WHITE);
    EXPECT_EQ(symbol.getEndColor(), Color::WHITE);
    EXPECT_EQ(symbol.getStartScale(), 1.0f);
    EXPECT_EQ(symbol.getEndScale(), 1.0f);
    EXPECT_EQ(symbol.getEmissionRate(), 5.0f);
    EXPECT_EQ(symbol.getMinimumSpeed(), 1.0f);
    EXPECT_EQ(symbol.getMaximumSpeed(), 1.0f);
    EXPECT_EQ(symbol.getMinimumParticleLife(), 5.0f);
    EXPECT_EQ(symbol.getMaximumParticleLife(), 5.0f);
    EXPECT_FALSE(symbol.isSizeInMeters());
    EXPECT_EQ(symbol.getGravity(), 0.0f);
    EXPECT_EQ(symbol.getHeading(), Radian(0.0));
    EXPECT_EQ(symbol.getPitch(), Radian(0.0));
}

// --- setters ---

TEST(ParticleSystemSymbolTest, EveryFloatSetterRaisesOneChangeAndNothingForTheSameValue) {
    for (const auto& [set, value] : floatSetters()) {
        expectOneChangeThenNone<ParticleSystemSymbol>(
            [set = set](ParticleSystemSymbol& s, float v) { (s.*set)(v); }, value);
    }
}

TEST(ParticleSystemSymbolTest, EveryFloatSetterCountsNaNAsAChange) {
    for (const auto& entry : floatSetters()) {
        const FloatSetter set = entry.first;
        expectNaNAlwaysChanges<ParticleSystemSymbol>(
            [set](ParticleSystemSymbol& s, float v) { (s.*set)(v); }, NOT_A_NUMBER);
    }
}

TEST(ParticleSystemSymbolTest, VectorColorAngleAndFlagSettersRaiseOneChangeThenNone) {
    using S = ParticleSystemSymbol;
    using Size = Vector2<float>;
    expectOneChangeThenNone<S>([](S& s, const Size& v) { s.setMinimumImageSize(v); },
                               Size(1.0f, 2.0f));
    expectOneChangeThenNone<S>([](S& s, const Size& v) { s.setMaximumImageSize(v); },
                               Size(3.0f, 1.0f));
    expectOneChangeThenNone<S>([](S& s, const Color& v) { s.setStartColor(v); }, Color::BLUE);
    expectOneChangeThenNone<S>([](S& s, const Color& v) { s.setEndColor(v); }, Color::BLACK);
    expectOneChangeThenNone<S>([](S& s, bool v) { s.setSizeInMeters(v); }, true);
    expectOneChangeThenNone<S>([](S& s, bool v) { s.setLoop(v); }, false);
    expectOneChangeThenNone<S>([](S& s, const Radian& v) { s.setHeading(v); }, Radian(1.0));
    expectOneChangeThenNone<S>([](S& s, const Radian& v) { s.setPitch(v); }, Radian(-1.0));
}

TEST(ParticleSystemSymbolTest, VectorColorAndAngleSettersCountNaNAsAChange) {
    using S = ParticleSystemSymbol;
    using Size = Vector2<float>;
    const double angleNaN = std::numeric_limits<double>::quiet_NaN();
    expectNaNAlwaysChanges<S>([](S& s, const Size& v) { s.setMinimumImageSize(v); },
                              Size(NOT_A_NUMBER, 1.0f));
    expectNaNAlwaysChanges<S>([](S& s, const Size& v) { s.setMaximumImageSize(v); },
                              Size(1.0f, NOT_A_NUMBER));
    expectNaNAlwaysChanges<S>([](S& s, const Color& v) { s.setStartColor(v); },
                              Color(NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER));
    expectNaNAlwaysChanges<S>([](S& s, const Color& v) { s.setEndColor(v); },
                              Color(0.0f, 0.0f, NOT_A_NUMBER));
    expectNaNAlwaysChanges<S>([](S& s, const Radian& v) { s.setHeading(v); }, Radian(angleNaN));
    expectNaNAlwaysChanges<S>([](S& s, const Radian& v) { s.setPitch(v); }, Radian(angleNaN));
}

TEST(ParticleSystemSymbolTest, SetImageComparesByIdentity) {
    ParticleSystemSymbol symbol;
    const auto image = makeImage();
    const EventRecorder recorder(symbol);
    symbol.setImage(image);
    symbol.setImage(image);
    EXPECT_EQ(recorder.events, "LUD");
    symbol.setImage(makeImage()); // identical pixels, another object
    EXPECT_EQ(recorder.events, "LUDLUD");
    symbol.setImage(nullptr);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
}

TEST(ParticleSystemSymbolTest, SettingBurstsEqualElementByElementRaisesNothing) {
    ParticleSystemSymbol symbol;
    symbol.setBursts({ParticleBurst(1.0f, 2.0f, 3.0f), ParticleBurst(4.0f, 5.0f, 6.0f)});
    const EventRecorder recorder(symbol);
    symbol.setBursts({ParticleBurst(1.0f, 2.0f, 3.0f), ParticleBurst(4.0f, 5.0f, 6.0f)});
    EXPECT_EQ(recorder.events, "");
    symbol.setBursts({ParticleBurst(1.0f, 2.0f, 3.0f)}); // shorter
    EXPECT_EQ(recorder.events, "LUD");
    symbol.setBursts({ParticleBurst(1.0f, 2.0f, 3.5f)}); // one float differs
    EXPECT_EQ(recorder.events, "LUDLUD");
    symbol.setBursts({});
    symbol.setBursts({});
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
}

TEST(ParticleSystemSymbolTest, ABurstContainingNaNAlwaysRaisesAChange) {
    for (const auto& burst :
         {ParticleBurst(NOT_A_NUMBER, 1.0f, 1.0f), ParticleBurst(0.0f, NOT_A_NUMBER, 1.0f),
          ParticleBurst(0.0f, 1.0f, NOT_A_NUMBER)}) {
        expectNaNAlwaysChanges<ParticleSystemSymbol>(
            [](ParticleSystemSymbol& s, const Bursts& v) { s.setBursts(v); },
            Bursts{ParticleBurst(), burst});
    }
}

// --- the emitter slot ---

TEST(ParticleSystemSymbolTest, EditingTheEmitterRaisesTheSymbolsEventsBracketedByTheLock) {
    ParticleSystemSymbol symbol;
    const EventRecorder recorder(symbol);
    static_cast<CircleEmitter&>(*symbol.getEmitter()).setRadius(2.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ParticleSystemSymbolTest, SettingTheHeldEmitterRaisesNothing) {
    ParticleSystemSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setEmitter(symbol.getEmitter());
    EXPECT_EQ(recorder.events, "");
}

TEST(ParticleSystemSymbolTest, ReplacedEmitterNoLongerReachesTheSymbol) {
    ParticleSystemSymbol symbol;
    const auto first = std::make_shared<SphereEmitter>(1.0);
    const auto second = std::make_shared<ConeEmitter>(Radian(0.5));
    symbol.setEmitter(first);
    const EventRecorder recorder(symbol);
    symbol.setEmitter(second);
    EXPECT_EQ(recorder.events, "LUD");
    first->setRadius(2.0);
    EXPECT_EQ(recorder.events, "LUD");
    second->setAngle(Radian(0.25));
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(ParticleSystemSymbolTest, NullEmitterRaisesOneChangeAndLeavesTheSlotEmpty) {
    ParticleSystemSymbol symbol;
    const auto old = symbol.getEmitter();
    const EventRecorder recorder(symbol);
    symbol.setEmitter(nullptr);
    symbol.setEmitter(nullptr);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(symbol.getEmitter(), nullptr);
    static_cast<CircleEmitter&>(*old).setRadius(3.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ParticleSystemSymbolTest, DestroyedSymbolStopsListeningToItsEmitter) {
    const auto emitter = std::make_shared<BoxEmitter>(Vector3<double>(1.0, 1.0, 1.0));
    {
        ParticleSystemSymbol symbol;
        symbol.setEmitter(emitter);
    }
    EXPECT_NO_THROW(emitter->setDimensions({2.0, 2.0, 2.0}));
}

// --- assign: shares the emitter ---

TEST(ParticleSystemSymbolTest, AfterAssignBothSymbolsShareOneEmitter) {
    const auto b = makeEdited(std::make_shared<SphereEmitter>(2.0), makeImage());
    ParticleSystemSymbol a;
    a.assign(*b);
    EXPECT_EQ(a.getEmitter(), b->getEmitter());
    expectSameFieldsButTheEmitter(a, *b);
}

TEST(ParticleSystemSymbolTest, EditingASharedEmitterReachesBothSymbols) {
    const auto b = makeEdited(std::make_shared<SphereEmitter>(2.0), nullptr);
    ParticleSystemSymbol a;
    a.assign(*b);
    const EventRecorder aRecorder(a);
    const EventRecorder bRecorder(*b);
    static_cast<SphereEmitter&>(*b->getEmitter()).setRadius(4.0);
    EXPECT_EQ(aRecorder.events, "LUD");
    EXPECT_EQ(bRecorder.events, "LUD");
    EXPECT_EQ(a.getEmitter()->_update(), b->getEmitter()->_update());
}

TEST(ParticleSystemSymbolTest, AssignCopiesEnabledThenEveryFieldInDeclarationOrder) {
    const auto source =
        makeEdited(std::make_shared<BoxEmitter>(Vector3<double>(1.0, 2.0, 3.0)), makeImage());
    ParticleSystemSymbol target;
    const EventRecorder recorder(target);
    FieldOrder order(target);
    const ParticleSystemSymbol& s = *source;
    const ParticleSystemSymbol& t = target;
    order.add("enabled", [&] { return t.isEnabled() == s.isEnabled(); });
    order.add("emitter", [&] { return t.getEmitter() == s.getEmitter(); });
    order.add("bursts", [&] { return t.getBursts() == s.getBursts(); });
    order.add("image", [&] { return t.getImage() == s.getImage(); });
    order.add("minimumImageSize",
              [&] { return t.getMinimumImageSize() == s.getMinimumImageSize(); });
    order.add("maximumImageSize",
              [&] { return t.getMaximumImageSize() == s.getMaximumImageSize(); });
    order.add("startColor", [&] { return t.getStartColor() == s.getStartColor(); });
    order.add("endColor", [&] { return t.getEndColor() == s.getEndColor(); });
    order.add("startScale", [&] { return t.getStartScale() == s.getStartScale(); });
    order.add("endScale", [&] { return t.getEndScale() == s.getEndScale(); });
    order.add("emissionRate", [&] { return t.getEmissionRate() == s.getEmissionRate(); });
    order.add("minimumSpeed", [&] { return t.getMinimumSpeed() == s.getMinimumSpeed(); });
    order.add("maximumSpeed", [&] { return t.getMaximumSpeed() == s.getMaximumSpeed(); });
    order.add("minimumParticleLife",
              [&] { return t.getMinimumParticleLife() == s.getMinimumParticleLife(); });
    order.add("maximumParticleLife",
              [&] { return t.getMaximumParticleLife() == s.getMaximumParticleLife(); });
    order.add("sizeInMeters", [&] { return t.isSizeInMeters() == s.isSizeInMeters(); });
    order.add("loop", [&] { return t.isLoop() == s.isLoop(); });
    order.add("lifetime", [&] { return t.getLifetime() == s.getLifetime(); });
    order.add("gravity", [&] { return t.getGravity() == s.getGravity(); });
    order.add("heading", [&] { return t.getHeading() == s.getHeading(); });
    order.add("pitch", [&] { return t.getPitch() == s.getPitch(); });
    target.assign(*source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled",
                                                       "emitter",
                                                       "bursts",
                                                       "image",
                                                       "minimumImageSize",
                                                       "maximumImageSize",
                                                       "startColor",
                                                       "endColor",
                                                       "startScale",
                                                       "endScale",
                                                       "emissionRate",
                                                       "minimumSpeed",
                                                       "maximumSpeed",
                                                       "minimumParticleLife",
                                                       "maximumParticleLife",
                                                       "sizeInMeters",
                                                       "loop",
                                                       "lifetime",
                                                       "gravity",
                                                       "heading",
                                                       "pitch"}));
    std::string expected;
    for (std::size_t i = 0; i < 21; ++i) {
        expected += "LUD";
    }
    EXPECT_EQ(recorder.events, expected);
}

TEST(ParticleSystemSymbolTest, AssignFromAnEqualSymbolRaisesNothing) {
    const auto source = makeEdited(std::make_shared<ConeEmitter>(Radian(0.1)), makeImage());
    ParticleSystemSymbol target;
    target.assign(*source);
    const EventRecorder recorder(target);
    target.assign(*source);
    EXPECT_EQ(recorder.events, "");
}

TEST(ParticleSystemSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<ParticleSystemSymbol, keo::Feature::PointSymbol>(
        "Core/src/Feature/ParticleSystemSymbol", "keo::Feature::ParticleSystemSymbol::assign");
}

// --- copy and clone: a new emitter ---

TEST(ParticleSystemSymbolTest, CloneHasADifferentEmitterWithTheSameParameters) {
    const auto b = makeEdited(std::make_shared<CircleEmitter>(1.5), makeImage());
    const auto c = std::static_pointer_cast<ParticleSystemSymbol>(b->clone());
    ASSERT_NE(c->getEmitter(), nullptr);
    EXPECT_NE(c->getEmitter(), b->getEmitter());
    ASSERT_EQ(c->getEmitter()->getType(), ParticleEmitter::Type::Circle);
    EXPECT_EQ(static_cast<const CircleEmitter&>(*c->getEmitter()).getRadius(), 1.5);
    expectSameFieldsButTheEmitter(*c, *b);
}

TEST(ParticleSystemSymbolTest, CopyMakesANewEmitterOfEachKind) {
    const auto box = std::make_shared<BoxEmitter>(Vector3<double>(1.0, 2.0, 3.0));
    const auto cone = std::make_shared<ConeEmitter>(Radian(0.4));
    const auto sphere = std::make_shared<SphereEmitter>(5.0);
    for (const std::shared_ptr<ParticleEmitter>& emitter :
         std::vector<std::shared_ptr<ParticleEmitter>>{box, cone, sphere}) {
        ParticleSystemSymbol source;
        source.setEmitter(emitter);
        const ParticleSystemSymbol copy(source);
        ASSERT_NE(copy.getEmitter(), nullptr);
        EXPECT_NE(copy.getEmitter(), emitter);
        EXPECT_EQ(copy.getEmitter()->getType(), emitter->getType());
    }
    ParticleSystemSymbol source;
    source.setEmitter(box);
    EXPECT_EQ(
        static_cast<const BoxEmitter&>(*ParticleSystemSymbol(source).getEmitter()).getDimensions(),
        box->getDimensions());
    source.setEmitter(cone);
    EXPECT_EQ(
        static_cast<const ConeEmitter&>(*ParticleSystemSymbol(source).getEmitter()).getAngle(),
        Radian(0.4));
    source.setEmitter(sphere);
    EXPECT_EQ(
        static_cast<const SphereEmitter&>(*ParticleSystemSymbol(source).getEmitter()).getRadius(),
        5.0);
}

TEST(ParticleSystemSymbolTest, CopyRelaysItsOwnEmitterOnly) {
    ParticleSystemSymbol source;
    const EventRecorder sourceRecorder(source);
    ParticleSystemSymbol copy(source);
    const EventRecorder copyRecorder(copy);
    static_cast<CircleEmitter&>(*copy.getEmitter()).setRadius(2.0);
    EXPECT_EQ(copyRecorder.events, "LUD");
    EXPECT_EQ(sourceRecorder.events, "");
    static_cast<CircleEmitter&>(*source.getEmitter()).setRadius(3.0);
    EXPECT_EQ(copyRecorder.events, "LUD");
    EXPECT_EQ(sourceRecorder.events, "LUD");
    copy.setGravity(1.0f);
    EXPECT_EQ(sourceRecorder.events, "LUD");
}

TEST(ParticleSystemSymbolTest, CopyOfASymbolWithoutEmitterHasNone) {
    ParticleSystemSymbol source;
    source.setEmitter(nullptr);
    const ParticleSystemSymbol copy(source);
    EXPECT_EQ(copy.getEmitter(), nullptr);
}

TEST(ParticleSystemSymbolTest, CopySharesTheImage) {
    const auto image = makeImage();
    ParticleSystemSymbol source;
    source.setImage(image);
    EXPECT_EQ(ParticleSystemSymbol(source).getImage(), image);
}

// --- _fill: the symbol written into its graphics --------------------------------------------

TEST(ParticleSystemSymbolTest, FillWritesTheEmitterEveryValueAndTheConditionIntoTheGraphics) {
    const keo::Feature::Feature feature;
    const auto image = makeImage();
    const auto symbol = makeEdited(std::make_shared<SphereEmitter>(2.0), image);
    const keo::DistanceDisplayCondition condition(1.0f, 900.0f);
    keo::ParticleSystemGraphics graphics;
    symbol->_fill(graphics, {feature, condition, keo::HeightReference::ClampToGround, false});
    ASSERT_NE(graphics.getEmitter(), nullptr);
    EXPECT_EQ(graphics.getEmitter(), symbol->getEmitter()->_update());
    EXPECT_EQ(graphics.getBursts(), symbol->getBursts());
    EXPECT_EQ(graphics.getImage(), image);
    EXPECT_EQ(graphics.getMinimumImageSize(), Vector2<float>(2.0f, 3.0f));
    EXPECT_EQ(graphics.getMaximumImageSize(), Vector2<float>(4.0f, 6.0f));
    EXPECT_EQ(graphics.getStartColor(), Color::RED);
    EXPECT_EQ(graphics.getEndColor(), Color::YELLOW);
    EXPECT_EQ(graphics.getStartScale(), symbol->getStartScale());
    EXPECT_EQ(graphics.getEndScale(), symbol->getEndScale());
    EXPECT_EQ(graphics.getEmissionRate(), 20.0f);
    EXPECT_EQ(graphics.getMinimumSpeed(), 0.5f);
    EXPECT_EQ(graphics.getMaximumSpeed(), 3.0f);
    EXPECT_EQ(graphics.getMinimumParticleLife(), 1.0f);
    EXPECT_EQ(graphics.getMaximumParticleLife(), 9.0f);
    EXPECT_EQ(graphics.getLifetime(), 16.0f);
    EXPECT_EQ(graphics.getGravity(), -9.8f);
    EXPECT_TRUE(graphics.isSizeInMeters());
    EXPECT_FALSE(graphics.isLoop());
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), condition);
    // The particles take no height reference: the graphics keep their own.
    EXPECT_EQ(graphics.getHeightReference(), keo::ParticleSystemGraphics().getHeightReference());
    // Heading first, a zero middle angle, the pitch last.
    const keo::HeadingPitchRoll orientation(Radian(0.5), Radian(0.0), Radian(-0.25));
    EXPECT_EQ(graphics.getEmitterModelMatrix(),
              keo::Matrix4(keo::Matrix3::fromHeadingPitchRoll(orientation)));
}

TEST(ParticleSystemSymbolTest, FillKeepsTheParticlesOwnColoursWhileHighlighted) {
    const keo::Feature::Feature feature;
    const auto symbol = makeEdited(std::make_shared<SphereEmitter>(2.0), makeImage());
    keo::ParticleSystemGraphics graphics;
    symbol->_fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getStartColor(), Color::RED);
    EXPECT_EQ(graphics.getEndColor(), Color::YELLOW);
}

} // namespace
