#include "autorandom/AutoRandomTimer.h"

#include "app/AutoRandomSelection.h"
#include "autorandom/PickRandomSet.h"
#include "common/Clock.h"
#include "common/EventPump.h"

#include <cmath>
#include <cstdio>

namespace vellumar {

namespace {

constexpr int kMaxTenths = 600;

std::chrono::system_clock::duration IntervalDuration(double minutes)
{
    return std::chrono::duration_cast<std::chrono::system_clock::duration>(
        std::chrono::duration<double, std::ratio<60>>(minutes));
}

} // namespace

IntervalClick IntervalClickFor(bool rightButton, bool shift, bool ctrl)
{
    if (rightButton)
        return IntervalClick::Off;
    if (shift)
        return IntervalClick::Down;
    if (ctrl)
        return IntervalClick::NextTenMinutes;
    return IntervalClick::Up;
}

int NextIntervalTenths(int tenths, IntervalClick click)
{
    constexpr int kFineStep = 1;
    int t = tenths;
    switch (click) {
    case IntervalClick::Up:
        if (t >= 0 && t <= 9)
            t += kFineStep;
        else if (t >= 10 && t <= 190)
            t += 10;
        else
            t += 50;
        if (t > kMaxTenths)
            t = 0;
        break;
    case IntervalClick::Down:
        if (t <= 0)
            t = kMaxTenths;
        else if (t <= 10)
            t -= kFineStep;
        else if (t <= 200)
            t -= 10;
        else
            t -= 50;
        break;
    case IntervalClick::NextTenMinutes:
        do
            ++t;
        while (t % 100 != 0);
        if (t > kMaxTenths)
            t = 0;
        break;
    case IntervalClick::Off:
        t = 0;
        break;
    }
    return t;
}

double IntervalMinutes(int tenths)
{
    // Divided in single precision, as the interval always was: 0.3 minutes is 0.3f.
    return static_cast<double>(static_cast<float>(tenths) / 10.0f);
}

int IntervalTenths(double minutes)
{
    return static_cast<int>(std::lround(minutes * 10));
}

std::string AutoRandomStatus(const AutoRandomRun& run, bool hideSetName, const std::string& setName,
                             std::chrono::system_clock::duration remaining)
{
    if (run.AutoRandomInterval == 0)
        return hideSetName ? std::string() : setName;
    const long long seconds =
        std::max<long long>(0, std::chrono::duration_cast<std::chrono::seconds>(remaining).count());
    char clock[16];
    std::snprintf(clock, sizeof clock, "%02lld:%02lld", (seconds / 60) % 60, seconds % 60);
    if (hideSetName)
        return std::string(run.LastInstallOk ? "" : "Install Error  ") + "Time Remain " + clock;
    return setName + (run.LastInstallOk ? "" : " ( Install Error )") + "    Time Remain  " + clock;
}

AutoRandomTick Timer1_Timer(AutoRandomRun& run, AutoRandomSteps& steps, int& currentSet)
{
    AutoRandomTick tick;
    const auto target = run.LastInstallTime + IntervalDuration(run.AutoRandomInterval);
    if (steps.RandomWait > 0)
        steps.clock.wait(std::chrono::milliseconds(steps.RandomWait));

    if (target - steps.clock.now() <= std::chrono::system_clock::duration::zero()) {
        const std::vector<int>& order = steps.selection.order;
        if (steps.selection.OrderMode && !order.empty()) {
            ++run.OrderPosition;
            if (run.OrderPosition > static_cast<int>(order.size()) || run.OrderPosition < 1)
                run.OrderPosition = 1;
            currentSet = order[static_cast<std::size_t>(run.OrderPosition - 1)];
        } else {
            const int last = static_cast<int>(steps.selection.flags.size()) - 1;
            currentSet = steps.picker.PickRandomSet(0, last, steps.selection.flags, steps.events);
        }
        steps.autoRandomSound();
        // The countdown starts again from this install, failed or not: the next try comes
        // after a whole interval.
        const auto began = steps.clock.now();
        run.LastInstallOk = steps.install(currentSet);
        run.LastInstallTime = began;
        tick.installedSet = currentSet;
        tick.installOk = run.LastInstallOk;
    }

    const auto remaining =
        run.LastInstallTime + IntervalDuration(run.AutoRandomInterval) - steps.clock.now();
    steps.events.DoEvents();
    tick.status =
        AutoRandomStatus(run, steps.HideSetName,
                         currentSet >= 0 ? steps.setName(currentSet) : std::string(), remaining);
    return tick;
}

} // namespace vellumar
