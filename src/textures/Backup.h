#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"

#include <string>

namespace vellumar {

// Copies of the simulator's original files, kept by bare name in one flat backup folder and
// taken only from the simulator's texture folder. The first backup of a name wins unless a
// caller asks to compare time stamps.

bool BackupExists(FileOperations& files, const TextureFolders& folders, const std::string& name);

// Copies one original into the backup folder. A missing source is no failure. An existing
// backup is replaced only with `compare` and a different time stamp: through the shell's
// operation (which may ask) with `ask`, silently without.
bool CopyToBackup(TextureServices& services, const std::string& source, const std::string& target,
                  bool compare, bool ask);

// Backs up each name from the texture folder; stops at the first failure.
bool BackupFileList(TextureServices& services, const TextureFolders& folders, const TextList& names,
                    bool compare, bool ask);

// The Backup button: the ticked files of both lists that the texture folder holds; the others
// are listed to the user.
void BackupSelectedFiles(TextureServices& services, const TextureFolders& folders,
                         const TickList& cloudFiles, const TickList& optionFiles);

// Backs up every file name that any set of the library holds, each name once.
bool RebackupAll(TextureServices& services, const TextureFolders& folders, bool compare, bool ask);

// The "Re-backup all set again" menu command.
void mnuBkAll_Click(TextureServices& services, const TextureFolders& folders,
                    const std::function<void()>& beep);

} // namespace vellumar
