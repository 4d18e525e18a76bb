#pragma once

#include "common/TextList.h"

#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class EventPump;
class FileOperations;
struct TextureSetEntry;

// A file of a set folder that the simulator could not open under Windows, and why.
struct RefusedFile {
    std::string name;
    std::string reason; // e.g. "PRN is a device name on Windows"
};

// The plain files of one set folder, listed once; every question about the set is answered
// from this list in memory. A name Windows cannot hold is never offered nor counted: it is
// kept apart, with the reason, for a report.
struct SetFolderFiles {
    TextList names; // bare names, in listing order
    std::vector<RefusedFile> refused;
};

// The set of that name in `sets`: spelt exactly, else in another letter case; nothing when
// there is none.
const TextureSetEntry* FindSetNamed(const std::vector<TextureSetEntry>& sets,
                                    std::string_view name);

SetFolderFiles ScanSetFolder(FileOperations& files, EventPump& events, const std::string& folder);
// The same from bare names already listed.
SetFolderFiles SetFolderFilesOf(const TextList& names);
// The files of a set folder that are left out because Windows cannot hold their names.
std::vector<RefusedFile> ListRefusedSetFiles(FileOperations& files, EventPump& events,
                                             const std::string& folder);

// The data type name of a set from its bitmap names: the first row of the table that matches
// ("Thunder", "Cumulus", "Stratus", "Cirrus", "Sky Color", "Earth", "Sun flare", "Sun",
// "Runway", "Moon", "Rain", "VC Rain", "Snow", "Autogen"), else "Unknown".
std::string DataTypeOf(const SetFolderFiles& set);
std::string GetSetDataType(FileOperations& files, EventPump& events, const std::string& folder);

// Compatibility code, also the set's category in the main window's filter: 1 cloud set,
// 2 cirrus set, 3 sky colour set, 5 anything else.
namespace SetCategory {
inline constexpr int Cloud = 1;
inline constexpr int Cirrus = 2;
inline constexpr int SkyColor = 3;
inline constexpr int Misc = 5;
} // namespace SetCategory

int CompatibilityOf(const SetFolderFiles& set);
int CheckSetCompatibility(FileOperations& files, EventPump& events, const std::string& folder);

// A file the simulator reads from a set: names ending in "cld", "bmp", "xml" or ".fx" (the last
// three characters decide), and the sun effect file "suneffect.cfg".
bool IsInstallableFile(std::string_view name);

// A picture that can stand for the set in the main window: ".jpg", ".jpeg" or ".gif".
bool IsPreviewPicture(std::string_view name);
// A file a set folder is for: one the simulator reads, or a preview picture.
bool IsSetFile(std::string_view name);

// The files of a cloud set offered for installation, in listing order.
TextList ListSetFiles(const SetFolderFiles& set);
// The files of an option set offered for installation: its bitmaps only.
TextList ListOptionFiles(const SetFolderFiles& set);
// The preview picture of a set: its first ".jpg", ".jpeg" or ".gif" file; "" when none.
std::string PreviewPictureOf(const SetFolderFiles& set);

// "" when `folder` exists and holds at least one sub-folder; otherwise the message that says
// why. A folder that does not exist is replaced by `programFolder`.
std::string CheckDataFolder(FileOperations& files, EventPump& events, std::string& folder,
                            const std::string& programFolder);

} // namespace vellumar
