#pragma once

namespace vellumar {

class CommandSet;

// The simulator from the command line: start (install and start, as the window's button does),
// running, situations and clear-situation.
void AddSimulatorCommands(CommandSet& commands);

} // namespace vellumar
