#pragma once

#include <cstdint>
#include <string>

namespace vellumar {

// The system's media control interface, spoken in its command strings ("open cdaudio alias cd
// wait shareable", "status cd media present", "play cd from 3", ...). Windows has it; elsewhere
// an interpreter of the same strings stands in, answering in the same formats and with the same
// error numbers.
class MediaControl {
public:
    virtual ~MediaControl() = default;

    // Sends one command. Returns 0 when it succeeded, else the error number; `reply` receives
    // the command's reply ("true", "3", "02:01:10:00", "playing"...), empty when it has none.
    virtual std::uint32_t SendString(const std::string& command, std::string& reply) = 0;

    // The text the system gives for an error number.
    virtual std::string ErrorText(std::uint32_t code) = 0;

    // Why a disc that plays cannot be heard ("" when it can, or when nothing has played yet):
    // without a sound device the disc still plays, on the clock alone.
    virtual std::string AudioOutputProblem() { return {}; }

    // The loudness of the CD, 0 to 100, where the system lets a program set it for the CD alone.
    virtual void SetVolume(int /*percent*/) {}
};

} // namespace vellumar
