// File operations on Linux, behaving as Windows (and Wine) do for the simulator's files:
// "\" separates path components, names are found without regard to letter case, a file whose
// owner may not write it is read-only even for root, and copies keep the source's time stamp.

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ReplaceFile.h"
#include "common/TextCompare.h"
#include "common/WildcardMatch.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_map>
#include <vector>

namespace vellumar {

namespace {

// A name as Windows reads it: trailing dots and blanks are dropped ("Summer haze." finds
// "Summer haze").
std::string_view WithoutTrailingDotsAndBlanks(std::string_view name)
{
    while (!name.empty() && (name.back() == '.' || name.back() == ' '))
        name.remove_suffix(1);
    return name;
}

// True when taking the path apart and putting it together would give it back unchanged: "/"
// separators only, no empty, "." or ".." names, and no name ending in a dot or a blank. Most
// paths are so, and a check costs far less than the rebuild.
bool IsAlreadyNative(std::string_view path)
{
    std::size_t start = 0;
    if (!path.empty() && path.front() == '/')
        start = 1;
    if (start == path.size())
        return true; // "" or "/"
    while (start <= path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view name = path.substr(start, end - start);
        if (name.empty() || name.back() == '.' || name.back() == ' ' ||
            name.find('\\') != std::string_view::npos)
            return false;
        start = end + 1;
    }
    return true;
}

// The path with "/" separators, taken apart and put together as Windows does it before it
// looks at the disk: "." goes, ".." takes away the name before it (as text, so a link is not
// followed back out of), and each name drops its trailing dots and blanks.
std::string NativeSeparators(std::string_view path)
{
    if (IsAlreadyNative(path))
        return std::string(path);
    const bool absolute = !path.empty() && (path.front() == '/' || path.front() == '\\');
    std::vector<std::string_view> names;
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find_first_of("/\\", start);
        if (end == std::string_view::npos)
            end = path.size();
        const std::string_view name = path.substr(start, end - start);
        start = end + 1;
        if (name.empty() || name == ".")
            continue;
        if (name == "..") {
            if (!names.empty() && names.back() != "..")
                names.pop_back();
            else if (!absolute)
                names.push_back(name); // above where a relative path starts: kept
            continue;
        }
        // A name of dots or blanks alone stays as it is.
        const std::string_view trimmed = WithoutTrailingDotsAndBlanks(name);
        names.push_back(trimmed.empty() ? name : trimmed);
    }
    std::string native = absolute ? "/" : "";
    for (const std::string_view name : names) {
        if (!native.empty() && native.back() != '/')
            native.push_back('/');
        native.append(name);
    }
    if (native.empty() && !path.empty())
        native = ".";
    return native;
}

std::pair<std::string, std::string> SplitLast(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return {".", path};
    if (slash == 0)
        return {"/", path.substr(1)};
    return {path.substr(0, slash), path.substr(slash + 1)};
}

std::string Join(const std::string& folder, std::string_view name)
{
    if (folder == ".")
        return std::string(name);
    if (folder == "/")
        return "/" + std::string(name);
    std::string joined = folder;
    joined.push_back('/');
    joined.append(name);
    return joined;
}

FileTime ToFileTime(const struct timespec& ts)
{
    return static_cast<FileTime>(ts.tv_sec) * 1'000'000'000 + ts.tv_nsec;
}

FileTime Now()
{
    struct timespec ts {};
    clock_gettime(CLOCK_REALTIME, &ts);
    return ToFileTime(ts);
}

bool IsReadOnly(const struct stat& st)
{
    return (st.st_mode & S_IWUSR) == 0;
}

// Windows lists a folder in the order of its upper-cased names; Linux lists in no particular
// order, so the listing is sorted that way.
void SortAsWindowsLists(std::vector<DirectoryEntry>& entries)
{
    std::sort(entries.begin(), entries.end(), [](const DirectoryEntry& a, const DirectoryEntry& b) {
        const int order = CompareIgnoreCase(a.name, b.name);
        return order != 0 ? order < 0 : a.name < b.name;
    });
}

bool ReadFolder(const std::string& folder, std::vector<DirectoryEntry>& entries)
{
    DIR* dir = opendir(folder.c_str());
    if (!dir)
        return false;
    const int dirFd = dirfd(dir);
    while (const dirent* item = readdir(dir)) {
        const std::string_view name = item->d_name;
        if (name == "." || name == "..")
            continue;
        bool isDirectory = item->d_type == DT_DIR;
        if (item->d_type == DT_UNKNOWN || item->d_type == DT_LNK) {
            // Links count as what they point to, as a Windows junction does.
            struct stat st {};
            isDirectory = fstatat(dirFd, item->d_name, &st, 0) == 0 && S_ISDIR(st.st_mode);
        }
        entries.push_back({std::string(name), isDirectory});
    }
    closedir(dir);
    SortAsWindowsLists(entries);
    return true;
}

// Opens a regular file for reading; anything else fails at once. Opening a named pipe plainly
// would wait for a writer that may never come.
int OpenForReading(const std::string& path, struct stat& st)
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return -1;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return -1;
    }
    return fd;
}

PathKind KindOf(const struct stat& st)
{
    if (S_ISREG(st.st_mode))
        return PathKind::File;
    return S_ISDIR(st.st_mode) ? PathKind::Folder : PathKind::Other;
}

bool WriteAll(int fd, const char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

void SyncFolderOf(const std::string& path)
{
    const int fd = ::open(SplitLast(path).first.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

class PosixFileOperations final : public FileOperations {
public:
    bool search(const std::string& pattern, const EntryVisitor& visit) override
    {
        // The pattern's last name is matched as given ("*." means something of its own); only
        // the folder is read the Windows way.
        const std::size_t slash = pattern.find_last_of("/\\");
        std::string name = pattern.substr(slash == std::string::npos ? 0 : slash + 1);
        const std::string folderPart = slash == std::string::npos ? "."
                                       : slash == 0               ? "/"
                                                    : NativeSeparators(pattern.substr(0, slash));
        if (!HasWildcards(name) && name != "." && name != "..")
            name = std::string(WithoutTrailingDotsAndBlanks(name));
        if (name.empty())
            return false;
        std::string folder;
        struct stat st {};
        if (!resolveFolder(folderPart, folder, st))
            return false;

        if (!HasWildcards(name)) {
            if (name == "." || name == "..") {
                visit({name, true});
                return true;
            }
            if (const DirectoryEntry* entry = lookup(folder, st, name))
                visit(*entry);
            return true;
        }

        std::vector<DirectoryEntry> entries;
        if (!ReadFolder(folder, entries))
            return false;
        if (folder != "/") {
            for (const char* dot : {".", ".."})
                if (WildcardMatch(name, dot) && !visit({dot, true}))
                    return true;
        }
        for (const DirectoryEntry& entry : entries)
            if (WildcardMatch(name, entry.name) && !visit(entry))
                break;
        return true;
    }

    PathKind kindOf(const std::string& path) override
    {
        const std::string actual = resolve(path);
        struct stat st {};
        if (::lstat(actual.c_str(), &st) != 0)
            return PathKind::Missing;
        if (!S_ISLNK(st.st_mode))
            return KindOf(st);
        return ::stat(actual.c_str(), &st) == 0 ? KindOf(st) : PathKind::DanglingLink;
    }

    std::string finalPath(const std::string& path) override
    {
        std::string current = resolve(path);
        // A chain longer than the system itself follows is a loop.
        for (int link = 0; link < 40; ++link) {
            struct stat st {};
            if (::lstat(current.c_str(), &st) != 0 || !S_ISLNK(st.st_mode))
                return current;
            std::string target(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 4096), '\0');
            const ssize_t length = ::readlink(current.c_str(), target.data(), target.size());
            if (length <= 0)
                return current;
            target.resize(static_cast<std::size_t>(length));
            // A relative target is relative to the link's folder; the system reads its ".."
            // on the disk, and so does this.
            current = target.front() == '/' ? target : Join(SplitLast(current).first, target);
        }
        return current;
    }

    std::optional<std::uint32_t> attributes(const std::string& path) override
    {
        struct stat st {};
        if (::stat(resolve(path).c_str(), &st) != 0)
            return std::nullopt;
        if (S_ISDIR(st.st_mode))
            return FileAttribute::Directory;
        return FileAttribute::Archive | (IsReadOnly(st) ? FileAttribute::ReadOnly : 0u);
    }

    bool setAttributes(const std::string& path, std::uint32_t attributes) override
    {
        const std::string actual = resolve(path);
        struct stat st {};
        if (::stat(actual.c_str(), &st) != 0)
            return false;
        if (S_ISDIR(st.st_mode))
            return true; // folders carry no read-only flag worth keeping
        mode_t mode = st.st_mode & 07777;
        if (attributes & FileAttribute::ReadOnly)
            mode &= ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH);
        else
            mode |= S_IWUSR;
        return ::chmod(actual.c_str(), mode) == 0;
    }

    std::optional<FileTime> modificationTime(const std::string& path) override
    {
        struct stat st {};
        if (::stat(resolve(path).c_str(), &st) != 0)
            return std::nullopt;
        return ToFileTime(st.st_mtim);
    }

    std::optional<std::uint64_t> fileSize(const std::string& path) override
    {
        struct stat st {};
        if (::stat(resolve(path).c_str(), &st) != 0 || S_ISDIR(st.st_mode))
            return std::nullopt;
        return static_cast<std::uint64_t>(st.st_size);
    }

    std::optional<FileStamp> fileStamp(const std::string& path) override
    {
        // A path spelled as on disk and not a link (the usual case) needs one look only.
        const std::string native = NativeSeparators(path);
        struct stat st {};
        const bool spelledAsOnDisk = ::lstat(native.c_str(), &st) == 0 && !S_ISLNK(st.st_mode);
        if (!spelledAsOnDisk && ::stat(resolveNative(native).c_str(), &st) != 0)
            return std::nullopt;
        if (!S_ISREG(st.st_mode))
            return std::nullopt;
        return FileStamp{static_cast<std::uint64_t>(st.st_size), ToFileTime(st.st_mtim)};
    }

    bool copyFile(const std::string& source, const std::string& target) override
    {
        return copyResolved(resolve(source), resolve(target));
    }

    bool copyFileToUniqueName(const std::string& source, const std::string& target) override
    {
        // Looking the name up would list its folder, again after every file of an install
        // when the folder changed a moment ago.
        const auto [folder, name] = SplitLast(NativeSeparators(target));
        std::string resolvedFolder;
        struct stat st {};
        if (name.empty() || !resolveFolder(folder, resolvedFolder, st))
            return false;
        return copyResolved(resolve(source), Join(resolvedFolder, name));
    }

    bool moveFile(const std::string& source, const std::string& target) override
    {
        const std::string from = resolve(source);
        const std::string to = resolve(target);
        struct stat fromStat {
        }, toStat{};
        if (::lstat(from.c_str(), &fromStat) != 0)
            return false;
        if (::lstat(to.c_str(), &toStat) == 0) {
            // Only a change of letter case may "replace" the entry itself.
            if (fromStat.st_ino != toStat.st_ino || fromStat.st_dev != toStat.st_dev)
                return false;
            const std::string wanted =
                Join(SplitLast(to).first, SplitLast(NativeSeparators(target)).second);
            forgetFolderOf(to);
            return ::rename(from.c_str(), wanted.c_str()) == 0;
        }
        const RenameStamps before = renameStampsOf(from, to);
        if (::rename(from.c_str(), to.c_str()) != 0)
            return false;
        noteOwnRename(from, to, S_ISDIR(fromStat.st_mode), before);
        return true;
    }

    bool renameOver(const std::string& source, const std::string& target) override
    {
        const std::string from = resolve(source);
        const std::string to = resolve(target);
        struct stat st {};
        if (::lstat(to.c_str(), &st) == 0 && (S_ISDIR(st.st_mode) || IsReadOnly(st)))
            return false;
        const bool variants = mayHaveCaseVariants(to);
        // The variants go after the rename, and a read-only file is never deleted.
        if (variants && hasReadOnlyCaseVariant(to))
            return false;
        const RenameStamps before = renameStampsOf(from, to);
        // No flush of the folder: the rename itself is what keeps the target whole, and an
        // install renames hundreds of files.
        if (::rename(from.c_str(), to.c_str()) != 0)
            return false;
        noteOwnRename(from, to, false, before);
        // A name that differs from the target only in letter case would shadow it for Windows
        // programs; the target's own spelling is the one that stays.
        if (variants)
            removeCaseVariants(to);
        return true;
    }

    bool deleteFile(const std::string& path) override { return deleteResolved(resolve(path)); }

    bool deleteTree(const std::string& path) override { return deleteTreeResolved(resolve(path)); }

    bool createFolders(const std::string& path) override
    {
        const std::string actual = resolve(path);
        std::string partial;
        std::size_t position = 0;
        while (position <= actual.size()) {
            std::size_t slash = actual.find('/', position);
            if (slash == std::string::npos)
                slash = actual.size();
            partial = actual.substr(0, slash);
            position = slash + 1;
            if (partial.empty())
                continue; // the root
            if (::mkdir(partial.c_str(), 0777) == 0)
                forgetFolderOf(partial);
            else if (errno != EEXIST)
                return false;
        }
        struct stat st {};
        return ::stat(actual.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
    }

    std::optional<std::string> readFile(const std::string& path) override
    {
        FileStamp stamp;
        return readFileAndStamp(path, stamp);
    }

    std::optional<std::string> readFileAndStamp(const std::string& path, FileStamp& stamp) override
    {
        struct stat st {};
        const int fd = OpenForReading(resolve(path), st);
        if (fd < 0)
            return std::nullopt;
        // Read straight into the string, sized as the file was when opened; a file that grows
        // meanwhile gets more room, one that shrinks is cut where it ends.
        std::string contents(static_cast<std::size_t>(st.st_size) + 1, '\0');
        std::size_t length = 0;
        for (;;) {
            if (length == contents.size())
                contents.resize(contents.size() * 2);
            const ssize_t got = ::read(fd, contents.data() + length, contents.size() - length);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0) {
                ::close(fd);
                return std::nullopt;
            }
            if (got == 0)
                break;
            length += static_cast<std::size_t>(got);
        }
        ::close(fd);
        contents.resize(length);
        stamp = FileStamp{static_cast<std::uint64_t>(st.st_size), ToFileTime(st.st_mtim)};
        return contents;
    }

    bool replaceFile(const std::string& path, const std::string& contents) override
    {
        // A link (cloud.ini kept elsewhere, say) keeps working: its target is replaced, in the
        // target's own folder, since a rename cannot cross to another disk.
        const std::string linkOrFile = resolve(path);
        const std::string actual = finalPath(linkOrFile);
        struct stat st {};
        mode_t mode = 0666 & ~currentUmask();
        if (::lstat(actual.c_str(), &st) == 0) {
            if (!S_ISREG(st.st_mode) || IsReadOnly(st))
                return false;
            mode = st.st_mode & 07777;
        } else if (actual != linkOrFile) {
            return false; // a dangling link: making its target up is not ours to do
        }
        std::string temporary;
        int fd = -1;
        for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
            temporary = TemporarySiblingName(actual);
            fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
            if (fd < 0 && errno != EEXIST)
                return false;
        }
        if (fd < 0)
            return false;
        bool ok = WriteAll(fd, contents.data(), contents.size());
        ok = ok && ::fchmod(fd, mode) == 0;
        ok = ok && ::fsync(fd) == 0;
        ok = (::close(fd) == 0) && ok;
        ok = ok && ::rename(temporary.c_str(), actual.c_str()) == 0;
        forgetFolderOf(actual);
        if (!ok) {
            ::unlink(temporary.c_str());
            return false;
        }
        SyncFolderOf(actual);
        return true;
    }

    std::string resolve(const std::string& path) override
    {
        return resolveNative(NativeSeparators(path));
    }

private:
    // A folder's entries by lower-cased name, kept while the folder is unchanged so that a
    // name costs a lookup instead of a listing, whatever its letter case.
    struct FolderIndex {
        FileTime modified = 0;
        ino_t inode = 0;
        FileTime listedAt = 0;
        std::unordered_map<std::string, DirectoryEntry> byLowerName;
        bool hasCaseVariants = false; // some names differ only in letter case
    };

    // A folder changed within this window of its listing may have changed again without a new
    // time stamp (file system clocks tick coarsely), so such a listing is not trusted.
    static constexpr FileTime kUntrustedWindow = 100'000'000; // 0.1 s
    static constexpr std::size_t kMaxIndexedFolders = 4096;

    static mode_t currentUmask()
    {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        return mask;
    }

    // Resolves a folder path (native separators), giving its spelling on disk and its stat.
    bool resolveFolder(const std::string& path, std::string& resolved, struct stat& st)
    {
        // A spelling resolved before is looked up in its parent's listing again right away,
        // which notices as well when a folder of exactly that spelling has appeared since.
        if (const auto alias = folderAliases_.find(path); alias != folderAliases_.end()) {
            if (resolveChild(alias->second.first, alias->second.second, resolved, st))
                return true;
            folderAliases_.erase(alias);
        }
        if (::stat(path.c_str(), &st) == 0) {
            resolved = path;
            return S_ISDIR(st.st_mode);
        }
        const auto [parent, name] = SplitLast(path);
        if (parent == path || name.empty())
            return false;
        std::string resolvedParent;
        struct stat parentStat {};
        if (!resolveFolder(parent, resolvedParent, parentStat) ||
            !resolveChild(resolvedParent, name, resolved, st))
            return false;
        if (folderAliases_.size() >= kMaxIndexedFolders)
            folderAliases_.clear();
        folderAliases_.emplace(path, std::make_pair(std::move(resolvedParent), name));
        return true;
    }

    // The subfolder `name` (in any letter case) of the resolved folder `parent`.
    bool resolveChild(const std::string& parent, const std::string& name, std::string& resolved,
                      struct stat& st)
    {
        struct stat parentStat {};
        if (::stat(parent.c_str(), &parentStat) != 0)
            return false;
        const DirectoryEntry* entry = lookup(parent, parentStat, name);
        if (!entry || !entry->isDirectory)
            return false;
        resolved = Join(parent, entry->name);
        return ::stat(resolved.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
    }

    // `path` with native separators; resolves components that exist only in another case.
    std::string resolveNative(const std::string& path)
    {
        if (path.empty())
            return path;
        struct stat st {};
        if (::lstat(path.c_str(), &st) == 0)
            return path;
        const auto [folder, name] = SplitLast(path);
        if (folder == path)
            return path;
        std::string resolvedFolder;
        struct stat folderStat {};
        if (!resolveFolder(folder, resolvedFolder, folderStat))
            return Join(resolveNative(folder), name);
        const DirectoryEntry* entry = lookup(resolvedFolder, folderStat, name);
        return Join(resolvedFolder, entry ? entry->name : name);
    }

    // The entry of `folder` (whose stat is given) named `name` in any letter case; the exact
    // spelling wins over its case variants.
    const DirectoryEntry* lookup(const std::string& folder, const struct stat& folderStat,
                                 const std::string& name)
    {
        const FolderIndex* index = indexOf(folder, folderStat);
        if (!index)
            return nullptr;
        const auto found = index->byLowerName.find(ToLowerAscii(name));
        if (found == index->byLowerName.end())
            return nullptr;
        if (index->hasCaseVariants && found->second.name != name) {
            struct stat st {};
            if (::lstat(Join(folder, name).c_str(), &st) == 0) {
                exactVariant_ = {name, ::stat(Join(folder, name).c_str(), &st) == 0 &&
                                           S_ISDIR(st.st_mode)};
                return &exactVariant_;
            }
        }
        return &found->second;
    }

    const FolderIndex* indexOf(const std::string& folder, const struct stat& folderStat)
    {
        const FileTime modified = ToFileTime(folderStat.st_mtim);
        auto cached = indexes_.find(folder);
        if (cached != indexes_.end() && cached->second.modified == modified &&
            cached->second.inode == folderStat.st_ino &&
            cached->second.listedAt - modified > kUntrustedWindow)
            return &cached->second;

        std::vector<DirectoryEntry> entries;
        const FileTime listedAt = Now();
        if (!ReadFolder(folder, entries))
            return nullptr;
        if (cached == indexes_.end()) {
            if (indexes_.size() >= kMaxIndexedFolders)
                indexes_.clear();
            cached = indexes_.emplace(folder, FolderIndex{}).first;
        }
        FolderIndex& index = cached->second;
        index.modified = modified;
        index.inode = folderStat.st_ino;
        index.listedAt = listedAt;
        index.byLowerName.clear();
        index.hasCaseVariants = false;
        // Entries are sorted, so of several case variants the first in listing order wins.
        for (DirectoryEntry& entry : entries) {
            std::string lowered = ToLowerAscii(entry.name);
            index.hasCaseVariants =
                !index.byLowerName.emplace(std::move(lowered), std::move(entry)).second ||
                index.hasCaseVariants;
        }
        return &index;
    }

    // The entries below a resolved folder are named as listed: a name Windows would read
    // otherwise ("notes.", "a\b") is still the name of that entry.
    bool deleteResolved(const std::string& actual)
    {
        struct stat st {};
        if (::lstat(actual.c_str(), &st) != 0 || S_ISDIR(st.st_mode))
            return false;
        if (!S_ISLNK(st.st_mode) && IsReadOnly(st))
            return false;
        const FileTime before = folderStampOf(actual);
        if (::unlink(actual.c_str()) != 0)
            return false;
        noteOwnChange(actual, false, false, before);
        return true;
    }

    bool deleteTreeResolved(const std::string& actual)
    {
        struct stat st {};
        if (::lstat(actual.c_str(), &st) != 0)
            return false;
        if (!S_ISDIR(st.st_mode))
            return deleteResolved(actual);
        std::vector<DirectoryEntry> entries;
        if (!ReadFolder(actual, entries))
            return false;
        for (const DirectoryEntry& entry : entries)
            if (!deleteTreeResolved(Join(actual, entry.name)))
                return false;
        forgetFolderOf(actual);
        indexes_.erase(actual);
        return ::rmdir(actual.c_str()) == 0;
    }

    // Copies between paths already resolved; the copy keeps the source's time stamp and
    // read-only state, as a Windows copy does.
    bool copyResolved(const std::string& from, const std::string& to)
    {
        struct stat st {};
        const int in = OpenForReading(from, st);
        if (in < 0)
            return false;
        const FileTime before = folderStampOf(to);
        // Copies never overwrite: an existing target, even a dangling link, fails here.
        const int out = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (out < 0) {
            ::close(in);
            return false;
        }
        bool ok = copyContents(in, out, static_cast<std::size_t>(st.st_size));
        const struct timespec times[2] = {st.st_atim, st.st_mtim};
        ok = ok && ::futimens(out, times) == 0;
        ok = ok && ::fchmod(out, st.st_mode & 07777) == 0;
        ok = (::close(out) == 0) && ok;
        ::close(in);
        if (!ok)
            ::unlink(to.c_str());
        else
            noteOwnChange(to, true, false, before);
        return ok;
    }

    // The modification time of the folder holding `path`, taken just before a change, so that
    // the change can be told apart from someone else's; -1 when it cannot be read.
    static FileTime folderStampOf(const std::string& path)
    {
        struct stat st {};
        return ::stat(SplitLast(path).first.c_str(), &st) == 0 ? ToFileTime(st.st_mtim) : -1;
    }

    // Keeps the listing of a folder up to date with a change this program made itself, so that
    // copying a set's files does not list the folder again after every file. This holds only
    // while the listing was current just before the change (`before` is the folder's time
    // stamp then); otherwise someone else changed the folder too, and the listing goes. A
    // trusted listing stays trusted; a foreign change in the very same instant would go
    // unnoticed until the folder changes again. A listing not yet trusted is kept up to date
    // as well, for mayHaveCaseVariants, but lookups still take a fresh one. Returns the
    // folder's time stamp after the change, or -1 when there is no listing to keep.
    FileTime noteOwnChange(const std::string& path, bool added, bool isDirectory, FileTime before)
    {
        const auto [folder, name] = SplitLast(path);
        const auto cached = indexes_.find(folder);
        if (cached == indexes_.end())
            return -1;
        FolderIndex& index = cached->second;
        struct stat st {};
        const bool trusted = index.listedAt - index.modified > kUntrustedWindow;
        if (index.modified != before || ::stat(folder.c_str(), &st) != 0 ||
            st.st_ino != index.inode) {
            indexes_.erase(cached);
            return -1;
        }
        const std::string lowered = ToLowerAscii(name);
        if (added) {
            const auto [entry, inserted] =
                index.byLowerName.emplace(lowered, DirectoryEntry{name, isDirectory});
            if (!inserted && entry->second.name != name)
                index.hasCaseVariants = true;
        } else {
            const auto entry = index.byLowerName.find(lowered);
            if (index.hasCaseVariants) {
                indexes_.erase(cached); // which variant remains is not known here
                return -1;
            }
            if (entry != index.byLowerName.end() && entry->second.name == name)
                index.byLowerName.erase(entry);
        }
        index.modified = ToFileTime(st.st_mtim);
        if (trusted)
            index.listedAt = std::max(index.listedAt, index.modified + kUntrustedWindow + 1);
        return index.modified;
    }

    // The time stamps of the two folders of a rename, taken once when they are one folder.
    struct RenameStamps {
        bool sameFolder = false;
        FileTime from = -1, to = -1;
    };
    static RenameStamps renameStampsOf(const std::string& from, const std::string& to)
    {
        RenameStamps stamps;
        stamps.sameFolder = SplitLast(from).first == SplitLast(to).first;
        stamps.from = folderStampOf(from);
        stamps.to = stamps.sameFolder ? stamps.from : folderStampOf(to);
        return stamps;
    }

    // A rename seen as a removal from one folder and an addition to another (or the same, whose
    // stamp the removal has just brought up to date).
    void noteOwnRename(const std::string& from, const std::string& to, bool isDirectory,
                       const RenameStamps& before)
    {
        const FileTime fromAfter = noteOwnChange(from, false, false, before.from);
        noteOwnChange(to, true, isDirectory, before.sameFolder ? fromAfter : before.to);
    }

    void forgetFolderOf(const std::string& path) { indexes_.erase(SplitLast(path).first); }

    // Whether the folder of `target` holds a name that differs from it only in letter case,
    // judged from the folder's listing while the folder's time stamp says it is current (a
    // variant made in the very last moments may be missed, which the next replacement puts
    // right).
    bool mayHaveCaseVariants(const std::string& target)
    {
        const auto [folder, name] = SplitLast(target);
        struct stat st {};
        if (::stat(folder.c_str(), &st) != 0)
            return false;
        const FolderIndex* index = nullptr;
        if (const auto cached = indexes_.find(folder);
            cached != indexes_.end() && cached->second.inode == st.st_ino &&
            cached->second.modified == ToFileTime(st.st_mtim))
            index = &cached->second;
        else
            index = indexOf(folder, st);
        if (!index)
            return true;
        if (index->hasCaseVariants)
            return true;
        const auto found = index->byLowerName.find(ToLowerAscii(name));
        return found != index->byLowerName.end() && found->second.name != name;
    }

    static bool hasReadOnlyCaseVariant(const std::string& target)
    {
        const auto [folder, name] = SplitLast(target);
        std::vector<DirectoryEntry> entries;
        if (!ReadFolder(folder, entries))
            return false;
        for (const DirectoryEntry& entry : entries) {
            struct stat st {};
            if (!entry.isDirectory && entry.name != name && EqualsIgnoreCase(entry.name, name) &&
                ::lstat(Join(folder, entry.name).c_str(), &st) == 0 && !S_ISLNK(st.st_mode) &&
                IsReadOnly(st))
                return true;
        }
        return false;
    }

    void removeCaseVariants(const std::string& target)
    {
        const auto [folder, name] = SplitLast(target);
        std::vector<DirectoryEntry> entries;
        if (!ReadFolder(folder, entries))
            return;
        for (const DirectoryEntry& entry : entries)
            if (!entry.isDirectory && entry.name != name && EqualsIgnoreCase(entry.name, name)) {
                const std::string variant = Join(folder, entry.name);
                const FileTime before = folderStampOf(variant);
                if (::unlink(variant.c_str()) == 0)
                    noteOwnChange(variant, false, false, before);
            }
    }

    static bool copyContents(int in, int out, std::size_t size)
    {
        // The kernel copies without a trip through user space where it can.
        std::size_t remaining = size;
        while (remaining > 0) {
            const ssize_t copied = ::copy_file_range(in, nullptr, out, nullptr, remaining, 0);
            if (copied < 0 && errno == EINTR)
                continue;
            if (copied <= 0)
                break;
            remaining -= static_cast<std::size_t>(copied);
        }
        if (remaining == 0) {
            // The file may have grown since it was measured: copy whatever follows.
            char probe;
            if (::pread(in, &probe, 1, static_cast<off_t>(size)) == 0)
                return true;
        }
        // Fall back to plain reads and writes from where the fast path stopped.
        off_t offset = static_cast<off_t>(size - remaining);
        if (::lseek(out, offset, SEEK_SET) < 0)
            return false;
        char buffer[1 << 16];
        for (;;) {
            const ssize_t got = ::pread(in, buffer, sizeof buffer, offset);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0)
                return false;
            if (got == 0)
                return true;
            if (!WriteAll(out, buffer, static_cast<std::size_t>(got)))
                return false;
            offset += got;
        }
    }

    std::unordered_map<std::string, FolderIndex> indexes_;
    // Folder spellings that exist only in another letter case: resolved parent and name.
    std::unordered_map<std::string, std::pair<std::string, std::string>> folderAliases_;
    DirectoryEntry exactVariant_; // the answer of lookup() when it had to look past the index
};

} // namespace

std::unique_ptr<FileOperations> CreatePlatformFileOperations()
{
    return std::make_unique<PosixFileOperations>();
}

} // namespace vellumar
