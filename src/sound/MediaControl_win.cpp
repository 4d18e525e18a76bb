#include "sound/CreatePlatformMediaControl.h"

#include <windows.h>

#include <mmsystem.h>

namespace vellumar {

namespace {

// Windows' own media control interface: the commands go to it as they are.
class WinmmMediaControl final : public MediaControl {
public:
    std::uint32_t SendString(const std::string& command, std::string& reply) override
    {
        char answer[256] = {};
        const MCIERROR error = mciSendStringA(command.c_str(), answer, sizeof answer, nullptr);
        reply = error ? std::string() : std::string(answer);
        return static_cast<std::uint32_t>(error);
    }

    std::string ErrorText(std::uint32_t code) override
    {
        char text[256] = {};
        if (!mciGetErrorStringA(code, text, sizeof text))
            return "Unknown MCI error " + std::to_string(code) + ".";
        return text;
    }

    // The CD plays at the system's volume: the CD's mixer line is the whole system's, and a
    // program that moved it would leave it moved for every other program.
};

} // namespace

std::unique_ptr<MediaControl> CreatePlatformMediaControl(Clock&, CdAudioOutput*)
{
    return std::make_unique<WinmmMediaControl>();
}

} // namespace vellumar
