#pragma once

#include <string>

namespace vellumar::WinePrefix {

// Where a simulator running under Wine keeps its Windows: $WINEPREFIX, else ~/.wine.
std::string Location();

// True when `prefix` looks like a Wine prefix (it has a registry or a C: drive).
bool Exists(const std::string& prefix);

// A Windows path as a path of this machine: the drive letter maps through the prefix's
// dosdevices links (C: is normally drive_c, Z: the root folder) and "\" becomes "/".
// A path without a drive letter only has its separators changed.
std::string HostPath(const std::string& prefix, const std::string& windowsPath);

// A path of this machine as a program under Wine sees it: the drive letter whose folder in
// the prefix's dosdevices holds it (the deepest one; C: is normally drive_c), else Z:, which
// Wine maps to the root folder. "\" separates the parts.
std::string WindowsPath(const std::string& prefix, const std::string& hostPath);

// The prefix user's profile folder, drive_c/users/<name>; "" when there is none.
std::string UserProfileFolder(const std::string& prefix);

} // namespace vellumar::WinePrefix
