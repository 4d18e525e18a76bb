#pragma once

#include "common/InstalledFonts.h"
#include "common/TextList.h"
#include "sound/SoundSettings.h"

#include <array>
#include <string>
#include <string_view>

namespace vellumar {

class CloudIniFile;
class FileOperations;
class Registry;
struct ProgramPaths;
struct Services;

// What the start-up checks of the data folders find out.
struct DataFolderSettings {
    std::string ProportionalFont; // [Font] Proportional, when present
    std::string FixFont;          // [Font] Fix, when present
    SoundSettings Sounds;
    bool SplashEnabled = false;
    std::string SplashFolder;
    std::string SituationFolder;
    std::array<std::string, 3> SoundChannelFolders;
    std::string EditorPath;
    bool PathCheckRan = false;
};

enum class StartUpOutcome { Continue, EndProgram };

// The checks that run before the configuration proper is read: the path check switch, the
// fonts, the data folder and its placement, the data sub-folders (created after asking), the
// texture library, the sounds, the splash pictures and the remaining folders. Sets
// `paths.DataFolder`. EndProgram after a fatal problem, which the user has been told about.
StartUpOutcome RunDataFolderChecks(Services& services, CloudIniFile& ini, ProgramPaths& paths,
                                   const InstalledFonts& installedFonts,
                                   DataFolderSettings& settings);

// The data folder [DataFolder] Path names (its value as read; "Error" when absent): the
// program's folder when the value is empty or names no existing folder.
std::string ResolveDataFolder(std::string_view value, const std::string& programPath,
                              FileOperations& files, Registry& registry);

// The text shown when data folders are missing.
std::string NoDataFolderText();

// Opens cloud.ini in the desktop's text editor, or says that it is missing.
void mnuShowIni_Click(Services& services, const ProgramPaths& paths);

} // namespace vellumar
