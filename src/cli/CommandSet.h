#pragma once

#include "cli/ConsoleMessageService.h"

#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vellumar {

struct Services;

// Exit statuses of vellumar-cli.
namespace CliExit {
inline constexpr int Success = 0;
inline constexpr int Failed = 1;     // the read gave nothing, or the operation failed
inline constexpr int UsageError = 2; // the command line was wrong
} // namespace CliExit

// How the questions of a command are to be answered (the console's answering policy).
using SetAnswers = std::function<void(ConsoleMessageService::Answers)>;

// What every command works with: results go to `out`, messages and failures to `err`.
struct CliContext {
    Services& services;
    std::ostream& out;
    std::ostream& err;
    SetAnswers setAnswers;
};

// A positional argument of a command that takes only texts.
struct TextArgument {
    std::string name;        // as the help shows it: FILE, SECTION, ...
    std::string description; // one line for the help
    bool required = true;    // an optional one reads as "" when left out
};

// The commands of vellumar-cli as the parser knows them, each tied to the action that runs
// when it is the command named. Actions run only once the whole command line has parsed, so
// that a mistake anywhere on it stops the command before it reads or changes anything.
//
// Each group of commands registers its own in one function (AddIniCommands, ...), which
// RunCliCommand calls; nothing else needs to know about a new command.
class CommandSet {
public:
    using Texts = std::vector<std::string>;

    CommandSet(CLI::App& root, CliContext& context);

    CLI::App& root() { return root_; }
    CliContext& context() { return context_; }

    // A command under `parent` that runs `action`; its options and arguments are added to the
    // command returned.
    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& description,
                  std::function<int()> action);
    // A command that takes only texts: `action` gets them in the order of `arguments`.
    CLI::App& add(CLI::App& parent, const std::string& name, const std::string& description,
                  const std::vector<TextArgument>& arguments,
                  std::function<int(const Texts&)> action);
    // A word that only leads to other commands (ini, reg); one of them must follow.
    CLI::App& group(CLI::App& parent, const std::string& name, const std::string& description);
    // The help lists the top-level commands added after this under `heading`.
    void heading(const std::string& heading) { heading_ = heading; }

    // The action of the command named on the parsed command line; empty when the line named
    // no command, or only a group.
    std::function<int()> chosen() const;

private:
    CLI::App& root_;
    CliContext& context_;
    std::string heading_ = "Commands";
    std::map<const CLI::App*, std::function<int()>> actions_;
};

} // namespace vellumar
