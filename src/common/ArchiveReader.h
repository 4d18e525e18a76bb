#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vellumar {

// One entry of an archive, as its header declares it.
struct ArchiveEntry {
    enum class Kind { File, Folder, Link, Device, Other };

    std::string path; // as stored: "/" or "\" separated, possibly hostile
    Kind kind = Kind::File;
    std::optional<std::uint64_t> size; // the declared size; nothing when the header has none
};

// Reads an archive (ZIP, 7z, RAR, tar, also compressed) entry by entry. Nothing is ever written
// but the one file extractTo() names.
class ArchiveReader {
public:
    virtual ~ArchiveReader() = default;

    // The next entry's header; nothing at the end, or on a damaged archive (error() says so).
    virtual std::optional<ArchiveEntry> next() = 0;
    // Writes the data of the entry next() returned last into a new file `path` (never an
    // existing one, never through a link). False, with error() set, when the data is damaged or
    // ends early, or runs past `limit` bytes; the partial file is then removed.
    virtual bool extractTo(const std::string& path, std::uint64_t limit) = 0;
    // What went wrong; "" while nothing has.
    virtual const std::string& error() const = 0;
};

// The archive at `path`, or nothing with `problem` saying why: it cannot be opened, is not an
// archive, or this build reads no archives at all.
std::unique_ptr<ArchiveReader> OpenArchive(const std::string& path, std::string& problem);

// Whether this build reads archives (the Windows build does not).
bool ArchivesSupported();

} // namespace vellumar
