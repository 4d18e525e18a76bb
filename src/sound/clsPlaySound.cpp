#include "sound/clsPlaySound.h"

#include "common/FileHelpers.h"
#include "common/ResultText.h"
#include "common/WavePlayer.h"

namespace vellumar {

void clsPlaySound::Play(FileOperations& files, WavePlayer& player)
{
    ErrorFlag = false;
    ErrorCode = 0;
    if (FileName.empty() || IsError(FileExists(files, FileName))) {
        ErrorFlag = true;
        ErrorCode = 1;
        return;
    }
    player.playAsync(FileName);
}

} // namespace vellumar
