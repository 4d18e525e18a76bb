#pragma once

#include "common/WavePlayer.h"

#include <string>
#include <vector>

namespace vellumar::test {

// Records what would have been heard: each file played, and "beep" for the system's beep.
class RecordingWavePlayer final : public WavePlayer {
public:
    void playAsync(const std::string& path) override { heard.push_back(path); }
    void beep() override { heard.emplace_back("beep"); }

    std::vector<std::string> heard;
};

} // namespace vellumar::test
