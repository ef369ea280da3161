// 10,000 look-ups in an unchanged profile file of 1 MB, against one read and parse of the
// file. The counter "parses" is what the look-ups cost together, counted in parses; the
// cache should keep it below 3. "stat_floor" is what 10,000 bare stat() calls cost in the
// same unit: what the look-ups would cost at least if each asked the file whether it
// changed, as reads of files that can't be watched do.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/testing/sandbox.h"
#include "platform/win/private_profile.h"
#include "platform/win/profile_store.h"

namespace {

constexpr int kSections = 100;
constexpr int kKeysPerSection = 220;
constexpr int kLookUps = 10000;

std::string MegabyteProfile() {
    std::string text;
    for (int s = 0; s < kSections; ++s) {
        text += "[Section " + std::to_string(s) + "]\r\n";
        for (int k = 0; k < kKeysPerSection; ++k)
            text += "Key" + std::to_string(k) + "=C:\\Velorand\\projects\\amplifier\\stage" +
                    std::to_string(k) + ".sch\r\n";
        text += "\r\n";
    }
    return text;
}

// Sets the file's time stamp, seconds in the past, so that it counts as unchanged.
void SetModified(const std::string& path, long secondsAgo, long nanoseconds) {
    timespec times[2];
    clock_gettime(CLOCK_REALTIME, &times[0]);
    times[0].tv_sec -= secondsAgo;
    times[0].tv_nsec = nanoseconds;
    times[1] = times[0];
    utimensat(AT_FDCWD, path.c_str(), times, 0);
}

void BM_LookUpsAgainstParse(benchmark::State& state) {
    velorand::testing::Sandbox sandbox;
    std::string posix = sandbox.Write("settings.ini", MegabyteProfile()).string();
    std::string platform = sandbox.Platform("settings.ini");
    SetModified(posix, 3600, 0);

    std::vector<std::pair<std::string, std::string>> queries;
    for (int i = 0; i < kLookUps; ++i)
        queries.emplace_back("SECTION " + std::to_string((i * 37) % kSections),
                             "key" + std::to_string((i * 101) % kKeysPerSection));
    char buffer[260];
    win::GetPrivateProfileString("Section 0", "Key0", "", buffer, sizeof buffer, platform.c_str());

    using Clock = std::chrono::steady_clock;
    double lookUpSeconds = 0;
    double parseSeconds = 0;
    long round = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        for (const auto& [section, key] : queries) {
            win::GetPrivateProfileString(section.c_str(), key.c_str(), "", buffer, sizeof buffer,
                                         platform.c_str());
            benchmark::DoNotOptimize(buffer);
        }
        auto lookedUp = Clock::now();
        // A new time stamp makes the next read parse the file anew.
        SetModified(posix, 3600, ++round % 1000000000);
        auto parseStart = Clock::now();
        benchmark::DoNotOptimize(win::LoadProfile(posix));
        auto parsed = Clock::now();

        std::chrono::duration<double> lookUps = lookedUp - start;
        lookUpSeconds += lookUps.count();
        parseSeconds += std::chrono::duration<double>(parsed - parseStart).count();
        state.SetIterationTime(lookUps.count());
    }
    // A look-up that asks the system whether the file changed pays for that one call: 10,000
    // of them are the floor under look-ups of files that can't be watched.
    struct stat info;
    auto statStart = Clock::now();
    for (int i = 0; i < kLookUps; ++i)
        stat(posix.c_str(), &info);
    double statSeconds = std::chrono::duration<double>(Clock::now() - statStart).count();

    double iterations = static_cast<double>(state.iterations());
    state.counters["parse_ms"] = 1000 * parseSeconds / iterations;
    state.counters["parses"] = lookUpSeconds / parseSeconds;
    state.counters["stat_floor"] = statSeconds / (parseSeconds / iterations);
}

BENCHMARK(BM_LookUpsAgainstParse)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
