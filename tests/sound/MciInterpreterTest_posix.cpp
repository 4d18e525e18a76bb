// The CD interpreter on disc images made here: the commands the sound window sends, their
// replies and errors, play on a fake clock, and the samples that reach the sound output.

#include "sound/CdAudioOutput.h"
#include "sound/CdioDrive.h"
#include "sound/CreatePlatformMediaControl.h"
#include "sound/MciError.h"
#include "sound/MciInterpreter.h"
#include "support/CdImage.h"
#include "support/FakeClock.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

using namespace std::chrono_literals;

// Takes what the interpreter starts; a test pulls the samples itself.
class RecordingCdOutput final : public CdAudioOutput {
public:
    bool Start(Source source) override
    {
        this->source = std::move(source);
        playing = true;
        ++starts;
        return problemText.empty();
    }
    void Pause() override { playing = false; }
    void Resume() override { playing = true; }
    void Stop() override
    {
        source = nullptr;
        playing = false;
    }
    void SetVolume(int percent) override { volume = percent; }
    std::string problem() const override { return problemText; }

    // Every byte the source gives until it ends.
    std::string PullAll()
    {
        std::string all;
        std::uint8_t chunk[5000]; // not a whole number of sectors
        while (const std::size_t got = source(chunk, sizeof chunk))
            all.append(reinterpret_cast<const char*>(chunk), got);
        return all;
    }

    Source source;
    bool playing = false;
    int starts = 0;
    int volume = -1;
    std::string problemText;
};

constexpr int Sector = 2352;

class MciInterpreterTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FakeClock clock;
    RecordingCdOutput output;
    std::string image = temp / "disc.cue";
    MciInterpreter cd{clock, [this] { return CreateCdioDrive(image); }, &output};

    // Three tracks of 3, 4 and 2 seconds.
    void WriteThreeTracks() { test::WriteCdImage(temp.path(), "disc", {225, 300, 150}); }

    std::string Send(const std::string& command)
    {
        std::string reply;
        const std::uint32_t error = cd.SendString(command, reply);
        EXPECT_EQ(error, 0u) << command << ": " << cd.ErrorText(error);
        return reply;
    }
    std::uint32_t Error(const std::string& command)
    {
        std::string reply = "untouched";
        const std::uint32_t error = cd.SendString(command, reply);
        EXPECT_EQ(reply, "") << command;
        return error;
    }
    void OpenInTmsf()
    {
        Send("open cdaudio alias cd wait shareable");
        Send("set cd time format tmsf wait");
    }
};

TEST_F(MciInterpreterTest, ReadsTheDiscsTableInEachTimeFormat)
{
    WriteThreeTracks();
    Send("open cdaudio alias cd wait shareable");
    EXPECT_EQ(Send("status cd media present"), "true");
    EXPECT_EQ(Send("status cd mode"), "stopped");
    // A drive opens in minutes:seconds:frames, counted on the disc from before the first track.
    EXPECT_EQ(Send("status cd time format"), "msf");
    EXPECT_EQ(Send("status cd position"), "00:02:00");

    Send("set cd time format tmsf wait");
    EXPECT_EQ(Send("status cd number of tracks wait"), "3");
    EXPECT_EQ(Send("status cd length wait"), "00:09:00");
    EXPECT_EQ(Send("status cd length track 1"), "00:03:00");
    EXPECT_EQ(Send("status cd length track 2"), "00:04:00");
    EXPECT_EQ(Send("status cd length track 3"), "00:02:00");
    EXPECT_EQ(Send("status cd position"), "01:00:00:00");
    EXPECT_EQ(Send("status cd position track 3"), "03:00:00:00");
    EXPECT_EQ(Send("STATUS CD Current Track"), "1");

    Send("set cd time format milliseconds");
    EXPECT_EQ(Send("status cd length track 2"), "4000");
    EXPECT_EQ(Send("status cd position track 2"), "5000");
}

TEST_F(MciInterpreterTest, PlaysOnTheClockAndStopsAtTheEndOfTheDisc)
{
    WriteThreeTracks();
    OpenInTmsf();
    Send("play cd from 2");
    EXPECT_EQ(Send("status cd mode"), "playing");
    clock.advance(1500ms);
    EXPECT_EQ(Send("status cd position"), "02:00:01:37");
    clock.advance(3000ms);
    EXPECT_EQ(Send("status cd position"), "03:00:00:37");
    EXPECT_EQ(Send("status cd current track"), "3");
    clock.advance(10s);
    EXPECT_EQ(Send("status cd mode"), "stopped");
    EXPECT_EQ(Send("status cd position"), "03:00:02:00");
    clock.advance(10s);
    EXPECT_EQ(Send("status cd position"), "03:00:02:00");

    // Play to a track ends where that track begins.
    Send("play cd from 1 to 2");
    clock.advance(2s);
    EXPECT_EQ(Send("status cd mode"), "playing");
    clock.advance(2s);
    EXPECT_EQ(Send("status cd mode"), "stopped");
    EXPECT_EQ(Send("status cd position"), "02:00:00:00");

    // "wait" returns when the music has ended.
    const auto before = clock.tick();
    Send("play cd from 3 wait");
    EXPECT_EQ(clock.tick() - before, 2000ms);
    EXPECT_EQ(Send("status cd mode"), "stopped");
}

TEST_F(MciInterpreterTest, SeekStopPauseAndResumeHoldThePosition)
{
    WriteThreeTracks();
    OpenInTmsf();
    Send("play cd");
    clock.advance(1s);
    Send("seek cd to 3");
    EXPECT_EQ(Send("status cd mode"), "stopped");
    EXPECT_EQ(Send("status cd position"), "03:00:00:00");
    Send("seek cd to 2:00:01:10");
    EXPECT_EQ(Send("status cd position"), "02:00:01:10");

    Send("play cd");
    clock.advance(1s);
    Send("pause cd");
    EXPECT_EQ(Send("status cd mode"), "paused");
    clock.advance(5s);
    EXPECT_EQ(Send("status cd position"), "02:00:02:10");
    Send("resume cd");
    clock.advance(1s);
    Send("stop cd wait");
    clock.advance(5s);
    EXPECT_EQ(Send("status cd mode"), "stopped");
    EXPECT_EQ(Send("status cd position"), "02:00:03:10");
    // Play goes on from where the disc stopped.
    Send("play cd");
    clock.advance(1s);
    EXPECT_EQ(Send("status cd position"), "03:00:00:10");
}

TEST_F(MciInterpreterTest, RefusesWhatItCannotDoWithTheSystemsErrors)
{
    WriteThreeTracks();
    EXPECT_EQ(Error("status cd mode"), MciError::InvalidDeviceName); // not open yet
    OpenInTmsf();
    EXPECT_EQ(Error("eject cd"), MciError::UnrecognizedCommand);
    EXPECT_EQ(cd.ErrorText(MciError::UnrecognizedCommand),
              "The driver cannot recognize the specified command.");
    EXPECT_EQ(Error(""), MciError::MissingCommandString);
    EXPECT_EQ(Error("status cdrom mode"), MciError::InvalidDeviceName);
    EXPECT_EQ(Error("open cdaudio alias cd"), MciError::DuplicateAlias);
    EXPECT_EQ(Error("status cd colour"), MciError::UnrecognizedKeyword);
    EXPECT_EQ(Error("play cd loudly"), MciError::UnrecognizedKeyword);
    EXPECT_EQ(Error("seek cd to 4"), MciError::OutOfRange);
    EXPECT_EQ(Error("seek cd to 0"), MciError::OutOfRange);
    EXPECT_EQ(Error("status cd length track 9"), MciError::OutOfRange);
    EXPECT_EQ(Error("status cd length track two"), MciError::BadInteger);
    EXPECT_EQ(Error("play cd from 3 to 2"), MciError::OutOfRange);
    EXPECT_EQ(Error("set cd time format hours"), MciError::BadConstant);
    EXPECT_EQ(Error("status all mode"), MciError::CannotUseAll);
    for (std::uint32_t code : {MciError::OutOfRange, MciError::InvalidDeviceName,
                               MciError::DeviceNotReady, MciError::CannotLoadDriver})
        EXPECT_FALSE(cd.ErrorText(code).empty()) << code;
    // None of it moved the disc.
    EXPECT_EQ(Send("status cd mode"), "stopped");
    EXPECT_EQ(Send("status cd position"), "01:00:00:00");

    Send("close all");
    EXPECT_EQ(Error("status cd mode"), MciError::InvalidDeviceName);
}

TEST_F(MciInterpreterTest, AnImageWrittenLaterIsADiscInsertedAndADeletedOneEjected)
{
    Send("open cdaudio alias cd wait shareable"); // the image's drive is there, empty
    Send("set cd time format tmsf wait");
    EXPECT_EQ(Send("status cd media present"), "false");
    EXPECT_EQ(Send("status cd mode"), "not ready");
    EXPECT_EQ(Error("status cd number of tracks wait"), MciError::DeviceNotReady);
    EXPECT_EQ(Error("play cd from 1"), MciError::DeviceNotReady);

    test::WriteCdImage(temp.path(), "disc", {150});
    clock.advance(1s);
    EXPECT_EQ(Send("status cd media present"), "true");
    EXPECT_EQ(Send("status cd number of tracks wait"), "1");
    EXPECT_EQ(Send("status cd length track 1"), "00:02:00");

    Send("play cd from 1");
    std::filesystem::remove(temp / "disc.bin");
    std::filesystem::remove(image);
    clock.advance(1s);
    EXPECT_EQ(Send("status cd media present"), "false");
    EXPECT_EQ(Send("status cd mode"), "not ready");
    EXPECT_FALSE(output.source) << "the music stops with the disc";

    // A sheet that is not one is no disc either, and nothing worse.
    test::WriteWholeFile(image, "TRACK nonsense\n");
    clock.advance(1s);
    EXPECT_EQ(Send("status cd media present"), "false");
}

TEST_F(MciInterpreterTest, FeedsTheOutputThePlayedTracksSamplesUpToTheEndOfTheDisc)
{
    WriteThreeTracks();
    OpenInTmsf();
    cd.SetVolume(40);
    Send("play cd from 2 to 3");
    ASSERT_TRUE(output.source);
    EXPECT_EQ(output.volume, 40);
    EXPECT_EQ(output.PullAll(), std::string(300 * Sector, '\2'));

    // To the end of the disc and not a byte past it.
    Send("play cd from 3");
    EXPECT_EQ(output.PullAll(), std::string(150 * Sector, '\3'));

    Send("play cd from 1");
    Send("pause cd");
    EXPECT_FALSE(output.playing);
    Send("resume cd");
    EXPECT_TRUE(output.playing);
    Send("stop cd wait");
    EXPECT_FALSE(output.source);

    output.problemText = "There is no sound device: the CD plays without sound.";
    Send("play cd from 1");
    EXPECT_EQ(cd.AudioOutputProblem(), output.problemText);
    clock.advance(1s);
    EXPECT_EQ(Send("status cd position"), "01:00:01:00") << "the disc plays on without sound";
}

TEST(PlatformMediaControlTest, OpensTheConfiguredImageAndFailsWithoutAnyDrive)
{
    test::TempFolder temp;
    test::FakeClock clock;
    const std::string image = test::WriteCdImage(temp.path(), "album", {75, 75});
    {
        test::ScopedEnvironment disc("VELLUMAR_CD", image);
        const std::unique_ptr<MediaControl> cd = CreatePlatformMediaControl(clock);
        std::string reply;
        EXPECT_EQ(cd->SendString("open cdaudio alias cd wait shareable", reply), 0u);
        EXPECT_EQ(cd->SendString("status cd number of tracks wait", reply), 0u);
        EXPECT_EQ(reply, "2");
    }

    MciInterpreter noDrive(clock, [] { return std::unique_ptr<CdDrive>(); });
    std::string reply;
    EXPECT_EQ(noDrive.SendString("open cdaudio alias cd wait shareable", reply),
              MciError::CannotLoadDriver);
    EXPECT_EQ(noDrive.SendString("status cd media present", reply), MciError::InvalidDeviceName);
}

} // namespace
} // namespace vellumar
