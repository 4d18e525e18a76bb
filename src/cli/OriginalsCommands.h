#pragma once

namespace vellumar {

class CommandSet;

// The simulator's originals from the command line: `originals` lists what the store keeps
// (path, size, whether the simulator's file differs now), `originals restore [PATH...]` puts
// them back after the program's own question, answered Yes only with --yes.
void AddOriginalsCommands(CommandSet& commands);

} // namespace vellumar
