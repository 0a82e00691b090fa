#include "Picture/Format.h"

#include <gtest/gtest.h>

namespace {

using keo::Picture::Format;
using keo::Picture::formatFromPath;

TEST(FormatTest, TheExtensionNamesTheFormatInAnyCase) {
    EXPECT_EQ(formatFromPath("a.png"), Format::Png);
    EXPECT_EQ(formatFromPath("dir/b.SVG"), Format::Svg);
    EXPECT_EQ(formatFromPath("/tmp/c.Pdf"), Format::Pdf);
}

TEST(FormatTest, OtherExtensionsAndNamesWithoutOneNameNoFormat) {
    for (const char* path : {"a.jpg", "a", "", "a.png.txt", "dir.png/file", ".pngx", "a."}) {
        EXPECT_FALSE(formatFromPath(path).has_value()) << path;
    }
}

TEST(FormatTest, FormatNamesAreLowerCase) {
    EXPECT_STREQ(keo::Picture::formatName(Format::Png), "png");
    EXPECT_STREQ(keo::Picture::formatName(Format::Svg), "svg");
    EXPECT_STREQ(keo::Picture::formatName(Format::Pdf), "pdf");
}

} // namespace
