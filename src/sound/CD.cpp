#include "sound/CD.h"

#include "common/MessageService.h"
#include "sound/MediaControl.h"

namespace vellumar {

namespace {

// The reply buffer holds 30 characters, its terminating zero among them.
constexpr std::size_t kReplyCharacters = 29;

constexpr const char* kOpen = "open cdaudio alias cd wait shareable";
constexpr const char* kTimeFormat = "set cd time format tmsf wait";

} // namespace

std::int16_t LeadingNumber(const std::string& reply)
{
    std::int16_t number = 0;
    for (std::size_t i = 0; i < reply.size() && i < 2; ++i) {
        const char c = reply[i];
        if (c < '0' || c > '9')
            break;
        number = static_cast<std::int16_t>(number * 10 + (c - '0'));
    }
    return number;
}

CD::CD(MediaControl& control, MessageService& messages)
    : control_(control)
    , messages_(messages)
{}

bool CD::Send(const std::string& command, std::string& reply, bool showError)
{
    reply.clear();
    LastError = control_.SendString(command, reply);
    LastErrorText = LastError == 0 ? std::string() : control_.ErrorText(LastError);
    if (reply.size() > kReplyCharacters)
        reply.resize(kReplyCharacters);
    if (LastError != 0 && showError)
        messages_.ShowSystemMessage(LastErrorText, MessageStyle::OKOnly, "");
    return LastError == 0;
}

bool CD::SendCdCommand(const std::string& command, bool showError)
{
    std::string ignored;
    return Send(command, ignored, showError);
}

std::string CD::Status(const std::string& command)
{
    std::string reply;
    Send(command, reply, false);
    return reply;
}

bool CD::Open()
{
    // No drive, or one that cannot be opened, is an ordinary state of this window: the poll
    // shows it and tries again, so nothing is said.
    CdOpenFailed = !SendCdCommand(kOpen, false);
    if (!CdOpenFailed)
        SendCdCommand(kTimeFormat, false);
    return !CdOpenFailed;
}

void CD::OpenCd()
{
    Open();
}

void CD::PlayCd(std::optional<int> from, std::optional<int> to)
{
    std::string command = "play cd";
    if (from) {
        command += " from " + std::to_string(*from);
        if (to)
            command += " to " + std::to_string(*to);
    }
    SendCdCommand(command, true);
    CdPlaying = true;
}

void CD::StopCd()
{
    // Stopping happens also when the disc has gone (the poll unticks "play"): silently.
    SendCdCommand("stop cd wait", false);
    SendCdCommand("seek cd to " + std::to_string(CdCurrentTrack), false);
    CdPlaying = false;
    RefreshCdStatus();
}

void CD::ReadTrackList()
{
    CdTrackCount = LeadingNumber(Status("status cd number of tracks wait"));
    CdHasTracks = true;
    CdTrackLengths.clear();
    if (CdTrackCount != 1) {
        Status("status cd length wait");
        CdTrackLengths.resize(CdTrackCount > 0 ? static_cast<std::size_t>(CdTrackCount) : 0);
        for (int track = 1; track <= CdTrackCount; ++track)
            CdTrackLengths[static_cast<std::size_t>(track - 1)] =
                Status("status cd length track " + std::to_string(track));
    }
    CdReady = true;
    CdTrackListRead = true;
    SendCdCommand("seek cd to 1", false);
    CdCurrentTrack = LeadingNumber(Status("status cd position"));
    if (CdCurrentTrack != 1)
        SendCdCommand("seek cd to 1", false);
}

void CD::RefreshCdStatus()
{
    std::string present = Status("status cd media present");
    if (CdOpenFailed) {
        if (!Open()) {
            CdReady = false;
            return;
        }
        present = Status("status cd media present");
    }
    if (present != "true") {
        CdHasTracks = false;
        CdReady = false;
        CdTrackListRead = false;
        return;
    }
    if (!CdTrackListRead) {
        ReadTrackList();
        return;
    }
    CdReady = true;
    CdCurrentTrack = LeadingNumber(Status("status cd position"));
    CdPlaying = Status("status cd mode") == "playing";
}

void CD::CloseCd()
{
    SendCdCommand("stop cd wait", false);
    SendCdCommand("close all", false);
    CdPlaying = false;
    CdReady = false;
}

} // namespace vellumar
