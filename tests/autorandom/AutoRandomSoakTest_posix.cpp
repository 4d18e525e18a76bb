// Ten thousand AutoRandom installs through a test clock, with real copies into a simulator
// folder: what a long flight does to memory, the simulator's folders and the record.

#include "app/AutoRandomSelection.h"
#include "autorandom/AutoRandomTimer.h"
#include "autorandom/PickRandomSet.h"
#include "common/FileOperations.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/SetCatalogue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

namespace vellumar {
namespace {

long ResidentKilobytes()
{
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

TEST(AutoRandomSoak, TenThousandInstallsKeepMemoryFoldersAndTheRecordInBounds)
{
    namespace fs = std::filesystem;
    test::TempFolder temp;
    test::TestServices fakes;
    constexpr int kSets = 20;
    AutoRandomSelection selection;
    std::vector<std::string> folders;
    for (int set = 0; set < kSets; ++set) {
        const std::string folder = "Texture/Clouds/Set " + std::to_string(set);
        folders.push_back(temp.makeFolder(folder));
        // Sets 5 and 12 have lost their files: their installs fail, the rotation goes on.
        if (set != 5 && set != 12)
            temp.write(folder + "/cld0" + std::to_string(set % 3) + ".bmp",
                       "set " + std::to_string(set));
        selection.flags.push_back(set % 4 != 3); // 15 of the 20 take part
    }
    temp.makeFolder("FS9/texture");
    const TextureFolders simulator{temp / "FS9", temp / "FS9/texture", temp / "BackUp",
                                   temp.path()};

    std::mt19937_64 engine(7);
    RandomSetPicker picker(
        [&engine] { return std::uniform_real_distribution<double>(0.0, 1.0)(engine); });
    LastInstalledRecord record({}, 5);
    TextureServices textures{fakes.messages, fakes.files, fakes.events, fakes.clock};
    AutoRandomSteps steps(fakes.clock, fakes.events, picker, selection);
    steps.setName = [](int set) { return "Set " + std::to_string(set); };
    steps.install = [&](int set) {
        InstallRequest request;
        request.setName = steps.setName(set);
        request.cloudSetFolder = folders[static_cast<std::size_t>(set)];
        for (const std::string& file :
             ListSetFiles(ScanSetFolder(fakes.files, fakes.events, request.cloudSetFolder)))
            request.cloudFiles.emplace_back(file, true);
        request.autoRandomRunning = true;
        return InstallTextureSet(textures, simulator, request, record).installed;
    };
    AutoRandomRun run;
    run.AutoRandomInterval = 0.5;
    run.LastInstallTime = fakes.clock.now() - std::chrono::seconds(30);

    int current = 0, previous = -1, installs = 0, failures = 0;
    long residentAtThousand = 0;
    while (installs < 10000) {
        const AutoRandomTick tick = Timer1_Timer(run, steps, current);
        fakes.clock.advance(std::chrono::seconds(1));
        if (tick.installedSet < 0)
            continue;
        ++installs;
        failures += tick.installOk ? 0 : 1;
        ASSERT_TRUE(selection.flags[static_cast<std::size_t>(tick.installedSet)]) << installs;
        ASSERT_NE(tick.installedSet, previous) << installs;
        EXPECT_EQ(tick.installOk, tick.installedSet != 5 && tick.installedSet != 12);
        previous = tick.installedSet;
        if (installs == 1000)
            residentAtThousand = ResidentKilobytes();
    }
    const long growth = ResidentKilobytes() - residentAtThousand;
    RecordProperty("resident_growth_kb", static_cast<int>(growth));
#ifndef __SANITIZE_ADDRESS__
    // AddressSanitizer keeps freed memory in quarantine on purpose: there, growth says nothing.
    EXPECT_LT(growth, 2048);
#endif
    EXPECT_GT(failures, 100);
    EXPECT_LE(static_cast<int>(record.entries().size()), record.limit());
    for (const auto& entry : fs::recursive_directory_iterator(temp / "FS9"))
        EXPECT_FALSE(entry.path().filename().string().starts_with(".vellumar-")) << entry.path();
}

} // namespace
} // namespace vellumar
