#pragma once

#include "cli/TextureCommands.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace vellumar {

struct Services;

// Exit statuses of vellumar-cli.
namespace CliExit {
inline constexpr int Success = 0;
inline constexpr int Failed = 1;     // the read gave nothing, or the operation failed
inline constexpr int UsageError = 2; // the command line was wrong; the usage text was printed
} // namespace CliExit

// Runs one vellumar-cli command line (without the program name) over the core, printing
// results on `out` and usage texts and failures on `err`.
// `setAnswers` sets how the console answers questions (install and restore use it).
int RunCliCommand(
    const std::vector<std::string>& arguments, Services& services, std::ostream& out,
    std::ostream& err, const SetAnswers& setAnswers = [](ConsoleMessageService::Answers) {});

// The usage text printed by --help and after a usage error.
std::string CliUsage();

} // namespace vellumar
