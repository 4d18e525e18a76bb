#include "sound/Sound.h"

#include "common/EventPump.h"
#include "common/FileHelpers.h"
#include "common/MessageLayout.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/Services.h"
#include "common/WavePlayer.h"
#include "config/clsRegRead.h"
#include "sound/SoundSettings.h"
#include "sound/clsPlaySound.h"

namespace vellumar {

namespace {

constexpr std::string_view kThunderClap = "xthun4c.wav";

bool Play(Services& services, const std::string& path)
{
    clsPlaySound sound;
    sound.FileName = path;
    sound.Play(services.files, services.sounds);
    return !sound.ErrorFlag;
}

// The system's sound for the message's icon; where the system names none, the program's own.
std::string EventSound(Services& services, const SoundSources& sources, int style)
{
    clsRegRead reader(services.registry, sources.windowsPath);
    reader.RootHive = RegistryHive::Users;
    reader.KeyPath = ".DEFAULT\\AppEvents\\Schemes\\Apps\\.Default";
    reader.SubKey = EventSoundKey(style);
    reader.ValueName = "";
    reader.AsHostPath = true;
    std::string sound = reader.RegData();
    const MessageIcon icon = IconOf(style);
    if (sound.empty() && icon != MessageIcon::None)
        sound = sources.settings.MessageSoundPaths[static_cast<std::size_t>(icon) - 1];
    return sound;
}

} // namespace

std::string EventSoundKey(int style)
{
    switch (IconOf(style)) {
    case MessageIcon::Exclamation:
        return "SystemExclamation\\.Current";
    case MessageIcon::Question:
        return "SystemQuestion\\.Current";
    case MessageIcon::Critical:
        return "SystemHand\\.Current";
    case MessageIcon::Information:
        return "SystemAsterisk\\.Current";
    case MessageIcon::None:
        break;
    }
    return {};
}

bool PlayButtonSound(Services& services, const SoundSources& sources)
{
    if (sources.settings.ButtonSoundPath.empty())
        return false;
    const bool played = Play(services, sources.settings.ButtonSoundPath);
    services.events.DoEvents();
    return played;
}

void PlayAutoRandomSound(Services& services, const SoundSources& sources)
{
    if (sources.settings.AutoRandomSoundPath.empty() ||
        !Play(services, sources.settings.AutoRandomSoundPath))
        services.sounds.beep();
}

void PlayMessageSound(Services& services, const SoundSources& sources, int style)
{
    if (PlayButtonSound(services, sources))
        return;
    const std::string eventSound = EventSound(services, sources, style);
    // The critical bit decides, and the exclamation mark carries it too: its messages thunder
    // as well, as they always have.
    if (!(style & MessageStyle::Critical)) {
        Play(services, eventSound);
        return;
    }
    // A critical message gets a thunder clap: the library's own first, then the simulator's.
    bool found = false;
    std::string folder;
    FindFileInTree(services.files, services.events, JoinPath(sources.dataFolder, "Sound"),
                   kThunderClap, found, &folder);
    if (found) {
        Play(services, JoinPath(folder, kThunderClap));
        return;
    }
    const std::string simulators =
        JoinPath(JoinPath(JoinPath(sources.fsPath, "sound"), "thunder"), kThunderClap);
    Play(services, IsOK(FileExists(services.files, simulators)) ? simulators : eventSound);
}

} // namespace vellumar
