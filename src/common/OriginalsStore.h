#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class FileOperations;

// What the program found at a simulator path the first time it changed it.
struct KeptOriginal {
    std::string path; // the path as the system spells it
    std::string hash; // SHA-256 of the bytes kept; empty when there was no file
    std::uint64_t size = 0;
    std::int64_t time = 0; // the original's modification time (FileTime), 0 when absent

    bool absent() const { return hash.empty(); }
};

// The index file's text, one original a line: hash (or "absent"), size, time and path,
// separated by tabs, under a first line that names the format. Lines that do not read are
// skipped: a damaged line costs that one entry, not the store.
std::vector<KeptOriginal> ParseOriginalsIndex(std::string_view text);
std::string FormatOriginalsIndex(const std::vector<KeptOriginal>& entries);

// The simulator's files as the program first found them, kept in a folder of the data folder:
// each content once, in a file named by its SHA-256, and an index of path -> content. Only
// the first original of a path is kept; paths compare without regard to letter case, as on
// Windows. Every write is a temporary file renamed into place and flushed, the content before
// the index, so a crash leaves either the old index or a complete new entry.
class OriginalsStore {
public:
    OriginalsStore(FileOperations& files, std::string folder);

    // <dataFolder>\Originals
    static std::string FolderIn(const std::string& dataFolder);

    const std::string& folder() const { return folder_; }

    // The index as it is on disk now (another copy of the program may have added to it).
    std::vector<KeptOriginal> entries();
    std::optional<KeptOriginal> find(const std::string& path);

    // Keeps what is at `path` now unless the store already has an original of it: its bytes,
    // or "absent" when there is no file. False when that could not be made durable; the caller
    // then must not change the file. A folder or a device is nothing to keep (true).
    bool keep(const std::string& path);

    // The stored file of a content hash.
    std::string contentPath(const std::string& hash) const;
    // The bytes kept for `original`, when the stored file still has the recorded hash.
    std::optional<std::string> verifiedContent(const KeptOriginal& original);

private:
    bool storeContent(const std::string& hash, const std::string& bytes);

    FileOperations& files_;
    std::string folder_;
};

} // namespace vellumar
