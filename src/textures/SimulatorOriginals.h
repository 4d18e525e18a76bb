#pragma once

#include "common/OriginalsStore.h"
#include "common/TextList.h"

#include <string>
#include <vector>

namespace vellumar {

class FileOperations;
struct TextureServices;

// A kept original beside what the simulator holds at its path now.
struct OriginalNow {
    KeptOriginal original;
    bool differs = false; // the simulator's file is not the original (or is there when it was not)
};

// Every kept original (or those of `paths`, letter case ignored), with whether it differs now.
// `unknown` receives the paths the store keeps nothing for.
std::vector<OriginalNow> CompareOriginals(FileOperations& files, OriginalsStore& store,
                                          const TextList& paths = {}, TextList* unknown = nullptr);

// What putting originals back did.
struct OriginalsPutBack {
    TextList restored; // files given their original bytes again
    TextList removed;  // files the program had added where there were none
    TextList damaged;  // kept copies whose bytes no longer match their hash: not used
    TextList failed;   // files that could not be replaced or removed (read-only, say)

    bool complete() const { return damaged.empty() && failed.empty(); }
};

// Puts back the originals of the files that differ: each kept copy is checked against its
// hash and swapped in through a temporary file; a file that was not there before is removed.
OriginalsPutBack PutBackOriginals(FileOperations& files, OriginalsStore& store,
                                  const std::vector<OriginalNow>& originals);

// "Restore Simulator Originals": says how many files will change and asks; on Yes puts them
// back and says what was done. False when nothing was asked to change or something failed.
bool RestoreSimulatorOriginals(TextureServices& services, OriginalsStore& store,
                               const TextList& paths = {});

} // namespace vellumar
