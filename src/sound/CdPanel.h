#pragma once

#include <string>

namespace vellumar {

class CD;

// What the sound window's CD controls show: the "play" and "repeat" ticks, the track scroll
// bar and its label, and whether the status poll runs.
struct CdControls {
    bool chkCD = false;
    bool chkCDEnabled = false;
    bool chkRepeatCD = false;
    int hsvTrackMin = 0;
    int hsvTrackMax = 0;
    int hsvTrackValue = 0;
    bool hsvTrackEnabled = false;
    std::string lblTrack = "Track**";
    bool tmrCDEnabled = false;
};

// The rules of the sound window's CD controls; the window shows `controls` after each call.
class CdPanel {
public:
    explicit CdPanel(CD& cd);

    CdControls controls;

    void Form_Load();
    // Every second: the disc's state into the controls, and the repeat from track 1.
    void tmrCD_Timer();
    // After the user ticked or unticked "play" (controls.chkCD holds the new state).
    void chkCD_Click();
    // The user moved the track scroll bar to `track`.
    void hsvTrack_Change(int track);
    // While the user drags the scroll bar: only the label follows.
    void hsvTrack_Scroll(int track);
    void Form_Unload();

private:
    CD& cd_;
};

// The line under the CD controls: no drive, no disc, or the disc's tracks; and why it cannot
// be heard, on a line of its own, when that is so.
std::string CdStatusText(const CD& cd, const std::string& audioOutputProblem);

// "Track" followed by the track in two digits: "Track07".
std::string TrackLabel(int track);

} // namespace vellumar
