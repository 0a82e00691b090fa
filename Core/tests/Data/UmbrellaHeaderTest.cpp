// The umbrella header comes first and alone: it must compile on its own.
#include "keoData.h"

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

TEST(DataUmbrellaHeaderTest, CompilesAloneAndGivesTheLibrarysTypes) {
    const keo::Entity entity("root");
    EXPECT_EQ(entity.getName(), "root");
}

TEST(DataUmbrellaHeaderTest, IncludesEveryPublicHeaderOfTheLibrary) {
    std::ifstream umbrella(includeRoot() / "keoData.h");
    ASSERT_TRUE(umbrella.good());
    std::stringstream text;
    text << umbrella.rdbuf();
    std::string missing;
    for (const auto& entry : std::filesystem::directory_iterator(includeRoot() / "Data")) {
        const std::string name = "Data/" + entry.path().filename().string();
        if (entry.path().extension() == ".h" &&
            text.str().find("#include \"" + name + "\"") == std::string::npos) {
            missing += " " + name;
        }
    }
    EXPECT_EQ(missing, "") << "headers missing from keoData.h";
}

} // namespace
