#pragma once

#include <cstdint>
#include <vector>

namespace vellumar {

// What an audio CD holds, as its table of contents tells it: where each track starts and how
// long it is, in sectors of 1/75 second counted from the start of the first track's address
// space (the disc's logical sector numbers).
struct CdDisc {
    static constexpr int SectorsPerSecond = 75;
    static constexpr int BytesPerSector = 2352; // 588 stereo frames of 16-bit samples, 44100 Hz
    // An absolute time on the disc (minutes:seconds:frames) counts the two seconds before the
    // first track as well.
    static constexpr std::int32_t LeadInSectors = 150;

    struct Track {
        std::int32_t firstSector = 0;
        std::int32_t sectorCount = 0;
        bool audio = true;
        bool operator==(const Track&) const = default;
    };

    std::vector<Track> tracks;  // track 1 first
    std::int32_t endSector = 0; // the lead-out: one past the last sector of the last track

    int trackCount() const { return static_cast<int>(tracks.size()); }
    std::int32_t firstSector() const { return tracks.empty() ? 0 : tracks.front().firstSector; }
    // 1-based; `number` must lie in 1..trackCount().
    const Track& track(int number) const { return tracks[static_cast<std::size_t>(number - 1)]; }
    // The track that holds `sector`: the last track for a sector at or past the end, the first
    // for one before it.
    int trackAt(std::int32_t sector) const;

    bool operator==(const CdDisc&) const = default;
};

} // namespace vellumar
