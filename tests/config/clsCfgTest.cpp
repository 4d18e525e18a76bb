#include "config/clsCfgRead.h"
#include "config/clsCfgWrite.h"
#include "support/FakeMessageService.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

using namespace std::string_literals;

class clsCfgTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;
    test::FakeMessageService messages;

    std::string read(const std::string& file, const std::string& section, const std::string& key)
    {
        clsCfgRead reader(files, messages);
        reader.FileName = file;
        reader.Section = section;
        reader.Key = key;
        return reader.Data();
    }

    void write(const std::string& file, const std::string& section, const std::string& key,
               const std::string& value)
    {
        clsCfgWrite writer(files);
        writer.FileName = file;
        writer.Section = section;
        writer.Key = key;
        writer.Value = value;
        writer.cWrite();
    }
};

TEST_F(clsCfgTest, ReadsValuesAndSaysErrorForAbsentKeys)
{
    const std::string ini = temp.write("cloud.ini", "[Main]\r\nInterval=5\r\nEmpty=\r\n");
    EXPECT_EQ(read(ini, "Main", "Interval"), "5");
    EXPECT_EQ(read(ini, "main", "EMPTY"), "");
    EXPECT_EQ(read(ini, "Main", "Missing"), "Error");
    EXPECT_TRUE(messages.empty());
}

TEST_F(clsCfgTest, ListsComeWithoutTheirFinalTerminator)
{
    const std::string ini = temp.write("cloud.ini", "[A]\r\nx=1\r\ny=2\r\n[B]\r\n");
    EXPECT_EQ(read(ini, "A", ""), "x\0y"s);
    EXPECT_EQ(read(ini, "", ""), "A\0B"s);
    EXPECT_EQ(read(ini, "B", ""), "Error"); // no keys: the default, whole
    EXPECT_EQ(read(ini, "", "ignored"), "A\0B"s);
}

TEST_F(clsCfgTest, AMissingFileIsReportedAsAFault)
{
    EXPECT_EQ(read(temp / "missing.ini", "A", "k"), "");
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.last().title, "Class cfgRead");
    EXPECT_EQ(messages.last().text, "Filename is not correctly. this is bug!!");
    EXPECT_FALSE(messages.last().system);
}

TEST_F(clsCfgTest, TheFileIsFoundWithoutRegardToCase)
{
    temp.write("Cloud.INI", "[A]\r\nk=1\r\n");
    EXPECT_EQ(read(temp / "cloud.ini", "A", "k"), "1");
    write(temp / "CLOUD.ini", "A", "k", "2");
    EXPECT_EQ(temp.read("Cloud.INI"), "[A]\r\nk=2\r\n");
}

TEST_F(clsCfgTest, WritingCreatesFileAndSectionAndAnEmptyValueDeletes)
{
    const std::string ini = temp / "new.ini";
    write(ini, "PathCheck", "Check", "on");
    EXPECT_EQ(temp.read("new.ini"), "[PathCheck]\r\nCheck=on\r\n");
    EXPECT_EQ(read(ini, "PathCheck", "Check"), "on");
    write(ini, "PathCheck", "Check", "");
    EXPECT_EQ(read(ini, "PathCheck", "Check"), "Error");
    EXPECT_EQ(temp.read("new.ini"), "[PathCheck]\r\n");
}

TEST_F(clsCfgTest, ValuesLongerThanTheBufferAreCut)
{
    const std::string ini = temp.write("cloud.ini", "[A]\r\n");
    write(ini, "A", "long", std::string(3000, 'x'));
    EXPECT_EQ(read(ini, "A", "long"), std::string(2047, 'x'));
}

TEST_F(clsCfgTest, AFailedWriteLeavesTheFileAsItWas)
{
    const std::string ini = temp.write("cloud.ini", "[A]\r\nk=1\r\n");
    files.failReplace = [](const std::string&) { return true; };
    write(ini, "A", "k", "2");
    EXPECT_EQ(temp.read("cloud.ini"), "[A]\r\nk=1\r\n");
}

TEST_F(clsCfgTest, AReadOnlyFileIsNotWritten)
{
    const std::string ini = temp.write("cloud.ini", "[A]\r\nk=1\r\n");
    ASSERT_TRUE(files.setAttributes(ini, FileAttribute::ReadOnly));
    write(ini, "A", "k", "2");
    EXPECT_EQ(temp.read("cloud.ini"), "[A]\r\nk=1\r\n");
}

TEST_F(clsCfgTest, AnUnreadableFileIsNeverReplacedByAFreshOne)
{
    const std::string folder = temp.makeFolder("cloud.ini"); // a folder where the file should be
    write(folder, "A", "k", "2");
    EXPECT_EQ(files.attributes(folder).value_or(0) & FileAttribute::Directory,
              FileAttribute::Directory);
}

} // namespace
} // namespace vellumar
