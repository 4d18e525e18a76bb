#include "sound/SoundFiles.h"

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "sound/MediaPlayer.h"

#include <algorithm>

namespace vellumar {

bool IsSoundFileName(std::string_view name)
{
    for (std::string_view extension : {".wav", ".mp3", ".mid", ".midi"})
        if (name.size() > extension.size() && EndsWithIgnoreCase(name, extension))
            return true;
    return false;
}

TextList ListSoundFiles(FileOperations& files, const std::string& folder)
{
    if (folder.empty())
        return {};
    const std::string base = TrimTrailingBackslash(std::string_view(folder));
    std::vector<std::string> names;
    files.search(JoinPath(base, "*.*"), [&names](const DirectoryEntry& entry) {
        if (!entry.isDirectory && IsSoundFileName(entry.name))
            names.push_back(entry.name);
        return true;
    });
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return CompareIgnoreCase(a, b) < 0;
    });
    TextList paths;
    for (const std::string& name : names)
        paths.push_back(files.resolve(JoinPath(base, name)));
    return paths;
}

std::string WhyNotPlayed(MediaPlayer& player)
{
    std::string why = player.error();
    return why.empty() ? "it cannot be played" : why;
}

} // namespace vellumar
