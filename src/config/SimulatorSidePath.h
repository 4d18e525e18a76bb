#pragma once

#include <string>

namespace vellumar {

// A path of this machine as the simulator, a Windows program, writes it in its own files: the
// path itself on Windows; under Wine on Linux, the path through the prefix's drive letters
// (C:\users\... for a file in drive_c, Z:\home\... for one elsewhere).
std::string SimulatorSidePath(const std::string& path);

} // namespace vellumar
