#include "common/OriginalsStore.h"

#include "common/FileOperations.h"
#include "common/HashedPathLine.h"
#include "common/PathText.h"
#include "common/Sha256.h"
#include "common/TextCompare.h"

#include <utility>

namespace vellumar {

namespace {

constexpr std::string_view kHeader = "Vellumar originals 1";
constexpr std::string_view kAbsent = "absent";

std::optional<KeptOriginal> ParseLine(std::string_view line)
{
    const std::optional<HashedPathLine> parsed = ParseHashedPathLine(line);
    if (!parsed || (parsed->hash != kAbsent && !IsSha256Hex(parsed->hash)))
        return std::nullopt;
    KeptOriginal entry;
    if (parsed->hash != kAbsent)
        entry.hash = parsed->hash;
    entry.size = parsed->size;
    entry.time = parsed->time;
    entry.path = parsed->path;
    return entry;
}

} // namespace

std::vector<KeptOriginal> ParseOriginalsIndex(std::string_view text)
{
    std::vector<KeptOriginal> entries;
    bool first = true;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (std::exchange(first, false) && line == kHeader)
            continue;
        if (auto entry = ParseLine(line))
            entries.push_back(std::move(*entry));
    }
    return entries;
}

std::string FormatOriginalsIndex(const std::vector<KeptOriginal>& entries)
{
    std::string text = std::string(kHeader) + "\n";
    for (const KeptOriginal& entry : entries)
        text += (entry.absent() ? std::string(kAbsent) : entry.hash) + "\t" +
                std::to_string(entry.size) + "\t" + std::to_string(entry.time) + "\t" + entry.path +
                "\n";
    return text;
}

OriginalsStore::OriginalsStore(FileOperations& files, std::string folder)
    : files_(files)
    , folder_(std::move(folder))
{}

std::string OriginalsStore::FolderIn(const std::string& dataFolder)
{
    return JoinPath(dataFolder, "Originals");
}

std::vector<KeptOriginal> OriginalsStore::entries()
{
    const std::optional<std::string> text = files_.readFile(JoinPath(folder_, "index"));
    return text ? ParseOriginalsIndex(*text) : std::vector<KeptOriginal>{};
}

std::optional<KeptOriginal> OriginalsStore::find(const std::string& path)
{
    const std::string spelled = files_.resolve(path);
    for (KeptOriginal& entry : entries())
        if (EqualsIgnoreCase(entry.path, spelled))
            return std::move(entry);
    return std::nullopt;
}

std::string OriginalsStore::contentPath(const std::string& hash) const
{
    return JoinPath(folder_, hash);
}

std::optional<std::string> OriginalsStore::verifiedContent(const KeptOriginal& original)
{
    if (original.absent())
        return std::nullopt;
    std::optional<std::string> bytes = files_.readFile(contentPath(original.hash));
    if (!bytes || Sha256Hex(*bytes) != original.hash)
        return std::nullopt;
    return bytes;
}

bool OriginalsStore::storeContent(const std::string& hash, const std::string& bytes)
{
    // Identical files share one stored copy; a stored copy that went bad is written anew.
    const std::string stored = contentPath(hash);
    if (files_.fileSize(stored) == bytes.size()) {
        const std::optional<std::string> existing = files_.readFile(stored);
        if (existing && Sha256Hex(*existing) == hash)
            return true;
    }
    if (const auto attributes = files_.attributes(stored);
        attributes && (*attributes & FileAttribute::ReadOnly))
        files_.setAttributes(stored, FileAttribute::Archive);
    return files_.replaceFile(stored, bytes);
}

bool OriginalsStore::keep(const std::string& path)
{
    const std::string spelled = files_.resolve(path);
    // The index holds one path a line.
    if (spelled.find_first_of("\t\r\n") != std::string::npos)
        return false;
    std::vector<KeptOriginal> kept = entries();
    for (const KeptOriginal& entry : kept)
        if (EqualsIgnoreCase(entry.path, spelled))
            return true;

    KeptOriginal entry;
    entry.path = spelled;
    switch (files_.kindOf(spelled)) {
    case PathKind::Folder:
    case PathKind::Other:
        return true;
    case PathKind::Missing:
    case PathKind::DanglingLink:
        break;
    case PathKind::File: {
        const std::optional<std::string> bytes = files_.readFile(spelled);
        if (!bytes)
            return false;
        entry.hash = Sha256Hex(*bytes);
        entry.size = bytes->size();
        entry.time = files_.modificationTime(spelled).value_or(0);
        if (!files_.createFolders(folder_) || !storeContent(entry.hash, *bytes))
            return false;
        break;
    }
    }
    kept.push_back(std::move(entry));
    return files_.createFolders(folder_) &&
           files_.replaceFile(JoinPath(folder_, "index"), FormatOriginalsIndex(kept));
}

} // namespace vellumar
