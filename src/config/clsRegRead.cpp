#include "config/clsRegRead.h"

#include "common/TextCompare.h"

namespace vellumar {

clsRegRead::clsRegRead(Registry& registry, std::string windowsPath)
    : registry_(registry)
    , windowsPath_(std::move(windowsPath))
{}

std::string clsRegRead::RegData()
{
    std::string key = KeyPath;
    if (!SubKey.empty())
        key += "\\" + SubKey;
    std::optional<std::string> value = registry_.readString(RootHive, key, ValueName);
    if (!value)
        return {};

    constexpr std::string_view token = "%systemroot%";
    if (const std::size_t at = FindIgnoreCase(*value, token); at != std::string_view::npos)
        value = windowsPath_ + value->substr(at + token.size());
    if (const std::size_t nul = value->find('\0'); nul != std::string::npos)
        value->resize(nul);
    if (AsHostPath && !value->empty())
        return registry_.hostPath(*value);
    return *value;
}

} // namespace vellumar
