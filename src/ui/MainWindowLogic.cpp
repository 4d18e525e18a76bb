#include "ui/MainWindowLogic.h"

#include "app/CloudIni.h"
#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "textures/SetCatalogue.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vellumar {

namespace {

// A filter shows the sets whose category number equals its index.
static_assert(SetFilter::Cumulus == SetCategory::Cloud);
static_assert(SetFilter::Cirrus == SetCategory::Cirrus);
static_assert(SetFilter::SkyColor == SetCategory::SkyColor);
static_assert(SetFilter::Misc == SetCategory::Misc);

constexpr std::array<std::string_view, SetFilter::Count> kFilterCaptions = {
    "All ", "Cumulus", "Cirrus", "Sky Color ", "Sky", "Misc"};

// The controls of each layout of the set area.
constexpr std::array<std::string_view, 4> kFileLists = {"cmbClouds", "cmbOption", "lstClouds",
                                                        "lstOption"};
constexpr std::array<std::string_view, 2> kTrailSwitch = {"chkTrailOption", "lblTrailOption"};
constexpr std::string_view kHiddenPickPanel = "picHiddenPick";

void Switch(std::vector<ControlSwitch>& list, std::string_view name, bool on)
{
    list.push_back({std::string(name), on});
}

// Every filter label but the heading.
void SwitchFilters(std::vector<ControlSwitch>& list, bool on)
{
    for (int index = 0; index < SetFilter::Count; ++index)
        if (index != SetFilter::Heading)
            Switch(list, FilterLabelName(index), on);
}

void SwitchAll(std::vector<ControlSwitch>& list, const auto& names, bool on)
{
    for (std::string_view name : names)
        Switch(list, name, on);
}

} // namespace

std::string_view FilterCaption(int index)
{
    if (index < 0 || index >= SetFilter::Count)
        return {};
    return kFilterCaptions[static_cast<std::size_t>(index)];
}

std::string FilterLabelName(int index)
{
    return "lblFilter" + std::to_string(index);
}

FilterChoice ChooseFilter(int index, const MainWindowState& state,
                          const std::vector<TextureSetEntry>& sets)
{
    FilterChoice choice;
    if (index < 0 || index >= SetFilter::Count || index == SetFilter::Heading || state.HideSetName)
        return choice;
    choice.applies = true;
    if (index == SetFilter::All)
        return choice;
    for (std::size_t i = 0; i < sets.size(); ++i) {
        if (sets[i].compatibility == index) {
            choice.filtered.push_back(sets[i].name);
            choice.indices.push_back(static_cast<int>(i));
        }
    }
    if (choice.filtered.empty())
        return choice; // a category without sets falls back to "All "
    choice.chosen = index;
    choice.switchAutoRandomOff = state.AutoRandomInterval != 0;
    return choice;
}

void TakeFilter(MainWindowState& state, const FilterChoice& choice)
{
    if (!choice.applies)
        return;
    state.ChosenFilter = choice.chosen;
    state.FilteredSets = choice.indices;
}

void ClearFilter(MainWindowState& state)
{
    state.ChosenFilter = SetFilter::All;
    state.FilteredSets.clear();
}

int FilteredSetAt(const MainWindowState& state, int row)
{
    if (row < 0 || static_cast<std::size_t>(row) >= state.FilteredSets.size())
        return -1;
    return state.FilteredSets[static_cast<std::size_t>(row)];
}

WindowChanges SetListControls(const MainWindowState& state)
{
    WindowChanges changes;
    if (state.ShowSkyFiles || state.SituationMode)
        return changes;
    Switch(changes.visible, "lstSky", !state.Filtered());
    Switch(changes.visible, "lstSkyFil", state.Filtered());
    return changes;
}

void MirrorTicks(const TickList& clicked, TickList& other)
{
    for (const auto& [name, ticked] : clicked) {
        if (!ticked)
            continue;
        for (auto& [otherName, otherTicked] : other)
            if (EqualsIgnoreCase(name, otherName))
                otherTicked = false;
    }
}

bool AnyTicked(const TickList& list)
{
    return std::any_of(list.begin(), list.end(), [](const auto& entry) { return entry.second; });
}

WindowChanges ButtonCtrl(bool enabled, const MainWindowState& state)
{
    WindowChanges changes;
    for (std::string_view name : {"optSky", "cmdInst", "cmdInstAndStart", "cmdRandom", "lstSky",
                                  "lstSkyFil", "lstClouds", "lstOption", "cmbClouds", "cmbOption"})
        Switch(changes.enabled, name, enabled);
    const bool backupCommands = enabled && !state.SituationMode;
    Switch(changes.enabled, "cmdBackUp", backupCommands);
    Switch(changes.enabled, "cmdToOrg", backupCommands);
    Switch(changes.enabled, "optFLT", enabled && state.SituationCount > 0);
    return changes;
}

WindowChanges cmdCont(const MainWindowState& state, bool anyTicked)
{
    WindowChanges changes;
    if (state.SituationMode || state.AutoRandomInterval != 0)
        return changes;
    // During a hidden pick backup and restore would list the files, and with them the set.
    const bool backupCommands = !state.HideSetName && anyTicked;
    Switch(changes.enabled, "cmdBackUp", backupCommands);
    Switch(changes.enabled, "cmdToOrg", backupCommands);
    Switch(changes.enabled, "cmdInst", anyTicked);
    Switch(changes.enabled, "cmdInstAndStart", anyTicked);
    return changes;
}

SkyListLayout LayoutForShowSkyFiles(const MainWindowState& state)
{
    SkyListLayout layout;
    WindowChanges& changes = layout.changes;
    for (std::string_view name : {"cmdBackUp", "cmdToOrg"}) {
        Switch(changes.visible, name, state.BackupOriginals);
        Switch(changes.enabled, name, state.BackupOriginals);
    }
    SwitchAll(changes.visible, kFileLists, state.ShowSkyFiles);
    Switch(changes.visible, "lstSky", !state.ShowSkyFiles);
    Switch(changes.visible, "lstSkyFil", false);
    SwitchFilters(changes.visible, !state.ShowSkyFiles);
    Switch(changes.visible, kHiddenPickPanel, false);
    layout.situationListTwips = state.ShowSkyFiles ? 2085 : 960;
    return layout;
}

WindowChanges SkyModeControls(const MainWindowState& state)
{
    WindowChanges changes;
    SwitchAll(changes.visible, kFileLists, state.ShowSkyFiles);
    Switch(changes.visible, "lstSky", !state.ShowSkyFiles && !state.Filtered());
    Switch(changes.visible, "lstSkyFil", !state.ShowSkyFiles && state.Filtered());
    Switch(changes.visible, kHiddenPickPanel, false);
    SwitchFilters(changes.visible, !state.ShowSkyFiles);
    Switch(changes.visible, "lstFLT", false);
    Switch(changes.visible, "ImgSky", true);
    // The mode caption stands where the heading of the filters stands.
    Switch(changes.visible, "lblFunc", false);
    Switch(changes.visible, "lblFilter4", true);
    for (std::string_view name : {"cmdBackUp", "cmdToOrg", "cmdInst"})
        Switch(changes.enabled, name, true);
    return changes;
}

WindowChanges SituationModeControls()
{
    WindowChanges changes;
    SwitchFilters(changes.visible, false);
    SwitchAll(changes.visible, kTrailSwitch, false);
    SwitchAll(changes.visible, kFileLists, false);
    Switch(changes.visible, "lstSky", false);
    Switch(changes.visible, "lstSkyFil", false);
    Switch(changes.visible, kHiddenPickPanel, false);
    Switch(changes.visible, "lstFLT", true);
    Switch(changes.visible, "lblFunc", true);
    Switch(changes.visible, "lblFilter4", false);
    for (std::string_view name : {"cmdBackUp", "cmdToOrg", "cmdInst"})
        Switch(changes.enabled, name, false);
    return changes;
}

WindowChanges HiddenPickControls(bool anySet)
{
    WindowChanges changes;
    Switch(changes.enabled, "cmdToOrg", false);
    Switch(changes.enabled, "cmdBackUp", false);
    if (!anySet)
        return changes;
    for (std::string_view name : {"ImgSky", "lstSky", "lstSkyFil", "lstFLT"})
        Switch(changes.visible, name, false);
    SwitchFilters(changes.visible, false);
    SwitchAll(changes.visible, kTrailSwitch, false);
    SwitchAll(changes.visible, kFileLists, false);
    Switch(changes.visible, kHiddenPickPanel, true);
    return changes;
}

TrailSwitch TrailSwitchFor(const MainWindowState& state, const std::string& optionSetName,
                           bool optionSetHasFiles)
{
    TrailSwitch trail;
    trail.visible =
        !state.ShowSkyFiles && !state.HideSetName && !state.SituationMode && optionSetHasFiles;
    trail.caption = optionSetName;
    return trail;
}

std::string SetStatusText(const MainWindowState& state, const std::string& setName)
{
    return state.HideSetName ? std::string(kPressInstallText) : setName;
}

std::optional<std::string> StatusWithAutoRandomOff(const MainWindowState& state,
                                                   const std::string& currentSet)
{
    if (state.HideSetName)
        return std::string(kPressInstallText);
    if (!state.SituationMode)
        return currentSet;
    return std::nullopt;
}

bool ShowsFileName(const MainWindowState& state)
{
    return state.AutoRandomInterval == 0 && !state.HideSetName;
}

bool ShowsSetPreview(const MainWindowState& state)
{
    return !state.HideSetName;
}

std::string IntervalText(double autoRandomInterval)
{
    // The interval is edited in tenths of a minute; from one minute on it moves in whole
    // minutes, so one decimal is shown only below that.
    const long tenths = std::lround(autoRandomInterval * 10);
    if (tenths == 0)
        return "Off";
    if (tenths > 0 && tenths < 10)
        return "0." + std::to_string(tenths) + "min";
    return std::to_string(std::lround(static_cast<double>(tenths) / 10)) + "min";
}

std::string HelpFolder(const std::string& programPath)
{
    return JoinPath(programPath, "help");
}

WindowChanges SimulatorChoices(const std::string& fsPath0, const std::string& fsPath1)
{
    WindowChanges changes;
    Switch(changes.enabled, "optFs0", !fsPath0.empty());
    Switch(changes.enabled, "optFs1", !fsPath1.empty());
    return changes;
}

CopyBar CopyBarFor(std::uint64_t done, std::uint64_t total)
{
    if (total < kCopyBarBytes || done >= total)
        return {};
    return {true, static_cast<int>(done * 1000 / total)};
}

std::string UnavailableReason(std::string_view controlName, const std::string& fsPath0,
                              const std::string& fsPath1)
{
    if (controlName == "optFs0" && fsPath0.empty())
        return "No installation of this simulator was found on this system.";
    if (controlName == "optFs1" && fsPath1.empty())
        return "No second simulator installation was found on this system.";
    return {};
}

std::string ControlTip(const std::string& configured, const std::string& reason)
{
    if (configured.empty() || reason.empty())
        return configured + reason;
    return configured + "\n" + reason;
}

} // namespace vellumar
