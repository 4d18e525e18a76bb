#include "config/clsRegRead.h"

#include "support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

class clsRegReadTest : public ::testing::Test {
protected:
    test::FakeRegistry registry;

    std::string read(const std::string& key, const std::string& subKey, const std::string& value,
                     bool asHostPath = false)
    {
        clsRegRead reader(registry, "C:\\WINDOWS");
        reader.RootHive = RegistryHive::LocalMachine;
        reader.KeyPath = key;
        reader.SubKey = subKey;
        reader.ValueName = value;
        reader.AsHostPath = asHostPath;
        return reader.RegData();
    }
};

TEST_F(clsRegReadTest, ReadsTheValueUnderKeyAndSubKey)
{
    registry.set(RegistryHive::LocalMachine,
                 "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0", "EXE Path",
                 "C:\\FS9");
    EXPECT_EQ(read("Software\\Microsoft\\Microsoft Games\\Flight Simulator", "9.0", "EXE Path"),
              "C:\\FS9");
    EXPECT_EQ(
        read("Software\\Microsoft\\Microsoft Games\\Flight Simulator", "9.0", "EXE Path", true),
        "host:C:\\FS9");
}

TEST_F(clsRegReadTest, AnyMissingPieceGivesAnEmptyText)
{
    registry.set(RegistryHive::LocalMachine, "Key\\Sub", "Value", "text");
    EXPECT_EQ(read("Key", "Sub", "Other"), "");
    EXPECT_EQ(read("Key", "Missing", "Value"), "");
    EXPECT_EQ(read("Missing", "Sub", "Value"), "");
    EXPECT_EQ(read("Missing", "Sub", "Value", true), "");
}

TEST_F(clsRegReadTest, SystemRootBecomesTheWindowsFolderInAnyCase)
{
    registry.set(RegistryHive::LocalMachine, "Key\\Sub", "Upper", "%SystemRoot%\\Media\\ding.wav");
    registry.set(RegistryHive::LocalMachine, "Key\\Sub", "Lower", "%systemroot%\\x.wav");
    registry.set(RegistryHive::LocalMachine, "Key\\Sub", "Plain", "D:\\Sounds\\x.wav");
    EXPECT_EQ(read("Key", "Sub", "Upper"), "C:\\WINDOWS\\Media\\ding.wav");
    EXPECT_EQ(read("Key", "Sub", "Lower"), "C:\\WINDOWS\\x.wav");
    EXPECT_EQ(read("Key", "Sub", "Plain"), "D:\\Sounds\\x.wav");
}

TEST_F(clsRegReadTest, TheTextEndsAtItsFirstNul)
{
    registry.set(RegistryHive::LocalMachine, "Key\\Sub", "Value", std::string("abc\0def", 7));
    EXPECT_EQ(read("Key", "Sub", "Value"), "abc");
}

} // namespace
} // namespace vellumar
