#include "Data/PolylineArrowMaterialProperty.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::FieldList;
using keo::PolylineArrowMaterialProperty;

TEST(PolylineArrowMaterialPropertyTest, DefaultIsAWhiteArrow) {
    const PolylineArrowMaterialProperty p;
    EXPECT_EQ(p.getType(), PolylineArrowMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
}

TEST(PolylineArrowMaterialPropertyTest, OptionsColourIsReadBack) {
    PolylineArrowMaterialProperty::ConstructorOptions options;
    options.color = Color::YELLOW;
    PolylineArrowMaterialProperty p(options);
    EXPECT_EQ(p.getColor(), Color::YELLOW);
    p.setColor(Color::GREEN);
    EXPECT_EQ(p.getColor(), Color::GREEN);
}

TEST(PolylineArrowMaterialPropertyTest, DescribeWritesOnlyTheBaseFields) {
    FieldList fields;
    PolylineArrowMaterialProperty().describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"color", "\"#ffffff\""},
                                                               {"enableBreathing", "false"},
                                                               {"breathingRate", "100"}}));
}

} // namespace
