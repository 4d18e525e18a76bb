#pragma once

namespace vellumar {

class CommandSet;

// ini get, ini set: profile (INI) files read and written as the program does.
void AddIniCommands(CommandSet& commands);

} // namespace vellumar
