// A writer killed at any moment leaves the file readable with the old or the new value.

#include "config/ProfileText.h"
#include "config/clsCfgWrite.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vellumar {
namespace {

TEST(ProfileCrash, AKilledWriterNeverLeavesATruncatedFile)
{
    test::TempFolder temp;
    // A file big enough that a non-atomic write would be caught half way.
    std::string contents = "; settings\r\n[Main]\r\nCounter=0\r\n";
    for (int i = 0; i < 2000; ++i)
        contents += "[Set" + std::to_string(i) + "]\r\nFolder=Clouds\\Set " + std::to_string(i) +
                    "\r\nRandom=1\r\n";
    const std::string ini = temp.write("cloud.ini", contents);

    for (int round = 0; round < 20; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            test::FaultyFileOperations files;
            for (int counter = 1;; ++counter) {
                clsCfgWrite writer(files);
                writer.FileName = ini;
                writer.Section = "Main";
                writer.Key = "Counter";
                writer.Value = std::to_string(counter);
                writer.cWrite();
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5 + (round * 7) % 40));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);

        const std::string after = test::ReadWholeFile(ini);
        ASSERT_EQ(after.size() - after.find("\r\n[Set0]"),
                  contents.size() - contents.find("\r\n[Set0]"))
            << "round " << round;
        const std::string counter = ProfileText::Read(after, "Main", "Counter", "Error", 2048);
        EXPECT_NE(counter, "Error");
        EXPECT_EQ(ProfileText::Read(after, "Set1999", "Random", "Error", 2048), "1");
    }
}

} // namespace
} // namespace vellumar
