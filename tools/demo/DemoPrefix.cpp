#include "demo/DemoPrefix.h"

#include "demo/DemoEnvironment.h"
#include "demo/DemoFolderWriter.h"
#include "demo/DemoPictureFiles.h"
#include "demo/DemoPictures.h"
#include "demo/DemoSounds.h"
#include "demo/DemoTextureSets.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vellumar::demo {

namespace {

// Every key carries the same time stamp, so that two demos built apart are the same.
constexpr std::uint64_t kKeyTime = 1700000000; // seconds since 1970
constexpr std::uint64_t kSecondsFrom1601To1970 = 11644473600ull;

std::string KeyHeader(std::string_view key)
{
    char time[32];
    std::snprintf(
        time, sizeof time, "%llx",
        static_cast<unsigned long long>((kKeyTime + kSecondsFrom1601To1970) * 10000000ull));
    return "[" + EscapeRegistryText(key, ']') + "] " + std::to_string(kKeyTime) +
           "\n#time=" + time + "\n";
}

std::string Value(std::string_view name, std::string_view text)
{
    return "\"" + EscapeRegistryText(name, '"') + "\"=\"" + EscapeRegistryText(text, '"') + "\"\n";
}

// An expandable string (REG_EXPAND_SZ), such as a path that starts with %SystemRoot%.
std::string ExpandableValue(std::string_view name, std::string_view text)
{
    const std::string prefix = name.empty() ? "@" : "\"" + EscapeRegistryText(name, '"') + "\"";
    return prefix + "=str(2):\"" + EscapeRegistryText(text, '"') + "\"\n";
}

std::string DwordValue(std::string_view name, std::uint32_t value)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%08x", static_cast<unsigned>(value));
    return "\"" + EscapeRegistryText(name, '"') + "\"=dword:" + digits + "\n";
}

std::string HiveHeader(std::string_view relativeTo)
{
    return "WINE REGISTRY Version 2\n;; All keys relative to " + std::string(relativeTo) +
           "\n\n#arch=win64\n";
}

std::string SystemRegistry(std::string_view userName)
{
    std::string text = HiveHeader("\\\\Machine");
    text += "\n" + KeyHeader("Software\\Microsoft\\Windows NT\\CurrentVersion");
    text += Value("CurrentBuild", "7601");
    text += Value("CurrentBuildNumber", "7601");
    text += Value("CurrentVersion", "6.1");
    text += Value("ProductName", "Microsoft Windows 7");
    text += Value("RegisteredOrganization", "");
    text += Value("RegisteredOwner", userName);
    text += Value("SystemRoot", "C:\\windows");
    text += "\n" + KeyHeader("Software\\Microsoft\\Windows\\CurrentVersion");
    text += Value("CommonFilesDir", "C:\\Program Files\\Common Files");
    text += Value("ProgramFilesDir", "C:\\Program Files");
    text += Value("ProgramFilesDir (x86)", "C:\\Program Files (x86)");
    // A 32-bit program's keys live in the 32-bit view of a 64-bit prefix, where the
    // simulator's installer put them.
    text += "\n" + KeyHeader("Software\\Wow6432Node\\Microsoft\\DirectX");
    text += Value("Version", "4.09.00.0904");
    text += "\n" +
            KeyHeader("Software\\Wow6432Node\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0");
    text += Value("EXE Path", kSimulatorWindowsPath);
    text += DwordValue("Language", 0x409);
    text += Value("Version", "9.1");
    text += "\n" + KeyHeader("System\\CurrentControlSet\\Control\\Session Manager\\Environment");
    text += Value("PATHEXT", ".COM;.EXE;.BAT;.CMD");
    text +=
        ExpandableValue("PATH", "%SystemRoot%\\system32;%SystemRoot%;%SystemRoot%\\system32\\wbem");
    text += ExpandableValue("TEMP", "%SystemRoot%\\TEMP");
    text += ExpandableValue("windir", "%SystemRoot%");
    return text;
}

// The default user's hive, where the system keeps the sounds of the message box events.
std::string DefaultUserRegistry()
{
    std::string text = HiveHeader("\\\\User\\\\.Default");
    const std::pair<const char*, const char*> events[] = {{"SystemAsterisk", "ding.wav"},
                                                          {"SystemExclamation", "chord.wav"},
                                                          {"SystemHand", "critical.wav"},
                                                          {"SystemQuestion", "chimes.wav"}};
    for (const auto& [event, file] : events) {
        text += "\n" + KeyHeader(std::string("AppEvents\\Schemes\\Apps\\.Default\\") + event +
                                 "\\.Current");
        text += ExpandableValue("", std::string("%SystemRoot%\\Media\\") + file);
    }
    text += "\n" + KeyHeader("Control Panel\\Desktop");
    text += Value("Wallpaper", "");
    text += "\n" + KeyHeader("Control Panel\\International");
    text += Value("Locale", "00000409");
    text += Value("sShortDate", "M/d/yyyy");
    return text;
}

std::string UserRegistry(std::string_view userName)
{
    const std::string profile = "C:\\users\\" + std::string(userName);
    std::string text = HiveHeader("\\\\User\\\\S-1-5-21-0-0-0-1000");
    text +=
        "\n" + KeyHeader("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders");
    text += Value("AppData", profile + "\\AppData\\Roaming");
    text += Value("Local AppData", profile + "\\AppData\\Local");
    text += Value("Personal", profile + "\\Documents");
    text += "\n" + KeyHeader("Software\\Wine");
    text += Value("Version", "win7");
    return text;
}

// The simulator's per-user configuration; [STARTUP] STARTUP_FLIGHT names the start situation.
std::string SimulatorConfig()
{
    return "[MAIN]\n"
           "User Objects=Airplane, Helicopter\n"
           "Maximized=1\n"
           "\n"
           "[DISPLAY]\n"
           "TEXTURE_BANDWIDTH_MULT=40\n"
           "UPPER_FRAMERATE_LIMIT=30\n"
           "\n"
           "[WEATHER]\n"
           "CLOUD_DRAW_DISTANCE=6\n"
           "DETAILED_CLOUDS=1\n"
           "CLOUD_COVERAGE_DENSITY=8\n"
           "\n"
           "[SOUND]\n"
           "SOUND=1\n"
           "\n"
           "[STARTUP]\n"
           "SHOW_OPENING_SCREEN=1\n"
           "STARTUP_FLIGHT=\n";
}

// What stands in for a Windows program: it starts with "MZ" like every Windows executable,
// so the program knows to start it through Wine, but it is not one.
std::string PlaceholderExecutable(std::string_view name)
{
    std::string bytes = "MZ";
    bytes.append(62, '\0');
    bytes += "Vellumar demo: a stand-in for " + std::string(name) +
             ". It marks the folder as a simulator installation and does not run.\r\n";
    return bytes;
}

// What starts the stand-in simulator in place of fs9.exe. The shell stays (no exec), so that its
// command line keeps naming fs9.exe, which is how Vellumar finds a running simulator.
std::string StandinScript(std::string_view standinProgram, std::string_view config)
{
    return "#!/bin/sh\n"
           "# Vellumar demo: stands in for Flight Simulator 2004. It shows the sky installed in\n"
           "# this folder and the start situation of fs9.cfg.\n" +
           ShellQuoted(standinProgram) + " --simulator \"$(dirname \"$0\")\" --config " +
           ShellQuoted(config) + "\n";
}

} // namespace

std::string EscapeRegistryText(std::string_view text, char closing)
{
    // UTF-8 to UTF-16 code units; a broken sequence becomes U+FFFD.
    std::vector<std::uint16_t> units;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        std::uint32_t code = 0xFFFD;
        std::size_t length = 1;
        if (lead < 0x80) {
            code = lead;
        } else if (lead >= 0xC2 && lead < 0xF5) {
            length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
            std::uint32_t value = lead & (0x3F >> (length - 1));
            bool valid = i + length <= text.size();
            for (std::size_t k = 1; valid && k < length; ++k) {
                const auto next = static_cast<unsigned char>(text[i + k]);
                valid = (next & 0xC0) == 0x80;
                value = (value << 6) | (next & 0x3F);
            }
            if (valid)
                code = value;
            else
                length = 1;
        }
        i += length;
        if (code >= 0x10000) {
            code -= 0x10000;
            units.push_back(static_cast<std::uint16_t>(0xD800 + (code >> 10)));
            units.push_back(static_cast<std::uint16_t>(0xDC00 + (code & 0x3FF)));
        } else {
            units.push_back(static_cast<std::uint16_t>(code));
        }
    }

    static constexpr std::string_view kEscapes = ".......abtnvfr.............e....";
    auto isHexDigit = [](std::uint16_t c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    };
    std::string result;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const std::uint16_t c = units[i];
        const std::uint16_t next = i + 1 < units.size() ? units[i + 1] : 0;
        char buffer[16];
        if (c > 127) {
            // A following hex digit would read as part of the code: then the code takes all
            // four digits.
            std::snprintf(buffer, sizeof buffer, isHexDigit(next) ? "\\x%04x" : "\\x%x",
                          static_cast<unsigned>(c));
            result += buffer;
        } else if (c < 32) {
            if (kEscapes[c] != '.') {
                result += '\\';
                result += kEscapes[c];
            } else {
                std::snprintf(buffer, sizeof buffer, next >= '0' && next <= '7' ? "\\%03o" : "\\%o",
                              static_cast<unsigned>(c));
                result += buffer;
            }
        } else {
            if (c == '\\' || c == static_cast<unsigned char>(closing))
                result += '\\';
            result += static_cast<char>(c);
        }
    }
    return result;
}

std::vector<std::string> WriteWinePrefix(DemoFolderWriter& writer, std::string_view prefixFolder,
                                         std::string_view userName, std::string_view standinProgram)
{
    std::vector<std::string> notes;
    if (writer.failed())
        return notes;
    const std::string prefix(prefixFolder);
    writer.file(prefix + "/system.reg", SystemRegistry(userName));
    writer.file(prefix + "/userdef.reg", DefaultUserRegistry());
    writer.file(prefix + "/user.reg", UserRegistry(userName));

    const std::string drive = prefix + "/drive_c";
    const std::string windows = drive + "/windows";
    writer.folder(windows + "/system32");
    writer.file(windows + "/notepad.exe", PlaceholderExecutable("notepad.exe"));
    writer.textFile(windows + "/win.ini",
                    "[fonts]\n[extensions]\n[mci extensions]\n[files]\n[Mail]\nMAPI=1\n");
    const char* media[] = {"ding.wav", "chord.wav", "chimes.wav", "critical.wav"};
    for (int kind = 0; kind < 4; ++kind)
        writer.file(windows + "/Media/" + media[kind], SystemEventWave(kind));
    writer.folder(drive + "/Program Files/Common Files");

    // The simulator as its installer leaves it: the executable and the original files that
    // texture sets replace.
    const std::string simulator = drive + "/" + std::string(kSimulatorInDriveC);
    const std::string profile = drive + "/users/" + std::string(userName);
    const std::string config = profile + "/AppData/Roaming/Microsoft/FS9/fs9.cfg";
    if (standinProgram.empty()) {
        writer.file(simulator + "/fs9.exe", PlaceholderExecutable("fs9.exe"));
    } else if (writer.file(simulator + "/fs9.exe",
                           StandinScript(standinProgram, writer.path(config)))) {
        std::error_code error;
        std::filesystem::permissions(
            writer.path(simulator + "/fs9.exe"),
            std::filesystem::perms::owner_all | std::filesystem::perms::group_read |
                std::filesystem::perms::group_exec | std::filesystem::perms::others_read |
                std::filesystem::perms::others_exec,
            error);
        if (error)
            notes.push_back("could not make " + writer.path(simulator + "/fs9.exe") +
                            " executable (" + error.message() + ")");
    }
    writer.file(simulator + "/texture/cld01.bmp",
                BitmapFile(CloudTexture(CloudKind::Cumulus, 9001)));
    writer.file(simulator + "/texture/cirrus01.bmp",
                BitmapFile(CloudTexture(CloudKind::Cirrus, 9002)));
    writer.file(simulator + "/texture/sky_day.bmp", BitmapFile(SkyTexture(SkyTime::Day, false)));
    writer.file(simulator + "/texture/sky_dusk.bmp", BitmapFile(SkyTexture(SkyTime::Dusk, false)));
    writer.file(simulator + "/texture/sun.bmp", BitmapFile(SunTexture()));
    writer.file(simulator + "/texture/moon.bmp", BitmapFile(MoonTexture(0)));
    writer.file(simulator + "/texture/rain01.bmp", GreyBitmapFile(RainTexture(9003, 100)));
    writer.textFile(simulator + "/weather/clouds/clouds.cld",
                    CloudFileText("Default clouds", "Cumulus", {"cld01.bmp"}, 4000, 7000, "4/8"));
    writer.textFile(simulator + "/effects/glow.fx", EffectFileText("Default glow", "fx_glow.bmp"));
    writer.file(simulator + "/effects/texture/fx_glow.bmp", BitmapFile(GlowTexture()));
    writer.file(simulator + "/UIRES/dlgsplash.bmp", BitmapFile(SplashPicture(0)));
    writer.textFile(simulator + "/suneffect.cfg",
                    SunEffectText("Default sun", "sun.bmp", "corona.bmp", {}, "255,250,240"));
    writer.file(simulator + "/sound/thunder/xthun4c.wav", ThunderWave());

    // The user's profile: saved flights in the documents, fs9.cfg in the application data.
    writer.textFile(
        profile + "/Documents/Flight Simulator Files/Previous flight.FLT",
        "[Main]\nTitle=Previous flight\nDescription=Saved when the simulator closed.\n\n"
        "[DateTimeSeason]\nSeason=Summer\nYear=2004\nDay=172\nHours=14\nMinutes=5\n");
    writer.folder(profile + "/AppData/Local");
    writer.textFile(config, SimulatorConfig());
    writer.folder(drive + "/users/Public/Documents");

    // Drive C: of the prefix, as Wine links it.
    writer.folder(prefix + "/dosdevices");
    if (!writer.failed()) {
        std::error_code error;
        std::filesystem::create_directory_symlink("../drive_c",
                                                  writer.path(prefix + "/dosdevices/c:"), error);
        if (error)
            notes.push_back("could not link " + writer.path(prefix + "/dosdevices/c:") +
                            " to ../drive_c (" + error.message() +
                            "); Wine and Vellumar still find drive C: in drive_c");
    }
    return notes;
}

} // namespace vellumar::demo
