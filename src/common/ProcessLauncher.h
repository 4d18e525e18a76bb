#pragma once

#include <memory>
#include <string>

namespace vellumar {

// Starts other programs.
class ProcessLauncher {
public:
    virtual ~ProcessLauncher() = default;

    // Opens a file or folder with the desktop's own application for it (a text editor for
    // cloud.ini, the file manager for a folder). False when nothing could be started.
    virtual bool openWithDesktop(const std::string& path) = 0;
};

std::unique_ptr<ProcessLauncher> CreatePlatformProcessLauncher();

} // namespace vellumar
