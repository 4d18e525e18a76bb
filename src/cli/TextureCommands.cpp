#include "cli/TextureCommands.h"

#include "app/StartUpSequence.h"
#include "cli/CliCommands.h"
#include "common/PathText.h"
#include "common/Services.h"
#include "common/TextCompare.h"
#include "textures/Backup.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/Restore.h"
#include "textures/SetCatalogue.h"

#include <algorithm>
#include <optional>
#include <ostream>

namespace vellumar {

namespace {

using Arguments = std::vector<std::string>;

struct Options {
    std::string set;
    TextList only;
    std::string optionSet;
    TextList optionOnly;
    bool yes = false;
};

// SET [--only FILE]... [--option OPTIONSET [--option-only FILE]...] [--yes]
std::optional<Options> ParseOptions(const Arguments& args, bool allowOptionSet)
{
    if (args.size() < 2 || args[1].starts_with("--"))
        return std::nullopt;
    Options options;
    options.set = args[1];
    for (std::size_t i = 2; i < args.size(); ++i) {
        const std::string& word = args[i];
        const bool hasValue = i + 1 < args.size();
        if (word == "--yes")
            options.yes = true;
        else if (word == "--only" && hasValue)
            options.only.push_back(args[++i]);
        else if (allowOptionSet && word == "--option" && hasValue && options.optionSet.empty())
            options.optionSet = args[++i];
        else if (allowOptionSet && word == "--option-only" && hasValue &&
                 !options.optionSet.empty())
            options.optionOnly.push_back(args[++i]);
        else
            return std::nullopt;
    }
    return options;
}

const TextureSetEntry* FindSet(const CloudIniSettings& settings, const std::string& name)
{
    for (const TextureSetEntry& set : settings.Sets)
        if (set.name == name)
            return &set;
    for (const TextureSetEntry& set : settings.Sets)
        if (EqualsIgnoreCase(set.name, name))
            return &set;
    return nullptr;
}

// Every offered file ticked, or only the named ones (a name the set lacks is kept, so that the
// install reports it as not found).
TickList Ticks(const TextList& offered, const TextList& only)
{
    TickList ticks;
    for (const std::string& file : offered) {
        const bool named =
            only.empty() || std::any_of(only.begin(), only.end(), [&](const std::string& wanted) {
                return EqualsIgnoreCase(wanted, file);
            });
        ticks.emplace_back(file, named);
    }
    for (const std::string& wanted : only)
        if (std::none_of(offered.begin(), offered.end(),
                         [&](const std::string& file) { return EqualsIgnoreCase(wanted, file); }))
            ticks.emplace_back(wanted, true);
    return ticks;
}

class TextureCommand {
public:
    TextureCommand(Services& services, const SetAnswers& setAnswers, std::ostream& out,
                   std::ostream& err)
        : services_(services)
        , setAnswers_(setAnswers)
        , out_(out)
        , err_(err)
    {}

    // The program's start-up without windows; false when it would have ended the program.
    bool startUp()
    {
        setAnswers_(ConsoleMessageService::Answers::Default);
        return RunStartUpSequence(services_, ScreenFacts{}, state_) == StartUpOutcome::Continue;
    }

    const TextureSetEntry* set(const std::string& name)
    {
        const TextureSetEntry* found = FindSet(state_.settings, name);
        if (!found)
            err_ << "vellumar-cli: there is no texture set called \"" << name
                 << "\" (vellumar-cli sets lists them)\n";
        return found;
    }

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
        for (const std::string& file :
             ListSetFiles(ScanSetFolder(services_.files, services_.events, found->folder)))
            out_ << file << '\n';
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
        request.cloudFiles =
            Ticks(ListSetFiles(ScanSetFolder(services_.files, services_.events, found->folder)),
                  options.only);
        if (!options.optionSet.empty()) {
            request.optionSetFolder =
                JoinPath(JoinPath(JoinPath(state_.paths.DataFolder, "Texture"), "Option"),
                         options.optionSet);
            request.optionFiles =
                Ticks(ListOptionFiles(ScanSetFolder(services_.files, services_.events,
                                                    request.optionSetFolder)),
                      options.optionOnly);
        }
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
        const TickList files =
            Ticks(ListSetFiles(ScanSetFolder(services_.files, services_.events, found->folder)),
                  options.only);
        setAnswers_(options.yes ? ConsoleMessageService::Answers::Yes
                                : ConsoleMessageService::Answers::No);
        TextureServices textures = servicesForTextures();
        return RestoreOriginals(textures, TextureFoldersOf(state_.paths), files, {})
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
    TextureServices servicesForTextures()
    {
        return {services_.messages, services_.files, services_.events, services_.clock,
                [this](const std::string& status) {
                    if (!status.empty())
                        err_ << status << '\n';
                }};
    }

    Services& services_;
    const SetAnswers& setAnswers_;
    std::ostream& out_;
    std::ostream& err_;
    ProgramState state_;
};

} // namespace

std::string TextureCommandsUsage()
{
    return "  sets                            list the texture sets: name, data type, category,\n"
           "                                  folder (tab-separated)\n"
           "  files SET                       list the files of SET that an install offers\n"
           "  install SET [--only FILE]... [--option OPTIONSET [--option-only FILE]...] [--yes]\n"
           "                                  install SET (every file, or only those named)\n"
           "  restore SET [--only FILE]... [--yes]\n"
           "                                  put the simulator's originals of SET's files back\n"
           "  last                            show the sets installed last\n";
}

int RunTextureCommand(const Arguments& args, Services& services, const SetAnswers& setAnswers,
                      std::ostream& out, std::ostream& err)
{
    if (args.empty())
        return -1;
    const std::string& command = args[0];
    std::optional<Options> options;
    if (command == "sets" || command == "last") {
        if (args.size() != 1)
            return CliExit::UsageError;
    } else if (command == "files") {
        if (args.size() != 2)
            return CliExit::UsageError;
    } else if (command == "install" || command == "restore") {
        options = ParseOptions(args, command == "install");
        if (!options)
            return CliExit::UsageError;
    } else {
        return -1;
    }

    TextureCommand run(services, setAnswers, out, err);
    if (!run.startUp())
        return CliExit::Failed;
    if (command == "sets")
        return run.sets();
    if (command == "last")
        return run.last();
    if (command == "files")
        return run.files(args[1]);
    if (command == "install")
        return run.install(*options);
    return run.restore(*options);
}

} // namespace vellumar
