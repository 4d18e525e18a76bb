#include "sound/MusicChannel.h"

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "sound/MediaPlayer.h"
#include "sound/MusicList.h"
#include "sound/SoundFiles.h"

#include <algorithm>

namespace vellumar {

MusicChannel::MusicChannel(MediaPlayer& player, FileOperations& files, Registry& registry)
    : player_(player)
    , files_(files)
    , registry_(registry)
{
    player_.SetVolume(volume_);
}

void MusicChannel::SetList(const TextList& musicFiles)
{
    list_ = musicFiles;
    // The piece playing is no longer on the list: the next one is the new list's first.
    if (!Expand() && playing_ && !pieces_.empty())
        index_ = pieces_.size() - 1;
}

bool MusicChannel::Expand()
{
    pieces_ = ExpandMusicList(files_, registry_, list_);
    const auto found = std::find(pieces_.begin(), pieces_.end(), current_);
    index_ = found != pieces_.end() ? static_cast<std::size_t>(found - pieces_.begin()) : 0;
    return found != pieces_.end();
}

void MusicChannel::SetVolume(int percent)
{
    volume_ = std::clamp(percent, 0, 100);
    player_.SetVolume(volume_);
}

void MusicChannel::Play()
{
    if (playing_)
        return;
    Expand();
    skipped_.clear();
    failuresInRow_ = 0;
    StartAt(index_);
}

void MusicChannel::Stop()
{
    if (playing_)
        player_.Stop();
    SwitchOff("Stopped");
}

void MusicChannel::Next()
{
    Advance(true);
}

void MusicChannel::Previous()
{
    Advance(false);
}

void MusicChannel::Advance(bool forward)
{
    if (!playing_) {
        Expand();
        skipped_.clear();
        failuresInRow_ = 0;
    }
    if (pieces_.empty()) {
        StartAt(0); // says why nothing plays
        return;
    }
    const std::size_t count = pieces_.size();
    StartAt(forward ? (index_ + 1) % count : (index_ + count - 1) % count);
}

void MusicChannel::SwitchOff(std::string why)
{
    playing_ = false;
    piece_.clear();
    status_ = std::move(why);
}

void MusicChannel::StartAt(std::size_t index)
{
    if (list_.empty()) {
        player_.Stop();
        SwitchOff("The music list is empty");
        return;
    }
    // A file may have gone since the list was read: skip it here, where it costs no wait.
    for (std::size_t tried = 0; tried < pieces_.size(); ++tried) {
        const std::size_t at = (index + tried) % pieces_.size();
        if (files_.kindOf(pieces_[at]) != PathKind::File) {
            skipped_ = LastPathComponent(pieces_[at]) + ": the file is not there";
            continue;
        }
        index_ = at;
        current_ = pieces_[at];
        piece_ = LastPathComponent(current_);
        playing_ = true;
        player_.Play(current_);
        ShowStatus();
        return;
    }
    player_.Stop();
    SwitchOff("None of the music files on the list can be found");
}

void MusicChannel::Tick()
{
    if (!playing_)
        return;
    switch (player_.state()) {
    case MediaPlayer::State::Playing:
        return;
    case MediaPlayer::State::Failed:
        skipped_ = piece_ + ": " + WhyNotPlayed(player_);
        if (++failuresInRow_ >= pieces_.size()) {
            player_.Stop();
            SwitchOff("None of the music files can be played (" + skipped_ + ")");
            return;
        }
        break;
    case MediaPlayer::State::Finished:
    case MediaPlayer::State::Stopped:
        failuresInRow_ = 0;
        skipped_.clear();
        break;
    }
    if (index_ + 1 >= pieces_.size()) {
        // Back to the start: a playlist may have changed meanwhile.
        current_.clear();
        Expand();
        StartAt(0);
        return;
    }
    StartAt(index_ + 1);
}

void MusicChannel::ShowStatus()
{
    status_ = "Playing " + piece_ + ", " + std::to_string(index_ + 1) + " of " +
              std::to_string(pieces_.size());
    if (!skipped_.empty())
        status_ += " (skipped " + skipped_ + ")";
}

} // namespace vellumar
