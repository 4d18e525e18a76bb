#include "sound/ProgramWavePlayer.h"
#include "sound/WavePlayer_qt.h"

namespace vellumar {

std::unique_ptr<WavePlayer> CreateProgramWavePlayer()
{
    return std::make_unique<QtWavePlayer>();
}

} // namespace vellumar
