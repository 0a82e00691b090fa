// The umbrella header comes first and alone: it must compile on its own.
#include "keoCommon.h"

#include "../UmbrellaHeaderCheck.h"

#include <gtest/gtest.h>

namespace {

TEST(CommonUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    keo::Vector3<double> v(1.0, 2.0, 3.0);
    EXPECT_EQ(v.x, 1.0);
}

TEST(CommonUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    EXPECT_EQ(keo::test::headersMissingFromUmbrella("Common"), "")
        << "headers missing from keoCommon.h";
}

} // namespace
