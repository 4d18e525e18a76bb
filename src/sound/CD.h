#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vellumar {

class MediaControl;
class MessageService;

// The CD drive as the sound window sees it: one drive, opened under the alias "cd", driven by
// the media control interface's command strings.
class CD {
public:
    CD(MediaControl& control, MessageService& messages);

    bool CdOpenFailed = false;
    bool CdReady = false; // a disc is there and its track list has been read
    bool CdHasTracks = false;
    bool CdTrackListRead = false; // for this disc; reset when it goes
    std::int16_t CdTrackCount = 0;
    std::vector<std::string> CdTrackLengths; // "mm:ss:ff", track 1 first
    std::int16_t CdCurrentTrack = 0;         // 0 without a disc
    bool CdPlaying = false;
    std::uint32_t LastError = 0;
    std::string LastErrorText;

    // Sends a command that has no reply; true when it succeeded. With `showError`, a failure is
    // shown with the system's text in a plain system message box.
    bool SendCdCommand(const std::string& command, bool showError);

    // Opens the drive as the sound window loads; a drive that cannot be opened is tried again
    // by every status poll.
    void OpenCd();
    // "play cd", from a track, or from one track to another.
    void PlayCd(std::optional<int> from = std::nullopt, std::optional<int> to = std::nullopt);
    // Stops, and goes back to the start of the current track.
    void StopCd();
    // The status poll: a disc came or went, its track list, the current track, playing or not.
    void RefreshCdStatus();
    // Stops and closes every device, as the sound window unloads.
    void CloseCd();

private:
    // Sends a status command silently and returns its reply, cut to the reply buffer's size.
    std::string Status(const std::string& command);
    bool Send(const std::string& command, std::string& reply, bool showError);
    bool Open();
    void ReadTrackList();

    MediaControl& control_;
    MessageService& messages_;
};

// The number at the start of a reply ("03:01:10:00" gives 3), read from its first two
// characters, as the replies are read; 0 when there is none.
std::int16_t LeadingNumber(const std::string& reply);

} // namespace vellumar
