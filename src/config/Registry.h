#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vellumar {

// Root hives, as the system numbers their handles.
namespace RegistryHive {
inline constexpr std::uint32_t CurrentUser = 0x80000001u;
inline constexpr std::uint32_t LocalMachine = 0x80000002u;
inline constexpr std::uint32_t Users = 0x80000003u;
} // namespace RegistryHive

// Read access to one string value of the registry.
class Registry {
public:
    virtual ~Registry() = default;

    // The text of value `valueName` ("" for the key's default value) of key `keyPath` (with "\"
    // between its parts) under `hive`: string and expandable-string values are returned as
    // stored, without expanding anything and with everything from the first NUL on cut off.
    // Nothing when the key or the value is missing or is not a string.
    // On 64-bit systems a key missing from the native view is also looked for in the 32-bit
    // view (Software\Wow6432Node), where a 32-bit installer such as the simulator's writes.
    virtual std::optional<std::string> readString(std::uint32_t hive, const std::string& keyPath,
                                                  const std::string& valueName) = 0;

    // A Windows path read from the registry as a path of this machine: unchanged on Windows; on
    // Linux a drive letter maps into the Wine prefix and "\" becomes "/".
    virtual std::string hostPath(const std::string& windowsPath) = 0;
};

// The registry of the platform: the system registry on Windows, the registry files of the
// Wine prefix ($WINEPREFIX, else ~/.wine) on Linux.
std::unique_ptr<Registry> CreatePlatformRegistry();

} // namespace vellumar
