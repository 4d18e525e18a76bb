#include "cli/StatusCommand.h"

#include "cli/CommandSet.h"
#include "cli/StartedCommand.h"
#include "common/HashCache.h"
#include "common/OriginalsGuard.h"
#include "common/Services.h"
#include "textures/InstalledStatus.h"
#include "textures/TextureFolders.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace vellumar {

namespace {

class StatusCommand : public StartedCommand {
public:
    using StartedCommand::StartedCommand;

    int status()
    {
        HashCache hashes(services_.files, HashCache::PathIn(state_.paths.DataFolder));
        const InstalledStatus status =
            ReadInstalledStatus(services_.files, services_.events, TextureFoldersOf(state_.paths),
                                state_.settings.Sets, hashes, services_.originals.store());
        for (const SetPlacement& set : status.sets)
            context_.out << set.name << '\t' << set.state() << '\t' << set.placed << '/'
                         << set.total << '\n';
        context_.out << '\n';
        for (const SimulatorFileHolder& file : status.files) {
            context_.out << file.path;
            if (file.sets.empty())
                context_.out << '\t' << file.holder();
            for (const std::string& set : file.sets)
                context_.out << '\t' << set;
            context_.out << '\n';
        }
        // Only costs the next run its speed.
        if (!hashes.save())
            context_.err << "vellumar-cli: note: the hash cache could not be written\n";
        return CliExit::Success;
    }
};

} // namespace

void AddStatusCommand(CommandSet& commands)
{
    CliContext& context = commands.context();
    CLI::App& status = commands.add(
        commands.root(), "status",
        "what is installed now: each set with all|some|none and placed/total, then each "
        "simulator file a set provides with the set(s) whose bytes it holds, or "
        "original|other|absent (tabs)",
        AfterStartUp<StatusCommand>(context,
                                    [](StatusCommand& command) { return command.status(); }));
    status.footer("Files are compared by content (SHA-256). \"original\" is a file the program\n"
                  "kept before it first changed it, still unchanged.");
}

} // namespace vellumar
