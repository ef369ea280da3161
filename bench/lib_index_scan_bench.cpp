// The scan for "_lib" numbers over 2,000 schematics of 2,000 lines each, against "cat" of
// the same files. "ratio" is the scan's time per cat's.
#include <benchmark/benchmark.h>

#include <chrono>
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

    double scan = 0;
    for (auto _ : state) {
        doc->lastLibIndex = 0;
        auto start = std::chrono::steady_clock::now();
        doc->ScanLibIndexes();
        scan += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    double cat = 0;
    for (benchmark::IterationCount i = 0; i < state.iterations(); ++i)
        cat += velorand::bench::ProcessSeconds(command);
    state.counters["last"] = doc->lastLibIndex;
    state.counters["ratio"] = scan / cat;
}
BENCHMARK(BM_ScanLibIndexes)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
