// The umbrella header comes first and alone: it must compile on its own.
#include "keoPicture.h"

#include "../UmbrellaHeaderCheck.h"

#include <gtest/gtest.h>

namespace {

TEST(PictureUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    keo::Picture::Options options;
    options.width = 64;
    EXPECT_EQ(keo::Picture::Renderer(options).getOptions().width, 64u);
}

TEST(PictureUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    EXPECT_EQ(keo::test::headersMissingFromUmbrella("Picture"), "")
        << "headers missing from keoPicture.h";
}

} // namespace
