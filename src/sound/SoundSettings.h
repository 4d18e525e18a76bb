#pragma once

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
};

// Reads and checks the [ButtonSound] and [AutoRandomSound] settings. A file that cannot be
// played switches its sound to the system beep; the user is told when `reportProblems` (the
// path check) is on. The button sound is checked unless switched "off"; the AutoRandom sound
// only when switched "on".
// A file named without a folder, or with a relative one, lies under the data folder.
SoundSettings ValidateSoundSettings(const CloudIniFile& ini, FileOperations& files,
                                    MessageService& messages, Registry& registry,
                                    const std::string& dataFolder, bool reportProblems);

} // namespace vellumar
