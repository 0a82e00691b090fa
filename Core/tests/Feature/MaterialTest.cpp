#include "Feature/Material.h"

#include "Feature/CircleWaveMaterial.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ImageMaterial.h"
#include "Feature/LineArrowMaterial.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineDynamicMaterial.h"
#include "Feature/LineGlowMaterial.h"
#include "Feature/LineOutlineMaterial.h"
#include "Feature/PolygonDynamicMaterial.h"

#include "FeatureTestSupport.h"
#include "MaterialTestSupport.h"

#include "Data/CircleWaveMaterialProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/ImageMaterialProperty.h"
#include "Data/PolylineArrowMaterialProperty.h"
#include "Data/PolylineDashMaterialProperty.h"
#include "Data/PolylineDynamicMaterialProperty.h"
#include "Data/PolylineGlowMaterialProperty.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineOutlineMaterialProperty.h"
#include "Data/WallDynamicMaterialProperty.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using keo::Color;
using keo::MaterialProperty;
using keo::PolylineGraphics;
using keo::Feature::CircleWaveMaterial;
using keo::Feature::ColorMaterial;
using keo::Feature::ImageMaterial;
using keo::Feature::LineArrowMaterial;
using keo::Feature::LineDashMaterial;
using keo::Feature::LineDynamicMaterial;
using keo::Feature::LineGlowMaterial;
using keo::Feature::LineOutlineMaterial;
using keo::Feature::Material;
using keo::Feature::PolygonDynamicMaterial;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::FieldProbe;
using keo::Feature::test::takeChangedFlag;

// A kind of the test's own that keeps the base's bodies: it creates no property.
class BareMaterial final : public Material {
public:
    void assign(const Material& other) override { Material::assign(other); }
    std::shared_ptr<Material> clone() const override {
        return std::make_shared<BareMaterial>(*this);
    }

private:
    void updateImplMaterial(bool highlight) const override {
        Material::updateImplMaterial(highlight);
    }
};

TEST(MaterialTest, TypeCodesAreTheKitsCodesWithNineUnused) {
    EXPECT_EQ(static_cast<int>(Material::Type::None), 0);
    EXPECT_EQ(static_cast<int>(Material::Type::Color), 1);
    EXPECT_EQ(static_cast<int>(Material::Type::Image), 2);
    EXPECT_EQ(static_cast<int>(Material::Type::LineDash), 3);
    EXPECT_EQ(static_cast<int>(Material::Type::LineArrow), 4);
    EXPECT_EQ(static_cast<int>(Material::Type::LineGlow), 5);
    EXPECT_EQ(static_cast<int>(Material::Type::LineOutline), 6);
    EXPECT_EQ(static_cast<int>(Material::Type::LineDynamic), 7);
    EXPECT_EQ(static_cast<int>(Material::Type::PolygonDynamic), 8);
    EXPECT_EQ(static_cast<int>(Material::Type::CircleWave), 10);
    static_assert(sizeof(Material::Type) == 1, "the type code is one byte");
}

TEST(MaterialTest, BaseAnswersTypeNoneAndCreatesNoProperty) {
    BareMaterial material;
    EXPECT_EQ(material.getType(), Material::Type::None);
    EXPECT_EQ(material._getMaterial(false), nullptr);
    PolylineGraphics graphics;
    graphics.setMaterial(std::make_shared<keo::ColorMaterialProperty>());
    material.update(graphics, false);
    EXPECT_EQ(graphics.getMaterial(), nullptr); // the empty cached property is handed over
}

TEST(MaterialTest, BreathingIsOffAtRateOneHundredByDefault) {
    const BareMaterial material;
    EXPECT_FALSE(material.isEnableBreathing());
    EXPECT_EQ(material.getBreathingRate(), 100.0f);
}

TEST(MaterialTest, BreathingSettersFollowTheEditRuleAndSetTheChangedFlag) {
    const ColorMaterial prototype;
    keo::Feature::test::expectSetterRule(prototype, &Material::setEnableBreathing,
                                         &Material::isEnableBreathing, true);
    keo::Feature::test::expectSetterRule(prototype, &Material::setBreathingRate,
                                         &Material::getBreathingRate, 30.0f);
}

TEST(MaterialTest, SettingANanBreathingRateAlwaysCountsAsAChange) {
    BareMaterial material;
    material.setBreathingRate(std::numeric_limits<float>::quiet_NaN());
    EventRecorder recorder(material);
    material.setBreathingRate(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(MaterialTest, BaseAssignCopiesEnableBreathingThenTheRate) {
    BareMaterial source;
    source.setEnableBreathing(true);
    source.setBreathingRate(30.0f);
    const auto trace = keo::Feature::test::traceAssign<BareMaterial>(
        BareMaterial(), source,
        {{"enableBreathing",
          [](const Material& a, const Material& b) {
              return a.isEnableBreathing() == b.isEnableBreathing();
          }},
         {"breathingRate", [](const Material& a, const Material& b) {
              return a.getBreathingRate() == b.getBreathingRate();
          }}});
    EXPECT_EQ(trace.events, "LUDLUD");
    EXPECT_EQ(trace.order, (std::vector<std::string>{"enableBreathing", "breathingRate"}));
}

// What the protocol tests need to know of each kind.
template <typename M>
struct KindOf;

#define KEO_MATERIAL_KIND(Kind, PropertyClass, TypeCode)                                           \
    template <>                                                                                    \
    struct KindOf<Kind> {                                                                          \
        using Property = keo::PropertyClass;                                                       \
        static constexpr Material::Type type = Material::Type::TypeCode;                           \
        static constexpr const char* name = #Kind;                                                 \
    }

KEO_MATERIAL_KIND(ColorMaterial, ColorMaterialProperty, Color);
KEO_MATERIAL_KIND(ImageMaterial, ImageMaterialProperty, Image);
KEO_MATERIAL_KIND(CircleWaveMaterial, CircleWaveMaterialProperty, CircleWave);
KEO_MATERIAL_KIND(LineArrowMaterial, PolylineArrowMaterialProperty, LineArrow);
KEO_MATERIAL_KIND(LineDashMaterial, PolylineDashMaterialProperty, LineDash);
KEO_MATERIAL_KIND(LineDynamicMaterial, PolylineDynamicMaterialProperty, LineDynamic);
KEO_MATERIAL_KIND(LineGlowMaterial, PolylineGlowMaterialProperty, LineGlow);
KEO_MATERIAL_KIND(LineOutlineMaterial, PolylineOutlineMaterialProperty, LineOutline);
KEO_MATERIAL_KIND(PolygonDynamicMaterial, WallDynamicMaterialProperty, PolygonDynamic);

#undef KEO_MATERIAL_KIND

// The update protocol that every kind shares, checked on each kind.
template <typename M>
class MaterialProtocolTest : public ::testing::Test {
protected:
    using Property = typename KindOf<M>::Property;
    // A material of another kind, for the assign check.
    using Other =
        std::conditional_t<std::is_same_v<M, ColorMaterial>, LineArrowMaterial, ColorMaterial>;

    static const Color& shownColor(const PolylineGraphics& graphics) {
        return graphics.getMaterial()->getColor();
    }

    M material_;
    PolylineGraphics graphics_;
};

using MaterialKinds =
    ::testing::Types<ColorMaterial, ImageMaterial, CircleWaveMaterial, LineArrowMaterial,
                     LineDashMaterial, LineDynamicMaterial, LineGlowMaterial, LineOutlineMaterial,
                     PolygonDynamicMaterial>;
TYPED_TEST_SUITE(MaterialProtocolTest, MaterialKinds);

TYPED_TEST(MaterialProtocolTest, GetTypeAnswersTheKindsCode) {
    EXPECT_EQ(this->material_.getType(), KindOf<TypeParam>::type);
}

TYPED_TEST(MaterialProtocolTest, FirstUpdateCreatesThePropertyOfTheKindAndHandsItOver) {
    this->material_.update(this->graphics_, false);
    const auto& property = this->graphics_.getMaterial();
    ASSERT_NE(property, nullptr);
    EXPECT_EQ(property->getType(), TestFixture::Property::TYPE);
    EXPECT_EQ(this->material_._getMaterial(false), property);
}

TYPED_TEST(MaterialProtocolTest, GetMaterialCreatesThePropertyWithoutAGraphics) {
    const auto property = this->material_._getMaterial(false);
    ASSERT_NE(property, nullptr);
    EXPECT_EQ(property->getType(), TestFixture::Property::TYPE);
    this->material_.update(this->graphics_, false);
    EXPECT_EQ(this->graphics_.getMaterial(), property);
}

TYPED_TEST(MaterialProtocolTest, LaterUpdateRefreshesTheSamePropertyInPlace) {
    this->material_.update(this->graphics_, false);
    const auto first = this->graphics_.getMaterial();
    this->material_.setColor(Color::RED);
    this->material_.update(this->graphics_, false);
    EXPECT_EQ(this->graphics_.getMaterial(), first);
    EXPECT_EQ(first->getColor(), Color::RED);
}

TYPED_TEST(MaterialProtocolTest, SettingTheCurrentValueRaisesNoEventAndLeavesTheChangedFlag) {
    const auto property = this->material_._getMaterial(false);
    EventRecorder recorder(this->material_);
    this->material_.setColor(this->material_.getColor());
    this->material_.setBreathingRate(this->material_.getBreathingRate());
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(takeChangedFlag(this->material_, *property));
}

TYPED_TEST(MaterialProtocolTest, FirstUpdateSetsBreathingEvenWhenBreathingWasNeverTouched) {
    // A fresh material: the flag starts set, so its (default) breathing reaches the property.
    const auto fresh = this->material_._getMaterial(false);
    EXPECT_FALSE(fresh->isEnableBreathing());
    EXPECT_EQ(fresh->getBreathingRate(), 100.0f);
    // A copy starts with the flag set too, and its breathing setters were never called.
    this->material_.setEnableBreathing(true);
    this->material_.setBreathingRate(30.0f);
    const auto copy = this->material_.clone();
    const auto property = copy->_getMaterial(false);
    EXPECT_TRUE(property->isEnableBreathing());
    EXPECT_EQ(property->getBreathingRate(), 30.0f);
}

TYPED_TEST(MaterialProtocolTest, HighlightThenNormalRestoresTheOwnColourWithoutASetter) {
    this->material_.setColor(Color::RED);
    this->material_.update(this->graphics_, true);
    EXPECT_EQ(this->shownColor(this->graphics_), Color::HIGHLIGHTCOLOR);
    EventRecorder recorder(this->material_);
    this->material_.update(this->graphics_, false);
    EXPECT_EQ(this->shownColor(this->graphics_), Color::RED);
    this->material_.update(this->graphics_, true);
    EXPECT_EQ(this->shownColor(this->graphics_), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(takeChangedFlag(this->material_, *this->graphics_.getMaterial()));
}

TYPED_TEST(MaterialProtocolTest, BreathingIsPushedOnlyWhenChanged) {
    const auto property = this->material_._getMaterial(false);
    property->setEnableBreathing(true); // not the material's value
    this->material_.update(this->graphics_, false);
    EXPECT_TRUE(property->isEnableBreathing()); // clean: not pushed
    this->material_.setBreathingRate(30.0f);
    this->material_.update(this->graphics_, false);
    EXPECT_FALSE(property->isEnableBreathing()); // changed: both values pushed
    EXPECT_EQ(property->getBreathingRate(), 30.0f);
}

TYPED_TEST(MaterialProtocolTest, CloneStartsWithoutPropertyWithTheFlagSetAndWithoutListeners) {
    this->material_.setColor(Color::RED);
    const auto original = this->material_._getMaterial(false);
    int heard = 0;
    this->material_._addDefinitionChangedEventListener([&heard] { ++heard; });
    const std::shared_ptr<Material> copy = this->material_.clone();
    EXPECT_EQ(copy->getType(), KindOf<TypeParam>::type);
    EXPECT_EQ(static_cast<const TypeParam&>(*copy).getColor(), Color::RED);
    const auto property = copy->_getMaterial(false);
    ASSERT_NE(property, nullptr);
    EXPECT_NE(property, original);
    EXPECT_EQ(property->getColor(), Color::RED);
    static_cast<TypeParam&>(*copy).setColor(Color::BLUE);
    EXPECT_EQ(heard, 0);
}

TYPED_TEST(MaterialProtocolTest, AssignFromAnotherKindLogsWithTheKindsFunctionAndChangesNothing) {
    this->material_.setColor(Color::RED);
    typename TestFixture::Other other;
    other.setColor(Color::BLUE);
    other.setBreathingRate(30.0f);
    keo::Feature::test::expectAssignFromOtherKindLogs(this->material_, other,
                                                      KindOf<TypeParam>::name);
    const keo::Feature::test::CapturedLog quiet;
    this->material_.assign(other);
    EXPECT_EQ(this->material_.getColor(), Color::RED);
    EXPECT_EQ(this->material_.getBreathingRate(), 100.0f);
}

TYPED_TEST(MaterialProtocolTest, AssignCopiesTheBaseValuesAfterTheKindsOwn) {
    TypeParam source;
    source.setColor(Color::RED);
    source.setEnableBreathing(true);
    source.setBreathingRate(30.0f);
    const auto trace = keo::Feature::test::traceAssign<TypeParam>(
        this->material_, source,
        {{"color",
          [](const TypeParam& a, const TypeParam& b) { return a.getColor() == b.getColor(); }},
         {"enableBreathing",
          [](const TypeParam& a, const TypeParam& b) {
              return a.isEnableBreathing() == b.isEnableBreathing();
          }},
         {"breathingRate", [](const TypeParam& a, const TypeParam& b) {
              return a.getBreathingRate() == b.getBreathingRate();
          }}});
    EXPECT_EQ(trace.events, "LUDLUDLUD");
    EXPECT_EQ(trace.order, (std::vector<std::string>{"color", "enableBreathing", "breathingRate"}));
}

TYPED_TEST(MaterialProtocolTest, SharedMaterialGivesTwoGraphicsOnePropertyRefreshedInPlace) {
    PolylineGraphics other;
    this->material_.update(this->graphics_, false);
    this->material_.update(other, false);
    ASSERT_NE(this->graphics_.getMaterial(), nullptr);
    EXPECT_EQ(this->graphics_.getMaterial(), other.getMaterial());
    this->material_.setColor(Color::GREEN);
    this->material_.update(this->graphics_, false);
    EXPECT_EQ(other.getMaterial(), this->graphics_.getMaterial());
    EXPECT_EQ(other.getMaterial()->getColor(), Color::GREEN);
}

} // namespace
