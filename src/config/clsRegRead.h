#pragma once

#include "config/Registry.h"

#include <cstdint>
#include <string>

namespace vellumar {

// Reads one string value of the registry. Used as a short-lived object: set the properties,
// call RegData().
class clsRegRead {
public:
    // `windowsPath` stands in for the token %SystemRoot% at the start of a value.
    clsRegRead(Registry& registry, std::string windowsPath);

    std::uint32_t RootHive = RegistryHive::LocalMachine;
    std::string KeyPath;
    std::string SubKey;
    std::string ValueName;
    // The value names a folder or file: give it as a path of this machine (a Windows path
    // maps into the Wine prefix on Linux).
    bool AsHostPath = false;

    // The value's text; "" when the key, the sub-key or the value is missing.
    std::string RegData();

private:
    Registry& registry_;
    std::string windowsPath_;
};

} // namespace vellumar
