#pragma once

#include <string>
#include <string_view>

namespace vellumar {

// Finding the simulator among the system's processes, where its window cannot be seen.

// True when the first or second argument of `commandLine` (arguments separated by NUL bytes,
// as /proc/PID/cmdline holds them) names `executable`: the text after its last "/" or "\" is
// the executable's name in any letter case. Wine puts the Windows path of the program first;
// a shell running a script has the script second.
bool CommandLineNamesProgram(std::string_view commandLine, std::string_view executable);

// The id of a process under `procRoot` (normally "/proc") whose command line names
// `executable`; 0 when there is none.
long FindProcessNamed(const std::string& procRoot, std::string_view executable);

// Whether process `processId` still has a command line naming `executable`: one file read
// where FindProcessNamed reads one per process.
bool ProcessNamed(const std::string& procRoot, long processId, std::string_view executable);

} // namespace vellumar
