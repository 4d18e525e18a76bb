#include "GeneratedLibrary.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <pwd.h>
#include <unistd.h>

namespace vellumar::bench {

namespace fs = std::filesystem;

std::string GenerateLibrary(const std::string& folder, int sets, int filesPerSet)
{
    const fs::path home = fs::path(folder) / "home";
    if (fs::exists(home / "cloud.ini"))
        return home.string();
    static const char* const kinds[] = {"cld", "cirrus", "sky_", "moon", "rain"};
    fs::create_directories(home);
    std::ofstream ini(home.parent_path() / "cloud.tmp");
    ini << "[PathCheck]\r\nCheck=off\r\n[ButtonSound]\r\nBeep=off\r\n[AppName]\r\nName=Vellumar\r\n"
           "[FS2004Path]\r\nPath=FS9\r\n[Situation]\r\nCfgFile=fs9.cfg\r\n";
    char name[128];
    for (int set = 0; set < sets; ++set) {
        std::snprintf(name, sizeof name, "Group %02d/Set %04d", set / 50, set);
        const fs::path dir = home / "Texture" / name;
        fs::create_directories(dir);
        for (int file = 0; file < filesPerSet; ++file) {
            std::snprintf(name, sizeof name, "%s%02d.bmp", kinds[set % 5], file);
            std::ofstream(dir / name) << "BM";
        }
        std::snprintf(name, sizeof name, "[Set%d]\r\nDirName=Group %02d\\Set %04d\r\n", set + 1,
                      set / 50, set);
        ini << name;
        if (set % 7 == 0)
            ini << "Random=off\r\n";
    }
    ini.close();
    fs::create_directories(home / "Splash Screen");
    fs::create_directories(home / "Situation");
    for (const char* channel : {"Ch1", "Ch2", "Ch3"})
        fs::create_directories(home / "Sound" / channel);
    fs::create_directories(home / "FS9");
    std::ofstream(home / "FS9" / "fs9.exe") << "MZ";
    // A Wine prefix whose user has the simulator's per-user folder.
    const fs::path prefix = fs::path(folder) / "prefix";
    const char* user = std::getenv("USER");
    const passwd* entry = getpwuid(getuid());
    const std::string userName = user && *user ? user : (entry ? entry->pw_name : "user");
    const fs::path profile = prefix / "drive_c" / "users" / userName;
    fs::create_directories(prefix / "drive_c" / "windows");
    fs::create_directories(profile / "Documents");
    fs::create_directories(profile / "AppData" / "Roaming" / "Microsoft" / "FS9");
    std::ofstream(profile / "AppData" / "Roaming" / "Microsoft" / "FS9" / "fs9.cfg")
        << "[Main]\r\n";
    std::ofstream(prefix / "system.reg") << "WINE REGISTRY Version 2\n";
    fs::rename(home.parent_path() / "cloud.tmp", home / "cloud.ini");
    return home.string();
}

} // namespace vellumar::bench
