#pragma once

#include "app/StartUpSequence.h"
#include "cli/CommandSet.h"

#include <functional>
#include <string>

namespace vellumar {

struct TextureSetEntry;

// A command that works on the installation as the program sees it: the program's start-up
// runs first, without windows, and the command goes on only when the program would have.
class StartedCommand {
public:
    explicit StartedCommand(CliContext& context);

    // False when the start-up would have ended the program (the user has been told why). An
    // install cut off earlier is then offered to be completed (Yes with `yes`) or left.
    bool startUp(bool yes = false);

protected:
    // The set of that name, or nullptr after saying on standard error that there is none.
    const TextureSetEntry* setNamed(const std::string& name);

    CliContext& context_;
    Services& services_;
    ProgramState state_;
};

// The action of a command, run on a `Command` after the start-up.
// With `yes`, a command's --yes also answers the question about an interrupted install.
template <typename Command, typename Action>
std::function<int()> AfterStartUp(CliContext& context, Action action, const bool* yes = nullptr)
{
    return [&context, action, yes] {
        Command command(context);
        return command.startUp(yes && *yes) ? action(command) : CliExit::Failed;
    };
}

} // namespace vellumar
