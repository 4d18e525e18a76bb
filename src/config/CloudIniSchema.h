#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vellumar {

class CloudIniFile;
class Registry;

// Every section and key of cloud.ini the program reads or writes, with its type, default,
// limits and rule, in the order of the commented example file. The loader, the start-up checks
// and the sound settings read through this table, and the checker (`vellumar-cli ini check`)
// judges a file by it, so a setting's default or limit is written down once, here.
//
// A "#" in a section or key name stands for a number: 1, 2, ... without leading zeros. A
// numbered name with `last` = 0 is a list: the program reads 1, 2, ... up to the first number
// that is missing, and never sees the ones after that gap.

enum class IniType {
    Text,      // taken as it stands
    Path,      // a folder or file: a relative one lies under `base`, "\" is a separator
    Boolean,   // True or False in any letter case, or a number (0 is False, others True)
    Choice,    // one of the words of `choices`, in any letter case
    Integer16, // a whole number from -32768 to 32767, halves rounded to even
    Long,      // a whole number from -2147483648 to 2147483647, the fraction dropped
};

// What happens when the key is absent.
enum class IniNeed {
    Optional, // the default, or the setting keeps its value (see `absent`)
    Required, // the program stops at start-up with "ini read Error"
    Expected, // a message at start-up, and the function it serves is switched off
};

// What an absent (or, for numbers and yes/no keys, an unusable) value does to the setting.
enum class IniAbsent { Default, KeepsValue };

// What a number in [from, to] reads as instead of itself. Numbers beyond their type's range
// count as the type's nearest end first.
enum class IniBandRead { None, Fixed, Default, KeepsValue };
struct IniBand {
    long from = 0;
    long to = 0;
    IniBandRead read = IniBandRead::None;
    long fixed = 0;
};

enum class IniPathKind { None, Folder, File };

struct IniKey {
    std::string_view section{};
    std::string_view key{};
    IniType type = IniType::Text;
    // What an absent or unusable value reads as. A Choice reads any other word as this one.
    // A Path default starts with "<program>" or "<data>" (the program's or data folder).
    std::string_view defaultValue{};
    std::string_view choices{};     // Choice: the words, separated by "|"
    std::array<IniBand, 2> bands{}; // Integer16, Long: numbers that read as something else
    IniNeed need = IniNeed::Optional;
    IniAbsent absent = IniAbsent::Default;
    IniPathKind pathKind = IniPathKind::None;
    std::string_view base = "<program>"; // Path: where a relative path lies
    int last = 0; // the highest number of a numbered name; 0: a list with no end
    bool writtenByProgram = false;
    std::string_view setting{}; // the owning setting (for tool tips: the controls, by object name)
    std::string_view rule{};    // the rule in words, as the checker and the example file say it
};

namespace CloudIniKeys {

inline constexpr long kInt16Min = -32768;
inline constexpr long kInt16Max = 32767;

inline constexpr IniKey AppName{
    .section = "AppName",
    .key = "Name",
    .need = IniNeed::Required,
    .setting = "AppName",
    .rule = "The title of the main window. Required: without it the program stops."};
inline constexpr IniKey PathCheck{
    .section = "PathCheck",
    .key = "Check",
    .type = IniType::Choice,
    .defaultValue = "on",
    .choices = "on|off",
    .writtenByProgram = true,
    .setting = "PathCheckRan",
    .rule = "on: the next start checks every folder and file named here and reports each "
            "problem, then sets off. Any other value counts as on and is rewritten to on."};
inline constexpr IniKey FontProportional{
    .section = "Font",
    .key = "Proportional",
    .absent = IniAbsent::KeepsValue,
    .setting = "ProportionalFont",
    .rule = "The font of labels, lists and buttons; empty keeps the windows' own font."};
inline constexpr IniKey FontFix{
    .section = "Font",
    .key = "Fix",
    .absent = IniAbsent::KeepsValue,
    .setting = "FixFont",
    .rule = "The fixed-pitch font of the message box; empty keeps the windows' own font."};
inline constexpr IniKey DataFolderPath{
    .section = "DataFolder",
    .key = "Path",
    .type = IniType::Path,
    .defaultValue = "<program>",
    .pathKind = IniPathKind::Folder,
    .setting = "DataFolder",
    .rule = "The folder of Texture, Splash Screen and Situation. Empty, or a folder that "
            "does not exist: the program's folder."};
inline constexpr IniKey FsPath{
    .section = "FS2004Path",
    .key = "Path",
    .type = IniType::Path,
    .pathKind = IniPathKind::Folder,
    .writtenByProgram = true,
    .setting = "FsRegPath",
    .rule = "The simulator's folder, used when the registry names none. Empty or without "
            "fs9.exe: the program asks for the folder and writes the choice here."};
inline constexpr IniKey RandomWait{
    .section = "Test",
    .key = "RandomWait",
    .type = IniType::Long,
    .defaultValue = "0",
    .setting = "RandomWait",
    .rule = "Milliseconds to wait on every tick of the AutoRandom timer. Not a number: 0."};
inline constexpr IniKey SituationLoc{
    .section = "Situation",
    .key = "Loc",
    .type = IniType::Path,
    .defaultValue = "<data>\\Situation",
    .pathKind = IniPathKind::Folder,
    .setting = "SituationFolder",
    .rule = "The folder of the situation files. Default: Situation in the data folder."};
inline constexpr IniKey SituationCfgFile{
    .section = "Situation",
    .key = "CfgFile",
    .need = IniNeed::Expected,
    .absent = IniAbsent::KeepsValue,
    .setting = "SituationCfgFile",
    .rule = "The simulator's configuration file in its user folder (fs9.cfg). Missing, "
            "empty or not found: situations are switched off (\"Ini Error\")."};
inline constexpr IniKey SituationSection{
    .section = "Situation",
    .key = "Section",
    .absent = IniAbsent::KeepsValue,
    .setting = "SituationSection",
    .rule = "The section of that file that names the start situation."};
inline constexpr IniKey SituationKey{.section = "Situation",
                                     .key = "Key",
                                     .absent = IniAbsent::KeepsValue,
                                     .setting = "SituationKey",
                                     .rule =
                                         "The key of that section that names the start situation."};
inline constexpr IniKey ShowSkyFiles{
    .section = "ShowSkyFiles",
    .key = "ShowFiles",
    .type = IniType::Boolean,
    .defaultValue = "False",
    .setting = "ShowSkyFiles",
    .rule = "True: show the file lists of the chosen set. Not True or False: False."};
inline constexpr IniKey UnloadAfterFsStart{
    .section = "Unload",
    .key = "Unload_Me_After_FsStart",
    .type = IniType::Boolean,
    .defaultValue = "False",
    .setting = "UnloadAfterFsStart",
    .rule = "True: the program closes once it has started the simulator. Not True or False: "
            "False."};
inline constexpr IniKey StretchMode{
    .section = "StretchMode",
    .key = "Stretch",
    .type = IniType::Choice,
    .defaultValue = "on",
    .choices = "on|off",
    .setting = "StretchMode",
    .rule = "off: preview pictures at their own size. Any other value: stretched."};
inline constexpr IniKey StartSel{
    .section = "StartSel",
    .key = "Sel",
    .type = IniType::Choice,
    .defaultValue = "sky",
    .choices = "sky|situation",
    .setting = "StartSel",
    .rule = "situation: open on the situation list. Any other value: on the texture sets."};
inline constexpr IniKey SplashMode{
    .section = "StartSel",
    .key = "Mode",
    .type = IniType::Choice,
    .defaultValue = "random",
    .choices = "random|order",
    .setting = "SplashMode",
    .rule = "order: splash pictures take turns. Any other value: a random picture."};
inline constexpr IniKey SplashLastNo{
    .section = "StartSel",
    .key = "LastNo",
    .type = IniType::Integer16,
    .defaultValue = "0",
    .setting = "SplashLastNo",
    .rule = "The splash picture shown last, as read at start. Not a number: 0."};
inline constexpr IniKey Splash{
    .section = "Splash Screen",
    .key = "Splash",
    .type = IniType::Choice,
    .defaultValue = "off",
    .choices = "off|on",
    .setting = "SplashEnabled",
    .rule = "on: rotate the simulator's splash picture. Any other value: leave it."};
inline constexpr IniKey SplashPath{
    .section = "Splash Screen",
    .key = "Path",
    .type = IniType::Path,
    .defaultValue = "<data>\\Splash Screen",
    .pathKind = IniPathKind::Folder,
    .setting = "SplashFolder",
    .rule = "The folder of dlgsplash1.bmp, dlgsplash2.bmp, ... Default: Splash Screen in the "
            "data folder. Not found: no splash rotation."};
inline constexpr IniKey SplashLastNoWritten{
    .section = "Splash Screen",
    .key = "LastNo",
    .type = IniType::Integer16,
    .defaultValue = "0",
    .writtenByProgram = true,
    .setting = "SplashLastNo",
    .rule = "The splash picture installed last, written after every rotation."};
inline constexpr IniKey ButtonSoundBeep{.section = "ButtonSound",
                                        .key = "Beep",
                                        .type = IniType::Choice,
                                        .defaultValue = "on",
                                        .choices = "on|off",
                                        .setting = "ButtonSoundPath",
                                        .rule =
                                            "off: no button sound. Any other value: play File."};
inline constexpr IniKey ButtonSoundFile{
    .section = "ButtonSound",
    .key = "File",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .base = "<data>",
    .setting = "ButtonSoundPath",
    .rule = "A .wav file, under the data folder unless the path says otherwise. Missing or "
            "not a .wav file: the system beep."};
inline constexpr IniKey AutoRandomSoundBeep{
    .section = "AutoRandomSound",
    .key = "Beep",
    .type = IniType::Choice,
    .defaultValue = "off",
    .choices = "off|on",
    .setting = "AutoRandomSoundPath",
    .rule = "on: play File when AutoRandom installs a set. Any other value: the system beep."};
inline constexpr IniKey AutoRandomSoundFile{
    .section = "AutoRandomSound",
    .key = "File",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .base = "<data>",
    .setting = "AutoRandomSoundPath",
    .rule = "A .wav file, found as [ButtonSound] File; checked only when Beep is on."};
// The message box's sounds where the system names none for an icon (a Wine prefix without
// event sounds, or no prefix at all). Absent: the program's own sounds.
inline constexpr IniKey MessageSoundCritical{
    .section = "MessageSound",
    .key = "Critical",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .base = "<data>",
    .setting = "MessageSoundPaths",
    .rule = "A .wav file for messages with the stop sign; found as [ButtonSound] File."};
inline constexpr IniKey MessageSoundQuestion{
    .section = "MessageSound",
    .key = "Question",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .base = "<data>",
    .setting = "MessageSoundPaths",
    .rule = "A .wav file for questions; found as [ButtonSound] File."};
inline constexpr IniKey MessageSoundExclamation{
    .section = "MessageSound",
    .key = "Exclamation",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .base = "<data>",
    .setting = "MessageSoundPaths",
    .rule = "A .wav file for warnings; found as [ButtonSound] File."};
inline constexpr IniKey MessageSoundInformation{
    .section = "MessageSound",
    .key = "Information",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .base = "<data>",
    .setting = "MessageSoundPaths",
    .rule = "A .wav file for information; found as [ButtonSound] File."};
inline constexpr IniKey SoundChannelPath{
    .section = "Sound",
    .key = "Ch#Path",
    .type = IniType::Path,
    .defaultValue = "<program>\\Sound\\Ch#",
    .pathKind = IniPathKind::Folder,
    .last = 3,
    .setting = "SoundChannelFolders",
    .rule = "The folder of sound channel 1, 2 or 3. Default: Sound\\Ch1 to Sound\\Ch3."};
inline constexpr IniKey SoundIntvl{
    .section = "Sound",
    .key = "Ch#Intvl",
    .type = IniType::Integer16,
    .defaultValue = "5",
    .bands = {{{kInt16Min, -1, IniBandRead::KeepsValue}, {61, kInt16Max, IniBandRead::Fixed, 60}}},
    .last = 2,
    .writtenByProgram = true,
    .setting = "SoundIntvl",
    .rule = "Seconds between two pieces on channel 1 or 2, 0 to 60: more reads as 60, a "
            "negative number is ignored, not a number reads as 5."};
inline constexpr IniKey SoundVol{
    .section = "Sound",
    .key = "Ch#Vol",
    .type = IniType::Integer16,
    .defaultValue = "50",
    .bands = {{{kInt16Min, -1, IniBandRead::KeepsValue},
               {101, kInt16Max, IniBandRead::Fixed, 100}}},
    .last = 3,
    .writtenByProgram = true,
    .setting = "SoundVol",
    .rule = "Volume of channel 1, 2 or 3, 0 to 100: more reads as 100, a negative number is "
            "ignored, not a number reads as 50."};
inline constexpr IniKey LastMusicPath{
    .section = "Sound",
    .key = "LastMusicPath",
    .type = IniType::Path,
    .pathKind = IniPathKind::Folder,
    .writtenByProgram = true,
    .setting = "LastMusicPath",
    .rule = "The folder last chosen for music; forgotten when it no longer exists."};
inline constexpr IniKey MusicFile{
    .section = "Sound",
    .key = "MusicFile#",
    .type = IniType::Path,
    .pathKind = IniPathKind::File,
    .writtenByProgram = true,
    .setting = "MusicFiles",
    .rule = "The music list, in order; files that no longer exist are skipped."};
inline constexpr IniKey EditorPath{.section = "Editor",
                                   .key = "Path",
                                   .type = IniType::Path,
                                   .pathKind = IniPathKind::File,
                                   .setting = "EditorPath",
                                   .rule = "A text editor; empty: none."};
inline constexpr IniKey NumberOfDisp{
    .section = "LastInstalled",
    .key = "NumberOfDisp",
    .type = IniType::Integer16,
    .defaultValue = "3",
    .bands = {{{kInt16Min, -1, IniBandRead::Default}, {0, 0, IniBandRead::Fixed, 1}}},
    .setting = "NumberOfDisp",
    .rule = "How many installed sets to remember: 0 reads as 1; a negative number or not a "
            "number reads as 3."};
inline constexpr IniKey LastInstalledEntry{
    .section = "LastInstalled",
    .key = "#",
    .writtenByProgram = true,
    .setting = "LastInstalled",
    .rule = "A set installed lately: its name, a comma and its data type, newest first."};

// The tool tips, in the order the loader applies them; `setting` names the controls.
inline constexpr IniKey TipSky{.section = "ToolTipsText",
                               .key = "Sky",
                               .setting = "optSky",
                               .rule = "The tip of the Sky choice."};
inline constexpr IniKey TipSituation{.section = "ToolTipsText",
                                     .key = "Situation",
                                     .setting = "optFLT",
                                     .rule = "The tip of the Situation choice."};
inline constexpr IniKey TipRandom{.section = "ToolTipsText",
                                  .key = "Random",
                                  .setting = "cmdRandom",
                                  .rule = "The tip of the Random button."};
inline constexpr IniKey TipInstAndRunFs{.section = "ToolTipsText",
                                        .key = "Inst&RunFs",
                                        .setting = "cmdInstAndStart",
                                        .rule = "The tip of the Install and start button."};
inline constexpr IniKey TipInstall{.section = "ToolTipsText",
                                   .key = "Install",
                                   .setting = "cmdInst",
                                   .rule = "The tip of the Install button."};
inline constexpr IniKey TipAutoInstall{.section = "ToolTipsText",
                                       .key = "AutoInstall",
                                       .setting = "lblAutoRandom",
                                       .rule = "The tip of the Auto Install label."};
inline constexpr IniKey TipRandomTime{.section = "ToolTipsText",
                                      .key = "RndomTime/Off",
                                      .setting = "lblTime",
                                      .rule = "The tip of the AutoRandom time."};
inline constexpr IniKey TipOption{.section = "ToolTipsText",
                                  .key = "Option",
                                  .setting = "lblOption",
                                  .rule = "The tip of the Option label."};
inline constexpr IniKey TipFilterOfList{
    .section = "ToolTipsText",
    .key = "FilterOfList",
    .setting = "lblFilter0 lblFilter1 lblFilter2 lblFilter3 lblFilter5",
    .rule = "The tip of the filter labels."};
inline constexpr IniKey TipDataList{.section = "ToolTipsText",
                                    .key = "DataList",
                                    .setting = "lstSky",
                                    .rule = "The tip of the list of sets."};

inline constexpr IniKey SaveSelection{
    .section = "LoadSaveSelection",
    .key = "Sel",
    .type = IniType::Boolean,
    .defaultValue = "False",
    .absent = IniAbsent::KeepsValue,
    .setting = "SaveSelection",
    .rule = "True: the AutoRandom selection is kept for the next start. Not True or False: "
            "the setting stays as it was."};
inline constexpr IniKey BackupWhat{
    .section = "ToBeBackuped",
    .key = "bk",
    .type = IniType::Choice,
    .defaultValue = "list",
    .choices = "list|all",
    .setting = "BackupAll",
    .rule = "all: back up every file a set would replace. Any other value: the list bk1, "
            "bk2, ..."};
inline constexpr IniKey BackupItem{.section = "ToBeBackuped",
                                   .key = "bk#",
                                   .setting = "BackupList",
                                   .rule = "One file to back up when bk is not all."};

inline constexpr IniKey SetDirName{
    .section = "Set#",
    .key = "DirName",
    .need = IniNeed::Required,
    .setting = "Sets",
    .rule = "The set's folder under Texture, as Clouds\\Summer haze. [Set1] must have one; "
            "the first set without one ends the list."};
inline constexpr IniKey SetFrom{
    .section = "Set#",
    .key = "from",
    .type = IniType::Integer16,
    .setting = "Sets",
    .rule = "The first number of a series of folders DirName 1, DirName 2, ... (two blanks "
            "before the number for t-storm). Not a number: no series."};
inline constexpr IniKey SetTo{
    .section = "Set#",
    .key = "to",
    .type = IniType::Integer16,
    .setting = "Sets",
    .rule = "The last number of the series. Absent or not a number: the value of from."};
inline constexpr IniKey SetAlias{.section = "Set#",
                                 .key = "Alias",
                                 .setting = "Sets",
                                 .rule = "The name shown for the set; absent: the folder name."};
inline constexpr IniKey SetRandom{
    .section = "Set#",
    .key = "Random",
    .type = IniType::Choice,
    .defaultValue = "on",
    .choices = "on|off",
    .writtenByProgram = true,
    .setting = "Sets",
    .rule = "off: AutoRandom never picks the set. Any other value: it may."};
inline constexpr IniKey SetOrder{
    .section = "Set#",
    .key = "Order",
    .type = IniType::Integer16,
    .setting = "Sets",
    .rule = "The set's place when AutoRandom goes in order. Not a number: no place."};

// What the AutoRandom selection window arranges, kept in a section of the program's own: the
// sets' own keys say only whether a set (or a whole series) takes part.
inline constexpr IniKey AutoRandomMode{
    .section = "AutoRandom",
    .key = "Mode",
    .type = IniType::Choice,
    .defaultValue = "random",
    .choices = "random|order",
    .writtenByProgram = true,
    .setting = "AutoRandom",
    .rule = "order: AutoRandom installs the sets of the order list in turn. Any other value: a "
            "random set among those that take part."};
inline constexpr IniKey AutoRandomOrder{
    .section = "AutoRandom",
    .key = "Order#",
    .writtenByProgram = true,
    .setting = "AutoRandom",
    .rule = "The order list, by set folder (DirName, or a series member's folder). When "
            "present it replaces the sets' Order keys; sets it leaves out follow in catalogue "
            "order."};
inline constexpr IniKey AutoRandomLeftOut{
    .section = "AutoRandom",
    .key = "LeftOut#",
    .writtenByProgram = true,
    .setting = "AutoRandom",
    .rule = "Members of a from/to series that do not take part, by folder, although their "
            "section's Random is on."};

// The table: every row once, in the order of the example file.
inline constexpr auto kAll = std::to_array<const IniKey*>({&AppName,
                                                           &PathCheck,
                                                           &FontProportional,
                                                           &FontFix,
                                                           &DataFolderPath,
                                                           &FsPath,
                                                           &RandomWait,
                                                           &SituationLoc,
                                                           &SituationCfgFile,
                                                           &SituationSection,
                                                           &SituationKey,
                                                           &ShowSkyFiles,
                                                           &UnloadAfterFsStart,
                                                           &StretchMode,
                                                           &StartSel,
                                                           &SplashMode,
                                                           &SplashLastNo,
                                                           &Splash,
                                                           &SplashPath,
                                                           &SplashLastNoWritten,
                                                           &ButtonSoundBeep,
                                                           &ButtonSoundFile,
                                                           &AutoRandomSoundBeep,
                                                           &AutoRandomSoundFile,
                                                           &MessageSoundCritical,
                                                           &MessageSoundQuestion,
                                                           &MessageSoundExclamation,
                                                           &MessageSoundInformation,
                                                           &SoundChannelPath,
                                                           &SoundIntvl,
                                                           &SoundVol,
                                                           &LastMusicPath,
                                                           &MusicFile,
                                                           &EditorPath,
                                                           &NumberOfDisp,
                                                           &LastInstalledEntry,
                                                           &TipSky,
                                                           &TipSituation,
                                                           &TipRandom,
                                                           &TipInstAndRunFs,
                                                           &TipInstall,
                                                           &TipAutoInstall,
                                                           &TipRandomTime,
                                                           &TipOption,
                                                           &TipFilterOfList,
                                                           &TipDataList,
                                                           &SaveSelection,
                                                           &BackupWhat,
                                                           &BackupItem,
                                                           &SetDirName,
                                                           &SetFrom,
                                                           &SetTo,
                                                           &SetAlias,
                                                           &SetRandom,
                                                           &SetOrder,
                                                           &AutoRandomMode,
                                                           &AutoRandomOrder,
                                                           &AutoRandomLeftOut});

} // namespace CloudIniKeys

// A key's default as a number, or as True/False, for settings that start out at it.
constexpr long IniDefaultNumber(const IniKey& key)
{
    long value = 0;
    for (char c : key.defaultValue)
        value = value * 10 + (c - '0');
    return value;
}
constexpr bool IniDefaultBoolean(const IniKey& key)
{
    return key.defaultValue == "True" || key.defaultValue == "on";
}

// A numbered name with its number: ("Ch#Vol", 2) gives "Ch2Vol". Other names stay.
std::string IniName(std::string_view pattern, int number);

// The number a name carries where its pattern has "#" (no leading zeros, within the key's
// range); nothing when the name does not fit the pattern. Names compare without regard to case.
std::optional<int> MatchIniName(std::string_view pattern, std::string_view name, int last);

// The row for a section and key as written in a file (numbered ones included); nullptr when
// the program knows no such key. `number` receives the number of a numbered name.
const IniKey* FindIniKey(std::string_view section, std::string_view key, int* number = nullptr);

// The folders a Path key may be relative to.
struct IniFolders {
    std::string program;
    std::string data;
};

// The value of a key as the program reads it (comment stripped); "Error" when absent.
std::string ReadIniRaw(const CloudIniFile& ini, const IniKey& key, int number = 0);
// The same; nothing when absent.
std::optional<std::string> ReadIniText(const CloudIniFile& ini, const IniKey& key, int number = 0);

// A Choice key: the word of `choices` the value names, or the default word.
bool IsIniChoice(const IniKey& key, std::string_view value);
std::string_view ReadIniChoice(const CloudIniFile& ini, const IniKey& key, int number = 0);

// A Boolean key: the value, else the default, or `current` where the table says it stays.
bool IniBooleanOf(const IniKey& key, std::string_view value, bool current);
bool ReadIniBoolean(const CloudIniFile& ini, const IniKey& key, bool current, int number = 0);

// How a number key reads a value ("Error" when absent), and why.
enum class IniNumberCase { Taken, Absent, NotANumber, Rounded, TooSmall, TooLarge, Band };
struct IniNumberReading {
    std::optional<long> value; // nothing: the setting keeps its value, or has none
    IniNumberCase why = IniNumberCase::Taken;
    long written = 0; // the number as written, rounded and brought into the type's range
};
IniNumberReading IniNumberOf(const IniKey& key, std::string_view value);
std::optional<long> ReadIniNumber(const CloudIniFile& ini, const IniKey& key, int number = 0);

// A Path key's value as a path of this machine (see ConfiguredPath), or its default when the
// value is empty; "" when neither names anything.
std::string IniPathOf(const IniKey& key, std::string_view value, const IniFolders& folders,
                      Registry& registry, int number = 0);
std::string IniDefaultPath(const IniKey& key, const IniFolders& folders, int number = 0);
// Absent reads as the default.
std::string ReadIniPath(const CloudIniFile& ini, const IniKey& key, const IniFolders& folders,
                        Registry& registry, int number = 0);

} // namespace vellumar
