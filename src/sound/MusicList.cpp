#include "sound/MusicList.h"

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "config/CodePage.h"
#include "config/ConfiguredPath.h"

namespace vellumar {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsPlayableFile(FileOperations& files, const std::string& path)
{
    return files.kindOf(path) == PathKind::File;
}

} // namespace

bool IsPlaylistName(std::string_view name)
{
    return EndsWithIgnoreCase(name, ".m3u") || EndsWithIgnoreCase(name, ".m3u8");
}

TextList ReadPlaylist(FileOperations& files, Registry& registry, const std::string& playlist)
{
    const std::optional<std::string> contents = files.readFile(playlist);
    if (!contents)
        return {};
    std::string_view text = *contents;
    if (text.starts_with(kUtf8Mark))
        text.remove_prefix(kUtf8Mark.size());
    const std::string folder = FolderOfPath(playlist);
    TextList entries;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        const std::string_view line = TrimBlanks(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        // A stream's address is no file of this machine.
        if (line.empty() || line.front() == '#' || line.find("://") != std::string_view::npos)
            continue;
        entries.push_back(ConfiguredPath(DecodeAnsiText(line), folder, registry));
    }
    return entries;
}

TextList ExpandMusicList(FileOperations& files, Registry& registry, const TextList& musicFiles)
{
    TextList playable;
    for (const std::string& entry : musicFiles) {
        if (!IsPlaylistName(entry)) {
            if (IsPlayableFile(files, entry))
                playable.push_back(files.resolve(entry));
            continue;
        }
        for (const std::string& path : ReadPlaylist(files, registry, entry))
            if (!IsPlaylistName(path) && IsPlayableFile(files, path))
                playable.push_back(files.resolve(path));
    }
    return playable;
}

} // namespace vellumar
