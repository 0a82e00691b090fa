#include "Picture/Renderer.h"

#include "PictureTestSupport.h"

#include "Data/CallbackPositionProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/DistanceDisplayCondition.h"
#include "Data/LabelGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/WallGraphics.h"
#include "Picture/PictureError.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <stdexcept>

namespace {

using keo::Color;
using keo::Entity;
using keo::Vector3;
using keo::Picture::Options;
using keo::Picture::Raster;
using keo::Picture::Renderer;
using keo::Picture::View;
using namespace keo::Picture::test;

std::shared_ptr<Entity> pointAt(const Vector3<double>& position, const Color& color,
                                float size = 10.0f) {
    auto point = std::make_shared<keo::PointGraphics>();
    point->setPixelSize(size);
    point->setColor(color);
    return entityWith(point, &position);
}

std::shared_ptr<keo::PolylineGraphics> lineThrough(std::vector<Vector3<double>> points, float width,
                                                   const Color& color) {
    auto line = std::make_shared<keo::PolylineGraphics>();
    line->setPositions(std::move(points));
    line->setWidth(width);
    line->setMaterial(std::make_shared<keo::ColorMaterialProperty>(color));
    return line;
}

// A square ring of half side @p half metres around the origin.
std::vector<Vector3<double>> square(double half) {
    return {at(-half, -half), at(half, -half), at(half, half), at(-half, half)};
}

TEST(RendererTest, APolygonIsFilledInsideAndItsHoleShowsTheBackground) {
    auto polygon = std::make_shared<keo::PolygonGraphics>();
    polygon->setHierarchy(
        keo::PolygonHierarchy(square(400.0), {keo::PolygonHierarchy(square(100.0))}));
    polygon->setMaterial(std::make_shared<keo::ColorMaterialProperty>(Color::RED));
    const Raster raster = render({entityWith(polygon)});
    const Options options = smallOptions();
    // The hole is at the centre; the filled band lies about 280 m east of it.
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 100), options.background));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 160, 100), Color::RED));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 40), Color::RED));
    EXPECT_EQ(raster.report.drawn, 1u);
}

TEST(RendererTest, ALineShowsItsColourAlongItsPathAndNotBesideIt) {
    const Raster raster =
        render({entityWith(lineThrough({at(-400, 0), at(400, 0)}, 5.0f, Color::GREEN))});
    const Color background = smallOptions().background;
    for (const int x : {40, 100, 160}) {
        EXPECT_TRUE(isColor(pixelAt(raster.image, x, 100), Color::GREEN)) << x;
        EXPECT_TRUE(isColor(pixelAt(raster.image, x, 110), background)) << x;
        EXPECT_TRUE(isColor(pixelAt(raster.image, x, 90), background)) << x;
    }
}

TEST(RendererTest, APointShowsItsColourAtItsCentreOnly) {
    const Raster raster = render({pointAt(at(0, 0), Color::BLUE)});
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 100), Color::BLUE));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 110), smallOptions().background));
    EXPECT_EQ(inkCount(raster.image, smallOptions().background) < 120, true);
}

TEST(RendererTest, HiddenEntitiesLeaveNoPixel) {
    auto hiddenItself = pointAt(at(0, 0), Color::RED);
    hiddenItself->setShow(false);
    auto parent = std::make_shared<Entity>("parent");
    parent->setShow(false);
    auto hiddenByParent = pointAt(at(50, 0), Color::RED);
    hiddenByParent->setParent(parent);
    auto hiddenGraphics = pointAt(at(-50, 0), Color::RED);
    hiddenGraphics->getGeometryGraphics()->setShow(false);
    const Raster raster = render({hiddenItself, hiddenByParent, hiddenGraphics});
    EXPECT_EQ(raster.report.hidden, 3u);
    EXPECT_EQ(raster.report.drawn, 0u);
    // Only the note is written; no red pixel anywhere.
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            ASSERT_FALSE(isColor(pixelAt(raster.image, x, y), Color::RED)) << x << "," << y;
        }
    }
}

TEST(RendererTest, AnEntityOutsideItsDistanceDisplayConditionLeavesNoPixel) {
    auto near = pointAt(at(0, 0), Color::RED);
    near->getGeometryGraphics()->setDistanceDisplayCondition(
        keo::DistanceDisplayCondition(0.0f, 10.0f));
    auto far = pointAt(at(100, 0), Color::GREEN);
    far->getGeometryGraphics()->setDistanceDisplayCondition(
        keo::DistanceDisplayCondition(0.0f, 1.0e7f));
    const Raster raster = render({near, far});
    EXPECT_EQ(raster.report.outOfRange, 1u);
    EXPECT_EQ(raster.report.drawn, 1u);
    EXPECT_GT(raster.report.cameraDistance, 10.0);
    int red = 0;
    int green = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            red += isColor(pixelAt(raster.image, x, y), Color::RED) ? 1 : 0;
            green += isColor(pixelAt(raster.image, x, y), Color::GREEN) ? 1 : 0;
        }
    }
    EXPECT_EQ(red, 0);
    EXPECT_GT(green, 20);
}

TEST(RendererTest, ALabelsTextLeavesInkInItsBox) {
    auto label = std::make_shared<keo::LabelGraphics>();
    label->setText("Hello");
    label->setFontSize(24.0f);
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(label, &position)});
    const Color background = smallOptions().background;
    // The text is centred on the anchor: ink left and right of it, far beyond the anchor mark.
    EXPECT_GT(inkCount(raster.image, 60, 85, 94, 115, background), 40);
    EXPECT_GT(inkCount(raster.image, 106, 85, 140, 115, background), 40);
    EXPECT_EQ(inkCount(raster.image, 0, 0, 200, 60, background), 0);
}

TEST(RendererTest, CharactersTheLabelsFontLacksAreDrawnInAFontThatHasThem) {
    // The label's Latin font has no Chinese characters; drawn in a font that has them, each takes
    // a full em (a missing-glyph box would be narrower), so the background spans five font sizes.
    auto label = std::make_shared<keo::LabelGraphics>();
    label->setText("\xE7\xB1\xB3\xE7\xB1\xB3\xE7\xB1\xB3\xE7\xB1\xB3\xE7\xB1\xB3"); // five "mi"
    label->setFontSize(20.0f);
    label->setShowBackground(true);
    label->setBackgroundColor(Color(1.0f, 0.0f, 0.0f, 1.0f));
    label->setBackgroundPadding({0.0f, 0.0f, 0.0f, 0.0f});
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(label, &position)});
    int left = -1;
    int right = -1;
    for (int x = 0; x < 200; ++x) {
        if (isColor(pixelAt(raster.image, x, 92), Color(1.0f, 0.0f, 0.0f, 1.0f), 40)) {
            left = left < 0 ? x : left;
            right = x;
        }
    }
    ASSERT_GE(left, 0);
    EXPECT_NEAR(right - left + 1, 100, 3);
}

TEST(RendererTest, ALabelWithoutTextDrawsNothingAndIsCountedAsEmpty) {
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(std::make_shared<keo::LabelGraphics>(), &position)});
    EXPECT_EQ(raster.report.emptyGraphics, 1u);
    EXPECT_EQ(raster.report.drawn, 0u);
}

// Two walls 200 m apart, seen from the south; the far one is taller, so the near one hides part
// of it.
struct TwoWalls {
    std::shared_ptr<Entity> near = wall(-100.0, 40.0, Color::RED);
    std::shared_ptr<Entity> far = wall(100.0, 120.0, Color::BLUE);

    static std::shared_ptr<Entity> wall(double north, double height, const Color& color) {
        auto graphics = std::make_shared<keo::WallGraphics>();
        graphics->setPositions({at(-300, north), at(300, north)});
        graphics->setMinimumHeights({0.0, 0.0});
        graphics->setMaximumHeights({height, height});
        graphics->setMaterial(std::make_shared<keo::ColorMaterialProperty>(color));
        return entityWith(graphics);
    }
    static Options view() {
        Options options = smallOptions(240, 180, View::Oblique);
        options.camera.target = at(0, 0, 30);
        options.camera.range = 900.0;
        options.camera.pitch = keo::Radian(-0.15);
        return options;
    }
};

bool isReddish(const Pixel& p) {
    return p.r > 60 && p.r > 2 * p.b;
}
bool isBluish(const Pixel& p) {
    return p.b > 60 && p.b > 2 * p.r;
}

TEST(RendererTest, TheObliqueViewDrawsTheNearWallOverTheFarWall) {
    const TwoWalls walls;
    const Raster nearOnly = render({walls.near}, TwoWalls::view());
    const Raster farOnly = render({walls.far}, TwoWalls::view());
    // The far wall is given last: painting in the given order would put it on top.
    const Raster both = render({walls.near, walls.far}, TwoWalls::view());
    int overlap = 0;
    for (int y = 0; y < 180; ++y) {
        for (int x = 0; x < 240; ++x) {
            if (isReddish(pixelAt(nearOnly.image, x, y)) &&
                isBluish(pixelAt(farOnly.image, x, y))) {
                ++overlap;
                ASSERT_TRUE(isReddish(pixelAt(both.image, x, y))) << x << "," << y;
            }
        }
    }
    EXPECT_GT(overlap, 100);
}

TEST(RendererTest, AnEmptySceneGivesAPictureWithANote) {
    const Raster raster = render({});
    EXPECT_EQ(raster.report.entities, 0u);
    EXPECT_EQ(raster.report.note, "nothing to draw: 0 entities");
    EXPECT_GT(inkCount(raster.image, smallOptions().background), 50);
}

TEST(RendererTest, TheNoteSaysWhyNothingWasDrawn) {
    auto hidden = pointAt(at(0, 0), Color::RED);
    hidden->setShow(false);
    const Raster raster = render({hidden, std::make_shared<Entity>()});
    EXPECT_EQ(raster.report.note, "nothing to draw: 2 entities (1 without graphics, 1 hidden)");
}

// A position property that hands out its value unchecked, NaN included.
class RawPosition final : public keo::PositionProperty {
public:
    explicit RawPosition(const Vector3<double>& value)
        : value_(value) {}
    std::optional<Vector3<double>> getValue(const keo::TimePoint&) const override { return value_; }
    bool isConstant() const noexcept override { return true; }
    bool equals(const keo::PositionProperty& other) const noexcept override {
        return &other == this;
    }

private:
    Vector3<double> value_;
};

TEST(RendererTest, NanPositionsAreSkippedAndCounted) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    auto lost = std::make_shared<Entity>("lost");
    lost->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    lost->setPosition(std::make_shared<RawPosition>(Vector3<double>(nan, 0.0, 0.0)));
    auto wall = std::make_shared<keo::WallGraphics>();
    wall->setPositions({at(-200, 0), Vector3<double>(nan, nan, nan), at(200, 0)});
    const Raster raster = render({lost, entityWith(wall), pointAt(at(0, 100), Color::GREEN)});
    EXPECT_EQ(raster.report.noPosition, 1u);
    EXPECT_EQ(raster.report.invalidPositions, 2u);
    EXPECT_EQ(raster.report.drawn, 2u);
}

TEST(RendererTest, APositionCallbackThatThrowsCountsAsNoPosition) {
    auto failing = std::make_shared<Entity>("failing");
    failing->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    failing->setPosition(std::make_shared<keo::CallbackPositionProperty>(
        [](const keo::TimePoint&) -> std::optional<Vector3<double>> {
            throw std::runtime_error("no fix");
        }));
    const Raster raster = render({failing, pointAt(at(0, 0), Color::GREEN)});
    EXPECT_EQ(raster.report.noPosition, 1u);
    EXPECT_EQ(raster.report.drawn, 1u);
}

TEST(RendererTest, NullEntitiesAndEntitiesWithoutGraphicsAreCounted) {
    const Raster raster =
        Renderer(smallOptions()).render({nullptr, std::make_shared<Entity>().get()});
    EXPECT_EQ(raster.report.entities, 2u);
    EXPECT_EQ(raster.report.withoutGraphics, 2u);
}

TEST(RendererTest, ASizeOfZeroOrAboveTheLimitIsRefused) {
    EXPECT_THROW(Renderer(smallOptions(0, 100)), keo::Picture::PictureError);
    EXPECT_THROW(Renderer(smallOptions(100, 0)), keo::Picture::PictureError);
    EXPECT_THROW(Renderer(smallOptions(Options::MAX_SIZE + 1, 10)), keo::Picture::PictureError);
    try {
        Renderer(smallOptions(0, 100));
    } catch (const keo::Picture::PictureError& error) {
        EXPECT_STREQ(error.what(), "picture size 0x100 is outside 1x1 to 16384x16384");
    }
}

TEST(RendererTest, CollectTreesListsEachRootBeforeItsChildrenDepthFirst) {
    auto a = std::make_shared<Entity>("a");
    auto a1 = std::make_shared<Entity>("a1");
    auto a11 = std::make_shared<Entity>("a11");
    auto a2 = std::make_shared<Entity>("a2");
    auto b = std::make_shared<Entity>("b");
    a1->setParent(a);
    a11->setParent(a1);
    a2->setParent(a);
    const auto list = Renderer::collectTrees({a, nullptr, b});
    std::vector<std::string> names;
    for (const Entity* entity : list) {
        names.push_back(entity->getName());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"a", "a1", "a11", "a2", "b"}));
}

} // namespace
