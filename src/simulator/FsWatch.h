#pragma once

#include <string>

namespace vellumar {

class SimulatorProcess;

// What the watch timer (tmrFsCheck2, once a second) knows of the simulator.
struct FsWatchState {
    bool FsRunning = false;
    bool FsWasRunning = false; // FsRunning of the tick before
    long ProcessId = 0;
};

// One tick of the watch. True when the simulator has just closed (it ran on the tick before and
// is gone now): the caller then switches AutoRandom off as a right click on lblTime does.
bool tmrFsCheck2_Timer(SimulatorProcess& simulator, const std::string& executable,
                       FsWatchState& state);

} // namespace vellumar
