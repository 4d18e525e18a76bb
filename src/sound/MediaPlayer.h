#pragma once

#include <string>

namespace vellumar {

// Plays one sound or music file at a time (WAV, MP3, MIDI): the player behind one channel of
// the sound window. It never waits: the channel asks for its state on each tick.
class MediaPlayer {
public:
    enum class State {
        Stopped,  // nothing asked for, or stopped
        Playing,  // loading or playing
        Finished, // the file played to its end
        Failed,   // the file could not be played: error() says why
    };

    virtual ~MediaPlayer() = default;

    // Starts `path`, stopping what plays.
    virtual void Play(const std::string& path) = 0;
    virtual void Stop() = 0;
    // 0 to 100.
    virtual void SetVolume(int percent) = 0;
    virtual State state() = 0;
    virtual std::string error() = 0;
};

} // namespace vellumar
