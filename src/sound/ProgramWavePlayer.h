#pragma once

#include "common/WavePlayer.h"

#include <memory>

namespace vellumar {

// The sound service of the program with windows: the system's own on Windows, Qt's media
// player elsewhere.
std::unique_ptr<WavePlayer> CreateProgramWavePlayer();

} // namespace vellumar
