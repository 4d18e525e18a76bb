#pragma once

#include <string>
#include <string_view>

namespace vellumar::demo {

// Absolute paths of this machine that the demo's cloud.ini names.
struct DemoIniPaths {
    std::string home;            // the program folder (VELLUMAR_HOME)
    std::string simulatorFolder; // the folder of fs9.exe inside the prefix
};

// The demo's cloud.ini, derived from the default configuration: its documentation is kept,
// its values are changed to use everything the demo provides, and its example set is replaced
// by the demo's sets, each with a comment. Line ends are CR LF.
std::string DemoCloudIni(std::string_view defaultIni, const DemoIniPaths& paths);

// Sets one value in an INI text, keeping the comment that follows the value after "'" (and
// the blanks before it). The text is unchanged when the value is already the same.
std::string SetIniValue(std::string text, std::string_view section, std::string_view key,
                        std::string_view value);

} // namespace vellumar::demo
