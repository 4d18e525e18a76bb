#pragma once

namespace vellumar {

class CommandSet;

// reg get, where: what the program sees of the system (on Linux, of the Wine prefix).
void AddSystemCommands(CommandSet& commands);

} // namespace vellumar
