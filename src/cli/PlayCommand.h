#pragma once

namespace vellumar {

class CommandSet;

// play FILE: plays a sound or music file through the program's player and ends with it. Only
// builds with the windows carry the player (it is Qt's); the others register nothing here.
void AddPlayCommand(CommandSet& commands);

} // namespace vellumar
