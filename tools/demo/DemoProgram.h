#pragma once

#include <iosfwd>
#include <string>

namespace vellumar {

class FileOperations;

// `vellumar-demo DIR [--force]`, which `vellumar-cli demo` runs: builds the demo installation
// in `folder` and prints, on `out`, only comments and the variables to export, so that
// eval "$(vellumar-cli demo DIR)" sets up the shell. 0 built, 1 failed, 2 usage error.
// `standinProgram` is the simulator's stand-in that the demo's fs9.exe starts ("" for none).
int RunDemoProgram(const std::string& folder, bool force, FileOperations& files, std::ostream& out,
                   std::ostream& err, const std::string& standinProgram = {});

} // namespace vellumar
