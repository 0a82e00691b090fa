#include "Program.h"

#include "CollectionWatch.h"
#include "DataRun.h"
#include "EditScript.h"
#include "FrameLog.h"
#include "LogCapture.h"
#include "MemoryUse.h"
#include "Options.h"
#include "PictureOutput.h"
#include "ProgressBar.h"
#include "RendererSide.h"
#include "Sample.h"
#include "Scene.h"

#include "Data/Layer.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Picture/PictureError.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>

namespace keo::scene {

namespace {

constexpr const char* HELP_HINT = "Run 'keo-scene --help' for usage.";

// The pieces of one run: the scene, the renderer side and the collection watch (attached before
// any feature is added, so that they hear of every one), and the frame log.
struct Run {
    Run(const char* layerName, PictureOutput pictureOutput)
        : logs()
        , scene(layerName)
        , renderer(scene.sharedRoot())
        , watch(scene.collection())
        , pictures(std::move(pictureOutput)) {}

    // Plays frame @p frame after the edits described by @p edits and records it.
    const FrameRecord& play(std::uint32_t frame, std::vector<std::string> edits) {
        FrameRecord record;
        record.frame = frame;
        record.time = frameTime(frame);
        record.edits = std::move(edits);
        record.counts = renderer.runFrame(frame);
        record.collection = watch.take();
        record.logs = logs.takeLines();
        frames.push_back(std::move(record));
        return frames.back();
    }

    // The verification failure of the last frame, or nothing.
    std::optional<std::string> check() const {
        std::string difference = renderer.verify();
        if (difference.empty()) {
            return std::nullopt;
        }
        return "verification failed after frame " + std::to_string(frames.back().frame) + ": " +
               difference;
    }

    double lastTime() const { return frames.empty() ? 0.0 : frames.back().time; }

    // Writes the picture of the frame just played when one is due; its report line goes to
    // @p out unless @p quiet. The failure to write it, or nothing.
    std::optional<std::string> picture(std::ostream& out, bool quiet) const {
        const FrameRecord& record = frames.back();
        if (!pictures.isDue(record.frame)) {
            return std::nullopt;
        }
        try {
            const std::string line = pictures.write(record.frame, record.time, renderer);
            if (!quiet) {
                out << line << "\n";
            }
        } catch (const Picture::PictureError& error) {
            return std::string(error.what());
        }
        return std::nullopt;
    }

    // First made, last gone: the records of every feature and frame are caught.
    LogCapture logs;
    Scene scene;
    RendererSide renderer;
    CollectionWatch watch;
    PictureOutput pictures;
    std::vector<FrameRecord> frames;
    // The scale run's measured phases and memory (none in the sample).
    std::vector<ScalePhase> phases;
    std::optional<ScaleMemory> memory;
};

int runFailed(std::ostream& err, const std::string& message) {
    err << "keo-scene: " << message << "\n";
    return EXIT_FAILED;
}

std::string verifiedLine(std::uint32_t frames) {
    return "verify: after each of the " + std::to_string(frames) +
           " frames the live set equalled the entity trees of the features in the scene\n";
}

// Loads the --data file into the run's scene and prints its header; null when it cannot, with
// the exit status in @p status.
std::unique_ptr<DataRun> loadData(const Options& options, Run& run, std::ostream& out,
                                  std::ostream& err, int& status) {
    DataRun::Failure failure;
    auto data = DataRun::load(options, run.scene, failure);
    if (data == nullptr) {
        err << "keo-scene: " << failure.message << "\n";
        if (failure.status == EXIT_USAGE) {
            err << HELP_HINT << "\n";
        }
        status = failure.status;
    } else if (!options.quiet) {
        out << data->header(options, run.scene);
    }
    return data;
}

// Plays the sample, or with --data the data file's features (without the sample's edits).
int runSample(const Options& options, Run& run, std::ostream& out, std::ostream& err) {
    std::unique_ptr<DataRun> data;
    if (!options.dataPath.empty()) {
        int status = EXIT_OK;
        data = loadData(options, run, out, err, status);
        if (data == nullptr) {
            return status;
        }
    } else {
        populateSample(run.scene, sampleEntries().size());
    }
    if (!options.quiet && data == nullptr) {
        out << "keo-scene: the built-in sample, " << options.frames << " frame"
            << (options.frames == 1 ? "" : "s") << " of " << FRAME_SECONDS << " s\n";
        out << "scene: layer \"" << run.scene.layer()->getName() << "\", groups";
        const char* separator = " ";
        for (const auto& node : run.scene.root().getFeatures()) {
            out << separator << '"' << node->getName() << '"';
            separator = ", ";
        }
        out << "; " << run.scene.features().size() << " features, also in a collection\n\n";
    }
    for (std::uint32_t frame = 1; frame <= options.frames; ++frame) {
        const FrameRecord& record =
            run.play(frame, data != nullptr ? std::vector<std::string>()
                                            : applyEditsBefore(frame, run.scene));
        if (!options.quiet) {
            out << formatFrame(record);
        }
        if (const auto failure = run.picture(out, options.quiet)) {
            return runFailed(err, *failure);
        }
        if (options.verify) {
            if (const auto failure = run.check()) {
                return runFailed(err, *failure);
            }
        }
    }
    if (options.quiet) {
        out << "keo-scene: " << options.frames << " frames, " << run.scene.features().size()
            << " features, " << run.renderer.liveCount() << " entities live\n";
    } else if (data != nullptr) {
        out << data->summary(run.scene);
    } else {
        out << "\nentity trees at t=" << run.lastTime()
            << " s (keoData's text dump), one per feature in tree order:\n"
            << entityTreesText(run.scene, run.lastTime());
    }
    if (options.verify) {
        out << verifiedLine(options.frames);
    }
    return EXIT_OK;
}

// Features of each kind built on their own to tell what one kind takes.
constexpr std::size_t KIND_SAMPLE_FEATURES = 1000;

std::string formatPhase(const ScalePhase& phase) {
    char line[160];
    std::snprintf(line, sizeof line, "%-13s %10zu %11zu %9.3f %12.0f %12.0f\n", phase.name,
                  phase.features, phase.entities, phase.seconds, phase.featureRate(),
                  phase.entityRate());
    return line;
}

// The heap each kind of the sample takes: @p perKind features of the kind alone in a scene of
// their own, through their first frame.
std::vector<KindMemory> measureKinds(std::size_t perKind) {
    std::vector<KindMemory> kinds;
    for (const SampleEntry& entry : sampleEntries()) {
        // The scene and its renderer side go at the end of each turn, before the next kind.
        const std::size_t before = currentMemoryUse().heap;
        Scene scene("kinds");
        RendererSide renderer(scene.sharedRoot());
        populateKind(scene, entry, perKind);
        renderer.runFrame(1);
        kinds.push_back({entry.name, bytesPer(before, currentMemoryUse().heap, perKind)});
    }
    return kinds;
}

// The scale run in pieces of about one percent, so that the progress bar moves.
std::size_t chunkOf(std::size_t count) {
    return std::max<std::size_t>(count / 100, 1);
}

int runScale(const Options& options, std::uint32_t featureCount, Run& run, std::ostream& out,
             std::ostream& err, bool progress) {
    using Clock = std::chrono::steady_clock;
    if (!options.quiet) {
        out << "keo-scene: scale run of " << featureCount << " features (the sample's "
            << sampleEntries().size() << " kinds in turn), " << options.frames
            << " clean frames and " << options.frames << " edit rounds\n"
            << std::flush;
    }
    // Units of work: each feature built, visited by a frame, or edited. The build is followed by
    // one frame, each clean frame is one visit, each edit round an edit and a visit.
    const std::size_t frames = options.frames;
    ProgressBar bar(err, progress && !options.quiet, featureCount * (2 + 3 * frames));
    ScalePhase build{"build"};
    ScalePhase clean{"clean frames"};
    ScalePhase edits{"edits"};
    std::uint32_t frame = 0;

    // Times @p work, then plays the next frame and adds both to @p phase (the frame is part of
    // every phase: it is where the entities are made and brought up to date). Verification runs
    // outside the measured time.
    const auto measure = [&](ScalePhase& phase, const std::function<void()>& work) {
        const auto start = Clock::now();
        work();
        run.play(++frame, {});
        phase.seconds += std::chrono::duration<double>(Clock::now() - start).count();
        phase.features += featureCount;
        phase.entities += run.renderer.liveCount();
        bar.advance(featureCount, phase.name);
        if (auto failure = run.picture(out, options.quiet)) {
            return failure;
        }
        return options.verify ? run.check() : std::nullopt;
    };

    const MemoryUse beforeBuild = currentMemoryUse();
    std::optional<std::string> failure = measure(build, [&] {
        const std::size_t chunk = chunkOf(featureCount);
        for (std::size_t first = 0; first < featureCount; first += chunk) {
            const std::size_t count = std::min<std::size_t>(chunk, featureCount - first);
            populateSample(run.scene, count, first);
            bar.advance(count, build.name);
        }
    });
    const MemoryUse afterBuild = currentMemoryUse();
    for (std::uint32_t i = 0; i < options.frames && !failure; ++i) {
        failure = measure(clean, [] {});
    }
    const auto features = run.scene.features();
    for (std::uint32_t round = 1; round <= options.frames && !failure; ++round) {
        // Every feature changes: highlight on in odd rounds, off in even ones.
        failure = measure(edits, [&] {
            for (std::size_t i = 0; i < features.size(); ++i) {
                features[i]->setHighlight(round % 2 == 1);
                if ((i + 1) % chunkOf(features.size()) == 0) {
                    bar.advance(chunkOf(features.size()), edits.name);
                }
            }
        });
    }
    bar.finish();
    if (failure) {
        return runFailed(err, *failure);
    }
    run.phases = {build, clean, edits};
    out << "phase           features    entities   seconds   features/s   entities/s\n";
    for (const ScalePhase& phase : run.phases) {
        out << formatPhase(phase);
    }
    ScaleMemory memory;
    memory.allocator = allocatorName();
    memory.heapPerFeature = bytesPer(beforeBuild.heap, afterBuild.heap, featureCount);
    memory.residentPerFeature = bytesPer(beforeBuild.resident, afterBuild.resident, featureCount);
    memory.kinds = measureKinds(KIND_SAMPLE_FEATURES);
    out << formatMemory(memory);
    run.memory = std::move(memory);
    out << "log: " << run.logs.total() << " records\n";
    if (options.verify) {
        out << verifiedLine(frame);
    }
    return EXIT_OK;
}

} // namespace

int runProgram(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
               bool progress) {
    const ParseResult parsed = parseArguments(arguments);
    if (!parsed.options) {
        err << "keo-scene: " << parsed.error << "\n" << HELP_HINT << "\n";
        return EXIT_USAGE;
    }
    const Options& options = *parsed.options;
    if (options.help) {
        out << usageText();
        return EXIT_OK;
    }
    std::ofstream json;
    if (!options.jsonPath.empty()) {
        json.open(options.jsonPath, std::ios::out | std::ios::trunc);
        if (!json.is_open()) {
            err << "keo-scene: cannot open --json file '" << options.jsonPath
                << "' for writing: " << std::strerror(errno) << "\n"
                << HELP_HINT << "\n";
            return EXIT_USAGE;
        }
    }

    // Frames played: the sample's, or the scale run's first frame, clean frames and edit rounds.
    const std::uint32_t frames = options.features ? 1 + 2 * options.frames : options.frames;
    const std::string mode = options.features            ? "scale"
                             : !options.dataPath.empty() ? "data"
                                                         : "sample";
    PictureOutput pictures(options, frames,
                           options.features
                               ? "keo-scene, " + std::to_string(*options.features) + " features"
                               : "keo-scene " + (mode == "data" ? options.dataPath : mode));
    if (const std::string first = pictures.firstPath(); !first.empty()) {
        // Checked before the run, as the JSON file is: a wrong path is a wrong command line.
        std::ofstream probe(first, std::ios::out | std::ios::trunc);
        if (!probe.is_open()) {
            err << "keo-scene: cannot open --picture file '" << first
                << "' for writing: " << std::strerror(errno) << "\n"
                << HELP_HINT << "\n";
            return EXIT_USAGE;
        }
    }
    if (mode != "sample") {
        // Large scenes: the heap in 2 MiB pages, so that the kernel fills and maps a page per 2 MiB
        // instead of per 4 KiB (a million features touch six gigabytes).
        preferLargePages();
    }
    auto run = std::make_unique<Run>(mode.c_str(), std::move(pictures));
    const int status = options.features
                           ? runScale(options, *options.features, *run, out, err, progress)
                           : runSample(options, *run, out, err);
    if (status != EXIT_OK) {
        return status;
    }
    const double time = run->lastTime();
    const std::string features = json.is_open() ? featuresJson(run->scene, time) : std::string();
    const std::vector<FrameRecord> frameRecords = std::move(run->frames);
    const std::vector<ScalePhase> phases = std::move(run->phases);
    std::optional<ScaleMemory> memory = std::move(run->memory);
    const std::size_t logRecords = run->logs.total();
    if (memory) {
        // The scale run's scene goes while the clock runs: every feature, entity and record. The
        // heap figures are all taken, so the teardown runs without the count.
        const HeapCountPause pause;
        const auto start = std::chrono::steady_clock::now();
        run.reset();
        memory->teardownSeconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        out << formatTeardown(*memory, *options.features);
    }
    if (!json.is_open()) {
        return status;
    }
    json << frameLogJson(mode, frameRecords, phases, memory ? &*memory : nullptr, logRecords, time,
                         features);
    json.close();
    if (json.fail()) {
        err << "keo-scene: could not write the JSON report to '" << options.jsonPath << "'\n";
        return EXIT_FAILED;
    }
    return EXIT_OK;
}

} // namespace keo::scene
