#pragma once

#include "common/TextList.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vellumar {

class FileOperations;

// What the music window ("Music Order") edits: the music list in playing order, and the folder
// music was last added from.
struct MusicOrder {
    TextList files;
    std::string lastMusicPath;
};

// The filter of Add's file dialog, as "description|patterns|" pairs.
inline constexpr std::string_view kMusicFileFilter =
    "MP3 (*.mp3;*.m3u)|*.mp3;*.m3u|WAV (*.wav)|*.wav|MIDI (*.mid;*.midi)|*.mid;*.midi|"
    "All files (*.*)|*.*|";

// Where Add's dialog opens: the folder music was last added from, else channel 3's folder
// (when neither exists, the dialog's own choice: "").
std::string MusicAddFolder(FileOperations& files, const MusicOrder& order,
                           const std::string& channelFolder);

// The files a file dialog's answer names: a path alone, or a folder followed by names, each
// after a NUL. Nothing for "" (cancelled).
TextList FilesOfDialogAnswer(std::string_view answer);

// Add: the chosen files join the end of the list, in the order chosen; their folder becomes
// the one Add opens next time.
void AddMusicFiles(MusicOrder& order, const TextList& chosen);

// Remove, and Move up/down or a drag: false (nothing changes) for a row outside the list.
bool RemoveMusicFile(MusicOrder& order, std::size_t row);
bool MoveMusicFile(MusicOrder& order, std::size_t from, std::size_t to);

} // namespace vellumar
