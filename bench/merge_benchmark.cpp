// The cost of a merge by the size of the score: time per entry, host calls of each kind per staff
// and measure, peak memory. All layers go into the first one, so every pair of notes becomes a
// chord.
#include <benchmark/benchmark.h>
#include <fstream>
#include <string>

#include "bench/eighth_note_score.h"
#include "host/cli/commands/plugin.h"
#include "host/cli/io/stored_options.h"
#include "host/score/application.h"

namespace {

// The most memory that the process held since the last call, in MiB.
double PeakMemory() {
    std::ifstream status{"/proc/self/status"};
    double kibibytes = 0;
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            kibibytes = std::stod(line.substr(6));
        }
    }
    std::ofstream{"/proc/self/clear_refs"} << "5";
    return kibibytes / 1024;
}

void Merge(benchmark::State& state) {
    standin::Application& app = standin::App();
    app.Reset();
    PeakMemory();
    const auto measures = static_cast<int>(state.range(0));
    standin::Document& document = app.OpenDocument(u"benchmark");
    bench::AddEighthNotes(document, measures);
    const EREGION whole = document.WholeRegion();
    document.selection = whole;
    const standin::cli::StoredOptions options{standin::MergeOptions{}};
    std::string problem;
    const auto plugin = standin::cli::Plugin::Start(problem);
    if (plugin == nullptr) {
        state.SkipWithError(problem.c_str());
        return;
    }
    while (state.KeepRunning()) {
        app.ResetCounts();
        plugin->RunCommand(0, &whole, whole);
        state.PauseTiming();
        if (document.ChangedMeasures().size() != std::size_t(measures) || !document.Undo()) {
            state.SkipWithError("the merge failed");
            break;
        }
        state.ResumeTiming();
    }
    const double staffMeasures = measures;
    const double entries = staffMeasures * bench::kLayers * bench::kEntriesPerLayer;
    state.counters["entry"] = benchmark::Counter(
        entries, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["peak_MiB"] = PeakMemory();
    for (std::size_t i = 0; i < standin::kHostCallCount; ++i) {
        const auto call = static_cast<standin::HostCall>(i);
        if (app.calls.Of(call) > 0) {
            state.counters[standin::NameOf(call)] =
                static_cast<double>(app.calls.Of(call)) / staffMeasures;
        }
    }
}

BENCHMARK(Merge)->RangeMultiplier(10)->Range(10, 10'000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
