#pragma once

#include "app/CloudIni.h"
#include "app/DataFolderChecks.h"
#include "config/CloudIniFile.h"
#include "config/ProgramPaths.h"
#include "textures/InterruptedInstall.h"

#include <memory>

namespace vellumar {

class FileOperations;
class OriginalsGuard;
struct Services;

// Everything the start-up finds out, kept for the whole run.
struct ProgramState {
    ProgramPaths paths;
    DataFolderSettings checks;
    CloudIniSettings settings;
    std::unique_ptr<CloudIniFile> ini;
};

// What the windows tell the start-up about the screen and the fonts.
struct ScreenFacts {
    int logicalDpiY = 96;
    InstalledFonts installedFonts;
};

// The start-up up to a loaded configuration: the system folders, the screen check, cloud.ini
// itself, the simulator folder and the configuration of the chosen simulator, and the one-time
// backup of the sun effect file. The main window does the rest (its lists and buttons).
// EndProgram after a fatal problem the user has been told about.
StartUpOutcome RunStartUpSequence(Services& services, const ScreenFacts& screen,
                                  ProgramState& state);

// After the start-up: an install that a crash or a kill cut off is named, and the user chooses
// to complete it or to put the originals back (see OfferInterruptedInstall).
InterruptedInstallChoice OfferInterruptedInstallAtStart(Services& services,
                                                        const ProgramState& state);

// True when the screen runs at 96 logical pixels per inch, the small-fonts setting.
bool IsSmallFontScreen(int logicalDpiY);

// What keeps `file` from being used as cloud.ini although it is there (a dangling link, a
// folder, a named pipe); "" when it is a file, or a link to one. The start-up ends with it.
std::string IniFileProblem(FileOperations& files, const std::string& file);

// Makes cloud.ini writable and records its time stamp; EndProgram when it is missing.
StartUpOutcome CheckIniFile(Services& services, ProgramState& state);

// From here on every change to the chosen simulator's files keeps their originals first, in
// the data folder's originals store.
void ProtectSimulatorFiles(OriginalsGuard& guard, const ProgramPaths& paths);

// Selects simulator folder `index` and loads its configuration, and protects its files.
LoadOutcome optFs_Click(Services& services, const ScreenFacts& screen, ProgramState& state,
                        int index);

} // namespace vellumar
