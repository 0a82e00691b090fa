// The umbrella header comes first and alone: it must compile on its own.
#include "keoFeature.h"

#include "../UmbrellaHeaderCheck.h"

#include <gtest/gtest.h>

namespace {

TEST(FeatureUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    const keo::Feature::Feature feature(7u);
    EXPECT_EQ(feature.getId(), 7u);
}

TEST(FeatureUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    EXPECT_EQ(keo::test::headersMissingFromUmbrella("Feature"), "")
        << "headers missing from keoFeature.h";
}

} // namespace
