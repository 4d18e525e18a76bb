// The program from launch to its ready window, on the demo and on a library of 1,000 sets,
// against an empty Qt program that shows one window; and the program's peak memory.

#include "BenchSupport.h"
#include "GeneratedLibrary.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <sys/resource.h>
#include <sys/wait.h>

namespace vellumar::bench {
namespace {

const std::vector<std::string> kHeadless = {"QT_QPA_PLATFORM=offscreen",
                                            "VELLUMAR_EXIT_WHEN_READY=1"};

const std::string& Demo()
{
    static const std::string demo = [] {
        const std::string folder = ScratchFolder() + "/demo";
        RunProcess({VELLUMAR_CLI_PATH, "demo", folder});
        return folder;
    }();
    return demo;
}

const std::string& LargeLibrary()
{
    static const std::string home = GenerateLibrary(ScratchFolder() + "/startup-library", 1000, 30);
    return home;
}

std::vector<std::string> Environment(const std::string& home, const std::string& prefix)
{
    std::vector<std::string> environment = kHeadless;
    environment.push_back("VELLUMAR_HOME=" + home);
    environment.push_back("WINEPREFIX=" + prefix);
    return environment;
}

void RunProgram(benchmark::State& state, const std::vector<std::string>& environment)
{
    for (auto _ : state)
        if (RunProcess({VELLUMAR_PROGRAM_PATH}, environment) != 0)
            state.SkipWithError("the program did not reach its ready state");
}

void BM_StartUpToReady_Demo(benchmark::State& state)
{
    RunProgram(state, Environment(Demo() + "/home", Demo() + "/prefix"));
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
        RunProcess({EMPTY_QT_WINDOW_PATH}, kHeadless);
}
BENCHMARK(BM_EmptyQtWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

// Peak resident memory of one start-up on the large library, reported as a counter.
void BM_PeakMemory_1000Sets(benchmark::State& state)
{
    long peakKilobytes = 0;
    for (auto _ : state) {
        RunProcess({VELLUMAR_PROGRAM_PATH},
                   Environment(LargeLibrary(), ScratchFolder() + "/startup-library/prefix"));
        struct rusage usage {};
        getrusage(RUSAGE_CHILDREN, &usage);
        peakKilobytes = usage.ru_maxrss; // the largest of all children so far
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
