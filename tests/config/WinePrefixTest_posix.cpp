// The Linux side of the registry and the system folders: a Wine prefix built by the test.

#include "config/Registry.h"
#include "config/SystemFolders.h"
#include "config/WinePrefix.h"
#include "config/clsRegRead.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

class WinePrefixTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    std::string prefix = temp.makeFolder("prefix");
    test::ScopedEnvironment winePrefix{"WINEPREFIX", prefix};
    test::ScopedEnvironment user{"USER", "pilot"};

    void makePrefix()
    {
        temp.makeFolder("prefix/drive_c/windows/system32");
        temp.makeFolder("prefix/drive_c/users/pilot/Documents");
        temp.makeFolder("prefix/drive_c/users/pilot/AppData/Roaming");
        temp.makeFolder("prefix/drive_c/users/Public");
        temp.makeFolder("prefix/dosdevices");
        temp.makeFolder("elsewhere");
        fs::create_directory_symlink("../drive_c", temp / "prefix/dosdevices/c:");
        fs::create_directory_symlink(temp / "elsewhere", temp / "prefix/dosdevices/d:");
        temp.write("prefix/system.reg",
                   "WINE REGISTRY Version 2\n"
                   "[Software\\\\Wow6432Node\\\\Microsoft\\\\Microsoft Games\\\\Flight "
                   "Simulator\\\\9.0] 1\n"
                   "\"EXE Path\"=\"C:\\\\Program Files (x86)\\\\FS9\"\n"
                   "[Software\\\\Vellumar\\\\Test] 1\n"
                   "\"Sound\"=str(2):\"%SystemRoot%\\\\Media\\\\ding.wav\"\n");
        temp.write("prefix/userdef.reg", "WINE REGISTRY Version 2\n"
                                         "[AppEvents\\\\Schemes\\\\Apps\\\\.Default\\\\"
                                         "SystemHand\\\\.Current] 1\n"
                                         "@=\"C:\\\\windows\\\\media\\\\chord.wav\"\n");
    }
};

TEST_F(WinePrefixTest, RegistryReadsThePrefixFilesWithThe32BitViewAsFallback)
{
    makePrefix();
    const auto registry = CreatePlatformRegistry();
    EXPECT_EQ(registry->readString(RegistryHive::LocalMachine,
                                   "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0",
                                   "EXE Path"),
              "C:\\Program Files (x86)\\FS9");
    EXPECT_EQ(registry->readString(RegistryHive::Users,
                                   ".DEFAULT\\AppEvents\\Schemes\\Apps\\.Default\\SystemHand\\."
                                   "Current",
                                   ""),
              "C:\\windows\\media\\chord.wav");
    EXPECT_EQ(registry->readString(RegistryHive::Users, "S-1-5-21\\AppEvents", ""), std::nullopt);
    EXPECT_EQ(registry->readString(RegistryHive::CurrentUser, "Software", "x"), std::nullopt);
}

TEST_F(WinePrefixTest, FolderValuesMapIntoThePrefix)
{
    makePrefix();
    const auto registry = CreatePlatformRegistry();
    clsRegRead reader(*registry, prefix + "/drive_c/windows");
    reader.KeyPath = "Software\\Microsoft\\Microsoft Games\\Flight Simulator";
    reader.SubKey = "9.0";
    reader.ValueName = "EXE Path";
    reader.AsHostPath = true;
    EXPECT_EQ(reader.RegData(),
              fs::canonical(prefix + "/drive_c").string() + "/Program Files (x86)/FS9");

    clsRegRead sound(*registry, prefix + "/drive_c/windows");
    sound.KeyPath = "Software\\Vellumar";
    sound.SubKey = "Test";
    sound.ValueName = "Sound";
    EXPECT_EQ(sound.RegData(), prefix + "/drive_c/windows\\Media\\ding.wav");
}

TEST_F(WinePrefixTest, DriveLettersFollowTheDosDevicesLinks)
{
    makePrefix();
    const std::string driveC = fs::canonical(prefix + "/drive_c").string();
    EXPECT_EQ(WinePrefix::HostPath(prefix, "c:\\Games\\FS9\\"), driveC + "/Games/FS9");
    EXPECT_EQ(WinePrefix::HostPath(prefix, "D:\\Library"),
              fs::canonical(temp / "elsewhere").string() + "/Library");
    EXPECT_EQ(WinePrefix::HostPath(prefix, "C:"), driveC);
    EXPECT_EQ(WinePrefix::HostPath(prefix, "relative\\path"), "relative/path");

    // And back, as the simulator is to read it: the deepest drive holding the path, else Z:.
    fs::create_directory_symlink("/", temp / "prefix/dosdevices/z:");
    EXPECT_EQ(WinePrefix::WindowsPath(prefix, driveC + "/Games/FS9/a b.FLT"),
              "C:\\Games\\FS9\\a b.FLT");
    EXPECT_EQ(WinePrefix::WindowsPath(prefix, temp / "elsewhere/Library"), "D:\\Library");
    const std::string outside = fs::canonical(temp.makeFolder("outside")).string() + "/x.FLT";
    std::string expected = "Z:" + outside;
    std::replace(expected.begin(), expected.end(), '/', '\\');
    EXPECT_EQ(WinePrefix::WindowsPath(prefix, outside), expected);
    // Without dosdevices, C: is still drive_c and Z: the root.
    fs::remove_all(prefix + "/dosdevices");
    EXPECT_EQ(WinePrefix::HostPath(prefix, "C:\\x"), prefix + "/drive_c/x");
    EXPECT_EQ(WinePrefix::HostPath(prefix, "Z:\\tmp\\x"), "/tmp/x");
    EXPECT_EQ(WinePrefix::WindowsPath(prefix, prefix + "/drive_c/x"), "C:\\x");
}

TEST_F(WinePrefixTest, SystemFoldersComeFromThePrefixUser)
{
    makePrefix();
    const auto folders = CreatePlatformSystemFolders();
    EXPECT_EQ(folders->windowsFolder(), prefix + "/drive_c/windows");
    EXPECT_EQ(folders->documentsFolder(), prefix + "/drive_c/users/pilot/Documents");
    EXPECT_EQ(folders->appDataFolder(), prefix + "/drive_c/users/pilot/AppData/Roaming");
}

TEST_F(WinePrefixTest, OlderProfileFolderNamesAndAnotherAccountsPrefix)
{
    temp.makeFolder("prefix/drive_c/Windows");
    temp.makeFolder("prefix/drive_c/users/builder/My Documents");
    temp.makeFolder("prefix/drive_c/users/builder/Application Data");
    temp.makeFolder("prefix/drive_c/users/Public/Documents");
    const auto folders = CreatePlatformSystemFolders();
    EXPECT_EQ(folders->windowsFolder(), prefix + "/drive_c/Windows");
    EXPECT_EQ(folders->documentsFolder(), prefix + "/drive_c/users/builder/My Documents");
    EXPECT_EQ(folders->appDataFolder(), prefix + "/drive_c/users/builder/Application Data");
}

TEST_F(WinePrefixTest, ABrokenPrefixGivesEmptyFoldersNotGuesses)
{
    const auto folders = CreatePlatformSystemFolders();
    EXPECT_EQ(folders->windowsFolder(), "");
    EXPECT_EQ(folders->documentsFolder(), "");
    EXPECT_EQ(folders->appDataFolder(), "");
    const auto registry = CreatePlatformRegistry();
    EXPECT_EQ(registry->readString(RegistryHive::LocalMachine, "Software", "x"), std::nullopt);
}

TEST(SystemFoldersWithoutPrefix, XdgFoldersAndTheRootAsWindowsFolder)
{
    test::TempFolder home;
    home.makeFolder("Dokumente");
    home.write(".config/user-dirs.dirs", "# written by xdg-user-dirs-update\n"
                                         "XDG_DESKTOP_DIR=\"$HOME/Desktop\"\n"
                                         "XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    ::unsetenv("WINEPREFIX");
    test::ScopedEnvironment homeVariable("HOME", home.path());
    test::ScopedEnvironment config("XDG_CONFIG_HOME", home / ".config");
    const auto folders = CreatePlatformSystemFolders();
    EXPECT_EQ(folders->windowsFolder(), "/");
    EXPECT_EQ(folders->documentsFolder(), home / "Dokumente");
    EXPECT_EQ(folders->appDataFolder(), home / ".config");
}

// The test program's folder holds no cloud.ini, as an installed program's folder does not.
TEST(SystemFoldersWithoutPrefix, ProgramFolderIsVellumarHomeElseTheUsersDataFolder)
{
    const auto folders = CreatePlatformSystemFolders();
    test::ScopedEnvironment home("HOME", "/home/pilot");
    {
        test::ScopedEnvironment vellumarHome("VELLUMAR_HOME", "/opt/vellumar-demo");
        EXPECT_EQ(folders->programFolder(), "/opt/vellumar-demo");
        EXPECT_EQ(folders->programFolderChoice().rule, ProgramFolderRule::Environment);
    }
    test::ScopedEnvironment vellumarHome("VELLUMAR_HOME", std::nullopt);
    {
        test::ScopedEnvironment dataHome("XDG_DATA_HOME", std::nullopt);
        EXPECT_EQ(folders->programFolder(), "/home/pilot/.local/share/vellumar");
        EXPECT_EQ(folders->programFolderChoice().rule, ProgramFolderRule::UserDataFolder);
    }
    test::ScopedEnvironment dataHome("XDG_DATA_HOME", "/data/pilot/");
    EXPECT_EQ(folders->programFolder(), "/data/pilot/vellumar");
}

} // namespace
} // namespace vellumar
