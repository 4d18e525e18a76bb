// The registry of the Wine prefix, read from the text files Wine keeps it in.

#include "common/TextCompare.h"
#include "config/Registry.h"
#include "config/WinePrefix.h"
#include "config/WineRegistryFile.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace vellumar {

namespace {

std::string TrimSeparators(std::string_view path)
{
    while (!path.empty() && path.front() == '\\')
        path.remove_prefix(1);
    while (!path.empty() && path.back() == '\\')
        path.remove_suffix(1);
    return std::string(path);
}

class WinePrefixRegistry final : public Registry {
public:
    std::optional<std::string> readString(std::uint32_t hive, const std::string& keyPath,
                                          const std::string& valueName) override
    {
        const std::string prefix = WinePrefix::Location();
        if (prefix.empty())
            return std::nullopt;
        std::string key = TrimSeparators(keyPath);
        std::string file;
        std::vector<std::string> candidates;
        switch (hive) {
        case RegistryHive::LocalMachine: {
            file = "system.reg";
            candidates.push_back(key);
            // A 32-bit installer's keys live in the 32-bit view of a 64-bit prefix.
            constexpr std::string_view software = "Software\\";
            if (StartsWithIgnoreCase(key, software) &&
                !StartsWithIgnoreCase(key, "Software\\Wow6432Node"))
                candidates.push_back("Software\\Wow6432Node\\" + key.substr(software.size()));
            break;
        }
        case RegistryHive::Users: {
            // Only the default user's hive is kept in a file of its own.
            constexpr std::string_view defaultUser = ".DEFAULT";
            if (!StartsWithIgnoreCase(key, defaultUser) ||
                (key.size() > defaultUser.size() && key[defaultUser.size()] != '\\'))
                return std::nullopt;
            file = "userdef.reg";
            candidates.push_back(TrimSeparators(std::string_view(key).substr(defaultUser.size())));
            break;
        }
        case RegistryHive::CurrentUser:
            file = "user.reg";
            candidates.push_back(key);
            break;
        default:
            return std::nullopt;
        }
        return scan(prefix + "/" + file, std::move(candidates), valueName);
    }

    std::string hostPath(const std::string& windowsPath) override
    {
        return WinePrefix::HostPath(WinePrefix::Location(), windowsPath);
    }

private:
    static std::optional<std::string>
    scan(const std::string& file, std::vector<std::string> candidates, const std::string& valueName)
    {
        const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return std::nullopt;
        WineRegistryScanner scanner(std::move(candidates), valueName);
        std::vector<char> buffer(1 << 20);
        for (;;) {
            const ssize_t got = ::read(fd, buffer.data(), buffer.size());
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0) {
                scanner.finish();
                break;
            }
            if (!scanner.feed(std::string_view(buffer.data(), static_cast<std::size_t>(got))))
                break;
        }
        ::close(fd);
        return scanner.result();
    }
};

} // namespace

std::unique_ptr<Registry> CreatePlatformRegistry()
{
    return std::make_unique<WinePrefixRegistry>();
}

} // namespace vellumar
