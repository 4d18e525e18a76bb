#pragma once

#include "common/TextList.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vellumar {

class Clock;
class FileOperations;
class MediaPlayer;

// Channel 1 or 2 of the sound window: the sound files of one folder in random order, one at a
// time, with a pause between two pieces. Every file plays once before any plays again, and a
// new round does not begin with the piece just heard. A file that cannot be played is skipped
// and named in the status; the channel stops by itself only when none of its files plays.
// The window calls Tick() from a timer; nothing here waits.
class SoundChannel {
public:
    // `uniform` draws in [0, 1) (see ClockSeededUniform).
    SoundChannel(MediaPlayer& player, FileOperations& files, Clock& clock,
                 std::function<double()> uniform);

    // The folder whose files the channel plays; read when playing starts and at each new
    // round, so files added meanwhile join in. A new folder stops the channel.
    void SetFolder(const std::string& folder);
    const std::string& folder() const { return folder_; }

    // Seconds between two pieces, 0 to 60; a pause under way takes the new length at once.
    void SetInterval(int seconds);
    int interval() const { return interval_; }

    // 0 to 100, passed on to the player at once.
    void SetVolume(int percent);
    int volume() const { return volume_; }

    void Play();
    void Stop();
    void Tick();

    // Switched on: playing a piece, or pausing between two.
    bool playing() const { return phase_ != Phase::Off; }
    // The file name of the piece now playing; "" in a pause or when off.
    const std::string& piece() const { return piece_; }
    // One line for the window: what plays, the pause left, or why the channel is silent.
    const std::string& status() const { return status_; }

private:
    enum class Phase { Off, Playing, Pausing };

    void StartNextPiece();
    void SwitchOff(std::string why);
    void ShowStatus();

    MediaPlayer& player_;
    FileOperations& files_;
    Clock& clock_;
    std::function<double()> uniform_;

    std::string folder_;
    int interval_ = 5;
    int volume_ = 50;

    Phase phase_ = Phase::Off;
    TextList pieces_;                // the folder's files as last read
    std::vector<std::size_t> round_; // indices into pieces_ still to come in this round
    std::string current_;            // path of the piece playing, or last played
    std::string piece_;
    std::string skipped_; // the last file skipped, with why, until a piece plays to its end
    std::size_t failuresInRow_ = 0;
    std::chrono::steady_clock::time_point pauseStart_{};
    std::string status_ = "Stopped";
};

} // namespace vellumar
