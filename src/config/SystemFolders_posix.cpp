// System folders on Linux: those of the Wine prefix when there is one, else the desktop's own.

#include "common/TextCompare.h"
#include "config/SystemFolders.h"
#include "config/WinePrefix.h"

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace vellumar {

namespace fs = std::filesystem;

namespace {

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool IsFolder(const fs::path& path)
{
    std::error_code error;
    return !path.empty() && fs::is_directory(path, error);
}

// The first of `names` that exists below `folder`, in any letter case.
std::string FirstExisting(const fs::path& folder, std::initializer_list<const char*> names)
{
    std::error_code error;
    for (const char* name : names) {
        if (IsFolder(folder / name))
            return (folder / name).string();
        for (fs::directory_iterator it(folder, error), end; !error && it != end;
             it.increment(error))
            if (EqualsIgnoreCase(it->path().filename().string(), name) && IsFolder(it->path()))
                return it->path().string();
    }
    return {};
}

// $XDG_DOCUMENTS_DIR as the desktop records it in user-dirs.dirs.
std::string XdgDocumentsFolder(const std::string& home, const std::string& configHome)
{
    std::ifstream dirs(configHome + "/user-dirs.dirs");
    std::string line;
    while (std::getline(dirs, line)) {
        constexpr std::string_view key = "XDG_DOCUMENTS_DIR=";
        if (!line.starts_with(key))
            continue;
        std::string value = line.substr(key.size());
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
            value = value.substr(1, value.size() - 2);
        if (value.starts_with("$HOME"))
            value = home + value.substr(5);
        if (IsFolder(value))
            return value;
    }
    if (IsFolder(fs::path(home) / "Documents"))
        return home + "/Documents";
    return home;
}

class PosixSystemFolders final : public SystemFolders {
public:
    ProgramFolderChoice programFolderChoice() override
    {
        ProgramFolderFacts facts;
        facts.vellumarHome = Environment("VELLUMAR_HOME");
        std::error_code error;
        const fs::path executable = fs::read_symlink("/proc/self/exe", error);
        if (!error)
            facts.executableFolder = executable.parent_path().string();
        facts.executableFolderHoldsIni =
            !facts.executableFolder.empty() &&
            fs::exists(fs::path(facts.executableFolder) / "cloud.ini", error);
        facts.usesUserDataFolder = true;
        facts.xdgDataHome = Environment("XDG_DATA_HOME");
        facts.home = Environment("HOME");
        return ChooseProgramFolder(facts);
    }

    std::string sharedDataFolder() override
    {
        std::error_code error;
        const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
        if (error)
            return {};
        const fs::path shared = folder.parent_path() / "share" / "vellumar";
        return IsFolder(shared) ? shared.string() : folder.string();
    }

    std::string windowsFolder() override
    {
        const std::string prefix = WinePrefix::Location();
        if (!usesPrefix(prefix))
            return "/";
        return FirstExisting(fs::path(prefix) / "drive_c", {"windows"});
    }

    std::string documentsFolder() override
    {
        const std::string prefix = WinePrefix::Location();
        if (!usesPrefix(prefix)) {
            const std::string home = Environment("HOME");
            return home.empty() ? std::string() : XdgDocumentsFolder(home, configHome(home));
        }
        const std::string profile = WinePrefix::UserProfileFolder(prefix);
        return profile.empty() ? std::string()
                               : FirstExisting(profile, {"Documents", "My Documents"});
    }

    std::string appDataFolder() override
    {
        const std::string prefix = WinePrefix::Location();
        if (!usesPrefix(prefix)) {
            const std::string home = Environment("HOME");
            return home.empty() ? std::string() : configHome(home);
        }
        const std::string profile = WinePrefix::UserProfileFolder(prefix);
        if (profile.empty())
            return {};
        if (std::string roaming = FirstExisting(fs::path(profile) / "AppData", {"Roaming"});
            !roaming.empty())
            return roaming;
        return FirstExisting(profile, {"Application Data"});
    }

private:
    // A prefix named by $WINEPREFIX is used even when it is broken, so that the user sees
    // which folders are missing; the default ~/.wine only when it exists.
    static bool usesPrefix(const std::string& prefix)
    {
        return !Environment("WINEPREFIX").empty() || WinePrefix::Exists(prefix);
    }

    static std::string configHome(const std::string& home)
    {
        const std::string configured = Environment("XDG_CONFIG_HOME");
        return configured.empty() ? home + "/.config" : configured;
    }
};

} // namespace

std::unique_ptr<SystemFolders> CreatePlatformSystemFolders()
{
    return std::make_unique<PosixSystemFolders>();
}

} // namespace vellumar
