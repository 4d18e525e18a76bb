// What the program costs while it only waits (its once-a-second look for the simulator
// included): processor time over a minute of idling on the demo, against an empty Qt program
// idling beside it for the same minute. Both run at once; neither waits for a user, and both
// are killed at the end.

#include "BenchSupport.h"

#include <benchmark/benchmark.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace vellumar::bench {
namespace {

using namespace std::chrono_literals;

constexpr auto kSettle = 5s; // start-up is over by then; its work is not idling
constexpr auto kIdle = 60s;
constexpr double kTargetExtraPercent = 0.5;

// A program left running in a process group of its own, without VELLUMAR_EXIT_WHEN_READY (the
// program would quit once ready). Killed with its group when this ends, and by the kernel if
// the benchmark dies first.
class Idler {
public:
    Idler(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv)
    {
        std::vector<std::string> environment;
        auto overridden = [&](const char* entry) {
            const std::string_view text(entry);
            const std::string_view name = text.substr(0, text.find('='));
            if (name == "VELLUMAR_EXIT_WHEN_READY")
                return true;
            for (const std::string& assignment : extraEnv)
                if (assignment.compare(0, assignment.find('='), name) == 0)
                    return true;
            return false;
        };
        for (char** entry = environ; *entry; ++entry)
            if (!overridden(*entry))
                environment.emplace_back(*entry);
        environment.insert(environment.end(), extraEnv.begin(), extraEnv.end());
        std::vector<char*> envp;
        for (std::string& entry : environment)
            envp.push_back(entry.data());
        envp.push_back(nullptr);
        std::vector<std::string> arguments = argv;
        std::vector<char*> args;
        for (std::string& argument : arguments)
            args.push_back(argument.data());
        args.push_back(nullptr);

        const pid_t parent = ::getpid();
        pid_ = ::fork();
        if (pid_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (::getppid() != parent)
                ::_exit(127);
            ::setpgid(0, 0);
            const int nothing = ::open("/dev/null", O_RDWR);
            ::dup2(nothing, STDIN_FILENO);
            ::dup2(nothing, STDOUT_FILENO);
            ::dup2(nothing, STDERR_FILENO);
            ::execve(args[0], args.data(), envp.data());
            ::_exit(127);
        }
        if (pid_ > 0)
            ::setpgid(pid_, pid_);
    }
    ~Idler()
    {
        if (pid_ <= 0)
            return;
        ::kill(-pid_, SIGKILL);
        ::kill(pid_, SIGKILL);
        if (!ended_)
            while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
            }
    }
    Idler(const Idler&) = delete;
    Idler& operator=(const Idler&) = delete;

    bool running()
    {
        if (pid_ <= 0 || ended_)
            return false;
        ended_ = ::waitpid(pid_, nullptr, WNOHANG) == pid_;
        return !ended_;
    }

    // Processor time the program has used so far (user and system), in seconds.
    double cpuSeconds() const
    {
        std::ifstream in("/proc/" + std::to_string(pid_) + "/stat");
        std::string line;
        std::getline(in, line);
        const std::size_t end = line.rfind(')');
        if (end == std::string::npos)
            return -1;
        std::istringstream fields(line.substr(end + 2));
        std::string field;
        long ticks = 0;
        for (int number = 3; number <= 15 && fields >> field; ++number)
            if (number == 14 || number == 15)
                ticks += std::stol(field);
        return static_cast<double>(ticks) / static_cast<double>(::sysconf(_SC_CLK_TCK));
    }

private:
    pid_t pid_ = -1;
    bool ended_ = false;
};

// Waits for `span`, polling that both programs still run.
bool BothRunFor(Idler& a, Idler& b, std::chrono::steady_clock::duration span)
{
    const auto deadline = std::chrono::steady_clock::now() + span;
    while (std::chrono::steady_clock::now() < deadline) {
        if (!a.running() || !b.running())
            return false;
        std::this_thread::sleep_for(100ms);
    }
    return a.running() && b.running();
}

// Processor time of two programs idling side by side for a minute, as a share of a core.
void MeasureIdle(benchmark::State& state, Idler& subject, Idler& floor, const char* subjectName,
                 const char* floorName)
{
    if (!BothRunFor(subject, floor, kSettle)) {
        state.SkipWithError("a program ended (or did not start) before it could idle");
        return;
    }
    const double subjectBefore = subject.cpuSeconds();
    const double floorBefore = floor.cpuSeconds();
    const bool lasted = BothRunFor(subject, floor, kIdle);
    const double subjectUsed = subject.cpuSeconds() - subjectBefore;
    const double floorUsed = floor.cpuSeconds() - floorBefore;
    if (!lasted) {
        state.SkipWithError("a program ended while it idled");
        return;
    }
    if (subjectBefore < 0 || floorBefore < 0 || subjectUsed < 0 || floorUsed < 0) {
        state.SkipWithError("the processor times could not be read from /proc");
        return;
    }
    const double seconds = std::chrono::duration<double>(kIdle).count();
    const double extra = 100.0 * (subjectUsed - floorUsed) / seconds;
    // Proof that the times are read at all: starting up is never free.
    state.counters["startup_cpu_s"] = subjectBefore;
    state.counters[std::string(subjectName) + "_core_pct"] = 100.0 * subjectUsed / seconds;
    state.counters[std::string(floorName) + "_core_pct"] = 100.0 * floorUsed / seconds;
    state.counters["extra_core_pct"] = extra;
    char label[64];
    std::snprintf(label, sizeof label, "extra target < %.1f %% of a core: %s", kTargetExtraPercent,
                  extra < kTargetExtraPercent ? "met" : "MISSED");
    state.SetLabel(label);
}

std::vector<std::string> DemoEnvironment()
{
    std::vector<std::string> environment = HeadlessEnvironment();
    environment.push_back("VELLUMAR_HOME=" + DemoFolder() + "/home");
    environment.push_back("WINEPREFIX=" + DemoFolder() + "/prefix");
    return environment;
}

// The program idling with its watch, against an empty Qt program.
void BM_IdleCpu60s_DemoVsEmptyQtWindow(benchmark::State& state)
{
    if (DemoFolder().empty()) {
        state.SkipWithError("vellumar-cli could not build the demo");
        return;
    }
    for (auto _ : state) {
        Idler program({VELLUMAR_PROGRAM_PATH}, DemoEnvironment());
        Idler empty({EMPTY_QT_WINDOW_PATH, "--idle"}, HeadlessEnvironment());
        MeasureIdle(state, program, empty, "program", "empty_qt");
    }
}
// One long run is the measurement; repeating it would only cost minutes.
BENCHMARK(BM_IdleCpu60s_DemoVsEmptyQtWindow)
    ->Unit(benchmark::kSecond)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime();

// AutoRandom armed (its countdown five times a second) with the watch, against the same window
// with both timers stopped, on the same demo (the armed one installs one set as it arms).
void BM_IdleCpu60s_AutoRandomArmedVsTimersOff(benchmark::State& state)
{
    if (DemoFolder().empty()) {
        state.SkipWithError("vellumar-cli could not build the demo");
        return;
    }
    for (auto _ : state) {
        Idler armed({AUTORANDOM_IDLER_PATH, "--armed"}, DemoEnvironment());
        Idler off({AUTORANDOM_IDLER_PATH, "--timers-off"}, DemoEnvironment());
        MeasureIdle(state, armed, off, "armed", "timers_off");
    }
}
BENCHMARK(BM_IdleCpu60s_AutoRandomArmedVsTimersOff)
    ->Unit(benchmark::kSecond)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime();

} // namespace
} // namespace vellumar::bench
