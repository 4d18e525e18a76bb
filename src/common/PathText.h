#pragma once

#include <string>
#include <string_view>

namespace vellumar {

class MessageService;

// Separator used for paths this program builds itself. "\" in a path read from a file or the
// registry is a separator on every platform; on Linux so is "/".
#ifdef _WIN32
inline constexpr char kNativeSeparator = '\\';
#else
inline constexpr char kNativeSeparator = '/';
#endif

bool IsPathSeparator(char c);

// The path with every separator ("\" or "/") made the native one.
std::string ToNativeSeparators(std::string_view path);

// folder + separator + name.
std::string JoinPath(std::string_view folder, std::string_view name);

// Removes every trailing separator, then the blanks around the path; returns the same text.
// A path made only of separators keeps one on Linux, where "/" is the root folder.
std::string& TrimTrailingBackslash(std::string& path);
std::string TrimTrailingBackslash(std::string_view path);

// The text before the last separator; the path itself when it has none; "" when its only
// separator is its first character.
std::string FolderOfPath(std::string_view path);

// The text after the last `separator`, trimmed; the whole text when it does not occur; "" when
// its last occurrence is the first character (callers rely on this asymmetry).
std::string TextAfterLast(std::string_view text, char separator);

// The file name of a path. A path ending in a separator is reported to the user with the plain
// system message box and gives "".
std::string FileNameOfPath(std::string_view path, MessageService& messages);

// The last component of a path, trailing separators ignored: "Texture" for "C:\x\Texture\".
std::string LastPathComponent(std::string_view path);

// The text before the first NUL, trimmed.
std::string CutAtNul(std::string_view text);

// The text of the report that FileNameOfPath shows.
inline constexpr std::string_view kTrailingSeparatorReport =
    "ファイル名とりこみでパス名の最後に￥がありました。";

} // namespace vellumar
