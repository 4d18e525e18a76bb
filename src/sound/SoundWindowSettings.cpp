#include "sound/SoundWindowSettings.h"

#include "common/PathText.h"
#include "config/CloudIniFile.h"

#include <string_view>

namespace vellumar {

namespace keys = CloudIniKeys;

namespace {

void WriteNumber(CloudIniFile& ini, const IniKey& key, int number, int value)
{
    if (ReadIniNumber(ini, key, number) == value)
        return;
    ini.Write(std::string(key.section), IniName(key.key, number), std::to_string(value));
}

// An empty path deletes the key.
void WritePath(CloudIniFile& ini, const IniKey& key, int number, const std::string& path,
               const IniFolders& folders, Registry& registry)
{
    const std::optional<std::string> written = ReadIniText(ini, key, number);
    if (written && ToNativeSeparators(IniPathOf(key, *written, folders, registry, number)) ==
                       ToNativeSeparators(path))
        return;
    if (!written && path.empty())
        return;
    ini.Write(std::string(key.section), IniName(key.key, number), path);
}

} // namespace

void WriteSoundWindowSettings(CloudIniFile& ini, const SoundWindowSettings& settings,
                              const IniFolders& folders, Registry& registry)
{
    for (std::size_t i = 0; i < settings.intervals.size(); ++i)
        WriteNumber(ini, keys::SoundIntvl, static_cast<int>(i) + 1, settings.intervals[i]);
    for (std::size_t i = 0; i < settings.volumes.size(); ++i)
        WriteNumber(ini, keys::SoundVol, static_cast<int>(i) + 1, settings.volumes[i]);
    WritePath(ini, keys::LastMusicPath, 0, settings.lastMusicPath, folders, registry);

    const int count = static_cast<int>(settings.musicFiles.size());
    for (int number = 1; number <= count; ++number)
        WritePath(ini, keys::MusicFile, number,
                  settings.musicFiles[static_cast<std::size_t>(number - 1)], folders, registry);
    // Every MusicFile key past the end goes, also one beyond a gap, which a later, longer list
    // would otherwise join up with.
    const std::string section(keys::MusicFile.section);
    const std::string names = ini.ReadRaw(section, "");
    std::string_view rest = names;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\0');
        const std::string name(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        const std::optional<int> number = MatchIniName(keys::MusicFile.key, name, 0);
        if (number && *number > count)
            ini.Write(section, name, "");
    }
}

} // namespace vellumar
