// The umbrella header comes first and alone: it must compile on its own.
#include "keoSource.h"

#include "../UmbrellaHeaderCheck.h"

#include <gtest/gtest.h>

namespace {

TEST(SourceUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    const keo::Source::Value value(2.5);
    EXPECT_EQ(value.asNumber(), 2.5);
}

TEST(SourceUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    EXPECT_EQ(keo::test::headersMissingFromUmbrella("Source"), "")
        << "headers missing from keoSource.h";
}

} // namespace
