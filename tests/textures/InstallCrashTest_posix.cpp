// An install killed at any step leaves every simulator file as it was or as installed, and the
// originals store then gives back the simulator folder exactly as it was before.

#include "common/OriginalsGuard.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/Install.h"
#include "textures/SimulatorOriginals.h"
#include "textures/TextureFolders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

// Every file under `folder` by its relative path, with its bytes.
std::map<std::string, std::string> Snapshot(const std::string& folder)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), folder).string()] =
                test::ReadWholeFile(entry.path().string());
    return files;
}

TEST(InstallCrash, AKillAtEveryStepLosesNoFileAndTheOriginalsComeBackExactly)
{
    test::TempFolder temp;
    temp.write("FS9/texture/cld01.bmp", "stock cloud");
    temp.write("FS9/texture/sky01.bmp", "stock sky");
    temp.write("FS9/weather/clouds/cumulus.cld", "stock cumulus");
    temp.write("FS9/suneffect.cfg", "stock sun");
    const TextList names = {"cld01.bmp", "sky01.bmp", "rain01.bmp", "cumulus.cld", "suneffect.cfg"};
    TextList sources;
    for (const std::string& name : names)
        sources.push_back(temp.write("Data/Texture/Clouds/Storm/" + name, "storm " + name));
    const TextureFolders folders{temp / "FS9", temp / "FS9/texture", temp / "Data/BackUp",
                                 temp / "Data"};
    const std::map<std::string, std::string> before = Snapshot(temp / "FS9");
    auto installed = [&](const std::string& relative) {
        return "storm " + fs::path(relative).filename().string();
    };

    bool completed = false;
    for (int killAt = 1; !completed && killAt < 200; ++killAt) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            test::TestServices fakes;
            fakes.originals.protect({folders.FsPath}, folders.DataFolder,
                                    OriginalsStore::FolderIn(folders.DataFolder));
            int step = 0;
            fakes.files.beforeChange = [&](const std::string&) {
                if (++step == killAt)
                    _exit(9); // killed before this change reaches the disk
            };
            TextureServices textures{fakes.messages, fakes.services.files, fakes.events,
                                     fakes.clock};
            _exit(CopySetFilesToSimulator(textures, folders, sources, names, "Storm") ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        completed = WEXITSTATUS(status) == 0;
        ASSERT_TRUE(completed || WEXITSTATUS(status) == 9) << "killed at " << killAt;

        test::TestServices fakes;
        RemoveInstallLeftovers(fakes.files, folders);
        for (const auto& [relative, bytes] : Snapshot(temp / "FS9")) {
            const auto old = before.find(relative);
            EXPECT_TRUE((old != before.end() && old->second == bytes) ||
                        bytes == installed(relative))
                << relative << " holds \"" << bytes << "\" after a kill at step " << killAt;
        }
        if (completed) {
            for (const std::string& name : names)
                EXPECT_EQ(
                    test::ReadWholeFile(fs::path(DestinationFolder(folders, name, false)) / name),
                    "storm " + name);
        }

        fakes.originals.protect({folders.FsPath}, folders.DataFolder,
                                OriginalsStore::FolderIn(folders.DataFolder));
        OriginalsStore& store = *fakes.originals.store();
        const OriginalsPutBack done =
            PutBackOriginals(fakes.services.files, store, CompareOriginals(fakes.files, store));
        EXPECT_TRUE(done.complete()) << "killed at " << killAt;
        EXPECT_EQ(Snapshot(temp / "FS9"), before) << "killed at " << killAt;
        // The next round starts from a simulator never touched.
        fs::remove_all(OriginalsStore::FolderIn(folders.DataFolder));
    }
    EXPECT_TRUE(completed);
}

} // namespace
} // namespace vellumar
