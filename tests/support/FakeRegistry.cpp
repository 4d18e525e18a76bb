#include "support/FakeRegistry.h"

#include "common/TextCompare.h"

namespace vellumar::test {

void FakeRegistry::set(std::uint32_t hive, const std::string& keyPath, const std::string& valueName,
                       const std::string& text)
{
    values_[{hive, ToLowerAscii(keyPath), ToLowerAscii(valueName)}] = text;
}

void FakeRegistry::setSimulatorFolder(const std::string& folder)
{
    set(RegistryHive::LocalMachine, "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0",
        "EXE Path", folder);
}

std::optional<std::string> FakeRegistry::readString(std::uint32_t hive, const std::string& keyPath,
                                                    const std::string& valueName)
{
    const auto found = values_.find({hive, ToLowerAscii(keyPath), ToLowerAscii(valueName)});
    if (found == values_.end())
        return std::nullopt;
    return found->second;
}

} // namespace vellumar::test
