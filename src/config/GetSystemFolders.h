#pragma once

#include <string>

namespace vellumar {

class MessageService;
class SystemFolders;

// The folders the rest of the program takes from the system, each without a trailing
// separator.
struct SystemPaths {
    std::string WindowsPath;
    std::string MyDocumentsPath;
    std::string AppDataPath;
};

// Fills `paths` from the system; "Error" (after telling the user with the plain system message
// box) when any of the three stays empty, "OK" otherwise.
std::string GetSystemFolders(SystemFolders& folders, MessageService& messages, SystemPaths& paths);

// The text shown when a folder is missing.
std::string PathErrorText(const SystemPaths& paths);

} // namespace vellumar
