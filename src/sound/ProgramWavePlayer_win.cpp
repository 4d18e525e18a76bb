#include "sound/ProgramWavePlayer.h"
#include "sound/SystemWavePlayer_win.h"

namespace vellumar {

std::unique_ptr<WavePlayer> CreateProgramWavePlayer()
{
    return std::make_unique<SystemWavePlayer>();
}

} // namespace vellumar
