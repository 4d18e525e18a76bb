#pragma once

#include "sound/MediaPlayer.h"

#include <QAudioOutput>
#include <QMediaPlayer>

#include <chrono>
#include <optional>

namespace vellumar {

// The player of one channel: a media player with its own audio output, on the thread that
// makes it (the window's). What it reports comes from the player's signals, so the state moves
// on only while the event loop runs, as it does between two ticks of the window's timer.
// Without a sound device a file still plays to its end, in about its own time.
class QtMediaPlayer final : public MediaPlayer {
public:
    QtMediaPlayer();

    void Play(const std::string& path) override;
    void Stop() override;
    void SetVolume(int percent) override;
    State state() override { return state_; }
    std::string error() override { return error_; }

    // The length of the file playing, once the player has read it.
    std::optional<std::chrono::milliseconds> duration() const;

private:
    void Fail(const QString& why);

    QMediaPlayer player_;
    QAudioOutput output_;
    State state_ = State::Stopped;
    std::string error_;
};

} // namespace vellumar
