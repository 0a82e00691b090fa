#include "Data/ConeEmitter.h"

#include "Common/Math.h"
#include "Data/FieldList.h"

#include <gtest/gtest.h>

namespace {

using keo::ConeEmitter;
using keo::FieldList;
using keo::ParticleEmitter;
using keo::Radian;

TEST(ConeEmitterTest, DefaultIsAThirtyDegreeHalfAngleOfKindCone) {
    const ConeEmitter cone;
    EXPECT_EQ(cone.getType(), ParticleEmitter::Type::Cone);
    EXPECT_STREQ(cone.getTypeName(), "ConeEmitter");
    EXPECT_DOUBLE_EQ(cone.getAngle().value(), keo::Math::PI / 6.0);
}

TEST(ConeEmitterTest, ConstructorAndSetterStoreTheAngle) {
    ConeEmitter cone(Radian(0.25));
    EXPECT_EQ(cone.getAngle(), Radian(0.25));
    cone.setAngle(Radian(-1.0)); // stored as given; a renderer reads its absolute value
    EXPECT_EQ(cone.getAngle(), Radian(-1.0));
}

TEST(ConeEmitterTest, CloneIsAnIndependentCone) {
    ConeEmitter cone(Radian(0.25));
    const auto copy = cone.clone();
    cone.setAngle(Radian(1.0));
    ASSERT_EQ(copy->getType(), ParticleEmitter::Type::Cone);
    EXPECT_EQ(static_cast<const ConeEmitter&>(*copy).getAngle(), Radian(0.25));
}

TEST(ConeEmitterTest, DescribeWritesTheAngleInRadians) {
    FieldList fields;
    ConeEmitter(Radian(0.25)).describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"angle", "0.25"}}));
}

} // namespace
