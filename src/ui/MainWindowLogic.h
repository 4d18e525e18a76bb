#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class EventPump;
class FileOperations;
struct TextureSetEntry;

// The main window's rules that need no widget. The window reads its controls, asks these
// functions, and shows the answer; controls are named by their object names.

// The filter labels lblFilter(0..5). Index 4 is the heading of the row, not a filter.
namespace SetFilter {
inline constexpr int All = 0;
inline constexpr int Cumulus = 1;
inline constexpr int Cirrus = 2;
inline constexpr int SkyColor = 3;
inline constexpr int Heading = 4;
inline constexpr int Misc = 5;
inline constexpr int Count = 6;
} // namespace SetFilter

// What the main window is showing and doing, as far as its rules depend on it.
struct MainWindowState {
    bool ShowSkyFiles = false;
    bool BackupOriginals = false;
    // A hidden random pick is active: the set name is never shown.
    bool HideSetName = false;
    // optFLT is chosen instead of optSky.
    bool SituationMode = false;
    // Minutes; 0 is AutoRandom off.
    double AutoRandomInterval = 0;
    // The AutoRandom countdown runs from here.
    std::chrono::system_clock::time_point LastInstallTime{};
    // Entries of lstFLT.
    int SituationCount = 0;
    // The filter label shown as chosen, and the sets (catalogue indices) that lstSkyFil lists
    // while it stands in for lstSky; none while "All " is chosen.
    int ChosenFilter = SetFilter::All;
    std::vector<int> FilteredSets;
    bool Filtered() const { return !FilteredSets.empty(); }
};

struct ControlSwitch {
    std::string name;
    bool on = false;
};

// Visibility and enabled state for some controls; controls not named keep theirs.
struct WindowChanges {
    std::vector<ControlSwitch> visible;
    std::vector<ControlSwitch> enabled;
};

// "All ", "Cumulus", "Cirrus", "Sky Color ", "Sky", "Misc" (the blanks are part of them).
std::string_view FilterCaption(int index);
std::string FilterLabelName(int index);

struct FilterChoice {
    // False for the heading and during a hidden pick: nothing changes.
    bool applies = false;
    // The label shown as chosen; "All " when a category has no set.
    int chosen = SetFilter::All;
    // lstSkyFil replaces lstSky with these names (catalogue order) when not empty; `indices`
    // holds the catalogue index of each, as names need not be unique.
    TextList filtered;
    std::vector<int> indices;
    bool switchAutoRandomOff = false;
};

// lblFilter_Click: the sets of one category, or all sets when the category has none.
FilterChoice ChooseFilter(int index, const MainWindowState& state,
                          const std::vector<TextureSetEntry>& sets);
// The window takes a choice that applies: lstSkyFil's sets and the chosen label.
void TakeFilter(MainWindowState& state, const FilterChoice& choice);
// A new configuration starts on "All ".
void ClearFilter(MainWindowState& state);
// The catalogue index of a row of lstSkyFil; -1 for a row it does not have.
int FilteredSetAt(const MainWindowState& state, int row);
// Which of lstSky and lstSkyFil the set area shows; nothing changes while the file lists or
// the situations have the area.
WindowChanges SetListControls(const MainWindowState& state);

// lstClouds_Click and lstOption_Click: each file ticked in `clicked` unticks the file of the
// same name (letter case ignored) in `other`, so no file is installed from both sets.
void MirrorTicks(const TickList& clicked, TickList& other);
bool AnyTicked(const TickList& list);

// ButtonCtrl: while AutoRandom runs the set cannot be changed by hand.
WindowChanges ButtonCtrl(bool enabled, const MainWindowState& state);

// cmdCont, after the ticks changed; no changes in situation mode or with an interval set.
WindowChanges cmdCont(const MainWindowState& state, bool anyTicked);

// The two layouts of ShowSkyFiles: the set's file lists with their combos, or the one list of
// sets with its filters. Also the backup buttons, which follow BackupOriginals.
struct SkyListLayout {
    WindowChanges changes;
    // The room of the situation list, in twips.
    int situationListTwips = 0;
};
SkyListLayout LayoutForShowSkyFiles(const MainWindowState& state);

// optSky_Click: the sky controls of the layout come back, lstSkyFil instead of lstSky while
// a filter is chosen.
WindowChanges SkyModeControls(const MainWindowState& state);
// optFLT_Click: the situation list replaces the sky lists.
WindowChanges SituationModeControls();
// cmdRandom_Click: everything that could give the picked set's name away is hidden, and the
// hidden-pick panel (picHiddenPick) takes the lists' place. Without any set there is nothing
// to hide; only backup and restore are switched off.
WindowChanges HiddenPickControls(bool anySet = true);

// The trail switch (chkTrailOption with lblTrailOption) under the set list.
struct TrailSwitch {
    bool visible = false;
    std::string caption; // lblTrailOption: the option set's name
};
TrailSwitch TrailSwitchFor(const MainWindowState& state, const std::string& optionSetName,
                           bool optionSetHasFiles);

inline constexpr std::string_view kPressInstallText = "Press Install Button.";

// What lblMsg shows for the current set: its name, or the install prompt during a hidden pick.
std::string SetStatusText(const MainWindowState& state, const std::string& setName);
// What lblMsg shows when AutoRandom is off again (at load, and when it is switched off): the
// install prompt during a hidden pick, the current set in sky mode, and in situation mode
// whatever it shows already (nothing: no change).
std::optional<std::string> StatusWithAutoRandomOff(const MainWindowState& state,
                                                   const std::string& currentSet);
// lstClouds_Click shows the clicked file's name only with AutoRandom off and no hidden pick.
bool ShowsFileName(const MainWindowState& state);
// A set's preview picture would give a hidden pick away as surely as its name.
bool ShowsSetPreview(const MainWindowState& state);

// lblTime: "Off", or the interval as "0.5min" below one minute and "15min" from one minute on.
std::string IntervalText(double autoRandomInterval);

// The help folder, ProgramPath\help; lblHelp is usable only when it exists.
std::string HelpFolder(const std::string& programPath);

// A simulator choice (optFs) can be taken only when its folder is known.
WindowChanges SimulatorChoices(const std::string& fsPath0, const std::string& fsPath1);

// The copy progress bar under the status line: shown while a run of copies of at least
// kCopyBarBytes is under way (smaller runs finish before a bar could say anything), filled
// to `perMille`.
inline constexpr std::uint64_t kCopyBarBytes = 32u * 1024 * 1024;
struct CopyBar {
    bool visible = false;
    int perMille = 0;
};
CopyBar CopyBarFor(std::uint64_t done, std::uint64_t total);

// Why a control cannot act on this system, for its tool tip; empty when it can. The simulator
// choices need their installation (`fsPaths`); the controls of later work say so.
std::string UnavailableReason(std::string_view controlName, const std::string& fsPath0,
                              const std::string& fsPath1);
// The tip of a control: the user's own from [ToolTipsText] stays, and the reason it cannot
// act goes below it, so neither hides the other.
std::string ControlTip(const std::string& configured, const std::string& reason);

} // namespace vellumar
