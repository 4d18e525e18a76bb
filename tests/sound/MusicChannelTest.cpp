// Channel 3: the music list with its playlists, played in order on a fake player.

#include "sound/MusicChannel.h"

#include "common/PathText.h"
#include "support/FakeMediaPlayer.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class MusicChannelTest : public ::testing::Test {
protected:
    MusicChannelTest() { fakes.registry.hostPathsAsGiven = true; }

    std::vector<std::string> Names(const TextList& paths) const
    {
        std::vector<std::string> names;
        for (const std::string& path : paths)
            names.push_back(LastPathComponent(path));
        return names;
    }
    std::vector<std::string> Played() const { return Names(player.played); }

    test::TempFolder temp;
    test::TestServices fakes;
    test::FakeMediaPlayer player;
    MusicChannel channel{player, fakes.files, fakes.registry};
};

TEST_F(MusicChannelTest, PlaysInOrderWrapsAndStepsBothWays)
{
    const std::string a = temp.write("a.mp3"), b = temp.write("b.wav"), c = temp.write("c.mid");
    channel.SetList({a, b, c});
    channel.SetVolume(70);
    EXPECT_EQ(player.volume, 70);
    channel.Play();
    EXPECT_EQ(channel.status(), "Playing a.mp3, 1 of 3");
    for (int i = 0; i < 3; ++i) {
        player.finish();
        channel.Tick();
    }
    EXPECT_EQ(Played(), (std::vector<std::string>{"a.mp3", "b.wav", "c.mid", "a.mp3"}));
    channel.Previous();
    channel.Previous();
    channel.Next();
    EXPECT_EQ(Played(), (std::vector<std::string>{"a.mp3", "b.wav", "c.mid", "a.mp3", "c.mid",
                                                  "b.wav", "c.mid"}));
    // Stop, then Play starts the same piece again; Next from a stop plays its neighbour.
    channel.Stop();
    EXPECT_FALSE(channel.playing());
    channel.Play();
    EXPECT_EQ(channel.piece(), "c.mid");
    channel.Stop();
    channel.Next();
    EXPECT_EQ(channel.piece(), "a.mp3");
    EXPECT_TRUE(channel.playing());
}

TEST_F(MusicChannelTest, AListEditedWhilePlayingGoesOnFromThePiecePlaying)
{
    const std::string a = temp.write("a.mp3"), b = temp.write("b.mp3"), c = temp.write("c.mp3");
    channel.SetList({a, b, c});
    channel.Play();
    channel.Next(); // b
    channel.SetList({c, b, a});
    player.finish();
    channel.Tick();
    EXPECT_EQ(channel.piece(), "a.mp3");
    // The piece playing taken off: the next comes from the top of the new list.
    channel.SetList({c, b});
    player.finish();
    channel.Tick();
    EXPECT_EQ(Played(), (std::vector<std::string>{"a.mp3", "b.mp3", "a.mp3", "c.mp3"}));
}

TEST_F(MusicChannelTest, GoneAndBrokenFilesAreSkippedWithTheirReason)
{
    const std::string a = temp.write("a.mp3"), b = temp.write("b.mp3"), c = temp.write("c.mp3");
    channel.SetList({a, b, c});
    channel.Play();
    std::filesystem::remove(b); // gone while a played
    player.finish();
    channel.Tick();
    EXPECT_EQ(Played(), (std::vector<std::string>{"a.mp3", "c.mp3"}));
    EXPECT_EQ(channel.status(), "Playing c.mp3, 3 of 3 (skipped b.mp3: the file is not there)");
    // Back at the start the list is read again, without the gone file.
    player.fail("Could not determine type of stream.");
    channel.Tick();
    EXPECT_EQ(channel.status(),
              "Playing a.mp3, 1 of 2 (skipped c.mp3: Could not determine type of stream.)");
    EXPECT_TRUE(channel.playing());
}

TEST_F(MusicChannelTest, AnEmptyOrVanishedListSaysSoAndPlaysNothing)
{
    channel.Play();
    EXPECT_FALSE(channel.playing());
    EXPECT_EQ(channel.status(), "The music list is empty");
    const std::string a = temp.write("a.mp3");
    channel.SetList({a});
    std::filesystem::remove(a);
    channel.Play();
    EXPECT_FALSE(channel.playing());
    EXPECT_EQ(channel.status(), "None of the music files on the list can be found");
    EXPECT_TRUE(player.played.empty());
}

} // namespace
} // namespace vellumar
