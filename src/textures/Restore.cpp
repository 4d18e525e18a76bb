#include "Restore.h"

#include "Backup.h"
#include "FileHelpers.h"
#include "MessageService.h"
#include "PathText.h"
#include "ReplaceFile.h"
#include "ResultText.h"

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
    bool all = true;
    for (const std::string& name : names) {
        services.showStatus("Copying " + name);
        const std::string backup = JoinPath(folders.BackupFolder, name);
        if (IsOK(FileExists(services.files, backup)))
            all = ReplaceFileWithCopy(services.files, backup,
                                      JoinPath(folders.FsTexturePath, name)) &&
                  all;
    }
    return all;
}

} // namespace vellumar
