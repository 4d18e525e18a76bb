#pragma once

#include "common/TextList.h"

#include <string>
#include <string_view>

namespace vellumar {

class FileOperations;
class MediaPlayer;

// The files a sound channel plays: WAV, MP3 and MIDI, whatever the letter case of the name.
bool IsSoundFileName(std::string_view name);

// The sound files of a folder (not its subfolders), as full paths in name order without
// regard to case; nothing when the folder is missing or holds none.
TextList ListSoundFiles(FileOperations& files, const std::string& folder);

// Why the player gave up on its file, for a channel's status.
std::string WhyNotPlayed(MediaPlayer& player);

} // namespace vellumar
