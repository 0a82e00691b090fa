#include "Options.h"

#include "Picture/View.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using keo::scene::Options;
using keo::scene::parseArguments;
using keo::scene::ParseResult;

ParseResult parse(const std::vector<std::string>& arguments) {
    return parseArguments(arguments);
}

std::string errorOf(const std::vector<std::string>& arguments) {
    const ParseResult result = parse(arguments);
    EXPECT_FALSE(result.options.has_value());
    return result.error;
}

TEST(OptionsTest, NoArgumentsGiveTheSampleRunWithItsDefaults) {
    const ParseResult result = parse({});
    ASSERT_TRUE(result.options.has_value());
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options->frames, 12u);
    EXPECT_FALSE(result.options->features.has_value());
    EXPECT_EQ(result.options->jsonPath, "");
    EXPECT_FALSE(result.options->quiet);
    EXPECT_FALSE(result.options->verify);
    EXPECT_FALSE(result.options->help);
}

TEST(OptionsTest, ValuesAreTakenFromTheNextArgumentOrAfterAnEqualsSign) {
    const ParseResult result =
        parse({"--frames", "5", "--features=300", "--json", "out.json", "--quiet", "--verify"});
    ASSERT_TRUE(result.options.has_value());
    EXPECT_EQ(result.options->frames, 5u);
    EXPECT_EQ(result.options->features, 300u);
    EXPECT_EQ(result.options->jsonPath, "out.json");
    EXPECT_TRUE(result.options->quiet);
    EXPECT_TRUE(result.options->verify);
}

TEST(OptionsTest, HelpIsRecognisedInBothForms) {
    EXPECT_TRUE(parse({"--help"}).options->help);
    EXPECT_TRUE(parse({"-h"}).options->help);
}

TEST(OptionsTest, TheLargestCountsAreAcceptedAndOneMoreIsNot) {
    EXPECT_EQ(parse({"--frames", "100000"}).options->frames, keo::scene::MAX_FRAMES);
    EXPECT_EQ(parse({"--features", "1000000"}).options->features, keo::scene::MAX_FEATURES);
    EXPECT_EQ(errorOf({"--frames", "100001"}),
              "option '--frames' needs a whole number from 1 to 100000, got '100001'");
}

TEST(OptionsTest, CountsMustBePlainPositiveWholeNumbers) {
    for (const char* bad : {"0", "abc", "-1", "+3", "1.5", "1e3", " 4", "4 ", "", "00000000000",
                            "99999999999999999999"}) {
        EXPECT_EQ(errorOf({"--frames", bad}),
                  std::string("option '--frames' needs a whole number from 1 to 100000, got '") +
                      bad + "'")
            << bad;
    }
    EXPECT_EQ(errorOf({"--features=-1"}),
              "option '--features' needs a whole number from 1 to 1000000, got '-1'");
}

TEST(OptionsTest, AnOptionWithoutItsValueSaysSo) {
    EXPECT_EQ(errorOf({"--frames"}), "option '--frames' needs a value");
    EXPECT_EQ(errorOf({"--json", "--quiet"}), "option '--json' needs a value");
    EXPECT_EQ(errorOf({"--json="}), "option '--json' needs a file name");
}

TEST(OptionsTest, UnknownOptionsStrayArgumentsAndValuesOnFlagsAreErrors) {
    EXPECT_EQ(errorOf({"--bogus"}), "unknown option '--bogus'");
    EXPECT_EQ(errorOf({"--bogus=3"}), "unknown option '--bogus'");
    EXPECT_EQ(errorOf({"-x"}), "unknown option '-x'");
    EXPECT_EQ(errorOf({"scene.txt"}), "unexpected argument 'scene.txt'");
    EXPECT_EQ(errorOf({"--"}), "unknown option '--'");
    EXPECT_EQ(errorOf({"--quiet=yes"}), "option '--quiet' takes no value");
}

TEST(OptionsTest, NoPictureIsAskedForByDefault) {
    const Options options = *parse({}).options;
    EXPECT_EQ(options.picturePath, "");
    EXPECT_EQ(options.pictureView, keo::Picture::View::Map);
    EXPECT_EQ(options.pictureWidth, 1024u);
    EXPECT_EQ(options.pictureHeight, 768u);
    EXPECT_FALSE(options.pictureEvery.has_value());
}

TEST(OptionsTest, PictureOptionsAreTakenInBothForms) {
    const ParseResult result =
        parse({"--picture", "out.svg", "--view=oblique", "--size", "640x480", "--picture-every=3"});
    ASSERT_TRUE(result.options.has_value()) << result.error;
    EXPECT_EQ(result.options->picturePath, "out.svg");
    EXPECT_EQ(result.options->pictureView, keo::Picture::View::Oblique);
    EXPECT_EQ(result.options->pictureWidth, 640u);
    EXPECT_EQ(result.options->pictureHeight, 480u);
    EXPECT_EQ(result.options->pictureEvery, 3u);
    EXPECT_EQ(parse({"--picture=a.PDF", "--view", "map"}).options->pictureView,
              keo::Picture::View::Map);
}

TEST(OptionsTest, APictureFileMustNameAFormat) {
    EXPECT_EQ(errorOf({"--picture", "out.jpg"}),
              "option '--picture' needs a file name ending in .png, .svg or .pdf, got 'out.jpg'");
    EXPECT_EQ(errorOf({"--picture="}),
              "option '--picture' needs a file name ending in .png, .svg or .pdf, got ''");
    EXPECT_EQ(errorOf({"--picture"}), "option '--picture' needs a value");
}

TEST(OptionsTest, AViewIsMapOrOblique) {
    EXPECT_EQ(errorOf({"--picture", "a.png", "--view", "side"}),
              "option '--view' needs 'map' or 'oblique', got 'side'");
}

TEST(OptionsTest, ASizeIsTwoWholeNumbersWithinTheLimit) {
    EXPECT_EQ(parse({"--picture", "a.png", "--size", "16384x1"}).options->pictureWidth, 16384u);
    for (const char* bad :
         {"0x10", "10x0", "10", "10x", "x10", "10X10", "16385x10", "-5x5", "10x10x10", "1.5x2"}) {
        EXPECT_EQ(errorOf({"--picture", "a.png", "--size", bad}),
                  std::string("option '--size' needs WIDTHxHEIGHT, each from 1 to 16384, got '") +
                      bad + "'")
            << bad;
    }
}

TEST(OptionsTest, PictureEveryIsAPositiveFrameCount) {
    EXPECT_EQ(errorOf({"--picture", "a.png", "--picture-every", "0"}),
              "option '--picture-every' needs a whole number from 1 to 100000, got '0'");
}

TEST(OptionsTest, PictureSettingsWithoutAPictureAreErrors) {
    EXPECT_EQ(errorOf({"--view", "oblique"}), "option '--view' needs --picture FILE");
    EXPECT_EQ(errorOf({"--size", "10x10"}), "option '--size' needs --picture FILE");
    EXPECT_EQ(errorOf({"--picture-every", "2"}), "option '--picture-every' needs --picture FILE");
}

TEST(OptionsTest, DataOptionsAreTakenInBothForms) {
    const ParseResult result =
        parse({"--data", "places.gpkg", "--layer=roads", "--style", "roads.json"});
    ASSERT_TRUE(result.options.has_value()) << result.error;
    EXPECT_EQ(result.options->dataPath, "places.gpkg");
    EXPECT_EQ(result.options->layer, "roads");
    EXPECT_EQ(result.options->stylePath, "roads.json");
    EXPECT_TRUE(parse({}).options->dataPath.empty());
}

TEST(OptionsTest, DataSettingsWithoutDataAndDataWithAScaleRunAreErrors) {
    EXPECT_EQ(errorOf({"--layer", "roads"}), "option '--layer' needs --data FILE");
    EXPECT_EQ(errorOf({"--style", "roads.json"}), "option '--style' needs --data FILE");
    EXPECT_EQ(errorOf({"--data", "a.geojson", "--features", "10"}),
              "option '--data' does not go with '--features'");
    EXPECT_EQ(errorOf({"--data="}), "option '--data' needs a file name");
    EXPECT_EQ(errorOf({"--data", "a.geojson", "--layer="}), "option '--layer' needs a layer name");
}

TEST(OptionsTest, TheUsageTextNamesEveryOption) {
    const std::string usage = keo::scene::usageText();
    for (const char* option :
         {"--frames", "--features", "--json", "--quiet", "--verify", "--help", "--picture",
          "--view", "--size", "--picture-every", "--data", "--layer", "--style"}) {
        EXPECT_NE(usage.find(option), std::string::npos) << option;
    }
}

} // namespace
