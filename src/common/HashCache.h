#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vellumar {

class FileOperations;

// SHA-256 digests of files remembered by path, size and modification time, so that a file
// that has not changed since it was last hashed is not read again. The cache lives in a small
// text file; one that is damaged or of another format is ignored and rebuilt, since every
// digest in it can be computed again. Paths compare without regard to letter case, as on
// Windows.
class HashCache {
public:
    // Reads the cache file at `path` (nothing there: an empty cache).
    HashCache(FileOperations& files, std::string path);

    // <dataFolder>\Originals\hashes
    static std::string PathIn(const std::string& dataFolder);

    // The digest of the regular file at `path`, read only when its size or time differs from
    // what the cache remembers; nothing when there is no such file or it cannot be read.
    std::optional<std::string> hashOf(const std::string& path);

    // Writes the cache back (atomically) when something was hashed anew, keeping only the
    // files asked about since it was read, so that files gone from the disk drop out. False
    // when it could not be written; the digests are then merely computed again next time.
    bool save();

    struct Entry {
        std::string path;
        std::string hash; // empty: no readable file there in this run
        std::uint64_t size = 0;
        std::int64_t time = 0;
        bool used = false; // asked about since the cache was read
    };

private:
    FileOperations& files_;
    std::string path_;
    std::unordered_map<std::string, Entry> entries_; // by the path in lower case
    bool changed_ = false;
};

// The cache file's text: a first line naming the format, then one file a line: hash, size,
// time and path, separated by tabs. A text without that first line reads as empty; a line that
// does not read is skipped.
std::unordered_map<std::string, HashCache::Entry> ParseHashCache(std::string_view text);

} // namespace vellumar
