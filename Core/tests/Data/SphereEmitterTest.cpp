#include "Data/SphereEmitter.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using keo::FieldList;
using keo::ParticleEmitter;
using keo::SphereEmitter;

TEST(SphereEmitterTest, DefaultIsARadiusOfOneMetreOfKindSphere) {
    const SphereEmitter sphere;
    EXPECT_EQ(sphere.getType(), ParticleEmitter::Type::Sphere);
    EXPECT_STREQ(sphere.getTypeName(), "SphereEmitter");
    EXPECT_EQ(sphere.getRadius(), 1.0);
}

TEST(SphereEmitterTest, ConstructorAndSetterStoreTheRadius) {
    SphereEmitter sphere(4.0);
    EXPECT_EQ(sphere.getRadius(), 4.0);
    sphere.setRadius(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(sphere.getRadius()));
}

TEST(SphereEmitterTest, CloneThroughTheBaseKeepsTheKindAndRadius) {
    const SphereEmitter sphere(4.0);
    const ParticleEmitter& base = sphere;
    const auto copy = base.clone();
    ASSERT_EQ(copy->getType(), ParticleEmitter::Type::Sphere);
    EXPECT_EQ(static_cast<const SphereEmitter&>(*copy).getRadius(), 4.0);
    EXPECT_NE(copy.get(), &base);
}

TEST(SphereEmitterTest, DescribeWritesTheRadius) {
    FieldList fields;
    SphereEmitter(4.0).describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"radius", "4"}}));
}

} // namespace
