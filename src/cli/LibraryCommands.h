#pragma once

namespace vellumar {

class CommandSet;

// Adding sets to the texture library and removing them: import SOURCE and remove SET. Both run
// the program's start-up first and ask what the window asks; without --yes the answer is No.
void AddLibraryCommands(CommandSet& commands);

} // namespace vellumar
