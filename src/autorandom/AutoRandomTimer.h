#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace vellumar {

class Clock;
class EventPump;
class RandomSetPicker;
struct AutoRandomSelection;

// AutoRandom: every few minutes a set is installed, picked at random among the sets that take
// part or the next of the order the user arranged.

// What a click on lblTime does to the interval.
enum class IntervalClick {
    Up,             // left button
    Down,           // Shift + left
    NextTenMinutes, // Ctrl + left
    Off,            // right button
};
IntervalClick IntervalClickFor(bool rightButton, bool shift, bool ctrl);

// The interval in tenths of a minute (0 to 600, 0 is off) after a click: fine steps of one
// tenth below a minute, whole minutes up to 20, then 5 minutes; past 60 minutes up is off, and
// down from off is 60 minutes.
int NextIntervalTenths(int tenths, IntervalClick click);
// The interval as minutes and as tenths, both ways.
double IntervalMinutes(int tenths);
int IntervalTenths(double minutes);

// The countdown's state, kept by the main window (or the command line's loop).
struct AutoRandomRun {
    double AutoRandomInterval = 0; // minutes; 0 is off
    std::chrono::system_clock::time_point LastInstallTime{};
    int OrderPosition = 0; // 1-based place in the order of the set installed last; 0 before
    bool LastInstallOk = true;
};

// The work of a tick that belongs to others.
struct AutoRandomSteps {
    AutoRandomSteps(Clock& clock, EventPump& events, RandomSetPicker& picker,
                    const AutoRandomSelection& selection)
        : clock(clock)
        , events(events)
        , picker(picker)
        , selection(selection)
    {}

    Clock& clock;
    EventPump& events;
    RandomSetPicker& picker;
    const AutoRandomSelection& selection;
    long RandomWait = 0; // milliseconds, waited on every tick
    bool HideSetName = false;
    // The name of a set of the catalogue, as cmbClouds shows it.
    std::function<std::string(int set)> setName = [](int) { return std::string(); };
    std::function<void()> autoRandomSound = [] {};
    // Installs a set; true when its files were copied.
    std::function<bool(int set)> install = [](int) { return false; };
};

// One tick of Timer1 (every 200 ms while AutoRandom runs).
struct AutoRandomTick {
    int installedSet = -1; // the set installed (or tried) on this tick; -1 when none
    bool installOk = true;
    std::string status; // lblMsg
};
// `currentSet` is the set cmbClouds shows; an expiry makes the picked set current.
AutoRandomTick Timer1_Timer(AutoRandomRun& run, AutoRandomSteps& steps, int& currentSet);

// The status line while the countdown runs: the set (or, for a hidden pick, nothing of it),
// "Install Error" after a failed install, and the time left as "mm:ss".
std::string AutoRandomStatus(const AutoRandomRun& run, bool hideSetName, const std::string& setName,
                             std::chrono::system_clock::duration remaining);

} // namespace vellumar
