#pragma once

#include "cli/ConsoleMessageService.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace vellumar {

struct Services;

// How the questions of a command are to be answered (the console's answering policy).
using SetAnswers = std::function<void(ConsoleMessageService::Answers)>;

// The texture library from the command line: sets, files, install, restore and last. Each runs
// the program's own start-up checks first (without windows) and uses the same core as the
// program. Answers questions with Yes/OK when `--yes` is given, otherwise with No/Cancel.
// Returns the exit status, or -1 when the arguments are not a texture command.
int RunTextureCommand(const std::vector<std::string>& arguments, Services& services,
                      const SetAnswers& setAnswers, std::ostream& out, std::ostream& err);

// The usage lines of these commands.
std::string TextureCommandsUsage();

} // namespace vellumar
