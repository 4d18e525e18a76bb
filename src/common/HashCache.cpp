#include "common/HashCache.h"

#include "common/FileOperations.h"
#include "common/HashedPathLine.h"
#include "common/OriginalsStore.h"
#include "common/PathText.h"
#include "common/Sha256.h"
#include "common/TextCompare.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vellumar {

namespace {

constexpr std::string_view kHeader = "Vellumar hashes 1";

std::string_view NextLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

std::optional<HashCache::Entry> ParseLine(std::string_view line)
{
    const std::optional<HashedPathLine> parsed = ParseHashedPathLine(line);
    if (!parsed || !IsSha256Hex(parsed->hash))
        return std::nullopt;
    HashCache::Entry entry;
    entry.hash = parsed->hash;
    entry.size = parsed->size;
    entry.time = parsed->time;
    entry.path = parsed->path;
    return entry;
}

} // namespace

std::unordered_map<std::string, HashCache::Entry> ParseHashCache(std::string_view text)
{
    std::unordered_map<std::string, HashCache::Entry> entries;
    if (NextLine(text) != kHeader)
        return entries;
    while (!text.empty())
        if (auto entry = ParseLine(NextLine(text)))
            entries[ToLowerAscii(ToNativeSeparators(entry->path))] = std::move(*entry);
    return entries;
}

HashCache::HashCache(FileOperations& files, std::string path)
    : files_(files)
    , path_(std::move(path))
{
    if (const std::optional<std::string> text = files_.readFile(path_))
        entries_ = ParseHashCache(*text);
}

std::string HashCache::PathIn(const std::string& dataFolder)
{
    return JoinPath(OriginalsStore::FolderIn(dataFolder), "hashes");
}

std::optional<std::string> HashCache::hashOf(const std::string& path)
{
    const std::string key = ToLowerAscii(ToNativeSeparators(path));
    Entry& entry = entries_[key];
    if (entry.used) // asked about already in this run
        return entry.hash.empty() ? std::nullopt : std::optional<std::string>(entry.hash);
    entry.used = true;
    if (!entry.hash.empty()) {
        const std::optional<FileStamp> now = files_.fileStamp(path);
        if (now && entry.size == now->size && entry.time == now->time)
            return entry.hash;
    }
    // Not a readable file (a folder, a device: reading refuses them): no digest, and the cache
    // forgets it. A file written during the reading may carry a newer time than the one taken
    // as it was opened; the older time is remembered, so the next run reads it again.
    FileStamp stamp;
    const std::optional<std::string> bytes = files_.readFileAndStamp(path, stamp);
    const std::optional<std::string> hash =
        bytes ? std::optional<std::string>(Sha256Hex(*bytes)) : std::nullopt;
    changed_ = changed_ || !entry.hash.empty() || hash;
    entry = hash ? Entry{path, *hash, stamp.size, stamp.time, true} : Entry{path, {}, 0, 0, true};
    return hash;
}

bool HashCache::save()
{
    const bool unused = std::any_of(entries_.begin(), entries_.end(), [](const auto& entry) {
        return !entry.second.used && !entry.second.hash.empty();
    });
    if (!changed_ && !unused)
        return true;
    std::vector<const Entry*> kept;
    for (const auto& [key, entry] : entries_)
        if (entry.used && !entry.hash.empty())
            kept.push_back(&entry);
    std::sort(kept.begin(), kept.end(),
              [](const Entry* a, const Entry* b) { return a->path < b->path; });
    std::string text = std::string(kHeader) + "\n";
    for (const Entry* entry : kept)
        text += entry->hash + "\t" + std::to_string(entry->size) + "\t" +
                std::to_string(entry->time) + "\t" + entry->path + "\n";
    const std::string folder = FolderOfPath(path_);
    if (!folder.empty() && !files_.createFolders(folder))
        return false;
    if (!files_.replaceFile(path_, text))
        return false;
    changed_ = false;
    return true;
}

} // namespace vellumar
