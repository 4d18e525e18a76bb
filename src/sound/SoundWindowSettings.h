#pragma once

#include "common/TextList.h"
#include "config/CloudIniSchema.h"

#include <array>
#include <string>

namespace vellumar {

class CloudIniFile;
class Registry;

// What the sound window changes in [Sound]: the pauses of channels 1 and 2, the three volumes,
// the folder the music window last chose from, and the music list.
struct SoundWindowSettings {
    std::array<int, CloudIniKeys::SoundIntvl.last> intervals{};
    std::array<int, CloudIniKeys::SoundVol.last> volumes{};
    std::string lastMusicPath;
    TextList musicFiles;
};

// Writes the settings back into [Sound] when the sound window closes, key by key with the
// program's lossless writer, which takes the file's new time stamp as the program's own. A key
// that already says the same (a number as written, a path as cloud.ini names it, drive letter
// or relative) is left as it is. MusicFile keys numbered past the new list's end are deleted:
// the list is read up to its first gap, and a leftover key would bring a removed piece back.
// The caller checks first that nobody else has changed cloud.ini during the run.
void WriteSoundWindowSettings(CloudIniFile& ini, const SoundWindowSettings& settings,
                              const IniFolders& folders, Registry& registry);

} // namespace vellumar
