#include "common/PathText.h"

#include "common/MessageService.h"
#include "common/TextCompare.h"

namespace vellumar {

bool IsPathSeparator(char c)
{
    // Windows accepts "/" as well, so both are separators everywhere.
    return c == '\\' || c == '/';
}

static std::size_t LastSeparator(std::string_view path)
{
    return path.find_last_of("\\/");
}

std::string ToNativeSeparators(std::string_view path)
{
    std::string native(path);
    for (char& c : native)
        if (IsPathSeparator(c))
            c = kNativeSeparator;
    return native;
}

std::string JoinPath(std::string_view folder, std::string_view name)
{
    std::string joined;
    joined.reserve(folder.size() + 1 + name.size());
    joined.append(folder);
    joined.push_back(kNativeSeparator);
    joined.append(name);
    return joined;
}

std::string& TrimTrailingBackslash(std::string& path)
{
    std::size_t end = path.size();
    while (end > 0 && IsPathSeparator(path[end - 1]))
        --end;
#ifndef _WIN32
    if (end == 0 && !path.empty())
        end = 1; // "/" is the root folder, not an empty path
#endif
    path.resize(end);
    path = std::string(TrimSpaces(path));
    return path;
}

std::string TrimTrailingBackslash(std::string_view path)
{
    std::string trimmed(path);
    TrimTrailingBackslash(trimmed);
    return trimmed;
}

std::string FolderOfPath(std::string_view path)
{
    const std::size_t last = LastSeparator(path);
    if (last == std::string_view::npos)
        return std::string(path);
    return std::string(path.substr(0, last));
}

std::string TextAfterLast(std::string_view text, char separator)
{
    const std::size_t last = text.rfind(separator);
    if (last == std::string_view::npos)
        return std::string(text);
    if (last == 0)
        return {};
    return std::string(TrimSpaces(text.substr(last + 1)));
}

std::string FileNameOfPath(std::string_view path, MessageService& messages)
{
    const std::size_t last = LastSeparator(path);
    if (last == std::string_view::npos)
        return std::string(path);
    if (last + 1 == path.size())
        messages.ShowSystemMessage(std::string(kTrailingSeparatorReport), MessageStyle::OKOnly,
                                   std::string());
    if (last == 0)
        return {};
    return std::string(TrimSpaces(path.substr(last + 1)));
}

std::string LastPathComponent(std::string_view path)
{
    const std::string trimmed = TrimTrailingBackslash(path);
    const std::size_t last = LastSeparator(trimmed);
    return last == std::string::npos ? trimmed : trimmed.substr(last + 1);
}

std::string CutAtNul(std::string_view text)
{
    const std::size_t nul = text.find('\0');
    return std::string(TrimSpaces(nul == std::string_view::npos ? text : text.substr(0, nul)));
}

} // namespace vellumar
