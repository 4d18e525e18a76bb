#include "simulator/InstallAndStart.h"

#include "common/Clock.h"
#include "common/MessageService.h"
#include "common/SimulatorProcess.h"

#include <algorithm>
#include <cmath>

namespace vellumar {

StartMouseDown cmdInstAndStart_MouseDown(MouseButton button, bool shift, double autoRandomInterval,
                                         StartFlags& flags)
{
    flags = StartFlags{};
    if (shift && button == MouseButton::Left) {
        flags.StartFsAfterInstall = false;
        return StartMouseDown::Nothing;
    }
    if (shift && button == MouseButton::Right) {
        flags.ArmAutoRandom = false;
        return StartMouseDown::ClickNow; // a right press raises no click of its own
    }
    if (button == MouseButton::Right && autoRandomInterval != 0)
        return StartMouseDown::StartModeMenu;
    return StartMouseDown::Nothing;
}

InstallAndStartOutcome cmdInstAndStart_Click(InstallAndStartContext& context,
                                             const StartFlags& flags)
{
    InstallAndStartOutcome outcome;
    if (!context.situationMode) {
        // With AutoRandom armed the timer's first tick installs; nothing is installed here.
        if (context.AutoRandomInterval == 0 && flags.ArmAutoRandom) {
            const bool installed = context.installChosenSet();
            context.beep();
            if (!installed)
                return outcome;
        }
    } else if (!context.installSituation()) {
        return outcome;
    }

    if (context.AutoRandomInterval != 0) {
        if (flags.ArmAutoRandom) {
            if (std::none_of(context.selectionFlags.begin(), context.selectionFlags.end(),
                             [](bool selected) { return selected; })) {
                context.messages.ShowMessage(
                    "Please select one set at least.\nNo AutoRandom set is selected.",
                    MessageStyle::Information, "No selected data");
                context.openAutoRandomSelection();
                return outcome;
            }
            context.armAutoRandom();
            context.OrderPosition = 0;
            // The countdown starts already run out: the first tick installs at once.
            const auto interval = std::chrono::duration_cast<std::chrono::system_clock::duration>(
                std::chrono::duration<double, std::ratio<60>>(context.AutoRandomInterval));
            context.LastInstallTime = context.clock.now() - interval;
        } else {
            context.AutoRandomInterval = 0;
            context.showAutoRandomOff();
        }
    }

    context.rotateSplash();

    if (flags.StartFsAfterInstall) {
        if (context.simulator.find(context.fsExecutable).running) {
            outcome.alreadyRunning = true;
        } else {
            const SimulatorProcess::Started started =
                context.simulator.start(context.fsFolder, context.fsExecutable);
            if (!started.ok) {
                outcome.startProblem = started.problem;
                context.messages.ShowMessage(context.fsExecutable + " can't be opened.",
                                             MessageStyle::Critical, "FS Opening Error");
                return outcome;
            }
            outcome.started = true;
        }
    }
    outcome.done = true;
    if (context.AutoRandomInterval == 0 && context.UnloadAfterFsStart)
        context.closeMainWindow();
    return outcome;
}

} // namespace vellumar
