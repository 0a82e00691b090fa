#include "Data/ParticleEmitter.h"

#include "Data/BoxEmitter.h"
#include "Data/CircleEmitter.h"
#include "Data/ConeEmitter.h"
#include "Data/FieldList.h"
#include "Data/SphereEmitter.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using keo::FieldList;
using keo::ParticleEmitter;

TEST(ParticleEmitterTest, KindsReportDistinctTypesThroughTheBase) {
    std::vector<std::unique_ptr<ParticleEmitter>> emitters;
    emitters.push_back(std::make_unique<keo::BoxEmitter>());
    emitters.push_back(std::make_unique<keo::CircleEmitter>());
    emitters.push_back(std::make_unique<keo::ConeEmitter>());
    emitters.push_back(std::make_unique<keo::SphereEmitter>());
    EXPECT_EQ(emitters[0]->getType(), ParticleEmitter::Type::Box);
    EXPECT_EQ(emitters[1]->getType(), ParticleEmitter::Type::Circle);
    EXPECT_EQ(emitters[2]->getType(), ParticleEmitter::Type::Cone);
    EXPECT_EQ(emitters[3]->getType(), ParticleEmitter::Type::Sphere);
    // The codes are part of the interface: 1 box, 2 circle, 3 cone, 4 sphere.
    EXPECT_EQ(static_cast<int>(emitters[0]->getType()), 1);
    EXPECT_EQ(static_cast<int>(emitters[3]->getType()), 4);
}

TEST(ParticleEmitterTest, DescribeThroughTheBaseWritesTheKindsOwnField) {
    const std::unique_ptr<ParticleEmitter> emitter = std::make_unique<keo::CircleEmitter>(2.5);
    FieldList fields;
    emitter->describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"radius", "2.5"}}));
}

TEST(ParticleEmitterTest, TypeNamesCoverEveryKindAndUnknownValues) {
    EXPECT_STREQ(ParticleEmitter::typeName(ParticleEmitter::Type::Box), "BoxEmitter");
    EXPECT_STREQ(ParticleEmitter::typeName(ParticleEmitter::Type::Circle), "CircleEmitter");
    EXPECT_STREQ(ParticleEmitter::typeName(ParticleEmitter::Type::Cone), "ConeEmitter");
    EXPECT_STREQ(ParticleEmitter::typeName(ParticleEmitter::Type::Sphere), "SphereEmitter");
    EXPECT_STREQ(ParticleEmitter::typeName(static_cast<ParticleEmitter::Type>(0)),
                 "ParticleEmitter");
}

} // namespace
