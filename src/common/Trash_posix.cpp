#include "common/Trash.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace vellumar {

namespace {

std::string ParentOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string Absolute(const std::string& path)
{
    if (!path.empty() && path.front() == '/')
        return path;
    char buffer[4096];
    if (!::getcwd(buffer, sizeof buffer))
        return path;
    return std::string(buffer) + "/" + path;
}

std::optional<dev_t> DeviceOf(std::string path)
{
    // The home trash may not exist yet: its nearest existing folder decides.
    struct stat status {};
    while (::stat(path.c_str(), &status) != 0) {
        if (path == "/" || path == ".")
            return std::nullopt;
        path = ParentOf(path);
    }
    return status.st_dev;
}

bool MakeFolder(const std::string& path)
{
    if (::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) {
        struct stat status {};
        return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    }
    if (errno != ENOENT)
        return false;
    return MakeFolder(ParentOf(path)) && (::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST);
}

// A trash's path text: bytes outside the plain ones as %XX, as a URL has them.
std::string Escaped(const std::string& path)
{
    std::string escaped;
    for (const unsigned char c : path) {
        if (std::isalnum(c) || std::strchr("/-._~", c)) {
            escaped.push_back(static_cast<char>(c));
        } else {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%%%02X", c);
            escaped += hex;
        }
    }
    return escaped;
}

// The top folder of the file system that holds `path`.
std::string TopFolderOf(const std::string& path, dev_t device)
{
    std::string top = ParentOf(path);
    while (top != "/") {
        const std::string parent = ParentOf(top);
        struct stat status {};
        if (::stat(parent.c_str(), &status) != 0 || status.st_dev != device)
            break;
        top = parent;
    }
    return top;
}

struct TrashFolder {
    std::string folder;   // holds files/ and info/
    std::string pathBase; // "" for the home trash: info files then hold absolute paths
};

std::optional<TrashFolder> TrashFor(const std::string& path, dev_t device)
{
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::string homeTrash;
    if (dataHome && *dataHome == '/')
        homeTrash = std::string(dataHome) + "/Trash";
    else if (home && *home)
        homeTrash = std::string(home) + "/.local/share/Trash";
    if (!homeTrash.empty() && DeviceOf(homeTrash) == device)
        return TrashFolder{homeTrash, ""};

    // Another file system: its own trash, shared by its users, else one of our own.
    const std::string top = TopFolderOf(path, device);
    const std::string uid = std::to_string(::getuid());
    const std::string topBase = top == "/" ? "" : top;
    struct stat status {};
    const std::string shared = topBase + "/.Trash";
    if (::lstat(shared.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
        (status.st_mode & S_ISVTX) && MakeFolder(shared + "/" + uid))
        return TrashFolder{shared + "/" + uid, top};
    const std::string own = topBase + "/.Trash-" + uid;
    if (MakeFolder(own))
        return TrashFolder{own, top};
    return std::nullopt;
}

std::string RelativeTo(const std::string& path, const std::string& base)
{
    if (base.empty())
        return path;
    if (base == "/")
        return path.substr(1);
    return path.substr(base.size() + 1);
}

std::string DeletionDate()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    return text;
}

} // namespace

std::string MoveToTrash(const std::string& given)
{
    std::string path = Absolute(given);
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        return given + ": " + std::strerror(errno);
    const std::optional<TrashFolder> trash = TrashFor(path, status.st_dev);
    if (!trash || !MakeFolder(trash->folder + "/files") || !MakeFolder(trash->folder + "/info"))
        return given + ": there is no trash to move it to";

    const std::string name = NameOf(path);
    const std::string info = "[Trash Info]\nPath=" + Escaped(RelativeTo(path, trash->pathBase)) +
                             "\nDeletionDate=" + DeletionDate() + "\n";
    // The info file is made first and exclusively: it reserves the name in the trash.
    for (int number = 1; number < 10000; ++number) {
        const std::string trashName = number == 1 ? name : name + " " + std::to_string(number);
        const std::string infoPath = trash->folder + "/info/" + trashName + ".trashinfo";
        const int fd = ::open(infoPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (fd < 0) {
            if (errno == EEXIST)
                continue;
            return given + ": " + std::strerror(errno);
        }
        const bool written =
            ::write(fd, info.data(), info.size()) == static_cast<ssize_t>(info.size());
        const bool closed = ::close(fd) == 0;
        const std::string target = trash->folder + "/files/" + trashName;
        struct stat existing {};
        if (::lstat(target.c_str(), &existing) == 0) {
            // A file of the trash without its info: the name stays taken.
            ::unlink(infoPath.c_str());
            continue;
        }
        if (!written || !closed || ::rename(path.c_str(), target.c_str()) != 0) {
            const int error = errno;
            ::unlink(infoPath.c_str());
            return given + ": " + std::strerror(written && closed ? error : EIO);
        }
        return {};
    }
    return given + ": the trash holds too many of that name";
}

} // namespace vellumar
