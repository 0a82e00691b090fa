#include "Data/ImageMaterialProperty.h"

#include "Common/Math.h"
#include "Data/FieldList.h"
#include "Data/Image.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using keo::Color;
using keo::FieldList;
using keo::Image;
using keo::ImageMaterialProperty;
using keo::Matrix2;
using keo::Vector2;

TEST(ImageMaterialPropertyTest, DefaultsAreAnEmptyUriAndOneUntransformedWhiteTile) {
    const ImageMaterialProperty p;
    EXPECT_EQ(p.getType(), ImageMaterialProperty::TYPE);
    ASSERT_TRUE(std::holds_alternative<std::string>(p.getImage()));
    EXPECT_EQ(std::get<std::string>(p.getImage()), "");
    EXPECT_EQ(p.getRepeat(), (Vector2<float>{1.0f, 1.0f}));
    EXPECT_EQ(p.getOffset(), (Vector2<float>{0.0f, 0.0f}));
    EXPECT_EQ(p.getMatrix(), Matrix2::identity());
    EXPECT_EQ(p.getColor(), Color::WHITE);
}

TEST(ImageMaterialPropertyTest, OptionsAreReadBackInOrder) {
    const Matrix2 quarterTurn = Matrix2::fromRotation(keo::Radian(keo::Math::PI_OVER_TWO));
    const ImageMaterialProperty p(
        {std::string("images/road.png"), {3.0f, 2.0f}, {0.5f, 0.25f}, quarterTurn, Color::RED});
    EXPECT_EQ(std::get<std::string>(p.getImage()), "images/road.png");
    EXPECT_EQ(p.getRepeat(), (Vector2<float>{3.0f, 2.0f}));
    EXPECT_EQ(p.getOffset(), (Vector2<float>{0.5f, 0.25f}));
    EXPECT_EQ(p.getMatrix(), quarterTurn);
    EXPECT_EQ(p.getColor(), Color::RED);
}

TEST(ImageMaterialPropertyTest, SettersAreReadBackAndADecodedImageIsShared) {
    ImageMaterialProperty p;
    auto image = std::make_shared<Image>(1u, 1u, std::vector<std::uint8_t>{1, 2, 3, 4});
    p.setImage(image);
    p.setRepeat({4.0f, 4.0f});
    p.setOffset({0.1f, 0.2f});
    p.setMatrix(Matrix2(0.0, -1.0, 1.0, 0.0));
    ASSERT_TRUE(std::holds_alternative<std::shared_ptr<Image>>(p.getImage()));
    EXPECT_EQ(std::get<std::shared_ptr<Image>>(p.getImage()), image);
    EXPECT_EQ(p.getRepeat(), (Vector2<float>{4.0f, 4.0f}));
    EXPECT_EQ(p.getOffset(), (Vector2<float>{0.1f, 0.2f}));
    EXPECT_EQ(p.getMatrix(), Matrix2(0.0, -1.0, 1.0, 0.0));
}

TEST(ImageMaterialPropertyTest, DescribeWritesAUriImageAndTheMatrixByRows) {
    ImageMaterialProperty p({std::string("a.png"),
                             {3.0f, 2.0f},
                             {0.5f, 0.0f},
                             Matrix2(1.0, 2.0, 3.0, 4.0),
                             Color::RED});
    FieldList fields;
    p.describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"color", "\"#ff0000\""},
                                                               {"enableBreathing", "false"},
                                                               {"breathingRate", "100"},
                                                               {"image", "\"a.png\""},
                                                               {"repeat", "[3, 2]"},
                                                               {"offset", "[0.5, 0]"},
                                                               {"matrix", "[[1, 2], [3, 4]]"}}));
}

TEST(ImageMaterialPropertyTest, DescribeWritesADecodedImageBySizeAndANullImageAsNull) {
    ImageMaterialProperty p;
    p.setImage(std::make_shared<Image>(2u, 1u, std::vector<std::uint8_t>(8, 0)));
    FieldList decoded;
    p.describe(decoded);
    EXPECT_EQ(decoded.entries().at(3),
              (FieldList::Entry{"image", "{\"width\": 2, \"height\": 1}"}));
    p.setImage(std::shared_ptr<Image>());
    FieldList null;
    p.describe(null);
    EXPECT_EQ(null.entries().at(3), (FieldList::Entry{"image", "null"}));
}

} // namespace
