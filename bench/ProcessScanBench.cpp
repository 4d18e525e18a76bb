// The once-a-second look for the simulator among the processes (where its window cannot be
// seen) on a busy machine: 500 more processes than usual, none of them the simulator, so every
// command line is read. The floor only lists /proc.

#include "BenchSupport.h"
#include "config/ProcessTable.h"

#include <benchmark/benchmark.h>

#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vellumar::bench {
namespace {

constexpr int kExtraProcesses = 500;

// Sleeping children in one process group. They are killed and reaped when the run ends, and
// the kernel kills them should the run die first (they outlive no benchmark thread: the
// benchmarks run on the main thread, which made them).
class Sleepers {
public:
    Sleepers()
    {
        const pid_t parent = ::getpid();
        for (int i = 0; i < kExtraProcesses; ++i) {
            const pid_t child = ::fork();
            if (child < 0)
                break;
            if (child == 0) {
                ::prctl(PR_SET_PDEATHSIG, SIGKILL);
                if (::getppid() != parent)
                    ::_exit(0);
                char program[] = "/bin/sleep";
                char seconds[] = "3600";
                char* argv[] = {program, seconds, nullptr};
                ::execv(program, argv);
                ::_exit(127);
            }
            ::setpgid(child, group_ == 0 ? child : group_);
            if (group_ == 0)
                group_ = child;
            children_.push_back(child);
        }
    }
    ~Sleepers()
    {
        if (group_ != 0)
            ::kill(-group_, SIGKILL);
        for (const pid_t child : children_) {
            ::kill(child, SIGKILL); // one that had not yet joined the group
            while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
            }
        }
    }
    bool complete() const { return children_.size() == kExtraProcesses; }

private:
    pid_t group_ = 0;
    std::vector<pid_t> children_;
};

const Sleepers& ExtraProcesses()
{
    static const Sleepers sleepers;
    return sleepers;
}

int CountProcesses()
{
    int count = 0;
    if (DIR* processes = ::opendir("/proc")) {
        while (const dirent* entry = ::readdir(processes))
            count += entry->d_name[0] >= '1' && entry->d_name[0] <= '9';
        ::closedir(processes);
    }
    return count;
}

bool Prepare(benchmark::State& state)
{
    if (!ExtraProcesses().complete()) {
        state.SkipWithError("could not start the extra processes");
        return false;
    }
    state.counters["processes"] = CountProcesses();
    return true;
}

void BM_FindSimulatorProcess_500Extra(benchmark::State& state)
{
    if (!Prepare(state))
        return;
    for (auto _ : state) {
        const long found = FindProcessNamed("/proc", "fs9.exe");
        if (found != 0) {
            state.SkipWithError("a process named fs9.exe runs: the scan stopped early");
            break;
        }
    }
}
BENCHMARK(BM_FindSimulatorProcess_500Extra)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_ListProcFolder_500Extra(benchmark::State& state)
{
    if (!Prepare(state))
        return;
    for (auto _ : state)
        benchmark::DoNotOptimize(CountProcesses());
}
BENCHMARK(BM_ListProcFolder_500Extra)->Unit(benchmark::kMicrosecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_FindSimulatorProcess_500Extra", "BM_ListProcFolder_500Extra", 10.0);
    return true;
}();

} // namespace
} // namespace vellumar::bench
