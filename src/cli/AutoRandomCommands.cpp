#include "cli/AutoRandomCommands.h"

#include "app/AutoRandomSelection.h"
#include "app/StartUpSequence.h"
#include "autorandom/AutoRandomTimer.h"
#include "autorandom/PickRandomSet.h"
#include "cli/CommandLine.h"
#include "cli/CommandSet.h"
#include "cli/StartedCommand.h"
#include "common/Clock.h"
#include "common/MessageService.h"
#include "common/Services.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/SetCatalogue.h"
#include "textures/TextureSetEntry.h"

#include <CLI/CLI.hpp>
#include <atomic>
#include <csignal>
#include <iostream>
#include <memory>

namespace vellumar {

namespace {

std::atomic<bool> interrupted{false};

extern "C" void OnInterrupt(int)
{
    interrupted = true;
}

// Ctrl+C ends the countdown between ticks, so the record is still saved; the handler that was
// there before comes back afterwards.
class InterruptGuard {
public:
    InterruptGuard()
        : previous_(std::signal(SIGINT, OnInterrupt))
    {
        interrupted = false;
    }
    ~InterruptGuard() { std::signal(SIGINT, previous_); }
    InterruptGuard(const InterruptGuard&) = delete;
    InterruptGuard& operator=(const InterruptGuard&) = delete;

private:
    void (*previous_)(int);
};

// Passes every message on and keeps the last one: the reason printed for a failed install.
class RememberingMessages final : public MessageService {
public:
    explicit RememberingMessages(MessageService& inner)
        : inner_(inner)
    {}
    int ShowMessage(const std::string& text, int style, const std::string& title) override
    {
        last = title + ": " + text.substr(0, text.find('\n'));
        return inner_.ShowMessage(text, style, title);
    }
    int ShowSystemMessage(const std::string& text, int style, const std::string& title) override
    {
        last = title + ": " + text.substr(0, text.find('\n'));
        return inner_.ShowSystemMessage(text, style, title);
    }
    std::string last;

private:
    MessageService& inner_;
};

struct SelectOptions {
    std::vector<std::string> sets;
    bool order = false;
};

struct CountdownOptions {
    double minutes = 0;
    int count = 0; // 0: until Ctrl+C
};

class AutoRandomCommand : public StartedCommand {
public:
    using StartedCommand::StartedCommand;

    int select(const SelectOptions& options)
    {
        const std::vector<TextureSetEntry>& sets = state_.settings.Sets;
        AutoRandomSelection selection;
        selection.flags.assign(sets.size(), false);
        selection.OrderMode = options.order;
        for (const std::string& name : options.sets) {
            const TextureSetEntry* set = setNamed(name);
            if (!set)
                return CliExit::Failed;
            TickAutoRandomSet(selection, static_cast<int>(set - sets.data()), true);
        }
        if (!selection.anySelected()) {
            noneSelected();
            return CliExit::Failed;
        }
        WriteAutoRandomSelection(*state_.ini, state_.settings.Sets, selection);
        return CliExit::Success;
    }

    int countdown(const CountdownOptions& options)
    {
        const AutoRandomSelection& selection = state_.settings.AutoRandom;
        if (!selection.anySelected()) {
            noneSelected();
            return CliExit::Failed;
        }
        const std::vector<TextureSetEntry>& sets = state_.settings.Sets;
        LastInstalledRecord record(state_.settings.LastInstalled, state_.settings.NumberOfDisp);
        RememberingMessages messages(services_.messages);
        TextureServices quietTextures{messages, services_.files, services_.events, services_.clock};
        RandomSetPicker picker(ClockSeededUniform(services_.clock));

        AutoRandomRun run;
        run.AutoRandomInterval = IntervalMinutes(IntervalTenths(options.minutes));
        // Armed as Install & Start arms it: the first tick installs at once.
        run.LastInstallTime =
            services_.clock.now() -
            std::chrono::duration_cast<std::chrono::system_clock::duration>(
                std::chrono::duration<double, std::ratio<60>>(run.AutoRandomInterval));
        AutoRandomSteps steps(services_.clock, services_.events, picker, selection);
        steps.RandomWait = state_.settings.RandomWait;
        steps.setName = [&](int set) { return sets[static_cast<std::size_t>(set)].name; };
        steps.install = [&](int set) {
            const TextureSetEntry& entry = sets[static_cast<std::size_t>(set)];
            InstallRequest request;
            request.setName = entry.name;
            request.cloudSetFolder = entry.folder;
            for (const std::string& file :
                 ListSetFiles(ScanSetFolder(services_.files, services_.events, entry.folder)))
                request.cloudFiles.emplace_back(file, true);
            request.autoRandomRunning = true;
            request.backupOriginals = state_.settings.BackupOriginals;
            messages.last.clear();
            return InstallTextureSet(quietTextures, TextureFoldersOf(state_.paths), request, record)
                .installed;
        };

        const bool terminal = &context_.out == &std::cout && OutputIsTerminal();
        const InterruptGuard guard;
        int current = -1;
        int installs = 0;
        std::string shown;
        while (!interrupted && (options.count == 0 || installs < options.count)) {
            const AutoRandomTick tick = Timer1_Timer(run, steps, current);
            if (tick.installedSet >= 0) {
                ++installs;
                if (terminal && !shown.empty())
                    context_.out << '\n';
                context_.out << (tick.installOk ? "installed " : "failed ") << installs << ": "
                             << steps.setName(tick.installedSet);
                if (!tick.installOk)
                    context_.out << " ("
                                 << (messages.last.empty() ? "nothing was installed"
                                                           : messages.last)
                                 << ')';
                context_.out << '\n';
                shown.clear();
                if (options.count != 0 && installs >= options.count)
                    break;
            }
            if (tick.status != shown) {
                // On a terminal one line, redrawn; elsewhere a line for each new text.
                if (terminal)
                    context_.out << '\r' << tick.status << "\x1b[K" << std::flush;
                else
                    context_.out << tick.status << '\n';
                shown = tick.status;
            }
            services_.clock.wait(std::chrono::milliseconds(200));
        }
        if (terminal && !shown.empty())
            context_.out << '\n';
        record.SaveLastInstalled(*state_.ini, services_.events);
        return CliExit::Success;
    }

private:
    void noneSelected()
    {
        services_.messages.ShowMessage(
            "Please select one set at least.\nNo AutoRandom set is selected.",
            MessageStyle::Information, "No selected data");
    }
};

} // namespace

void AddAutoRandomCommands(CommandSet& commands)
{
    CliContext& context = commands.context();
    CLI::App& root = commands.root();
    commands.heading("AutoRandom");

    auto selectOptions = std::make_shared<SelectOptions>();
    CLI::App& select = commands.add(
        root, "select", "choose the sets AutoRandom installs (all others are left out)",
        AfterStartUp<AutoRandomCommand>(context, [selectOptions](AutoRandomCommand& command) {
            return command.select(*selectOptions);
        }));
    select.add_option("SET", selectOptions->sets, "a set's name, as sets lists it")->type_name("");
    select.add_flag("--order", selectOptions->order,
                    "install them in the order given, instead of at random");

    auto countdown = std::make_shared<CountdownOptions>();
    CLI::App& autorandom = commands.add(
        root, "autorandom", "install a selected set now and then every MINUTES, until stopped",
        AfterStartUp<AutoRandomCommand>(context, [countdown](AutoRandomCommand& command) {
            return command.countdown(*countdown);
        }));
    autorandom.add_option("--interval", countdown->minutes, "minutes between installs")
        ->type_name("MINUTES")
        ->required()
        ->check(CLI::Range(0.1, 60.0));
    autorandom.add_option("--count", countdown->count, "stop after N installs")
        ->type_name("N")
        ->check(CLI::PositiveNumber);
    autorandom.footer("MINUTES takes tenths (0.1 to 60). The sets and the mode (random or order) "
                      "are those\nvellumar-cli select (or the selection window) stored. Ctrl+C "
                      "stops; the sets installed\nare recorded either way.");
}

} // namespace vellumar
