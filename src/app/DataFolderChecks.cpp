#include "app/DataFolderChecks.h"

#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/FontList.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ProcessLauncher.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "config/ProgramPaths.h"
#include "textures/SetCatalogue.h"

#include <algorithm>

namespace vellumar {

namespace {

// The name the placement message gives the program.
constexpr const char* kExecutableName = "Vellumar";

namespace keys = CloudIniKeys;

// The fonts named in cloud.ini must be installed; the report lists what could be used instead.
void CheckFonts(Services& services, const CloudIniFile& ini, const InstalledFonts& installedFonts,
                DataFolderSettings& settings)
{
    if (const auto proportional = ReadIniText(ini, keys::FontProportional))
        settings.ProportionalFont = *proportional;
    if (const auto fix = ReadIniText(ini, keys::FontFix))
        settings.FixFont = *fix;
    // Nothing named, nothing to look up; without windows the installed fonts are unknown.
    if (settings.ProportionalFont.empty() && settings.FixFont.empty())
        return;
    const TextList& installed = installedFonts.families();
    if (installed.empty())
        return;

    bool proportionalFound = settings.ProportionalFont.empty();
    bool fixFound = settings.FixFont.empty();
    TextList families;
    EnumerateFonts(installed, [&](const std::string& family) {
        proportionalFound =
            proportionalFound || EqualsIgnoreCase(family, settings.ProportionalFont);
        fixFound = fixFound || EqualsIgnoreCase(family, settings.FixFont);
        families.push_back(family);
        return true;
    });
    if (proportionalFound && fixFound)
        return;

    std::string report;
    if (!proportionalFound)
        report += "[Font] Proportional=" + settings.ProportionalFont +
                  "\nProportional font was not found.\n";
    if (!fixFound)
        report += "[Font] Fix=" + settings.FixFont + "\nFix font was not found.\n";
    report += "\n=== Fix and True Tyep font list ===";
    for (const std::string& family : families)
        report += "\n" + family;
    services.messages.ShowMessage(report, MessageStyle::Exclamation, "Font Error");
}

bool SamePath(FileOperations& files, const std::string& a, const std::string& b)
{
    const std::string left = files.resolve(TrimTrailingBackslash(a));
    const std::string right = files.resolve(TrimTrailingBackslash(b));
    return EqualsIgnoreCase(left, right);
}

StartUpOutcome MakeMissingDataFolders(Services& services, const std::string& dataFolder)
{
    TextList missing;
    for (const char* name : {"Texture", "Splash Screen", "Situation"}) {
        const std::string folder = JoinPath(dataFolder, name);
        if (IsError(FolderExists(services.files, folder)))
            missing.push_back(folder);
    }
    if (missing.empty())
        return StartUpOutcome::Continue;

    const int answer = services.messages.ShowMessage(
        NoDataFolderText(), MessageStyle::OKCancel | MessageStyle::Critical,
        "No data Folder found");
    if (answer != MessageResult::OK)
        return StartUpOutcome::EndProgram;
    for (const std::string& folder : missing) {
        if (IsError(MakeFolderPath(services.files, folder))) {
            services.messages.ShowMessage("Make Dir Error. \n" + folder,
                                          MessageStyle::OKOnly | MessageStyle::Critical,
                                          "No data Folder found");
            return StartUpOutcome::EndProgram;
        }
    }
    return StartUpOutcome::Continue;
}

void CheckSplashFolder(Services& services, const CloudIniFile& ini, const ProgramPaths& paths,
                       DataFolderSettings& settings)
{
    settings.SplashEnabled = false;
    if (ReadIniChoice(ini, keys::Splash) != "on")
        return;
    const std::string value = ReadIniRaw(ini, keys::SplashPath);
    settings.SplashFolder = IniPathOf(keys::SplashPath, value,
                                      {paths.ProgramPath, paths.DataFolder}, services.registry);
    if (IsError(FolderExists(services.files, settings.SplashFolder))) {
        services.messages.ShowMessage("[Splash Screen] Path = " + value + "\nFile path is " +
                                          settings.SplashFolder +
                                          "\nSplash Screen function will be not use.",
                                      MessageStyle::Information, "No data for Splash Screen ");
        return;
    }
    settings.SplashEnabled =
        IsOK(FileExists(services.files, JoinPath(settings.SplashFolder, "dlgsplash*.bmp")));
}

// The situation folder, the sound channel folders and the editor: all missing ones in one
// message.
void CheckOtherFolders(Services& services, const CloudIniFile& ini, const ProgramPaths& paths,
                       DataFolderSettings& settings, bool report)
{
    TextList missing;
    const IniFolders folders{paths.ProgramPath, paths.DataFolder};
    settings.SituationFolder = ReadIniPath(ini, keys::SituationLoc, folders, services.registry);
    if (IsError(FolderExists(services.files, settings.SituationFolder)))
        missing.push_back(settings.SituationFolder);
    for (int channel = 1; channel <= keys::SoundChannelPath.last; ++channel) {
        std::string& folder = settings.SoundChannelFolders[static_cast<std::size_t>(channel - 1)];
        folder = ReadIniPath(ini, keys::SoundChannelPath, folders, services.registry, channel);
        if (IsError(FolderExists(services.files, folder)))
            missing.push_back(folder);
    }
    settings.EditorPath = ReadIniPath(ini, keys::EditorPath, folders, services.registry);
    if (!settings.EditorPath.empty() && IsError(FileExists(services.files, settings.EditorPath)))
        missing.push_back(settings.EditorPath);

    if (missing.empty() || !report)
        return;
    std::string text;
    for (const std::string& path : missing)
        text += (text.empty() ? "" : "\n") + std::string("Please confirm a file that located at ") +
                path;
    services.messages.ShowMessage(text, MessageStyle::Exclamation, "ini read Error");
}

} // namespace

std::string ResolveDataFolder(std::string_view value, const std::string& programPath,
                              FileOperations& files, Registry& registry)
{
    const IniFolders folders{programPath, programPath};
    const std::string folder = IniPathOf(keys::DataFolderPath, value, folders, registry);
    if (IsOK(FolderExists(files, folder)))
        return folder;
    return IniDefaultPath(keys::DataFolderPath, folders);
}

std::string NoDataFolderText()
{
    return " Data should be located to your Vellumar directory.\n"
           "Texture  : All texture should be in your Vellumar\\Texture.\n"
           "Splash Screen : (dlgsplashN.bmp) should be set.\n"
           "                 dlgsplashN.bmp N:Number from 1 to xx.\n"
           "                 No bmp data is possible.\n"
           "Weather  : Weather data will be saved in the weather folder.\n"
           "Situation: WX/FLT files should be in Vellumar\\Situation.\n"
           "            No data is possible.\n"
           "\n"
           "Data folders will be made automatically if not found.";
}

StartUpOutcome RunDataFolderChecks(Services& services, CloudIniFile& ini, ProgramPaths& paths,
                                   const InstalledFonts& installedFonts,
                                   DataFolderSettings& settings)
{
    // 1. The path check: anything but on/off is taken as on.
    const std::string pathCheck = ReadIniRaw(ini, keys::PathCheck);
    if (!IsIniChoice(keys::PathCheck, pathCheck))
        ini.Write(std::string(keys::PathCheck.section), std::string(keys::PathCheck.key), "on");
    settings.PathCheckRan = ReadIniChoice(ini, keys::PathCheck) == "on";

    // 2. Fonts.
    CheckFonts(services, ini, installedFonts, settings);

    // 3. The data folder: the program folder unless cloud.ini names an existing one.
    paths.DataFolder = ResolveDataFolder(ReadIniRaw(ini, keys::DataFolderPath), paths.ProgramPath,
                                         services.files, services.registry);

    // 4. The program must not keep its data in the simulator's own folder.
    if (!paths.FsPath.empty() && SamePath(services.files, paths.DataFolder, paths.FsPath)) {
        services.messages.ShowMessage(
            std::string("Don't set ") + kExecutableName +
                ".exe to FS path.\nPlease locate Vellumar to other folder.",
            MessageStyle::OKOnly | MessageStyle::Critical, "Installation Error");
        return StartUpOutcome::EndProgram;
    }

    // 5. The data sub-folders.
    if (MakeMissingDataFolders(services, paths.DataFolder) == StartUpOutcome::EndProgram)
        return StartUpOutcome::EndProgram;

    // 6. The texture library must hold at least one group of sets.
    std::string textureFolder = JoinPath(paths.DataFolder, "Texture");
    const std::string reason =
        CheckDataFolder(services.files, services.events, textureFolder, paths.ProgramPath);
    if (!reason.empty()) {
        const std::string folder = JoinPath(paths.DataFolder, "Texture");
        services.messages.ShowMessage(
            "Data structure is wrong.\nPlease set Texture data correctly.\n" + folder,
            MessageStyle::OKOnly | MessageStyle::Critical, "Texture Error");
        services.launcher.openWithDesktop(folder);
        return StartUpOutcome::EndProgram;
    }

    // 7. Sounds, 8. splash pictures, 9. the other folders.
    settings.Sounds =
        ValidateSoundSettings(ini, services.files, services.messages, services.registry,
                              paths.DataFolder, paths.SharedDataPath, settings.PathCheckRan);
    CheckSplashFolder(services, ini, paths, settings);
    CheckOtherFolders(services, ini, paths, settings, settings.PathCheckRan);

    // 10. The full check ran; the next start may skip the reports.
    if (settings.PathCheckRan)
        ini.Write(std::string(keys::PathCheck.section), std::string(keys::PathCheck.key), "off");
    return StartUpOutcome::Continue;
}

void mnuShowIni_Click(Services& services, const ProgramPaths& paths)
{
    const std::string ini = JoinPath(paths.ProgramPath, "cloud.ini");
    if (IsError(FileExists(services.files, ini))) {
        services.messages.ShowMessage("Can't find CLOUD.INI.", MessageStyle::OKOnly,
                                      "No cloud.ini");
        return;
    }
    services.launcher.openWithDesktop(ini);
}

} // namespace vellumar
