// The build for builds without the player (no Qt, such as the Windows cross build).

#include "cli/PlayCommand.h"

namespace vellumar {

void AddPlayCommand(CommandSet&) {}

} // namespace vellumar
