#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"

#include <chrono>
#include <optional>
#include <string>

namespace vellumar {

class LastInstalledRecord;

// The folder of the simulator where a set file goes, by its last three characters; one ".fx"
// file among the files of an installation sends all its bitmaps to the effects textures.
std::string DestinationFolder(const TextureFolders& folders, const std::string& name,
                              bool effectsInstall);
// Where each file of an installation of `names` (bare names) lands in the simulator: the
// folder above with the name added. Installs write there; the status of a set reads there.
TextList InstallTargets(const TextureFolders& folders, const TextList& names);

// The simulator's folders that installs, restores and backups write into (and so where their
// temporary files may be left behind).
TextList FoldersInstallsWrite(const TextureFolders& folders);
// Removes the temporary files that a killed install, restore or backup left in those folders
// (see RemoveLeftoverTemporaries); returns their paths.
TextList RemoveInstallLeftovers(FileOperations& files, const TextureFolders& folders);

// Places each file of an installation in the simulator. A target is replaced by a copy under a
// temporary name that is then swapped in, so a failed copy leaves the simulator's file as it
// was. A target that is a link is replaced by a plain file; the file it pointed to (perhaps
// shared with another simulator) is never written. Leftovers of a killed install go first. Stops at
// the first failure with the "Install Error" message; files placed before it stay. The window hears
// of each file before it is copied (see CopyProgress). While it runs, an install journal in the
// data folder names `setName` and the files, so that the next start can tell an install that
// was cut off.
bool CopySetFilesToSimulator(TextureServices& services, const TextureFolders& folders,
                             const TextList& sources, const TextList& names,
                             const std::string& setName = {});

struct InstallRequest {
    std::string setName;         // the text of cmbClouds
    std::string cloudSetFolder;  // full folder of the cloud set
    std::string optionSetFolder; // full folder of the option set
    TickList cloudFiles;         // lstClouds
    TickList optionFiles;        // lstOption
    bool hideSetName = false;    // a hidden random pick: the name is not shown
    bool autoRandomRunning = false;
    bool ask = true;
    bool backupOriginals = false;
};

struct InstallOutcome {
    bool installed = false;
    // A copy failed: the caller switches AutoRandom off.
    bool stopAutoRandom = false;
    // While AutoRandom runs, every install (even one that finds nothing to do) restarts its
    // countdown from this moment, taken as the install begins.
    std::optional<std::chrono::system_clock::time_point> lastInstallTime;
};

// Collects the ticked files of both sets, checks them (and, with backupOriginals, their
// backups), asks for confirmation unless AutoRandom runs or `ask` is off, copies them into
// the simulator and records the set as installed.
InstallOutcome InstallTextureSet(TextureServices& services, const TextureFolders& folders,
                                 const InstallRequest& request, LastInstalledRecord& record);

} // namespace vellumar
