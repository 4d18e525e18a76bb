#include "textures/TextureFolders.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "config/ProgramPaths.h"

namespace vellumar {

std::string BackupFolderOf(const std::string& dataFolder)
{
    return JoinPath(dataFolder, "BackUp");
}

std::string OptionGroupFolder(const std::string& dataFolder)
{
    return JoinPath(JoinPath(dataFolder, "Texture"), "Option");
}

TextList OptionSetNames(FileOperations& files, EventPump& events, const std::string& dataFolder)
{
    TextList names;
    ListSubfolders(files, events, OptionGroupFolder(dataFolder), names);
    return names;
}

TextureFolders TextureFoldersOf(const ProgramPaths& paths)
{
    return {paths.FsPath, paths.FsTexturePath, BackupFolderOf(paths.DataFolder), paths.DataFolder};
}

} // namespace vellumar
