#include "sound/SystemWavePlayer_win.h"

#include "common/WideText_win.h"

#include <windows.h>

#include <mmsystem.h>

namespace vellumar {

void SystemWavePlayer::playAsync(const std::string& path)
{
    // The wide form of the same call: a path with letters outside the ANSI code page plays too.
    // No default sound stands in for a file that cannot be played.
    sndPlaySoundW(ToWide(path).c_str(), SND_ASYNC | SND_NODEFAULT);
}

void SystemWavePlayer::beep()
{
    MessageBeep(MB_OK);
}

} // namespace vellumar
