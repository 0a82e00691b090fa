// The umbrella header comes first and alone: it must compile on its own.
#include "keoData.h"

#include "../UmbrellaHeaderCheck.h"

#include <gtest/gtest.h>

namespace {

TEST(DataUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    const keo::Entity entity("root");
    EXPECT_EQ(entity.getName(), "root");
}

TEST(DataUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    EXPECT_EQ(keo::test::headersMissingFromUmbrella("Data"), "")
        << "headers missing from keoData.h";
}

} // namespace
