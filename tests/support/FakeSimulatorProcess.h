#pragma once

#include "common/SimulatorProcess.h"

#include <string>
#include <vector>

namespace vellumar::test {

// A simulator that starts when asked (unless told to fail) and runs until `quit()`.
class FakeSimulatorProcess final : public SimulatorProcess {
public:
    Started start(const std::string& folder, const std::string& executable) override
    {
        starts.push_back(folder + "|" + executable);
        if (failStart)
            return {false, "the test refuses the start"};
        running = true;
        return {true, {}};
    }

    Running find(const std::string& executable) override
    {
        lookedFor = executable;
        ++finds;
        if (!running)
            return {};
        return {true, 4242};
    }

    void quit() { running = false; }

    bool failStart = false;
    bool running = false;
    std::vector<std::string> starts; // "folder|executable" per start
    std::string lookedFor;
    int finds = 0;
};

} // namespace vellumar::test
