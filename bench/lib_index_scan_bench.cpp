// The scan for "_lib" numbers over 2,000 schematics of 2,000 lines each, against "cat" of
// the same files. "ratio" is the scan's processor time per cat's, "wall_ratio" the same on
// the clock.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>

#include "bench/bench_project.h"

namespace {

constexpr int kSchematics = 2000;
constexpr int kLines = 2000;

void BM_ScanLibIndexes(benchmark::State& state) {
    velorand::bench::BenchProject project;
    velorand::CProjectDoc* doc = project.doc;
    std::vector<std::string> command{"cat"};
    char line[128];
    for (int n = 0; n < kSchematics; ++n) {
        std::string name = "sheet" + std::to_string(n);
        std::ofstream out(project.sandbox.Posix(name + ".sch"), std::ios::binary);
        out << "[schematic2]\nver 40\n\n[tools]\ngrid=25\n[detail]\n[cell use]\n";
        for (int i = 0; i < kLines; ++i) {
            // One line in eight names a library part.
            if (i % 8 == 0)
                std::snprintf(line, sizeof line, "use CAPQ C_lib%d n%d n%d C=10pF\n", i, i, i + 1);
            else
                std::snprintf(line, sizeof line, "use MLIN TL%d n%d n%d W=25mil L=%dmil\n", i, i,
                              i + 1, 100 + i);
            out << line;
        }
        doc->schematics[name].path = project.sandbox.Platform(name + ".sch");
        command.push_back(project.sandbox.Posix(name + ".sch").string());
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
