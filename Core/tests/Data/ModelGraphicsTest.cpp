#include "Data/ModelGraphics.h"

#include "Data/FieldList.h"
#include "Data/Resource.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using keo::ModelGraphics;
using keo::Radian;
using keo::Resource;
using keo::Vector3;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

ModelGraphics::BoundingBox box(const Vector3<double>& center, const Vector3<double>& half) {
    ModelGraphics::BoundingBox b;
    b.center = center;
    b.halfExtents = half;
    return b;
}

TEST(ModelGraphicsTest, DefaultsAreAnUnloadedModelWithoutUri) {
    const ModelGraphics graphics;
    EXPECT_EQ(graphics.getUri(), nullptr);
    EXPECT_EQ(graphics.getScale(), Vector3<double>(1.0, 1.0, 1.0));
    EXPECT_EQ(graphics.getRotation(), Vector3<Radian>());
    EXPECT_EQ(graphics.getColor(), keo::Color::WHITE);
    EXPECT_TRUE(graphics.isAllowPicking());
    EXPECT_FALSE(graphics.isReady());
    EXPECT_FALSE(graphics.getBoundingBox().has_value());
    EXPECT_FALSE(graphics.computeTopHeight().has_value());
}

TEST(ModelGraphicsTest, FieldsReadBackAsSet) {
    ModelGraphics graphics;
    const auto uri = std::make_shared<Resource>("models/tower.glb");
    const Vector3<Radian> rotation(Radian(0.1), Radian(0.2), Radian(0.3));
    graphics.setUri(uri);
    graphics.setScale({2.0, 3.0, 4.0});
    graphics.setRotation(rotation);
    graphics.setColor(keo::Color::RED);
    graphics.setAllowPicking(false);
    EXPECT_EQ(graphics.getUri(), uri);
    EXPECT_EQ(graphics.getScale(), Vector3<double>(2.0, 3.0, 4.0));
    EXPECT_EQ(graphics.getRotation(), rotation);
    EXPECT_EQ(graphics.getColor(), keo::Color::RED);
    EXPECT_FALSE(graphics.isAllowPicking());
}

TEST(ModelGraphicsTest, TopHeightIsBoxCentrePlusScaledHalfHeightOnceReady) {
    ModelGraphics graphics;
    graphics.setUri(std::make_shared<Resource>("m.glb"));
    graphics.setScale({1.0, 1.0, 2.0});
    graphics.setBoundingBox(box({0.0, 0.0, 5.0}, {1.0, 1.0, 10.0}));
    EXPECT_FALSE(graphics.computeTopHeight().has_value()); // not ready yet
    graphics.setReady(true);
    // 5 + 10 × 2 = 25 metres above the model's origin.
    ASSERT_TRUE(graphics.computeTopHeight().has_value());
    EXPECT_DOUBLE_EQ(*graphics.computeTopHeight(), 25.0);
}

TEST(ModelGraphicsTest, ANewUriMakesTheModelUnloadedAgain) {
    ModelGraphics graphics;
    graphics.setUri(std::make_shared<Resource>("a.glb"));
    graphics.setBoundingBox(box({}, {1.0, 1.0, 1.0}));
    graphics.setReady(true);

    graphics.setUri(std::make_shared<Resource>("a.glb")); // same URI: still loaded
    EXPECT_TRUE(graphics.isReady());
    EXPECT_TRUE(graphics.getBoundingBox().has_value());

    graphics.setUri(std::make_shared<Resource>("b.glb"));
    EXPECT_FALSE(graphics.isReady());
    EXPECT_FALSE(graphics.getBoundingBox().has_value());
}

TEST(ModelGraphicsTest, BadValuesAreIgnoredOrClamped) {
    ModelGraphics graphics;
    graphics.setScale({NOT_A_NUMBER, 1.0, 1.0});
    graphics.setRotation({Radian(NOT_A_NUMBER), Radian(0.0), Radian(0.0)});
    EXPECT_EQ(graphics.getScale(), Vector3<double>(1.0, 1.0, 1.0));
    EXPECT_EQ(graphics.getRotation(), Vector3<Radian>());
    graphics.setScale({-1.0, 2.0, 3.0});
    EXPECT_EQ(graphics.getScale(), Vector3<double>(0.0, 2.0, 3.0));

    graphics.setBoundingBox(box({0.0, 0.0, NOT_A_NUMBER}, {1.0, 1.0, 1.0}));
    EXPECT_FALSE(graphics.getBoundingBox().has_value());
    graphics.setBoundingBox(box({0.0, 0.0, 1.0}, {-1.0, 2.0, 3.0}));
    ASSERT_TRUE(graphics.getBoundingBox().has_value());
    EXPECT_EQ(graphics.getBoundingBox()->halfExtents, Vector3<double>(0.0, 2.0, 3.0));
    graphics.setBoundingBox(std::nullopt);
    EXPECT_FALSE(graphics.getBoundingBox().has_value());
}

TEST(ModelGraphicsTest, DescribeWritesTheUriAndTheLoadedState) {
    ModelGraphics graphics;
    graphics.setUri(std::make_shared<Resource>("m.glb"));
    graphics.setBoundingBox(box({0.0, 0.0, 1.0}, {2.0, 2.0, 2.0}));
    graphics.setReady(true);
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 13u);
    EXPECT_EQ(e[6], (keo::FieldList::Entry{"uri", "\"m.glb\""}));
    EXPECT_EQ(e[8], (keo::FieldList::Entry{"rotation", "[0, 0, 0]"}));
    EXPECT_EQ(e[11], (keo::FieldList::Entry{"ready", "true"}));
    EXPECT_EQ(e[12], (keo::FieldList::Entry{
                         "boundingBox", "{\"center\": [0, 0, 1], \"halfExtents\": [2, 2, 2]}"}));
}

} // namespace
