// Playlists on the music list as Windows users write them: relative entries, "\" separators,
// names in the ANSI code page, comments.

#include "common/PathText.h"
#include "sound/MusicList.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

std::vector<std::string> Names(const TextList& paths)
{
    std::vector<std::string> names;
    for (const std::string& path : paths)
        names.push_back(LastPathComponent(path));
    return names;
}

TEST(MusicListTest, PlaylistsExpandRelativeBackslashedAndInTheAnsiCodePage)
{
    test::TempFolder temp;
    test::TestServices fakes;
    fakes.registry.hostPathsAsGiven = true;
    temp.write("Music/one.mp3");
    temp.write("Music/Sub Folder/Two.mid");
    temp.write("Music/caf\xC3\xA9.wav"); // café.wav, as this system names it
    const std::string elsewhere = temp.write("Elsewhere/three.wav");
    // Written on Windows: CRLF, "\" separators, a name in Windows-1252, comments, a stream, a
    // gone file, a playlist in the playlist, and the letter case the Windows user typed.
    const std::string list = temp.write("Music/Flight.M3U", "#EXTM3U\r\n"
                                                            "#EXTINF:123,One\r\n"
                                                            "ONE.MP3\r\n"
                                                            "\r\n"
                                                            "Sub Folder\\two.mid\r\n"
                                                            "caf\xE9.wav\r\n"
                                                            "http://radio.example/stream.mp3\r\n"
                                                            "gone.mp3\r\n"
                                                            "other.m3u\r\n" +
                                                                elsewhere + "\r\n");
    temp.write("Music/other.m3u", "one.mp3\n");
    test::ScopedEnvironment codePage("VELLUMAR_CODEPAGE", "1252");
    const TextList pieces = ExpandMusicList(
        fakes.files, fakes.registry, {temp / "Music/one.mp3", list, temp / "Music/gone.wav"});
    EXPECT_EQ(Names(pieces), (std::vector<std::string>{"one.mp3", "one.mp3", "Two.mid",
                                                       "caf\xC3\xA9.wav", "three.wav"}));
    // Each one a file the player can open as it is.
    for (const std::string& piece : pieces)
        EXPECT_TRUE(std::filesystem::is_regular_file(piece)) << piece;
}

} // namespace
} // namespace vellumar
