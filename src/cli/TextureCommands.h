#pragma once

namespace vellumar {

class CommandSet;

// The texture library from the command line: sets, files, install, restore and last. Each runs
// the program's own start-up checks first (without windows) and uses the same core as the
// program. install and restore answer questions with Yes/OK when `--yes` is given, otherwise
// with No/Cancel, so that nothing changes by accident.
void AddTextureCommands(CommandSet& commands);

} // namespace vellumar
