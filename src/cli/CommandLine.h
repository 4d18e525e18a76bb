#pragma once

#include <string>
#include <vector>

namespace vellumar {

// The program's arguments (without its name) in UTF-8, whatever code page the system hands
// them over in.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

// A reader that goes away (`vellumar-cli ... | head -1`) makes writes fail instead of ending
// the tool halfway through what it was doing.
void KeepRunningWhenOutputCloses();

// True when standard output goes to a terminal, where a line can be redrawn in place.
bool OutputIsTerminal();

} // namespace vellumar
