#pragma once

namespace vellumar {

class CommandSet;

// AutoRandom from the command line: select (what OK of the selection window does) and
// autorandom (the countdown without the window).
void AddAutoRandomCommands(CommandSet& commands);

} // namespace vellumar
