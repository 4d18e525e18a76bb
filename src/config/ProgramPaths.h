#pragma once

#include "config/GetSystemFolders.h"

#include <array>
#include <string>

namespace vellumar {

// The program-wide folders and files, each without a trailing separator.
struct ProgramPaths : SystemPaths {
    std::string ProgramPath;           // the program's folder; cloud.ini lies in it
    std::string IniName = "cloud.ini"; // the configuration file's name
    std::string SharedDataPath;        // what the program ships: its own sounds

    std::string FsRegPath;                 // the simulator folder as found at start-up
    std::array<std::string, 2> FsPaths;    // the two simulator choices
    std::array<std::string, 2> FsExeNames; // their executables
    int FsIndex = 0;                       // the chosen one
    std::string FsPath;                    // FsPaths[FsIndex]
    std::string FsTexturePath;             // FsPath + "\texture"
    std::string FsUserFolder;              // the simulator's per-user folder
    std::string FsFilesFolder;             // the user's saved flights

    std::string DataFolder; // where the texture library, splash pictures and situations are

    std::string IniFile() const;
};

} // namespace vellumar
