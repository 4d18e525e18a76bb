#pragma once

#include <string>
#include <vector>

namespace vellumar {

// The path of a helper program ("vellumar-demo") with the platform's suffix: beside this
// executable, or (installed on Linux) in ../libexec/vellumar; "" when it is not there.
std::string HelperProgramPath(const std::string& name);

// Runs the helper in place of this process: its output is this process's output and its exit
// status this process's. Returns only when it could not be started, with why.
std::string ReplaceProcessWith(const std::string& program,
                               const std::vector<std::string>& arguments);

} // namespace vellumar
