#include "support/CdImage.h"

#include "support/TempFolder.h"

#include <cstdio>
#include <filesystem>

namespace vellumar::test {

std::string WriteCdImage(const std::string& folder, const std::string& name,
                         const std::vector<int>& trackSectors)
{
    constexpr int bytesPerSector = 2352;
    std::string data;
    std::string sheet = "FILE \"" + name + ".bin\" BINARY\n";
    for (std::size_t i = 0; i < trackSectors.size(); ++i) {
        const int start = static_cast<int>(data.size() / bytesPerSector);
        char lines[96];
        std::snprintf(lines, sizeof lines, "  TRACK %02d AUDIO\n    INDEX 01 %02d:%02d:%02d\n",
                      static_cast<int>(i + 1), start / 75 / 60, start / 75 % 60, start % 75);
        sheet += lines;
        data.append(static_cast<std::size_t>(trackSectors[i]) * bytesPerSector,
                    static_cast<char>(i + 1));
    }
    const std::filesystem::path base = std::filesystem::path(folder) / name;
    WriteWholeFile(base.string() + ".bin", data);
    WriteWholeFile(base.string() + ".cue", sheet);
    return base.string() + ".cue";
}

} // namespace vellumar::test
