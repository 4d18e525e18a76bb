// vellumar-cli status over the 1,000-set library, the whole process: with a warm hash cache
// against find(1) over the library, and its first run (no cache) against sha256sum of the same
// files.

#include "BenchSupport.h"
#include "GeneratedLibrary.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace vellumar::bench {
namespace {

namespace fs = std::filesystem;

const std::string& Home()
{
    static const std::string home = GenerateLibrary(ScratchFolder() + "/status-library", 1000, 30);
    return home;
}

std::vector<std::string> Environment()
{
    std::vector<std::string> environment = HeadlessEnvironment();
    environment.push_back("VELLUMAR_HOME=" + Home());
    environment.push_back("WINEPREFIX=" + ScratchFolder() + "/status-library/prefix");
    return environment;
}

std::string CachePath()
{
    return Home() + "/Originals/hashes";
}

void BM_CliStatusWarmCache1000Sets(benchmark::State& state)
{
    const std::vector<std::string> environment = Environment();
    // The first run fills the cache.
    if (!RunChecked(state, {VELLUMAR_CLI_PATH, "status"}, environment, true))
        return;
    for (auto _ : state)
        if (!RunChecked(state, {VELLUMAR_CLI_PATH, "status"}, environment, true))
            break;
}
BENCHMARK(BM_CliStatusWarmCache1000Sets)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_FindLibrary1000Sets(benchmark::State& state)
{
    const std::string texture = Home() + "/Texture";
    for (auto _ : state)
        if (!RunChecked(state, {"find", texture}, {}, true))
            break;
}
BENCHMARK(BM_FindLibrary1000Sets)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_CliStatusFirstRun1000Sets(benchmark::State& state)
{
    const std::vector<std::string> environment = Environment();
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove(CachePath());
        state.ResumeTiming();
        if (!RunChecked(state, {VELLUMAR_CLI_PATH, "status"}, environment, true))
            break;
    }
}
BENCHMARK(BM_CliStatusFirstRun1000Sets)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same 30,000 files, in as few sha256sum processes as find can pass them to.
void BM_Sha256sumLibrary1000Sets(benchmark::State& state)
{
    const std::string texture = Home() + "/Texture";
    for (auto _ : state)
        if (!RunChecked(state, {"find", texture, "-type", "f", "-exec", "sha256sum", "{}", "+"}, {},
                        true))
            break;
}
BENCHMARK(BM_Sha256sumLibrary1000Sets)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_CliStatusWarmCache1000Sets", "BM_FindLibrary1000Sets", 2.0);
    CompareWith("BM_CliStatusFirstRun1000Sets", "BM_Sha256sumLibrary1000Sets", 1.2);
    return true;
}();

} // namespace
} // namespace vellumar::bench
