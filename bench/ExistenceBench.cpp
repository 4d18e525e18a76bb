// Existence tests with names in the wrong letter case, as Windows paths from cloud.ini and
// situation files have them, against exact-case stat() of the same files.

#include "BenchSupport.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/TextCompare.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <thread>

namespace vellumar::bench {
namespace {

struct Tree {
    std::vector<std::string> exact;
    std::vector<std::string> mismatched;
};

std::string Upper(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// 100 folders of 100 files.
const Tree& ExistenceTree()
{
    static const Tree tree = [] {
        Tree made;
        const std::string root = ScratchFolder() + "/existence";
        char name[64];
        for (int folder = 0; folder < 100; ++folder) {
            std::snprintf(name, sizeof name, "/Set folder %03d", folder);
            const std::string dir = root + name;
            std::filesystem::create_directories(dir);
            for (int file = 0; file < 100; ++file) {
                std::snprintf(name, sizeof name, "/cloud%03d.bmp", file);
                std::ofstream(dir + name) << "x";
                made.exact.push_back(dir + name);
                made.mismatched.push_back(root + Upper(dir.substr(root.size()) + name));
            }
        }
        // Let the folders' time stamps age past the window in which a listing is not trusted.
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        return made;
    }();
    return tree;
}

void BM_FileExists_CaseMismatched10k(benchmark::State& state)
{
    const Tree& tree = ExistenceTree();
    const auto files = CreatePlatformFileOperations();
    for (auto _ : state) {
        int found = 0;
        for (const std::string& path : tree.mismatched)
            found += FileExists(*files, path) == "OK";
        if (found != 10000)
            state.SkipWithError("a file was not found");
    }
}
BENCHMARK(BM_FileExists_CaseMismatched10k)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_StatExactCase10k(benchmark::State& state)
{
    const Tree& tree = ExistenceTree();
    for (auto _ : state) {
        int found = 0;
        struct stat st {};
        for (const std::string& path : tree.exact)
            found += ::stat(path.c_str(), &st) == 0;
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(BM_StatExactCase10k)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_FileExists_CaseMismatched10k", "BM_StatExactCase10k", 3.0);
    return true;
}();

} // namespace
} // namespace vellumar::bench
