#pragma once

#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <string>

namespace vellumar::test {

// A whole machine in a temporary folder: the system folders, the simulator ("FS9", found
// through the registry) with its per-user configuration, and a program folder ("Vellumar")
// with its data folders (the start situation in [STARTUP] STARTUP_FLIGHT of fs9.cfg), a one-set
// library (Clouds\Summer haze) and a cloud.ini that loads without a message. Tests add what they
// need on top.
struct TestInstallation {
    TestInstallation(const TempFolder& temp, TestServices& fakes);

    // Writes cloud.ini: the quiet basics followed by `sections`.
    void writeCloudIni(const std::string& sections) const;

    const TempFolder& temp;
};

} // namespace vellumar::test
