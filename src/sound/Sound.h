#pragma once

#include <string>

namespace vellumar {

struct Services;
struct SoundSettings;

// Where the program's sounds come from: the checked settings, and the folders the message
// sounds are looked for in.
struct SoundSources {
    const SoundSettings& settings;
    std::string dataFolder;  // its Sound tree may hold a thunder clap
    std::string fsPath;      // the simulator's folder: sound\thunder\xthun4c.wav
    std::string windowsPath; // stands in for %SystemRoot% in the event sounds of the registry
};

// The button sound; false (nothing played) when it is off, or its file is gone.
bool PlayButtonSound(Services& services, const SoundSources& sources);

// The AutoRandom sound, or the system's beep when there is none to play.
void PlayAutoRandomSound(Services& services, const SoundSources& sources);

// The sound of a message box of `style`: the button sound when there is one; else the
// system's event sound for the message's icon, and for a message with the critical bit (the
// stop sign, and the exclamation mark, which shares it) a thunder clap.
void PlayMessageSound(Services& services, const SoundSources& sources, int style);

// The registry key of the system's event sound for a message style's icon, under HKEY_USERS.
std::string EventSoundKey(int style);

} // namespace vellumar
