#include "Data/SceneDump.h"

#include "Data/CallbackPositionProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/Entity.h"
#include "Data/PointGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/WallGraphics.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using keo::Entity;
using keo::SceneDump;
using keo::Vector3;

// root (a red point where the equator meets the prime meridian)
// ├── line (a two-point polyline painted yellow, hidden)
// │   └── hint-line (nothing attached)
// └── empty (nothing attached)
std::shared_ptr<Entity> smallTree() {
    auto root = std::make_shared<Entity>("root");
    root->setPosition(
        std::make_shared<keo::ConstantPositionProperty>(Vector3<double>(6378137, 0, 0)));
    auto point = std::make_shared<keo::PointGraphics>();
    point->setPixelSize(10.0f);
    point->setColor(keo::Color::RED);
    root->setGeometryGraphics(point);

    auto line = std::make_shared<Entity>("line");
    line->setParent(root);
    line->setShow(false);
    auto polyline = std::make_shared<keo::PolylineGraphics>();
    polyline->setPositions(std::vector<Vector3<double>>{{0, 0, 0}, {0.5, 0, -1}});
    polyline->setWidth(2.0f);
    polyline->setClassificationType(keo::ClassificationType::Terrain);
    polyline->setMaterial(std::make_shared<keo::ColorMaterialProperty>(keo::Color::YELLOW));
    line->setGeometryGraphics(polyline);

    auto hint = std::make_shared<Entity>("hint-line");
    hint->setParent(line);
    hint->_setAsynchronous(false);

    auto empty = std::make_shared<Entity>("empty");
    empty->setParent(root);
    return root;
}

const char* const EXPECTED_TEXT = R"(Entity "root"
  show: true
  asynchronous: true
  position: [6378137, 0, 0] (longitude 0.000000°, latitude 0.000000°, height 0.00 m)
  orientation: null
  graphics: PointGraphics
    show: true
    shadows: 0 (disabled)
    heightReference: 0 (absolute)
    classificationType: null
    distanceDisplayCondition: null
    material: null
    pixelSize: 10
    color: "#ff0000"
    outlineColor: "#000000"
    outlineWidth: 0
  children: 2
  Entity "line"
    show: false
    asynchronous: true
    position: null
    orientation: null
    graphics: PolylineGraphics
      show: true
      shadows: 0 (disabled)
      heightReference: 0 (absolute)
      classificationType: 0 (terrain)
      distanceDisplayCondition: null
      material: {"type": "ColorMaterialProperty", "color": "#ffff00", "enableBreathing": false, "breathingRate": 100}
      positions: [[0, 0, 0], [0.5, 0, -1]]
      positionsConstant: true
      width: 2
      clampToGround: false
      shadowVolumeHeightScale: 1
      pixelOffsets: []
    children: 1
    Entity "hint-line"
      show: true
      asynchronous: false
      position: null
      orientation: null
      graphics: null
      children: 0
  Entity "empty"
    show: true
    asynchronous: true
    position: null
    orientation: null
    graphics: null
    children: 0
)";

const char* const EXPECTED_JSON = R"({
  "name": "root",
  "show": true,
  "asynchronous": true,
  "position": [6378137, 0, 0],
  "positionCartographic": {"longitude": 0, "latitude": 0, "height": 0},
  "orientation": null,
  "graphics": {
    "type": "PointGraphics",
    "show": true,
    "shadows": 0,
    "shadowsName": "disabled",
    "heightReference": 0,
    "heightReferenceName": "absolute",
    "classificationType": null,
    "distanceDisplayCondition": null,
    "material": null,
    "pixelSize": 10,
    "color": "#ff0000",
    "outlineColor": "#000000",
    "outlineWidth": 0
  },
  "children": [
    {
      "name": "line",
      "show": false,
      "asynchronous": true,
      "position": null,
      "positionCartographic": null,
      "orientation": null,
      "graphics": {
        "type": "PolylineGraphics",
        "show": true,
        "shadows": 0,
        "shadowsName": "disabled",
        "heightReference": 0,
        "heightReferenceName": "absolute",
        "classificationType": 0,
        "classificationTypeName": "terrain",
        "distanceDisplayCondition": null,
        "material": {"type": "ColorMaterialProperty", "color": "#ffff00", "enableBreathing": false, "breathingRate": 100},
        "positions": [[0, 0, 0], [0.5, 0, -1]],
        "positionsConstant": true,
        "width": 2,
        "clampToGround": false,
        "shadowVolumeHeightScale": 1,
        "pixelOffsets": []
      },
      "children": [
        {
          "name": "hint-line",
          "show": true,
          "asynchronous": false,
          "position": null,
          "positionCartographic": null,
          "orientation": null,
          "graphics": null,
          "children": []
        }
      ]
    },
    {
      "name": "empty",
      "show": true,
      "asynchronous": true,
      "position": null,
      "positionCartographic": null,
      "orientation": null,
      "graphics": null,
      "children": []
    }
  ]
}
)";

TEST(SceneDumpTest, TextOfASmallTreeListsEveryEntityFieldAndChildInOrder) {
    EXPECT_EQ(SceneDump::toText(*smallTree()), EXPECTED_TEXT);
}

TEST(SceneDumpTest, JsonOfASmallTreeIsExact) {
    EXPECT_EQ(SceneDump::toJson(*smallTree()), EXPECTED_JSON);
}

TEST(SceneDumpTest, ASingleEntityWithoutAnythingIsAShortRecord) {
    const Entity entity("名字 \"quoted\"");
    EXPECT_EQ(SceneDump::toJson(entity), "{\n"
                                         "  \"name\": \"名字 \\\"quoted\\\"\",\n"
                                         "  \"show\": true,\n"
                                         "  \"asynchronous\": true,\n"
                                         "  \"position\": null,\n"
                                         "  \"positionCartographic\": null,\n"
                                         "  \"orientation\": null,\n"
                                         "  \"graphics\": null,\n"
                                         "  \"children\": []\n"
                                         "}\n");
    const std::string text = SceneDump::toText(entity);
    EXPECT_EQ(text.substr(0, text.find('\n') + 1), "Entity \"名字 \\\"quoted\\\"\"\n");
}

TEST(SceneDumpTest, PositionsAreEvaluatedAtTheGivenTime) {
    const auto entity = std::make_shared<Entity>("moving");
    entity->setPosition(std::make_shared<keo::CallbackPositionProperty>(
        [](const keo::TimePoint& time) -> std::optional<Vector3<double>> {
            return Vector3<double>(time.seconds() * 2.0, 0.0, 0.0);
        }));
    const std::string text = SceneDump::toText(*entity, keo::TimePoint::fromSeconds(1.5));
    EXPECT_NE(text.find("  position: [3, 0, 0]\n"), std::string::npos) << text;
}

TEST(SceneDumpTest, APositionOnTheEllipsoidIsAlsoGivenInDegreesAndMetres) {
    const auto entity = std::make_shared<Entity>("mast");
    // 100 m above the equator at 90 degrees east.
    entity->setPosition(
        std::make_shared<keo::ConstantPositionProperty>(Vector3<double>(0.0, 6378237.0, 0.0)));
    const std::string text = SceneDump::toText(*entity);
    EXPECT_NE(text.find("(longitude 90.000000°, latitude 0.000000°, height 100.00 m)"),
              std::string::npos)
        << text;
    const std::string json = SceneDump::toJson(*entity);
    EXPECT_NE(json.find("\"positionCartographic\": {\"longitude\": 90, \"latitude\": 0, "
                        "\"height\": 100}"),
              std::string::npos)
        << json;
    // A point near the Earth's centre is no place on the globe: no degrees.
    entity->setPosition(
        std::make_shared<keo::ConstantPositionProperty>(Vector3<double>(3.0, 0.0, 0.0)));
    EXPECT_EQ(SceneDump::toText(*entity).find("longitude"), std::string::npos);
    EXPECT_NE(SceneDump::toJson(*entity).find("\"positionCartographic\": null"), std::string::npos);
}

TEST(SceneDumpTest, TheRootNamesItsOwnerWhenOneIsGiven) {
    const auto tree = smallTree();
    const keo::EntityOwner owner{"feature", 1001, "Marker"};
    const std::string text = SceneDump::toText(*tree, keo::TimePoint(), owner);
    EXPECT_EQ(text.substr(0, text.find('\n')), "Entity \"root\" of feature 1001 \"Marker\"");
    // Only the root names it.
    EXPECT_NE(text.find("\n  Entity \"line\"\n"), std::string::npos);
    const std::string json = SceneDump::toJson(*tree, keo::TimePoint(), owner);
    EXPECT_EQ(json.substr(0, json.find("  \"show\"")),
              "{\n  \"name\": \"root\",\n"
              "  \"owner\": {\"kind\": \"feature\", \"id\": 1001, \"name\": \"Marker\"},\n");
}

TEST(SceneDumpTest, NanCoordinatesAreWrittenAsStrings) {
    const auto entity = std::make_shared<Entity>("bad");
    auto wall = std::make_shared<keo::WallGraphics>();
    wall->setPositions({{std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0}});
    entity->setGeometryGraphics(wall);
    const std::string json = SceneDump::toJson(*entity);
    EXPECT_NE(json.find("\"positions\": [[\"NaN\", 0, 0]]"), std::string::npos) << json;
}

} // namespace
