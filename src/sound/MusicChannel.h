#pragma once

#include "common/TextList.h"

#include <cstddef>
#include <string>

namespace vellumar {

class FileOperations;
class MediaPlayer;
class Registry;

// Channel 3 of the sound window: the music list in its order, playlists by their entries, from
// the end back to the start. A file that is gone or cannot be played is skipped and named in
// the status; the channel stops by itself only when nothing on the list plays. The window
// calls Tick() from a timer; nothing here waits.
class MusicChannel {
public:
    MusicChannel(MediaPlayer& player, FileOperations& files, Registry& registry);

    // The music list as the music window edits it (MusicFile1, MusicFile2, ...). What plays
    // on goes on; the next piece comes from the new list, after the one playing when it is
    // still there, else from the start.
    void SetList(const TextList& musicFiles);
    const TextList& list() const { return list_; }

    // 0 to 100, passed on to the player at once.
    void SetVolume(int percent);
    int volume() const { return volume_; }

    // Starts the piece at the current place on the list (the start, at first).
    void Play();
    void Stop();
    // The piece after or before the current one, wrapping at the ends; they play at once,
    // also when the channel was off.
    void Next();
    void Previous();
    void Tick();

    bool playing() const { return playing_; }
    // The file name of the piece now playing; "" when off.
    const std::string& piece() const { return piece_; }
    const std::string& status() const { return status_; }
    // The files the list comes to, playlists expanded and missing files left out.
    const TextList& pieces() const { return pieces_; }

private:
    // Reads the list again; true when the piece last played is still on it (the place).
    bool Expand();
    // Plays the first file from pieces_[index] on that is still there.
    void StartAt(std::size_t index);
    void Advance(bool forward);
    void SwitchOff(std::string why);
    void ShowStatus();

    MediaPlayer& player_;
    FileOperations& files_;
    Registry& registry_;

    TextList list_;
    TextList pieces_;
    std::size_t index_ = 0;
    int volume_ = 50;
    bool playing_ = false;
    std::string current_;
    std::string piece_;
    std::string skipped_;
    std::size_t failuresInRow_ = 0;
    std::string status_ = "Stopped";
};

} // namespace vellumar
