// The simulator started and watched on Windows: a stand-in program with a window of the
// simulator's class, built beside this test, copied into a folder as fs9.exe.

#include "common/SimulatorProcess.h"
#include "common/WideText_win.h"
#include "support/TempFolder.h"
#include "support/WaitFor.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace vellumar {
namespace {

using test::WaitFor;

// Wine starts a program slowly.
constexpr std::chrono::seconds kWinePatience{20};

namespace fs = std::filesystem;
using namespace std::chrono_literals;

fs::path StandIn()
{
    wchar_t self[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, self, MAX_PATH);
    return fs::path(std::wstring(self, length)).parent_path() / L"fs98main_window.exe";
}

TEST(SimulatorProcessTest, StartsTheSimulatorAndSeesItsWindowUntilItCloses)
{
    test::TempFolder temp;
    const std::string folder = temp.makeFolder("Flight Simulator 9");
    fs::copy_file(StandIn(), ToWide(temp / "Flight Simulator 9/fs9.exe"));
    // A safety net: the stand-in closes by itself should this test fail half-way.
    SetEnvironmentVariableW(L"VELLUMAR_TEST_WINDOW_MS", L"30000");
    const std::unique_ptr<SimulatorProcess> process = CreatePlatformSimulatorProcess();

    // The window's class is all there is to go by: a simulator already open would be taken
    // for the stand-in.
    if (process->find("fs9.exe").running)
        GTEST_SKIP() << "a window of class FS98MAIN is open already";
    const SimulatorProcess::Started started = process->start(folder, "fs9.exe");
    SetEnvironmentVariableW(L"VELLUMAR_TEST_WINDOW_MS", nullptr);
    ASSERT_TRUE(started.ok) << started.problem;

    SimulatorProcess::Running running;
    ASSERT_TRUE(
        WaitFor([&] { return (running = process->find("fs9.exe")).running; }, kWinePatience));
    ASSERT_NE(running.processId, 0);
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(running.processId));
    ASSERT_NE(handle, nullptr) << "no process " << running.processId;

    PostMessageW(FindWindowW(L"FS98MAIN", nullptr), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([&] { return !process->find("fs9.exe").running; }, kWinePatience));
    // The found id is the stand-in's: its process ends with its window. (The folder can be
    // removed only then.)
    EXPECT_EQ(WaitForSingleObject(handle, 20000), WAIT_OBJECT_0);
    CloseHandle(handle);
}

TEST(SimulatorProcessTest, AMissingSimulatorIsNamed)
{
    test::TempFolder temp;
    const SimulatorProcess::Started started =
        CreatePlatformSimulatorProcess()->start(temp.path(), "fs9.exe");
    EXPECT_FALSE(started.ok);
    EXPECT_NE(started.problem.find("fs9.exe"), std::string::npos) << started.problem;
}

} // namespace
} // namespace vellumar
