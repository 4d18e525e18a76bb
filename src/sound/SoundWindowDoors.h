#pragma once

#include "sound/CdAudioOutput.h"
#include "sound/MediaControl.h"
#include "sound/MediaPlayer.h"

#include <array>
#include <memory>

namespace vellumar {

// What the sound window plays through: the CD's media control interface (with the output that
// lets the CD be heard, where the program feeds it itself) and one player per channel. The
// members go in reverse order, so the CD's interface goes before the output it feeds.
struct SoundWindowDoors {
    std::unique_ptr<CdAudioOutput> cdOutput; // none where the system plays the CD itself
    std::unique_ptr<MediaControl> cd;
    std::array<std::unique_ptr<MediaPlayer>, 3> players;
};

} // namespace vellumar
