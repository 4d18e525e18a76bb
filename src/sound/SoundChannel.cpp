#include "sound/SoundChannel.h"

#include "common/Clock.h"
#include "common/FileOperations.h"
#include "common/PathText.h"
#include "sound/MediaPlayer.h"
#include "sound/ShuffledRound.h"
#include "sound/SoundFiles.h"

#include <algorithm>
#include <optional>

namespace vellumar {

SoundChannel::SoundChannel(MediaPlayer& player, FileOperations& files, Clock& clock,
                           std::function<double()> uniform)
    : player_(player)
    , files_(files)
    , clock_(clock)
    , uniform_(std::move(uniform))
{
    player_.SetVolume(volume_);
}

void SoundChannel::SetFolder(const std::string& folder)
{
    Stop();
    folder_ = folder;
}

void SoundChannel::SetInterval(int seconds)
{
    interval_ = std::clamp(seconds, 0, 60);
    ShowStatus();
}

void SoundChannel::SetVolume(int percent)
{
    volume_ = std::clamp(percent, 0, 100);
    player_.SetVolume(volume_);
}

void SoundChannel::Play()
{
    if (phase_ != Phase::Off)
        return;
    round_.clear();
    skipped_.clear();
    failuresInRow_ = 0;
    StartNextPiece();
}

void SoundChannel::Stop()
{
    if (phase_ != Phase::Off)
        player_.Stop();
    SwitchOff("Stopped");
}

void SoundChannel::SwitchOff(std::string why)
{
    phase_ = Phase::Off;
    piece_.clear();
    status_ = std::move(why);
}

void SoundChannel::StartNextPiece()
{
    if (round_.empty()) {
        pieces_ = ListSoundFiles(files_, folder_);
        if (pieces_.empty()) {
            SwitchOff("No sound files in " + folder_);
            return;
        }
        std::optional<std::size_t> last;
        const auto found = std::find(pieces_.begin(), pieces_.end(), current_);
        if (found != pieces_.end())
            last = static_cast<std::size_t>(found - pieces_.begin());
        round_ = ShuffledRound(pieces_.size(), uniform_, last);
        // Taken from the back: the round's first piece goes last into the vector.
        std::reverse(round_.begin(), round_.end());
    }
    current_ = pieces_[round_.back()];
    round_.pop_back();
    piece_ = LastPathComponent(current_);
    phase_ = Phase::Playing;
    player_.Play(current_);
    ShowStatus();
}

void SoundChannel::Tick()
{
    if (phase_ == Phase::Playing) {
        switch (player_.state()) {
        case MediaPlayer::State::Playing:
            return;
        case MediaPlayer::State::Failed: {
            skipped_ = piece_ + ": " + WhyNotPlayed(player_);
            // A whole folder of files that will not play ends the channel instead of trying
            // them for ever.
            if (++failuresInRow_ >= pieces_.size()) {
                player_.Stop();
                SwitchOff("None of the sound files in " + folder_ + " can be played (" + skipped_ +
                          ")");
                return;
            }
            StartNextPiece();
            return;
        }
        case MediaPlayer::State::Finished:
        case MediaPlayer::State::Stopped:
            failuresInRow_ = 0;
            skipped_.clear();
            piece_.clear();
            phase_ = Phase::Pausing;
            pauseStart_ = clock_.tick();
            break;
        }
    }
    if (phase_ == Phase::Pausing) {
        if (clock_.tick() - pauseStart_ >= std::chrono::seconds(interval_))
            StartNextPiece();
        else
            ShowStatus();
    }
}

void SoundChannel::ShowStatus()
{
    if (phase_ == Phase::Playing) {
        status_ = "Playing " + piece_;
        if (!skipped_.empty())
            status_ += " (skipped " + skipped_ + ")";
    } else if (phase_ == Phase::Pausing) {
        const auto left = std::chrono::seconds(interval_) - (clock_.tick() - pauseStart_);
        const auto seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
        status_ = "Next piece in " + std::to_string(std::max<long long>(seconds, 0)) + " s";
    }
}

} // namespace vellumar
