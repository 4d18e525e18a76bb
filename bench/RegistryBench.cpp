// Reading a value that is not there from a registry file of realistic size: the scan must come
// close to a plain text search over the same file.

#include "BenchSupport.h"
#include "config/Registry.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace vellumar::bench {
namespace {

const char* const kKey = "Software\\Microsoft\\Microsoft Games\\Flight Simulator";
const char* const kEscapedKey =
    "Software\\\\Microsoft\\\\Microsoft Games\\\\Flight Simulator\\\\9.0";

// An 8 MB system.reg: class registrations and uninstall entries, as a used prefix has them.
const std::string& Prefix()
{
    static const std::string prefix = [] {
        const std::string folder = ScratchFolder() + "/prefix";
        std::filesystem::create_directories(folder);
        std::ofstream reg(folder + "/system.reg", std::ios::binary);
        reg << "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n\n";
        std::size_t written = 0;
        char line[512];
        for (unsigned i = 0; written < 8u * 1024 * 1024; ++i) {
            const int length = std::snprintf(
                line, sizeof line,
                "[Software\\\\Classes\\\\CLSID\\\\{%08X-1234-5678-9ABC-DEF012345678}"
                "\\\\InprocServer32] 1700000000\n#time=1da0b1c2d3e4f%02x\n"
                "@=\"C:\\\\windows\\\\system32\\\\component%u.dll\"\n"
                "\"ThreadingModel\"=\"Both\"\n"
                "\"Description\"=str(2):\"%%SystemRoot%%\\\\system32\\\\component%u.dll,-%u\"\n\n",
                i * 2654435761u, i % 256, i, i, i % 1000);
            reg.write(line, length);
            written += static_cast<std::size_t>(length);
        }
        return folder;
    }();
    return prefix;
}

void BM_RegistryAbsentValue_InProcess(benchmark::State& state)
{
    // The registry reads WINEPREFIX on each call; it is put back when the benchmark ends.
    ScopedEnvironment environment;
    environment.set("WINEPREFIX", Prefix());
    const auto registry = CreatePlatformRegistry();
    for (auto _ : state) {
        auto value = registry->readString(RegistryHive::LocalMachine, std::string(kKey) + "\\9.0",
                                          "EXE Path");
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_RegistryAbsentValue_InProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RegistryAbsentValue_Cli(benchmark::State& state)
{
    const std::string prefix = Prefix();
    for (auto _ : state)
        if (!RunChecked(
                state,
                {VELLUMAR_CLI_PATH, "reg", "get", "HKEY_LOCAL_MACHINE", kKey, "9.0", "EXE Path"},
                {"WINEPREFIX=" + prefix}))
            break;
}
BENCHMARK(BM_RegistryAbsentValue_Cli)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_GrepFixedKey(benchmark::State& state)
{
    const std::string file = Prefix() + "/system.reg";
    for (auto _ : state)
        if (!RunChecked(state, {"grep", "-F", kEscapedKey, file}))
            break;
}
BENCHMARK(BM_GrepFixedKey)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_RegistryAbsentValue_Cli", "BM_GrepFixedKey", 4.0);
    CompareWith("BM_RegistryAbsentValue_InProcess", "BM_GrepFixedKey", 4.0);
    return true;
}();

} // namespace
} // namespace vellumar::bench
