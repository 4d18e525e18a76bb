#include "cli/IniCheckCommand.h"

#include "app/CloudIni.h"
#include "app/DataFolderChecks.h"
#include "cli/CliCommands.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"
#include "config/ProfileText.h"
#include "config/ProgramPaths.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace vellumar {
namespace {

class IniCheckTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    std::ostringstream out, err;

    IniCheckTest()
    {
        temp.write("Data/Texture/Clouds/Summer haze/cld01.bmp");
        temp.write("Data/Texture/Storms/t-storm  2/cldcn1.bmp");
        temp.write("x.mp3");
        fakes.systemFolders.program = temp.path();
    }

    int check(const std::string& file = "")
    {
        out.str("");
        err.str("");
        return RunIniCheckCommand(file, fakes.services, out, err);
    }
};

TEST_F(IniCheckTest, EveryProblemOfAHandMadeFileIsNamedWithItsLine)
{
    const std::string ini = temp.write("cloud.ini", "; my settings\r\n"           // 1
                                                    "[DataFolder]\r\n"            // 2
                                                    "Path=Data\r\n"               // 3
                                                    "[Sound]\r\n"                 // 4
                                                    "Ch1Vol=150\r\n"              // 5
                                                    "Ch2Intvl=abc\r\n"            // 6
                                                    "Ch4Vol=20\r\n"               // 7
                                                    "Ch1Intvl=1e400\r\n"          // 8
                                                    "MusicFile2=x.mp3\r\n"        // 9
                                                    "[StretchMode]\r\n"           // 10
                                                    "Strech=off\r\n"              // 11
                                                    "[Splashscreen]\r\n"          // 12
                                                    "Splash=on\r\n"               // 13
                                                    "[Set1]\r\n"                  // 14
                                                    "DirName=Clouds\\Gone\r\n"    // 15
                                                    "Alias=Pilot's choice\r\n"    // 16
                                                    "Random=no\r\n"               // 17
                                                    "[Set2]\r\n"                  // 18
                                                    "DirName=Storms\\t-storm\r\n" // 19
                                                    "from=1\r\nto=3\r\n"          // 20, 21
                                                    "[Set4]\r\n"                  // 22
                                                    "DirName=Clouds\\Summer haze\r\n"
                                                    "[Sound]\r\n"         // 24
                                                    "[LastInstalled]\r\n" // 25
                                                    "NumberOfDisp=-2\r\n" // 26
                                                    "1=no comma\r\n"      // 27
                                                    "[ShowSkyFiles]\r\n"  // 28
                                                    "ShowFiles=yes 'show them\r\n");
    EXPECT_EQ(check(ini), 1);
    const std::string f = ini + ":";
    EXPECT_EQ(
        out.str(),
        f + "5: [Sound] Ch1Vol: \"150\" is outside 0 to 100; it reads as 100\n" + f +
            "6: [Sound] Ch2Intvl: \"abc\" is not a number; it reads as 5\n" + f +
            "7: [Sound] Ch4Vol: unknown key; only Ch1Vol to Ch3Vol are read\n" + f +
            "8: [Sound] Ch1Intvl: \"1e400\" is outside 0 to 60; it reads as 60\n" + f +
            "9: [Sound] MusicFile2: never read: the list ends at the missing MusicFile1\n" + f +
            "11: [StretchMode] Strech: unknown key; did you mean Stretch?\n" + f +
            "12: [Splashscreen]: unknown section; did you mean [Splash Screen]?\n" + f +
            "15: [Set1] DirName: Data folder was not found: " +
            (temp / "Data/Texture/Clouds/Gone") + "\n" + f +
            "16: [Set1] Alias: everything from the \"'\" on is a comment, so the value "
            "reads as \"Pilot\"\n" +
            f + "17: [Set1] Random: \"no\" is not on or off; it reads as on\n" + f +
            "22: [Set4]: never read: the list of sets ends at [Set3], which has no DirName\n" + f +
            "24: [Sound]: appears again (first at line 4); the program reads only the first\n" + f +
            "26: [LastInstalled] NumberOfDisp: \"-2\" is outside 1 to 32767; it reads as 3\n" + f +
            "27: [LastInstalled] 1: has no comma between the set's name and its data type; "
            "the entry is skipped\n" +
            f + "29: [ShowSkyFiles] ShowFiles: \"yes\" is not True or False; it reads as False\n" +
            f +
            " [AppName] Name: missing. The title of the main window. Required: without it "
            "the program stops.\n" +
            f +
            " [Situation] CfgFile: missing. The simulator's configuration file in its user "
            "folder (fs9.cfg). Missing, empty or not found: situations are switched off "
            "(\"Ini Error\").\n" +
            ini + ": 17 problems\n");
}

TEST_F(IniCheckTest, TheProgramsOwnFileWithoutProblemsPasses)
{
    temp.makeFolder("Data/Situation");
    temp.write("cloud.ini", "[AppName]\nName=V\n[DataFolder]\nPath=Data\n[Situation]\n"
                            "CfgFile=fs9.cfg\nLoc=Data\\Situation ' where the flights are\n"
                            "[Set1]\nDirName=Clouds\\Summer haze\n[Set2]\nDirName=Storms\\t-storm\n"
                            "from=1\nto=3\n");
    // Through the command line, as a user runs it.
    EXPECT_EQ(RunCliCommand({"ini", "check"}, fakes.services, out, err), 0);
    EXPECT_EQ(out.str(), (temp / "cloud.ini") + ": no problems found\n");

    EXPECT_EQ(check(temp / "other.ini"), 1);
    EXPECT_EQ(err.str(), "vellumar-cli: no such file: " + (temp / "other.ini") + "\n");
}

// The commented cloud.ini that ships with the program is its documentation: it names every key
// the program knows (the optional ones at least in a comment line ";key=..."), and a fresh
// installation with it loads without a message and checks clean.
TEST_F(IniCheckTest, TheExampleFileDocumentsEveryKeyAndChecksClean)
{
    const std::string example =
        fakes.files.readFile(VELLUMAR_EXAMPLE_CLOUD_INI).value_or("(missing)");
    std::set<std::string> written;
    std::string section;
    for (const ProfileText::ProfileLine& line : ProfileText::Lines(example)) {
        if (line.kind == ProfileText::ProfileLine::Kind::Section)
            section = ToLowerAscii(line.name);
        else if (line.hasValue)
            written.insert(
                section + "/" +
                ToLowerAscii(TrimBlanks(line.name.substr(line.name.starts_with(";") ? 1 : 0))));
    }
    for (const IniKey* row : CloudIniKeys::kAll)
        EXPECT_TRUE(
            written.contains(ToLowerAscii(IniName(row->section, 1) + "/" + IniName(row->key, 1))))
            << "[" << row->section << "] " << row->key;

    temp.write("Texture/Clouds/My first set/cld01.bmp");
    temp.write("button.wav");
    temp.write("AppData/Microsoft/FS9/fs9.cfg");
    for (const char* folder : {"Situation", "Splash Screen", "Sound/Ch1", "Sound/Ch2", "Sound/Ch3"})
        temp.makeFolder(folder);
    temp.write("cloud.ini", example);
    EXPECT_EQ(check(), 0) << out.str();

    ProgramPaths paths;
    paths.ProgramPath = temp.path();
    paths.AppDataPath = temp / "AppData";
    DataFolderSettings checks;
    CloudIniSettings settings;
    CloudIniFile ini(fakes.files, fakes.messages, temp / "cloud.ini");
    EXPECT_EQ(LoadCloudIni(fakes.services, ini, paths, {}, checks, settings), LoadOutcome::Loaded);
    EXPECT_TRUE(fakes.messages.empty());
    EXPECT_EQ(settings.Sets.size(), 1u);
}

} // namespace
} // namespace vellumar
