#include "cli/LibraryCommands.h"

#include "app/TextureSetLibrary.h"
#include "cli/CommandSet.h"
#include "cli/StartedCommand.h"
#include "common/Services.h"
#include "textures/TextureSetEntry.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

namespace vellumar {

namespace {

struct LibraryOptions {
    std::string target; // the archive or folder to import, or the set to remove
    std::string name;
    bool yes = false;
};

class LibraryCommand : public StartedCommand {
public:
    using StartedCommand::StartedCommand;

    int import(const LibraryOptions& options)
    {
        answer(options.yes);
        const LibraryChange change =
            AddTextureSet(services_.files, services_.messages, *state_.ini, state_.paths,
                          state_.settings.Sets, options.target, options.name);
        for (const SkippedEntry& skipped : change.plan.skipped)
            context_.err << "vellumar-cli: import: left out \"" << skipped.path
                         << "\": " << skipped.reason << '\n';
        if (!change.done)
            return report("import", change);
        context_.out << "added [Set" << change.section << "] " << change.plan.name << '\t'
                     << change.plan.dataType << '\t' << change.plan.files.size()
                     << (change.plan.files.size() == 1 ? " file\n" : " files\n");
        return CliExit::Success;
    }

    int remove(const LibraryOptions& options)
    {
        const TextureSetEntry* set = setNamed(options.target);
        if (!set)
            return CliExit::Failed;
        answer(options.yes);
        const LibraryChange change =
            RemoveTextureSet(services_.files, services_.messages, *state_.ini, state_.paths,
                             state_.settings.Sets, *set);
        if (!change.done)
            return report("remove", change);
        context_.out << "removed [Set" << change.section << "] " << set->name << '\n';
        return CliExit::Success;
    }

private:
    void answer(bool yes)
    {
        context_.setAnswers(yes ? ConsoleMessageService::Answers::Yes
                                : ConsoleMessageService::Answers::No);
    }

    int report(const char* command, const LibraryChange& change)
    {
        if (change.refused)
            context_.err << "vellumar-cli: " << command << ": nothing changed (--yes confirms)\n";
        else
            context_.err << "vellumar-cli: " << command << ": " << change.problem
                         << "; nothing changed\n";
        return CliExit::Failed;
    }
};

} // namespace

void AddLibraryCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    CLI::App& root = commands.root();

    auto import = std::make_shared<LibraryOptions>();
    CLI::App& importCommand = commands.add(
        root, "import", "add a texture set from an archive (ZIP, 7z, RAR, tar) or a folder",
        AfterStartUp<LibraryCommand>(
            context, [import](LibraryCommand& command) { return command.import(*import); }));
    importCommand.add_option("SOURCE", import->target, "the archive or folder")
        ->type_name("")
        ->required();
    importCommand.add_option("--name", import->name, "the set's name (default: the source's)")
        ->type_name("NAME");
    importCommand.add_flag("--yes", import->yes, "answer Yes to the question");
    importCommand.footer("Without --yes the question is answered No: nothing changes.");

    auto remove = std::make_shared<LibraryOptions>();
    CLI::App& removeCommand =
        commands.add(root, "remove", "remove SET from the library; its folder goes to the trash",
                     AfterStartUp<LibraryCommand>(context, [remove](LibraryCommand& command) {
                         return command.remove(*remove);
                     }));
    removeCommand.add_option("SET", remove->target, "the set's name, as sets lists it")
        ->type_name("")
        ->required();
    removeCommand.add_flag("--yes", remove->yes, "answer Yes to the question");
    removeCommand.footer("Without --yes the question is answered No: nothing changes.");
}

} // namespace vellumar
