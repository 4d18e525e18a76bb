#include "app/UserProgramFolder.h"

#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ProcessIdentity.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "config/CloudIniSchema.h"
#include "config/ProgramPaths.h"

#include <string_view>
#include <vector>

namespace vellumar {

namespace {

namespace keys = CloudIniKeys;

constexpr std::string_view kBuildingPrefix = ".vellumar-new-";

bool Exists(FileOperations& files, const std::string& path)
{
    return files.kindOf(path) != PathKind::Missing;
}

// Copies every file of the tree `from` into `to` that is not there yet; "" or the path that
// failed.
std::string CopyMissing(FileOperations& files, const std::string& from, const std::string& to)
{
    if (!files.createFolders(to))
        return to;
    std::vector<DirectoryEntry> entries;
    if (!files.search(JoinPath(from, "*"), [&entries](const DirectoryEntry& entry) {
            if (entry.name != "." && entry.name != "..")
                entries.push_back(entry);
            return true;
        }))
        return from;
    for (const DirectoryEntry& entry : entries) {
        const std::string source = JoinPath(from, entry.name);
        const std::string target = JoinPath(to, entry.name);
        if (entry.isDirectory) {
            if (std::string failed = CopyMissing(files, source, target); !failed.empty())
                return failed;
        } else if (!Exists(files, target) && !files.copyFile(source, target)) {
            return target;
        }
    }
    return {};
}

// The folders the start-up looks for, by the defaults of the commented cloud.ini.
std::vector<std::string> DataFolders(const std::string& folder)
{
    const IniFolders folders{folder, folder};
    std::vector<std::string> list{JoinPath(folder, "Texture"),
                                  IniDefaultPath(keys::SplashPath, folders),
                                  IniDefaultPath(keys::SituationLoc, folders)};
    for (int channel = 1; channel <= keys::SoundChannelPath.last; ++channel)
        list.push_back(IniDefaultPath(keys::SoundChannelPath, folders, channel));
    return list;
}

// Fills `folder` from the shipped files; "" or what went wrong.
std::string Fill(FileOperations& files, const std::string& folder, const std::string& shared)
{
    const std::string starter = JoinPath(shared, kStarterFolderName);
    if (files.kindOf(starter) != PathKind::Folder)
        return "the starter files are missing: " + starter;
    const std::string defaultIni = JoinPath(shared, "cloud.ini");
    if (files.kindOf(defaultIni) != PathKind::File)
        return "the default cloud.ini is missing: " + defaultIni;
    if (const std::string failed = CopyMissing(files, starter, folder); !failed.empty())
        return "could not write " + failed;
    for (const std::string& data : DataFolders(folder))
        if (IsError(MakeFolderPath(files, data)))
            return "could not make " + data;
    // Last: with cloud.ini there the folder counts as made.
    const std::string ini = JoinPath(folder, "cloud.ini");
    if (!files.copyFile(defaultIni, ini))
        return "could not write " + ini;
    return {};
}

// Folders a killed first start left beside the program folder.
void RemoveAbandonedBuilds(FileOperations& files, const std::string& parent)
{
    std::vector<std::string> abandoned;
    files.search(JoinPath(parent, std::string(kBuildingPrefix) + "*"),
                 [&abandoned](const DirectoryEntry& entry) {
                     const auto process = ProcessNameOwner(entry.name, kBuildingPrefix);
                     if (entry.isDirectory && process && !IsProcessRunning(*process))
                         abandoned.push_back(entry.name);
                     return true;
                 });
    for (const std::string& name : abandoned)
        files.deleteTree(JoinPath(parent, name));
}

} // namespace

UserProgramFolderResult MakeUserProgramFolder(FileOperations& files,
                                              const std::string& programFolder,
                                              const std::string& sharedDataFolder)
{
    UserProgramFolderResult result;
    if (files.kindOf(JoinPath(programFolder, "cloud.ini")) != PathKind::Missing)
        return result; // ready, or broken in a way the start-up names itself

    if (Exists(files, programFolder)) {
        // A folder of the user's (cloud.ini deleted, say): only what is missing is added.
        result.problem = Fill(files, programFolder, sharedDataFolder);
        result.created = result.problem.empty();
        return result;
    }

    const std::string parent = FolderOfPath(TrimTrailingBackslash(programFolder));
    if (!files.createFolders(parent)) {
        result.problem = "could not make " + parent;
        return result;
    }
    RemoveAbandonedBuilds(files, parent);
    const std::string building =
        JoinPath(parent, std::string(kBuildingPrefix) + std::to_string(CurrentProcessId()) + "-1");
    files.deleteTree(building); // an earlier process of the same id
    result.problem = Fill(files, building, sharedDataFolder);
    if (result.problem.empty() && !files.moveFile(building, programFolder)) {
        // Another program made it meanwhile; that one counts.
        if (files.kindOf(JoinPath(programFolder, "cloud.ini")) != PathKind::File)
            result.problem = "could not rename " + building + " to " + programFolder;
        files.deleteTree(building);
        return result;
    }
    if (!result.problem.empty())
        files.deleteTree(building);
    result.created = result.problem.empty();
    return result;
}

std::string UserProgramFolderWelcomeText(const std::string& programFolder)
{
    // Short lines: the message box shows about fifty characters a line.
    return "Welcome to Vellumar.\n"
           "\n"
           "Your sets and settings (cloud.ini) live in\n" +
           programFolder +
           "\n"
           "\n"
           "It starts with one set, \"My first set\".\n"
           "To add more, drop an archive or a folder on\n"
           "the window, choose Add Texture Set... in the\n"
           "Option menu, or run\n"
           "  vellumar-cli import SOURCE";
}

StartUpOutcome PrepareUserProgramFolder(Services& services, const ProgramPaths& paths,
                                        ProgramFolderRule rule)
{
    if (rule != ProgramFolderRule::UserDataFolder)
        return StartUpOutcome::Continue;
    const UserProgramFolderResult result =
        MakeUserProgramFolder(services.files, paths.ProgramPath, paths.SharedDataPath);
    if (!result.problem.empty()) {
        services.messages.ShowMessage("Vellumar could not make its folder\n" + paths.ProgramPath +
                                          "\n" + result.problem + ".",
                                      MessageStyle::OKOnly | MessageStyle::Critical, "No ini File");
        return StartUpOutcome::EndProgram;
    }
    if (result.created)
        services.messages.ShowMessage(UserProgramFolderWelcomeText(paths.ProgramPath),
                                      MessageStyle::OKOnly | MessageStyle::Information, "Vellumar");
    return StartUpOutcome::Continue;
}

} // namespace vellumar
