#pragma once

#include <string>

namespace vellumar {

class CloudIniFile;
struct ProgramPaths;
struct Services;

enum class DiscoveryOutcome { Found, EndProgram };

// Finds the simulator's folder: the registry first (on Linux the Wine prefix's), then
// [FS2004Path] Path of cloud.ini, then the user's choice in the folder browser, which is kept
// in cloud.ini. Fills FsRegPath, FsPaths(0), FsExeNames(0), FsUserFolder, FsFilesFolder and
// the choice to select in FsIndex. EndProgram when the user cancels the browser.
DiscoveryOutcome FindFsFolder(Services& services, CloudIniFile& ini, ProgramPaths& paths);

// The simulator's executable.
inline constexpr const char* kFsExeName = "fs9.exe";

} // namespace vellumar
