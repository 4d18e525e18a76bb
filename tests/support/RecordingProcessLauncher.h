#pragma once

#include "common/ProcessLauncher.h"
#include "common/TextList.h"

namespace vellumar::test {

// Records what would have been opened; opens nothing.
class RecordingProcessLauncher final : public ProcessLauncher {
public:
    bool openWithDesktop(const std::string& path) override
    {
        opened.push_back(path);
        return true;
    }
    TextList opened;
};

} // namespace vellumar::test
