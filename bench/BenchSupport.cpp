#include "BenchSupport.h"

#include <cerrno>
#include <condition_variable>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace vellumar::bench {

namespace {

std::vector<Comparison>& MutableComparisons()
{
    static std::vector<Comparison> comparisons;
    return comparisons;
}

struct Scratch {
    std::string path;
    Scratch()
    {
        path = (std::filesystem::temp_directory_path() /
                ("vellumar-bench-" + std::to_string(::getpid())))
                   .string();
        std::filesystem::create_directories(path);
    }
    ~Scratch()
    {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }
};

std::string NameOf(const std::string& assignment)
{
    return assignment.substr(0, assignment.find('='));
}

// This process's environment with the given assignments in place of any of the same name: a
// child that found two WINEPREFIX entries would read the first, the one this process had.
std::vector<std::string> ChildEnvironment(const std::vector<std::string>& extraEnv)
{
    std::map<std::string, std::string> overrides = {
        {"VELLUMAR_EXIT_WHEN_READY", "VELLUMAR_EXIT_WHEN_READY=1"}};
    for (const std::string& assignment : extraEnv)
        overrides[NameOf(assignment)] = assignment;
    std::vector<std::string> environment;
    for (char** entry = environ; *entry; ++entry)
        if (!overrides.contains(NameOf(*entry)))
            environment.emplace_back(*entry);
    for (const auto& [name, assignment] : overrides)
        environment.push_back(assignment);
    return environment;
}

} // namespace

const std::string& ScratchFolder()
{
    static Scratch scratch;
    return scratch.path;
}

int RunProcess(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv,
               std::chrono::seconds limit, long* peakKilobytes)
{
    std::vector<char*> args;
    for (const std::string& arg : argv)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);

    std::vector<std::string> environment = ChildEnvironment(extraEnv);
    std::vector<char*> env;
    for (std::string& entry : environment)
        env.push_back(entry.data());
    env.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    // A process group of its own, so that a child that hangs is killed with all it started.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes, 0);
    pid_t pid = 0;
    const int spawned = posix_spawnp(&pid, args[0], &actions, &attributes, args.data(), env.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0)
        return kNotStarted;

    std::mutex mutex;
    std::condition_variable finished;
    bool done = false;
    std::thread watchdog([&] {
        std::unique_lock lock(mutex);
        if (!finished.wait_for(lock, limit, [&] { return done; }))
            ::kill(-pid, SIGKILL);
    });
    int status = 0;
    struct rusage usage {};
    while (wait4(pid, &status, 0, &usage) < 0 && errno == EINTR) {
    }
    if (peakKilobytes)
        *peakKilobytes = usage.ru_maxrss;
    {
        const std::lock_guard lock(mutex);
        done = true;
    }
    finished.notify_one();
    watchdog.join();
    ::kill(-pid, SIGKILL); // anything the child left running in its group
    return WIFEXITED(status) ? WEXITSTATUS(status) : kKilled;
}

bool RunChecked(benchmark::State& state, const std::vector<std::string>& argv,
                const std::vector<std::string>& extraEnv, bool expectZero, long* peakKilobytes)
{
    const int status = RunProcess(argv, extraEnv, kChildTimeLimit, peakKilobytes);
    std::string problem;
    if (status == kNotStarted)
        problem = argv[0] + " did not start";
    else if (status == kKilled)
        problem = argv[0] + " was killed: it ran past " + std::to_string(kChildTimeLimit.count()) +
                  " s (waiting for a user?) or died of a signal";
    else if (expectZero && status != 0)
        problem = argv[0] + " exited with status " + std::to_string(status) +
                  (status == 2 ? " (it would have shown a message or a dialog)" : "");
    if (problem.empty())
        return true;
    state.SkipWithError(problem.c_str());
    return false;
}

ScopedEnvironment::~ScopedEnvironment()
{
    for (const auto& [name, value] : saved_)
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
}

void ScopedEnvironment::set(const std::string& name, const std::string& value)
{
    if (!saved_.contains(name)) {
        const char* old = std::getenv(name.c_str());
        saved_[name] = old ? std::optional<std::string>(old) : std::nullopt;
    }
    ::setenv(name.c_str(), value.c_str(), 1);
}

std::vector<std::string> HeadlessEnvironment()
{
    const std::string run = ScratchFolder() + "/run";
    std::filesystem::create_directories(run);
    std::filesystem::permissions(run, std::filesystem::perms::owner_all);
    return {"QT_QPA_PLATFORM=offscreen", "XDG_RUNTIME_DIR=" + run};
}

const std::string& DemoFolder()
{
    static const std::string demo = [] {
        const std::string folder = ScratchFolder() + "/demo";
        return RunProcess({VELLUMAR_CLI_PATH, "demo", folder}) == 0 ? folder : std::string();
    }();
    return demo;
}

void CompareWith(const std::string& subject, const std::string& floor, double target)
{
    MutableComparisons().push_back({subject, floor, target});
}

const std::vector<Comparison>& Comparisons()
{
    return MutableComparisons();
}

} // namespace vellumar::bench
