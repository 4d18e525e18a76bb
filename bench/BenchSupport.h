#pragma once

#include <string>
#include <vector>

namespace vellumar::bench {

// A scratch folder for generated fixtures, kept for the whole run and removed at exit.
const std::string& ScratchFolder();

// Runs a program to its end with standard output (and error) sent to /dev/null; returns its
// exit status.
int RunProcess(const std::vector<std::string>& argv, const std::vector<std::string>& extraEnv = {});

// Declares that benchmark `subject` is to be compared with benchmark `floor`; the ratio of
// their real times is printed at the end of the run.
void CompareWith(const std::string& subject, const std::string& floor, double target);

struct Comparison {
    std::string subject, floor;
    double target;
};
const std::vector<Comparison>& Comparisons();

} // namespace vellumar::bench
