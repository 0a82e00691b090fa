#include "Feature/BillboardSymbol.h"

#include "Data/BillboardGraphics.h"
#include "Data/Image.h"
#include "Feature/Feature.h"
#include "Feature/PointSymbol.h"
#include "Feature/SymbolContext.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::HorizontalOrigin;
using keo::Image;
using keo::Vector2;
using keo::VerticalOrigin;
using keo::Feature::BillboardSymbol;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

std::shared_ptr<Image> makeImage() {
    return std::make_shared<Image>(1u, 1u, std::vector<std::uint8_t>{1, 2, 3, 4});
}

BillboardSymbol makeEdited(const std::shared_ptr<Image>& image) {
    BillboardSymbol symbol;
    symbol.setEnabled(false);
    symbol.setImage(image);
    symbol.setWidth(32.0f);
    symbol.setHeight(16.0f);
    symbol.setScale(2.0f);
    symbol.setColor(Color::RED);
    symbol.setHorizontalOrigin(HorizontalOrigin::Left);
    symbol.setVerticalOrigin(VerticalOrigin::Bottom);
    symbol.setPixelOffset({3.0f, -4.0f});
    return symbol;
}

void expectSameFields(const BillboardSymbol& a, const BillboardSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.getImage(), b.getImage());
    EXPECT_EQ(a.getWidth(), b.getWidth());
    EXPECT_EQ(a.getHeight(), b.getHeight());
    EXPECT_EQ(a.getScale(), b.getScale());
    EXPECT_EQ(a.getColor(), b.getColor());
    EXPECT_EQ(a.getHorizontalOrigin(), b.getHorizontalOrigin());
    EXPECT_EQ(a.getVerticalOrigin(), b.getVerticalOrigin());
    EXPECT_EQ(a.getPixelOffset(), b.getPixelOffset());
}

TEST(BillboardSymbolTest, DefaultHasAnEmptyImagePathAndNeutralPlacement) {
    const BillboardSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::Billboard);
    EXPECT_TRUE(symbol.isEnabled());
    ASSERT_TRUE(std::holds_alternative<std::string>(symbol.getImage()));
    EXPECT_EQ(std::get<std::string>(symbol.getImage()), "");
    EXPECT_FALSE(symbol.getWidth().has_value());
    EXPECT_FALSE(symbol.getHeight().has_value());
    EXPECT_EQ(symbol.getScale(), 1.0f);
    EXPECT_EQ(symbol.getColor(), Color::WHITE);
    EXPECT_EQ(static_cast<int>(symbol.getHorizontalOrigin()), 0);
    EXPECT_EQ(static_cast<int>(symbol.getVerticalOrigin()), 0);
    EXPECT_EQ(symbol.getPixelOffset(), Vector2<float>(0.0f, 0.0f));
}

TEST(BillboardSymbolTest, SettingTheSameImagePathTwiceRaisesOneChange) {
    BillboardSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setImage(std::string("marker.png"));
    symbol.setImage(std::string("marker.png"));
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(std::get<std::string>(symbol.getImage()), "marker.png");
}

TEST(BillboardSymbolTest, SettingTheEmptyPathOnADefaultSymbolRaisesNothing) {
    BillboardSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setImage(std::string());
    EXPECT_EQ(recorder.events, "");
}

TEST(BillboardSymbolTest, SettingTheHeldImagePointerRaisesNothing) {
    BillboardSymbol symbol;
    const auto image = makeImage();
    symbol.setImage(image);
    const EventRecorder recorder(symbol);
    symbol.setImage(image);
    EXPECT_EQ(recorder.events, "");
}

TEST(BillboardSymbolTest, AnotherPointerToAnIdenticalImageIsAChange) {
    BillboardSymbol symbol;
    const auto first = makeImage();
    const auto second = makeImage();
    ASSERT_EQ(*first, *second);
    symbol.setImage(first);
    const EventRecorder recorder(symbol);
    symbol.setImage(second);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(std::get<std::shared_ptr<Image>>(symbol.getImage()), second);
}

TEST(BillboardSymbolTest, AnyPathReplacingADecodedImageIsAChange) {
    BillboardSymbol symbol;
    symbol.setImage(makeImage());
    const EventRecorder recorder(symbol);
    symbol.setImage(std::string()); // the empty path too
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_TRUE(std::holds_alternative<std::string>(symbol.getImage()));
}

TEST(BillboardSymbolTest, ANullImagePointerReplacingTheEmptyPathIsAChange) {
    BillboardSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setImage(std::shared_ptr<Image>());
    symbol.setImage(std::shared_ptr<Image>());
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(BillboardSymbolTest, SetWidthAndHeightCompareOptionalsAsValues) {
    using Size = std::optional<float>;
    expectOneChangeThenNone<BillboardSymbol>(
        [](BillboardSymbol& s, const Size& v) { s.setWidth(v); }, Size(10.0f));
    expectOneChangeThenNone<BillboardSymbol>(
        [](BillboardSymbol& s, const Size& v) { s.setHeight(v); }, Size(0.0f));
    BillboardSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setWidth(std::nullopt); // both empty: equal
    symbol.setHeight(std::nullopt);
    EXPECT_EQ(recorder.events, "");
    symbol.setWidth(5.0f);
    symbol.setWidth(std::nullopt); // present to empty: a change
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(BillboardSymbolTest, SetScaleRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<BillboardSymbol>([](BillboardSymbol& s, float v) { s.setScale(v); },
                                             -0.5f);
}

TEST(BillboardSymbolTest, SetColorRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<BillboardSymbol>(
        [](BillboardSymbol& s, const Color& v) { s.setColor(v); }, Color::GREEN);
}

TEST(BillboardSymbolTest, SetOriginsCompareByValue) {
    expectOneChangeThenNone<BillboardSymbol>(
        [](BillboardSymbol& s, HorizontalOrigin v) { s.setHorizontalOrigin(v); },
        HorizontalOrigin::Right);
    expectOneChangeThenNone<BillboardSymbol>(
        [](BillboardSymbol& s, VerticalOrigin v) { s.setVerticalOrigin(v); }, VerticalOrigin::Top);
}

TEST(BillboardSymbolTest, SetPixelOffsetComparesComponentWise) {
    expectOneChangeThenNone<BillboardSymbol>(
        [](BillboardSymbol& s, const Vector2<float>& v) { s.setPixelOffset(v); },
        Vector2<float>(0.0f, 1.0f));
}

TEST(BillboardSymbolTest, NaNIsAlwaysAChange) {
    using Size = std::optional<float>;
    expectNaNAlwaysChanges<BillboardSymbol>([](BillboardSymbol& s, float v) { s.setScale(v); },
                                            NOT_A_NUMBER);
    expectNaNAlwaysChanges<BillboardSymbol>(
        [](BillboardSymbol& s, const Size& v) { s.setWidth(v); }, Size(NOT_A_NUMBER));
    expectNaNAlwaysChanges<BillboardSymbol>(
        [](BillboardSymbol& s, const Size& v) { s.setHeight(v); }, Size(NOT_A_NUMBER));
    expectNaNAlwaysChanges<BillboardSymbol>(
        [](BillboardSymbol& s, const Color& v) { s.setColor(v); }, Color(1.0f, NOT_A_NUMBER, 1.0f));
    expectNaNAlwaysChanges<BillboardSymbol>(
        [](BillboardSymbol& s, const Vector2<float>& v) { s.setPixelOffset(v); },
        Vector2<float>(NOT_A_NUMBER, 0.0f));
}

TEST(BillboardSymbolTest, AssignCopiesTheFieldsInDeclarationOrderAfterEnabled) {
    const BillboardSymbol source = makeEdited(makeImage());
    BillboardSymbol target;
    const EventRecorder recorder(target);
    FieldOrder order(target);
    order.add("enabled", [&] { return target.isEnabled() == source.isEnabled(); });
    order.add("image", [&] { return target.getImage() == source.getImage(); });
    order.add("width", [&] { return target.getWidth() == source.getWidth(); });
    order.add("height", [&] { return target.getHeight() == source.getHeight(); });
    order.add("scale", [&] { return target.getScale() == source.getScale(); });
    order.add("color", [&] { return target.getColor() == source.getColor(); });
    order.add("horizontalOrigin",
              [&] { return target.getHorizontalOrigin() == source.getHorizontalOrigin(); });
    order.add("verticalOrigin",
              [&] { return target.getVerticalOrigin() == source.getVerticalOrigin(); });
    order.add("pixelOffset", [&] { return target.getPixelOffset() == source.getPixelOffset(); });
    target.assign(source);
    EXPECT_EQ(order.order(),
              (std::vector<std::string>{"enabled", "image", "width", "height", "scale", "color",
                                        "horizontalOrigin", "verticalOrigin", "pixelOffset"}));
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUDLUDLUDLUDLUD");
    expectSameFields(target, source);
}

TEST(BillboardSymbolTest, AssignCopiesAnImagePathOrSharesADecodedImage) {
    BillboardSymbol withPath;
    withPath.setImage(std::string("pin.png"));
    BillboardSymbol target;
    target.setImage(makeImage());
    target.assign(withPath);
    EXPECT_EQ(std::get<std::string>(target.getImage()), "pin.png");

    const auto image = makeImage();
    BillboardSymbol withImage;
    withImage.setImage(image);
    const EventRecorder recorder(target);
    target.assign(withImage);
    EXPECT_EQ(std::get<std::shared_ptr<Image>>(target.getImage()), image);
    EXPECT_EQ(recorder.events, "LUD");
    target.assign(withImage); // the same object: nothing
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(BillboardSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<BillboardSymbol, keo::Feature::PointSymbol>(
        "Core/src/Feature/BillboardSymbol", "keo::Feature::BillboardSymbol::assign");
}

TEST(BillboardSymbolTest, CloneAndCopyHaveEveryFieldSharingTheImageAndEventsOfTheirOwn) {
    const auto image = makeImage();
    BillboardSymbol source = makeEdited(image);
    expectCopiesAreIndependent(source, expectSameFields, [&](BillboardSymbol& copy) {
        EXPECT_EQ(std::get<std::shared_ptr<Image>>(copy.getImage()), image);
        copy.setScale(7.0f);
    });
}

// --- _fill: the symbol written into its graphics --------------------------------------------

TEST(BillboardSymbolTest, FillWritesTheImageAndTheContextIntoTheGraphics) {
    const keo::Feature::Feature feature;
    const auto image = makeImage();
    const BillboardSymbol symbol = makeEdited(image);
    const keo::DistanceDisplayCondition condition(5.0f, 50.0f);
    keo::BillboardGraphics graphics;
    symbol._fill(graphics, {feature, condition, keo::HeightReference::RelativeToGround, false});
    EXPECT_EQ(graphics.getImage(), keo::ImageSource(image));
    EXPECT_EQ(graphics.getWidth(), std::optional<float>(32.0f));
    EXPECT_EQ(graphics.getHeight(), std::optional<float>(16.0f));
    EXPECT_EQ(graphics.getScale(), 2.0f);
    EXPECT_EQ(graphics.getColor(), Color::RED);
    EXPECT_EQ(graphics.getHorizontalOrigin(), HorizontalOrigin::Left);
    EXPECT_EQ(graphics.getVerticalOrigin(), VerticalOrigin::Bottom);
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>(3.0f, -4.0f));
    EXPECT_EQ(graphics.getHeightReference(), keo::HeightReference::RelativeToGround);
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), condition);
}

TEST(BillboardSymbolTest, FillShowsTheHighlightColourOnlyWhileHighlighted) {
    const keo::Feature::Feature feature;
    const BillboardSymbol symbol = makeEdited(makeImage());
    keo::BillboardGraphics graphics;
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getColor(), Color::HIGHLIGHTCOLOR);
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getColor(), Color::RED);
}

} // namespace
