#include "textures/Install.h"

#include "common/Clock.h"
#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "textures/Backup.h"
#include "textures/CopyProgress.h"
#include "textures/InstallJournal.h"
#include "textures/LastInstalled.h"
#include "textures/SetCatalogue.h"

#include <algorithm>

namespace vellumar {

namespace {

std::string Ending(const std::string& name)
{
    return ToLowerAscii(name.size() >= 3 ? name.substr(name.size() - 3) : name);
}

void CutFinalLineBreak(std::string& list)
{
    if (!list.empty() && list.back() == '\n')
        list.pop_back();
}

// Shows the error of a failed placement and reports failure.
bool ReportInstallError(MessageService& messages, const std::string& detail)
{
    messages.ShowMessage(detail + "\n\nBe sure your attribute on Msfs folder and texture folder "
                                  "is in Archive attribute and not Read only.",
                         MessageStyle::OKOnly | MessageStyle::Critical, "Install Error");
    return false;
}

// One file into the simulator, never leaving the target missing or half written.
bool PlaceFile(TextureServices& services, const std::string& source, const std::string& target)
{
    std::string blockedBy;
    switch (ReplaceFileWith(services.files, source, target, &blockedBy)) {
    case ReplaceResult::Replaced:
        return true;
    case ReplaceResult::TargetLocked:
        return ReportInstallError(services.messages,
                                  "Could not kill the using files.\n" + blockedBy);
    case ReplaceResult::Refused:
        services.messages.ShowMessage("Could not install " + target + ".\n" + blockedBy +
                                          "\n\nIs the data folder's disk full, or not writable?",
                                      MessageStyle::OKOnly | MessageStyle::Critical,
                                      "Install Error");
        return false;
    case ReplaceResult::CopyFailed:
        break;
    }
    return ReportInstallError(services.messages,
                              "Could not copy the files.\nFrom: " + source + "\nTo  : " + target);
}

struct Collected {
    std::string installList, notFoundList, noBackupList, cannotBackupList;
    TextList sources, names, noBackupNames;
};

void Collect(FileOperations& files, const TextureFolders& folders, const TickList& list,
             const std::string& setFolder, bool backupOriginals, Collected& collected)
{
    for (const auto& [item, ticked] : list) {
        if (!ticked)
            continue;
        const std::string source = JoinPath(setFolder, item);
        if (!IsError(FileExists(files, source))) {
            collected.installList += " " + item + "\n";
            collected.sources.push_back(source);
            collected.names.push_back(item);
        } else {
            collected.notFoundList += " " + item + "\n";
        }
        if (backupOriginals && !BackupExists(files, folders, item)) {
            collected.noBackupList += " " + item + "\n";
            collected.noBackupNames.push_back(item);
        }
    }
}

} // namespace

std::string DestinationFolder(const TextureFolders& folders, const std::string& name,
                              bool effectsInstall)
{
    const std::string ending = Ending(name);
    if (ending == "cld" || ending == "xml")
        return JoinPath(JoinPath(folders.FsPath, "weather"), "clouds");
    if (ending == "cfg")
        return folders.FsPath;
    if (ending == ".fx")
        return JoinPath(folders.FsPath, "effects");
    if (ending == "bmp" && effectsInstall)
        return JoinPath(JoinPath(folders.FsPath, "effects"), "texture");
    return folders.FsTexturePath;
}

TextList InstallTargets(const TextureFolders& folders, const TextList& names)
{
    const bool effectsInstall = std::any_of(
        names.begin(), names.end(), [](const std::string& name) { return Ending(name) == ".fx"; });
    TextList targets;
    targets.reserve(names.size());
    for (const std::string& name : names)
        targets.push_back(JoinPath(DestinationFolder(folders, name, effectsInstall), name));
    return targets;
}

TextList FoldersInstallsWrite(const TextureFolders& folders)
{
    const std::string effects = JoinPath(folders.FsPath, "effects");
    return {folders.FsPath,
            JoinPath(JoinPath(folders.FsPath, "weather"), "clouds"),
            effects,
            JoinPath(effects, "texture"),
            folders.FsTexturePath,
            folders.BackupFolder};
}

TextList RemoveInstallLeftovers(FileOperations& files, const TextureFolders& folders)
{
    TextList removed;
    for (const std::string& folder : FoldersInstallsWrite(folders))
        for (std::string& path : RemoveLeftoverTemporaries(files, folder))
            removed.push_back(std::move(path));
    return removed;
}

bool CopySetFilesToSimulator(TextureServices& services, const TextureFolders& folders,
                             const TextList& sources, const TextList& names,
                             const std::string& setName)
{
    if (sources.empty())
        return true;
    // A copy killed half way (the power, kill -9) left its temporary file; a big set's can
    // run to hundreds of megabytes.
    RemoveInstallLeftovers(services.files, folders);
    const TextList targets = InstallTargets(folders, names);
    InstallJournal journal{setName, {}};
    for (std::size_t i = 0; i < sources.size(); ++i)
        journal.files.emplace_back(sources[i], targets[i]);
    // The journal tells the next start about an install that never came to its end; without a
    // data folder (or a writable one) the install goes on, its originals kept all the same.
    const std::string journalPath =
        folders.DataFolder.empty() ? std::string() : InstallJournalPath(folders.DataFolder);
    const bool journalled =
        !journalPath.empty() && WriteInstallJournal(services.files, journalPath, journal);
    bool placed = true;
    {
        CopyProgress progress(services, sources);
        for (std::size_t i = 0; i < sources.size() && placed; ++i) {
            progress.Starting(i, names[i]);
            placed = PlaceFile(services, sources[i], journal.files[i].second);
        }
    }
    if (journalled)
        services.files.deleteFile(journalPath);
    return placed;
}

InstallOutcome InstallTextureSet(TextureServices& services, const TextureFolders& folders,
                                 const InstallRequest& request, LastInstalledRecord& record)
{
    services.showStatus(request.hideSetName ? std::string() : request.setName);
    InstallOutcome outcome;
    if (request.autoRandomRunning)
        outcome.lastInstallTime = services.clock.now();
    if (request.cloudFiles.empty() && request.optionFiles.empty())
        return outcome;
    const std::string setName = request.hideSetName ? "Random Texture set" : request.setName;

    Collected collected;
    Collect(services.files, folders, request.cloudFiles, request.cloudSetFolder,
            request.backupOriginals, collected);
    Collect(services.files, folders, request.optionFiles, request.optionSetFolder,
            request.backupOriginals, collected);
    CutFinalLineBreak(collected.installList);
    CutFinalLineBreak(collected.notFoundList);
    CutFinalLineBreak(collected.noBackupList);

    if (request.backupOriginals && !collected.noBackupList.empty()) {
        int answer = MessageResult::Yes;
        if (!request.autoRandomRunning)
            answer = services.messages.ShowMessage(
                "*** " + setName +
                    " ***\n\nFollowing backup files are not found.\n"
                    "Try to backup these files again?\n" +
                    collected.noBackupList,
                MessageStyle::YesNo | MessageStyle::Exclamation, "No Backup files");
        if (answer == MessageResult::Yes) {
            MakeFolderPath(services.files, folders.BackupFolder);
            for (const std::string& name : collected.noBackupNames) {
                const std::string original = JoinPath(folders.FsTexturePath, name);
                if (IsOK(FileExists(services.files, original)))
                    CopyToBackup(services, original, JoinPath(folders.BackupFolder, name), false,
                                 false);
                else
                    collected.cannotBackupList += " " + name + "\n";
            }
        }
    }
    CutFinalLineBreak(collected.cannotBackupList);

    std::string partA, partB, partC;
    if (!collected.installList.empty())
        partA = "Texture set from above will be installed.";
    if (!collected.notFoundList.empty())
        partB = (partA.empty() ? "Following to be installed files not found."
                               : "And following to be installed files not found.") +
                std::string("\n") + collected.notFoundList;
    if (request.backupOriginals && !collected.cannotBackupList.empty())
        partC = (partA.empty() && partB.empty()
                     ? "Following files can not be backuped.(No files in Texture folder.)"
                     : "And following files is not backuped.") +
                std::string("\n") + collected.cannotBackupList;

    std::string body;
    for (const std::string* part : {&partA, &partB, &partC})
        if (!part->empty())
            body += (body.empty() ? "" : "\n\n") + *part;
    int type = MessageStyle::OKCancel | MessageStyle::Information;
    if (!partB.empty())
        type = MessageStyle::OKCancel | MessageStyle::Critical;
    else if (!partC.empty())
        type = MessageStyle::OKCancel | MessageStyle::Exclamation;

    if (request.ask && !request.autoRandomRunning) {
        const int answer = services.messages.ShowMessage("*** " + setName + " ***\n\n" + body, type,
                                                         "Installation");
        if (answer == MessageResult::Cancel)
            return outcome;
    }

    const std::string dataType =
        GetSetDataType(services.files, services.events, request.cloudSetFolder);
    if (CopySetFilesToSimulator(services, folders, collected.sources, collected.names, setName)) {
        record.AddLastInstalled(setName, dataType);
        outcome.installed = true;
    } else {
        outcome.stopAutoRandom = true;
    }
    if (!request.autoRandomRunning)
        services.showStatus(request.hideSetName ? "Press Install Button." : request.setName);
    return outcome;
}

} // namespace vellumar
