#include "cli/CommandSet.h"
#include "support/CliRun.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

// This build reads no archives: it says so, and folders still come in.
TEST(LibraryCommandsWindows, AnArchiveIsRefusedPlainlyAndAFolderIsAdded)
{
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};
    const std::string before = temp.read("Vellumar/cloud.ini");
    EXPECT_EQ(run({"import", temp.write("Downloads/Dusk.zip", "PK"), "--yes"}), CliExit::Failed);
    EXPECT_NE(run.err.str().find("archives are not supported in this build"), std::string::npos)
        << run.err.str();
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before);

    temp.write("Downloads/Dusk/sky_dusk.bmp", "dusk");
    EXPECT_EQ(run({"import", temp / "Downloads/Dusk", "--yes"}), CliExit::Success) << run.err.str();
    EXPECT_EQ(temp.read("Vellumar/Texture/Dusk/sky_dusk.bmp"), "dusk");
}

} // namespace
} // namespace vellumar
