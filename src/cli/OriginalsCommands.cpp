#include "cli/OriginalsCommands.h"

#include "cli/CommandSet.h"
#include "cli/StartedCommand.h"
#include "cli/TextureCommands.h"
#include "common/OriginalsGuard.h"
#include "common/Services.h"
#include "textures/SimulatorOriginals.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

namespace vellumar {

namespace {

struct RestoreOptions {
    TextList paths;
    bool yes = false;
};

class OriginalsCommand : public StartedCommand {
public:
    using StartedCommand::StartedCommand;

    int list()
    {
        OriginalsStore* store = services_.originals.store();
        if (!store)
            return CliExit::Failed;
        for (const OriginalNow& now : CompareOriginals(services_.files, *store))
            context_.out << now.original.path << '\t'
                         << (now.original.absent() ? std::string("absent")
                                                   : std::to_string(now.original.size))
                         << '\t' << (now.differs ? "differs" : "same") << '\n';
        return CliExit::Success;
    }

    int restore(const RestoreOptions& options)
    {
        OriginalsStore* store = services_.originals.store();
        if (!store)
            return CliExit::Failed;
        // A path the store knows nothing of stops the command before it asks or changes
        // anything: the user meant another file.
        TextList unknown;
        CompareOriginals(services_.files, *store, options.paths, &unknown);
        for (const std::string& path : unknown)
            context_.err << "vellumar-cli: no original of \"" << path
                         << "\" is kept (vellumar-cli originals lists them)\n";
        if (!unknown.empty())
            return CliExit::Failed;
        context_.setAnswers(options.yes ? ConsoleMessageService::Answers::Yes
                                        : ConsoleMessageService::Answers::No);
        TextureServices textures = TexturesReportingTo(services_, context_.err);
        return RestoreSimulatorOriginals(textures, *store, options.paths) ? CliExit::Success
                                                                          : CliExit::Failed;
    }
};

} // namespace

void AddOriginalsCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    CLI::App& originals =
        commands.add(commands.root(), "originals",
                     "list the simulator files Vellumar kept before changing them: path, size, "
                     "same|differs (tabs)",
                     AfterStartUp<OriginalsCommand>(
                         context, [](OriginalsCommand& command) { return command.list(); }));

    auto options = std::make_shared<RestoreOptions>();
    CLI::App& restore = commands.add(
        originals, "restore", "put the kept originals back (all, or those of PATH...)",
        AfterStartUp<OriginalsCommand>(
            context, [options](OriginalsCommand& command) { return command.restore(*options); },
            &options->yes));
    restore.add_option("PATH", options->paths, "a simulator file, as originals lists it")
        ->type_name("");
    restore.add_flag("--yes", options->yes, "answer Yes to the questions");
    restore.footer("Without --yes the question is answered No: nothing changes.\n"
                   "A file added where there was none is removed; a kept copy whose bytes no\n"
                   "longer match its hash is reported and not used.");
}

} // namespace vellumar
