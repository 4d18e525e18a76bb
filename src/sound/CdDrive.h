#pragma once

#include "sound/CdDisc.h"

#include <cstdint>
#include <memory>

namespace vellumar {

// A CD drive as the interpreter of media control commands sees it: a disc is in it or not, and
// its audio sectors can be read. A disc image stands in for a drive with the same calls.
class CdDrive {
public:
    virtual ~CdDrive() = default;

    // Looks again whether a disc is in the drive (a disc put in or taken out, an image written,
    // replaced or deleted). Cheap when nothing changed. Returns true when the disc changed.
    virtual bool Refresh() = 0;
    // The disc found by the last Refresh; nullptr when there was none.
    virtual const CdDisc* disc() const = 0;
    // Reads `count` sectors from `first` into `into` (count * CdDisc::BytesPerSector bytes).
    // False when they cannot all be read: past the end of the disc, or the disc went away.
    virtual bool ReadAudio(std::int32_t first, std::int32_t count, std::uint8_t* into) = 0;
};

} // namespace vellumar
