#include "standin/StandinScene.h"

#include "common/TextCompare.h"
#include "config/CodePage.h"
#include "config/ProfileText.h"
#include "config/WinePrefix.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace vellumar::standin {

namespace fs = std::filesystem;

namespace {

// A configuration or situation file is a few kilobytes; anything far larger is not one.
constexpr std::uintmax_t kLargestTextFile = 1 << 20;
constexpr std::size_t kValueBuffer = 2048;

std::optional<std::string> ReadSmallFile(const fs::path& path)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    if (error || size > kLargestTextFile)
        return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        return std::nullopt;
    return bytes;
}

std::string ReadValue(const std::string& contents, std::string_view section, std::string_view key)
{
    return DecodeAnsiText(ProfileText::Read(contents, section, key, "", kValueBuffer));
}

// When a file was last written or put in place, in nanoseconds since 1970. A copy keeps the
// time stamp of its source, so the time the file came into this folder is its status change
// time.
std::int64_t ArrivalTime(const fs::path& path, fs::file_time_type written)
{
    std::int64_t nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(
                                   std::chrono::file_clock::to_sys(written).time_since_epoch())
                                   .count();
#ifndef _WIN32
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0)
        nanoseconds = std::max<std::int64_t>(
            nanoseconds, std::int64_t(status.st_ctim.tv_sec) * 1000000000 + status.st_ctim.tv_nsec);
#else
    (void)path;
#endif
    return nanoseconds;
}

std::string ClockText(std::int64_t nanosecondsSince1970)
{
    const auto seconds = static_cast<std::time_t>(nanosecondsSince1970 / 1000000000);
    const std::tm* local = std::localtime(&seconds);
    if (!local)
        return {};
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", local->tm_hour, local->tm_min,
                  local->tm_sec);
    return text;
}

// Whether a .bmp file holds as many bytes as its header promises. A file being copied is read
// by Qt without complaint and drawn half black; the header says what is missing.
bool IsWholeBitmap(const fs::path& path, std::uintmax_t size)
{
    std::ifstream in(path, std::ios::binary);
    unsigned char header[14] = {};
    if (!in.read(reinterpret_cast<char*>(header), sizeof header))
        return false;
    auto u32 = [&header](int at) {
        return std::uint32_t(header[at]) | std::uint32_t(header[at + 1]) << 8 |
               std::uint32_t(header[at + 2]) << 16 | std::uint32_t(header[at + 3]) << 24;
    };
    const std::uint32_t declared = u32(2); // some writers leave it 0
    return header[0] == 'B' && header[1] == 'M' && u32(10) < size &&
           (declared == 0 || size >= declared);
}

std::string TimeOfDay(int hour)
{
    if (hour < 0 || hour > 23)
        return "day";
    if (hour >= 5 && hour < 8)
        return "dawn";
    if (hour >= 8 && hour < 18)
        return "day";
    if (hour >= 18 && hour < 21)
        return "dusk";
    return "night";
}

// The file named `stem` + `wanted` + ".bmp" among `names`, else the first that starts with `stem`
// and is not `avoid`.
std::string Pick(const std::vector<std::pair<std::string, fs::path>>& bitmaps,
                 std::string_view stem, std::string_view wanted, std::string_view avoid = {})
{
    for (const auto& [name, path] : bitmaps)
        if (EqualsIgnoreCase(name, std::string(stem) + std::string(wanted) + ".bmp"))
            return path.string();
    for (const auto& [name, path] : bitmaps)
        if (StartsWithIgnoreCase(name, stem) &&
            (avoid.empty() ||
             !EqualsIgnoreCase(name, std::string(stem) + std::string(avoid) + ".bmp")))
            return path.string();
    return {};
}

bool IsCloud(std::string_view name)
{
    // cld* takes in the thunder clouds (cldcn*) too.
    for (std::string_view stem : {"cld", "cumul", "stratus", "cirrus", "cloud"})
        if (StartsWithIgnoreCase(name, stem))
            return true;
    return false;
}

void ReadSituation(StandinScene& scene, const std::string& configFile,
                   const std::string& winePrefix)
{
    if (configFile.empty())
        return;
    const std::optional<std::string> config = ReadSmallFile(configFile);
    if (!config) {
        scene.stamp += "config unreadable\n";
        return;
    }
    const std::string flight = ReadValue(*config, "STARTUP", "STARTUP_FLIGHT");
    scene.stamp += "flight " + flight + "\n";
    scene.situationName = SituationName(flight);
    if (scene.situationName.empty())
        return;

    fs::path path = WinePrefix::HostPath(winePrefix, flight);
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        if (const auto found = ChildIgnoringCase(path.parent_path(), path.filename().string()))
            path = *found;
    const std::optional<std::string> situation = ReadSmallFile(path);
    if (!situation)
        return;
    scene.situationTitle = ReadValue(*situation, "Main", "Title");
    const std::string hours = ReadValue(*situation, "DateTimeSeason", "Hours");
    char* end = nullptr;
    const long hour = std::strtol(hours.c_str(), &end, 10);
    if (!hours.empty() && end && *end == '\0')
        scene.timeOfDay = TimeOfDay(static_cast<int>(hour));
    scene.stamp += "title " + scene.situationTitle + "\nhour " + hours + "\n";
}

} // namespace

std::optional<fs::path> ChildIgnoringCase(const fs::path& folder, std::string_view name)
{
    std::error_code error;
    if (fs::exists(folder / name, error))
        return folder / name;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (EqualsIgnoreCase(it->path().filename().string(), name))
            return it->path();
    return std::nullopt;
}

std::string SituationName(std::string_view windowsPath)
{
    std::string_view name = TrimBlanks(windowsPath);
    const std::size_t separator = name.find_last_of("\\/");
    if (separator != std::string_view::npos)
        name.remove_prefix(separator + 1);
    if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos && dot > 0)
        name = name.substr(0, dot);
    return std::string(name);
}

std::string PrefixOfSimulator(const std::string& simulatorFolder)
{
    if (const char* prefix = std::getenv("WINEPREFIX"); prefix && *prefix)
        return prefix;
    std::error_code error;
    const fs::path folder = fs::absolute(simulatorFolder, error).lexically_normal();
    for (fs::path above = folder; above.has_relative_path(); above = above.parent_path())
        if (EqualsIgnoreCase(above.filename().string(), "drive_c"))
            return above.parent_path().string();
    return WinePrefix::Location();
}

StandinScene DescribeScene(const std::string& simulatorFolder, const std::string& configFile,
                           const std::string& winePrefix)
{
    StandinScene scene;
    ReadSituation(scene, configFile, winePrefix);

    std::error_code error;
    const fs::path simulator(simulatorFolder);
    if (!fs::is_directory(simulator, error)) {
        scene.problem = "The simulator folder " + simulatorFolder +
                        " does not exist.\nStart the stand-in with --simulator FOLDER.";
        scene.stamp += "no simulator\n";
        return scene;
    }
    if (const auto uires = ChildIgnoringCase(simulator, "UIRES"))
        if (const auto splash = ChildIgnoringCase(*uires, "dlgsplash.bmp")) {
            if (IsWholeBitmap(*splash, fs::file_size(*splash, error)))
                scene.splash = splash->string();
            const std::int64_t arrived = ArrivalTime(*splash, fs::last_write_time(*splash, error));
            scene.stamp += "splash " + std::to_string(fs::file_size(*splash, error)) + " " +
                           std::to_string(arrived) + "\n";
        }

    const std::optional<fs::path> texture = ChildIgnoringCase(simulator, "texture");
    if (!texture || !fs::is_directory(*texture, error)) {
        scene.problem = "There is no texture folder in " + simulatorFolder +
                        ".\nThis is not a simulator folder, or nothing was ever installed in it.";
        scene.stamp += "no texture folder\n";
        return scene;
    }

    std::vector<std::pair<std::string, fs::path>> bitmaps;
    std::optional<std::int64_t> newest;
    std::vector<std::string> stamps;
    for (fs::directory_iterator it(*texture, error), end; !error && it != end;
         it.increment(error)) {
        std::error_code fileError;
        if (!it->is_regular_file(fileError))
            continue;
        const std::string name = it->path().filename().string();
        const fs::file_time_type written = it->last_write_time(fileError);
        const std::int64_t arrived = ArrivalTime(it->path(), written);
        const std::uintmax_t size = it->file_size(fileError);
        // Another set's file of the same name and size may carry an older time stamp: the
        // arrival time tells them apart.
        stamps.push_back(name + " " + std::to_string(size) + " " +
                         std::to_string(written.time_since_epoch().count()) + " " +
                         std::to_string(arrived));
        if (!newest || arrived > *newest)
            newest = arrived;
        if (!EndsWithIgnoreCase(name, ".bmp"))
            continue;
        if (IsWholeBitmap(it->path(), size))
            bitmaps.emplace_back(name, it->path());
        else
            scene.skipped.push_back(name);
    }
    // The folder's own order differs from machine to machine; the picture must not.
    std::sort(bitmaps.begin(), bitmaps.end(),
              [](const auto& a, const auto& b) { return CompareIgnoreCase(a.first, b.first) < 0; });
    std::sort(stamps.begin(), stamps.end());
    std::sort(scene.skipped.begin(), scene.skipped.end());
    for (const std::string& line : stamps)
        scene.stamp += line + "\n";
    if (newest)
        scene.installedAt = ClockText(*newest);

    scene.sky = Pick(bitmaps, "sky_", scene.timeOfDay);
    if (scene.sky.empty())
        scene.sky = Pick(bitmaps, "sky_", "day");
    const bool night = scene.timeOfDay == "night";
    scene.earth =
        night ? Pick(bitmaps, "earth_", "night") : Pick(bitmaps, "earth_", "haze", "night");
    for (const auto& [name, path] : bitmaps) {
        if (IsCloud(name))
            scene.clouds.push_back(path.string());
        else if (EqualsIgnoreCase(name, "sun.bmp"))
            scene.sun = path.string();
        else if (EqualsIgnoreCase(name, "corona.bmp"))
            scene.corona = path.string();
        else if (EqualsIgnoreCase(name, "moon.bmp"))
            scene.moon = path.string();
        else if (StartsWithIgnoreCase(name, "flare"))
            scene.flares.push_back(path.string());
        else if (StartsWithIgnoreCase(name, "rain") || StartsWithIgnoreCase(name, "snow"))
            scene.precipitation.push_back(path.string());
    }
    return scene;
}

} // namespace vellumar::standin
