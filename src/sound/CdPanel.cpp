#include "sound/CdPanel.h"

#include "sound/CD.h"

#include <cstdio>

namespace vellumar {

std::string TrackLabel(int track)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "%02d", track);
    return std::string("Track") + digits;
}

std::string CdStatusText(const CD& cd, const std::string& audioOutputProblem)
{
    std::string status;
    if (cd.CdOpenFailed)
        status = "No CD drive";
    else if (!cd.CdReady)
        status = "No disc";
    else
        status = std::to_string(cd.CdTrackCount) + (cd.CdTrackCount == 1 ? " track" : " tracks");
    // The length of the track shown, without its frames: "02:31:40" reads "2:31".
    const auto track = static_cast<std::size_t>(cd.CdCurrentTrack);
    if (cd.CdReady && track >= 1 && track <= cd.CdTrackLengths.size()) {
        const std::string& length = cd.CdTrackLengths[track - 1];
        if (length.size() >= 5 && length[2] == ':')
            status += ", this one " + std::to_string(LeadingNumber(length)) + length.substr(2, 3);
    }
    if (cd.CdReady && !audioOutputProblem.empty())
        status += "\n" + audioOutputProblem;
    return status;
}

CdPanel::CdPanel(CD& cd)
    : cd_(cd)
{}

void CdPanel::Form_Load()
{
    cd_.OpenCd();
    controls.tmrCDEnabled = true;
}

void CdPanel::tmrCD_Timer()
{
    cd_.RefreshCdStatus();
    controls.chkCDEnabled = cd_.CdReady;
    controls.hsvTrackEnabled = cd_.CdReady;
    if (!cd_.CdReady) {
        // The disc went, or never came: nothing to play, and the next disc starts afresh. The
        // scroll bar rests at 0, a track no disc has, so the next disc's tracks are set up.
        controls.chkCD = false;
        controls.hsvTrackMin = 0;
        controls.hsvTrackMax = 0;
        controls.hsvTrackValue = 0;
        cd_.CdCurrentTrack = 0;
        controls.lblTrack = "Track**";
        return;
    }
    if (controls.hsvTrackValue != cd_.CdCurrentTrack) {
        controls.hsvTrackMin = 1;
        controls.hsvTrackMax = cd_.CdTrackCount;
        controls.hsvTrackValue = cd_.CdCurrentTrack;
    }
    if (controls.chkCD && controls.chkRepeatCD && cd_.CdCurrentTrack == cd_.CdTrackCount &&
        !cd_.CdPlaying) {
        controls.hsvTrackValue = 1;
        hsvTrack_Change(1);
    }
    controls.lblTrack = TrackLabel(cd_.CdCurrentTrack);
}

void CdPanel::chkCD_Click()
{
    if (!controls.chkCD) {
        controls.hsvTrackEnabled = false;
        controls.chkCDEnabled = false;
        cd_.StopCd();
        controls.hsvTrackEnabled = true;
        controls.chkCDEnabled = true;
        return;
    }
    if (cd_.CdReady)
        cd_.PlayCd(controls.hsvTrackValue);
}

void CdPanel::hsvTrack_Change(int track)
{
    const bool timerWasOn = controls.tmrCDEnabled;
    controls.tmrCDEnabled = false;
    controls.hsvTrackValue = track;
    if (cd_.CdReady) {
        cd_.CdCurrentTrack = static_cast<std::int16_t>(track);
        controls.lblTrack = TrackLabel(track);
        if (!cd_.CdPlaying)
            cd_.SendCdCommand("seek cd to " + std::to_string(track), true);
        if (controls.chkCD)
            cd_.PlayCd(track);
    }
    controls.tmrCDEnabled = timerWasOn;
}

void CdPanel::hsvTrack_Scroll(int track)
{
    controls.lblTrack = TrackLabel(track);
}

void CdPanel::Form_Unload()
{
    controls.tmrCDEnabled = false;
    cd_.CloseCd();
}

} // namespace vellumar
