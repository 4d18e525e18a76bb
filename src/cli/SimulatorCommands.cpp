#include "cli/SimulatorCommands.h"

#include "app/FsDiscovery.h"
#include "app/StartUpSequence.h"
#include "cli/CommandSet.h"
#include "cli/StartedCommand.h"
#include "cli/TextureCommands.h"
#include "common/Clock.h"
#include "common/MessageService.h"
#include "common/Services.h"
#include "common/SimulatorProcess.h"
#include "common/TextCompare.h"
#include "simulator/InstallAndStart.h"
#include "simulator/Situation.h"
#include "simulator/Splash.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/SetCatalogue.h"
#include "textures/TextureSetEntry.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>

namespace vellumar {

namespace {

struct StartOptions {
    std::string set;
    std::string situation;
    bool noStart = false;
    bool yes = false;
};

// A description on one line of a tab-separated table.
std::string OneLine(const std::string& text)
{
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        line.push_back(c == '\t' || c == '\n' || c == '\r' ? ' ' : c);
    }
    return line;
}

class SimulatorCommand : public StartedCommand {
public:
    using StartedCommand::StartedCommand;

    int start(const StartOptions& options)
    {
        const bool situationMode = !options.situation.empty();
        std::string situation;
        const TextureSetEntry* set = nullptr;
        if (situationMode) {
            situation = situationNamed(options.situation);
            if (situation.empty())
                return CliExit::Failed;
        } else {
            if (state_.settings.Sets.empty()) {
                context_.err << "vellumar-cli: the texture library has no set to install\n";
                return CliExit::Failed;
            }
            set = options.set.empty() ? &state_.settings.Sets.front() : setNamed(options.set);
            if (!set)
                return CliExit::Failed;
        }

        SplashState splash = SplashStateOf(state_.checks, state_.settings);
        CountSplashPictures(services_.files, state_.paths.FsPath, splash);

        LastInstalledRecord record(state_.settings.LastInstalled, state_.settings.NumberOfDisp);
        context_.setAnswers(options.yes ? ConsoleMessageService::Answers::Yes
                                        : ConsoleMessageService::Answers::No);
        TextureServices textures = TexturesReportingTo(services_, context_.err);

        // The command line has no AutoRandom: its interval is always off here.
        double interval = 0;
        std::chrono::system_clock::time_point lastInstall{};
        int orderPosition = 0;
        InstallAndStartContext run(services_.messages, services_.clock, services_.simulator,
                                   interval, lastInstall, orderPosition);
        run.situationMode = situationMode;
        run.fsFolder = state_.paths.FsPath;
        run.fsExecutable = executable();
        run.installChosenSet = [&] {
            InstallRequest request;
            request.setName = set->name;
            request.cloudSetFolder = set->folder;
            for (const std::string& file :
                 ListSetFiles(ScanSetFolder(services_.files, services_.events, set->folder)))
                request.cloudFiles.emplace_back(file, true);
            request.backupOriginals = state_.settings.BackupOriginals;
            return InstallTextureSet(textures, TextureFoldersOf(state_.paths), request, record)
                .installed;
        };
        run.installSituation = [&] {
            SituationRequest request;
            request.name = situation;
            return InstallSituation(textures, services_.registry, state_, request, record, [] {})
                .ok;
        };
        run.rotateSplash = [&] {
            const int picture =
                RotateSplash(services_.files, services_.events, *state_.ini, state_.paths.FsPath,
                             splash, ClockSeededUniform(services_.clock));
            if (picture > 0)
                context_.err << "Splash picture " << picture << " is in place\n";
        };

        StartFlags flags;
        flags.StartFsAfterInstall = !options.noStart;
        const InstallAndStartOutcome outcome = cmdInstAndStart_Click(run, flags);
        record.SaveLastInstalled(*state_.ini, services_.events);
        if (!outcome.startProblem.empty())
            context_.err << "vellumar-cli: " << outcome.startProblem << '\n';
        if (outcome.started)
            context_.out << "started " << run.fsExecutable << '\n';
        else if (outcome.alreadyRunning)
            context_.out << run.fsExecutable << " is running already\n";
        return outcome.done ? CliExit::Success : CliExit::Failed;
    }

    int situations()
    {
        const std::string& folder = state_.checks.SituationFolder;
        const TextList names = ListSituations(services_.files, services_.events, folder);
        if (names.empty()) {
            context_.err << "vellumar-cli: "
                         << OneLine(CheckSituationFolder(services_.files, services_.events, folder))
                         << '\n';
            return CliExit::Failed;
        }
        for (const std::string& name : names) {
            const SituationPreview preview = PreviewSituation(services_.files, folder, name);
            std::string sets;
            for (const std::string& value :
                 SituationSkyFolders(services_.files, folder + "/" + name))
                sets += (sets.empty() ? "" : ";") + value;
            context_.out << name << '\t' << OneLine(preview.text.value_or("")) << '\t'
                         << OneLine(sets) << '\n';
        }
        return CliExit::Success;
    }

    int clearSituation()
    {
        return ClearSituation(services_.files, services_.messages, state_, [] {}) ? CliExit::Success
                                                                                  : CliExit::Failed;
    }

private:
    std::string executable() const
    {
        const std::string& name =
            state_.paths.FsExeNames[static_cast<std::size_t>(state_.paths.FsIndex & 1)];
        return name.empty() ? std::string(kFsExeName) : name;
    }

    // The situation as lstFLT lists it; "" (after saying so) when there is none of that name.
    std::string situationNamed(const std::string& name)
    {
        if (!state_.settings.SituationEnabled) {
            context_.err << "vellumar-cli: situations are switched off: see [Situation] in "
                         << state_.paths.IniFile() << '\n';
            return {};
        }
        const TextList names =
            ListSituations(services_.files, services_.events, state_.checks.SituationFolder);
        const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& each) {
            return EqualsIgnoreCase(each, name);
        });
        if (found == names.end()) {
            context_.err << "vellumar-cli: there is no situation called \"" << name
                         << "\" (vellumar-cli situations lists them)\n";
            return {};
        }
        return *found;
    }
};

} // namespace

void AddSimulatorCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    CLI::App& root = commands.root();
    commands.heading("The simulator");

    auto options = std::make_shared<StartOptions>();
    CLI::App& start =
        commands.add(root, "start", "install SET (or a situation) and start the simulator",
                     AfterStartUp<SimulatorCommand>(context, [options](SimulatorCommand& command) {
                         return command.start(*options);
                     }));
    CLI::Option* set =
        start.add_option("SET", options->set, "the set's name (default: the first set)")
            ->type_name("");
    start.add_option("--situation", options->situation, "install this situation instead")
        ->type_name("NAME")
        ->excludes(set);
    start.add_flag("--no-start", options->noStart,
                   "install and rotate the splash picture, but do not start the simulator");
    start.add_flag("--yes", options->yes, "answer Yes (or OK) to the questions");
    start.footer("Without --yes every question is answered No (or Cancel): nothing is installed.\n"
                 "NAME is a situation's file name as situations lists it.");

    commands.add(
        root, "running", "say whether the simulator runs (exit 0) or not (exit 1)", [&context] {
            const SimulatorProcess::Running found = context.services.simulator.find(kFsExeName);
            if (!found.running) {
                context.out << "not running\n";
                return CliExit::Failed;
            }
            context.out << "running " << found.processId << '\n';
            return CliExit::Success;
        });

    commands.add(root, "situations",
                 "list the situations: file name, description, set folders (tabs)",
                 AfterStartUp<SimulatorCommand>(
                     context, [](SimulatorCommand& command) { return command.situations(); }));

    commands.add(root, "clear-situation",
                 "take the start situation out of the simulator's "
                 "configuration",
                 AfterStartUp<SimulatorCommand>(
                     context, [](SimulatorCommand& command) { return command.clearSituation(); }));
}

} // namespace vellumar
