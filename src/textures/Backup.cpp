#include "textures/Backup.h"

#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "textures/CopyProgress.h"

#include <unordered_set>

namespace vellumar {

bool BackupExists(FileOperations& files, const TextureFolders& folders, const std::string& name)
{
    return IsOK(FileExists(files, JoinPath(folders.BackupFolder, name)));
}

bool CopyToBackup(TextureServices& services, const std::string& source, const std::string& target,
                  bool compare, bool ask)
{
    FileOperations& files = services.files;
    if (IsError(FileExists(files, source)))
        return true;
    const bool present = !IsError(FileExists(files, target));
    if (present && (!compare || files.modificationTime(source) == files.modificationTime(target)))
        return true; // the first backup of a name wins
    // Without the shell's questions the copy goes through a temporary file, so that not even a
    // first backup, which is never replaced, can be left half written.
    const bool copied = present && ask ? ShellFileOperation(files, services.messages, source,
                                                            target, ShellOperation::Copy, true)
                                       : ReplaceFileWithCopy(files, source, target);
    if (!copied)
        services.messages.ShowMessage("Backup file Error!! FileName : " + LastPathComponent(target),
                                      MessageStyle::Critical, "File Copy Error");
    return copied;
}

bool BackupFileList(TextureServices& services, const TextureFolders& folders, const TextList& names,
                    bool compare, bool ask)
{
    TextList originals;
    originals.reserve(names.size());
    for (const std::string& name : names)
        originals.push_back(JoinPath(folders.FsTexturePath, name));
    CopyProgress progress(services, originals);
    for (std::size_t i = 0; i < names.size(); ++i) {
        progress.Starting(i, names[i]);
        if (!CopyToBackup(services, originals[i], JoinPath(folders.BackupFolder, names[i]), compare,
                          ask))
            return false;
    }
    return true;
}

void BackupSelectedFiles(TextureServices& services, const TextureFolders& folders,
                         const TickList& cloudFiles, const TickList& optionFiles)
{
    TextList toBackUp;
    std::string notFound;
    for (const TickList* list : {&cloudFiles, &optionFiles})
        for (const auto& [item, ticked] : *list) {
            if (!ticked)
                continue;
            if (IsOK(FileExists(services.files, JoinPath(folders.FsTexturePath, item))))
                toBackUp.push_back(item);
            else
                notFound += " " + item + "\n";
        }
    if (!notFound.empty())
        notFound.pop_back();
    MakeFolderPath(services.files, folders.BackupFolder);
    BackupFileList(services, folders, toBackUp, false, false);
    if (!notFound.empty())
        services.messages.ShowMessage("Following files are not found in the Texture Folder.\n" +
                                          notFound,
                                      MessageStyle::OKOnly, "Backup files");
}

bool RebackupAll(TextureServices& services, const TextureFolders& folders, bool compare, bool ask)
{
    if (IsError(FolderExists(services.files, folders.BackupFolder)))
        MakeFolderPath(services.files, folders.BackupFolder);
    TextList everything;
    ListFilesInTree(services.files, services.events, JoinPath(folders.DataFolder, "Texture"), "*.*",
                    everything);
    std::unordered_set<std::string> seen;
    TextList originals;
    for (const std::string& path : everything) {
        const std::string name = LastPathComponent(path);
        if (seen.insert(ToLowerAscii(name)).second &&
            !IsError(FileExists(services.files, JoinPath(folders.FsTexturePath, name))))
            originals.push_back(name);
    }
    return BackupFileList(services, folders, originals, compare, ask);
}

void mnuBkAll_Click(TextureServices& services, const TextureFolders& folders,
                    const std::function<void()>& beep)
{
    if (!RebackupAll(services, folders, true, false))
        services.messages.ShowMessage("Re-backup procedure was failed !!", MessageStyle::OKOnly,
                                      "re-backup Error");
    beep();
}

} // namespace vellumar
