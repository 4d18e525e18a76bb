#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace vellumar {

// Where the digital audio of a playing CD goes: a sound device taking 44100 Hz, 16-bit stereo
// samples (the bytes of the disc's sectors as they are). The media control interpreter decides
// what plays and when; the output only asks for more samples as it needs them.
class CdAudioOutput {
public:
    // Fills up to `size` bytes at `into` with the next samples; returns how many it filled,
    // 0 at the end of what is to be played.
    using Source = std::function<std::size_t(std::uint8_t* into, std::size_t size)>;

    virtual ~CdAudioOutput() = default;

    // Starts playing from `source`, dropping whatever played before. False when the sound
    // device cannot be opened; problem() says why.
    virtual bool Start(Source source) = 0;
    virtual void Pause() = 0;
    virtual void Resume() = 0;
    // Stops and lets go of the source.
    virtual void Stop() = 0;
    // 0 to 100.
    virtual void SetVolume(int percent) = 0;
    // Why nothing can be heard, in one line; "" when the output works (or has not been tried).
    virtual std::string problem() const = 0;
};

} // namespace vellumar
