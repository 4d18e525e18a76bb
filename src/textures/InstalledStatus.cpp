#include "textures/InstalledStatus.h"

#include "common/HashCache.h"
#include "common/OriginalsStore.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "textures/Install.h"
#include "textures/SetCatalogue.h"
#include "textures/TextureFolders.h"
#include "textures/TextureSetEntry.h"

#include <map>
#include <optional>

namespace vellumar {

const char* SetPlacement::state() const
{
    if (wholly())
        return "all";
    return placed > 0 ? "some" : "none";
}

std::string SimulatorFileHolder::holder() const
{
    if (!sets.empty())
        return sets.front();
    if (absent)
        return "absent";
    return original ? "original" : "other";
}

namespace {

// A simulator path some set provides, and the sets' bytes for it.
struct Offered {
    std::string path;
    std::vector<std::pair<std::size_t, std::string>> hashes; // set index, the set file's hash
};

// Paths as Windows compares them: letter case and the kind of separator do not count.
std::string PathKey(const std::string& path)
{
    return ToLowerAscii(ToNativeSeparators(path));
}

} // namespace

InstalledStatus ReadInstalledStatus(FileOperations& files, EventPump& events,
                                    const TextureFolders& folders,
                                    const std::vector<TextureSetEntry>& sets, HashCache& hashes,
                                    OriginalsStore* store, const std::function<bool()>& keepGoing)
{
    InstalledStatus status;
    std::map<std::string, Offered> offered; // by the path in lower case, as Windows compares
    for (std::size_t index = 0; index < sets.size(); ++index) {
        const TextureSetEntry& set = sets[index];
        const TextList names = ListSetFiles(ScanSetFolder(files, events, set.folder));
        const TextList targets = InstallTargets(folders, names);
        SetPlacement placement{set.name, 0, names.size()};
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (keepGoing && !keepGoing())
                return status;
            const std::optional<std::string> source = hashes.hashOf(JoinPath(set.folder, names[i]));
            const std::optional<std::string> target = hashes.hashOf(targets[i]);
            if (source && target && *source == *target)
                ++placement.placed;
            Offered& entry = offered[PathKey(targets[i])];
            if (entry.path.empty())
                entry.path = targets[i];
            if (source)
                entry.hashes.emplace_back(index, *source);
        }
        status.sets.push_back(std::move(placement));
    }

    std::map<std::string, std::string> kept; // the hash of each original, by path in lower case
    if (store)
        for (const KeptOriginal& original : store->entries())
            if (!original.absent())
                kept.emplace(PathKey(original.path), original.hash);
    for (auto& [key, entry] : offered) {
        if (keepGoing && !keepGoing())
            return status;
        SimulatorFileHolder file;
        file.path = entry.path;
        const std::optional<std::string> now = hashes.hashOf(entry.path);
        if (!now) {
            file.absent = true;
        } else {
            for (const auto& [index, hash] : entry.hashes)
                if (hash == *now && (file.sets.empty() || file.sets.back() != sets[index].name))
                    file.sets.push_back(sets[index].name);
            const auto original = kept.find(key);
            file.original = original != kept.end() && original->second == *now;
        }
        status.files.push_back(std::move(file));
    }
    return status;
}

TextList FoldersOfSetsInPlace(const InstalledStatus& status,
                              const std::vector<TextureSetEntry>& sets)
{
    TextList folders;
    for (std::size_t i = 0; i < status.sets.size() && i < sets.size(); ++i)
        if (status.sets[i].wholly())
            folders.push_back(sets[i].folder);
    return folders;
}

} // namespace vellumar
