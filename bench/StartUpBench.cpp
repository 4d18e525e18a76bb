// The program from launch to its ready window, on the demo and on a library of 1,000 sets,
// against an empty Qt program that shows one window; and the program's peak memory.

#include "BenchSupport.h"
#include "GeneratedLibrary.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace vellumar::bench {
namespace {

const std::string& LargeLibrary()
{
    static const std::string home = GenerateLibrary(ScratchFolder() + "/startup-library", 1000, 30);
    return home;
}

std::vector<std::string> Environment(const std::string& home, const std::string& prefix)
{
    std::vector<std::string> environment = HeadlessEnvironment();
    environment.push_back("VELLUMAR_HOME=" + home);
    environment.push_back("WINEPREFIX=" + prefix);
    return environment;
}

void RunProgram(benchmark::State& state, const std::vector<std::string>& environment)
{
    for (auto _ : state)
        if (!RunChecked(state, {VELLUMAR_PROGRAM_PATH}, environment, true))
            break;
}

void BM_StartUpToReady_Demo(benchmark::State& state)
{
    if (DemoFolder().empty()) {
        state.SkipWithError("vellumar-cli could not build the demo");
        return;
    }
    RunProgram(state, Environment(DemoFolder() + "/home", DemoFolder() + "/prefix"));
}
BENCHMARK(BM_StartUpToReady_Demo)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_StartUpToReady_1000Sets(benchmark::State& state)
{
    RunProgram(state, Environment(LargeLibrary(), ScratchFolder() + "/startup-library/prefix"));
}
BENCHMARK(BM_StartUpToReady_1000Sets)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_EmptyQtWindow(benchmark::State& state)
{
    for (auto _ : state)
        if (!RunChecked(state, {EMPTY_QT_WINDOW_PATH}, HeadlessEnvironment(), true))
            break;
}
BENCHMARK(BM_EmptyQtWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

// Peak resident memory of one start-up on the large library, reported as a counter.
void BM_PeakMemory_1000Sets(benchmark::State& state)
{
    long peakKilobytes = 0;
    for (auto _ : state) {
        // The program's own peak: the children of earlier benchmarks do not count.
        if (!RunChecked(state, {VELLUMAR_PROGRAM_PATH},
                        Environment(LargeLibrary(), ScratchFolder() + "/startup-library/prefix"),
                        true, &peakKilobytes))
            break;
    }
    state.counters["peak_MB"] = static_cast<double>(peakKilobytes) / 1024.0;
}
BENCHMARK(BM_PeakMemory_1000Sets)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_StartUpToReady_Demo", "BM_EmptyQtWindow", 1.5);
    CompareWith("BM_StartUpToReady_1000Sets", "BM_EmptyQtWindow", 3.0);
    return true;
}();

} // namespace
} // namespace vellumar::bench
