#pragma once

#include "sound/MediaControl.h"

#include <memory>

namespace vellumar {

class CdAudioOutput;
class Clock;

// The media control interface of this system: Windows' own, or elsewhere the interpreter over
// libcdio, which plays the disc on `clock` and feeds `output` (none: the disc plays unheard, as
// for the command-line tool); `output` must outlive what is returned. Windows plays the CD itself
// and uses neither.
std::unique_ptr<MediaControl> CreatePlatformMediaControl(Clock& clock,
                                                         CdAudioOutput* output = nullptr);

} // namespace vellumar
