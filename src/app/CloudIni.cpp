#include "app/CloudIni.h"

#include "app/AutoRandomSelection.h"
#include "app/DataFolderChecks.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "config/ConfiguredPath.h"
#include "config/IniValue.h"
#include "config/ProgramPaths.h"
#include "textures/SetCatalogue.h"

#include <algorithm>

namespace vellumar {

namespace {

namespace keys = CloudIniKeys;

// A fatal read problem: the next start runs the full path check.
LoadOutcome FailRead(Services& services, CloudIniFile& ini, const std::string& text)
{
    ini.Write(std::string(keys::PathCheck.section), std::string(keys::PathCheck.key), "on");
    services.messages.ShowMessage(
        text + "\nPath check will be done on next running.\nIt may help your problem.",
        MessageStyle::OKOnly | MessageStyle::Critical, "ini read Error");
    return LoadOutcome::EndProgram;
}

std::string CantRead(const std::string& section, const std::string& key)
{
    return section + "," + key + " can't read from ini file.";
}

void ReadSituation(Services& services, const CloudIniFile& ini, const ProgramPaths& paths,
                   CloudIniSettings& settings)
{
    if (const auto file = ReadIniText(ini, keys::SituationCfgFile))
        settings.SituationCfgFile = std::string(TrimBlanks(*file));
    if (const auto section = ReadIniText(ini, keys::SituationSection))
        settings.SituationSection = *section;
    if (const auto key = ReadIniText(ini, keys::SituationKey))
        settings.SituationKey = *key;

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
    for (std::size_t i = 0; i < settings.SoundIntvl.size(); ++i)
        if (const auto value = ReadIniNumber(ini, keys::SoundIntvl, static_cast<int>(i) + 1))
            settings.SoundIntvl[i] = static_cast<int>(*value);
    for (std::size_t i = 0; i < settings.SoundVol.size(); ++i)
        if (const auto value = ReadIniNumber(ini, keys::SoundVol, static_cast<int>(i) + 1))
            settings.SoundVol[i] = static_cast<int>(*value);

    const IniFolders folders{paths.ProgramPath, paths.DataFolder};
    settings.LastMusicPath.clear();
    if (const auto lastMusic = ReadIniText(ini, keys::LastMusicPath)) {
        const std::string folder =
            IniPathOf(keys::LastMusicPath, *lastMusic, folders, services.registry);
        if (!folder.empty() && IsOK(FolderExists(services.files, folder)))
            settings.LastMusicPath = folder;
    }

    settings.MusicFiles.clear();
    for (int i = 1;; ++i) {
        const auto file = ReadIniText(ini, keys::MusicFile, i);
        if (!file)
            break;
        const std::string path = IniPathOf(keys::MusicFile, *file, folders, services.registry, i);
        if (!path.empty() && IsOK(FileExists(services.files, path)))
            settings.MusicFiles.push_back(path);
    }
}

void ReadLastInstalled(const CloudIniFile& ini, CloudIniSettings& settings)
{
    settings.NumberOfDisp =
        static_cast<int>(ReadIniNumber(ini, keys::NumberOfDisp).value_or(settings.NumberOfDisp));

    settings.LastInstalled.clear();
    for (int i = 1;; ++i) {
        const auto value = ReadIniText(ini, keys::LastInstalledEntry, i);
        if (!value)
            break;
        const std::string_view entry = TrimBlanks(*value);
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
        const auto tip = ReadIniText(ini, *FindIniKey("ToolTipsText", key));
        if (!tip || tip->empty())
            continue;
        for (const std::string& control : controls)
            settings.ToolTips.emplace_back(control, *tip);
    }
}

void AddSet(Services& services, int section, const std::string& dirName, const std::string& name,
            const ProgramPaths& paths, bool random, std::optional<int> order,
            CloudIniSettings& settings)
{
    TextureSetEntry set;
    set.section = section;
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
        const auto dirNameText = ReadIniText(ini, keys::SetDirName, number);
        if (!dirNameText) {
            if (number == 1)
                return FailRead(services, ini, "Process was stopped.");
            break;
        }
        const std::string dirName(TrimBlanks(*dirNameText));
        const std::string alias = ReadIniText(ini, keys::SetAlias, number).value_or("");
        const bool random = ReadIniChoice(ini, keys::SetRandom, number) != "off";
        const std::optional<int> order = ReadIniNumber(ini, keys::SetOrder, number);
        const bool hasAlias = !alias.empty();

        if (const std::optional<long> from = ReadIniNumber(ini, keys::SetFrom, number)) {
            const long to = ReadIniNumber(ini, keys::SetTo, number).value_or(*from);
            for (int i = static_cast<int>(*from); i <= to; ++i) {
                const std::string member = SeriesFolderName(dirName, i);
                if (IsError(FolderExists(services.files, JoinPath(textureFolder, member))))
                    continue;
                const std::string name =
                    hasAlias ? alias + " " + std::to_string(i) : LastPathComponent(member);
                AddSet(services, number, member, name, paths, random, order, settings);
            }
            continue;
        }
        const std::string folder = JoinPath(textureFolder, dirName);
        if (IsError(FolderExists(services.files, folder))) {
            services.messages.ShowMessage(folder + "\nData folder was not found.",
                                          MessageStyle::Exclamation, paths.IniName);
            continue;
        }
        AddSet(services, number, dirName, hasAlias ? alias : LastPathComponent(dirName), paths,
               random, order, settings);
    }
    return LoadOutcome::Loaded;
}

void ReadBackupList(const CloudIniFile& ini, CloudIniSettings& settings)
{
    settings.BackupList.clear();
    settings.BackupAll = ReadIniChoice(ini, keys::BackupWhat) == "all";
    if (settings.BackupAll)
        return;
    for (int i = 1;; ++i) {
        const auto item = ReadIniText(ini, keys::BackupItem, i);
        if (!item)
            break;
        settings.BackupList.push_back(*item);
    }
}

} // namespace

std::string SeriesFolderName(const std::string& dirName, int number)
{
    const bool storm = StartsWithIgnoreCase(LastPathComponent(dirName), "t-storm");
    return dirName + (storm ? "  " : " ") + std::to_string(number);
}

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
    static const std::vector<std::pair<std::string, TextList>> table = [] {
        std::vector<std::pair<std::string, TextList>> tips;
        for (const IniKey* row : CloudIniKeys::kAll) {
            if (row->section != "ToolTipsText")
                continue;
            TextList controls;
            std::string_view names = row->setting;
            while (!names.empty()) {
                const std::size_t blank = names.find(' ');
                controls.emplace_back(names.substr(0, blank));
                names = blank == std::string_view::npos ? "" : names.substr(blank + 1);
            }
            tips.emplace_back(std::string(row->key), std::move(controls));
        }
        return tips;
    }();
    return table;
}

LoadOutcome LoadCloudIni(Services& services, CloudIniFile& ini, ProgramPaths& paths,
                         const InstalledFonts& installedFonts, DataFolderSettings& checks,
                         CloudIniSettings& settings)
{
    const CloudIniFile::ConsistentRead oneVersion(ini);
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

    const auto appName = ReadIniText(ini, keys::AppName);
    if (!appName)
        return FailRead(
            services, ini,
            CantRead(std::string(keys::AppName.section), std::string(keys::AppName.key)));
    settings.AppName = *appName;

    settings.RandomWait = ReadIniNumber(ini, keys::RandomWait).value_or(settings.RandomWait);
    settings.BackupOriginals = false; // the backup buttons stay switched off
    settings.SituationEnabled = true;
    ReadSituation(services, ini, paths, settings);

    settings.ShowSkyFiles = ReadIniBoolean(ini, keys::ShowSkyFiles, settings.ShowSkyFiles);
    settings.UnloadAfterFsStart =
        ReadIniBoolean(ini, keys::UnloadAfterFsStart, settings.UnloadAfterFsStart);
    settings.StretchMode = ReadIniChoice(ini, keys::StretchMode) != "off";
    settings.StartSel = ReadIniChoice(ini, keys::StartSel);
    settings.AutoRandomInterval = 0;
    settings.AutoRandomStep = 1;
    if (checks.SplashEnabled) {
        // The counter is read here from [StartSel], while the rotation writes it to
        // [Splash Screen]: the two places are kept apart on purpose.
        settings.SplashLastNo = static_cast<int>(
            ReadIniNumber(ini, keys::SplashLastNo).value_or(settings.SplashLastNo));
        settings.SplashMode = ReadIniChoice(ini, keys::SplashMode);
    }
    ReadSound(services, ini, paths, settings);
    ReadLastInstalled(ini, settings);
    ReadToolTips(ini, settings);
    if (ReadSets(services, ini, paths, settings) == LoadOutcome::EndProgram)
        return LoadOutcome::EndProgram;
    settings.AutoRandom = ReadAutoRandomSelection(ini, settings.Sets);
    settings.SaveSelection = ReadIniBoolean(ini, keys::SaveSelection, settings.SaveSelection);
    ReadBackupList(ini, settings);
    return LoadOutcome::Loaded;
}

} // namespace vellumar
