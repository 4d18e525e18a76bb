#include "sound/CdPanel.h"

#include "sound/CD.h"
#include "support/FakeMessageService.h"
#include "support/ScriptedMediaControl.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

using Commands = std::vector<std::string>;

class CdPanelTest : public ::testing::Test {
protected:
    test::ScriptedMediaControl control;
    test::FakeMessageService messages;
    CD cd{control, messages};
    CdPanel panel{cd};
    const CdControls& shown = panel.controls;

    // The commands sent since the last call.
    Commands sent()
    {
        Commands commands = std::move(control.sent);
        control.sent.clear();
        return commands;
    }
};

TEST_F(CdPanelTest, ADiscIsOpenedReadAndShownTrackByTrack)
{
    control.insertDisc(3);
    panel.Form_Load();
    EXPECT_EQ(sent(),
              (Commands{"open cdaudio alias cd wait shareable", "set cd time format tmsf wait"}));
    EXPECT_TRUE(shown.tmrCDEnabled);

    panel.tmrCD_Timer();
    EXPECT_EQ(sent(), (Commands{"status cd media present", "status cd number of tracks wait",
                                "status cd length wait", "status cd length track 1",
                                "status cd length track 2", "status cd length track 3",
                                "seek cd to 1", "status cd position"}));
    EXPECT_EQ(cd.CdTrackLengths, (std::vector<std::string>{"01:30:00", "02:30:00", "03:30:00"}));
    EXPECT_TRUE(shown.chkCDEnabled && shown.hsvTrackEnabled);
    EXPECT_EQ(shown.hsvTrackMax, 3);
    EXPECT_EQ(shown.hsvTrackValue, 1);
    EXPECT_EQ(shown.lblTrack, "Track01");
    EXPECT_EQ(CdStatusText(cd, ""), "3 tracks, this one 1:30");
    EXPECT_EQ(CdStatusText(cd, "no sound device"), "3 tracks, this one 1:30\nno sound device");

    // Once read, a poll asks only where the disc is and what it does.
    control.replies["status cd position"] = "02:00:14:21";
    control.replies["status cd mode"] = "playing";
    panel.tmrCD_Timer();
    EXPECT_EQ(sent(),
              (Commands{"status cd media present", "status cd position", "status cd mode"}));
    EXPECT_TRUE(cd.CdPlaying);
    EXPECT_EQ(shown.hsvTrackValue, 2);
    EXPECT_EQ(shown.lblTrack, "Track02");
}

TEST_F(CdPanelTest, ASingleTrackDiscIsReadyWithoutLengths)
{
    control.insertDisc(1);
    control.replies["status cd position"] = "01:00:00:00";
    panel.Form_Load();
    sent();
    panel.tmrCD_Timer();
    EXPECT_EQ(sent(), (Commands{"status cd media present", "status cd number of tracks wait",
                                "seek cd to 1", "status cd position"}));
    EXPECT_TRUE(cd.CdReady);
    EXPECT_TRUE(cd.CdTrackLengths.empty());
    EXPECT_EQ(shown.lblTrack, "Track01");
}

TEST_F(CdPanelTest, PlayTrackChoiceAndStopSendTheirCommands)
{
    control.insertDisc(12);
    panel.Form_Load();
    panel.tmrCD_Timer();
    sent();

    // Moving the scroll bar of a disc at rest goes to the track; the label follows a drag.
    panel.hsvTrack_Scroll(6);
    EXPECT_EQ(shown.lblTrack, "Track06");
    panel.hsvTrack_Change(7);
    EXPECT_EQ(sent(), (Commands{"seek cd to 7"}));
    EXPECT_EQ(shown.lblTrack, "Track07");
    EXPECT_TRUE(shown.tmrCDEnabled);

    panel.controls.chkCD = true;
    panel.chkCD_Click();
    EXPECT_EQ(sent(), (Commands{"play cd from 7"}));
    EXPECT_TRUE(cd.CdPlaying);

    // While it plays, a new track plays at once, without a seek first.
    panel.hsvTrack_Change(11);
    EXPECT_EQ(sent(), (Commands{"play cd from 11"}));

    control.replies["status cd position"] = "11:00:03:00";
    panel.controls.chkCD = false;
    panel.chkCD_Click();
    EXPECT_EQ(sent(), (Commands{"stop cd wait", "seek cd to 11", "status cd media present",
                                "status cd position", "status cd mode"}));
    EXPECT_FALSE(cd.CdPlaying);
    EXPECT_TRUE(shown.chkCDEnabled && shown.hsvTrackEnabled);

    panel.Form_Unload();
    EXPECT_EQ(sent(), (Commands{"stop cd wait", "close all"}));
    EXPECT_FALSE(shown.tmrCDEnabled);
}

TEST_F(CdPanelTest, RepeatStartsTrackOneAfterTheLastOnlyWhenAskedTo)
{
    control.insertDisc(3);
    panel.Form_Load();
    panel.tmrCD_Timer();
    panel.controls.chkCD = true;
    panel.chkCD_Click();
    control.replies["status cd position"] = "03:02:10:00"; // played out at the end of track 3
    control.replies["status cd mode"] = "stopped";
    sent();

    panel.tmrCD_Timer(); // no repeat: the disc stays at its end
    EXPECT_EQ(sent(),
              (Commands{"status cd media present", "status cd position", "status cd mode"}));
    EXPECT_EQ(shown.lblTrack, "Track03");

    panel.controls.chkRepeatCD = true;
    panel.tmrCD_Timer();
    EXPECT_EQ(sent(), (Commands{"status cd media present", "status cd position", "status cd mode",
                                "seek cd to 1", "play cd from 1"}));
    EXPECT_EQ(shown.hsvTrackValue, 1);
    EXPECT_EQ(shown.lblTrack, "Track01");
}

TEST_F(CdPanelTest, NoDiscDisablesTheControlsAndADiscInsertedLaterEnablesThem)
{
    control.ejectDisc();
    panel.Form_Load();
    panel.tmrCD_Timer();
    EXPECT_FALSE(shown.chkCDEnabled || shown.hsvTrackEnabled);
    EXPECT_EQ(shown.lblTrack, "Track**");

    control.insertDisc(5);
    control.replies["status cd position"] = "01:00:00:00";
    panel.tmrCD_Timer();
    EXPECT_TRUE(shown.chkCDEnabled && shown.hsvTrackEnabled);
    EXPECT_EQ(shown.hsvTrackMax, 5);
    EXPECT_EQ(shown.lblTrack, "Track01");

    // Ejected while playing: the tick goes, and the next disc is read afresh.
    panel.controls.chkCD = true;
    panel.chkCD_Click();
    control.ejectDisc();
    panel.tmrCD_Timer();
    EXPECT_FALSE(shown.chkCD || shown.chkCDEnabled);
    EXPECT_EQ(cd.CdCurrentTrack, 0);
    EXPECT_EQ(shown.lblTrack, "Track**");
    EXPECT_EQ(CdStatusText(cd, "no sound device"), "No disc");
    EXPECT_FALSE(cd.CdTrackListRead);
    EXPECT_TRUE(messages.empty()) << "the poll is silent";
}

TEST_F(CdPanelTest, ADriveThatCannotBeOpenedIsTriedAgainEverySecond)
{
    control.errors["open cdaudio alias cd wait shareable"] = 263;
    control.errors["status cd media present"] = 263;
    panel.Form_Load();
    EXPECT_TRUE(cd.CdOpenFailed);
    EXPECT_EQ(sent(), (Commands{"open cdaudio alias cd wait shareable"}));

    panel.tmrCD_Timer();
    EXPECT_EQ(sent(),
              (Commands{"status cd media present", "open cdaudio alias cd wait shareable"}));
    EXPECT_EQ(cd.LastError, 263u);
    EXPECT_EQ(shown.lblTrack, "Track**");
    EXPECT_EQ(CdStatusText(cd, ""), "No CD drive");

    control.errors.clear();
    control.insertDisc(2);
    panel.tmrCD_Timer();
    EXPECT_EQ(sent(), (Commands{"status cd media present", "open cdaudio alias cd wait shareable",
                                "set cd time format tmsf wait", "status cd media present",
                                "status cd number of tracks wait", "status cd length wait",
                                "status cd length track 1", "status cd length track 2",
                                "seek cd to 1", "status cd position"}));
    EXPECT_FALSE(cd.CdOpenFailed);
    EXPECT_TRUE(shown.chkCDEnabled);
    EXPECT_TRUE(messages.empty());
}

TEST_F(CdPanelTest, AFailedPlayIsShownWithTheSystemsTextInTheSystemsBox)
{
    control.insertDisc(2);
    panel.Form_Load();
    panel.tmrCD_Timer();
    control.errors["play cd from 1"] = 276;
    panel.controls.chkCD = true;
    panel.chkCD_Click();
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.shown()[0].text, "error text 276");
    EXPECT_TRUE(messages.shown()[0].system);
    EXPECT_EQ(cd.LastError, 276u);
    EXPECT_EQ(cd.LastErrorText, "error text 276");
}

TEST(CdReplies, NumbersAreReadFromTheFirstTwoCharacters)
{
    EXPECT_EQ(LeadingNumber("12"), 12);
    EXPECT_EQ(LeadingNumber("3"), 3);
    EXPECT_EQ(LeadingNumber("07:01:02:03"), 7);
    EXPECT_EQ(LeadingNumber("123"), 12);
    EXPECT_EQ(LeadingNumber(""), 0);
    EXPECT_EQ(TrackLabel(7), "Track07");
    EXPECT_EQ(TrackLabel(12), "Track12");
}

} // namespace
} // namespace vellumar
