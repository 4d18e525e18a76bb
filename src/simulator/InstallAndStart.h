#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace vellumar {

class Clock;
class MessageService;
class SimulatorProcess;

// How the next press of cmdInstAndStart goes: both flags are set again at every mouse-down.
struct StartFlags {
    bool StartFsAfterInstall = true;
    bool ArmAutoRandom = true;
};

enum class MouseButton { Left, Right };

// What cmdInstAndStart_MouseDown leaves to the window.
enum class StartMouseDown {
    Nothing,       // a left press: its click follows
    ClickNow,      // Shift+right: AutoRandom off, installed and started right away
    StartModeMenu, // right with AutoRandom on: mnuPopUpStartMode
};

StartMouseDown cmdInstAndStart_MouseDown(MouseButton button, bool shift, double autoRandomInterval,
                                         StartFlags& flags);

// What install-and-start reads and changes, and the steps that other work owns.
struct InstallAndStartContext {
    InstallAndStartContext(MessageService& messages, Clock& clock, SimulatorProcess& simulator,
                           double& autoRandomInterval,
                           std::chrono::system_clock::time_point& lastInstallTime,
                           int& orderPosition)
        : messages(messages)
        , clock(clock)
        , simulator(simulator)
        , AutoRandomInterval(autoRandomInterval)
        , LastInstallTime(lastInstallTime)
        , OrderPosition(orderPosition)
    {}

    MessageService& messages;
    Clock& clock;
    SimulatorProcess& simulator;
    bool situationMode = false;
    double& AutoRandomInterval;
    std::chrono::system_clock::time_point& LastInstallTime;
    int& OrderPosition;
    // One per set in catalogue order: the sets that take part in AutoRandom.
    std::vector<bool> selectionFlags;
    bool UnloadAfterFsStart = false;
    std::string fsFolder;
    std::string fsExecutable;

    std::function<bool()> installChosenSet = [] { return false; }; // of cmbClouds
    std::function<bool()> installSituation = [] { return false; };
    std::function<void()> beep = [] {};
    std::function<void()> openAutoRandomSelection = [] {}; // lblAutoRandom_Click
    std::function<void()> armAutoRandom = [] {};           // ButtonCtrl(False), Timer1 on
    std::function<void()> showAutoRandomOff = [] {};       // lblTime "Off"
    std::function<void()> rotateSplash = [] {};
    std::function<void()> closeMainWindow = [] {};
};

struct InstallAndStartOutcome {
    bool done = false; // everything asked for happened
    bool started = false;
    bool alreadyRunning = false;
    std::string startProblem; // why the simulator did not start
};

// cmdInstAndStart_Click: installs the chosen set or situation (or arms AutoRandom to install
// at once), rotates the splash picture, starts the simulator unless it runs, and closes the
// program afterwards when the user asked for that and AutoRandom is off.
InstallAndStartOutcome cmdInstAndStart_Click(InstallAndStartContext& context,
                                             const StartFlags& flags);

} // namespace vellumar
