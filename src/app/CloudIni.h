#pragma once

#include "app/AutoRandomSelection.h"
#include "common/InstalledFonts.h"
#include "common/TextList.h"
#include "config/CloudIniSchema.h"
#include "textures/LastInstalled.h"
#include "textures/TextureSetEntry.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vellumar {

class CloudIniFile;
class MessageService;
struct DataFolderSettings;
struct ProgramPaths;
struct Services;

// Every value the program takes from cloud.ini. The values live for the whole run; each load
// replaces them, except where a key that is absent (or out of range) leaves a value as it was.
struct CloudIniSettings {
    std::string AppName;
    long RandomWait = IniDefaultNumber(CloudIniKeys::RandomWait);
    bool BackupOriginals = false;
    std::string SituationCfgFile;
    std::string SituationSection;
    std::string SituationKey;
    bool SituationEnabled = true;
    bool ShowSkyFiles = IniDefaultBoolean(CloudIniKeys::ShowSkyFiles);
    bool UnloadAfterFsStart = IniDefaultBoolean(CloudIniKeys::UnloadAfterFsStart);
    bool StretchMode = IniDefaultBoolean(CloudIniKeys::StretchMode);
    std::string StartSel{CloudIniKeys::StartSel.defaultValue};
    double AutoRandomInterval = 0;
    int AutoRandomStep = 1;
    int SplashLastNo = IniDefaultNumber(CloudIniKeys::SplashLastNo);
    std::string SplashMode{CloudIniKeys::SplashMode.defaultValue};
    static constexpr int kIntvl = IniDefaultNumber(CloudIniKeys::SoundIntvl);
    static constexpr int kVol = IniDefaultNumber(CloudIniKeys::SoundVol);
    std::array<int, CloudIniKeys::SoundIntvl.last> SoundIntvl{kIntvl, kIntvl};
    std::array<int, CloudIniKeys::SoundVol.last> SoundVol{kVol, kVol, kVol};
    std::string LastMusicPath;
    TextList MusicFiles;
    int NumberOfDisp = IniDefaultNumber(CloudIniKeys::NumberOfDisp);
    std::vector<LastInstalledEntry> LastInstalled;
    // Object names of the controls and the tips they get, in the order of [ToolTipsText].
    std::vector<std::pair<std::string, std::string>> ToolTips;
    bool SaveSelection = IniDefaultBoolean(CloudIniKeys::SaveSelection);
    std::vector<TextureSetEntry> Sets;
    AutoRandomSelection AutoRandom;
    bool BackupAll = false;
    TextList BackupList;
};

enum class LoadOutcome { Loaded, EndProgram };

// Reads all of cloud.ini: first the data folder checks, then every setting with its default
// and limits, the texture sets and the backup list. EndProgram after a fatal problem (the user
// has been told, and [PathCheck] Check is "on" for the next start where the text says so).
LoadOutcome LoadCloudIni(Services& services, CloudIniFile& ini, ProgramPaths& paths,
                         const InstalledFonts& installedFonts, DataFolderSettings& checks,
                         CloudIniSettings& settings);

// The change watch: true (after telling the user, who is about to lose the program) when
// cloud.ini was edited by someone else while the program ran; the caller then closes the main
// window. Run before the program acts on settings it keeps in cloud.ini.
bool IniChangedDuringRun(MessageService& messages, const CloudIniFile& ini);

// The folder name of member `number` of a set's numbered series ([SetN] from, to): one blank
// before the number, two for the thunderstorm sets, as their folders are named on disk.
std::string SeriesFolderName(const std::string& dirName, int number);

// The controls that receive the tip of each [ToolTipsText] key, in the table's order.
const std::vector<std::pair<std::string, TextList>>& ToolTipControls();

} // namespace vellumar
