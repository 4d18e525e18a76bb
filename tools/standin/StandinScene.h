#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumar::standin {

// What the stand-in simulator shows, decided from the files alone: which bitmaps of the
// simulator folder make up the sky and which start situation fs9.cfg names. The window only
// paints it, so that the choice can be checked without a screen.
struct StandinScene {
    // Not empty when there is no sky to draw: why, in words for the user.
    std::string problem;

    std::string splash; // UIRES/dlgsplash.bmp in any letter case, "" when there is none
    std::string sky;    // the sky colour bitmap for the situation's time of day
    std::string earth;  // the haze over the ground, when a bitmap is installed
    std::vector<std::string> clouds; // cld*, cumul*, stratus*, cirrus*, cloud*.bmp by name
    std::string sun;
    std::string corona;
    std::vector<std::string> flares;
    std::string moon;
    std::vector<std::string> precipitation; // rain*.bmp and snow*.bmp
    // "dawn", "day", "dusk" or "night", from the hour the situation starts at; "day" without one.
    std::string timeOfDay = "day";

    // Bitmaps left out because they are cut short (still being copied, say) or are no bitmaps.
    std::vector<std::string> skipped;

    std::string situationName;  // the start situation's file name without extension, or ""
    std::string situationTitle; // [Main] Title of its .FLT, when the file could be read
    std::string installedAt;    // "HH:MM:SS" when the newest file came into the texture folder

    // Names, sizes and time stamps of every file the scene was made from; two scenes with the
    // same stamp show the same picture.
    std::string stamp;
};

// The scene of the simulator in `simulatorFolder`, with the start situation from `configFile`
// (none when ""); Windows paths map to host paths through the Wine prefix `winePrefix`.
StandinScene DescribeScene(const std::string& simulatorFolder, const std::string& configFile,
                           const std::string& winePrefix);

// "Storm approach" for "C:\Flights\Storm approach.FLT".
std::string SituationName(std::string_view windowsPath);

// The Wine prefix a simulator folder belongs to: $WINEPREFIX, else the folder above the
// drive_c the simulator is in, else ~/.wine.
std::string PrefixOfSimulator(const std::string& simulatorFolder);

// `name` in `folder` in any letter case, as Windows finds it; nothing when there is none.
std::optional<std::filesystem::path> ChildIgnoringCase(const std::filesystem::path& folder,
                                                       std::string_view name);

} // namespace vellumar::standin
