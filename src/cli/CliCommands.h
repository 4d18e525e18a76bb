#pragma once

#include "cli/CommandSet.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace vellumar {

struct Services;

// Runs one vellumar-cli command line (without the program name) over the core, printing
// results and help on `out`, messages and failures on `err`. A mistake on the command line is
// named in one line on `err` and gives CliExit::UsageError.
// `setAnswers` sets how the console answers questions (install and restore use it).
int RunCliCommand(
    const std::vector<std::string>& arguments, Services& services, std::ostream& out,
    std::ostream& err, const SetAnswers& setAnswers = [](ConsoleMessageService::Answers) {});

} // namespace vellumar
