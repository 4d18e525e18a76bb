#include "simulator/FsWatch.h"

#include "common/SimulatorProcess.h"

namespace vellumar {

bool tmrFsCheck2_Timer(SimulatorProcess& simulator, const std::string& executable,
                       FsWatchState& state)
{
    const SimulatorProcess::Running found = simulator.find(executable);
    state.FsRunning = found.running;
    state.ProcessId = found.running ? found.processId : 0;
    const bool justClosed = !state.FsRunning && state.FsWasRunning;
    state.FsWasRunning = state.FsRunning;
    return justClosed;
}

} // namespace vellumar
