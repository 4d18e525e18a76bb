#pragma once

#include "app/StartUpSequence.h"
#include "sound/Sound.h"

namespace vellumar {

// The program's sounds as the start-up found them.
inline SoundSources SoundSourcesOf(const ProgramState& state)
{
    return {state.checks.Sounds, state.paths.DataFolder, state.paths.FsPath,
            state.paths.WindowsPath};
}

} // namespace vellumar
