// Channels 1 and 2: a folder's files in random rounds with a pause between two pieces, on a
// fake player and a test clock.

#include "sound/SoundChannel.h"

#include "common/PathText.h"
#include "support/FakeMediaPlayer.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vellumar {
namespace {

using namespace std::chrono_literals;

class SoundChannelTest : public ::testing::Test {
protected:
    SoundChannelTest()
    {
        channel.SetFolder(temp / "Ch1");
        channel.SetInterval(0);
    }

    // A generator that runs through fixed draws, again and again.
    static std::function<double()> Draws(std::vector<double> draws)
    {
        auto next = std::make_shared<std::size_t>(0);
        return [draws, next] { return draws[(*next)++ % draws.size()]; };
    }

    std::string Name(std::size_t played) const
    {
        return LastPathComponent(player.played.at(played));
    }

    test::TempFolder temp;
    test::TestServices fakes;
    test::FakeMediaPlayer player;
    SoundChannel channel{player, fakes.files, fakes.clock, Draws({0.7, 0.1, 0.4, 0.9, 0.3})};
};

TEST_F(SoundChannelTest, EveryFilePlaysOnceARoundAndNoPieceTwiceInARow)
{
    for (const char* name : {"a.wav", "B.MP3", "c.mid", "d.Midi"})
        temp.write(std::string("Ch1/") + name);
    temp.write("Ch1/notes.txt");
    temp.write("Ch1/sub.wav/inner.wav"); // a folder, whatever its name
    channel.Play();
    for (int piece = 1; piece < 12; ++piece) {
        player.finish();
        channel.Tick();
    }
    ASSERT_EQ(player.played.size(), 12u);
    for (std::size_t round = 0; round < 3; ++round) {
        std::set<std::string> heard;
        for (std::size_t i = 0; i < 4; ++i)
            heard.insert(Name(round * 4 + i));
        EXPECT_EQ(heard, (std::set<std::string>{"a.wav", "B.MP3", "c.mid", "d.Midi"}));
    }
    for (std::size_t i = 1; i < player.played.size(); ++i)
        EXPECT_NE(player.played[i], player.played[i - 1]) << "piece " << i;
}

TEST_F(SoundChannelTest, ThePauseBetweenPiecesIsHonouredAndShown)
{
    temp.write("Ch1/a.wav");
    temp.write("Ch1/b.wav");
    channel.SetInterval(75); // beyond the limit
    EXPECT_EQ(channel.interval(), 60);
    channel.SetInterval(10);
    channel.Play();
    EXPECT_EQ(channel.status(), "Playing " + channel.piece());
    player.finish();
    channel.Tick();
    EXPECT_EQ(player.played.size(), 1u);
    EXPECT_EQ(channel.piece(), "");
    EXPECT_EQ(channel.status(), "Next piece in 10 s");
    fakes.clock.advance(9500ms);
    channel.Tick();
    EXPECT_EQ(player.played.size(), 1u);
    EXPECT_EQ(channel.status(), "Next piece in 1 s");
    fakes.clock.advance(500ms);
    channel.Tick();
    EXPECT_EQ(player.played.size(), 2u);
    EXPECT_TRUE(channel.playing());
    // A shorter pause set during one counts at once.
    player.finish();
    channel.Tick();
    channel.SetInterval(0);
    channel.Tick();
    EXPECT_EQ(player.played.size(), 3u);
}

TEST_F(SoundChannelTest, AFileThatCannotPlayIsSkippedAndANoneGivesUp)
{
    temp.write("Ch1/a.wav");
    temp.write("Ch1/b.wav");
    temp.write("Ch1/c.wav");
    channel.Play();
    const std::string broken = Name(0);
    player.fail("Could not determine type of stream.");
    channel.Tick();
    ASSERT_EQ(player.played.size(), 2u); // the next one at once, without a pause
    EXPECT_TRUE(channel.playing());
    EXPECT_EQ(channel.status(), "Playing " + Name(1) + " (skipped " + broken +
                                    ": Could not determine type of stream.)");
    // One failure per tick, and once every file has failed in a row the channel gives up
    // instead of trying them for ever.
    player.fail("no decoder");
    channel.Tick();
    player.fail("no decoder");
    channel.Tick();
    EXPECT_EQ(player.played.size(), 3u);
    EXPECT_FALSE(channel.playing());
    EXPECT_NE(channel.status().find("None of the sound files in"), std::string::npos);
    channel.Tick();
    EXPECT_EQ(player.played.size(), 3u);
}

TEST_F(SoundChannelTest, AnEmptyFolderSaysSoAndStopStopsThePlayer)
{
    temp.makeFolder("Ch1");
    channel.Play();
    EXPECT_FALSE(channel.playing());
    EXPECT_EQ(channel.status(), "No sound files in " + (temp / "Ch1"));
    EXPECT_TRUE(player.played.empty());

    temp.write("Ch1/a.wav");
    channel.SetVolume(130);
    EXPECT_EQ(player.volume, 100);
    channel.SetVolume(35);
    EXPECT_EQ(player.volume, 35);
    channel.Play();
    EXPECT_EQ(channel.piece(), "a.wav");
    channel.Stop();
    EXPECT_EQ(player.stops, 1);
    EXPECT_FALSE(channel.playing());
    EXPECT_EQ(channel.status(), "Stopped");
    player.finish(); // a late end of the stopped piece starts nothing
    channel.Tick();
    EXPECT_EQ(player.played.size(), 1u);
}

} // namespace
} // namespace vellumar
