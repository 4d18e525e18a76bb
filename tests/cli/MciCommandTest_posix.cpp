// vellumar-cli mci on a disc image: the commands run in order on one interface, one line each.

#include "cli/CommandSet.h"
#include "support/CdImage.h"
#include "support/CliRun.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(MciCommandTest, PrintsEachReplyOrErrorOnItsOwnLine)
{
    test::TempFolder temp;
    test::TestServices fakes;
    test::CliRun run(fakes);
    test::ScopedEnvironment disc("VELLUMAR_CD",
                                 test::WriteCdImage(temp.path(), "album", {225, 300, 150}));

    EXPECT_EQ(run({"mci", "open cdaudio alias cd wait shareable", "set cd time format tmsf wait",
                   "status cd number of tracks wait", "status cd length track 2", "play cd from 2",
                   "status cd mode", "status cd position"}),
              CliExit::Success);
    EXPECT_EQ(run.out.str(), "\n\n3\n00:04:00\n\nplaying\n02:00:00:00\n");

    // The alias lived only as long as the process; an error is a line of its own.
    EXPECT_EQ(run({"mci", "status cd mode", "open cdaudio alias cd", "status cd media present"}),
              CliExit::Failed);
    EXPECT_EQ(run.out.str(),
              "error 263: The specified device is not open or is not recognized by MCI.\n\ntrue\n");
}

} // namespace
} // namespace vellumar
