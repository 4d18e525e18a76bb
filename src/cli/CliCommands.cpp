#include "cli/CliCommands.h"

#include "cli/AutoRandomCommands.h"
#include "cli/DemoCommand.h"
#include "cli/IniCommands.h"
#include "cli/LibraryCommands.h"
#include "cli/MciCommand.h"
#include "cli/OriginalsCommands.h"
#include "cli/PlayCommand.h"
#include "cli/SimulatorCommands.h"
#include "cli/StatusCommand.h"
#include "cli/SystemCommands.h"
#include "cli/TextureCommands.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace vellumar {

namespace {

// Every group of commands, in the order the help lists them.
void AddAllCommands(CommandSet& commands)
{
    AddIniCommands(commands);
    AddSystemCommands(commands);
    AddDemoCommand(commands);
    AddTextureCommands(commands);
    AddOriginalsCommands(commands);
    AddStatusCommand(commands);
    AddLibraryCommands(commands);
    AddSimulatorCommands(commands);
    AddAutoRandomCommands(commands);
    AddMciCommand(commands);
    AddPlayCommand(commands);
}

// The command the line got as far as naming ("vellumar-cli ini get"), for messages.
std::string CommandPath(const CLI::App& root, const CLI::App*& deepest)
{
    std::string path = root.get_name();
    deepest = &root;
    while (!deepest->get_subcommands().empty()) {
        deepest = deepest->get_subcommands().front();
        path += ' ' + deepest->get_name();
    }
    return path;
}

// CLI11's messages name the argument; ours say which command they belong to and where its
// help is, on one line.
void ReportUsageError(const CLI::App& root, const CLI::Error& error, std::ostream& err)
{
    const CLI::App* command = nullptr;
    const std::string path = CommandPath(root, command);
    std::string what = error.what();
    // Name the word that was not expected, and what it was taken for.
    const std::vector<std::string> extras = command->remaining();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) && !extras.empty()) {
        const std::string& word = extras.front();
        if (word.starts_with('-'))
            what = "unknown option \"" + word + "\"";
        else if (!command->get_subcommands({}).empty())
            what = "unknown command \"" + word + "\"";
        else
            what = "unexpected argument \"" + word + "\"";
    }
    err << path << ": " << what << " (see " << path << " --help)\n";
}

} // namespace

int RunCliCommand(const std::vector<std::string>& arguments, Services& services, std::ostream& out,
                  std::ostream& err, const SetAnswers& setAnswers)
{
    CLI::App root("The scripting and troubleshooting tool of Vellumar, over the same core as "
                  "the program.",
                  "vellumar-cli");
    root.set_version_flag("--version", "vellumar-cli " VELLUMAR_VERSION);
    root.require_subcommand(0, 1);
    // The same options on every system; on Windows "/name" would otherwise be an option too,
    // and a path that starts with "/" could not be given.
    root.allow_windows_style_options(false);
    root.get_formatter()->column_width(34);
    root.get_formatter()->label("SUBCOMMAND", "COMMAND");
    root.get_formatter()->label("SUBCOMMANDS", "COMMANDS");

    CliContext context{services, out, err, setAnswers};
    CommandSet commands(root, context);
    AddAllCommands(commands);
    root.footer("Each command has its own --help. Messages go to standard error as their title\n"
                "and text; a question is answered with its default button.\n"
                "Environment: VELLUMAR_HOME (program folder; see where --help), WINEPREFIX\n"
                "(Wine prefix, Linux), VELLUMAR_CD (the CD or disc image, Linux).\n"
                "Exit status: 0 success, 1 nothing found or failed, 2 usage error.");

    try {
        // CLI11 takes the arguments last first. "help [COMMAND...]" is "[COMMAND...] --help".
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        if (!reversed.empty() && reversed.back() == "help") {
            reversed.pop_back();
            reversed.insert(reversed.begin(), "--help");
        }
        root.parse(reversed);
    } catch (const CLI::Success& success) { // --help, --version
        return root.exit(success, out, err);
    } catch (const CLI::ParseError& error) {
        ReportUsageError(root, error, err);
        return CliExit::UsageError;
    }

    if (const std::function<int()> action = commands.chosen())
        return action();
    const CLI::App* command = nullptr;
    const std::string path = CommandPath(root, command);
    err << path << ": no command given (see " << path << " --help)\n";
    return CliExit::UsageError;
}

} // namespace vellumar
