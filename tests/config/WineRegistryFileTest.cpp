#include "config/WineRegistryFile.h"

#include <gtest/gtest.h>

#include <random>

namespace vellumar {
namespace {

using namespace std::string_literals;

const std::string kFsKey = "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0";
const std::string kFsKey32 =
    "Software\\Wow6432Node\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0";

// A system.reg as a 64-bit Wine prefix writes it, with the simulator installed by its 32-bit
// installer.
std::string SystemReg()
{
    return "WINE REGISTRY Version 2\n"
           ";; All keys relative to \\\\Machine\n"
           "\n"
           "#arch=win64\n"
           "\n"
           "[Software\\\\Microsoft\\\\Windows NT\\\\CurrentVersion] 1700000000\n"
           "#time=1da0b1c2d3e4f50\n"
           "\"CurrentVersion\"=\"6.3\"\n"
           "\"SystemRoot\"=\"C:\\\\windows\"\n"
           "\"PathName\"=str(2):\"%SystemRoot%\\\\system32\"\n"
           "\"Number\"=dword:00000001\n"
           "\"Binary\"=hex:00,01,02\n"
           "\n"
           "[Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\App Paths\\\\fs9.exe] "
           "1700000000\n"
           "@=\"C:\\\\Program Files (x86)\\\\Microsoft Games\\\\FS9\\\\fs9.exe\"\n"
           "\"Quote \\\"me\\\"\"=\"tab\\there\"\n"
           "\n"
           "[Software\\\\Wow6432Node\\\\Microsoft\\\\Microsoft Games\\\\Flight Simulator\\\\9.0] "
           "1700000001\n"
           "#time=1da0b1c2d3e4f51\n"
           "\"EXE Path\"=\"C:\\\\Program Files (x86)\\\\Microsoft Games\\\\FS9\"\n"
           "\"Unicode\"=\"Caf\\xe9 \\x263a\\x00e9t\\xe9\"\n"
           "\"Octal\"=\"A\\101\\0hidden\"\n"
           "\"Expand\"=hex(2):25,00,53,00,79,00,73,00,74,00,65,00,6d,00,52,00,6f,00,6f,00,\\\n"
           "  74,00,25,00,5c,00,78,00,00,00\n"
           "\"Multi\"=str(7):\"first\\0second\\0\"\n"
           "\n"
           "[System\\\\CurrentControlSet\\\\Control] 1700000000\n"
           "\"Absent elsewhere\"=\"x\"\n";
}

std::optional<std::string> Find(const std::string& contents, std::vector<std::string> keys,
                                const std::string& value)
{
    return WineRegistryScanner::Find(contents, std::move(keys), value);
}

TEST(WineRegistryFile, StringsWithEscapesAndTheDefaultValue)
{
    const std::string reg = SystemReg();
    const std::string appPaths = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\fs9.exe";
    EXPECT_EQ(Find(reg, {"Software\\Microsoft\\Windows NT\\CurrentVersion"}, "SystemRoot"),
              "C:\\windows");
    EXPECT_EQ(Find(reg, {appPaths}, ""), "C:\\Program Files (x86)\\Microsoft Games\\FS9\\fs9.exe");
    EXPECT_EQ(Find(reg, {appPaths}, "quote \"ME\""), "tab\there");
    EXPECT_EQ(Find(reg, {kFsKey32}, "Unicode"), "Caf\xC3\xA9 \xE2\x98\xBA\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(Find(reg, {kFsKey32}, "Octal"), "AA");
}

TEST(WineRegistryFile, ExpandableAndMultiStringsAreTextButNumbersAreNot)
{
    const std::string reg = SystemReg();
    const std::string nt = "Software\\Microsoft\\Windows NT\\CurrentVersion";
    EXPECT_EQ(Find(reg, {nt}, "PathName"), "%SystemRoot%\\system32");
    EXPECT_EQ(Find(reg, {kFsKey32}, "Expand"), "%SystemRoot%\\x");
    EXPECT_EQ(Find(reg, {kFsKey32}, "Multi"), "first");
    EXPECT_EQ(Find(reg, {nt}, "Number"), std::nullopt);
    EXPECT_EQ(Find(reg, {nt}, "Binary"), std::nullopt);
}

TEST(WineRegistryFile, NamesMatchWithoutRegardToCase)
{
    EXPECT_EQ(Find(SystemReg(),
                   {"SOFTWARE\\wow6432node\\MICROSOFT\\Microsoft Games\\flight "
                    "simulator\\9.0"},
                   "exe path"),
              "C:\\Program Files (x86)\\Microsoft Games\\FS9");
}

TEST(WineRegistryFile, The32BitViewStandsInForAMissingNativeKey)
{
    const std::string reg = SystemReg();
    EXPECT_EQ(Find(reg, {kFsKey}, "EXE Path"), std::nullopt);
    EXPECT_EQ(Find(reg, {kFsKey, kFsKey32}, "EXE Path"),
              "C:\\Program Files (x86)\\Microsoft Games\\FS9");
    // When both views hold the value, the native one is preferred wherever it stands.
    const std::string both = reg + "[" +
                             std::string("Software\\\\Microsoft\\\\Microsoft Games\\\\"
                                         "Flight Simulator\\\\9.0] 1\n") +
                             "\"EXE Path\"=\"D:\\\\FS9\"\n";
    EXPECT_EQ(Find(both, {kFsKey, kFsKey32}, "EXE Path"), "D:\\FS9");
}

TEST(WineRegistryFile, MissingKeysAndValuesGiveNothing)
{
    const std::string reg = SystemReg();
    EXPECT_EQ(Find(reg, {kFsKey32}, "Absent elsewhere"), std::nullopt);
    EXPECT_EQ(Find(reg, {kFsKey32 + "\\Sub"}, "EXE Path"), std::nullopt);
    EXPECT_EQ(Find(reg, {"Software\\Microsoft"}, "EXE Path"), std::nullopt);
    EXPECT_EQ(Find("", {kFsKey32}, "EXE Path"), std::nullopt);
}

TEST(WineRegistryFile, ChunksMaySplitLinesAnywhere)
{
    const std::string reg = SystemReg();
    for (std::size_t chunk : {1u, 2u, 7u, 64u, 4096u}) {
        WineRegistryScanner scanner({kFsKey, kFsKey32}, "Expand");
        for (std::size_t at = 0; at < reg.size(); at += chunk)
            if (!scanner.feed(std::string_view(reg).substr(at, chunk)))
                break;
        scanner.finish();
        EXPECT_EQ(scanner.result(), "%SystemRoot%\\x") << "chunk " << chunk;
    }
}

TEST(WineRegistryFile, CrLfFilesAndAMissingFinalLineBreak)
{
    std::string reg = SystemReg();
    std::string crlf;
    for (char c : reg)
        crlf += c == '\n' ? "\r\n"s : std::string(1, c);
    EXPECT_EQ(Find(crlf, {kFsKey32}, "EXE Path"), "C:\\Program Files (x86)\\Microsoft Games\\FS9");
    EXPECT_EQ(Find("[A] 1\n\"v\"=\"last\"", {"A"}, "v"), "last");
}

TEST(WineRegistryFile, TruncatedOrGarbageFilesNeverCrash)
{
    const std::string reg = SystemReg();
    for (std::size_t length = 0; length < reg.size(); length += 3)
        (void)Find(reg.substr(0, length), {kFsKey, kFsKey32}, "EXE Path");
    EXPECT_EQ(Find(reg.substr(0, reg.find("Program Files (x86)\\\\Microsoft Games\\\\FS9\"")),
                   {kFsKey32}, "EXE Path"),
              std::nullopt);

    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::string garbage = reg;
        for (int flips = 0; flips < 20; ++flips)
            garbage[random() % garbage.size()] = static_cast<char>(random() % 256);
        (void)Find(garbage, {kFsKey, kFsKey32}, "Expand");
    }
    EXPECT_EQ(Find("[\\\n\"x\"=\"\\", {"\\"}, "x"), std::nullopt);
}

} // namespace
} // namespace vellumar
