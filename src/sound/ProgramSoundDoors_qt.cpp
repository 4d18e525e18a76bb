#include "sound/CdAudioOutput_qt.h"
#include "sound/CreatePlatformMediaControl.h"
#include "sound/MediaPlayer_qt.h"
#include "sound/ProgramSoundDoors.h"

namespace vellumar {

SoundWindowDoors CreateProgramSoundDoors(Clock& clock)
{
    SoundWindowDoors doors;
    // Windows plays the CD itself and leaves the output unused.
    doors.cdOutput = std::make_unique<QtCdAudioOutput>();
    doors.cd = CreatePlatformMediaControl(clock, doors.cdOutput.get());
    for (std::unique_ptr<MediaPlayer>& player : doors.players)
        player = std::make_unique<QtMediaPlayer>();
    return doors;
}

} // namespace vellumar
