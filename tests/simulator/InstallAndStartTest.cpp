#include "simulator/InstallAndStart.h"

#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

using namespace std::chrono_literals;

class InstallAndStartTest : public ::testing::Test {
protected:
    test::TestServices fakes;
    double interval = 0;
    std::chrono::system_clock::time_point lastInstall{};
    int orderPosition = 3;
    std::string steps; // what ran, in order
    InstallAndStartContext context{fakes.messages, fakes.clock, fakes.simulator,
                                   interval,       lastInstall, orderPosition};

    InstallAndStartTest()
    {
        context.fsFolder = "FS9";
        context.fsExecutable = "fs9.exe";
        context.selectionFlags = {false, true};
        context.installChosenSet = [this] { return step("install ", true); };
        context.installSituation = [this] { return step("situation ", true); };
        context.beep = [this] { step("beep ", true); };
        context.openAutoRandomSelection = [this] { step("selection ", true); };
        context.armAutoRandom = [this] { step("arm ", true); };
        context.showAutoRandomOff = [this] { step("off ", true); };
        context.rotateSplash = [this] { step("splash ", true); };
        context.closeMainWindow = [this] { step("close ", true); };
    }

    bool step(const char* name, bool result)
    {
        steps += name;
        return result;
    }

    InstallAndStartOutcome press(MouseButton button, bool shift)
    {
        StartFlags flags;
        if (cmdInstAndStart_MouseDown(button, shift, interval, flags) == StartMouseDown::ClickNow ||
            button == MouseButton::Left)
            return cmdInstAndStart_Click(context, flags);
        return {};
    }
};

TEST_F(InstallAndStartTest, SkyModeInstallsBeepsRotatesAndStartsUnlessRunning)
{
    EXPECT_TRUE(press(MouseButton::Left, false).started);
    EXPECT_EQ(steps, "install beep splash ");
    ASSERT_EQ(fakes.simulator.starts.size(), 1u);
    EXPECT_EQ(fakes.simulator.starts[0], "FS9|fs9.exe");

    steps.clear();
    const InstallAndStartOutcome again = press(MouseButton::Left, false);
    EXPECT_TRUE(again.done && again.alreadyRunning);
    EXPECT_EQ(steps, "install beep splash ");
    EXPECT_EQ(fakes.simulator.starts.size(), 1u);

    // Shift+click installs without starting; a failed install beeps and stops.
    fakes.simulator.quit();
    steps.clear();
    EXPECT_TRUE(press(MouseButton::Left, true).done);
    EXPECT_EQ(fakes.simulator.starts.size(), 1u);
    context.installChosenSet = [this] { return step("install ", false); };
    steps.clear();
    EXPECT_FALSE(press(MouseButton::Left, false).done);
    EXPECT_EQ(steps, "install beep ");
}

TEST_F(InstallAndStartTest, WithAutoRandomOnTheTimerIsArmedToInstallAtOnce)
{
    interval = 2.5;
    fakes.clock.set(std::chrono::system_clock::time_point(1000min));
    EXPECT_TRUE(press(MouseButton::Left, false).started);
    EXPECT_EQ(steps, "arm splash "); // nothing installed here: the first tick does that
    EXPECT_EQ(orderPosition, 0);
    EXPECT_EQ(lastInstall, std::chrono::system_clock::time_point(1000min - 150s));

    // No set ticked for AutoRandom: told, the selection opens, nothing else happens.
    context.selectionFlags = {false, false};
    steps.clear();
    EXPECT_FALSE(press(MouseButton::Left, false).done);
    EXPECT_EQ(fakes.messages.last().title, "No selected data");
    EXPECT_EQ(fakes.messages.last().text,
              "Please select one set at least.\nNo AutoRandom set is selected.");
    EXPECT_EQ(steps, "selection ");
}

TEST_F(InstallAndStartTest, RightButtonCasesAndTheStartModeMenu)
{
    StartFlags flags;
    EXPECT_EQ(cmdInstAndStart_MouseDown(MouseButton::Right, false, 0, flags),
              StartMouseDown::Nothing);
    EXPECT_EQ(cmdInstAndStart_MouseDown(MouseButton::Right, false, 1, flags),
              StartMouseDown::StartModeMenu);

    // Shift+right with AutoRandom on: AutoRandom off, started, nothing installed.
    interval = 1;
    fakes.simulator.quit();
    EXPECT_TRUE(press(MouseButton::Right, true).started);
    EXPECT_EQ(interval, 0);
    EXPECT_EQ(steps, "off splash ");
}

TEST_F(InstallAndStartTest, UnloadOnlyAfterAGoodStartWithAutoRandomOff)
{
    context.UnloadAfterFsStart = true;
    fakes.simulator.failStart = true;
    EXPECT_FALSE(press(MouseButton::Left, false).done);
    EXPECT_EQ(fakes.messages.last().title, "FS Opening Error");
    EXPECT_EQ(fakes.messages.last().text, "fs9.exe can't be opened.");
    EXPECT_EQ(fakes.messages.last().style, 16);
    EXPECT_EQ(steps.find("close"), std::string::npos);

    fakes.simulator.failStart = false;
    interval = 1;
    steps.clear();
    press(MouseButton::Left, false);
    EXPECT_EQ(steps, "arm splash ");
    interval = 0;
    steps.clear();
    fakes.simulator.quit();
    press(MouseButton::Left, false);
    EXPECT_EQ(steps, "install beep splash close ");
}

} // namespace
} // namespace vellumar
