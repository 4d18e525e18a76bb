#pragma once

#include <string>

namespace vellumar {

// The system's simple sound service: plays a wave file without waiting for it, a new sound
// cutting off the one playing, and sounds the system's beep.
class WavePlayer {
public:
    virtual ~WavePlayer() = default;

    virtual void playAsync(const std::string& path) = 0;
    virtual void beep() = 0;
};

} // namespace vellumar
