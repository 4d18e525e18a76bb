#pragma once

#include "textures/TextureFolders.h"

#include <iosfwd>

namespace vellumar {

struct Services;

class CommandSet;

// The texture library from the command line: sets, files, install, restore and last. Each runs
// the program's own start-up checks first (without windows) and uses the same core as the
// program. install and restore answer questions with Yes/OK when `--yes` is given, otherwise
// with No/Cancel, so that nothing changes by accident.
void AddTextureCommands(CommandSet& commands);

// The services of an install from the command line: its status lines go to `err`.
TextureServices TexturesReportingTo(Services& services, std::ostream& err);

} // namespace vellumar
