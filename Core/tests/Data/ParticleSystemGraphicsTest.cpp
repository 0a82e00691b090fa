#include "Data/ParticleSystemGraphics.h"

#include "Data/CircleEmitter.h"
#include "Data/FieldList.h"
#include "Data/Image.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <memory>
#include <vector>

namespace {

using keo::Color;
using keo::ParticleBurst;
using keo::ParticleSystemGraphics;
using keo::Vector2;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

TEST(ParticleSystemGraphicsTest, DefaultsEmitFivePerSecondForeverFromAPoint) {
    const ParticleSystemGraphics graphics;
    EXPECT_EQ(graphics.getEmitter(), nullptr);
    EXPECT_TRUE(graphics.getBursts().empty());
    EXPECT_EQ(graphics.getImage(), nullptr);
    EXPECT_EQ(graphics.getMinimumImageSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(graphics.getMaximumImageSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(graphics.getStartColor(), Color::WHITE);
    EXPECT_EQ(graphics.getEndColor(), Color::WHITE);
    EXPECT_EQ(graphics.getStartScale(), 1.0f);
    EXPECT_EQ(graphics.getEndScale(), 1.0f);
    EXPECT_EQ(graphics.getEmissionRate(), 5.0f);
    EXPECT_EQ(graphics.getMinimumSpeed(), 1.0f);
    EXPECT_EQ(graphics.getMaximumSpeed(), 1.0f);
    EXPECT_EQ(graphics.getMinimumParticleLife(), 5.0f);
    EXPECT_EQ(graphics.getMaximumParticleLife(), 5.0f);
    EXPECT_FALSE(graphics.isSizeInMeters());
    EXPECT_TRUE(graphics.isLoop());
    EXPECT_EQ(graphics.getLifetime(), std::numeric_limits<float>::max());
    EXPECT_EQ(graphics.getGravity(), 0.0f);
    EXPECT_EQ(graphics.getEmitterModelMatrix(), keo::Matrix4::identity());
}

TEST(ParticleSystemGraphicsTest, FieldsReadBackAsSet) {
    ParticleSystemGraphics graphics;
    const auto emitter = std::make_shared<keo::CircleEmitter>(0.5);
    const auto image = std::make_shared<keo::Image>();
    const std::vector<ParticleBurst> bursts{{1.0f, 10.0f, 20.0f}, {2.0f, 5.0f, 5.0f}};
    const keo::Matrix4 placement(keo::Matrix3::identity(), {0.0, 0.0, 10.0});
    graphics.setEmitter(emitter);
    graphics.setBursts(bursts);
    graphics.setImage(image);
    graphics.setMinimumImageSize({2.0f, 2.0f});
    graphics.setMaximumImageSize({4.0f, 8.0f});
    graphics.setStartColor(Color::RED);
    graphics.setEndColor(Color::TRANSPARENT);
    graphics.setStartScale(0.5f);
    graphics.setEndScale(3.0f);
    graphics.setEmissionRate(50.0f);
    graphics.setMinimumSpeed(2.0f);
    graphics.setMaximumSpeed(4.0f);
    graphics.setMinimumParticleLife(1.0f);
    graphics.setMaximumParticleLife(2.0f);
    graphics.setSizeInMeters(true);
    graphics.setLoop(false);
    graphics.setLifetime(16.0f);
    graphics.setGravity(-9.8f);
    graphics.setEmitterModelMatrix(placement);

    EXPECT_EQ(graphics.getEmitter(), emitter);
    EXPECT_EQ(graphics.getBursts(), bursts);
    EXPECT_EQ(graphics.getImage(), image);
    EXPECT_EQ(graphics.getMinimumImageSize(), Vector2<float>(2.0f, 2.0f));
    EXPECT_EQ(graphics.getMaximumImageSize(), Vector2<float>(4.0f, 8.0f));
    EXPECT_EQ(graphics.getStartColor(), Color::RED);
    EXPECT_EQ(graphics.getEndColor(), Color::TRANSPARENT);
    EXPECT_EQ(graphics.getStartScale(), 0.5f);
    EXPECT_EQ(graphics.getEndScale(), 3.0f);
    EXPECT_EQ(graphics.getEmissionRate(), 50.0f);
    EXPECT_EQ(graphics.getMinimumSpeed(), 2.0f);
    EXPECT_EQ(graphics.getMaximumSpeed(), 4.0f);
    EXPECT_EQ(graphics.getMinimumParticleLife(), 1.0f);
    EXPECT_EQ(graphics.getMaximumParticleLife(), 2.0f);
    EXPECT_TRUE(graphics.isSizeInMeters());
    EXPECT_FALSE(graphics.isLoop());
    EXPECT_EQ(graphics.getLifetime(), 16.0f);
    EXPECT_EQ(graphics.getGravity(), -9.8f);
    EXPECT_EQ(graphics.getEmitterModelMatrix(), placement);
}

TEST(ParticleSystemGraphicsTest, OptionsAreTakenAsGiven) {
    ParticleSystemGraphics::Options options;
    options.emitter = std::make_shared<keo::CircleEmitter>(2.0);
    options.emissionRate = 12.0f;
    options.loop = false;
    const ParticleSystemGraphics graphics(options);
    EXPECT_EQ(graphics.getEmitter(), options.emitter);
    EXPECT_EQ(graphics.getEmissionRate(), 12.0f);
    EXPECT_FALSE(graphics.isLoop());
}

TEST(ParticleSystemGraphicsTest, BurstsWithNanAreDroppedAndNegativeMembersBecomeZero) {
    ParticleSystemGraphics graphics;
    graphics.setBursts(
        {{NOT_A_NUMBER, 1.0f, 2.0f}, {-1.0f, -5.0f, 3.0f}, {4.0f, 1.0f, NOT_A_NUMBER}});
    EXPECT_EQ(graphics.getBursts(), (std::vector<ParticleBurst>{{0.0f, 0.0f, 3.0f}}));
}

TEST(ParticleSystemGraphicsTest, BadNumbersAreIgnoredOrClamped) {
    ParticleSystemGraphics graphics;
    graphics.setEmissionRate(NOT_A_NUMBER);
    graphics.setMinimumSpeed(-3.0f);
    graphics.setLifetime(-1.0f);
    graphics.setGravity(NOT_A_NUMBER);
    graphics.setMaximumImageSize({NOT_A_NUMBER, 1.0f});
    graphics.setMinimumImageSize({-2.0f, 3.0f});
    std::array<double, 16> values{};
    values[0] = std::numeric_limits<double>::quiet_NaN();
    graphics.setEmitterModelMatrix(keo::Matrix4::fromColumnMajor(values));
    EXPECT_EQ(graphics.getEmissionRate(), 5.0f);
    EXPECT_EQ(graphics.getMinimumSpeed(), 0.0f);
    EXPECT_EQ(graphics.getLifetime(), 0.0f);
    EXPECT_EQ(graphics.getGravity(), 0.0f);
    EXPECT_EQ(graphics.getMaximumImageSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(graphics.getMinimumImageSize(), Vector2<float>(0.0f, 3.0f));
    EXPECT_EQ(graphics.getEmitterModelMatrix(), keo::Matrix4::identity());
}

TEST(ParticleSystemGraphicsTest, DescribeWritesTheEmitterAsAnObjectAndTheBursts) {
    ParticleSystemGraphics graphics;
    graphics.setEmitter(std::make_shared<keo::CircleEmitter>(0.5));
    graphics.setBursts({{1.0f, 10.0f, 20.0f}});
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 25u);
    EXPECT_EQ(e[6],
              (keo::FieldList::Entry{"emitter", "{\"type\": \"CircleEmitter\", \"radius\": 0.5}"}));
    EXPECT_EQ(e[7], (keo::FieldList::Entry{"bursts",
                                           "[{\"time\": 1, \"minimum\": 10, \"maximum\": 20}]"}));
    EXPECT_EQ(e[8], (keo::FieldList::Entry{"image", "null"}));
    EXPECT_EQ(e[22], (keo::FieldList::Entry{"lifetime", "3.4028235e+38"}));
    EXPECT_EQ(e[24], (keo::FieldList::Entry{"emitterModelMatrix",
                                            "[1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]"}));
}

} // namespace
