#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class DemoFolderWriter;

namespace demo {

// The demo's audio CD, a disc image the CD player reads through $VELLUMAR_CD: a CUE sheet and
// the .bin of the same name beside it (libcdio looks for it by that name).
inline constexpr std::string_view kDemoCdFolder = "CD";
inline constexpr std::string_view kDemoCdName = "Vellumar Demo";
inline constexpr int kDemoCdTracks = 3;

struct CdTrack {
    std::string title;
    std::string audio; // CD audio, a whole number of 2352-byte sectors
};

// The CUE sheet of a disc whose tracks lie back to back in `binName`, with the titles as
// CD-Text.
std::string CdCueSheet(std::string_view title, std::string_view binName,
                       const std::vector<CdTrack>& tracks);

// Writes the demo's CD below `cdFolder` (relative to the writer's root).
void WriteDemoCd(DemoFolderWriter& writer, std::string_view cdFolder);

} // namespace demo
} // namespace vellumar
