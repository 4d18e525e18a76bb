#include "config/CodePage.h"
#include "config/clsCfgRead.h"
#include "config/clsCfgWrite.h"
#include "support/FakeMessageService.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vellumar {
namespace {

// Sets $VELLUMAR_CODEPAGE for one test.
class CodePage {
public:
    explicit CodePage(const char* number) { setenv("VELLUMAR_CODEPAGE", number, 1); }
    ~CodePage() { unsetenv("VELLUMAR_CODEPAGE"); }
};

TEST(CodePageTest, WinePicksTheCodePageByTheLocalesLanguage)
{
    for (const auto& [locale, codePage] : {std::pair{"ja_JP.UTF-8", 932},
                                           {"zh_CN.UTF-8", 936},
                                           {"zh_TW", 950},
                                           {"ko_KR", 949},
                                           {"ru_RU.UTF-8", 1251},
                                           {"pl_PL", 1250},
                                           {"sr_RS@latin", 1250},
                                           {"el_GR", 1253},
                                           {"tr_TR", 1254},
                                           {"he_IL", 1255},
                                           {"ar_EG", 1256},
                                           {"lt_LT", 1257},
                                           {"vi_VN", 1258},
                                           {"th_TH", 874},
                                           {"de_DE.UTF-8", 1252},
                                           {"C", 1252},
                                           {"", 1252}})
        EXPECT_EQ(AnsiCodePageOfLocale(locale), codePage) << locale;
}

class CodePageFileTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;
    test::FakeMessageService messages;

    std::string read(const std::string& section, const std::string& key)
    {
        clsCfgRead reader(files, messages);
        reader.FileName = temp / "cloud.ini";
        reader.Section = section;
        reader.Key = key;
        return reader.Data();
    }

    void write(const std::string& section, const std::string& key, const std::string& value)
    {
        clsCfgWrite writer(files);
        writer.FileName = temp / "cloud.ini";
        writer.Section = section;
        writer.Key = key;
        writer.Value = value;
        writer.cWrite();
    }
};

TEST_F(CodePageFileTest, AWindows1252FileReadsInUtf8AndAWriteStaysInItsCodePage)
{
    const CodePage westernEurope("1252");
    temp.write("cloud.ini", "[Set1]\r\nDirName=Clouds\\Ciel \xE9t\xE9\r\nAlias=caf\xE9\r\n");
    EXPECT_EQ(read("Set1", "DirName"), "Clouds\\Ciel \xC3\xA9t\xC3\xA9");
    write("Set1", "Alias", "\xC3\xA9t\xC3\xA9"); // "été" given in UTF-8
    EXPECT_EQ(temp.read("cloud.ini"),
              "[Set1]\r\nDirName=Clouds\\Ciel \xE9t\xE9\r\nAlias=\xE9t\xE9\r\n");
    // A UTF-8 file stays UTF-8.
    temp.write("cloud.ini", "[Set1]\r\nAlias=caf\xC3\xA9\r\n");
    EXPECT_EQ(read("Set1", "Alias"), "caf\xC3\xA9");
    write("Set1", "DirName", "\xC3\xA9t\xC3\xA9");
    EXPECT_EQ(temp.read("cloud.ini"),
              "[Set1]\r\nAlias=caf\xC3\xA9\r\nDirName=\xC3\xA9t\xC3\xA9\r\n");
}

TEST_F(CodePageFileTest, AJapaneseFileInCodePage932)
{
    const CodePage japanese("932");
    // 日本 and, below, 東京 in Shift-JIS.
    temp.write("cloud.ini", "[Set1]\r\nAlias=\x93\xFA\x96\x7B\r\n[Set2]\r\nAlias=x\r\n");
    EXPECT_EQ(read("Set1", "Alias"), "\xE6\x97\xA5\xE6\x9C\xAC");
    write("Set2", "Alias", "\xE6\x9D\xB1\xE4\xBA\xAC");
    EXPECT_EQ(temp.read("cloud.ini"),
              "[Set1]\r\nAlias=\x93\xFA\x96\x7B\r\n[Set2]\r\nAlias=\x93\x8C\x8B\x9E\r\n");
    EXPECT_EQ(read("Set2", "Alias"), "\xE6\x9D\xB1\xE4\xBA\xAC");
}

} // namespace
} // namespace vellumar
