#pragma once

#include <string>
#include <string_view>

namespace vellumar {

class Registry;

// A folder or file named in cloud.ini as a path of this machine: a path with a drive letter is
// mapped through the registry's host paths (into the Wine prefix on Linux), an absolute path
// stays as it is, and a relative one is taken under `base`. "" stays "".
std::string ConfiguredPath(std::string_view value, const std::string& base, Registry& registry);

} // namespace vellumar
