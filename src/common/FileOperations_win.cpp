// File operations on Windows: the system's own calls through their UTF-16 entry points, so
// that letter case, wildcards, attributes and sharing behave exactly as the simulator sees them.

#include "common/FileOperations.h"
#include "common/ReplaceFile.h"
#include "common/WideText_win.h"

#include <windows.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace vellumar {

namespace {

// Only these can be given to SetFileAttributesW; the others (folder, compressed, ...) are
// states of the file, not settings.
constexpr DWORD kSettableAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                      FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                      FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_TEMPORARY |
                                      FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// FILETIME counts 100-nanosecond ticks from 1601-01-01.
constexpr std::int64_t kTicksFrom1601To1970 = 116'444'736'000'000'000LL;

class Handle {
public:
    explicit Handle(HANDLE handle)
        : handle_(handle)
    {}
    ~Handle()
    {
        if (valid())
            CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool valid() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
    HANDLE get() const { return handle_; }
    // Closes now; false when closing failed (the last write may be lost).
    bool close()
    {
        const bool ok = CloseHandle(handle_) != 0;
        handle_ = INVALID_HANDLE_VALUE;
        return ok;
    }

private:
    HANDLE handle_;
};

class FindHandle {
public:
    explicit FindHandle(HANDLE handle)
        : handle_(handle)
    {}
    ~FindHandle()
    {
        if (handle_ != INVALID_HANDLE_VALUE)
            FindClose(handle_);
    }
    FindHandle(const FindHandle&) = delete;
    FindHandle& operator=(const FindHandle&) = delete;

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

std::wstring NativePath(const std::string& path)
{
    std::wstring wide = ToWide(path);
    std::replace(wide.begin(), wide.end(), L'/', L'\\');
    return wide;
}

// The length of the part of a path that is not a folder to create: "C:\", "C:", "\",
// "\\server\share\" or "\\?\C:\".
std::size_t RootLength(std::wstring_view path)
{
    if (path.starts_with(L"\\\\?\\"))
        return 4 + RootLength(path.substr(4));
    if (path.starts_with(L"\\\\")) {
        const std::size_t server = path.find(L'\\', 2);
        if (server == std::wstring_view::npos)
            return path.size();
        const std::size_t share = path.find(L'\\', server + 1);
        return share == std::wstring_view::npos ? path.size() : share + 1;
    }
    if (path.size() >= 2 && path[1] == L':')
        return path.size() >= 3 && path[2] == L'\\' ? 3 : 2;
    return path.starts_with(L'\\') ? 1 : 0;
}

std::wstring WithoutTrailingSeparators(std::wstring path)
{
    const std::size_t root = RootLength(path);
    while (path.size() > root && path.back() == L'\\')
        path.pop_back();
    return path;
}

// The folder part of a search pattern, as the search itself would look in it.
std::wstring FolderOfPattern(const std::wstring& pattern)
{
    const std::size_t slash = pattern.rfind(L'\\');
    if (slash == std::wstring::npos)
        return pattern.size() >= 2 && pattern[1] == L':' ? pattern.substr(0, 2) : L".";
    if (slash < RootLength(pattern))
        return pattern.substr(0, slash + 1);
    return pattern.substr(0, slash);
}

DWORD AttributesOf(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str());
}

bool IsFolder(const std::wstring& path)
{
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool IsDotEntry(const wchar_t* name)
{
    return (name[0] == L'.' && name[1] == L'\0') ||
           (name[0] == L'.' && name[1] == L'.' && name[2] == L'\0');
}

bool WriteAll(HANDLE file, const std::string& contents)
{
    const char* data = contents.data();
    std::size_t remaining = contents.size();
    while (remaining > 0) {
        const DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(remaining, 1u << 30));
        DWORD written = 0;
        if (!WriteFile(file, data, chunk, &written, nullptr) || written == 0)
            return false;
        data += written;
        remaining -= written;
    }
    return true;
}

// A name beside `target` that no other writer uses, of the one form every temporary file of
// the program has (so that a leftover of a killed copy is known for what it is).
std::wstring TemporarySibling(const std::wstring& target)
{
    return ToWide(TemporarySiblingName(FromWide(target)));
}

// The file a link finally points to, without the "\\?\" the system puts in front; "" when
// the path cannot be opened (a dangling link).
std::wstring FinalPathOf(const std::wstring& path)
{
    Handle file(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.valid())
        return {};
    const DWORD flags = FILE_NAME_NORMALIZED | VOLUME_NAME_DOS;
    const DWORD needed = GetFinalPathNameByHandleW(file.get(), nullptr, 0, flags);
    if (needed == 0)
        return {};
    std::wstring final(needed, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file.get(), final.data(), needed, flags);
    if (length == 0 || length >= needed)
        return {};
    final.resize(length);
    if (final.starts_with(L"\\\\?\\UNC\\"))
        return L"\\\\" + final.substr(8);
    if (final.starts_with(L"\\\\?\\"))
        return final.substr(4);
    return final;
}

bool DeleteTreeNative(const std::wstring& path)
{
    const DWORD attributes = AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return DeleteFileW(path.c_str()) != 0;
    // A linked folder goes by itself; what it points to is not part of this tree.
    if (attributes & FILE_ATTRIBUTE_REPARSE_POINT)
        return RemoveDirectoryW(path.c_str()) != 0;

    // Listed first and deleted after, so that the search never sees its own deletions.
    std::vector<std::wstring> children;
    {
        WIN32_FIND_DATAW data;
        FindHandle find(FindFirstFileW((path + L"\\*").c_str(), &data));
        if (find.get() == INVALID_HANDLE_VALUE)
            return false;
        do {
            if (!IsDotEntry(data.cFileName))
                children.push_back(path + L"\\" + data.cFileName);
        } while (FindNextFileW(find.get(), &data));
        if (GetLastError() != ERROR_NO_MORE_FILES)
            return false;
    }
    for (const std::wstring& child : children)
        if (!DeleteTreeNative(child))
            return false;
    return RemoveDirectoryW(path.c_str()) != 0;
}

class WindowsFileOperations final : public FileOperations {
public:
    bool search(const std::string& pattern, const EntryVisitor& visit) override
    {
        const std::wstring wide = NativePath(pattern);
        if (wide.empty() || wide.back() == L'\\')
            return false;
        WIN32_FIND_DATAW data;
        FindHandle find(FindFirstFileW(wide.c_str(), &data));
        if (find.get() == INVALID_HANDLE_VALUE) {
            // No match in a folder that exists is an empty search, not a failed one.
            return GetLastError() == ERROR_FILE_NOT_FOUND && IsFolder(FolderOfPattern(wide));
        }
        do {
            const bool isDirectory = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            if (!visit({FromWide(data.cFileName), isDirectory}))
                break;
        } while (FindNextFileW(find.get(), &data));
        return true;
    }

    PathKind kindOf(const std::string& path) override
    {
        const std::wstring wide = NativePath(path);
        DWORD attributes = AttributesOf(wide);
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return PathKind::Missing;
        if (attributes & FILE_ATTRIBUTE_REPARSE_POINT) {
            const std::wstring final = FinalPathOf(wide);
            if (final.empty())
                return PathKind::DanglingLink;
            attributes = AttributesOf(final);
        }
        if (attributes & FILE_ATTRIBUTE_DIRECTORY)
            return PathKind::Folder;
        return (attributes & FILE_ATTRIBUTE_DEVICE) ? PathKind::Other : PathKind::File;
    }

    std::string finalPath(const std::string& path) override
    {
        const std::wstring wide = NativePath(path);
        const DWORD attributes = AttributesOf(wide);
        if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
            return resolve(path);
        const std::wstring final = FinalPathOf(wide);
        return final.empty() ? resolve(path) : FromWide(final);
    }

    std::optional<std::uint32_t> attributes(const std::string& path) override
    {
        const DWORD attributes = AttributesOf(NativePath(path));
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return std::nullopt;
        return attributes;
    }

    bool setAttributes(const std::string& path, std::uint32_t attributes) override
    {
        DWORD settable = attributes & kSettableAttributes;
        if (settable == 0)
            settable = FILE_ATTRIBUTE_NORMAL;
        return SetFileAttributesW(NativePath(path).c_str(), settable) != 0;
    }

    std::optional<FileTime> modificationTime(const std::string& path) override
    {
        WIN32_FILE_ATTRIBUTE_DATA data;
        if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data))
            return std::nullopt;
        const std::int64_t ticks =
            (static_cast<std::int64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
            data.ftLastWriteTime.dwLowDateTime;
        return (ticks - kTicksFrom1601To1970) * 100;
    }

    std::optional<std::uint64_t> fileSize(const std::string& path) override
    {
        WIN32_FILE_ATTRIBUTE_DATA data;
        if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data) ||
            (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            return std::nullopt;
        return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    }

    std::optional<FileStamp> fileStamp(const std::string& path) override
    {
        WIN32_FILE_ATTRIBUTE_DATA data;
        if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data) ||
            (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            return std::nullopt;
        const std::int64_t ticks =
            (static_cast<std::int64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
            data.ftLastWriteTime.dwLowDateTime;
        return FileStamp{(static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow,
                         (ticks - kTicksFrom1601To1970) * 100};
    }

    bool copyFile(const std::string& source, const std::string& target) override
    {
        // The system's copy keeps the time stamp and the attributes, read-only included.
        return CopyFileW(NativePath(source).c_str(), NativePath(target).c_str(), TRUE) != 0;
    }

    bool copyFileToUniqueName(const std::string& source, const std::string& target) override
    {
        return copyFile(source, target); // the system looks names up without regard to case
    }

    bool moveFile(const std::string& source, const std::string& target) override
    {
        const std::wstring from = NativePath(source);
        const std::wstring to = NativePath(target);
        if (from != to &&
            CompareStringOrdinal(from.c_str(), -1, to.c_str(), -1, TRUE) == CSTR_EQUAL) {
            // Only the letter case changes. Wine keeps the old spelling when asked for that
            // directly, so the name goes by way of a temporary one.
            const std::wstring temporary = TemporarySibling(from);
            if (!MoveFileExW(from.c_str(), temporary.c_str(), 0))
                return false;
            if (MoveFileExW(temporary.c_str(), to.c_str(), 0))
                return true;
            MoveFileExW(temporary.c_str(), from.c_str(), 0);
            return false;
        }
        return MoveFileExW(from.c_str(), to.c_str(), 0) != 0;
    }

    bool renameOver(const std::string& source, const std::string& target) override
    {
        const std::wstring to = NativePath(target);
        const DWORD existing = AttributesOf(to);
        if (existing != INVALID_FILE_ATTRIBUTES &&
            (existing & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)))
            return false;
        return MoveFileExW(NativePath(source).c_str(), to.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    }

    bool deleteFile(const std::string& path) override
    {
        return DeleteFileW(NativePath(path).c_str()) != 0;
    }

    bool deleteTree(const std::string& path) override
    {
        return DeleteTreeNative(WithoutTrailingSeparators(NativePath(path)));
    }

    bool createFolders(const std::string& path) override
    {
        const std::wstring wide = NativePath(path);
        if (wide.empty())
            return false;
        std::size_t position = RootLength(wide);
        while (position < wide.size()) {
            std::size_t slash = wide.find(L'\\', position);
            if (slash == std::wstring::npos)
                slash = wide.size();
            if (slash > position) {
                const std::wstring partial = wide.substr(0, slash);
                // An existing folder may also answer "access denied" (a drive's root, a
                // protected parent): what counts is that it is there.
                if (!CreateDirectoryW(partial.c_str(), nullptr) && !IsFolder(partial))
                    return false;
            }
            position = slash + 1;
        }
        return IsFolder(wide);
    }

    std::optional<std::string> readFile(const std::string& path) override
    {
        Handle file(CreateFileW(NativePath(path).c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (!file.valid())
            return std::nullopt;
        std::string contents;
        LARGE_INTEGER size;
        if (GetFileSizeEx(file.get(), &size) && size.QuadPart > 0 &&
            static_cast<unsigned long long>(size.QuadPart) < contents.max_size())
            contents.reserve(static_cast<std::size_t>(size.QuadPart));
        char buffer[1 << 16];
        for (;;) {
            DWORD got = 0;
            if (!ReadFile(file.get(), buffer, sizeof buffer, &got, nullptr))
                return std::nullopt;
            if (got == 0)
                return contents;
            contents.append(buffer, got);
        }
    }

    bool replaceFile(const std::string& path, const std::string& contents) override
    {
        std::wstring target = NativePath(path);
        DWORD existing = AttributesOf(target);
        // A link keeps working: the file it points to is what gets replaced, in its own folder.
        if (existing != INVALID_FILE_ATTRIBUTES && (existing & FILE_ATTRIBUTE_REPARSE_POINT)) {
            target = FinalPathOf(target);
            if (target.empty())
                return false; // a dangling link is left as it is
            existing = AttributesOf(target);
        }
        if (existing != INVALID_FILE_ATTRIBUTES &&
            (existing & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)))
            return false;

        std::wstring temporary;
        HANDLE created = INVALID_HANDLE_VALUE;
        for (int attempt = 0; attempt < 100 && created == INVALID_HANDLE_VALUE; ++attempt) {
            temporary = TemporarySibling(target);
            created = CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
            if (created == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS &&
                GetLastError() != ERROR_ALREADY_EXISTS)
                return false;
        }
        Handle file(created);
        if (!file.valid())
            return false;
        bool ok = WriteAll(file.get(), contents);
        ok = ok && FlushFileBuffers(file.get());
        ok = file.close() && ok;
        // The new file takes over the original's hidden, system and archive bits.
        if (ok && existing != INVALID_FILE_ATTRIBUTES && (existing & kSettableAttributes))
            ok = SetFileAttributesW(temporary.c_str(), existing & kSettableAttributes);
        ok = ok && MoveFileExW(temporary.c_str(), target.c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
        if (!ok) {
            SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(temporary.c_str());
        }
        return ok;
    }

    std::string resolve(const std::string& path) override
    {
        // The system finds names in any letter case by itself; what it does to ".." and to a
        // name's trailing dots and blanks is its full path name's business.
        const std::wstring native = NativePath(path);
        if (native.empty() || native.starts_with(L"\\\\?\\"))
            return FromWide(native);
        const DWORD needed = GetFullPathNameW(native.c_str(), 0, nullptr, nullptr);
        if (needed == 0)
            return FromWide(native);
        std::wstring full(needed, L'\0');
        const DWORD written = GetFullPathNameW(native.c_str(), needed, full.data(), nullptr);
        if (written == 0 || written >= needed)
            return FromWide(native);
        full.resize(written);
        return FromWide(full);
    }
};

} // namespace

std::unique_ptr<FileOperations> CreatePlatformFileOperations()
{
    return std::make_unique<WindowsFileOperations>();
}

} // namespace vellumar
