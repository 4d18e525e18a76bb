// The simulator started and watched on Linux: real processes, a shell script standing in for
// fs9.exe, and a fake Wine that writes down how it was called.

#include "common/SimulatorProcess.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/TempFolder.h"
#include "support/WaitFor.h"

#include <gtest/gtest.h>

#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vellumar {
namespace {

using test::WaitFor;

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Kills the started program with everything in its process group (the script's `sleep`)
// when the test ends, however it ends.
struct GroupKiller {
    long processId = 0;
    void kill()
    {
        if (processId == 0)
            return;
        const pid_t group = ::getpgid(static_cast<pid_t>(processId));
        if (group > 0)
            ::kill(-group, SIGKILL);
        ::kill(static_cast<pid_t>(processId), SIGKILL);
        processId = 0;
    }
    ~GroupKiller() { kill(); }
};

std::string Executable(const test::TempFolder& temp, const std::string& relative,
                       const std::string& text)
{
    const std::string path = temp.write(relative, text);
    fs::permissions(path, fs::perms::owner_all | fs::perms::group_read | fs::perms::others_read);
    return path;
}

class SimulatorProcessTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::ScopedEnvironment wine{"VELLUMAR_WINE", std::nullopt};
    test::ScopedEnvironment prefix{"WINEPREFIX", temp / "prefix"};
    std::unique_ptr<SimulatorProcess> process = CreatePlatformSimulatorProcess();
};

TEST_F(SimulatorProcessTest, StartsANativeProgramWithoutWaitingAndSeesItUntilItEnds)
{
    // A name of this test's own: a simulator running on the machine (or a stand-in of another
    // test) must not be taken for it. Run by the shell as "/bin/sh <folder>/<name>", the
    // script is the second argument.
    const std::string name = "fs9-" + std::to_string(::getpid()) + ".exe";
    std::string upperName = name;
    for (char& c : upperName)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    Executable(temp, "sim/" + name, "#!/bin/sh\nsleep 30\n");
    GroupKiller killer;

    const auto before = std::chrono::steady_clock::now();
    const SimulatorProcess::Started started = process->start(temp / "sim", name);
    ASSERT_TRUE(started.ok) << started.problem;
    EXPECT_LT(std::chrono::steady_clock::now() - before, 5s) << "start() waited for the program";

    SimulatorProcess::Running running;
    ASSERT_TRUE(WaitFor([&] { return (running = process->find(upperName)).running; }));
    ASSERT_NE(running.processId, 0);
    killer.processId = running.processId;
    const std::string procFolder = "/proc/" + std::to_string(running.processId);
    EXPECT_EQ(fs::read_symlink(procFolder + "/cwd"), fs::canonical(temp / "sim"));

    killer.kill();
    EXPECT_TRUE(WaitFor([&] { return !process->find(name).running; }));

    // Nothing of ours is left to reap: the program belonged to init, not to this process.
    siginfo_t info{};
    const int waited = ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT);
    EXPECT_TRUE((waited < 0 && errno == ECHILD) || (waited == 0 && info.si_pid == 0))
        << "a child is waiting to be reaped: " << info.si_pid;
}

TEST_F(SimulatorProcessTest, StartsAWindowsProgramThroughWineInItsFolderAndPrefix)
{
    // Relative paths are this program's: the simulator's folder and Wine both resolve against
    // it, not against the folder the simulator is started in. The file on disk is upper case.
    const std::string record = temp / "record";
    Executable(temp, "bin/wine",
               "#!/bin/sh\n{ printf '%s\\n' \"$#\" \"$@\" \"$WINEPREFIX\"; pwd; } > '" + record +
                   ".part'\nmv '" + record + ".part' '" + record + "'\n");
    temp.write("Flight Simulator 9/FS9.EXE", std::string("MZ\x90\0\3\0", 6));
    const fs::path oldFolder = fs::current_path();
    fs::current_path(temp.path());
    test::ScopedEnvironment wineName{"VELLUMAR_WINE", "bin/wine"};

    const SimulatorProcess::Started started = process->start("Flight Simulator 9", "fs9.exe");
    fs::current_path(oldFolder);
    ASSERT_TRUE(started.ok) << started.problem;

    ASSERT_TRUE(WaitFor([&] { return fs::exists(record); }));
    const std::string folder = (fs::canonical(temp.path()) / "Flight Simulator 9").string();
    EXPECT_EQ(temp.read("record"),
              "1\n" + folder + "/FS9.EXE\n" + (temp / "prefix") + "\n" + folder + "\n");
}

TEST_F(SimulatorProcessTest, WhatCannotBeStartedIsNamed)
{
    temp.write("sim/fs9.exe", std::string("MZ\x90\0", 4));
    test::ScopedEnvironment missingWine{"VELLUMAR_WINE", temp / "no-such-wine"};
    SimulatorProcess::Started started = process->start(temp / "sim", "fs9.exe");
    EXPECT_FALSE(started.ok);
    EXPECT_NE(started.problem.find("no-such-wine"), std::string::npos) << started.problem;

    started = process->start(temp / "sim", "fs8.exe");
    EXPECT_FALSE(started.ok);
    EXPECT_NE(started.problem.find("fs8.exe"), std::string::npos) << started.problem;

    temp.write("sim/readable.exe", "#!/bin/sh\nsleep 30\n");
    started = process->start(temp / "sim", "readable.exe");
    EXPECT_FALSE(started.ok);
    EXPECT_NE(started.problem.find("readable.exe"), std::string::npos) << started.problem;

    // Executable but no program: only exec itself can tell, from the child.
    Executable(temp, "sim/garbage.exe", "\x7f\x01\x02 not a program\n");
    started = process->start(temp / "sim", "garbage.exe");
    EXPECT_FALSE(started.ok);
    EXPECT_NE(started.problem.find("garbage.exe"), std::string::npos) << started.problem;
}

} // namespace
} // namespace vellumar
