// Loading cloud.ini with the whole texture catalogue of a large library, against find(1) over
// the same library: the catalogue lists every set folder once.

#include "BenchSupport.h"
#include "GeneratedLibrary.h"
#include "app/CloudIni.h"
#include "app/DataFolderChecks.h"
#include "common/EventPump.h"
#include "common/FolderBrowser.h"
#include "common/MessageService.h"
#include "common/NoWindows.h"
#include "common/Services.h"
#include "config/CloudIniFile.h"
#include "config/PlatformServices.h"
#include "config/ProgramPaths.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace vellumar::bench {
namespace {

class SilentMessages final : public MessageService {
public:
    int ShowMessage(const std::string&, int style, const std::string&) override
    {
        ++shown;
        return DefaultAnswer(style);
    }
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override
    {
        return ShowMessage(text, style, title);
    }
    int shown = 0;
};

const std::string& Library()
{
    static const std::string home = GenerateLibrary(ScratchFolder() + "/library", 1000, 30);
    return home;
}

void BM_LoadCloudIni1000Sets(benchmark::State& state)
{
    const std::string& home = Library();
    SilentMessages messages;
    NoWindowsEventPump events;
    NoWindowsFolderBrowser browser;
    NoWindowsWavePlayer sounds;
    PlatformServices platform;
    Services services = platform.With(messages, events, browser, sounds);
    std::filesystem::create_directories(home + "/AppData/Microsoft/FS9");
    std::ofstream(home + "/AppData/Microsoft/FS9/fs9.cfg");
    for (auto _ : state) {
        ProgramPaths paths;
        paths.ProgramPath = home;
        paths.AppDataPath = home + "/AppData";
        paths.FsPath = home + "/FS9";
        DataFolderSettings checks;
        CloudIniSettings settings;
        CloudIniFile ini(*platform.files, messages, home + "/cloud.ini");
        LoadCloudIni(services, ini, paths, {}, checks, settings);
        if (settings.Sets.size() != 1000 || messages.shown != 0)
            state.SkipWithError("the library did not load cleanly");
    }
}
BENCHMARK(BM_LoadCloudIni1000Sets)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_FindOverLibrary(benchmark::State& state)
{
    const std::string& home = Library();
    for (auto _ : state)
        if (!RunChecked(state, {"find", home + "/Texture"}, {}, true))
            break;
}
BENCHMARK(BM_FindOverLibrary)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_LoadCloudIni1000Sets", "BM_FindOverLibrary", 2.0);
    return true;
}();

} // namespace
} // namespace vellumar::bench
