// Opening a generated project of 10,000 schematics through the project's document
// template, as the host opens it: the lock, the project file, the tree that treescan lists
// and the reader fills, the records, the library numbers. The floor is a read of all the
// project's files ("cat"). "ratio" is the open's processor time per cat's, "wall_ratio"
// the same on the clock; times are processor milliseconds, with the pieces of the open
// timed again one by one: the tree (treescan and the reader), the netlist (the
// translator, which the update at the end of the load runs) and the library numbers.
#include <benchmark/benchmark.h>

#include <errno.h>

#include "bench/bench_project.h"
#include "platform/win/app_profile.h"
#include "platform/win/config_files.h"

namespace {

constexpr int kSheets = 10000;
constexpr int kBlocks = 100;
constexpr int kLines = 40;

void BM_OpenProject(benchmark::State& state) {
    velorand::bench::BenchHost host;
    // An installed suite with its simulators and the tools switched on, as a user has it:
    // the tree comes from treescan, the netlist template opens in the host, and the update
    // at the end of the load runs the translator.
    win::WriteProfileInt("Project", "SkipNetlist", 0);
    velorand::testing::WriteFile(
        win::RegistryPath(),
        std::string("[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\") +
            program_invocation_short_name + "\\Template List]\nSimulator=Quintaris,Lumentra\n");
    velorand::bench::GeneratedProject files =
        velorand::bench::GenerateProject(host.sandbox, "big", kSheets, kBlocks, kLines);
    std::vector<std::string> command{"cat", files.projectPosixPath};
    command.insert(command.end(), files.posixPaths.begin(), files.posixPaths.end());

    velorand::bench::Times open, tree, netlist, scan;
    for (auto _ : state) {
        velorand::CProjectDoc* doc = nullptr;
        open += velorand::bench::InProcessTimes([&] {
            doc = dynamic_cast<velorand::CProjectDoc*>(
                host.projectTemplate->OpenDocumentFile(files.projectFile.c_str()));
        });
        state.PauseTiming();
        if (doc == nullptr || doc->treeValid == 0) {
            state.SkipWithError("the project did not open with its tree");
            break;
        }
        state.counters["records"] = static_cast<double>(doc->schematics.size());
        state.counters["items"] = doc->treeView->GetTreeCtrl().GetCount();
        state.counters["last"] = doc->lastLibIndex;
        // The pieces of the open, each again on the open project.
        tree += velorand::bench::InProcessTimes([&] {
            std::string listing;
            doc->BuildTree(listing);
            doc->ReadListing(listing);
        });
        netlist += velorand::bench::InProcessTimes([&] { doc->RunNetlist(); });
        scan += velorand::bench::InProcessTimes([&] { doc->ScanLibIndexes(); });
        doc->OnCloseDocument();
        state.ResumeTiming();
    }
    velorand::bench::Times cat;
    for (benchmark::IterationCount i = 0; i < state.iterations(); ++i)
        cat += velorand::bench::ProcessTimes(command);
    double opens = static_cast<double>(state.iterations());
    state.counters["open_ms"] = open.cpu * 1e3 / opens;
    state.counters["cat_ms"] = cat.cpu * 1e3 / opens;
    state.counters["tree_ms"] = tree.cpu * 1e3 / opens;
    state.counters["netlist_ms"] = netlist.cpu * 1e3 / opens;
    state.counters["scan_ms"] = scan.cpu * 1e3 / opens;
    state.counters["ratio"] = open.cpu / cat.cpu;
    state.counters["wall_ratio"] = open.wall / cat.wall;
}
BENCHMARK(BM_OpenProject)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
