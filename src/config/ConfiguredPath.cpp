#include "config/ConfiguredPath.h"

#include "common/PathText.h"
#include "common/TextCompare.h"
#include "config/Registry.h"

namespace vellumar {

std::string ConfiguredPath(std::string_view value, const std::string& base, Registry& registry)
{
    const std::string path = TrimTrailingBackslash(TrimBlanks(value));
    if (path.empty())
        return path;
    const bool hasDrive =
        path.size() >= 2 && path[1] == ':' &&
        ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
    if (hasDrive)
        return registry.hostPath(path);
    if (IsPathSeparator(path.front()))
        return path;
    return JoinPath(TrimTrailingBackslash(base), path);
}

} // namespace vellumar
