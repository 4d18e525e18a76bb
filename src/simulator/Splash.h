#pragma once

#include <functional>
#include <string>

namespace vellumar {

class CloudIniFile;
class EventPump;
class FileOperations;
struct CloudIniSettings;
struct DataFolderSettings;

// The simulator shows UIRES\dlgsplash.bmp while it starts. Each install-and-start puts one of
// the numbered pictures dlgsplash1.bmp, dlgsplash2.bmp, ... of the splash folder in its place,
// at random or in turn; the simulator's own picture is kept once as dlgsplash(org).bmp.
struct SplashState {
    bool SplashEnabled = false;
    std::string SplashFolder;
    // Pictures 1, 2, ... that exist without a gap.
    int SplashCount = 0;
    int SplashLastNo = 0;
    std::string SplashMode = "random"; // or "order"
};

// The rotation as the configuration load left it ([Splash Screen] Splash and Path, [StartSel]
// Mode and LastNo).
SplashState SplashStateOf(const DataFolderSettings& checks, const CloudIniSettings& settings);

// Picture `number` of the splash folder.
std::string SplashPicture(const std::string& splashFolder, int number);
// The simulator's splash bitmap, and where its original is kept.
std::string SimulatorSplash(const std::string& fsPath);
std::string SimulatorSplashOriginal(const std::string& fsPath);

// Run once at start-up: keeps the simulator's own picture (only the first time) and counts the
// pictures. A missing splash folder switches the rotation off for the rest of the run.
void CountSplashPictures(FileOperations& files, const std::string& fsPath, SplashState& state);

// Run by install-and-start before the simulator starts: chooses the next picture (never the
// same one twice in a row at random), records it in cloud.ini and copies it over the
// simulator's splash bitmap. `uniform` answers in [0, 1). Returns the picture's number, 0 when
// nothing was copied.
int RotateSplash(FileOperations& files, EventPump& events, CloudIniFile& ini,
                 const std::string& fsPath, SplashState& state,
                 const std::function<double()>& uniform);

} // namespace vellumar
