#include "app/FsDiscovery.h"

#include "common/FileHelpers.h"
#include "common/FolderBrowser.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "config/ConfiguredPath.h"
#include "config/ProgramPaths.h"
#include "config/clsRegRead.h"

namespace vellumar {

namespace {

// The folder browser's tree starts at the desktop.
constexpr int kBrowseRootDesktop = 0;

bool HoldsSimulator(Services& services, const std::string& folder)
{
    return !folder.empty() && IsOK(FileExists(services.files, JoinPath(folder, kFsExeName)));
}

std::string FromRegistry(Services& services, const ProgramPaths& paths)
{
    clsRegRead reader(services.registry, paths.WindowsPath);
    reader.RootHive = RegistryHive::LocalMachine;
    reader.KeyPath = "Software\\Microsoft\\Microsoft Games\\Flight Simulator";
    reader.SubKey = "9.0";
    reader.ValueName = "EXE Path";
    reader.AsHostPath = true;
    return TrimTrailingBackslash(reader.RegData());
}

} // namespace

DiscoveryOutcome FindFsFolder(Services& services, CloudIniFile& ini, ProgramPaths& paths)
{
    paths.FsRegPath = FromRegistry(services, paths);
    paths.FsExeNames[0] = kFsExeName;

    // A registry entry left behind by an uninstalled simulator is no use either.
    if (!HoldsSimulator(services, paths.FsRegPath)) {
        std::string kept;
        if (IsOK(FileExists(services.files, ini.path()))) {
            const std::string value(
                TrimBlanks(ReadIniText(ini, CloudIniKeys::FsPath).value_or("")));
            if (!value.empty())
                kept = ConfiguredPath(value, paths.ProgramPath, services.registry);
        }
        if (HoldsSimulator(services, kept)) {
            paths.FsRegPath = kept;
        } else {
            std::string chosen;
            do {
                chosen = TrimTrailingBackslash(services.folderBrowser.BrowseForFolder(
                    "Vellumar can't get FS2004 Path.\nPlease select FS2004 Path.",
                    kBrowseRootDesktop, kept));
                if (chosen.empty()) {
                    services.messages.ShowMessage("No FS2004 is installed.", MessageStyle::OKOnly,
                                                  "No FS");
                    return DiscoveryOutcome::EndProgram;
                }
            } while (!HoldsSimulator(services, chosen));
            paths.FsRegPath = chosen;
            ini.Write(std::string(CloudIniKeys::FsPath.section),
                      std::string(CloudIniKeys::FsPath.key), chosen);
        }
    }
    paths.FsPaths[0] = paths.FsRegPath;
    paths.FsUserFolder = JoinPath(JoinPath(paths.AppDataPath, "Microsoft"), "FS9");
    paths.FsFilesFolder = JoinPath(paths.MyDocumentsPath, "Flight Simulator Files");
    paths.FsIndex = paths.FsRegPath.empty() ? 1 : 0;
    return DiscoveryOutcome::Found;
}

} // namespace vellumar
