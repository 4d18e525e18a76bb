// The build for builds without the demo generator (no Qt, such as the Windows cross build).

#include "cli/DemoCommand.h"

namespace vellumar {

void AddDemoCommand(CommandSet&) {}

} // namespace vellumar
