#include "config/ProfileText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace vellumar {
namespace {

using namespace std::string_literals;

std::string Set(std::string_view contents, std::string_view section, std::string_view key,
                std::string_view value)
{
    return ProfileText::Edit(contents, section, key, value).value_or("<unchanged>");
}

std::string Delete(std::string_view contents, std::string_view section, std::string_view key)
{
    return ProfileText::Edit(contents, section, key, std::nullopt).value_or("<unchanged>");
}

TEST(ProfileEdit, ANewFileGetsTheSectionAndKeyWithWindowsLineEnds)
{
    EXPECT_EQ(Set("", "S", "k", "v"), "[S]\r\nk=v\r\n");
    EXPECT_EQ(Set("[S]\r\nk=v\r\n", "T", "k2", "v2"), "[S]\r\nk=v\r\n[T]\r\nk2=v2\r\n");
}

TEST(ProfileEdit, AChangedValueKeepsTheRestOfTheLine)
{
    EXPECT_EQ(Set("[A]\n  Key  =  old  \nnext=1\n", "a", "KEY", "new"),
              "[A]\n  Key  =  new  \nnext=1\n");
    EXPECT_EQ(Set("[A]\r\nk=\r\n", "A", "k", "v"), "[A]\r\nk=v\r\n");
    EXPECT_EQ(Set("[A]\nflag\n", "A", "flag", "on"), "[A]\nflag=on\n");
    EXPECT_EQ(Set("[A]\nk=\"quoted\"\n", "A", "k", "plain"), "[A]\nk=plain\n");
}

TEST(ProfileEdit, TheFirstSectionAndKeyOfANameChange)
{
    EXPECT_EQ(Set("[A]\nk=1\nK=2\n[A]\nk=3\n", "a", "K", "9"), "[A]\nk=9\nK=2\n[A]\nk=3\n");
    EXPECT_EQ(Set("[A]\nx=1\n[B]\n[A]\nk=3\n", "A", "k", "9"), "[A]\nx=1\nk=9\n[B]\n[A]\nk=3\n");
}

TEST(ProfileEdit, ANewKeyGoesAfterTheSectionsLastNonBlankLine)
{
    EXPECT_EQ(Set("; head\n[A]\nk = v\n\n; comment\n\n[B]\nb=1\n", "A", "new", "1"),
              "; head\n[A]\nk = v\n\n; comment\nnew=1\n\n[B]\nb=1\n");
    EXPECT_EQ(Set("[A]\r\n\r\n[B]\r\n", "A", "k", "1"), "[A]\r\nk=1\r\n\r\n[B]\r\n");
    EXPECT_EQ(Set("[A]\r\nk=v", "A", "n", "1"), "[A]\r\nk=v\r\nn=1");
    EXPECT_EQ(Set("[A]\r\nk=v", "B", "n", "1"), "[A]\r\nk=v\r\n[B]\r\nn=1\r\n");
}

TEST(ProfileEdit, LineEndsFollowTheFile)
{
    EXPECT_EQ(Set("[A]\nk=v\n", "B", "n", "1"), "[A]\nk=v\n[B]\nn=1\n");
    EXPECT_EQ(Set("[A]\rk=v\r", "A", "n", "1"), "[A]\rk=v\rn=1\r");
}

TEST(ProfileEdit, DeletingRemovesTheWholeLineAndNothingElse)
{
    EXPECT_EQ(Delete("[A]\r\na=1\r\nb=2\r\n[B]\r\nc=3\r\n", "A", "A"),
              "[A]\r\nb=2\r\n[B]\r\nc=3\r\n");
    EXPECT_EQ(Delete("[A]\r\na=1", "A", "a"), "[A]\r\n");
    EXPECT_EQ(Delete("[A]\r\na=1\r\n", "B", "a"), "<unchanged>");
    EXPECT_EQ(Delete("[A]\r\na=1\r\n", "A", "b"), "<unchanged>");
    EXPECT_EQ(Delete("", "A", "b"), "<unchanged>");
}

TEST(ProfileEdit, NamesAndValuesAreStoredTrimmed)
{
    EXPECT_EQ(Set("", " S2 ", " ks ", "  v  "), "[S2]\r\nks=v\r\n");
}

TEST(ProfileEdit, UnchangedValuesLeaveTheFileAlone)
{
    EXPECT_FALSE(ProfileText::Edit("[A]\nk=1\n", "A", "k", "1"));
}

TEST(ProfileEdit, InputThatWouldBreakTheFileIsRefused)
{
    const std::string ini = "[A]\nk=1\n";
    EXPECT_FALSE(ProfileText::Edit(ini, "A", "k", "x\r\ny"));
    EXPECT_FALSE(ProfileText::Edit(ini, "A", "k", "x\0y"s));
    EXPECT_FALSE(ProfileText::Edit(ini, "A\nB", "k", "1"));
    EXPECT_FALSE(ProfileText::Edit(ini, "A", "a=b", "1"));
    EXPECT_FALSE(ProfileText::Edit(ini, "A", "[x]", "1"));
    EXPECT_FALSE(ProfileText::Edit(ini, "", "k", "1"));
    EXPECT_FALSE(ProfileText::Edit(ini, "A", "  ", "1"));
}

TEST(ProfileEdit, ByteOrderMarkAndForeignBytesSurvive)
{
    const std::string ini = "\xEF\xBB\xBF[A]\r\nname=Caf\xE9\r\n";
    EXPECT_EQ(Set(ini, "A", "k", "1"), "\xEF\xBB\xBF[A]\r\nname=Caf\xE9\r\nk=1\r\n");
    EXPECT_EQ(ProfileText::Read(ini, "A", "name", "Error", 2048), "Caf\xE9");
}

// Many random edits on files full of things a hand-edited file has: every line the edit does
// not touch stays byte for byte, and reading gives back what was written.
class LosslessEdits : public ::testing::TestWithParam<unsigned> {};

std::string RandomNoise(std::mt19937& random)
{
    static const std::vector<std::string> lines = {
        "; a comment line",
        "# another comment",
        "",
        "   ",
        "\t",
        "odd line without equals",
        "  spaced   =   value with   spaces  ",
        "caf\xE9=\xE9t\xE9 \x80\xFF bytes",
        "quoted=\"in quotes\"",
        ";commented=key",
        "dup=first",
        "DUP=second",
    };
    return lines[random() % lines.size()];
}

TEST_P(LosslessEdits, UntouchedLinesSurviveAndReadsGiveWhatWasWritten)
{
    std::mt19937 random(GetParam());
    const std::string eol = (random() % 2) ? "\r\n" : "\n";
    const std::vector<std::string> sectionNames = {"Main", "Set1", "PathCheck", "Sound"};
    std::string ini;
    for (const std::string& section : sectionNames) {
        ini += (random() % 2 ? "[ " + section + " ]" : "[" + section + "]") + eol;
        for (int i = 0; i < 6; ++i)
            ini += RandomNoise(random) + eol;
    }
    if (random() % 2)
        ini.resize(ini.size() - eol.size()); // sometimes no final line break

    std::map<std::pair<std::string, std::string>, std::optional<std::string>> expected;
    for (int step = 0; step < 60; ++step) {
        const std::string section = sectionNames[random() % sectionNames.size()];
        const std::string key = "key" + std::to_string(random() % 8);
        std::optional<std::string> value;
        if (random() % 4 != 0)
            value = "v" + std::to_string(random() % 1000) + (random() % 2 ? " with blanks" : "");

        const std::string before = ini;
        const auto edited = ProfileText::Edit(before, section, key, value);
        if (edited)
            ini = *edited;
        expected[{section, key}] = value;

        // The edit touched at most one line: the rest is a common prefix and suffix.
        std::size_t prefix = 0;
        while (prefix < before.size() && prefix < ini.size() && before[prefix] == ini[prefix])
            ++prefix;
        std::size_t suffix = 0;
        while (suffix < before.size() - prefix && suffix < ini.size() - prefix &&
               before[before.size() - 1 - suffix] == ini[ini.size() - 1 - suffix])
            ++suffix;
        const std::string removed = before.substr(prefix, before.size() - prefix - suffix);
        const std::string added = ini.substr(prefix, ini.size() - prefix - suffix);
        EXPECT_LE(std::count(removed.begin(), removed.end(), '\n'), 1) << "seed " << GetParam();
        EXPECT_LE(std::count(added.begin(), added.end(), '\n'), 1) << "seed " << GetParam();
        EXPECT_EQ(removed.find("comment"), std::string::npos) << "seed " << GetParam();

        for (const auto& [where, wanted] : expected)
            EXPECT_EQ(ProfileText::Read(ini, where.first, where.second, "Error", 2048),
                      wanted.value_or("Error"))
                << "seed " << GetParam() << " [" << where.first << "] " << where.second;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LosslessEdits, ::testing::Range(1u, 201u));

} // namespace
} // namespace vellumar
