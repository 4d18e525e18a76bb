#pragma once

#include "common/TextList.h"

#include <functional>
#include <string>
#include <vector>

namespace vellumar {

class EventPump;
class FileOperations;
class HashCache;
class OriginalsStore;
struct TextureFolders;
struct TextureSetEntry;

// How much of one set the simulator holds now, compared by content.
struct SetPlacement {
    std::string name;
    std::size_t placed = 0; // files whose target in the simulator has the set file's bytes
    std::size_t total = 0;  // the files an install of the whole set would place

    // Every file is in place; never for a set with nothing to install.
    bool wholly() const { return total > 0 && placed == total; }
    // "all", "some" or "none"; a set with nothing to install is "none".
    const char* state() const;
};

// What one simulator file that some set provides holds now.
struct SimulatorFileHolder {
    std::string path;
    // The sets whose file has these bytes, in library order; empty when none has.
    TextList sets;
    bool absent = false;   // there is no file
    bool original = false; // no set's bytes, but those the originals store kept for it

    // The first set's name, "original", "absent" or "other".
    std::string holder() const;
};

struct InstalledStatus {
    std::vector<SetPlacement> sets;         // in library order
    std::vector<SimulatorFileHolder> files; // sorted by path
};

// Compares every file an install of each set (all of its files, on its own) would place with
// what is at its target now, by SHA-256 through `hashes`, and says for each such target whose
// bytes it holds. `store` may be null: nothing then counts as the original. `keepGoing`, when
// given, is asked before each file; once it says no, the reading ends with what it has.
InstalledStatus ReadInstalledStatus(FileOperations& files, EventPump& events,
                                    const TextureFolders& folders,
                                    const std::vector<TextureSetEntry>& sets, HashCache& hashes,
                                    OriginalsStore* store,
                                    const std::function<bool()>& keepGoing = {});

// The folders of the sets that `status` (read for `sets`) finds wholly in place.
TextList FoldersOfSetsInPlace(const InstalledStatus& status,
                              const std::vector<TextureSetEntry>& sets);

} // namespace vellumar
