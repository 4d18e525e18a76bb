// The once-a-second look for the simulator among the processes (where its window cannot be
// seen) on a busy machine, 500 more processes than usual: while the simulator is not running,
// every command line is read; while it runs, the look starts with the process found last time.
// The floor only lists /proc.

#include "BenchSupport.h"
#include "common/SimulatorProcess.h"
#include "config/ProcessTable.h"

#include <benchmark/benchmark.h>

#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <memory>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vellumar::bench {
namespace {

constexpr int kExtraProcesses = 500;

// The simulator's name as the look is given it, of this run's own: a stand-in another program
// keeps running (or the simulator itself) would end the scan early.
const std::string& SimulatorName()
{
    static const std::string name = "fs9-bench-" + std::to_string(::getpid()) + ".exe";
    return name;
}

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
                ::setpgid(0, group_); // the first makes the group
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
        const long found = FindProcessNamed("/proc", SimulatorName());
        if (found != 0) {
            state.SkipWithError("a process of the simulator's name runs: the scan stopped early");
            break;
        }
    }
}
BENCHMARK(BM_FindSimulatorProcess_500Extra)->Unit(benchmark::kMicrosecond)->UseRealTime();

// A stand-in for the simulator under Wine, whose command line names it first.
class RunningSimulator {
public:
    RunningSimulator()
    {
        // Made before the fork: the child only makes system calls.
        std::string path = "C:\\Program Files\\Flight Simulator 9\\" + SimulatorName();
        const pid_t parent = ::getpid();
        pid_ = ::fork();
        if (pid_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (::getppid() != parent)
                ::_exit(0);
            char program[] = "/bin/sleep";
            char* name = path.data();
            char seconds[] = "600";
            char* argv[] = {name, seconds, nullptr};
            ::execv(program, argv);
            ::_exit(127);
        }
    }
    ~RunningSimulator()
    {
        if (pid_ <= 0)
            return;
        ::kill(pid_, SIGKILL);
        while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    pid_t id() const { return pid_; }

private:
    pid_t pid_ = -1;
};

void BM_FindRunningSimulator_500Extra(benchmark::State& state)
{
    if (!Prepare(state))
        return;
    const RunningSimulator simulator;
    const std::unique_ptr<SimulatorProcess> process = CreatePlatformSimulatorProcess();
    // The first look scans; exec may not even have happened yet.
    for (int attempt = 0;
         attempt < 500 && process->find(SimulatorName()).processId != simulator.id(); ++attempt)
        ::usleep(10000);
    for (auto _ : state) {
        if (process->find(SimulatorName()).processId != simulator.id()) {
            state.SkipWithError("the running stand-in was not found");
            break;
        }
    }
}
BENCHMARK(BM_FindRunningSimulator_500Extra)->Unit(benchmark::kMicrosecond)->UseRealTime();

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
    CompareWith("BM_FindRunningSimulator_500Extra", "BM_ListProcFolder_500Extra", 0.1);
    return true;
}();

} // namespace
} // namespace vellumar::bench
