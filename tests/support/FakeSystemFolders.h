#pragma once

#include "config/SystemFolders.h"

#include <string>

namespace vellumar::test {

// System folders chosen by the test (normally temporary folders).
class FakeSystemFolders final : public SystemFolders {
public:
    std::string program, windows, documents, appData, shared;
    ProgramFolderRule programRule = ProgramFolderRule::Environment;

    ProgramFolderChoice programFolderChoice() override { return {program, programRule}; }
    std::string sharedDataFolder() override { return shared; }
    std::string windowsFolder() override { return windows; }
    std::string documentsFolder() override { return documents; }
    std::string appDataFolder() override { return appData; }
};

} // namespace vellumar::test
