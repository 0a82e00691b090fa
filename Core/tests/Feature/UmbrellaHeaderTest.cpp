// The umbrella header comes first and alone: it must compile on its own.
#include "keoFeature.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

std::filesystem::path includeRoot() {
    const std::filesystem::path here = __FILE__;
    return here.parent_path().parent_path().parent_path() / "include";
}

TEST(FeatureUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    const keo::Feature::Feature feature(7u);
    EXPECT_EQ(feature.getId(), 7u);
}

TEST(FeatureUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    std::ifstream umbrella(includeRoot() / "keoFeature.h");
    ASSERT_TRUE(umbrella.good());
    std::stringstream text;
    text << umbrella.rdbuf();
    std::string missing;
    for (const auto& entry : std::filesystem::directory_iterator(includeRoot() / "Feature")) {
        const std::string name = "Feature/" + entry.path().filename().string();
        if (entry.path().extension() == ".h" &&
            text.str().find("#include \"" + name + "\"") == std::string::npos) {
            missing += " " + name;
        }
    }
    EXPECT_EQ(missing, "") << "headers missing from keoFeature.h";
}

} // namespace
