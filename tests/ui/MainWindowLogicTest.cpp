#include "ui/MainWindowLogic.h"

#include "app/CloudIni.h"
#include "support/CountingEventPump.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"
#include "textures/SetCatalogue.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>

namespace vellumar {
namespace {

TextureSetEntry Set(const std::string& name, int category, bool random = true)
{
    TextureSetEntry set;
    set.name = name;
    set.compatibility = category;
    set.random = random;
    return set;
}

// The last switch given for each control, as the window ends up applying them.
std::map<std::string, bool> Final(const std::vector<ControlSwitch>& switches)
{
    std::map<std::string, bool> result;
    for (const ControlSwitch& entry : switches)
        result[entry.name] = entry.on;
    return result;
}

std::optional<bool> Of(const std::vector<ControlSwitch>& switches, const std::string& name)
{
    const auto final = Final(switches);
    const auto found = final.find(name);
    if (found == final.end())
        return std::nullopt;
    return found->second;
}

const std::vector<TextureSetEntry> kLibrary = {
    Set("Summer haze", SetCategory::Cloud),       Set("Clear day", SetCategory::SkyColor),
    Set("Thunder 1", SetCategory::Cloud),         Set("Overcast", SetCategory::Misc),
    Set("Runway halo", SetCategory::Misc, false),
};

TEST(SetFilters, ChoosingACategorySwitchesARunningAutoRandomOff)
{
    MainWindowState state;
    state.AutoRandomInterval = 2.5;
    EXPECT_TRUE(ChooseFilter(SetFilter::SkyColor, state, kLibrary).switchAutoRandomOff);
    // A fall-back to "All " leaves AutoRandom as it is.
    EXPECT_FALSE(ChooseFilter(SetFilter::Cirrus, state, kLibrary).switchAutoRandomOff);
}

// The window test covers both directions; names differing in letter case are one file.
TEST(TickMirroring, ATickedFileUnticksTheSameNameInAnyLetterCase)
{
    TickList options = {{"HALO.BMP", true}, {"moon.bmp", true}};
    MirrorTicks({{"halo.bmp", true}, {"moon.bmp", false}}, options);
    EXPECT_EQ(options, (TickList{{"HALO.BMP", false}, {"moon.bmp", true}}));
}

TEST(CommandStates, TicksDecideTheCommandsOutsideAHiddenPick)
{
    MainWindowState state;
    auto changes = cmdCont(state, true);
    EXPECT_EQ(Of(changes.enabled, "cmdInst"), true);
    EXPECT_EQ(Of(changes.enabled, "cmdInstAndStart"), true);
    EXPECT_EQ(Of(changes.enabled, "cmdBackUp"), true);
    EXPECT_EQ(Of(changes.enabled, "cmdToOrg"), true);
    changes = cmdCont(state, false);
    EXPECT_EQ(Of(changes.enabled, "cmdInst"), false);
    EXPECT_EQ(Of(changes.enabled, "cmdToOrg"), false);

    state.HideSetName = true;
    changes = cmdCont(state, true);
    EXPECT_EQ(Of(changes.enabled, "cmdInst"), true);
    EXPECT_EQ(Of(changes.enabled, "cmdBackUp"), false);
    EXPECT_EQ(Of(changes.enabled, "cmdToOrg"), false);
}

TEST(CommandStates, SituationModeAndAnIntervalLeaveTheCommandsAlone)
{
    MainWindowState situation;
    situation.SituationMode = true;
    EXPECT_TRUE(cmdCont(situation, true).enabled.empty());
    MainWindowState autoRandom;
    autoRandom.AutoRandomInterval = 0.5;
    EXPECT_TRUE(cmdCont(autoRandom, false).enabled.empty());
}

TEST(CommandStates, ButtonCtrlLocksTheSetChoiceAndKeepsTheSituationRules)
{
    MainWindowState state;
    auto locked = ButtonCtrl(false, state);
    for (const char* name :
         {"optSky", "cmdInst", "cmdInstAndStart", "cmdRandom", "cmdBackUp", "cmdToOrg", "lstSky",
          "lstSkyFil", "lstClouds", "lstOption", "cmbClouds", "cmbOption", "optFLT"})
        EXPECT_EQ(Of(locked.enabled, name), false) << name;
    EXPECT_EQ(Of(locked.enabled, "cmdClose"), std::nullopt);

    auto open = ButtonCtrl(true, state);
    EXPECT_EQ(Of(open.enabled, "lstSky"), true);
    EXPECT_EQ(Of(open.enabled, "optFLT"), false); // no situation to choose
    state.SituationCount = 3;
    EXPECT_EQ(Of(ButtonCtrl(true, state).enabled, "optFLT"), true);

    state.SituationMode = true;
    open = ButtonCtrl(true, state);
    EXPECT_EQ(Of(open.enabled, "cmdBackUp"), false);
    EXPECT_EQ(Of(open.enabled, "cmdToOrg"), false);
    EXPECT_EQ(Of(open.enabled, "cmdInst"), true);
}

TEST(SetFilters, TheFilteredListMapsItsRowsToTheCatalogueAndOutlivesASituationTrip)
{
    // Two sets of the same name: a row must lead to its own set, not the first of the name.
    const std::vector<TextureSetEntry> sets = {Set("Haze", SetCategory::Misc),
                                               Set("Clear", SetCategory::SkyColor),
                                               Set("Haze", SetCategory::Misc)};
    MainWindowState state;
    TakeFilter(state, ChooseFilter(SetFilter::Misc, state, sets));
    EXPECT_EQ(state.ChosenFilter, SetFilter::Misc);
    EXPECT_EQ(FilteredSetAt(state, 1), 2);
    EXPECT_EQ(FilteredSetAt(state, 2), -1);
    EXPECT_EQ(FilteredSetAt(state, -1), -1);
    auto visible = Final(SetListControls(state).visible);
    EXPECT_FALSE(visible.at("lstSky"));
    EXPECT_TRUE(visible.at("lstSkyFil"));

    // Situation mode leaves the lists alone; back in sky mode the filtered list returns.
    state.SituationMode = true;
    EXPECT_TRUE(SetListControls(state).visible.empty());
    state.SituationMode = false;
    visible = Final(SkyModeControls(state).visible);
    EXPECT_TRUE(visible.at("lstSkyFil"));
    EXPECT_FALSE(visible.at("lstSky"));
    EXPECT_FALSE(visible.at("picHiddenPick"));

    // A category without sets, the heading and a hidden pick: "All " or no change at all.
    TakeFilter(state, ChooseFilter(SetFilter::Heading, state, sets));
    EXPECT_TRUE(state.Filtered());
    TakeFilter(state, ChooseFilter(SetFilter::Cirrus, state, sets));
    EXPECT_FALSE(state.Filtered());
    EXPECT_EQ(state.ChosenFilter, SetFilter::All);
    EXPECT_TRUE(Final(SetListControls(state).visible).at("lstSky"));

    // With the file lists shown there is no set list to switch.
    TakeFilter(state, ChooseFilter(SetFilter::SkyColor, state, sets));
    state.ShowSkyFiles = true;
    EXPECT_TRUE(SetListControls(state).visible.empty());
    EXPECT_FALSE(Final(SkyModeControls(state).visible).at("lstSkyFil"));
    ClearFilter(state);
    EXPECT_FALSE(state.Filtered());
    EXPECT_EQ(state.ChosenFilter, SetFilter::All);
}

TEST(Modes, SituationModeHidesEverySkyListAndAHiddenPickOfNothingHidesNone)
{
    const WindowChanges situation = SituationModeControls();
    const auto visible = Final(situation.visible);
    for (const char* name :
         {"lstSky", "lstSkyFil", "cmbClouds", "cmbOption", "lstClouds", "lstOption",
          "chkTrailOption", "lblTrailOption", "lblFilter0", "lblFilter5", "picHiddenPick"})
        EXPECT_FALSE(visible.at(name)) << name;
    // The mode caption takes the heading's place.
    EXPECT_FALSE(visible.at("lblFilter4"));
    EXPECT_TRUE(visible.at("lblFunc"));
    EXPECT_TRUE(visible.at("lstFLT"));
    EXPECT_EQ(Of(situation.enabled, "cmdBackUp"), false);
    EXPECT_EQ(Of(situation.enabled, "cmdToOrg"), false);
    EXPECT_TRUE(HiddenPickControls(false).visible.empty());
    EXPECT_EQ(Of(HiddenPickControls(false).enabled, "cmdBackUp"), false);
}

TEST(StatusLine, AutoRandomGoingOffShowsTheSetOnlyWhereItMay)
{
    MainWindowState state;
    state.AutoRandomInterval = 1;
    EXPECT_FALSE(ShowsFileName(state)); // a running AutoRandom keeps file names to itself
    state.AutoRandomInterval = 0;
    EXPECT_EQ(StatusWithAutoRandomOff(state, "Summer haze"), "Summer haze");
    state.HideSetName = true;
    EXPECT_EQ(StatusWithAutoRandomOff(state, "Summer haze"), "Press Install Button.");
    state.HideSetName = false;
    state.SituationMode = true;
    EXPECT_EQ(StatusWithAutoRandomOff(state, "Summer haze"), std::nullopt);
}

TEST(StatusLine, IntervalText)
{
    EXPECT_EQ(IntervalText(0.04), "Off");
    EXPECT_EQ(IntervalText(0.9), "0.9min");
    // The interval is kept as a single-precision tenth: 1.5 arrives as 1.5000000xx.
    EXPECT_EQ(IntervalText(static_cast<float>(150) / 10), "15min");
    EXPECT_EQ(IntervalText(60), "60min");
}

TEST(Availability, OnlyALargeCopyShowsItsProgressBarAndOnlyWhileItRuns)
{
    // The window test copies 40 MB; here the edges it cannot reach cheaply.
    EXPECT_FALSE(CopyBarFor(0, kCopyBarBytes - 1).visible);
    EXPECT_FALSE(CopyBarFor(0, 0).visible);
    // Sizes beyond 4 GiB neither overflow nor wrap.
    const std::uint64_t huge = 6ull * 1024 * 1024 * 1024;
    EXPECT_EQ(CopyBarFor(huge / 2, huge).perMille, 500);
}

// The window test sees the reasons on a system without a second simulator.
TEST(Availability, ASecondSimulatorNeedsNoReason)
{
    EXPECT_EQ(UnavailableReason("optFs1", "C:\\FS9", "D:\\CFS2"), "");
}

} // namespace
} // namespace vellumar
