// Listing every file of a large tree, against find(1) over the same tree.

#include "BenchSupport.h"
#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/NoWindows.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace vellumar::bench {
namespace {

// 50,000 files: 10 groups of 50 sets of 100 files.
const std::string& ListingTree()
{
    static const std::string root = [] {
        const std::string made = ScratchFolder() + "/listing";
        char name[96];
        for (int group = 0; group < 10; ++group)
            for (int set = 0; set < 50; ++set) {
                std::snprintf(name, sizeof name, "/Group %02d/Set %02d", group, set);
                const std::string dir = made + name;
                std::filesystem::create_directories(dir);
                for (int file = 0; file < 100; ++file) {
                    std::snprintf(name, sizeof name, "/sky%03d.bmp", file);
                    std::ofstream(dir + name);
                }
            }
        return made;
    }();
    return root;
}

void BM_ListFilesInTree50k(benchmark::State& state)
{
    const std::string& root = ListingTree();
    const auto files = CreatePlatformFileOperations();
    NoWindowsEventPump events;
    for (auto _ : state) {
        TextList list;
        ListFilesInTree(*files, events, root, "*.*", list);
        if (list.size() != 50000)
            state.SkipWithError("wrong number of files");
    }
}
BENCHMARK(BM_ListFilesInTree50k)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_FindTypeF50k(benchmark::State& state)
{
    const std::string& root = ListingTree();
    for (auto _ : state)
        if (!RunChecked(state, {"find", root, "-type", "f"}, {}, true))
            break;
}
BENCHMARK(BM_FindTypeF50k)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_ListFilesInTree50k", "BM_FindTypeF50k", 1.5);
    return true;
}();

} // namespace
} // namespace vellumar::bench
