#include "Data/GeometryGraphics.h"

#include "Data/BillboardGraphics.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/EllipseGraphics.h"
#include "Data/FieldList.h"
#include "Data/GroundGeometryGraphics.h"
#include "Data/LabelGraphics.h"
#include "Data/ModelGraphics.h"
#include "Data/ParticleSystemGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/RectangleGraphics.h"
#include "Data/WallGraphics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <memory>

namespace {

using keo::ClassificationType;
using keo::DistanceDisplayCondition;
using keo::GeometryGraphics;
using keo::HeightReference;
using keo::ShadowMode;
using Type = keo::GeometryGraphics::Type;

TEST(GeometryGraphicsTest, KindCodesAreThoseTheFeatureLayerTestsFor) {
    EXPECT_EQ(static_cast<int>(keo::PolylineGraphics().getType()), 1);
    EXPECT_EQ(static_cast<int>(keo::PolygonGraphics().getType()), 3);
    EXPECT_EQ(static_cast<int>(keo::WallGraphics().getType()), 7);
    EXPECT_EQ(static_cast<int>(keo::RectangleGraphics().getType()), 10);
    EXPECT_EQ(static_cast<int>(keo::EllipseGraphics().getType()), 11);
    EXPECT_EQ(keo::BillboardGraphics().getType(), Type::Billboard);
    EXPECT_EQ(keo::LabelGraphics().getType(), Type::Label);
    EXPECT_EQ(keo::PointGraphics().getType(), Type::Point);
    EXPECT_EQ(keo::ModelGraphics().getType(), Type::Model);
    EXPECT_EQ(keo::PolylineVolumeGraphics().getType(), Type::PolylineVolume);
    EXPECT_EQ(keo::ParticleSystemGraphics().getType(), Type::ParticleSystem);
}

TEST(GeometryGraphicsTest, EveryKindHasADistinctCodeAndClassName) {
    const Type all[] = {Type::Polyline, Type::Polygon,        Type::Wall,          Type::Rectangle,
                        Type::Ellipse,  Type::Billboard,      Type::Label,         Type::Point,
                        Type::Model,    Type::PolylineVolume, Type::ParticleSystem};
    for (std::size_t i = 0; i < std::size(all); ++i) {
        for (std::size_t j = i + 1; j < std::size(all); ++j) {
            EXPECT_NE(all[i], all[j]);
            EXPECT_STRNE(GeometryGraphics::typeName(all[i]), GeometryGraphics::typeName(all[j]));
        }
    }
    EXPECT_STREQ(GeometryGraphics::typeName(Type::PolylineVolume), "PolylineVolumeGraphics");
    EXPECT_STREQ(keo::WallGraphics().getTypeName(), "WallGraphics");
    EXPECT_STREQ(GeometryGraphics::typeName(static_cast<Type>(200)), "GeometryGraphics");
}

TEST(GeometryGraphicsTest, CommonFieldsHaveRendererDefaults) {
    const keo::PointGraphics graphics;
    EXPECT_TRUE(graphics.isShow());
    EXPECT_EQ(graphics.getShadows(), ShadowMode::Disabled);
    EXPECT_EQ(graphics.getHeightReference(), HeightReference::Absolute);
    EXPECT_FALSE(graphics.getClassificationType().has_value());
    EXPECT_FALSE(graphics.getDistanceDisplayCondition().has_value());
    EXPECT_EQ(graphics.getMaterial(), nullptr);
}

TEST(GeometryGraphicsTest, CommonFieldsReadBackAsSet) {
    keo::PolygonGraphics graphics;
    const auto material = std::make_shared<keo::ColorMaterialProperty>(keo::Color::RED);
    graphics.setShow(false);
    graphics.setShadows(ShadowMode::CastOnly);
    graphics.setHeightReference(HeightReference::ClampTo3DTiles);
    graphics.setClassificationType(ClassificationType::Tiles3D);
    graphics.setDistanceDisplayCondition(DistanceDisplayCondition(10.0f, 500.0f));
    graphics.setMaterial(material);

    EXPECT_FALSE(graphics.isShow());
    EXPECT_EQ(graphics.getShadows(), ShadowMode::CastOnly);
    EXPECT_EQ(graphics.getHeightReference(), HeightReference::ClampTo3DTiles);
    EXPECT_EQ(graphics.getClassificationType(), ClassificationType::Tiles3D);
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), DistanceDisplayCondition(10.0f, 500.0f));
    EXPECT_EQ(graphics.getMaterial(), material);

    graphics.setClassificationType(std::nullopt);
    graphics.setDistanceDisplayCondition(std::nullopt);
    graphics.setMaterial(nullptr);
    EXPECT_FALSE(graphics.getClassificationType().has_value());
    EXPECT_FALSE(graphics.getDistanceDisplayCondition().has_value());
    EXPECT_EQ(graphics.getMaterial(), nullptr);
}

TEST(GeometryGraphicsTest, EnumerationValuesOutsideTheirRangeAreIgnored) {
    keo::WallGraphics graphics;
    graphics.setShadows(ShadowMode::Enabled);
    graphics.setHeightReference(HeightReference::RelativeToTerrain);
    graphics.setClassificationType(ClassificationType::Both);

    graphics.setShadows(static_cast<ShadowMode>(4));
    graphics.setHeightReference(static_cast<HeightReference>(7));
    graphics.setClassificationType(static_cast<ClassificationType>(3));

    EXPECT_EQ(graphics.getShadows(), ShadowMode::Enabled);
    EXPECT_EQ(graphics.getHeightReference(), HeightReference::RelativeToTerrain);
    EXPECT_EQ(graphics.getClassificationType(), ClassificationType::Both);
}

TEST(GeometryGraphicsTest, CommonOptionsAreTakenByEveryKind) {
    keo::RectangleGraphics::ConstructorOptions options;
    options.show = false;
    options.shadows = ShadowMode::ReceiveOnly;
    options.heightReference = HeightReference::ClampToGround;
    options.classificationType = ClassificationType::Terrain;
    options.distanceDisplayCondition = DistanceDisplayCondition(1.0f, 2.0f);
    options.material = std::make_shared<keo::ColorMaterialProperty>(keo::Color::BLUE);
    const keo::RectangleGraphics graphics(options);
    EXPECT_FALSE(graphics.isShow());
    EXPECT_EQ(graphics.getShadows(), ShadowMode::ReceiveOnly);
    EXPECT_EQ(graphics.getHeightReference(), HeightReference::ClampToGround);
    EXPECT_EQ(graphics.getClassificationType(), ClassificationType::Terrain);
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_EQ(graphics.getMaterial(), options.material);
}

TEST(GeometryGraphicsTest, InvalidEnumerationsInOptionsFallBackToTheDefaults) {
    keo::PointGraphics::ConstructorOptions options;
    options.shadows = static_cast<ShadowMode>(9);
    options.heightReference = static_cast<HeightReference>(9);
    options.classificationType = static_cast<ClassificationType>(9);
    const keo::PointGraphics graphics(options);
    EXPECT_EQ(graphics.getShadows(), ShadowMode::Disabled);
    EXPECT_EQ(graphics.getHeightReference(), HeightReference::Absolute);
    EXPECT_FALSE(graphics.getClassificationType().has_value());
}

TEST(GeometryGraphicsTest, DistanceDisplayConditionWithNanIsStoredAsGiven) {
    keo::PointGraphics graphics;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    graphics.setDistanceDisplayCondition(DistanceDisplayCondition(nan, 10.0f));
    ASSERT_TRUE(graphics.getDistanceDisplayCondition().has_value());
    EXPECT_TRUE(std::isnan(graphics.getDistanceDisplayCondition()->getNear()));
    EXPECT_EQ(graphics.getDistanceDisplayCondition()->getFar(), 10.0f);
}

TEST(GeometryGraphicsTest, AsGivesTheKindOrNull) {
    keo::EllipseGraphics ellipse;
    GeometryGraphics& graphics = ellipse;
    EXPECT_EQ(graphics.as<keo::EllipseGraphics>(), &ellipse);
    EXPECT_EQ(graphics.as<keo::GroundGeometryGraphics>(), &ellipse);
    EXPECT_EQ(graphics.as<keo::FilledGeometryGraphics>(), &ellipse);
    EXPECT_EQ(graphics.as<keo::PolygonGraphics>(), nullptr);
    EXPECT_EQ(graphics.as<keo::PolylineGraphics>(), nullptr);

    const keo::WallGraphics wall;
    const GeometryGraphics& constGraphics = wall;
    EXPECT_EQ(constGraphics.as<keo::WallGraphics>(), &wall);
    EXPECT_EQ(constGraphics.as<keo::FilledGeometryGraphics>(), &wall);
    EXPECT_EQ(constGraphics.as<keo::GroundGeometryGraphics>(), nullptr);
}

TEST(GeometryGraphicsTest, DescribeWritesTheCommonFieldsFirst) {
    keo::PointGraphics graphics;
    graphics.setClassificationType(ClassificationType::Both);
    graphics.setDistanceDisplayCondition(DistanceDisplayCondition(0.5f, 100.0f));
    graphics.setMaterial(std::make_shared<keo::ColorMaterialProperty>(keo::Color::RED));
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_GE(e.size(), 6u);
    EXPECT_EQ(e[0], (keo::FieldList::Entry{"show", "true"}));
    EXPECT_EQ(e[1], (keo::FieldList::Entry{"shadows", "0", "disabled"}));
    EXPECT_EQ(e[2], (keo::FieldList::Entry{"heightReference", "0", "absolute"}));
    EXPECT_EQ(e[3], (keo::FieldList::Entry{"classificationType", "2", "both"}));
    EXPECT_EQ(e[4],
              (keo::FieldList::Entry{"distanceDisplayCondition", "{\"near\": 0.5, \"far\": 100}"}));
    EXPECT_EQ(e[5].name, "material");
    EXPECT_EQ(e[5].json.rfind("{\"type\": \"ColorMaterialProperty\", \"color\": \"#ff0000\"", 0),
              0u)
        << e[5].json;
}

} // namespace
