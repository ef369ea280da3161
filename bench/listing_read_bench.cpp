// Reading a listing of 100,000 hierarchy lines and 20,000 "Schematic:" blocks of three
// symbols each into the tree and the records. The floor of any reader is a count of the
// file's lines ("wc -l"); a peer is the same parse written in awk (listing_parse.awk).
// "ratio" is the reader's processor time per wc's, "awk_ratio" awk's per the reader's;
// the wall_ counterparts are the same on the clock. Times are processor milliseconds.
#include <benchmark/benchmark.h>
#include <fcntl.h>

#include <cstdio>
#include <fstream>

#include "bench/bench_project.h"

namespace {

constexpr int kHierarchyLines = 100000;
constexpr int kSchematics = 20000;

// A hierarchy of 5,000 level-1 uses, each with three level-2 uses of five level-3 uses
// each, one of them with a level-4 use: the top level thus has thousands of children.
void WriteListing(const std::string& posixPath) {
    std::ofstream out(posixPath, std::ios::binary);
    char line[256];
    const char* folder = "C:\\Projects\\Velorand\\lna_2400MHz\\sheets";
    out << "~ top (" << folder << "\\top.sch)\n";
    int use = 0;
    auto write = [&](int level) {
        int cell = use % kSchematics;
        std::string dots = level > 1 ? std::string(level - 1, '.') + "  " : "";
        std::snprintf(line, sizeof line, "%-3d%scell%05d (X%d <-> %s\\cell%05d.sch)\n", level,
                      dots.c_str(), cell, use, folder, cell);
        out << line;
        ++use;
    };
    while (use < kHierarchyLines) {
        write(1);
        for (int b = 0; b < 3; ++b) {
            write(2);
            for (int c = 0; c < 5; ++c) {
                write(3);
                if (b == 0 && c == 0)
                    write(4);
            }
        }
    }
    out << "\n";
    for (int cell = 0; cell < kSchematics; ++cell) {
        out << "Schematic: " << folder << "\\cell" << cell << ".sch (0)\n";
        for (const char* symbol : {"cap", "res", "mlin"})
            out << "Symbol: " << folder << "\\..\\symbols\\" << symbol << cell % 50 << ".sym\n";
    }
}

void BM_ReadListing(benchmark::State& state) {
    velorand::bench::BenchProject project;
    velorand::CProjectDoc* doc = project.doc;
    doc->projectID = "lna";
    doc->location = "C:\\Projects\\";
    std::string posix = project.sandbox.Posix("lna.st%").string();
    WriteListing(posix);
    std::string listing = project.sandbox.Platform("lna.st%");

    velorand::bench::Times reader;
    for (auto _ : state) {
        state.PauseTiming();
        doc->treeView->GetTreeCtrl().DeleteAllItems();
        doc->ClearSchematics();
        state.ResumeTiming();
        reader += velorand::bench::InProcessTimes([&] { doc->ReadListing(listing); });
    }
    velorand::bench::Times wc;
    velorand::bench::Times awk;
    for (benchmark::IterationCount i = 0; i < state.iterations(); ++i) {
        wc += velorand::bench::ProcessTimes({"wc", "-l", posix});
        awk += velorand::bench::ProcessTimes(
            {"awk", "-f", std::string(VELORAND_BENCH_DIR) + "/listing_parse.awk", posix});
    }
    state.counters["items"] = doc->treeView->GetTreeCtrl().GetCount();
    state.counters["records"] = static_cast<double>(doc->schematics.size());
    double reads = static_cast<double>(state.iterations());
    state.counters["reader_ms"] = reader.cpu * 1e3 / reads;
    state.counters["wc_ms"] = wc.cpu * 1e3 / reads;
    state.counters["awk_ms"] = awk.cpu * 1e3 / reads;
    state.counters["ratio"] = reader.cpu / wc.cpu;
    state.counters["awk_ratio"] = awk.cpu / reader.cpu;
    state.counters["wall_ratio"] = reader.wall / wc.wall;
    state.counters["awk_wall_ratio"] = awk.wall / reader.wall;
}
BENCHMARK(BM_ReadListing)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
