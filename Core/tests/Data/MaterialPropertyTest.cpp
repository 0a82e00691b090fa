#include "Data/MaterialProperty.h"

#include "Data/CircleWaveMaterialProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/FieldList.h"
#include "Data/ImageMaterialProperty.h"
#include "Data/PolylineArrowMaterialProperty.h"
#include "Data/PolylineDashMaterialProperty.h"
#include "Data/PolylineDynamicMaterialProperty.h"
#include "Data/PolylineGlowMaterialProperty.h"
#include "Data/PolylineOutlineMaterialProperty.h"
#include "Data/WallDynamicMaterialProperty.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using keo::Color;
using keo::FieldList;
using keo::MaterialProperty;
using keo::TimePoint;

// One property of every kind, in the order of the Type enumeration.
std::vector<std::shared_ptr<MaterialProperty>> oneOfEachKind() {
    return {std::make_shared<keo::ColorMaterialProperty>(),
            std::make_shared<keo::ImageMaterialProperty>(),
            std::make_shared<keo::CircleWaveMaterialProperty>(),
            std::make_shared<keo::PolylineArrowMaterialProperty>(),
            std::make_shared<keo::PolylineDashMaterialProperty>(),
            std::make_shared<keo::PolylineDynamicMaterialProperty>(),
            std::make_shared<keo::PolylineGlowMaterialProperty>(),
            std::make_shared<keo::PolylineOutlineMaterialProperty>(),
            std::make_shared<keo::WallDynamicMaterialProperty>()};
}

// Which casts of a property give a non-null pointer, in the order of the Type enumeration;
// P is MaterialProperty or const MaterialProperty, to check both sets of casts.
template <typename P>
std::vector<bool> castsThatSucceed(P& p) {
    return {p.asColorMaterialProperty() != nullptr,
            p.asImageMaterialProperty() != nullptr,
            p.asCircleWaveMaterialProperty() != nullptr,
            p.asPolylineArrowMaterialProperty() != nullptr,
            p.asPolylineDashMaterialProperty() != nullptr,
            p.asPolylineDynamicMaterialProperty() != nullptr,
            p.asPolylineGlowMaterialProperty() != nullptr,
            p.asPolylineOutlineMaterialProperty() != nullptr,
            p.asWallDynamicMaterialProperty() != nullptr};
}

TEST(MaterialPropertyTest, EachKindHasItsOwnTypeCode) {
    const auto kinds = oneOfEachKind();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(kinds[i]->getType()), i + 1) << kinds[i]->getTypeName();
    }
}

TEST(MaterialPropertyTest, EachCastGivesOnlyItsOwnKindAndNullForTheOthers) {
    const auto kinds = oneOfEachKind();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        std::vector<bool> expected(kinds.size(), false);
        expected[i] = true;
        EXPECT_EQ(castsThatSucceed(*kinds[i]), expected) << kinds[i]->getTypeName();
        const MaterialProperty& readOnly = *kinds[i];
        EXPECT_EQ(castsThatSucceed(readOnly), expected) << kinds[i]->getTypeName();
    }
}

TEST(MaterialPropertyTest, CastReturnsTheSameObject) {
    auto dash = std::make_shared<keo::PolylineDashMaterialProperty>();
    std::shared_ptr<MaterialProperty> base = dash;
    EXPECT_EQ(base->asPolylineDashMaterialProperty(), dash.get());
    base->asPolylineDashMaterialProperty()->setDashLength(4.0f);
    EXPECT_EQ(dash->getDashLength(), 4.0f);
}

TEST(MaterialPropertyTest, BreathingIsOffAtARateOfOneHundredByDefault) {
    for (const auto& p : oneOfEachKind()) {
        EXPECT_FALSE(p->isEnableBreathing()) << p->getTypeName();
        EXPECT_EQ(p->getBreathingRate(), 100.0f) << p->getTypeName();
    }
}

TEST(MaterialPropertyTest, BreathingSettersAreReadBack) {
    keo::ColorMaterialProperty p;
    p.setEnableBreathing(true);
    p.setBreathingRate(30.0f);
    EXPECT_TRUE(p.isEnableBreathing());
    EXPECT_EQ(p.getBreathingRate(), 30.0f);
    p.setEnableBreathing(false);
    EXPECT_FALSE(p.isEnableBreathing());
}

TEST(MaterialPropertyTest, BreathingAlphaPulsesOncePerPeriod) {
    keo::ColorMaterialProperty p;
    p.setEnableBreathing(true);
    p.setBreathingRate(60.0f); // one pulse per second: 0.5 (1 + cos(2 pi t))
    EXPECT_FLOAT_EQ(p.getBreathingAlpha(TimePoint::fromSeconds(0.0)), 1.0f);
    EXPECT_NEAR(p.getBreathingAlpha(TimePoint::fromSeconds(0.25)), 0.5f, 1e-6f);
    EXPECT_NEAR(p.getBreathingAlpha(TimePoint::fromSeconds(0.5)), 0.0f, 1e-6f);
    EXPECT_NEAR(p.getBreathingAlpha(TimePoint::fromSeconds(3.0)), 1.0f, 1e-6f);
    EXPECT_NEAR(p.getBreathingAlpha(TimePoint::fromSeconds(-0.25)), 0.5f, 1e-6f);
}

TEST(MaterialPropertyTest, BreathingAlphaIsOneWhenOffOrTheRateOrTimeIsUnusable) {
    keo::ColorMaterialProperty p;
    p.setBreathingRate(60.0f);
    EXPECT_EQ(p.getBreathingAlpha(TimePoint::fromSeconds(0.5)), 1.0f); // breathing off
    p.setEnableBreathing(true);
    for (const float rate : {0.0f, -60.0f, std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity()}) {
        p.setBreathingRate(rate);
        EXPECT_EQ(p.getBreathingAlpha(TimePoint::fromSeconds(0.5)), 1.0f) << rate;
    }
    p.setBreathingRate(60.0f);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(p.getBreathingAlpha(TimePoint::fromSeconds(nan)), 1.0f);
}

TEST(MaterialPropertyTest, MainColourIsSharedByEveryKind) {
    const Color c(0.25f, 0.5f, 0.75f, 1.0f);
    for (const auto& p : oneOfEachKind()) {
        EXPECT_EQ(p->getColor(), Color::WHITE) << p->getTypeName();
        p->setColor(c);
        EXPECT_EQ(p->getColor(), c) << p->getTypeName();
    }
}

TEST(MaterialPropertyTest, BaseDescribeWritesColourAndBreathing) {
    keo::ColorMaterialProperty p(Color(1.0f, 0.0f, 0.0f, 0.5f));
    p.setEnableBreathing(true);
    p.setBreathingRate(12.5f);
    FieldList fields;
    p.describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"color", "\"#ff000080\""},
                                                               {"enableBreathing", "true"},
                                                               {"breathingRate", "12.5"}}));
}

TEST(MaterialPropertyTest, TypeNamesCoverEveryKindAndUnknownValues) {
    const auto kinds = oneOfEachKind();
    EXPECT_STREQ(kinds[0]->getTypeName(), "ColorMaterialProperty");
    EXPECT_STREQ(kinds[2]->getTypeName(), "CircleWaveMaterialProperty");
    EXPECT_STREQ(kinds[8]->getTypeName(), "WallDynamicMaterialProperty");
    EXPECT_STREQ(MaterialProperty::typeName(static_cast<MaterialProperty::Type>(0)),
                 "MaterialProperty");
}

} // namespace
