#pragma once

#include "sound/SoundWindowDoors.h"

namespace vellumar {

class Clock;

// The sound window's doors in the program: the system's CD with a sound output of its own
// where it needs one, and Qt's media players for the channels.
SoundWindowDoors CreateProgramSoundDoors(Clock& clock);

} // namespace vellumar
