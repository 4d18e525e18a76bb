#include "common/ReplaceFile.h"

#include "common/FileOperations.h"
#include "common/PathText.h"
#include "common/ProcessIdentity.h"
#include "common/TextCompare.h"

#include <atomic>
#include <charconv>
#include <string>

namespace vellumar {

namespace {

constexpr std::string_view kTemporaryPrefix = ".vellumar-";
constexpr std::string_view kTemporarySuffix = ".tmp";

// Deletes a file the program made itself; a copy carries its source's read-only bit.
void DeleteOwnFile(FileOperations& files, const std::string& path)
{
    files.setAttributes(path, FileAttribute::Archive);
    files.deleteFile(path);
}

// A read-only file in the folder of `target` whose name differs from it only in letter case.
std::string ReadOnlyCaseVariant(FileOperations& files, const std::string& target)
{
    const std::string folder = FolderOfPath(target);
    const std::string name = LastPathComponent(target);
    std::string found;
    files.search(JoinPath(folder, "*"), [&](const DirectoryEntry& entry) {
        if (entry.isDirectory || entry.name == name || !EqualsIgnoreCase(entry.name, name))
            return true;
        const std::string variant = JoinPath(folder, entry.name);
        const auto attributes = files.attributes(variant);
        if (attributes && (*attributes & FileAttribute::ReadOnly))
            found = variant;
        return found.empty();
    });
    return found;
}

} // namespace

std::string TemporarySiblingName(const std::string& target)
{
    // The counter keeps the replacements of this process apart, the process id the programs.
    static std::atomic<unsigned> counter{0};
    const std::string folder = FolderOfPath(target);
    std::string name = std::string(kTemporaryPrefix) + std::to_string(CurrentProcessId()) + "-" +
                       std::to_string(++counter) + std::string(kTemporarySuffix);
    if (folder == target) // a bare name: the temporary file goes beside it
        return name;
    return folder + target[folder.size()] + name;
}

std::optional<std::uint32_t> TemporaryNameOwner(std::string_view name)
{
    return ProcessNameOwner(name, kTemporaryPrefix, kTemporarySuffix);
}

std::optional<std::uint32_t> ProcessNameOwner(std::string_view name, std::string_view prefix,
                                              std::string_view suffix)
{
    if (name.size() < prefix.size() + suffix.size() || !name.starts_with(prefix) ||
        !name.ends_with(suffix))
        return std::nullopt;
    name.remove_prefix(prefix.size());
    name.remove_suffix(suffix.size());
    const std::size_t dash = name.find('-');
    if (dash == std::string_view::npos)
        return std::nullopt;
    // Digits only, both sides: a name of the user's that merely starts alike stays.
    auto digits = [](std::string_view text) {
        return !text.empty() && text.size() <= 10 &&
               text.find_first_not_of("0123456789") == std::string_view::npos;
    };
    const std::string_view owner = name.substr(0, dash);
    if (!digits(owner) || !digits(name.substr(dash + 1)))
        return std::nullopt;
    std::uint64_t id = 0;
    std::from_chars(owner.data(), owner.data() + owner.size(), id);
    if (id > UINT32_MAX)
        return std::nullopt;
    return static_cast<std::uint32_t>(id);
}

TextList RemoveLeftoverTemporaries(FileOperations& files, const std::string& folder)
{
    TextList leftovers;
    files.search(
        JoinPath(folder, std::string(kTemporaryPrefix) + "*" + std::string(kTemporarySuffix)),
        [&](const DirectoryEntry& entry) {
            // The search ignores letter case; the program's own names do not vary.
            const auto owner = TemporaryNameOwner(entry.name);
            if (!entry.isDirectory && owner && !IsProcessRunning(*owner))
                leftovers.push_back(JoinPath(folder, entry.name));
            return true;
        });
    TextList removed;
    for (const std::string& leftover : leftovers) {
        DeleteOwnFile(files, leftover);
        if (files.kindOf(leftover) == PathKind::Missing)
            removed.push_back(leftover);
    }
    return removed;
}

ReplaceResult ReplaceFileWith(FileOperations& files, const std::string& source,
                              const std::string& target, std::string* blockedBy)
{
    auto locked = [&](const std::string& by) {
        if (blockedBy)
            *blockedBy = by;
        return ReplaceResult::TargetLocked;
    };
    if (const auto attributes = files.attributes(target);
        attributes && (*attributes & (FileAttribute::ReadOnly | FileAttribute::Directory)))
        return locked(target);
    const std::string temporary = TemporarySiblingName(target);
    auto removeTemporary = [&] {
        if (files.attributes(temporary))
            DeleteOwnFile(files, temporary);
    };
    // A temporary file left by a crash has the same name only by chance: clear it and retry.
    bool copied = files.copyFileToUniqueName(source, temporary);
    if (!copied && files.attributes(temporary)) {
        removeTemporary();
        copied = files.copyFileToUniqueName(source, temporary);
    }
    if (!copied) {
        removeTemporary();
        return ReplaceResult::CopyFailed;
    }
    if (!files.renameOver(temporary, target)) {
        const std::string refused = files.refusalReason();
        removeTemporary();
        if (!refused.empty()) {
            if (blockedBy)
                *blockedBy = refused;
            return ReplaceResult::Refused;
        }
        const std::string variant = ReadOnlyCaseVariant(files, target);
        return locked(variant.empty() ? target : variant);
    }
    return ReplaceResult::Replaced;
}

} // namespace vellumar
