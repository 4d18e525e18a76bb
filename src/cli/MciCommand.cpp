#include "cli/MciCommand.h"

#include "cli/CommandSet.h"
#include "common/Services.h"
#include "sound/CreatePlatformMediaControl.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

namespace vellumar {

namespace {

int SendCommands(const std::vector<std::string>& commands, CliContext& context)
{
    // One interface for them all, so that what the first opens the rest can use. Nothing is
    // heard here: a disc plays on the clock alone.
    const std::unique_ptr<MediaControl> control =
        CreatePlatformMediaControl(context.services.clock);
    int status = CliExit::Success;
    for (const std::string& command : commands) {
        std::string reply;
        if (const std::uint32_t error = control->SendString(command, reply)) {
            context.out << "error " << error << ": " << control->ErrorText(error) << '\n';
            status = CliExit::Failed;
        } else {
            context.out << reply << '\n';
        }
    }
    return status;
}

} // namespace

void AddMciCommand(CommandSet& commands)
{
    CliContext& context = commands.context();
    commands.heading("Sound");
    auto sent = std::make_shared<std::vector<std::string>>();
    CLI::App& mci =
        commands.add(commands.root(), "mci", "send media control commands to the CD, one line each",
                     [sent, &context] { return SendCommands(*sent, context); });
    mci.add_option("COMMAND", *sent, "a command, quoted: \"status cd media present\"")
        ->type_name("")
        ->required();
    mci.footer(
        "The commands run in order in one process, so an alias that the first opens lives\n"
        "for the rest. Each prints its reply, an empty line when it has none, or\n"
        "\"error N: TEXT\". Play returns at once (\"wait\" waits for the end in real time).\n"
        "On Linux the disc is $VELLUMAR_CD (a device, or a CUE/BIN or cdrdao TOC image),\n"
        "else the first CD drive; nothing is heard.");
}

} // namespace vellumar
