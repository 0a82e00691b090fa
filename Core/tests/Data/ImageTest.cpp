#include "Data/Image.h"

#include <gtest/gtest.h>

namespace {

using keo::Image;

TEST(ImageTest, DefaultIsEmpty) {
    const Image image;
    EXPECT_TRUE(image.isEmpty());
    EXPECT_EQ(image.getWidth(), 0u);
    EXPECT_EQ(image.getHeight(), 0u);
}

TEST(ImageTest, KeepsSizeAndPixels) {
    std::vector<std::uint8_t> pixels(2 * 3 * 4);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = static_cast<std::uint8_t>(i);
    }
    const Image image(2, 3, pixels);
    EXPECT_FALSE(image.isEmpty());
    EXPECT_EQ(image.getWidth(), 2u);
    EXPECT_EQ(image.getHeight(), 3u);
    EXPECT_EQ(image.getPixels(), pixels);
}

TEST(ImageTest, PixelCountThatDoesNotMatchTheSizeGivesAnEmptyImage) {
    EXPECT_TRUE(Image(2, 2, std::vector<std::uint8_t>(15)).isEmpty());
    EXPECT_EQ(Image(2, 2, std::vector<std::uint8_t>(17)).getWidth(), 0u);
    // A size whose byte count would wrap around in 32 bits is still refused.
    EXPECT_TRUE(Image(0x80000000u, 2, std::vector<std::uint8_t>(0)).isEmpty());
}

TEST(ImageTest, EqualityComparesSizeAndBytes) {
    const Image a(1, 1, {1, 2, 3, 4});
    EXPECT_EQ(a, Image(1, 1, {1, 2, 3, 4}));
    EXPECT_NE(a, Image(1, 1, {1, 2, 3, 5}));
    EXPECT_NE(Image(1, 2, std::vector<std::uint8_t>(8)), Image(2, 1, std::vector<std::uint8_t>(8)));
}

} // namespace
