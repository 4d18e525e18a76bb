#include "config/GetSystemFolders.h"

#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "config/SystemFolders.h"

namespace vellumar {

std::string PathErrorText(const SystemPaths& paths)
{
    // The labels are padded so that the colons line up.
    return "Can't get Windows path.\n"
           "Windows         : " +
           paths.WindowsPath +
           "\n"
           "My Document     : " +
           paths.MyDocumentsPath +
           "\n"
           "Application Data: " +
           paths.AppDataPath;
}

std::string GetSystemFolders(SystemFolders& folders, MessageService& messages, SystemPaths& paths)
{
    paths.WindowsPath = TrimTrailingBackslash(CutAtNul(folders.windowsFolder()));
    if (std::string documents = folders.documentsFolder(); !documents.empty())
        paths.MyDocumentsPath = std::move(documents);
    if (std::string appData = folders.appDataFolder(); !appData.empty())
        paths.AppDataPath = std::move(appData);

    if (paths.WindowsPath.empty() || paths.MyDocumentsPath.empty() || paths.AppDataPath.empty()) {
        messages.ShowSystemMessage(PathErrorText(paths),
                                   MessageStyle::OKOnly | MessageStyle::Critical, "Path Error");
        return ResultText(false);
    }
    return ResultText(true);
}

} // namespace vellumar
