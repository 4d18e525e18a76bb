// Runs the benchmarks, then prints each subject's time as a ratio of its floor's.

#include "BenchSupport.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace {

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred)
                errors[run.run_name.function_name] = run.error_message;
            else if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median")
                realTimes[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> realTimes;
    std::map<std::string, std::string> errors;
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\n%-44s %-34s %8s %8s\n", "subject", "floor", "ratio", "target");
    for (const auto& comparison : vellumar::bench::Comparisons()) {
        const auto subject = reporter.realTimes.find(comparison.subject);
        const auto floor = reporter.realTimes.find(comparison.floor);
        if (subject == reporter.realTimes.end() || floor == reporter.realTimes.end()) {
            // Filtered out, or failed: a failure is said, so that no ratio goes missing unseen.
            for (const std::string& name : {comparison.subject, comparison.floor})
                if (const auto error = reporter.errors.find(name); error != reporter.errors.end())
                    std::printf("%-44s %-34s %8s          %s: %s\n", comparison.subject.c_str(),
                                comparison.floor.c_str(), "ERROR", name.c_str(),
                                error->second.c_str());
            continue;
        }
        const double ratio = subject->second / floor->second;
        std::printf("%-44s %-34s %7.2fx %7.2fx %s\n", comparison.subject.c_str(),
                    comparison.floor.c_str(), ratio, comparison.target,
                    ratio <= comparison.target ? "met" : "MISSED");
    }
    benchmark::Shutdown();
    return 0;
}
