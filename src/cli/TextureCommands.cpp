#include "cli/TextureCommands.h"

#include "app/StartUpSequence.h"
#include "cli/CommandSet.h"
#include "cli/StartedCommand.h"
#include "common/PathText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "textures/Backup.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/NamedFiles.h"
#include "textures/Restore.h"
#include "textures/SetCatalogue.h"
#include "textures/TextureFolders.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>

namespace vellumar {

namespace {

// What install and restore are asked to do.
struct Options {
    std::string set;
    TextList only;
    std::string optionSet;
    TextList optionOnly;
    bool yes = false;
};

class TextureCommand : public StartedCommand {
public:
    explicit TextureCommand(CliContext& context)
        : StartedCommand(context)
        , setAnswers_(context.setAnswers)
        , out_(context.out)
        , err_(context.err)
    {}

    const TextureSetEntry* set(const std::string& name) { return setNamed(name); }

    int sets()
    {
        for (const TextureSetEntry& set : state_.settings.Sets)
            out_ << set.name << '\t'
                 << GetSetDataType(services_.files, services_.events, set.folder) << '\t'
                 << set.compatibility << '\t' << set.folder << '\n';
        return CliExit::Success;
    }

    int files(const std::string& name)
    {
        const TextureSetEntry* found = set(name);
        if (!found)
            return CliExit::Failed;
        const SetFolderFiles scanned =
            ScanSetFolder(services_.files, services_.events, found->folder);
        for (const std::string& file : ListSetFiles(scanned))
            out_ << file << '\n';
        for (const RefusedFile& refused : scanned.refused)
            err_ << "vellumar-cli: note: \"" << refused.name
                 << "\" is not offered: " << refused.reason << '\n';
        return CliExit::Success;
    }

    int install(const Options& options)
    {
        const TextureSetEntry* found = set(options.set);
        if (!found)
            return CliExit::Failed;
        InstallRequest request;
        request.setName = found->name;
        request.cloudSetFolder = found->folder;
        NamedFiles clouds = TickNamedFiles(
            ListSetFiles(ScanSetFolder(services_.files, services_.events, found->folder)),
            options.only);
        NamedFiles optionFiles;
        if (!options.optionSet.empty()) {
            // Only an option set the window would list: a path must not reach outside the
            // library.
            const TextList optionSets =
                OptionSetNames(services_.files, services_.events, state_.paths.DataFolder);
            const auto named =
                std::find_if(optionSets.begin(), optionSets.end(), [&](const std::string& name) {
                    return EqualsIgnoreCase(name, options.optionSet);
                });
            if (named == optionSets.end()) {
                err_ << "vellumar-cli: there is no option set \"" << options.optionSet << "\"\n";
                return CliExit::Failed;
            }
            request.optionSetFolder = JoinPath(OptionGroupFolder(state_.paths.DataFolder), *named);
            optionFiles =
                TickNamedFiles(ListOptionFiles(ScanSetFolder(services_.files, services_.events,
                                                             request.optionSetFolder)),
                               options.optionOnly);
        }
        const bool cloudsOffered = allOffered("set \"" + found->name + "\"", clouds);
        if (!allOffered("option set \"" + options.optionSet + "\"", optionFiles) || !cloudsOffered)
            return CliExit::Failed;
        request.cloudFiles = std::move(clouds.ticks);
        request.optionFiles = std::move(optionFiles.ticks);
        request.backupOriginals = state_.settings.BackupOriginals;

        LastInstalledRecord record(state_.settings.LastInstalled, state_.settings.NumberOfDisp);
        setAnswers_(options.yes ? ConsoleMessageService::Answers::Yes
                                : ConsoleMessageService::Answers::No);
        TextureServices textures = servicesForTextures();
        const InstallOutcome outcome =
            InstallTextureSet(textures, TextureFoldersOf(state_.paths), request, record);
        // Saved as the program saves it when its window closes.
        record.SaveLastInstalled(*state_.ini, services_.events);
        return outcome.installed ? CliExit::Success : CliExit::Failed;
    }

    int restore(const Options& options)
    {
        const TextureSetEntry* found = set(options.set);
        if (!found)
            return CliExit::Failed;
        const NamedFiles files = TickNamedFiles(
            ListSetFiles(ScanSetFolder(services_.files, services_.events, found->folder)),
            options.only);
        if (!allOffered("set \"" + found->name + "\"", files))
            return CliExit::Failed;
        setAnswers_(options.yes ? ConsoleMessageService::Answers::Yes
                                : ConsoleMessageService::Answers::No);
        TextureServices textures = servicesForTextures();
        return RestoreOriginals(textures, TextureFoldersOf(state_.paths), files.ticks, {})
                   ? CliExit::Success
                   : CliExit::Failed;
    }

    int last()
    {
        const LastInstalledRecord record(state_.settings.LastInstalled,
                                         state_.settings.NumberOfDisp);
        out_ << record.LastInstalledText();
        return CliExit::Success;
    }

private:
    // A name the set does not offer stops the command before it asks or copies anything: the
    // user meant something else, and half of an install is not what was asked for either.
    bool allOffered(const std::string& set, const NamedFiles& files)
    {
        for (const std::string& name : files.notOffered)
            err_ << "vellumar-cli: the " << set << " does not offer \"" << name << "\"\n";
        return files.notOffered.empty();
    }

    TextureServices servicesForTextures() { return TexturesReportingTo(services_, err_); }

    SetAnswers setAnswers_;
    std::ostream& out_;
    std::ostream& err_;
};

} // namespace

void AddTextureCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    CLI::App& root = commands.root();
    commands.heading("Texture library");

    commands.add(root, "sets", "list the texture sets: name, data type, category, folder (tabs)",
                 AfterStartUp<TextureCommand>(
                     context, [](TextureCommand& command) { return command.sets(); }));

    auto files = std::make_shared<std::string>();
    commands
        .add(root, "files", "list the files of SET that an install offers",
             AfterStartUp<TextureCommand>(
                 context, [files](TextureCommand& command) { return command.files(*files); }))
        .add_option("SET", *files, "the set's name, as sets lists it")
        ->type_name("")
        ->required();

    // One file per --only, so that SET may stand anywhere on the line.
    auto addSetChoice = [](CLI::App& command, Options& options) {
        command.add_option("SET", options.set, "the set's name, as sets lists it")
            ->type_name("")
            ->required();
        command.add_option("--only", options.only, "only this file of SET (repeatable)")
            ->type_name("FILE")
            ->allow_extra_args(false);
        command.add_flag("--yes", options.yes, "answer Yes (or OK) to the questions");
        command.footer("Without --yes every question is answered No (or Cancel): nothing changes.\n"
                       "Only files the set offers can be named (vellumar-cli files SET lists "
                       "them),\nby their bare names; any other name stops the command.");
    };

    auto install = std::make_shared<Options>();
    CLI::App& installCommand = commands.add(
        root, "install", "install SET into the simulator (every file, or those named)",
        AfterStartUp<TextureCommand>(
            context, [install](TextureCommand& command) { return command.install(*install); },
            &install->yes));
    addSetChoice(installCommand, *install);
    CLI::Option* optionSet =
        installCommand.add_option("--option", install->optionSet, "an option set to add")
            ->type_name("OPTIONSET");
    installCommand
        .add_option("--option-only", install->optionOnly,
                    "only this bitmap of OPTIONSET (repeatable)")
        ->type_name("FILE")
        ->allow_extra_args(false)
        ->needs(optionSet);

    auto restore = std::make_shared<Options>();
    CLI::App& restoreCommand = commands.add(
        root, "restore", "put the simulator's originals of SET's files back",
        AfterStartUp<TextureCommand>(
            context, [restore](TextureCommand& command) { return command.restore(*restore); },
            &restore->yes));
    addSetChoice(restoreCommand, *restore);

    commands.add(root, "last", "show the sets installed last",
                 AfterStartUp<TextureCommand>(
                     context, [](TextureCommand& command) { return command.last(); }));
}

TextureServices TexturesReportingTo(Services& services, std::ostream& err)
{
    return {services.messages, services.files, services.events, services.clock,
            [&err](const std::string& status) {
                if (!status.empty())
                    err << status << '\n';
            }};
}

} // namespace vellumar
