// The umbrella header comes first and alone: it must compile on its own.
#include "keoCommon.h"

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

TEST(CommonUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    keo::Vector3<double> v(1.0, 2.0, 3.0);
    EXPECT_EQ(v.x, 1.0);
}

TEST(CommonUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    std::ifstream umbrella(includeRoot() / "keoCommon.h");
    ASSERT_TRUE(umbrella.good());
    std::stringstream text;
    text << umbrella.rdbuf();
    std::string missing;
    for (const auto& entry : std::filesystem::directory_iterator(includeRoot() / "Common")) {
        const std::string name = "Common/" + entry.path().filename().string();
        if (entry.path().extension() == ".h" &&
            text.str().find("#include \"" + name + "\"") == std::string::npos) {
            missing += " " + name;
        }
    }
    EXPECT_EQ(missing, "") << "headers missing from keoCommon.h";
}

} // namespace
