#include "Data/BillboardGraphics.h"

#include "Data/FieldList.h"
#include "Data/Image.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using keo::BillboardGraphics;
using keo::HorizontalOrigin;
using keo::Vector2;
using keo::VerticalOrigin;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

TEST(BillboardGraphicsTest, DefaultsShowTheImageAtItsOwnSizeCentredOnTheAnchor) {
    const BillboardGraphics graphics;
    ASSERT_TRUE(std::holds_alternative<std::string>(graphics.getImage()));
    EXPECT_EQ(std::get<std::string>(graphics.getImage()), "");
    EXPECT_FALSE(graphics.getWidth().has_value());
    EXPECT_FALSE(graphics.getHeight().has_value());
    EXPECT_EQ(graphics.getScale(), 1.0f);
    EXPECT_EQ(graphics.getColor(), keo::Color::WHITE);
    EXPECT_EQ(graphics.getHorizontalOrigin(), HorizontalOrigin::Center);
    EXPECT_EQ(graphics.getVerticalOrigin(), VerticalOrigin::Center);
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>(0.0f, 0.0f));
}

TEST(BillboardGraphicsTest, FieldsReadBackAsSet) {
    BillboardGraphics graphics;
    const auto image = std::make_shared<keo::Image>(1u, 1u, std::vector<std::uint8_t>{1, 2, 3, 4});
    graphics.setImage(image);
    graphics.setWidth(32.0f);
    graphics.setHeight(16.0f);
    graphics.setScale(2.5f);
    graphics.setColor(keo::Color::RED);
    graphics.setHorizontalOrigin(HorizontalOrigin::Left);
    graphics.setVerticalOrigin(VerticalOrigin::Bottom);
    graphics.setPixelOffset({3.0f, -4.0f});

    EXPECT_EQ(std::get<std::shared_ptr<keo::Image>>(graphics.getImage()), image);
    EXPECT_EQ(graphics.getWidth(), 32.0f);
    EXPECT_EQ(graphics.getHeight(), 16.0f);
    EXPECT_EQ(graphics.getScale(), 2.5f);
    EXPECT_EQ(graphics.getColor(), keo::Color::RED);
    EXPECT_EQ(graphics.getHorizontalOrigin(), HorizontalOrigin::Left);
    EXPECT_EQ(graphics.getVerticalOrigin(), VerticalOrigin::Bottom);
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>(3.0f, -4.0f));

    graphics.setImage(std::string("icons/pin.png"));
    graphics.setWidth(std::nullopt);
    EXPECT_EQ(std::get<std::string>(graphics.getImage()), "icons/pin.png");
    EXPECT_FALSE(graphics.getWidth().has_value());
}

TEST(BillboardGraphicsTest, OptionsAreTakenAsGiven) {
    BillboardGraphics::ConstructorOptions options;
    options.image = std::string("a.png");
    options.height = 8.0f;
    options.scale = 0.5f;
    options.verticalOrigin = VerticalOrigin::Top;
    const BillboardGraphics graphics(options);
    EXPECT_EQ(std::get<std::string>(graphics.getImage()), "a.png");
    EXPECT_EQ(graphics.getHeight(), 8.0f);
    EXPECT_EQ(graphics.getScale(), 0.5f);
    EXPECT_EQ(graphics.getVerticalOrigin(), VerticalOrigin::Top);
}

TEST(BillboardGraphicsTest, NanIsIgnoredAndNegativeSizesBecomeZero) {
    BillboardGraphics graphics;
    graphics.setWidth(10.0f);
    graphics.setWidth(NOT_A_NUMBER);
    graphics.setHeight(-3.0f);
    graphics.setScale(NOT_A_NUMBER);
    graphics.setPixelOffset({1.0f, 2.0f});
    graphics.setPixelOffset({NOT_A_NUMBER, 5.0f});
    EXPECT_EQ(graphics.getWidth(), 10.0f);
    EXPECT_EQ(graphics.getHeight(), 0.0f);
    EXPECT_EQ(graphics.getScale(), 1.0f);
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>(1.0f, 2.0f));
}

TEST(BillboardGraphicsTest, OriginsOutsideTheirRangeAreIgnored) {
    BillboardGraphics graphics;
    graphics.setHorizontalOrigin(HorizontalOrigin::Right);
    graphics.setHorizontalOrigin(static_cast<HorizontalOrigin>(3));
    graphics.setVerticalOrigin(static_cast<VerticalOrigin>(4));
    EXPECT_EQ(graphics.getHorizontalOrigin(), HorizontalOrigin::Right);
    EXPECT_EQ(graphics.getVerticalOrigin(), VerticalOrigin::Center);
}

TEST(BillboardGraphicsTest, DescribeWritesTheBillboardFields) {
    BillboardGraphics graphics;
    graphics.setImage(std::make_shared<keo::Image>(2u, 1u, std::vector<std::uint8_t>(8, 0)));
    graphics.setHeight(16.0f);
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 14u);
    EXPECT_EQ(e[6], (keo::FieldList::Entry{"image", "{\"width\": 2, \"height\": 1}"}));
    EXPECT_EQ(e[7], (keo::FieldList::Entry{"width", "null"}));
    EXPECT_EQ(e[8], (keo::FieldList::Entry{"height", "16"}));
    EXPECT_EQ(e[13], (keo::FieldList::Entry{"pixelOffset", "[0, 0]"}));
}

} // namespace
