#include "Feature/LengthLabelSymbol.h"

#include "Feature/LabelSymbol.h"
#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::Feature::LengthLabelSymbol;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;
using Unit = LengthLabelSymbol::LengthUnit;

std::string format(double meters, Unit unit, int places) {
    LengthLabelSymbol symbol;
    symbol.setUnit(unit);
    symbol.setDecimalPlaces(places);
    return symbol.formatLength(meters);
}

TEST(LengthLabelSymbolTest, NewSymbolHasTheDefaults) {
    const LengthLabelSymbol symbol;
    EXPECT_EQ(symbol.getType(), keo::Feature::Symbol::Type::LengthLabel);
    EXPECT_EQ(static_cast<int>(symbol.getType()), 10);
    EXPECT_TRUE(symbol.isShowSegments());
    EXPECT_TRUE(symbol.isShowTotal());
    EXPECT_EQ(symbol.getUnit(), Unit::Meter);
    EXPECT_EQ(symbol.getDecimalPlaces(), 2);
    EXPECT_EQ(symbol.getSize(), 12.0f);
    EXPECT_EQ(symbol.getBackgroundPadding(), keo::Vector4<float>(4.0f, 2.0f, 4.0f, 2.0f));
    EXPECT_EQ(static_cast<int>(Unit::Meter), 0);
    EXPECT_EQ(static_cast<int>(Unit::Kilometer), 1);
}

TEST(LengthLabelSymbolTest, FormatLengthOfZeroWithTheDefaults) {
    EXPECT_EQ(LengthLabelSymbol().formatLength(0.0), "0.00 米");
}

TEST(LengthLabelSymbolTest, FormatLengthInMetresWithTheDefaults) {
    EXPECT_EQ(LengthLabelSymbol().formatLength(1234.5), "1234.50 米");
}

TEST(LengthLabelSymbolTest, FormatLengthInKilometresRoundsTheShortestDecimalHalfUp) {
    // 1234.5 m = 1.2345 km; the nearest double is just below 1.2345, its shortest form is not.
    EXPECT_EQ(format(1234.5, Unit::Kilometer, 3), "1.235 千米");
}

TEST(LengthLabelSymbolTest, FormatLengthRoundsHalfAwayFromZero) {
    EXPECT_EQ(format(0.125, Unit::Meter, 2), "0.13 米");
    EXPECT_EQ(format(1234.5, Unit::Meter, 0), "1235 米");
    EXPECT_EQ(format(0.5, Unit::Meter, 0), "1 米");
    EXPECT_EQ(format(-0.125, Unit::Meter, 2), "-0.13 米");
    EXPECT_EQ(format(2.675, Unit::Meter, 2), "2.68 米");
}

TEST(LengthLabelSymbolTest, FormatLengthCarriesThroughNines) {
    EXPECT_EQ(format(999.995, Unit::Meter, 2), "1000.00 米");
    EXPECT_EQ(format(9.96, Unit::Meter, 1), "10.0 米");
    EXPECT_EQ(format(99999.5, Unit::Kilometer, 2), "100.00 千米");
}

TEST(LengthLabelSymbolTest, FormatLengthOfSmallValues) {
    EXPECT_EQ(format(0.004, Unit::Meter, 2), "0.00 米");
    EXPECT_EQ(format(0.005, Unit::Meter, 2), "0.01 米");
    EXPECT_EQ(format(0.0004, Unit::Meter, 2), "0.00 米");
    EXPECT_EQ(format(1e-300, Unit::Meter, 3), "0.000 米");
    EXPECT_EQ(format(0.05, Unit::Kilometer, 3), "0.000 千米"); // 0.00005 km
    EXPECT_EQ(format(0.5, Unit::Kilometer, 3), "0.001 千米");  // 0.0005 km
}

TEST(LengthLabelSymbolTest, FormatLengthOfLargeValuesPadsWithZeros) {
    EXPECT_EQ(format(1e21, Unit::Meter, 1), "1000000000000000000000.0 米");
    EXPECT_EQ(format(40075016.686, Unit::Kilometer, 2), "40075.02 千米");
}

TEST(LengthLabelSymbolTest, ANegativeDecimalCountFormatsSixPlaces) {
    EXPECT_EQ(format(1.5, Unit::Meter, -1), "1.500000 米");
}

TEST(LengthLabelSymbolTest, NonFiniteLengthsAreWrittenAsSuch) {
    EXPECT_EQ(LengthLabelSymbol().formatLength(std::numeric_limits<double>::quiet_NaN()), "nan 米");
    EXPECT_EQ(LengthLabelSymbol().formatLength(std::numeric_limits<double>::infinity()), "inf 米");
    EXPECT_EQ(format(-std::numeric_limits<double>::infinity(), Unit::Kilometer, 2), "-inf 千米");
}

TEST(LengthLabelSymbolTest, SettersFollowTheEditRule) {
    LengthLabelSymbol symbol;
    EventRecorder recorder(symbol);
    symbol.setShowSegments(true);
    symbol.setShowTotal(true);
    symbol.setUnit(Unit::Meter);
    symbol.setDecimalPlaces(2);
    symbol.setSize(12.0f);
    symbol.setBackgroundPadding({4.0f, 2.0f, 4.0f, 2.0f});
    EXPECT_EQ(recorder.events, "");
    symbol.setShowSegments(false);
    symbol.setShowTotal(false);
    symbol.setUnit(Unit::Kilometer);
    symbol.setDecimalPlaces(3);
    symbol.setSize(14.0f);
    symbol.setBackgroundPadding({1.0f, 1.0f, 1.0f, 1.0f});
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUDLUD");
    symbol.setSize(std::numeric_limits<float>::quiet_NaN());
    symbol.setSize(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(recorder.events.size(), 24u);
}

TEST(LengthLabelSymbolTest, AssignCopiesEveryFieldInOrder) {
    LengthLabelSymbol source;
    source.setShowSegments(false);
    source.setUnit(Unit::Kilometer);
    source.setSize(20.0f);
    source.setEnabled(false);
    LengthLabelSymbol target;
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_FALSE(target.isEnabled());
    EXPECT_FALSE(target.isShowSegments());
    EXPECT_EQ(target.getUnit(), Unit::Kilometer);
    EXPECT_EQ(target.getSize(), 20.0f);
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD");
}

TEST(LengthLabelSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    LengthLabelSymbol target;
    EventRecorder recorder(target);
    target.assign(keo::Feature::LabelSymbol());
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, keo::Feature::test::ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/LengthLabelSymbol");
    EXPECT_EQ(records[0].location.function, "keo::Feature::LengthLabelSymbol::assign");
}

TEST(LengthLabelSymbolTest, CloneCopiesValuesWithoutListeners) {
    LengthLabelSymbol source;
    source.setDecimalPlaces(4);
    EventRecorder recorder(source);
    const auto copy = std::static_pointer_cast<LengthLabelSymbol>(source.clone());
    EXPECT_EQ(copy->getDecimalPlaces(), 4);
    copy->setDecimalPlaces(5);
    EXPECT_EQ(recorder.events, "");
}

} // namespace
