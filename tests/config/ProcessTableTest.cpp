// Which command lines stand for the simulator when its window cannot be seen.

#include "config/ProcessTable.h"

#include <gtest/gtest.h>

#include <string>

namespace vellumar {
namespace {

using namespace std::string_literals;

TEST(ProcessTableTest, TheFirstOrSecondArgumentNamesTheProgramInAnyCase)
{
    // Wine shows the Windows path first, spaces and all.
    EXPECT_TRUE(CommandLineNamesProgram(
        "C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\FS9.EXE\0"s, "fs9.exe"));
    // A shell running a script has the script second; the last argument need not end in NUL.
    EXPECT_TRUE(CommandLineNamesProgram("/bin/sh\0/home/pilot/sim/fs9.exe"s, "FS9.EXE"));
    EXPECT_TRUE(CommandLineNamesProgram("fs9.exe\0"s, "fs9.exe"));

    EXPECT_FALSE(CommandLineNamesProgram("/bin/sh\0-c\0fs9.exe\0"s, "fs9.exe"));
    EXPECT_FALSE(CommandLineNamesProgram("/usr/bin/vim\0notes-fs9.exe\0"s, "fs9.exe"));
    EXPECT_FALSE(CommandLineNamesProgram("/sim/fs9.exe.bak\0"s, "fs9.exe"));
    EXPECT_FALSE(CommandLineNamesProgram("", "fs9.exe"));
    EXPECT_FALSE(CommandLineNamesProgram("\0\0"s, "fs9.exe"));
    EXPECT_FALSE(CommandLineNamesProgram("/bin/sh\0/sim/\0"s, ""));
}

} // namespace
} // namespace vellumar
