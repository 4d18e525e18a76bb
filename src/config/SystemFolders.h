#pragma once

#include "config/ProgramFolderRule.h"

#include <memory>
#include <string>

namespace vellumar {

// Where the system keeps things. Every getter answers "" when the folder cannot be found.
class SystemFolders {
public:
    virtual ~SystemFolders() = default;

    // The program folder, where cloud.ini lies, and the rule that chose it (see
    // ChooseProgramFolder).
    virtual ProgramFolderChoice programFolderChoice() = 0;
    std::string programFolder() { return programFolderChoice().folder; }
    // What the program ships beside its executable (the message box's own sounds): the
    // executable's folder + "/../share/vellumar" when it is there, else the executable's folder.
    virtual std::string sharedDataFolder() = 0;
    // The Windows folder (on Linux: the Wine prefix's drive_c/windows, or "/" without a prefix).
    virtual std::string windowsFolder() = 0;
    // The user's documents folder.
    virtual std::string documentsFolder() = 0;
    // The user's roaming application-data folder.
    virtual std::string appDataFolder() = 0;
};

std::unique_ptr<SystemFolders> CreatePlatformSystemFolders();

} // namespace vellumar
