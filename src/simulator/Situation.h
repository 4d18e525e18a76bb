#pragma once

#include "common/TextList.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace vellumar {

class EventPump;
class FileOperations;
class LastInstalledRecord;
class MessageService;
class Registry;
struct ProgramState;
struct TextureServices;

// Saved situations: flights (*.flt) and their weather (*.wx) in the situation folder, each with
// an optional description (same name + ".txt") and picture (+ ".jpg"). Making one the start
// situation first installs the texture sets that its [Vellumar] section names.

// The situation files of `folder`, *.flt first, then *.wx, as bare names.
TextList ListSituations(FileOperations& files, EventPump& events, const std::string& folder);

// Why `folder` offers no situation: "Can't find the path." or a text that ends in
// "*.FLT and *.WX files not found."; "" when it holds some.
std::string CheckSituationFolder(FileOperations& files, EventPump& events,
                                 const std::string& folder);

// What lstFLT_Click shows of a situation.
struct SituationPreview {
    // The description for lblMsg: the .txt file's text, else the situation's own ShownText.
    // Nothing when neither has one (a .txt of blanks counts: it leaves lblMsg as it is).
    std::optional<std::string> text;
    bool fromTextFile = false; // then it is lstFLT's tip as well
    std::string picture;       // the .jpg beside it; "" when there is none
};
SituationPreview PreviewSituation(FileOperations& files, const std::string& folder,
                                  const std::string& name);

// The [Vellumar] SkyFolder1, SkyFolder2, ... values of a situation file, up to the first
// missing number.
TextList SituationSkyFolders(FileOperations& files, const std::string& situationFile);

// A SkyFolder value as a folder of the texture library: relative to the library as a set's
// DirName is; a Windows path with a drive letter goes through the registry's drive mapping.
// `outside` is set when the value leads out of the library (by "..", an absolute path
// elsewhere, or a link).
struct SkyFolder {
    std::string value;
    std::string folder;
    bool outside = false;
};
SkyFolder ResolveSkyFolder(FileOperations& files, Registry& registry,
                           const std::string& textureLibrary, const std::string& value);

// The simulator configuration file that names the start situation: [Situation] CfgFile in the
// simulator's per-user folder.
std::string SituationCfgPath(const ProgramState& state);

// The value written for a start situation: the situation file's full path as the simulator,
// a Windows program, names it (under Wine through the prefix's drive letters).
std::string StartSituationValue(const std::string& situationFile);

struct SituationRequest {
    std::string name; // the entry chosen in lstFLT; "" when none is
    bool ask = true;  // the installs ask before copying, as an install does
    bool autoRandomRunning = false;
};

struct SituationOutcome {
    bool ok = false;
    std::optional<std::chrono::system_clock::time_point> lastInstallTime;
    bool stopAutoRandom = false;
    TextList installedSets; // the SkyFolder values installed, in order
};

// InstallSituation: installs the sets the situation names (each folder that holds a bitmap,
// in turn), then makes it the simulator's start situation and plays the button sound. Every
// problem is told to the user; nothing of a situation that names a folder outside the texture
// library is installed.
SituationOutcome InstallSituation(TextureServices& textures, Registry& registry,
                                  const ProgramState& state, const SituationRequest& request,
                                  LastInstalledRecord& record,
                                  const std::function<void()>& buttonSound);

// ClearSituation: the start situation key stays, with an empty value. False (after telling the
// user) when the simulator's configuration file is missing.
bool ClearSituation(FileOperations& files, MessageService& messages, const ProgramState& state,
                    const std::function<void()>& beep);

} // namespace vellumar
