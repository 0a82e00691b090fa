#include "Data/Resource.h"

#include <gtest/gtest.h>

namespace {

TEST(ResourceTest, KeepsTheUriAsGiven) {
    EXPECT_EQ(keo::Resource().getUri(), "");
    EXPECT_EQ(keo::Resource("models/房子.glb").getUri(), "models/房子.glb");
}

TEST(ResourceTest, EqualityComparesUris) {
    EXPECT_EQ(keo::Resource("a.glb"), keo::Resource("a.glb"));
    EXPECT_NE(keo::Resource("a.glb"), keo::Resource("A.glb"));
}

} // namespace
