#include "simulator/FsWatch.h"

#include "support/FakeSimulatorProcess.h"

#include <gtest/gtest.h>

namespace vellumar {

TEST(FsWatchTest, ReportsTheCloseOnceOnTheTickAfterTheSimulatorDisappears)
{
    test::FakeSimulatorProcess simulator;
    FsWatchState state;
    EXPECT_FALSE(tmrFsCheck2_Timer(simulator, "fs9.exe", state)); // never ran: nothing closed
    EXPECT_EQ(simulator.lookedFor, "fs9.exe");

    simulator.running = true;
    EXPECT_FALSE(tmrFsCheck2_Timer(simulator, "fs9.exe", state));
    EXPECT_TRUE(state.FsRunning);
    EXPECT_EQ(state.ProcessId, 4242);

    simulator.quit();
    EXPECT_TRUE(tmrFsCheck2_Timer(simulator, "fs9.exe", state));
    EXPECT_FALSE(state.FsRunning);
    EXPECT_EQ(state.ProcessId, 0);
    EXPECT_FALSE(tmrFsCheck2_Timer(simulator, "fs9.exe", state)); // only once
}

} // namespace vellumar
