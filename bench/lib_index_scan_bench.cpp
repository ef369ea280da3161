// The scan for "_lib" numbers over 2,000 schematics of 2,000 lines each, against "cat" of
// the same files. "ratio" is the scan's processor time per cat's, "wall_ratio" the same on
// the clock.
#include <benchmark/benchmark.h>

#include "bench/bench_project.h"

namespace {

constexpr int kSchematics = 2000;
constexpr int kLines = 2000;

void BM_ScanLibIndexes(benchmark::State& state) {
    velorand::bench::BenchProject project;
    velorand::CProjectDoc* doc = project.doc;
    velorand::bench::GeneratedProject files =
        velorand::bench::GenerateProject(project.sandbox, "scan", kSchematics, 20, kLines);
    std::vector<std::string> command{"cat"};
    for (std::size_t n = 0; n < files.names.size(); ++n) {
        doc->schematics[files.names[n]].path = files.platformPaths[n];
        command.push_back(files.posixPaths[n]);
    }

    velorand::bench::Times scan;
    for (auto _ : state) {
        doc->lastLibIndex = 0;
        scan += velorand::bench::InProcessTimes([&] { doc->ScanLibIndexes(); });
    }
    velorand::bench::Times cat;
    for (benchmark::IterationCount i = 0; i < state.iterations(); ++i)
        cat += velorand::bench::ProcessTimes(command);
    state.counters["last"] = doc->lastLibIndex;
    state.counters["ratio"] = scan.cpu / cat.cpu;
    state.counters["wall_ratio"] = scan.wall / cat.wall;
}
BENCHMARK(BM_ScanLibIndexes)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
