#include "simulator/Splash.h"

#include "app/CloudIni.h"
#include "app/DataFolderChecks.h"
#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"

namespace vellumar {

namespace keys = CloudIniKeys;

SplashState SplashStateOf(const DataFolderSettings& checks, const CloudIniSettings& settings)
{
    SplashState state;
    state.SplashEnabled = checks.SplashEnabled;
    state.SplashFolder = checks.SplashFolder;
    state.SplashLastNo = settings.SplashLastNo;
    state.SplashMode = EqualsIgnoreCase(settings.SplashMode, "order") ? "order" : "random";
    return state;
}

std::string SplashPicture(const std::string& splashFolder, int number)
{
    return JoinPath(splashFolder, "dlgsplash" + std::to_string(number) + ".bmp");
}

std::string SimulatorSplash(const std::string& fsPath)
{
    return JoinPath(JoinPath(fsPath, "UIRES"), "dlgsplash.bmp");
}

std::string SimulatorSplashOriginal(const std::string& fsPath)
{
    return JoinPath(JoinPath(fsPath, "UIRES"), "dlgsplash(org).bmp");
}

void CountSplashPictures(FileOperations& files, const std::string& fsPath, SplashState& state)
{
    if (!state.SplashEnabled)
        return;
    if (IsError(FolderExists(files, state.SplashFolder))) {
        state.SplashEnabled = false;
        return;
    }
    const std::string splash = SimulatorSplash(fsPath);
    const std::string original = SimulatorSplashOriginal(fsPath);
    if (IsOK(FileExists(files, splash)) && IsError(FileExists(files, original)))
        ReplaceFileWithCopy(files, splash, original);
    int count = 0;
    while (IsOK(FileExists(files, SplashPicture(state.SplashFolder, count + 1))))
        ++count;
    state.SplashCount = count;
}

int RotateSplash(FileOperations& files, EventPump& events, CloudIniFile& ini,
                 const std::string& fsPath, SplashState& state,
                 const std::function<double()>& uniform)
{
    if (!state.SplashEnabled || state.SplashCount == 0)
        return 0;
    int number = 0;
    if (state.SplashCount < 2) {
        number = 1;
    } else if (state.SplashMode == "random") {
        // One generator, seeded once: reseeding from the clock before every draw would give
        // the same number again and again within one tick of the clock.
        do {
            number = static_cast<int>(uniform() * state.SplashCount + 1);
        } while (number == state.SplashLastNo || number < 1 || number > state.SplashCount);
    } else if (state.SplashMode == "order") {
        number = state.SplashLastNo + 1;
        if (number > state.SplashCount)
            number = 1;
    }
    state.SplashLastNo = number;
    // Written to [Splash Screen], though the start reads [StartSel]: the next start goes on
    // from the number found there.
    ini.Write(std::string(keys::SplashLastNoWritten.section),
              std::string(keys::SplashLastNoWritten.key), std::to_string(number));

    const std::string picture = SplashPicture(state.SplashFolder, number);
    if (number == 0 || IsError(FileExists(files, picture)))
        return 0;
    events.DoEvents();
    // The picture goes in under a temporary name and is swapped in: the simulator never finds
    // its splash bitmap missing or half copied.
    return ReplaceFileWithCopy(files, picture, SimulatorSplash(fsPath)) ? number : 0;
}

} // namespace vellumar
