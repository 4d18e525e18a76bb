#pragma once

#include "config/Registry.h"

#include <map>
#include <string>
#include <tuple>

namespace vellumar::test {

// Registry values set by the test; names match without regard to case.
class FakeRegistry final : public Registry {
public:
    void set(std::uint32_t hive, const std::string& keyPath, const std::string& valueName,
             const std::string& text);

    std::optional<std::string> readString(std::uint32_t hive, const std::string& keyPath,
                                          const std::string& valueName) override;
    // Marks the text so that a test sees that the mapping was asked for; with
    // `hostPathsAsGiven` a path stays as it is (the test's folders are this machine's).
    std::string hostPath(const std::string& windowsPath) override
    {
        return hostPathsAsGiven ? windowsPath : "host:" + windowsPath;
    }
    bool hostPathsAsGiven = false;

    // The simulator's own entry: "EXE Path" of its key.
    void setSimulatorFolder(const std::string& folder);

private:
    std::map<std::tuple<std::uint32_t, std::string, std::string>, std::string> values_;
};

} // namespace vellumar::test
