#pragma once

#include "common/WavePlayer.h"

namespace vellumar {

// The system's own simple sound service: a wave file plays without waiting and cuts off the
// one playing; the beep is the system's default sound.
class SystemWavePlayer final : public WavePlayer {
public:
    void playAsync(const std::string& path) override;
    void beep() override;
};

} // namespace vellumar
