// Installing a set into a simulator folder that already holds its files, against cp(1) of the
// same files to the same targets: large bitmaps in-process, and the common small set as a whole
// vellumar-cli run.

#include "BenchSupport.h"
#include "GeneratedLibrary.h"
#include "common/Clock.h"
#include "common/EventPump.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/NoWindows.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace vellumar::bench {
namespace {

namespace fs = std::filesystem;

class YesMessages final : public MessageService {
public:
    int ShowMessage(const std::string&, int style, const std::string&) override
    {
        return (style & MessageStyle::ButtonsMask) == MessageStyle::YesNo ? MessageResult::Yes
                                                                          : MessageResult::OK;
    }
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override
    {
        return ShowMessage(text, style, title);
    }
};

struct LargeSet {
    std::string setFolder, simulator;
    TextList names;
};

// 50 bitmaps of 4 MB, already installed once.
const LargeSet& Large()
{
    static const LargeSet set = [] {
        LargeSet made;
        made.setFolder = ScratchFolder() + "/large/set";
        made.simulator = ScratchFolder() + "/large/FS9";
        fs::create_directories(made.setFolder);
        fs::create_directories(made.simulator + "/texture");
        const std::string bytes(4 << 20, 'x');
        for (int i = 0; i < 50; ++i) {
            const std::string name = "cloud" + std::to_string(i) + ".bmp";
            std::ofstream(made.setFolder + "/" + name, std::ios::binary) << bytes;
            std::ofstream(made.simulator + "/texture/" + name, std::ios::binary) << bytes;
            made.names.push_back(name);
        }
        return made;
    }();
    return set;
}

void BM_Install50x4MB(benchmark::State& state)
{
    const LargeSet& set = Large();
    YesMessages messages;
    NoWindowsEventPump events;
    const auto files = CreatePlatformFileOperations();
    const auto clock = CreateSystemClock();
    TextureServices services{messages, *files, events, *clock};
    const TextureFolders folders{set.simulator, set.simulator + "/texture",
                                 ScratchFolder() + "/large/BackUp", ScratchFolder() + "/large"};
    InstallRequest request;
    request.setName = "Large";
    request.cloudSetFolder = set.setFolder;
    for (const std::string& name : set.names)
        request.cloudFiles.emplace_back(name, true);
    request.ask = false;
    for (auto _ : state) {
        LastInstalledRecord record;
        if (!InstallTextureSet(services, folders, request, record).installed)
            state.SkipWithError("the install failed");
    }
}
BENCHMARK(BM_Install50x4MB)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Cp50x4MB(benchmark::State& state)
{
    const LargeSet& set = Large();
    std::vector<std::string> command = {"cp", "-f"};
    for (const std::string& name : set.names)
        command.push_back(set.setFolder + "/" + name);
    command.push_back(set.simulator + "/texture/");
    for (auto _ : state)
        if (!RunChecked(state, command, {}, true))
            break;
}
BENCHMARK(BM_Cp50x4MB)->Unit(benchmark::kMillisecond)->UseRealTime();

// The common case: a set of 40 small files, the whole vellumar-cli process.
const std::string& SmallSetHome()
{
    static const std::string home = GenerateLibrary(ScratchFolder() + "/small", 1, 40);
    return home;
}

void BM_CliInstall40SmallFiles(benchmark::State& state)
{
    const std::string& home = SmallSetHome();
    const std::vector<std::string> environment = {
        "VELLUMAR_HOME=" + home, "WINEPREFIX=" + ScratchFolder() + "/small/prefix"};
    fs::create_directories(home + "/FS9/texture");
    for (auto _ : state)
        if (!RunChecked(state, {VELLUMAR_CLI_PATH, "install", "Set 0000", "--yes"}, environment,
                        true))
            break;
}
BENCHMARK(BM_CliInstall40SmallFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Cp40SmallFiles(benchmark::State& state)
{
    const std::string& home = SmallSetHome();
    std::vector<std::string> command = {"cp", "-f"};
    for (const auto& entry : fs::directory_iterator(home + "/Texture/Group 00/Set 0000"))
        command.push_back(entry.path().string());
    command.push_back(home + "/FS9/texture/");
    fs::create_directories(home + "/FS9/texture");
    for (auto _ : state)
        if (!RunChecked(state, command, {}, true))
            break;
}
BENCHMARK(BM_Cp40SmallFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_Install50x4MB", "BM_Cp50x4MB", 1.15);
    CompareWith("BM_CliInstall40SmallFiles", "BM_Cp40SmallFiles", 1.5);
    return true;
}();

} // namespace
} // namespace vellumar::bench
