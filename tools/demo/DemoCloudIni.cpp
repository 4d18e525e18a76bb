#include "demo/DemoCloudIni.h"

#include "common/PathText.h"
#include "common/TextCompare.h"
#include "config/ProfileText.h"
#include "demo/DemoFolderWriter.h"
#include "demo/DemoTextureSets.h"

#include <algorithm>
#include <optional>

namespace vellumar::demo {

namespace {

constexpr std::string_view kAbsent = "\x01";

// The default file ends with an example set; the demo brings its own. Cuts the text at the
// first set section's header line.
std::string WithoutExampleSets(std::string text)
{
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::string_view line = TrimBlanks(std::string_view(text).substr(start, end - start));
        if (StartsWithIgnoreCase(line, "[Set") && line.size() > 4 && line[4] >= '0' &&
            line[4] <= '9')
            return text.substr(0, start);
        start = end + 1;
    }
    return text;
}

std::string Comment(std::string_view lines)
{
    std::string result;
    std::size_t start = 0;
    while (start <= lines.size()) {
        const std::size_t end = std::min(lines.find('\n', start), lines.size());
        result += "; " + std::string(lines.substr(start, end - start)) + "\n";
        start = end + 1;
    }
    return result;
}

std::string SetSections()
{
    std::string text;
    int number = 0;
    for (const DemoSet& set : DemoSets()) {
        text += "\n" + Comment(set.about);
        text += "[Set" + std::to_string(++number) + "]\n";
        text += "DirName=" + set.dirName + "\n";
        if (set.to != 0)
            text += "from=" + std::to_string(set.from) + "\nto=" + std::to_string(set.to) + "\n";
        if (!set.alias.empty())
            text += "Alias=" + set.alias + "\n";
        if (!set.random)
            text += "Random=off" + (set.randomComment.empty() ? "" : "   ' " + set.randomComment) +
                    "\n";
        if (set.order != 0)
            text += "Order=" + std::to_string(set.order) + "\n";
    }
    return text;
}

} // namespace

std::string SetIniValue(std::string text, std::string_view section, std::string_view key,
                        std::string_view value)
{
    std::string newValue(value);
    const std::string raw = ProfileText::Read(text, section, key, kAbsent, 4096);
    if (const std::size_t apostrophe = raw.find('\'');
        raw != kAbsent && apostrophe != std::string::npos) {
        std::size_t keep = apostrophe;
        while (keep > 0 && IsBlank(raw[keep - 1]))
            --keep;
        newValue += raw.substr(keep == 0 ? apostrophe : keep);
    }
    if (std::optional<std::string> edited = ProfileText::Edit(text, section, key, newValue))
        return std::move(*edited);
    return text;
}

std::string DemoCloudIni(std::string_view defaultIni, const DemoIniPaths& paths)
{
    std::string text = WithoutExampleSets(std::string(defaultIni));
    if (const std::size_t hint =
            text.find("; Replace the example below with the sets of your own library.");
        hint != std::string::npos)
        text.replace(hint, text.find('\n', hint) - hint,
                     "; The sets of the demo library follow, one of each kind.");

    const std::string sound = JoinPath(paths.home, "Sound");
    const struct {
        std::string_view section, key;
        std::string value;
    } settings[] = {
        {"AppName", "Name", "Vellumar demo"},
        // The registry of the demo prefix names the simulator; this is the way back when the
        // program runs without WINEPREFIX.
        {"FS2004Path", "Path", paths.simulatorFolder},
        {"StartSel", "Mode", "order"},
        {"Splash Screen", "Splash", "on"},
        // Sound file names with a folder are taken as they stand, so they are given in full.
        {"ButtonSound", "File", JoinPath(sound, "button.wav")},
        {"AutoRandomSound", "Beep", "on"},
        {"AutoRandomSound", "File", JoinPath(sound, "autorandom.wav")},
        {"Sound", "LastMusicPath", JoinPath(sound, "Ch1")},
        // The music list: a file from each channel's folder and a playlist of two more.
        {"Sound", "MusicFile1", JoinPath(JoinPath(sound, "Ch1"), "engine-drone.wav")},
        {"Sound", "MusicFile2", JoinPath(JoinPath(sound, "Ch3"), "little-waltz.wav")},
        {"Sound", "MusicFile3", JoinPath(JoinPath(sound, "Ch3"), "evening.m3u")},
        // A Windows path, found through the prefix's drive C:.
        {"Editor", "Path", "C:\\windows\\notepad.exe"},
        {"LastInstalled", "NumberOfDisp", "5"},
    };
    for (const auto& setting : settings)
        text = SetIniValue(std::move(text), setting.section, setting.key, setting.value);

    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    text += "\n" + SetSections();
    return WithCrLf(text);
}

} // namespace vellumar::demo
