// How a profile file reads. Where the documentation of the profile functions is silent, the
// expectations below are what the platform itself answered when asked.

#include "config/ProfileText.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

using namespace std::string_literals;

std::string Get(std::string_view contents, std::string_view section, std::string_view key,
                std::size_t size = 2048)
{
    return ProfileText::Read(contents, section, key, "Error", size);
}

std::string Keys(std::string_view contents, std::string_view section, std::size_t size = 2048)
{
    return ProfileText::Read(contents, section, std::nullopt, "Error", size);
}

std::string Sections(std::string_view contents, std::size_t size = 2048)
{
    return ProfileText::Read(contents, std::nullopt, std::nullopt, "Error", size);
}

TEST(ProfileRead, NamesMatchWithoutRegardToCaseAndBlanks)
{
    const std::string ini = "[Sec]\r\n  Key  =  value  \r\n\tTab\t=\tv2\t\r\n";
    EXPECT_EQ(Get(ini, "sec", "KEY"), "value");
    EXPECT_EQ(Get(ini, " SEC ", " key "), "value");
    EXPECT_EQ(Get(ini, "Sec", "tab"), "v2");
    EXPECT_EQ(Get(ini, "Sec", "missing"), "Error");
    EXPECT_EQ(Get(ini, "Other", "Key"), "Error");
}

TEST(ProfileRead, CaseFoldingIsForAsciiLettersOnly)
{
    const std::string ini = "[A]\n\xE9t\xE9=1\n";
    EXPECT_EQ(Get(ini, "A", "\xE9t\xE9"), "1");
    EXPECT_EQ(Get(ini, "A", "\xC9T\xC9"), "Error");
}

TEST(ProfileRead, EmptyValuesAreNotMissingValues)
{
    const std::string ini = "[A]\nempty=\nblank=   \nnoequals\n";
    EXPECT_EQ(Get(ini, "A", "empty"), "");
    EXPECT_EQ(Get(ini, "A", "blank"), "");
    EXPECT_EQ(Get(ini, "A", "noequals"), "Error");
}

TEST(ProfileRead, OneMatchingPairOfQuotesIsRemoved)
{
    const std::string ini = "[Q]\n"
                            "dq=\"abc\"\n"
                            "sq='abc'\n"
                            "open=\"abc\n"
                            "inner=\"a\"b\"\n"
                            "spaced=\" spaced \"\n"
                            "empty=\"\"\n"
                            "lone=\"\n"
                            "mixed='abc\"\n"
                            "after=\"abc\" x\n";
    EXPECT_EQ(Get(ini, "Q", "dq"), "abc");
    EXPECT_EQ(Get(ini, "Q", "sq"), "abc");
    EXPECT_EQ(Get(ini, "Q", "open"), "\"abc");
    EXPECT_EQ(Get(ini, "Q", "inner"), "a\"b");
    EXPECT_EQ(Get(ini, "Q", "spaced"), " spaced ");
    EXPECT_EQ(Get(ini, "Q", "empty"), "");
    EXPECT_EQ(Get(ini, "Q", "lone"), "\"");
    EXPECT_EQ(Get(ini, "Q", "mixed"), "'abc\"");
    EXPECT_EQ(Get(ini, "Q", "after"), "\"abc\" x");
    // A buffer too small for the whole value keeps the closing quote out all the same.
    EXPECT_EQ(Get(ini, "Q", "dq", 4), "ab");
    EXPECT_EQ(Get(ini, "Q", "spaced", 4), " sp");
}

TEST(ProfileRead, TheFirstSectionAndTheFirstKeyOfANameWin)
{
    const std::string ini = "[A]\nx=1\nX=3\n[B]\nz=3\n[a]\ny=2\nx=9\n";
    EXPECT_EQ(Get(ini, "A", "x"), "1");
    EXPECT_EQ(Get(ini, "A", "y"), "Error"); // the second [A] is never searched
    EXPECT_EQ(Keys(ini, "A"), "x\0X\0"s);
    EXPECT_EQ(Sections(ini), "A\0B\0a\0"s);
}

TEST(ProfileRead, CommentLinesAreKeysThatListsLeaveOut)
{
    const std::string ini = "[C]\n;k=v\n#h=w\n  ;s=1\nv=x ;not a comment\n";
    EXPECT_EQ(Get(ini, "C", ";k"), "v");
    EXPECT_EQ(Get(ini, "C", "#h"), "w");
    EXPECT_EQ(Get(ini, "C", "v"), "x ;not a comment");
    EXPECT_EQ(Keys(ini, "C"), "#h\0v\0"s);
}

TEST(ProfileRead, KeysBeforeAnySectionBelongToAnUnnamedOne)
{
    const std::string ini = "k=v\n[A]\na=1\n";
    EXPECT_EQ(Get(ini, "", "k"), "v");
    EXPECT_EQ(Get(ini, "A", "k"), "Error");
    EXPECT_EQ(Keys(ini, ""), "k\0"s);
    EXPECT_EQ(Sections(ini), "A\0"s);
}

TEST(ProfileRead, SectionHeaders)
{
    EXPECT_EQ(Get("[ A ]\nk=1\n", "A", "k"), "1");
    EXPECT_EQ(Sections("[ A ]\nk=1\n"), "A\0"s);
    EXPECT_EQ(Get("  [A]  \nk=1\n", "A", "k"), "1");
    EXPECT_EQ(Get("[\tA\t]\nk=1\n", "A", "k"), "1");
    EXPECT_EQ(Get("[A] trailing text\nk=1\n", "A", "k"), "1");
    // Without "]" the line is no header: the key stays in the unnamed section.
    EXPECT_EQ(Get("[A\nk=1\n", "A", "k"), "Error");
    EXPECT_EQ(Get("[A\nk=1\n", "", "k"), "1");
    EXPECT_EQ(Sections("[A\nk=1\n"), "");
    // The name runs to the last "]".
    EXPECT_EQ(Get("[A]]\nk=1\n", "A]", "k"), "1");
    EXPECT_EQ(Get("[a]b]\nk=1\n", "a]b", "k"), "1");
    EXPECT_EQ(Get("[a]b]\nk=1\n", "a", "k"), "Error");
    // "[]" is a section without a name; the unnamed first section shadows it.
    EXPECT_EQ(Get("[]\nk=1\n", "", "k"), "Error");
    EXPECT_EQ(Sections("[]\nk=1\n"), "");
}

TEST(ProfileRead, KeysSplitAtTheFirstEquals)
{
    const std::string ini = "[A]\nmy key=1\ne=a=b\nf = = x\n=nameless\n";
    EXPECT_EQ(Get(ini, "A", "my key"), "1");
    EXPECT_EQ(Get(ini, "A", "my  key"), "Error");
    EXPECT_EQ(Get(ini, "A", "e"), "a=b");
    EXPECT_EQ(Get(ini, "A", "f"), "= x");
}

TEST(ProfileRead, LineEndsOfEveryKind)
{
    for (const std::string& ini :
         {"[A]\r\na=1\r\n[B]\r\nb=2\r\n"s, "[A]\na=1\n[B]\nb=2\n"s, "[A]\ra=1\r[B]\rb=2\r"s,
          "[A]\na=1\r\n[B]\n\rb=2\r"s, "\xEF\xBB\xBF[A]\na=1\n[B]\nb=2"s}) {
        EXPECT_EQ(Get(ini, "A", "a"), "1") << ini;
        EXPECT_EQ(Get(ini, "B", "b"), "2") << ini;
        EXPECT_EQ(Sections(ini), "A\0B\0"s) << ini;
    }
}

TEST(ProfileRead, CtrlZIsABlankAndNulEndsANameOrValue)
{
    EXPECT_EQ(Get("[A]\na=1\x1A\n", "A", "a"), "1");
    EXPECT_EQ(Get("[A]\na=1\x1A"
                  "2\n",
                  "A", "a"),
              "1\x1A"
              "2");
    EXPECT_EQ(Get("[A]\na=x\0y\n"s, "A", "a"), "x");
    EXPECT_EQ(Get("[A]\nc\0d=3\n"s, "A", "c"), "3");
    EXPECT_EQ(Get("[B\0C]\nk=1\n"s, "B", "k"), "1");
}

TEST(ProfileRead, AnEmptyOrMissingSectionListsAsTheDefault)
{
    EXPECT_EQ(Keys("[A]\n", "A"), "Error");
    EXPECT_EQ(Keys("[A]\n;only a comment\n", "A"), "Error");
    EXPECT_EQ(Keys("[A]\nk=1\n", "B"), "Error");
    EXPECT_EQ(ProfileText::Read("[A]\n", "B", std::nullopt, "", 2048), "");
    EXPECT_EQ(Keys("", "A"), "Error");
    EXPECT_EQ(Sections(""), "");
}

} // namespace
} // namespace vellumar
