#include "common/ArchiveReader.h"

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace vellumar {

namespace {

std::string ErrorOf(archive* reader, const std::string& fallback)
{
    const char* text = archive_error_string(reader);
    return text && *text ? text : fallback;
}

ArchiveEntry::Kind KindOf(archive_entry* entry)
{
    if (archive_entry_hardlink(entry) || archive_entry_symlink(entry))
        return ArchiveEntry::Kind::Link;
    switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
        return ArchiveEntry::Kind::File;
    case AE_IFDIR:
        return ArchiveEntry::Kind::Folder;
    case AE_IFLNK:
        return ArchiveEntry::Kind::Link;
    case AE_IFCHR:
    case AE_IFBLK:
        return ArchiveEntry::Kind::Device;
    default:
        return ArchiveEntry::Kind::Other;
    }
}

bool WriteAll(int fd, const char* data, std::size_t size, off_t at)
{
    while (size > 0) {
        const ssize_t written = ::pwrite(fd, data, size, at);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
        at += written;
    }
    return true;
}

class LibArchiveReader final : public ArchiveReader {
public:
    explicit LibArchiveReader(archive* reader)
        : reader_(reader)
    {}
    ~LibArchiveReader() override { archive_read_free(reader_); }
    LibArchiveReader(const LibArchiveReader&) = delete;
    LibArchiveReader& operator=(const LibArchiveReader&) = delete;

    std::optional<ArchiveEntry> next() override
    {
        if (!error_.empty())
            return std::nullopt;
        archive_entry* entry = nullptr;
        const int result = archive_read_next_header(reader_, &entry);
        if (result == ARCHIVE_EOF)
            return std::nullopt;
        if (result < ARCHIVE_WARN) {
            error_ = ErrorOf(reader_, "the archive is damaged");
            return std::nullopt;
        }
        ArchiveEntry read;
        const char* path = archive_entry_pathname_utf8(entry);
        if (!path)
            path = archive_entry_pathname(entry);
        read.path = path ? path : "";
        read.kind = KindOf(entry);
        if (archive_entry_size_is_set(entry) && archive_entry_size(entry) >= 0)
            read.size = static_cast<std::uint64_t>(archive_entry_size(entry));
        return read;
    }

    bool extractTo(const std::string& path, std::uint64_t limit) override
    {
        const int fd =
            ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
        if (fd < 0) {
            error_ = path + ": " + std::strerror(errno);
            return false;
        }
        bool ok = true;
        std::uint64_t length = 0;
        for (;;) {
            const void* block = nullptr;
            std::size_t size = 0;
            la_int64_t offset = 0;
            const int result = archive_read_data_block(reader_, &block, &size, &offset);
            if (result == ARCHIVE_EOF)
                break;
            if (result < ARCHIVE_WARN) {
                error_ = ErrorOf(reader_, "the archive is damaged");
                ok = false;
                break;
            }
            const std::uint64_t end = static_cast<std::uint64_t>(offset) + size;
            if (offset < 0 || end > limit) {
                error_ = "a file holds more than its archive declared";
                ok = false;
                break;
            }
            if (!WriteAll(fd, static_cast<const char*>(block), size, static_cast<off_t>(offset))) {
                error_ = path + ": " + std::strerror(errno);
                ok = false;
                break;
            }
            length = std::max(length, end);
        }
        // A sparse file's last hole has no block of its own.
        if (ok && ::ftruncate(fd, static_cast<off_t>(length)) != 0) {
            error_ = path + ": " + std::strerror(errno);
            ok = false;
        }
        if (::close(fd) != 0 && ok) {
            error_ = path + ": " + std::strerror(errno);
            ok = false;
        }
        if (!ok)
            ::unlink(path.c_str());
        return ok;
    }

    const std::string& error() const override { return error_; }

private:
    archive* reader_;
    std::string error_;
};

} // namespace

std::unique_ptr<ArchiveReader> OpenArchive(const std::string& path, std::string& problem)
{
    archive* reader = archive_read_new();
    if (!reader) {
        problem = "out of memory";
        return nullptr;
    }
    archive_read_support_filter_all(reader);
    archive_read_support_format_all(reader);
    if (archive_read_open_filename(reader, path.c_str(), 1 << 16) != ARCHIVE_OK) {
        problem = path + ": " + ErrorOf(reader, "not an archive");
        archive_read_free(reader);
        return nullptr;
    }
    return std::make_unique<LibArchiveReader>(reader);
}

bool ArchivesSupported()
{
    return true;
}

} // namespace vellumar
