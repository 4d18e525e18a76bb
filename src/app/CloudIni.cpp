#include "app/CloudIni.h"

#include "app/DataFolderChecks.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/ConfiguredPath.h"
#include "config/IniValue.h"
#include "config/ProgramPaths.h"
#include "textures/SetCatalogue.h"

#include <algorithm>

namespace vellumar {

namespace {

bool IsPresent(const std::string& value)
{
    return !IsError(value);
}

// A fatal read problem: the next start runs the full path check.
LoadOutcome FailRead(Services& services, CloudIniFile& ini, const std::string& text)
{
    ini.Write("PathCheck", "Check", "on");
    services.messages.ShowMessage(
        text + "\nPath check will be done on next running.\nIt may help your problem.",
        MessageStyle::OKOnly | MessageStyle::Critical, "ini read Error");
    return LoadOutcome::EndProgram;
}

std::string CantRead(const std::string& section, const std::string& key)
{
    return section + "," + key + " can't read from ini file.";
}

bool BooleanOr(const std::string& value, bool fallback)
{
    return ParseBooleanText(value).value_or(fallback);
}

void ReadSituation(Services& services, const CloudIniFile& ini, const ProgramPaths& paths,
                   CloudIniSettings& settings)
{
    if (const std::string file = ini.ReadIniValue("Situation", "CfgFile"); IsPresent(file))
        settings.SituationCfgFile = std::string(TrimBlanks(file));
    if (const std::string section = ini.ReadIniValue("Situation", "Section"); IsPresent(section))
        settings.SituationSection = section;
    if (const std::string key = ini.ReadIniValue("Situation", "Key"); IsPresent(key))
        settings.SituationKey = key;

    const std::string tail = "Situation function will be disabled.\nPlease confirm [Situation] "
                             "section in " +
                             paths.IniName + ".";
    std::string problem;
    if (settings.SituationCfgFile.empty()) {
        problem = "Can't read from [Situation] CfgFile= .\n" + tail;
    } else {
        const std::string userFolder = JoinPath(JoinPath(paths.AppDataPath, "Microsoft"), "FS9");
        if (IsError(FileExists(services.files, JoinPath(userFolder, settings.SituationCfgFile))))
            problem = "Can't find " + settings.SituationCfgFile + ".\n" + tail;
    }
    if (!problem.empty()) {
        services.messages.ShowMessage(problem, MessageStyle::Information, "Ini Error");
        settings.SituationEnabled = false;
    }
}

void ReadSound(Services& services, const CloudIniFile& ini, const ProgramPaths& paths,
               CloudIniSettings& settings)
{
    for (std::size_t i = 0; i < settings.SoundIntvl.size(); ++i) {
        const auto value =
            ParseInteger16(ini.ReadIniValue("Sound", "Ch" + std::to_string(i + 1) + "Intvl"));
        if (!value)
            settings.SoundIntvl[i] = 5;
        else if (*value >= 0)
            settings.SoundIntvl[i] = std::min(*value, 60);
    }
    for (std::size_t i = 0; i < settings.SoundVol.size(); ++i) {
        const auto value =
            ParseInteger16(ini.ReadIniValue("Sound", "Ch" + std::to_string(i + 1) + "Vol"));
        if (!value)
            settings.SoundVol[i] = 50;
        else if (*value >= 0)
            settings.SoundVol[i] = std::min(*value, 100);
    }

    settings.LastMusicPath.clear();
    const std::string lastMusic = ini.ReadIniValue("Sound", "LastMusicPath");
    if (IsPresent(lastMusic)) {
        const std::string folder = ConfiguredPath(lastMusic, paths.ProgramPath, services.registry);
        if (IsOK(FolderExists(services.files, folder)))
            settings.LastMusicPath = folder;
    }

    settings.MusicFiles.clear();
    for (int i = 1;; ++i) {
        const std::string file = ini.ReadIniValue("Sound", "MusicFile" + std::to_string(i));
        if (!IsPresent(file))
            break;
        const std::string path = ConfiguredPath(file, paths.ProgramPath, services.registry);
        if (IsOK(FileExists(services.files, path)))
            settings.MusicFiles.push_back(path);
    }
}

void ReadLastInstalled(const CloudIniFile& ini, CloudIniSettings& settings)
{
    const auto limit = ParseInteger16(ini.ReadIniValue("LastInstalled", "NumberOfDisp"));
    settings.NumberOfDisp = !limit || *limit < 0 ? 3 : (*limit == 0 ? 1 : *limit);

    settings.LastInstalled.clear();
    for (int i = 1;; ++i) {
        const std::string value = ini.ReadIniValue("LastInstalled", std::to_string(i));
        if (!IsPresent(value))
            break;
        const std::string_view entry = TrimBlanks(value);
        const std::size_t comma = entry.find(',');
        if (comma == std::string_view::npos)
            continue;
        const std::string setName(entry.substr(0, comma));
        const std::string dataType(entry.substr(comma + 1));
        if (!setName.empty() && !dataType.empty())
            settings.LastInstalled.push_back({setName, dataType});
    }
}

void ReadToolTips(const CloudIniFile& ini, CloudIniSettings& settings)
{
    settings.ToolTips.clear();
    for (const auto& [key, controls] : ToolTipControls()) {
        const std::string tip = ini.ReadIniValue("ToolTipsText", key);
        if (!IsPresent(tip) || tip.empty())
            continue;
        for (const std::string& control : controls)
            settings.ToolTips.emplace_back(control, tip);
    }
}

// Folder names of a numbered series: one blank before the number, two for the thunderstorm
// sets, as their folders are named on disk.
std::string SeriesFolderName(const std::string& dirName, int number)
{
    const bool storm = StartsWithIgnoreCase(LastPathComponent(dirName), "t-storm");
    return dirName + (storm ? "  " : " ") + std::to_string(number);
}

void AddSet(Services& services, const std::string& dirName, const std::string& name,
            const ProgramPaths& paths, bool random, std::optional<int> order,
            CloudIniSettings& settings)
{
    TextureSetEntry set;
    set.dirName = dirName;
    set.folder = JoinPath(JoinPath(paths.DataFolder, "Texture"), ToNativeSeparators(dirName));
    set.name = name;
    set.random = random;
    set.order = order;
    set.compatibility = CompatibilityOf(ScanSetFolder(services.files, services.events, set.folder));
    settings.Sets.push_back(std::move(set));
}

LoadOutcome ReadSets(Services& services, CloudIniFile& ini, const ProgramPaths& paths,
                     CloudIniSettings& settings)
{
    settings.Sets.clear();
    const std::string textureFolder = JoinPath(paths.DataFolder, "Texture");
    for (int number = 1;; ++number) {
        const std::string section = "Set" + std::to_string(number);
        const std::string dirName = std::string(TrimBlanks(ini.ReadIniValue(section, "DirName")));
        if (!IsPresent(dirName)) {
            if (number == 1)
                return FailRead(services, ini, "Process was stopped.");
            break;
        }
        const std::string alias = ini.ReadIniValue(section, "Alias");
        const bool random = !EqualsIgnoreCase(ini.ReadIniValue(section, "Random"), "off");
        const std::string orderText = ini.ReadIniValue(section, "Order");
        const std::optional<int> order =
            IsNumericText(orderText) ? ParseInteger16(orderText) : std::nullopt;
        const bool hasAlias = IsPresent(alias) && !alias.empty();

        const auto from = ParseInteger16(ini.ReadIniValue(section, "from"));
        if (from) {
            const int to = ParseInteger16(ini.ReadIniValue(section, "to")).value_or(*from);
            for (int i = *from; i <= to; ++i) {
                const std::string member = SeriesFolderName(dirName, i);
                if (IsError(FolderExists(services.files, JoinPath(textureFolder, member))))
                    continue;
                const std::string name =
                    hasAlias ? alias + " " + std::to_string(i) : LastPathComponent(member);
                AddSet(services, member, name, paths, random, order, settings);
            }
            continue;
        }
        const std::string folder = JoinPath(textureFolder, dirName);
        if (IsError(FolderExists(services.files, folder))) {
            services.messages.ShowMessage(folder + "\nData folder was not found.",
                                          MessageStyle::Exclamation, paths.IniName);
            continue;
        }
        AddSet(services, dirName, hasAlias ? alias : LastPathComponent(dirName), paths, random,
               order, settings);
    }
    return LoadOutcome::Loaded;
}

void ReadBackupList(const CloudIniFile& ini, CloudIniSettings& settings)
{
    settings.BackupList.clear();
    settings.BackupAll =
        EqualsIgnoreCase(TrimBlanks(ini.ReadIniValue("ToBeBackuped", "bk")), "all");
    if (settings.BackupAll)
        return;
    for (int i = 1;; ++i) {
        const std::string item = ini.ReadIniValue("ToBeBackuped", "bk" + std::to_string(i));
        if (!IsPresent(item))
            break;
        settings.BackupList.push_back(item);
    }
}

} // namespace

bool IniChangedDuringRun(MessageService& messages, const CloudIniFile& ini)
{
    if (!ini.ChangedByOthers())
        return false;
    messages.ShowMessage("Ini file was changed during run Vellumar.\n"
                         "Don't change the Ini file on running Vellumar.\n"
                         "Vellumar will be Stopped...",
                         MessageStyle::OKOnly | MessageStyle::Critical, "Ini changed");
    return true;
}

const std::vector<std::pair<std::string, TextList>>& ToolTipControls()
{
    static const std::vector<std::pair<std::string, TextList>> table = {
        {"Sky", {"optSky"}},
        {"Situation", {"optFLT"}},
        {"Random", {"cmdRandom"}},
        {"Inst&RunFs", {"cmdInstAndStart"}},
        {"Install", {"cmdInst"}},
        {"AutoInstall", {"lblAutoRandom"}},
        {"RndomTime/Off", {"lblTime"}},
        {"Option", {"lblOption"}},
        {"FilterOfList", {"lblFilter0", "lblFilter1", "lblFilter2", "lblFilter3", "lblFilter5"}},
        {"DataList", {"lstSky"}},
    };
    return table;
}

LoadOutcome LoadCloudIni(Services& services, CloudIniFile& ini, ProgramPaths& paths,
                         const InstalledFonts& installedFonts, DataFolderSettings& checks,
                         CloudIniSettings& settings)
{
    if (RunDataFolderChecks(services, ini, paths, installedFonts, checks) ==
        StartUpOutcome::EndProgram)
        return LoadOutcome::EndProgram;

    if (IsError(FileExists(services.files, paths.IniFile()))) {
        services.messages.ShowMessage("No ini file is found in this application folder.\n"
                                      "Please confirm CLOUD.ini in " +
                                          paths.ProgramPath,
                                      MessageStyle::OKOnly | MessageStyle::Critical, "No ini File");
        return LoadOutcome::EndProgram;
    }

    const std::string appName = ini.ReadIniValue("AppName", "Name");
    if (!IsPresent(appName))
        return FailRead(services, ini, CantRead("AppName", "Name"));
    settings.AppName = appName;

    const std::string randomWait = ini.ReadIniValue("Test", "RandomWait");
    settings.RandomWait =
        IsNumericText(randomWait) ? static_cast<long>(*ParseNumber(randomWait)) : 0;
    settings.BackupOriginals = false; // the backup buttons stay switched off
    settings.SituationEnabled = true;
    ReadSituation(services, ini, paths, settings);

    settings.ShowSkyFiles = BooleanOr(ini.ReadIniValue("ShowSkyFiles", "ShowFiles"), false);
    settings.UnloadAfterFsStart =
        BooleanOr(ini.ReadIniValue("Unload", "Unload_Me_After_FsStart"), false);
    settings.StretchMode = !EqualsIgnoreCase(ini.ReadIniValue("StretchMode", "Stretch"), "off");
    settings.StartSel =
        EqualsIgnoreCase(ini.ReadIniValue("StartSel", "Sel"), "situation") ? "situation" : "sky";
    settings.AutoRandomInterval = 0;
    settings.AutoRandomStep = 1;
    if (checks.SplashEnabled) {
        // The counter is read here from [StartSel], while the rotation writes it to
        // [Splash Screen]: the two places are kept apart on purpose.
        settings.SplashLastNo = ParseInteger16(ini.ReadIniValue("StartSel", "LastNo")).value_or(0);
        settings.SplashMode =
            EqualsIgnoreCase(ini.ReadIniValue("StartSel", "Mode"), "order") ? "order" : "random";
    }
    ReadSound(services, ini, paths, settings);
    ReadLastInstalled(ini, settings);
    ReadToolTips(ini, settings);
    if (ReadSets(services, ini, paths, settings) == LoadOutcome::EndProgram)
        return LoadOutcome::EndProgram;
    settings.SaveSelection =
        BooleanOr(ini.ReadIniValue("LoadSaveSelection", "Sel"), settings.SaveSelection);
    ReadBackupList(ini, settings);
    return LoadOutcome::Loaded;
}

} // namespace vellumar
