#include "BenchSupport.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
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

} // namespace

const std::string& ScratchFolder()
{
    static Scratch scratch;
    return scratch.path;
}

int RunProcess(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv)
{
    std::vector<char*> args;
    for (const std::string& arg : argv)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);

    std::vector<std::string> environment;
    for (char** entry = environ; *entry; ++entry)
        environment.emplace_back(*entry);
    environment.insert(environment.end(), extraEnv.begin(), extraEnv.end());
    std::vector<char*> env;
    for (std::string& entry : environment)
        env.push_back(entry.data());
    env.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int spawned = posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), env.data());
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0)
        return -1;
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
