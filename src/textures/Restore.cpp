#include "textures/Restore.h"

#include "common/FileHelpers.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "textures/Backup.h"
#include "textures/CopyProgress.h"

namespace vellumar {

bool RestoreOriginals(TextureServices& services, const TextureFolders& folders,
                      const TickList& cloudFiles, const TickList& optionFiles)
{
    TextList names;
    std::string restoreList, missingList;
    for (const TickList* list : {&cloudFiles, &optionFiles})
        for (const auto& [item, ticked] : *list) {
            if (!ticked)
                continue;
            if (BackupExists(services.files, folders, item)) {
                names.push_back(item);
                restoreList += " " + item + "\n";
            } else {
                missingList += " " + item + "\n";
            }
        }
    if (!restoreList.empty())
        restoreList.pop_back();
    if (!missingList.empty())
        missingList.pop_back();

    std::string body;
    int type = MessageStyle::OKCancel | MessageStyle::Information;
    if (!restoreList.empty())
        body = "Following files will be back to original.\n" + restoreList;
    if (!missingList.empty()) {
        body += (body.empty() ? "Following files are not found in the BackUp Folder.\n"
                              : "\n\nAnd following files are not found in the BackUp Folder.\n") +
                missingList;
        type = MessageStyle::OKCancel | MessageStyle::Exclamation;
    }
    if (services.messages.ShowMessage(body, type, "To Original Files") == MessageResult::Cancel)
        return false;
    return CopyBackToSimulator(services, folders, names);
}

bool CopyBackToSimulator(TextureServices& services, const TextureFolders& folders,
                         const TextList& names)
{
    TextList backups;
    backups.reserve(names.size());
    for (const std::string& name : names)
        backups.push_back(JoinPath(folders.BackupFolder, name));
    std::string failed;
    { // the run of copies ends, and with it the window's progress, before any message
        CopyProgress progress(services, backups);
        for (std::size_t i = 0; i < names.size(); ++i) {
            progress.Starting(i, names[i]);
            if (IsOK(FileExists(services.files, backups[i])) &&
                !ReplaceFileWithCopy(services.files, backups[i],
                                     JoinPath(folders.FsTexturePath, names[i])))
                failed += " " + names[i] + "\n";
        }
    }
    if (failed.empty())
        return true;
    // A file that cannot be replaced (read-only, or the disk full) stays as it was; say so.
    services.messages.ShowMessage("Following files could not be back to original. They are as "
                                  "they were.\n" +
                                      failed +
                                      "\nBe sure your attribute on Msfs folder and texture "
                                      "folder is in Archive attribute and not Read only.",
                                  MessageStyle::OKOnly | MessageStyle::Critical,
                                  "To Original Files");
    return false;
}

} // namespace vellumar
