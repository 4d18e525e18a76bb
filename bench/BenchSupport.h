#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vellumar::bench {

// A scratch folder for generated fixtures, kept for the whole run and removed at exit.
const std::string& ScratchFolder();

// What RunProcess returns when the program gives no exit status of its own.
inline constexpr int kNotStarted = -1;
inline constexpr int kKilled = -2; // ran past its time limit, or died of a signal

// No child of a benchmark may run longer than this: one that waits for a user (a dialog
// shown offscreen, say) is killed, and the benchmark reports an error instead of hanging.
inline constexpr std::chrono::seconds kChildTimeLimit{60};

// Runs a program to its end with standard output (and error) sent to /dev/null; returns its
// exit status. The child gets this process's environment with each "NAME=value" of `extraEnv`
// in place of any variable of that name, and VELLUMAR_EXIT_WHEN_READY=1, under which the
// program exits with status 2 where it would show a message or a dialog. The child and
// everything it starts are killed when they run past `limit`. `peakKilobytes`, when given,
// receives the child's own peak resident memory.
int RunProcess(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv = {},
               std::chrono::seconds limit = kChildTimeLimit, long* peakKilobytes = nullptr);

// Runs a program as RunProcess does and tells `state` of a child that was killed or did not
// start, or (when `expectZero`) that exited with anything but 0. False when it failed; the
// benchmark loop should stop then.
bool RunChecked(benchmark::State& state, const std::vector<std::string>& argv,
                const std::vector<std::string>& extraEnv = {}, bool expectZero = false,
                long* peakKilobytes = nullptr);

// Sets environment variables of this process for one benchmark and puts the old values back
// when it ends, so that no benchmark changes what the next one sees.
class ScopedEnvironment {
public:
    ScopedEnvironment() = default;
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment();
    void set(const std::string& name, const std::string& value);

private:
    std::map<std::string, std::optional<std::string>> saved_;
};

// For the program's own runs: no display (QT_QPA_PLATFORM=offscreen), and a runtime folder of
// its own, so that the program's single-instance lock never meets a copy the user has open.
std::vector<std::string> HeadlessEnvironment();

// The demo installation made by vellumar-cli (with home/ and prefix/), or "" when it could
// not be made.
const std::string& DemoFolder();

// Declares that benchmark `subject` is to be compared with benchmark `floor`; the ratio of
// their real times is printed at the end of the run.
void CompareWith(const std::string& subject, const std::string& floor, double target);

struct Comparison {
    std::string subject, floor;
    double target;
};
const std::vector<Comparison>& Comparisons();

} // namespace vellumar::bench
