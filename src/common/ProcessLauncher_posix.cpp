#include "common/ProcessLauncher.h"

#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace vellumar {

namespace {

class PosixProcessLauncher final : public ProcessLauncher {
public:
    bool openWithDesktop(const std::string& path) override
    {
        // xdg-open hands the path to the desktop's default application and returns; the
        // child is reaped right away so no zombie is left behind.
        const char* opener = std::getenv("VELLUMAR_OPENER");
        const std::string program = opener && *opener ? opener : "xdg-open";
        char* argv[] = {const_cast<char*>(program.c_str()), const_cast<char*>(path.c_str()),
                        nullptr};
        pid_t pid = 0;
        if (posix_spawnp(&pid, program.c_str(), nullptr, nullptr, argv, environ) != 0)
            return false;
        int status = 0;
        waitpid(pid, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
};

} // namespace

std::unique_ptr<ProcessLauncher> CreatePlatformProcessLauncher()
{
    return std::make_unique<PosixProcessLauncher>();
}

} // namespace vellumar
