#pragma once

namespace vellumar {

class CommandSet;

// mci: media control commands to the CD, as the sound window sends them.
void AddMciCommand(CommandSet& commands);

} // namespace vellumar
