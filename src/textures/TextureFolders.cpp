#include "textures/TextureFolders.h"

#include "common/PathText.h"
#include "config/ProgramPaths.h"

namespace vellumar {

std::string BackupFolderOf(const std::string& dataFolder)
{
    return JoinPath(dataFolder, "BackUp");
}

TextureFolders TextureFoldersOf(const ProgramPaths& paths)
{
    return {paths.FsPath, paths.FsTexturePath, BackupFolderOf(paths.DataFolder), paths.DataFolder};
}

} // namespace vellumar
