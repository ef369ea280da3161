// The cost of mapping a platform path, the step in front of every file call, set against
// the one stat() the call itself makes. "ratio" is mapping time per stat time.
#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include <chrono>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/paths.h"

namespace {

double StatSeconds(const std::string& posix, benchmark::IterationCount times) {
    auto start = std::chrono::steady_clock::now();
    struct stat info;
    for (benchmark::IterationCount i = 0; i < times; ++i)
        benchmark::DoNotOptimize(stat(posix.c_str(), &info));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void MapPath(benchmark::State& state, const char* platformPath) {
    velorand::testing::Sandbox sandbox;
    sandbox.Write("Projects/Amp/Sheets/Top.sch", "");
    std::string posix = sandbox.Posix("Projects/Amp/Sheets/Top.sch").string();
    auto start = std::chrono::steady_clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(win::PosixPath(platformPath));
    double mapped = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    state.counters["ratio"] = mapped / StatSeconds(posix, state.iterations());
}

void BM_PosixPathExactCase(benchmark::State& state) {
    MapPath(state, "C:\\Projects\\Amp\\Sheets\\Top.sch");
}
void BM_PosixPathOtherCase(benchmark::State& state) {
    MapPath(state, "C:\\projects\\amp\\sheets\\top.sch");
}
BENCHMARK(BM_PosixPathExactCase);
BENCHMARK(BM_PosixPathOtherCase);

}  // namespace

BENCHMARK_MAIN();
