// Building the demo with vellumar-cli, as a newcomer does, against copying the finished demo
// with cp. Painting and encoding some 80 pictures costs far more than copying them; what
// counts is that the newcomer waits well under a second (a copy takes some 15 ms).

#include "BenchSupport.h"

#include <benchmark/benchmark.h>

namespace vellumar::bench {
namespace {

// A demo built once, for the floor to copy; "" when vellumar-cli could not build it.
const std::string& BuiltDemo()
{
    static const std::string demo = [] {
        const std::string folder = ScratchFolder() + "/demo-original";
        return RunProcess({VELLUMAR_CLI_PATH, "demo", folder}) == 0 ? folder : std::string();
    }();
    return demo;
}

void BM_DemoBuild_Cli(benchmark::State& state)
{
    // Each build after the first replaces the one before, as `demo DIR` run again does.
    const std::string folder = ScratchFolder() + "/demo-built";
    for (auto _ : state)
        if (!RunChecked(state, {VELLUMAR_CLI_PATH, "demo", folder}, {}, true))
            break;
}
BENCHMARK(BM_DemoBuild_Cli)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_DemoCopy_Cp(benchmark::State& state)
{
    if (BuiltDemo().empty()) {
        state.SkipWithError("vellumar-cli could not build the demo");
        return;
    }
    const std::string copy = ScratchFolder() + "/demo-copied";
    for (auto _ : state)
        if (!RunChecked(state,
                        {"sh", "-c", "rm -rf \"$1\" && cp -R \"$0\" \"$1\"", BuiltDemo(), copy}, {},
                        true))
            break;
}
BENCHMARK(BM_DemoCopy_Cp)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_DemoBuild_Cli", "BM_DemoCopy_Cp", 30.0);
    return true;
}();

} // namespace
} // namespace vellumar::bench
