#include "simulator/Situation.h"

#include "app/StartUpSequence.h"
#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "config/CodePage.h"
#include "config/ConfiguredPath.h"
#include "config/ProfileText.h"
#include "config/SimulatorSidePath.h"
#include "config/clsCfgRead.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/SetCatalogue.h"

namespace vellumar {

namespace {

constexpr std::string_view kSection = "Vellumar";

// The situation's name without its extension, in its folder: the stem of its companions.
std::string Stem(const std::string& folder, const std::string& name)
{
    const std::size_t dot = name.find_last_of('.');
    return JoinPath(folder, dot == std::string::npos ? name : name.substr(0, dot));
}

// One key of a situation file, as text; nothing when the key (or the file) is not there.
std::optional<std::string> SituationValue(FileOperations& files, const std::string& file,
                                          const std::string& key)
{
    const std::optional<std::string> contents = files.readFile(file);
    if (!contents)
        return std::nullopt;
    const std::string value =
        clsCfgRead::DataOf(ProfileText::ProfileDocument(*contents), std::string(kSection), key);
    if (IsError(value))
        return std::nullopt;
    return DecodeAnsiText(value);
}

bool HasBitmap(FileOperations& files, const std::string& folder)
{
    return IsOK(FileExists(files, JoinPath(folder, "*.bmp")));
}

bool IsInside(FileOperations& files, const std::string& folder, const std::string& path)
{
    const std::string base = files.resolve(folder);
    const std::string candidate = files.resolve(path);
    return candidate.size() > base.size() && StartsWithIgnoreCase(candidate, base) &&
           IsPathSeparator(candidate[base.size()]);
}

// The start situation's key, written in the ANSI code page that the simulator reads its
// configuration in. An empty value keeps the key: the simulator then starts with its own
// default flight.
bool WriteSimulatorConfig(FileOperations& files, const std::string& path,
                          const std::string& section, const std::string& key,
                          const std::string& value)
{
    const std::optional<std::string> contents = files.readFile(path);
    if (!contents || TrimBlanks(section).empty() || TrimBlanks(key).empty())
        return false;
    const std::string text = EncodeAnsiText(value).value_or(value);
    const std::optional<std::string> edited =
        ProfileText::Edit(*contents, section, key, std::string_view(text));
    return !edited || files.replaceFile(path, *edited);
}

} // namespace

TextList ListSituations(FileOperations& files, EventPump& events, const std::string& folder)
{
    TextList paths;
    ListFiles(files, events, folder, "*.flt", paths);
    ListFiles(files, events, folder, "*.wx", paths);
    TextList names;
    names.reserve(paths.size());
    for (const std::string& path : paths)
        names.push_back(LastPathComponent(path));
    return names;
}

std::string CheckSituationFolder(FileOperations& files, EventPump& events,
                                 const std::string& folder)
{
    if (IsError(FolderExists(files, folder)))
        return "Can't find the path.";
    if (ListSituations(files, events, folder).empty())
        return folder + "\n*.FLT and *.WX files not found.";
    return {};
}

SituationPreview PreviewSituation(FileOperations& files, const std::string& folder,
                                  const std::string& name)
{
    SituationPreview preview;
    const std::string stem = Stem(folder, name);
    const std::string textFile = stem + ".txt";
    if (IsOK(FileExists(files, textFile))) {
        // A description file wins even when it says nothing: then the status stays as it is.
        const std::string text =
            std::string(TrimBlanks(DecodeAnsiText(files.readFile(textFile).value_or(""))));
        if (!text.empty()) {
            std::string lines;
            for (std::size_t i = 0; i < text.size(); ++i)
                if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n'))
                    lines.push_back(text[i] == '\r' ? '\n' : text[i]);
            preview.text = lines;
            preview.fromTextFile = true;
        }
    } else if (auto shown = SituationValue(files, JoinPath(folder, name), "ShownText")) {
        preview.text = *shown;
    }
    if (IsOK(FileExists(files, stem + ".jpg")))
        preview.picture = stem + ".jpg";
    return preview;
}

TextList SituationSkyFolders(FileOperations& files, const std::string& situationFile)
{
    TextList folders;
    for (int number = 1;; ++number) {
        const auto value =
            SituationValue(files, situationFile, "SkyFolder" + std::to_string(number));
        if (!value)
            break;
        folders.push_back(*value);
    }
    return folders;
}

SkyFolder ResolveSkyFolder(FileOperations& files, Registry& registry,
                           const std::string& textureLibrary, const std::string& value)
{
    SkyFolder sky;
    sky.value = value;
    const std::string trimmed(TrimBlanks(value));
    sky.folder = ConfiguredPath(ToNativeSeparators(trimmed), textureLibrary, registry);
    if (trimmed.empty() || !IsInside(files, textureLibrary, sky.folder)) {
        sky.outside = true;
        return sky;
    }
    // A link inside the library may still lead out of it: each step is followed.
    const std::string base = files.resolve(textureLibrary);
    std::string walked = base;
    const std::string rest = files.resolve(sky.folder).substr(base.size() + 1);
    std::size_t start = 0;
    while (start <= rest.size()) {
        std::size_t end = start;
        while (end < rest.size() && !IsPathSeparator(rest[end]))
            ++end;
        walked = JoinPath(walked, rest.substr(start, end - start));
        const std::string target = files.finalPath(walked);
        if (target != walked && !IsInside(files, textureLibrary, target)) {
            sky.outside = true;
            return sky;
        }
        start = end + 1;
    }
    return sky;
}

std::string SituationCfgPath(const ProgramState& state)
{
    return JoinPath(state.paths.FsUserFolder, state.settings.SituationCfgFile);
}

std::string StartSituationValue(const std::string& situationFile)
{
    return SimulatorSidePath(situationFile);
}

SituationOutcome InstallSituation(TextureServices& textures, Registry& registry,
                                  const ProgramState& state, const SituationRequest& request,
                                  LastInstalledRecord& record,
                                  const std::function<void()>& buttonSound)
{
    SituationOutcome outcome;
    MessageService& messages = textures.messages;
    FileOperations& files = textures.files;
    if (request.name.empty()) {
        messages.ShowMessage("No situation file is selected.", MessageStyle::Information,
                             "No Slection");
        return outcome;
    }
    const std::string cfgFile = SituationCfgPath(state);
    if (IsError(FileExists(files, cfgFile))) {
        messages.ShowMessage("Not found " + cfgFile, MessageStyle::Exclamation, "File Not Found");
        return outcome;
    }

    // Every folder is checked before anything is installed: a situation that names one place
    // outside the library is not trusted with the others either.
    const std::string situationFile = JoinPath(state.checks.SituationFolder, request.name);
    const std::string library = JoinPath(state.paths.DataFolder, "Texture");
    std::vector<SkyFolder> sets;
    for (const std::string& value : SituationSkyFolders(files, situationFile)) {
        SkyFolder sky = ResolveSkyFolder(files, registry, library, value);
        if (sky.outside) {
            messages.ShowMessage(request.name + " names the texture folder\n" + value +
                                     "\nwhich is not in the texture library " + library +
                                     ".\nNothing of this situation was installed.",
                                 MessageStyle::Exclamation, "Situation Refused");
            return outcome;
        }
        if (HasBitmap(files, sky.folder))
            sets.push_back(std::move(sky));
    }

    const TextureFolders folders = TextureFoldersOf(state.paths);
    for (const SkyFolder& sky : sets) {
        InstallRequest install;
        install.setName = std::string(TrimBlanks(sky.value));
        install.cloudSetFolder = sky.folder;
        for (const std::string& file :
             ListSetFiles(ScanSetFolder(files, textures.events, sky.folder)))
            install.cloudFiles.emplace_back(file, true);
        install.ask = request.ask;
        install.autoRandomRunning = request.autoRandomRunning;
        install.backupOriginals = state.settings.BackupOriginals;
        const InstallOutcome installed = InstallTextureSet(textures, folders, install, record);
        if (installed.lastInstallTime)
            outcome.lastInstallTime = installed.lastInstallTime;
        outcome.stopAutoRandom = outcome.stopAutoRandom || installed.stopAutoRandom;
        if (!installed.installed)
            return outcome; // the install told the user why
        outcome.installedSets.push_back(install.setName);
    }

    if (!WriteSimulatorConfig(files, cfgFile, state.settings.SituationSection,
                              state.settings.SituationKey, StartSituationValue(situationFile))) {
        messages.ShowMessage(cfgFile + "\ncan't be written. The start situation is unchanged.\n" +
                                 "Please confirm [Situation] Section and Key in cloud.ini.",
                             MessageStyle::Exclamation, "File Write Error");
        return outcome;
    }
    buttonSound();
    outcome.ok = true;
    return outcome;
}

bool ClearSituation(FileOperations& files, MessageService& messages, const ProgramState& state,
                    const std::function<void()>& beep)
{
    const std::string cfgFile = SituationCfgPath(state);
    if (IsError(FileExists(files, cfgFile))) {
        messages.ShowMessage(cfgFile + " not found. Clear Situation not be done.",
                             MessageStyle::Exclamation, "Not found " + cfgFile);
        return false;
    }
    if (!WriteSimulatorConfig(files, cfgFile, state.settings.SituationSection,
                              state.settings.SituationKey, ""))
        return false;
    beep();
    return true;
}

} // namespace vellumar
