#pragma once

#include "sound/CdDrive.h"
#include "sound/MediaControl.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellumar {

class CdAudioOutput;
class Clock;

// The CD part of the media control interface where the system has none: the command strings of
// the "cdaudio" device, their replies and their error numbers, over a CdDrive. Position, mode
// and the end of play follow the clock, so a disc plays the same with a sound device or without
// one; the output, when there is one, is fed the disc's sectors as it asks for them.
class MciInterpreter final : public MediaControl {
public:
    // Finds the drive when the device is opened; nullptr when there is none at all.
    using FindDrive = std::function<std::unique_ptr<CdDrive>()>;

    MciInterpreter(Clock& clock, FindDrive findDrive, CdAudioOutput* output = nullptr);
    ~MciInterpreter() override;
    MciInterpreter(const MciInterpreter&) = delete;
    MciInterpreter& operator=(const MciInterpreter&) = delete;

    std::uint32_t SendString(const std::string& command, std::string& reply) override;
    std::string ErrorText(std::uint32_t code) override;
    std::string AudioOutputProblem() override;
    void SetVolume(int percent) override;

private:
    enum class TimeFormat { Msf, Tmsf, Milliseconds };
    enum class Mode { Stopped, Playing, Paused };
    using Words = std::vector<std::string>;

    std::uint32_t Open(const Words& words);
    std::uint32_t Close(const Words& words);
    std::uint32_t Set(const Words& words);
    std::uint32_t Status(const Words& words, std::string& reply);
    std::uint32_t Seek(const Words& words);
    std::uint32_t Play(const Words& words);
    std::uint32_t Stop(const Words& words);
    std::uint32_t Pause(const Words& words);
    std::uint32_t Resume(const Words& words);

    bool IsOpen(const std::string& alias) const;
    // Looks at the drive again (at most once a second, unless `now`); a changed disc stops play.
    void LookAtDrive(bool now = false);
    // Brings the mode and position up to the clock: play that reached its end has stopped.
    void FollowClock();
    std::int32_t CurrentSector();
    const CdDisc* disc() const { return drive_ ? drive_->disc() : nullptr; }

    // A time in the current format (a track alone in tmsf) as a sector of the disc.
    std::uint32_t ParseTime(const std::string& text, std::int32_t& sector) const;
    std::string PositionText(std::int32_t sector) const;
    std::string DurationText(std::int32_t sectors) const;

    void StartPlay(std::int32_t from, std::int32_t to);
    void StopPlay(std::int32_t at);

    Clock& clock_;
    FindDrive findDrive_;
    CdAudioOutput* output_;
    std::unique_ptr<CdDrive> drive_;
    std::vector<std::string> aliases_;
    std::optional<std::chrono::steady_clock::time_point> lastLook_;

    TimeFormat format_ = TimeFormat::Msf;
    Mode mode_ = Mode::Stopped;
    std::int32_t position_ = 0;                         // where the disc stands while not playing
    std::int32_t playFrom_ = 0, playTo_ = 0;            // the stretch being played ...
    std::chrono::steady_clock::time_point playStarted_; // ... from playFrom_ at this tick
    int volume_ = 100;
};

} // namespace vellumar
