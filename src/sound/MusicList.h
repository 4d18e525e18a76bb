#pragma once

#include "common/TextList.h"

#include <string>
#include <string_view>

namespace vellumar {

class FileOperations;
class Registry;

// A playlist on the music list: .m3u (or .m3u8), whatever the letter case.
bool IsPlaylistName(std::string_view name);

// The entries of an M3U playlist as paths of this machine, in order: "#" lines (comments and
// the extended format's tags) and blank lines are skipped, an entry relative to the playlist is
// taken from the playlist's folder, a drive letter maps as in cloud.ini, "\" separates as well
// as "/", and a playlist written on Windows may be in the ANSI code page. Entries are not
// checked; a playlist that cannot be read gives nothing.
TextList ReadPlaylist(FileOperations& files, Registry& registry, const std::string& playlist);

// What channel 3 plays for the music list (MusicFile1, MusicFile2, ...): each file in turn, a
// playlist in its place by its entries. Files that are not there (any more) are left out, and so
// is a playlist inside a playlist. Paths come as the system finds them.
TextList ExpandMusicList(FileOperations& files, Registry& registry, const TextList& musicFiles);

} // namespace vellumar
