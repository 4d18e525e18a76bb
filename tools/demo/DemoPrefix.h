#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumar {

class DemoFolderWriter;

namespace demo {

// Where the demo installs the simulator, as Windows sees it and inside the prefix.
inline constexpr std::string_view kSimulatorWindowsPath =
    "C:\\Program Files (x86)\\Microsoft Games\\Flight Simulator 9";
inline constexpr std::string_view kSimulatorInDriveC =
    "Program Files (x86)/Microsoft Games/Flight Simulator 9";

// Writes a Wine prefix below `prefixFolder` (relative to the writer's root): the registry
// files, the C: drive with the Windows folder, the simulator and the user's profile, and the
// dosdevices link of drive C:. The simulator's fs9.exe is a shell script that starts
// `standinProgram` (an absolute path) on the simulator folder, or a placeholder that does not
// run when that is "". Returns notes about things that could not be made but do not spoil the
// demo.
std::vector<std::string> WriteWinePrefix(DemoFolderWriter& writer, std::string_view prefixFolder,
                                         std::string_view userName,
                                         std::string_view standinProgram = {});

// A text (UTF-8) as Wine writes it inside a quoted registry name or value, or a key name:
// "\" and the closing character escaped with "\", control characters as C escapes or octal,
// and every character beyond ASCII as "\x" and its UTF-16 code in hex.
std::string EscapeRegistryText(std::string_view text, char closing);

} // namespace demo
} // namespace vellumar
