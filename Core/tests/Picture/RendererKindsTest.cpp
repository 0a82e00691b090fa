// Each graphics kind and line material drawn as its fields say, probed on small pictures, and the
// picture's decorations.
#include "Picture/Renderer.h"

#include "PictureTestSupport.h"

#include "Common/GlobeRectangle.h"
#include "Data/BillboardGraphics.h"
#include "Data/CircleEmitter.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/EllipseGraphics.h"
#include "Data/ModelGraphics.h"
#include "Data/ParticleSystemGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineArrowMaterialProperty.h"
#include "Data/PolylineDashMaterialProperty.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineOutlineMaterialProperty.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/RectangleGraphics.h"
#include "Data/Resource.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::Entity;
using keo::Vector3;
using keo::Picture::Options;
using keo::Picture::Raster;
using keo::Picture::Renderer;
using namespace keo::Picture::test;

const Color BACKGROUND = smallOptions().background;

std::shared_ptr<Entity> eastWestLine(std::shared_ptr<keo::MaterialProperty> material, float width) {
    auto line = std::make_shared<keo::PolylineGraphics>();
    line->setPositions({at(-400, 0), at(400, 0)});
    line->setWidth(width);
    line->setMaterial(std::move(material));
    return entityWith(line);
}

// Pixels of the row @p y (from x0 to x1) that are @p color.
int countInRow(const keo::Image& image, int y, int x0, int x1, const Color& color) {
    int count = 0;
    for (int x = x0; x < x1; ++x) {
        count += isColor(pixelAt(image, x, y), color) ? 1 : 0;
    }
    return count;
}

// Rows of the column @p x whose pixel differs from the background.
int inkInColumn(const keo::Image& image, int x) {
    return inkCount(image, x, 0, x + 1, static_cast<int>(image.getHeight()), BACKGROUND);
}

TEST(RendererKindsTest, ADashedLineShowsItsDashesAndItsGapColourAlongItsPath) {
    keo::PolylineDashMaterialProperty::ConstructorOptions dash;
    dash.color = Color::RED;
    dash.gapColor = Color::BLUE;
    dash.dashLength = 32.0f;
    dash.dashPattern = 0x00FF;
    const Raster raster =
        render({eastWestLine(std::make_shared<keo::PolylineDashMaterialProperty>(dash), 6.0f)});
    EXPECT_GT(countInRow(raster.image, 100, 20, 180, Color::RED), 40);
    EXPECT_GT(countInRow(raster.image, 100, 20, 180, Color::BLUE), 40);
}

TEST(RendererKindsTest, AnOutlinedLineShowsItsOutlineBesideItsCore) {
    keo::PolylineOutlineMaterialProperty::ConstructorOptions outline;
    outline.color = Color::RED;
    outline.outlineColor = Color::WHITE;
    outline.outlineWidth = 3.0f;
    const Raster raster = render(
        {eastWestLine(std::make_shared<keo::PolylineOutlineMaterialProperty>(outline), 4.0f)});
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 100), Color::RED));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 103), Color::WHITE));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 97), Color::WHITE));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 108), BACKGROUND));
}

TEST(RendererKindsTest, AnArrowLineEndsInAHeadWiderThanTheLine) {
    const Raster raster = render(
        {eastWestLine(std::make_shared<keo::PolylineArrowMaterialProperty>(
                          keo::PolylineArrowMaterialProperty::ConstructorOptions{Color::YELLOW}),
                      2.0f)});
    // The line ends at about x = 185 (the extent fills 85 % of the width).
    EXPECT_LE(inkInColumn(raster.image, 100), 4);
    EXPECT_GE(inkInColumn(raster.image, 180), 6);
}

TEST(RendererKindsTest, ADecodedBillboardShowsItsImageAtItsAnchor) {
    auto billboard = std::make_shared<keo::BillboardGraphics>();
    const std::vector<std::uint8_t> green = {0, 255, 0, 255};
    std::vector<std::uint8_t> rgba;
    for (int i = 0; i < 64; ++i) {
        rgba.insert(rgba.end(), green.begin(), green.end());
    }
    billboard->setImage(std::make_shared<keo::Image>(8, 8, rgba));
    billboard->setScale(2.0f);
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(billboard, &position)});
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 100), Color::GREEN));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 106, 94), Color::GREEN));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 110, 100), BACKGROUND));
}

TEST(RendererKindsTest, ABillboardWhoseFileCannotBeReadShowsAMarkedPlaceholder) {
    auto billboard = std::make_shared<keo::BillboardGraphics>();
    billboard->setImage(std::string("no/such/picture.png"));
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(billboard, &position)});
    EXPECT_EQ(raster.report.drawn, 1u);
    EXPECT_GT(inkCount(raster.image, 85, 85, 115, 115, BACKGROUND), 100);
}

std::shared_ptr<Entity> model(bool ready) {
    auto graphics = std::make_shared<keo::ModelGraphics>();
    graphics->setUri(std::make_shared<keo::Resource>("models/box.glb"));
    graphics->setColor(Color::RED);
    graphics->setReady(ready);
    graphics->setBoundingBox(keo::ModelGraphics::BoundingBox{{0, 0, 10}, {60, 60, 10}});
    const auto position = at(0, 0);
    return entityWith(graphics, &position);
}

TEST(RendererKindsTest, ALoadedModelShowsItsBoxShadedInItsColour) {
    const Raster raster = render({model(true)});
    const Pixel top = pixelAt(raster.image, 100, 100);
    EXPECT_GT(top.r, 150);
    EXPECT_LT(top.g, 30);
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 5), BACKGROUND));
}

TEST(RendererKindsTest, AModelNotYetLoadedShowsOnlyAMark) {
    const Raster raster = render({model(false)});
    EXPECT_EQ(raster.report.drawn, 1u);
    const int ink = inkCount(raster.image, BACKGROUND);
    EXPECT_GT(ink, 20);
    EXPECT_LT(ink, 400);
}

TEST(RendererKindsTest, ARotatedRectangleTurnsAboutItsCentre) {
    auto rectangle = std::make_shared<keo::RectangleGraphics>();
    const double d = 0.0001;
    const double lon = ORIGIN_LONGITUDE * M_PI / 180.0;
    const double lat = ORIGIN_LATITUDE * M_PI / 180.0;
    rectangle->setCoordinates(
        keo::GlobeRectangle(lon - d / std::cos(lat), lat - d, lon + d / std::cos(lat), lat + d));
    rectangle->setRotation(keo::Radian(M_PI / 4.0));
    rectangle->setMaterial(std::make_shared<keo::ColorMaterialProperty>(Color::RED));
    const Raster raster = render({entityWith(rectangle)});
    // Turned by 45°, its corners lie on the axes: inside along them, outside along the diagonals.
    EXPECT_TRUE(isColor(pixelAt(raster.image, 160, 100), Color::RED));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 40), Color::RED));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 150, 50), BACKGROUND));
}

TEST(RendererKindsTest, AnEllipseFillsAroundItsCentreWithinItsAxes) {
    auto ellipse = std::make_shared<keo::EllipseGraphics>();
    ellipse->setSemiMajorAxis(400.0);
    ellipse->setSemiMinorAxis(100.0);
    ellipse->setMaterial(std::make_shared<keo::ColorMaterialProperty>(Color::BLUE));
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(ellipse, &position)});
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 100), Color::BLUE));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 170, 100), Color::BLUE));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 100, 60), BACKGROUND));
}

TEST(RendererKindsTest, APolylineVolumeIsDrawnAlongItsPath) {
    auto volume = std::make_shared<keo::PolylineVolumeGraphics>();
    volume->setPositions({at(-400, 0, 20), at(400, 0, 20)});
    volume->setShape({{-20, -20}, {20, -20}, {20, 20}, {-20, 20}});
    const Raster raster = render({entityWith(volume)});
    EXPECT_EQ(raster.report.drawn, 1u);
    EXPECT_FALSE(isColor(pixelAt(raster.image, 60, 100), BACKGROUND));
    EXPECT_TRUE(isColor(pixelAt(raster.image, 60, 60), BACKGROUND));
}

TEST(RendererKindsTest, AParticleSystemMarksItsEmittersShape) {
    auto particles = std::make_shared<keo::ParticleSystemGraphics>();
    particles->setEmitter(std::make_shared<keo::CircleEmitter>(80.0));
    particles->setStartColor(Color::YELLOW);
    const auto position = at(0, 0);
    const Raster raster = render({entityWith(particles, &position)});
    EXPECT_EQ(raster.report.drawn, 1u);
    EXPECT_GT(inkCount(raster.image, 95, 95, 105, 105, BACKGROUND), 10);
}

TEST(RendererKindsTest, AnExtrudedPolygonIsASolidWithAShadedRoof) {
    auto polygon = std::make_shared<keo::PolygonGraphics>();
    polygon->setHierarchy(
        keo::PolygonHierarchy({at(-200, -200), at(200, -200), at(200, 200), at(-200, 200)}));
    polygon->setExtrudedHeight(150.0);
    polygon->setMaterial(std::make_shared<keo::ColorMaterialProperty>(Color::WHITE));
    const Raster raster =
        render({entityWith(polygon)}, smallOptions(200, 200, keo::Picture::View::Oblique));
    EXPECT_EQ(raster.report.drawn, 1u);
    // Faces are shaded: the roof and the walls show greys darker than the material's white.
    const Pixel centre = pixelAt(raster.image, 100, 100);
    EXPECT_LT(centre.r, 250);
    EXPECT_GT(centre.r, 100);
}

std::shared_ptr<Entity> centrePoint() {
    auto point = std::make_shared<keo::PointGraphics>();
    point->setPixelSize(6.0f);
    const auto position = at(0, 0);
    return entityWith(point, &position);
}

TEST(RendererKindsTest, TheMapViewHasAScaleBarAndANorthArrowWhenAsked) {
    Options options = smallOptions();
    const Raster plain = render({centrePoint()}, options);
    options.decorations = true;
    const Raster decorated = render({centrePoint()}, options);
    EXPECT_EQ(inkCount(plain.image, 0, 150, 100, 200, BACKGROUND), 0);
    EXPECT_EQ(inkCount(plain.image, 150, 0, 200, 80, BACKGROUND), 0);
    EXPECT_GT(inkCount(decorated.image, 0, 150, 100, 200, BACKGROUND), 100);
    EXPECT_GT(inkCount(decorated.image, 150, 0, 200, 80, BACKGROUND), 100);
}

TEST(RendererKindsTest, ATitleLineIsDrawnAcrossTheTop) {
    Options options = smallOptions();
    options.title = "Title";
    const Raster raster = render({centrePoint()}, options);
    EXPECT_GT(inkCount(raster.image, 0, 0, 200, 28, BACKGROUND), 1000);
    EXPECT_EQ(inkCount(render({centrePoint()}).image, 0, 0, 200, 28, BACKGROUND), 0);
}

} // namespace
