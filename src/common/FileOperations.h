#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vellumar {

// File attribute bits as the system numbers them.
namespace FileAttribute {
inline constexpr std::uint32_t ReadOnly = 1;
inline constexpr std::uint32_t Hidden = 2;
inline constexpr std::uint32_t System = 4;
inline constexpr std::uint32_t Directory = 16;
inline constexpr std::uint32_t Archive = 32;
inline constexpr std::uint32_t Normal = 128;
} // namespace FileAttribute

struct DirectoryEntry {
    std::string name; // bare name, as stored on disk
    bool isDirectory = false;
};

// What a path names, a symbolic link taken as what it points to.
enum class PathKind {
    Missing,
    File, // a regular file
    Folder,
    DanglingLink, // a link whose target does not exist
    Other,        // a named pipe, a device, a socket: nothing to read or replace
};

// Nanoseconds since the Unix epoch; precise enough to notice any edit of a file.
using FileTime = std::int64_t;

// What tells, without reading it, that a file has not changed.
struct FileStamp {
    std::uint64_t size = 0;
    FileTime time = 0;
};

// Called for each entry of a search; return false to stop the search.
using EntryVisitor = std::function<bool(const DirectoryEntry&)>;

// The file system as core sees it. Paths may use "\" or the native separator; on platforms
// whose file names are case sensitive every path component that does not exist as spelled
// resolves to the entry that differs from it only in letter case, as Windows would find it.
class FileOperations {
public:
    virtual ~FileOperations() = default;

    // Searches the folder of `pattern` for entries whose names match its last component, a
    // wildcard pattern with "*" and "?" matched without regard to case ("*.*" matches every
    // name). Entries come in the platform's listing order; like Windows, a folder's search
    // includes "." and "..". Returns false when the folder cannot be searched.
    virtual bool search(const std::string& pattern, const EntryVisitor& visit) = 0;

    // What the path names; a link counts as its target.
    virtual PathKind kindOf(const std::string& path) = 0;
    // The file a symbolic link (or a chain of them) ends at; any other path, and a dangling
    // link whose target the system does not tell, comes back as `resolve` gives it.
    virtual std::string finalPath(const std::string& path) = 0;

    // FileAttribute bits of an existing file or folder; nothing when it does not exist.
    virtual std::optional<std::uint32_t> attributes(const std::string& path) = 0;
    // Only the read-only bit is honoured where the platform has no other attributes.
    virtual bool setAttributes(const std::string& path, std::uint32_t attributes) = 0;
    virtual std::optional<FileTime> modificationTime(const std::string& path) = 0;
    // The size in bytes of an existing file; nothing when it does not exist.
    virtual std::optional<std::uint64_t> fileSize(const std::string& path) = 0;
    // The size and the modification time of an existing file (not a folder) in one look;
    // nothing when there is no such file.
    virtual std::optional<FileStamp> fileStamp(const std::string& path)
    {
        const std::optional<std::uint64_t> size = fileSize(path);
        const std::optional<FileTime> time = size ? modificationTime(path) : std::nullopt;
        return time ? std::optional<FileStamp>(FileStamp{*size, *time}) : std::nullopt;
    }

    // Copies a file; fails when the target exists, as copies never overwrite.
    virtual bool copyFile(const std::string& source, const std::string& target) = 0;
    // The same, for a target whose name the program made unique (a temporary name beside the
    // file it stands in for): only its folder is looked up, and the name is taken as spelled,
    // since no other file can carry it in another letter case.
    virtual bool copyFileToUniqueName(const std::string& source, const std::string& target) = 0;
    // Renames a file or folder; fails when the target exists.
    virtual bool moveFile(const std::string& source, const std::string& target) = 0;
    // Renames `source` over `target` in one step, so that `target` is never missing: it holds
    // either its old or its new content. A read-only target is refused, and so is a target
    // beside a read-only file of the same name in another letter case, which the rename would
    // otherwise have to delete. A target that is a link is replaced, not written through.
    virtual bool renameOver(const std::string& source, const std::string& target) = 0;
    // Deletes a file; a read-only file is refused, also for a privileged user.
    virtual bool deleteFile(const std::string& path) = 0;
    // Deletes a folder with everything in it; fails on the first entry that cannot go.
    virtual bool deleteTree(const std::string& path) = 0;
    // Creates every missing folder along the path.
    virtual bool createFolders(const std::string& path) = 0;

    // The bytes of a regular file; nothing for anything else (a named pipe would never end).
    virtual std::optional<std::string> readFile(const std::string& path) = 0;
    // The same, with the file's size and time as they were when it was opened, before anything
    // was read: a write during the reading leaves a newer time than the one given.
    virtual std::optional<std::string> readFileAndStamp(const std::string& path, FileStamp& stamp)
    {
        const std::optional<FileStamp> before = fileStamp(path);
        if (!before)
            return std::nullopt;
        std::optional<std::string> bytes = readFile(path);
        if (bytes)
            stamp = *before;
        return bytes;
    }
    // Replaces (or creates) a file with the given bytes so that a reader sees either the old
    // or the new content, never a mixture: a temporary file in the same folder is written,
    // flushed and renamed over the original. A read-only original is refused, and so is
    // anything but a regular file. A symbolic link is followed: its target, in the target's
    // folder, is what gets replaced, so the link keeps working; a dangling link is refused.
    virtual bool replaceFile(const std::string& path, const std::string& contents) = 0;

    // Why the last change these operations refused was refused, when they refused it for a
    // reason of their own rather than the system's (a guard that could not first keep what the
    // change would overwrite); "" otherwise.
    virtual std::string refusalReason() const { return {}; }

    // The path as the system finds it, with native separators. Where names are case sensitive
    // each component takes the letter case of the entry found; where the system ignores case
    // the spelling may stay as given. Components that do not exist are kept as given. As on
    // Windows, ".." takes away the name before it as text (also when that name is a link), and
    // a name's trailing dots and blanks do not count.
    virtual std::string resolve(const std::string& path) = 0;
};

// The file operations of the platform this program runs on.
std::unique_ptr<FileOperations> CreatePlatformFileOperations();

} // namespace vellumar
