// Uses the installed kit: converts a position, measures a distance, logs through a sink, prints a
// small entity tree and draws it into a picture, then styles a point read from GeoJSON text.
#include <keoCommon.h>
#include <keoData.h>
#include <keoPicture.h>
#include <keoSource.h>

#include <cstdio>
#include <memory>

int main() {
    const keo::Cartographic paris = keo::Cartographic::fromDegrees(2.3522, 48.8566, 35.0);
    const keo::Cartographic tokyo = keo::Cartographic::fromDegrees(139.6917, 35.6895, 40.0);

    const keo::Vector3<double> p = keo::Ellipsoid::WGS84.cartographicToCartesian(paris);
    const auto back = keo::Ellipsoid::WGS84.cartesianToCartographic(p);
    if (!back || !back->equalsEpsilon(paris, 1e-9)) {
        std::fprintf(stderr, "round trip failed\n");
        return 1;
    }
    const double metres = keo::Math::computeVincentyDistR(paris, tokyo);

    auto sink = std::make_shared<keo::MemoryLogSink>();
    keo::Log::getInstance().addSink(sink);
    keo::Log::getInstance().log({"examples/consumer/main", __LINE__, "main"}, keo::LogLevel::Info,
                                "distance computed");
    if (sink->size() != 1 || !(metres > 9.7e6 && metres < 9.8e6)) {
        std::fprintf(stderr, "unexpected result: %.3f m, %zu records\n", metres, sink->size());
        return 1;
    }
    std::printf("Paris ECEF (%.3f, %.3f, %.3f) m; Paris-Tokyo %.3f km; id %s\n", p.x, p.y, p.z,
                metres / 1000.0, keo::uuid4().toString().c_str());

    // A point entity with a label child, as a renderer would receive it.
    const auto root = std::make_shared<keo::Entity>("paris");
    root->setPosition(std::make_shared<keo::ConstantPositionProperty>(p, 0));
    root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    const auto label = std::make_shared<keo::Entity>("label-symbol");
    label->setParent(root);
    label->setPosition(root->getPosition());
    auto text = std::make_shared<keo::LabelGraphics>();
    text->setText("Paris");
    label->setGeometryGraphics(text);
    if (root->getChildByName("label-symbol") != label) {
        std::fprintf(stderr, "entity tree broken\n");
        return 1;
    }
    std::fputs(keo::SceneDump::toText(*root).c_str(), stdout);

    // The same tree as a picture in memory: the point and its label are both drawn.
    keo::Picture::Options options;
    options.width = 320;
    options.height = 200;
    options.title = "Paris";
    const keo::Picture::Raster picture =
        keo::Picture::Renderer(options).render(keo::Picture::Renderer::collectTrees({root}));
    if (picture.report.drawn != 2 || picture.image.getWidth() != 320) {
        std::fprintf(stderr, "picture not drawn: %zu of %zu entities\n", picture.report.drawn,
                     picture.report.entities);
        return 1;
    }
    std::printf("picture: %ux%u, %zu entities drawn\n", picture.image.getWidth(),
                picture.image.getHeight(), picture.report.drawn);

    // A point read from GeoJSON text and coloured by a style sheet.
    keo::Source::LoadReport report;
    keo::Source::LoadOptions loadOptions;
    loadOptions.styleSheet = keo::Source::StyleSheet::parse(
        R"({"rules": [{"point": {"color": ["match", ["get", "kind"], "city", "red", "white"]}}]})",
        report);
    const auto source = keo::Source::VectorSource::loadText(
        R"({"type": "Feature", "id": 1, "properties": {"kind": "city"},
            "geometry": {"type": "Point", "coordinates": [2.3522, 48.8566]}})",
        loadOptions, report);
    const keo::Source::ResolvedStyle* style = source ? source->resolvedStyle(1) : nullptr;
    if (style == nullptr || !style->point || style->point->color != keo::Color::RED) {
        std::fprintf(stderr, "styling failed: %s\n", report.toText().c_str());
        return 1;
    }
    std::printf("styled %zu feature(s) from GeoJSON\n", source->size());
    return 0;
}
