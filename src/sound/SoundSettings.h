#pragma once

#include <array>
#include <string>

namespace vellumar {

class CloudIniFile;
class FileOperations;
class MessageService;
class Registry;

// Which wave file a sound of the program plays; "" means the system beep instead.
struct SoundSettings {
    std::string ButtonSoundPath;
    std::string AutoRandomSoundPath;
    // The message box's sound for each icon where the system names none, in MessageIcon's
    // order from Critical on; "" where the file is not there.
    std::array<std::string, 4> MessageSoundPaths;
};

// Reads and checks the [ButtonSound] and [AutoRandomSound] settings. A file that cannot be
// played switches its sound to the system beep; the user is told when `reportProblems` (the
// path check) is on. The button sound is checked unless switched "off"; the AutoRandom sound
// only when switched "on".
// A file named without a folder, or with a relative one, lies under the data folder.
// The message sounds are never reported: an absent key means the program's own sound in
// `sharedDataFolder`'s "sounds", and a file that is not there means none.
SoundSettings ValidateSoundSettings(const CloudIniFile& ini, FileOperations& files,
                                    MessageService& messages, Registry& registry,
                                    const std::string& dataFolder,
                                    const std::string& sharedDataFolder, bool reportProblems);

} // namespace vellumar
