#include "ProgressBar.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using keo::scene::ProgressBar;

// The last line drawn (after the last carriage return that starts a drawing).
std::string lastLine(const std::string& text) {
    const auto start = text.rfind("\r[");
    return start == std::string::npos ? std::string() : text.substr(start + 1);
}

TEST(ProgressBarTest, ShowsThePercentThePhaseAndTheTimeSoFar) {
    std::ostringstream out;
    double now = 100.0;
    ProgressBar bar(out, true, 200, [&now] { return now; });
    now = 100.4;
    bar.advance(20, "build");
    const std::string line = lastLine(out.str());
    EXPECT_EQ(line.rfind("[###---------------------------]  10% build  0 s", 0), 0u) << line;
    EXPECT_EQ(line.find("left"), std::string::npos) << "no estimate before a second has gone";
}

TEST(ProgressBarTest, EstimatesTheTimeLeftFromTheTimeSoFarOnceASecondHasGone) {
    std::ostringstream out;
    double now = 0.0;
    ProgressBar bar(out, true, 100, [&now] { return now; });
    now = 12.0;
    bar.advance(40, "clean frames");
    // 40 units in 12 s: the 60 left take about 18 s more.
    EXPECT_NE(lastLine(out.str()).find("40% clean frames  12 s, about 18 s left"),
              std::string::npos)
        << out.str();
}

TEST(ProgressBarTest, RedrawsOnlyWhenTheWholePercentChanges) {
    std::ostringstream out;
    double now = 0.0;
    ProgressBar bar(out, true, 1000, [&now] { return now; });
    bar.advance(5, "edits");
    const std::string once = out.str();
    bar.advance(4, "edits"); // 0.9 %: still 0 %
    EXPECT_EQ(out.str(), once);
    bar.advance(1, "edits");
    EXPECT_NE(out.str(), once);
}

TEST(ProgressBarTest, ADisabledBarWritesNothingAndFinishErasesTheLineOnce) {
    std::ostringstream quiet;
    {
        ProgressBar bar(quiet, false, 10);
        bar.advance(5, "build");
    }
    EXPECT_EQ(quiet.str(), "");
    std::ostringstream out;
    ProgressBar bar(out, true, 10, [] { return 0.0; });
    bar.advance(5, "build");
    bar.finish();
    const std::string finished = out.str();
    EXPECT_EQ(finished.back(), '\r');
    bar.advance(5, "build");
    bar.finish();
    EXPECT_EQ(out.str(), finished);
}

} // namespace
