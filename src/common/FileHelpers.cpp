#include "common/FileHelpers.h"

#include "common/EventPump.h"
#include "common/FileOperations.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "common/WildcardMatch.h"

#include <vector>

namespace vellumar {

namespace {

// A symbolic link that points back up the tree would make a walk endless; no texture library
// or simulator folder is anywhere near this deep.
constexpr int kMaxTreeDepth = 32;

bool IsDotEntry(std::string_view name)
{
    return name == "." || name == "..";
}

// One listing of a folder: every entry, in listing order, with the event pump run per entry.
std::vector<DirectoryEntry> ListFolder(FileOperations& files, EventPump& events,
                                       const std::string& folder)
{
    std::vector<DirectoryEntry> entries;
    files.search(JoinPath(folder, "*.*"), [&](const DirectoryEntry& entry) {
        events.DoEvents();
        if (!IsDotEntry(entry.name))
            entries.push_back(entry);
        return true;
    });
    return entries;
}

void ListFilesInTreeAt(FileOperations& files, EventPump& events, const std::string& folder,
                       std::string_view pattern, TextList& list, int depth)
{
    // One listing serves both the files matching the pattern and the subfolders; the order is
    // that of two separate searches, files first.
    const std::vector<DirectoryEntry> entries = ListFolder(files, events, folder);
    const bool everything = pattern == "*.*" || pattern == "*";
    for (const DirectoryEntry& entry : entries)
        if (!entry.isDirectory && (everything || WildcardMatch(pattern, entry.name)))
            list.push_back(JoinPath(folder, entry.name));
    if (depth >= kMaxTreeDepth)
        return;
    for (const DirectoryEntry& entry : entries)
        if (entry.isDirectory)
            ListFilesInTreeAt(files, events, JoinPath(folder, entry.name), pattern, list,
                              depth + 1);
}

void FindFileInTreeAt(FileOperations& files, EventPump& events, const std::string& folder,
                      std::string_view fileName, bool& found, std::string* foundFolder, int depth)
{
    if (found)
        return;
    if (IsOK(FileExists(files, JoinPath(folder, fileName)))) {
        found = true;
        if (foundFolder)
            *foundFolder = TrimTrailingBackslash(folder);
        return;
    }
    if (depth >= kMaxTreeDepth)
        return;
    for (const DirectoryEntry& entry : ListFolder(files, events, folder)) {
        if (!entry.isDirectory)
            continue;
        FindFileInTreeAt(files, events, JoinPath(folder, entry.name), fileName, found, foundFolder,
                         depth + 1);
        if (found)
            return;
    }
}

} // namespace

std::string FileExists(FileOperations& files, std::string_view pathOrPattern)
{
    if (pathOrPattern.empty() || IsPathSeparator(pathOrPattern.back()))
        return ResultText(false);
    bool any = false;
    files.search(std::string(pathOrPattern), [&any](const DirectoryEntry&) {
        any = true;
        return false; // the first match answers the question
    });
    return ResultText(any);
}

std::string FolderExists(FileOperations& files, std::string_view path)
{
    const std::string_view trimmed = TrimSpaces(path);
    if (trimmed.empty())
        return ResultText(false);
    const auto attributes = files.attributes(std::string(trimmed));
    return ResultText(attributes && (*attributes & FileAttribute::Directory));
}

std::string MakeFolderPath(FileOperations& files, std::string_view folder)
{
    std::string path = TrimTrailingBackslash(folder);
    if (path.empty())
        return ResultText(false);
    return ResultText(files.createFolders(path));
}

void ListFiles(FileOperations& files, EventPump& events, std::string_view folder,
               std::string_view pattern, TextList& list)
{
    const std::string base = TrimTrailingBackslash(folder);
    files.search(JoinPath(base, pattern), [&](const DirectoryEntry& entry) {
        events.DoEvents();
        if (!entry.isDirectory)
            list.push_back(JoinPath(base, entry.name));
        return true;
    });
}

void ListFilesInTree(FileOperations& files, EventPump& events, std::string_view folder,
                     std::string_view pattern, TextList& list)
{
    ListFilesInTreeAt(files, events, TrimTrailingBackslash(folder), pattern, list, 0);
}

void ListSubfolders(FileOperations& files, EventPump& events, std::string_view folder,
                    TextList& list)
{
    for (const DirectoryEntry& entry : ListFolder(files, events, TrimTrailingBackslash(folder)))
        if (entry.isDirectory)
            list.push_back(entry.name);
}

void FindFileInTree(FileOperations& files, EventPump& events, std::string_view startFolder,
                    std::string_view fileName, bool& found, std::string* foundFolder)
{
    if (found)
        return;
    FindFileInTreeAt(files, events, TrimTrailingBackslash(startFolder), fileName, found,
                     foundFolder, 0);
}

std::string WhyNotAPlainFile(FileOperations& files, const std::string& path)
{
    switch (files.kindOf(path)) {
    case PathKind::File:
    case PathKind::Missing:
        return {};
    case PathKind::DanglingLink:
        return " is a link to a file that does not exist.";
    case PathKind::Folder:
        return " is a folder, not a file.";
    case PathKind::Other:
        break;
    }
    return " is not a plain file (a named pipe, a device or a socket), so it cannot be read.";
}

} // namespace vellumar
