#include "common/TextCompare.h"
#include "config/WinePrefix.h"

#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace vellumar::WinePrefix {

namespace fs = std::filesystem;

namespace {

bool IsFolder(const fs::path& path)
{
    std::error_code error;
    return fs::is_directory(path, error);
}

// The entry of `folder` named `name` in any letter case, as Wine would find it.
fs::path ChildIgnoringCase(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    if (fs::exists(folder / name, error))
        return folder / name;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        if (EqualsIgnoreCase(it->path().filename().string(), name))
            return it->path();
    return {};
}

std::string UserName()
{
    if (const char* user = std::getenv("USER"); user && *user)
        return user;
    if (const passwd* entry = getpwuid(getuid()); entry && entry->pw_name)
        return entry->pw_name;
    return {};
}

} // namespace

std::string Location()
{
    if (const char* prefix = std::getenv("WINEPREFIX"); prefix && *prefix)
        return prefix;
    if (const char* home = std::getenv("HOME"); home && *home)
        return (fs::path(home) / ".wine").string();
    return {};
}

bool Exists(const std::string& prefix)
{
    if (prefix.empty())
        return false;
    std::error_code error;
    return fs::exists(fs::path(prefix) / "system.reg", error) ||
           IsFolder(fs::path(prefix) / "drive_c");
}

std::string HostPath(const std::string& prefix, const std::string& windowsPath)
{
    std::string rest = windowsPath;
    fs::path base;
    const bool hasDrive =
        rest.size() >= 2 && rest[1] == ':' &&
        ((rest[0] >= 'A' && rest[0] <= 'Z') || (rest[0] >= 'a' && rest[0] <= 'z'));
    if (hasDrive) {
        const char letter = ToLowerAscii(rest[0]);
        const fs::path device = fs::path(prefix) / "dosdevices" / std::string{letter, ':'};
        std::error_code error;
        const fs::path target = fs::canonical(device, error);
        if (!error)
            base = target;
        else if (letter == 'c')
            base = fs::path(prefix) / "drive_c";
        else if (letter == 'z')
            base = "/";
        else
            base = device; // an unmapped drive: keep a path that plainly does not exist
        rest.erase(0, 2);
    }
    for (char& c : rest)
        if (c == '\\')
            c = '/';
    while (!rest.empty() && rest.front() == '/' && hasDrive)
        rest.erase(0, 1);
    if (!hasDrive)
        return rest;
    std::string host = base.string();
    if (!rest.empty()) {
        if (host.empty() || host.back() != '/')
            host.push_back('/');
        host += rest;
    }
    while (host.size() > 1 && host.back() == '/')
        host.pop_back();
    return host;
}

std::string WindowsPath(const std::string& prefix, const std::string& hostPath)
{
    std::error_code error;
    fs::path path = fs::weakly_canonical(fs::absolute(hostPath, error), error);
    if (error)
        path = fs::path(hostPath).lexically_normal();

    // The drive whose folder holds the path most closely; Z: (the root) when none does.
    char letter = 'Z';
    std::string rest = path.relative_path().string();
    std::size_t bestDepth = 0;
    auto consider = [&](char driveLetter, const fs::path& folder) {
        std::error_code failed;
        const fs::path target = fs::canonical(folder, failed);
        if (failed)
            return;
        std::string relative = path.lexically_relative(target).string();
        if (relative.empty() || relative.starts_with(".."))
            return;
        const auto depth = static_cast<std::size_t>(std::distance(target.begin(), target.end()));
        if (depth <= bestDepth)
            return;
        bestDepth = depth;
        letter = static_cast<char>(driveLetter - 'a' + 'A');
        rest = relative == "." ? std::string() : relative;
    };
    bool anyDrive = false;
    for (fs::directory_iterator it(fs::path(prefix) / "dosdevices", error), end;
         !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (name.size() == 2 && name[1] == ':' && name[0] >= 'a' && name[0] <= 'z') {
            anyDrive = true;
            consider(name[0], it->path());
        }
    }
    if (!anyDrive)
        consider('c', fs::path(prefix) / "drive_c");
    for (char& c : rest)
        if (c == '/')
            c = '\\';
    return std::string{letter, ':', '\\'} + rest;
}

std::string UserProfileFolder(const std::string& prefix)
{
    const fs::path users = ChildIgnoringCase(fs::path(prefix) / "drive_c", "users");
    if (users.empty())
        return {};
    if (const std::string user = UserName(); !user.empty()) {
        const fs::path own = ChildIgnoringCase(users, user);
        if (!own.empty() && IsFolder(own))
            return own.string();
    }
    // A prefix made by another account (or copied from one) has a single profile of its own.
    std::vector<fs::path> profiles;
    std::error_code error;
    for (fs::directory_iterator it(users, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (IsFolder(it->path()) && !EqualsIgnoreCase(name, "Public") &&
            !EqualsIgnoreCase(name, "Default") && !EqualsIgnoreCase(name, "All Users") &&
            !EqualsIgnoreCase(name, "Default User"))
            profiles.push_back(it->path());
    }
    return profiles.size() == 1 ? profiles.front().string() : std::string();
}

} // namespace vellumar::WinePrefix
