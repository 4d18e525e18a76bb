// The simulator on Linux: a Windows program started through Wine (or a native stand-in started
// directly), and found among the processes, since its window is Wine's own business.

#include "common/SimulatorProcess.h"
#include "common/TextCompare.h"
#include "config/ProcessTable.h"
#include "config/WinePrefix.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace vellumar {

namespace {

namespace fs = std::filesystem;

// `name` in `folder`, in any letter case, as Windows would find it. The path is absolute: the
// program is started from inside its folder, where a relative one would lead elsewhere.
fs::path FileIgnoringCase(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    fs::path found;
    if (fs::is_regular_file(folder / name, error))
        found = folder / name;
    for (fs::directory_iterator it(folder, error), end; found.empty() && !error && it != end;
         it.increment(error))
        if (EqualsIgnoreCase(it->path().filename().string(), name) && it->is_regular_file(error))
            found = it->path();
    return found.empty() ? found : fs::absolute(found, error);
}

bool IsWindowsProgram(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    char magic[2] = {};
    return in.read(magic, 2) && magic[0] == 'M' && magic[1] == 'Z';
}

// `program` as the shell would find it: a path as it is, a bare name on the PATH. The result is
// absolute, since it is started from the simulator's folder, not from this program's.
std::string FindOnPath(const std::string& program)
{
    std::error_code error;
    if (program.find('/') != std::string::npos)
        return access(program.c_str(), X_OK) == 0 && !fs::is_directory(program, error)
                   ? fs::absolute(program, error).string()
                   : std::string();
    const char* path = std::getenv("PATH");
    std::string folders = path ? path : "/usr/local/bin:/usr/bin:/bin";
    std::size_t start = 0;
    while (start <= folders.size()) {
        std::size_t end = folders.find(':', start);
        if (end == std::string::npos)
            end = folders.size();
        const std::string folder = end > start ? folders.substr(start, end - start) : ".";
        const std::string candidate = folder + "/" + program;
        if (access(candidate.c_str(), X_OK) == 0 && !fs::is_directory(candidate, error))
            return fs::absolute(candidate, error).string();
        start = end + 1;
    }
    return {};
}

class PosixSimulatorProcess final : public SimulatorProcess {
public:
    Started start(const std::string& folder, const std::string& executable) override
    {
        const fs::path program = FileIgnoringCase(folder, executable);
        if (program.empty())
            return {false, (fs::path(folder) / executable).string() + " does not exist"};

        std::vector<std::string> arguments;
        if (IsWindowsProgram(program)) {
            const char* chosen = std::getenv("VELLUMAR_WINE");
            const std::string wineName = chosen && *chosen ? chosen : "wine";
            const std::string wine = FindOnPath(wineName);
            if (wine.empty())
                return {false, "Wine is not found (" + wineName +
                                   "); install it or name it in $VELLUMAR_WINE"};
            arguments = {wine, program.string()};
        } else {
            if (access(program.c_str(), X_OK) != 0)
                return {false, program.string() + " is not executable"};
            arguments = {program.string()};
        }

        // Everything the child needs is made here: between fork and exec only system calls
        // that are safe in a copy of a threaded process may run.
        std::vector<std::string> environment;
        const std::string prefix = "WINEPREFIX=" + WinePrefix::Location();
        for (char** entry = environ; *entry; ++entry)
            if (std::strncmp(*entry, "WINEPREFIX=", 11) != 0)
                environment.emplace_back(*entry);
        if (prefix.size() > 11)
            environment.push_back(prefix);
        std::vector<char*> argv;
        for (std::string& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        std::vector<char*> envp;
        for (std::string& entry : environment)
            envp.push_back(entry.data());
        envp.push_back(nullptr);
        const std::string workingFolder = program.parent_path().string();

        return Spawn(argv, envp, workingFolder);
    }

    Running find(const std::string& executable) override
    {
        // While the simulator runs, the process found last time answers with one read instead
        // of a read per process on the machine; any process that fits will do, even one that
        // took over its id.
        if (!ProcessNamed("/proc", lastFound_, executable))
            lastFound_ = FindProcessNamed("/proc", executable);
        return {lastFound_ != 0, lastFound_};
    }

private:
    long lastFound_ = 0;

    // Starts the program as a grandchild: the child that forks it ends at once and is reaped
    // here, so the simulator belongs to init and never becomes this program's zombie. A pipe
    // closed by a successful exec (or carrying errno from a failed one) says how it went.
    static Started Spawn(std::vector<char*>& argv, std::vector<char*>& envp,
                         const std::string& workingFolder)
    {
        int report[2];
        if (pipe2(report, O_CLOEXEC) != 0)
            return {false, std::string("cannot start a process: ") + std::strerror(errno)};
        const pid_t child = fork();
        if (child < 0) {
            close(report[0]);
            close(report[1]);
            return {false, std::string("cannot start a process: ") + std::strerror(errno)};
        }
        if (child == 0) {
            setsid(); // Ctrl+C in Vellumar's terminal is not meant for the simulator
            const pid_t grandchild = fork();
            if (grandchild != 0)
                _exit(grandchild < 0 ? 1 : 0);
            // Signals this program blocks are its own affair; a mask survives exec.
            sigset_t none;
            sigemptyset(&none);
            sigprocmask(SIG_SETMASK, &none, nullptr);
            // So does an ignored signal (vellumar-cli ignores a closed pipe).
            signal(SIGPIPE, SIG_DFL);
            const int nothing = open("/dev/null", O_RDONLY);
            if (nothing > STDIN_FILENO) {
                dup2(nothing, STDIN_FILENO);
                close(nothing);
            }
            int error = 0;
            if (chdir(workingFolder.c_str()) != 0)
                error = errno;
            else {
                execve(argv[0], argv.data(), envp.data());
                error = errno;
            }
            [[maybe_unused]] const ssize_t written = write(report[1], &error, sizeof error);
            _exit(127);
        }
        close(report[1]);
        int status = 0;
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        int error = 0;
        ssize_t got = 0;
        do {
            got = read(report[0], &error, sizeof error);
        } while (got < 0 && errno == EINTR);
        close(report[0]);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            return {false, "cannot start a process"};
        if (got == static_cast<ssize_t>(sizeof error))
            return {false, std::string(argv[0]) + ": " + std::strerror(error)};
        return {true, {}};
    }
};

} // namespace

std::unique_ptr<SimulatorProcess> CreatePlatformSimulatorProcess()
{
    return std::make_unique<PosixSimulatorProcess>();
}

} // namespace vellumar
