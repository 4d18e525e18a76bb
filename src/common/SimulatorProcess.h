#pragma once

#include <memory>
#include <string>

namespace vellumar {

// The simulator as a running program: started from its folder, and looked for once a second.
class SimulatorProcess {
public:
    struct Started {
        bool ok = false;
        // Why it could not be started (the executable is missing, Wine is not found), for a
        // log or a terminal; the program's own message stays "FS Opening Error".
        std::string problem;
    };

    struct Running {
        bool running = false;
        long processId = 0; // 0 while not running
    };

    virtual ~SimulatorProcess() = default;

    // Starts `folder` + separator + `executable` with no arguments, in `folder`, shown without
    // taking the focus. Returns as soon as the program is under way; nothing waits for it, and
    // it leaves no zombie behind when it ends.
    virtual Started start(const std::string& folder, const std::string& executable) = 0;

    // Whether the simulator's main window exists, and whose process it is. Windows asks for a
    // top-level window of class "FS98MAIN"; where that window cannot be seen (the simulator
    // under Wine on Linux), a process whose command line names `executable` stands for it.
    virtual Running find(const std::string& executable) = 0;
};

// Made by the platform's services (config/PlatformServices), which know the Wine prefix.
std::unique_ptr<SimulatorProcess> CreatePlatformSimulatorProcess();

} // namespace vellumar
