#include "sound/MusicOrder.h"

#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/ResultText.h"

#include <iterator>

namespace vellumar {

std::string MusicAddFolder(FileOperations& files, const MusicOrder& order,
                           const std::string& channelFolder)
{
    for (const std::string* folder : {&order.lastMusicPath, &channelFolder})
        if (!folder->empty() && IsOK(FolderExists(files, *folder)))
            return *folder;
    return {};
}

TextList FilesOfDialogAnswer(std::string_view answer)
{
    TextList files;
    if (answer.empty())
        return files;
    const std::size_t first = answer.find('\0');
    if (first == std::string_view::npos) {
        files.emplace_back(answer);
        return files;
    }
    const std::string_view folder = answer.substr(0, first);
    std::string_view names = answer.substr(first + 1);
    while (!names.empty()) {
        const std::size_t end = names.find('\0');
        if (end != 0)
            files.push_back(JoinPath(folder, names.substr(0, end)));
        names.remove_prefix(end == std::string_view::npos ? names.size() : end + 1);
    }
    return files;
}

void AddMusicFiles(MusicOrder& order, const TextList& chosen)
{
    if (chosen.empty())
        return;
    order.files.insert(order.files.end(), chosen.begin(), chosen.end());
    order.lastMusicPath = FolderOfPath(chosen.front());
}

bool RemoveMusicFile(MusicOrder& order, std::size_t row)
{
    if (row >= order.files.size())
        return false;
    order.files.erase(std::next(order.files.begin(), static_cast<std::ptrdiff_t>(row)));
    return true;
}

bool MoveMusicFile(MusicOrder& order, std::size_t from, std::size_t to)
{
    if (from >= order.files.size() || to >= order.files.size() || from == to)
        return false;
    std::string moved = std::move(order.files[from]);
    order.files.erase(std::next(order.files.begin(), static_cast<std::ptrdiff_t>(from)));
    order.files.insert(std::next(order.files.begin(), static_cast<std::ptrdiff_t>(to)),
                       std::move(moved));
    return true;
}

} // namespace vellumar
