// keo-scene's picture of the sample's last frame: the built-in sample played for the default 12
// frames with its edit script, then its live entities drawn into a PNG file, as
// `keo-scene --picture FILE` does.
#include "EditScript.h"
#include "FrameLog.h"
#include "RendererSide.h"
#include "Sample.h"
#include "Scene.h"

#include "Data/TimePoint.h"
#include "Picture/Renderer.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <string>

namespace {

constexpr std::uint32_t FRAMES = 12;

void BM_SampleLastFramePicture(benchmark::State& state) {
    keo::scene::Scene scene("bench");
    keo::scene::RendererSide renderer(scene.sharedRoot());
    keo::scene::populateSample(scene, keo::scene::sampleEntries().size());
    for (std::uint32_t frame = 1; frame <= FRAMES; ++frame) {
        keo::scene::applyEditsBefore(frame, scene);
        renderer.runFrame(frame);
    }
    keo::Picture::Options options;
    options.time = keo::TimePoint::fromSeconds(keo::scene::frameTime(FRAMES));
    options.title = "keo-scene sample";
    options.view = state.range(0) == 0 ? keo::Picture::View::Map : keo::Picture::View::Oblique;
    const keo::Picture::Renderer picture(options);
    const std::string path = "keo-scene-benchmark.png";
    std::size_t drawn = 0;
    for (auto _ : state) {
        drawn = picture.writeFile(path, renderer.liveEntities()).drawn;
    }
    std::remove(path.c_str());
    state.counters["entities drawn"] = static_cast<double>(drawn);
    state.SetLabel(state.range(0) == 0 ? "map view, 1024x768" : "oblique view, 1024x768");
}
BENCHMARK(BM_SampleLastFramePicture)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
