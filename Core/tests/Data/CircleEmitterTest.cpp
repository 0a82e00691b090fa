#include "Data/CircleEmitter.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

namespace {

using keo::CircleEmitter;
using keo::FieldList;
using keo::ParticleEmitter;

TEST(CircleEmitterTest, DefaultIsARadiusOfOneMetreOfKindCircle) {
    const CircleEmitter circle;
    EXPECT_EQ(circle.getType(), ParticleEmitter::Type::Circle);
    EXPECT_STREQ(circle.getTypeName(), "CircleEmitter");
    EXPECT_EQ(circle.getRadius(), 1.0);
}

TEST(CircleEmitterTest, ConstructorAndSetterStoreTheRadius) {
    CircleEmitter circle(0.5);
    EXPECT_EQ(circle.getRadius(), 0.5);
    circle.setRadius(12.0);
    EXPECT_EQ(circle.getRadius(), 12.0);
}

TEST(CircleEmitterTest, ZeroAndNegativeRadiiAreStoredAsGiven) {
    CircleEmitter circle(0.0);
    EXPECT_EQ(circle.getRadius(), 0.0);
    circle.setRadius(-3.0);
    EXPECT_EQ(circle.getRadius(), -3.0);
}

TEST(CircleEmitterTest, CloneIsAnIndependentCircle) {
    CircleEmitter circle(0.5);
    const auto copy = circle.clone();
    circle.setRadius(7.0);
    ASSERT_EQ(copy->getType(), ParticleEmitter::Type::Circle);
    EXPECT_EQ(static_cast<const CircleEmitter&>(*copy).getRadius(), 0.5);
}

TEST(CircleEmitterTest, DescribeWritesTheRadius) {
    FieldList fields;
    CircleEmitter(0.5).describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"radius", "0.5"}}));
}

} // namespace
