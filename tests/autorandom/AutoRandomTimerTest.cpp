#include "autorandom/AutoRandomTimer.h"

#include "app/AutoRandomSelection.h"
#include "autorandom/PickRandomSet.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <deque>

namespace vellumar {
namespace {

using namespace std::chrono_literals;

TEST(IntervalClicks, StepsWrapAndJumpAsTheLabelPromises)
{
    auto up = [](int t) { return NextIntervalTenths(t, IntervalClick::Up); };
    auto down = [](int t) { return NextIntervalTenths(t, IntervalClick::Down); };
    auto ten = [](int t) { return NextIntervalTenths(t, IntervalClick::NextTenMinutes); };
    EXPECT_EQ(up(9), 10);    // 0.9 min to 1 min
    EXPECT_EQ(up(190), 200); // 19 to 20 min
    EXPECT_EQ(up(200), 250); // 20 to 25 min
    EXPECT_EQ(up(600), 0);   // 60 min to off
    EXPECT_EQ(down(0), 600); // off to 60 min
    EXPECT_EQ(down(10), 9);
    EXPECT_EQ(down(1), 0);
    EXPECT_EQ(down(250), 200);
    EXPECT_EQ(ten(5), 100); // 0.5 min to 10 min
    EXPECT_EQ(ten(600), 0);
    EXPECT_EQ(NextIntervalTenths(350, IntervalClick::Off), 0);
    EXPECT_EQ(IntervalClickFor(false, true, true), IntervalClick::Down);
    EXPECT_EQ(IntervalClickFor(true, true, false), IntervalClick::Off);
    EXPECT_FLOAT_EQ(static_cast<float>(IntervalMinutes(3)), 0.3f);
    EXPECT_EQ(IntervalTenths(IntervalMinutes(3)), 3);
}

class CountdownTest : public ::testing::Test {
protected:
    test::TestServices fakes;
    std::deque<double> draws;
    RandomSetPicker picker{[this] {
        const double next = draws.empty() ? 0.0 : draws.front();
        if (!draws.empty())
            draws.pop_front();
        return next;
    }};
    AutoRandomSelection selection{{true, false, true, true}, {3, 0, 2}, false};
    std::vector<int> installs;
    bool installWorks = true;
    AutoRandomSteps steps{fakes.clock, fakes.events, picker, selection};
    AutoRandomRun run;
    int current = 0;

    CountdownTest()
    {
        steps.setName = [](int set) { return "Set " + std::to_string(set); };
        steps.install = [this](int set) {
            installs.push_back(set);
            fakes.clock.advance(2s); // copying takes a while
            return installWorks;
        };
        run.AutoRandomInterval = 1.5;
        // Armed as Install & Start arms it: the interval has run out already.
        run.LastInstallTime = fakes.clock.now() - 90s;
    }
};

TEST_F(CountdownTest, ExpiryInstallsAtOnceThenCountsDownFromTheInstallsStart)
{
    draws = {0.1, 0.6};
    AutoRandomTick tick = Timer1_Timer(run, steps, current);
    EXPECT_EQ(tick.installedSet, 2); // 0.1 hits set 0, the last pick (never first)
    EXPECT_EQ(current, 2);
    EXPECT_EQ(tick.status, "Set 2    Time Remain  01:28");
    fakes.clock.advance(200ms);
    EXPECT_EQ(Timer1_Timer(run, steps, current).installedSet, -1);

    fakes.clock.advance(87s);
    steps.HideSetName = true;
    EXPECT_EQ(Timer1_Timer(run, steps, current).status, "Time Remain 00:00");
    fakes.clock.advance(1s);
    installWorks = false;
    draws = {0.6, 0.9};
    tick = Timer1_Timer(run, steps, current);
    EXPECT_EQ(tick.installedSet, 3); // 0.6 would repeat set 2
    EXPECT_FALSE(tick.installOk);
    EXPECT_EQ(tick.status, "Install Error  Time Remain 01:28");
    steps.HideSetName = false;
    EXPECT_EQ(Timer1_Timer(run, steps, current).status,
              "Set 3 ( Install Error )    Time Remain  01:28");
}

TEST_F(CountdownTest, OrderModeGoesDownTheOrderAndStartsAgainAfterTheLast)
{
    selection.OrderMode = true;
    run.OrderPosition = 0;
    for (int i = 0; i < 4; ++i) {
        Timer1_Timer(run, steps, current);
        fakes.clock.advance(90s);
    }
    EXPECT_EQ(installs, (std::vector<int>{3, 0, 2, 3}));
    // The test wait of every tick goes through the clock, not the wall.
    steps.RandomWait = 60000;
    installs.clear();
    Timer1_Timer(run, steps, current);
    EXPECT_EQ(installs, (std::vector<int>{0}));
}

} // namespace
} // namespace vellumar
