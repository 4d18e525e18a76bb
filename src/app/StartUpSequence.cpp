#include "app/StartUpSequence.h"

#include "app/FsDiscovery.h"
#include "app/UserProgramFolder.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/OriginalsGuard.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "config/GetSystemFolders.h"
#include "config/SystemFolders.h"
#include "textures/Install.h"
#include "textures/InterruptedInstall.h"
#include "textures/SetImport.h"
#include "textures/TextureFolders.h"

namespace vellumar {

namespace {

// The sun effect file is saved once, the first time the program meets the simulator, and
// never overwritten: the saved copy is the simulator's own.
void BackUpSunEffectOnce(Services& services, const ProgramPaths& paths)
{
    const std::string original = JoinPath(paths.FsPath, "suneffect.cfg");
    const std::string backup = JoinPath(paths.FsPath, "suneffect.cfg_BackUp");
    if (IsError(FileExists(services.files, backup)) && IsOK(FileExists(services.files, original)))
        services.files.copyFile(original, backup);
}

} // namespace

std::string IniFileProblem(FileOperations& files, const std::string& file)
{
    // A file missing this very moment is left to the reader, which reports it.
    const std::string why = WhyNotAPlainFile(files, file);
    return why.empty() ? why : "Cloud.ini in this application folder" + why;
}

bool IsSmallFontScreen(int logicalDpiY)
{
    return logicalDpiY == 96;
}

StartUpOutcome CheckIniFile(Services& services, ProgramState& state)
{
    state.paths.IniName = "cloud.ini";
    const std::string file = state.paths.IniFile();
    if (IsError(FileExists(services.files, file))) {
        services.messages.ShowMessage("No Cloud.ini file is found in this application folder.",
                                      MessageStyle::OKOnly | MessageStyle::Critical, "No ini File");
        return StartUpOutcome::EndProgram;
    }
    // Only a file (or a link to one) can be read and replaced; reading a named pipe would wait
    // for ever, and writing through a dangling link would make up a file where it points.
    if (const std::string problem = IniFileProblem(services.files, file); !problem.empty()) {
        services.messages.ShowMessage(problem + "\n" + file,
                                      MessageStyle::OKOnly | MessageStyle::Critical, "No ini File");
        return StartUpOutcome::EndProgram;
    }
    // A write of cloud.ini killed half way left its temporary file beside the file it replaces.
    RemoveLeftoverTemporaries(services.files, state.paths.ProgramPath);
    if (const std::string target = services.files.finalPath(file);
        target != services.files.resolve(file))
        RemoveLeftoverTemporaries(services.files, FolderOfPath(target));
    state.ini = std::make_unique<CloudIniFile>(services.files, services.messages, file);
    bool attributeChanged = true;
    if (const auto attributes = services.files.attributes(file);
        attributes && (*attributes & FileAttribute::ReadOnly))
        attributeChanged = services.files.setAttributes(file, FileAttribute::Archive);
    state.ini->RecordTimeStamp();
    if (!attributeChanged)
        services.messages.ShowMessage("ATTRIBUTE changing Error of CLOUD.ini.\n"
                                      "Is CLOUD.ini used another application ?",
                                      MessageStyle::OKOnly | MessageStyle::Exclamation,
                                      "cloud.ini");
    return StartUpOutcome::Continue;
}

LoadOutcome optFs_Click(Services& services, const ScreenFacts& screen, ProgramState& state,
                        int index)
{
    ProgramPaths& paths = state.paths;
    paths.FsIndex = index;
    paths.FsPath = paths.FsPaths[static_cast<std::size_t>(index)];
    paths.FsTexturePath = JoinPath(paths.FsPath, "texture");
    const LoadOutcome outcome = LoadCloudIni(services, *state.ini, paths, screen.installedFonts,
                                             state.checks, state.settings);
    ProtectSimulatorFiles(services.originals, paths);
    return outcome;
}

void ProtectSimulatorFiles(OriginalsGuard& guard, const ProgramPaths& paths)
{
    // The simulator's folder and its per-user folder (where its configuration names the start
    // situation); the data folder never counts, even where it lies inside the simulator's.
    guard.protect({paths.FsPath, paths.FsUserFolder}, paths.DataFolder,
                  OriginalsStore::FolderIn(paths.DataFolder));
}

StartUpOutcome RunStartUpSequence(Services& services, const ScreenFacts& screen,
                                  ProgramState& state)
{
    const ProgramFolderChoice program = services.systemFolders.programFolderChoice();
    state.paths.ProgramPath = TrimTrailingBackslash(program.folder);
    state.paths.SharedDataPath = services.systemFolders.sharedDataFolder();
    if (IsError(GetSystemFolders(services.systemFolders, services.messages, state.paths)))
        return StartUpOutcome::EndProgram;

    if (!IsSmallFontScreen(screen.logicalDpiY))
        services.messages.ShowSystemMessage("Sorry...\n"
                                            "Vellumar 2004 does not apply Large font size.\n"
                                            "Please select Small font size from Display property.",
                                            MessageStyle::OKOnly | MessageStyle::Information,
                                            "Screen Font Size Error");

    // An installed copy's first start for this user makes the user's own program folder.
    if (PrepareUserProgramFolder(services, state.paths, program.rule) == StartUpOutcome::EndProgram)
        return StartUpOutcome::EndProgram;
    if (CheckIniFile(services, state) == StartUpOutcome::EndProgram)
        return StartUpOutcome::EndProgram;
    if (FindFsFolder(services, *state.ini, state.paths) == DiscoveryOutcome::EndProgram)
        return StartUpOutcome::EndProgram;
    if (optFs_Click(services, screen, state, state.paths.FsIndex) == LoadOutcome::EndProgram)
        return StartUpOutcome::EndProgram;

    BackUpSunEffectOnce(services, state.paths);
    RemoveInstallLeftovers(services.files, TextureFoldersOf(state.paths));
    // An import killed before it put its set in place left its unpacked files behind.
    RemoveImportLeftovers(services.files, JoinPath(state.paths.DataFolder, "Texture"));
    return StartUpOutcome::Continue;
}

InterruptedInstallChoice OfferInterruptedInstallAtStart(Services& services,
                                                        const ProgramState& state)
{
    OriginalsStore* store = services.originals.store();
    if (!store)
        return InterruptedInstallChoice::None;
    TextureServices textures{services.messages, services.files, services.events, services.clock};
    return OfferInterruptedInstall(textures, *store, state.paths.DataFolder);
}

} // namespace vellumar
