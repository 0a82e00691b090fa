#include "Data/BoxEmitter.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using keo::BoxEmitter;
using keo::FieldList;
using keo::ParticleEmitter;
using keo::Vector3;

TEST(BoxEmitterTest, DefaultIsAUnitCubeOfKindBox) {
    const BoxEmitter box;
    EXPECT_EQ(box.getType(), ParticleEmitter::Type::Box);
    EXPECT_STREQ(box.getTypeName(), "BoxEmitter");
    EXPECT_EQ(box.getDimensions(), (Vector3<double>{1.0, 1.0, 1.0}));
}

TEST(BoxEmitterTest, ConstructorAndSetterStoreTheDimensions) {
    BoxEmitter box({2.0, 3.0, 4.0});
    EXPECT_EQ(box.getDimensions(), (Vector3<double>{2.0, 3.0, 4.0}));
    box.setDimensions({0.0, 0.5, 10.0});
    EXPECT_EQ(box.getDimensions(), (Vector3<double>{0.0, 0.5, 10.0}));
}

TEST(BoxEmitterTest, NegativeAndNaNDimensionsAreStoredAsGiven) {
    BoxEmitter box;
    box.setDimensions({-1.0, std::numeric_limits<double>::quiet_NaN(), 2.0});
    EXPECT_EQ(box.getDimensions().x, -1.0);
    EXPECT_TRUE(std::isnan(box.getDimensions().y));
    EXPECT_EQ(box.getDimensions().z, 2.0);
}

TEST(BoxEmitterTest, CloneIsAnIndependentBoxWithTheSameDimensions) {
    BoxEmitter box({2.0, 3.0, 4.0});
    const std::unique_ptr<ParticleEmitter> copy = box.clone();
    box.setDimensions({9.0, 9.0, 9.0});
    ASSERT_EQ(copy->getType(), ParticleEmitter::Type::Box);
    EXPECT_EQ(static_cast<const BoxEmitter&>(*copy).getDimensions(),
              (Vector3<double>{2.0, 3.0, 4.0}));
}

TEST(BoxEmitterTest, DescribeWritesTheDimensionsAsAnArray) {
    FieldList fields;
    BoxEmitter({2.0, 0.5, 10.0}).describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"dimensions", "[2, 0.5, 10]"}}));
}

} // namespace
