#include "textures/SetCatalogue.h"

#include "support/CountingEventPump.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"
#include "textures/TextureFolders.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

SetFolderFiles Set(std::initializer_list<const char*> names)
{
    SetFolderFiles set;
    for (const char* name : names)
        set.names.emplace_back(name);
    return set;
}

// The order of the rows, not each row: a set holding bitmaps of two kinds takes the first.
TEST(SetDataType, TheFirstMatchingRowOfTheTableWinsAndOnlyBitmapsDecide)
{
    EXPECT_EQ(DataTypeOf(Set({"cld01.bmp", "sky_1.bmp"})), "Cumulus");
    EXPECT_EQ(DataTypeOf(Set({"cldcn1.bmp", "CLD01.BMP"})), "Thunder");
    EXPECT_EQ(DataTypeOf(Set({"stratus.bmp", "cirrus1.bmp"})), "Stratus");
    EXPECT_EQ(DataTypeOf(Set({"halo2.bmp"})), "Unknown");
    EXPECT_EQ(DataTypeOf(Set({"rain1.bmp", "VCrain1.bmp"})), "Rain");
    EXPECT_EQ(DataTypeOf(Set({"clouds.fx", "suneffect.cfg"})), "Unknown");
    EXPECT_EQ(DataTypeOf(Set({"cld01.xml", "cumulus.cld", "sky_1.jpg"})), "Unknown");
    EXPECT_EQ(DataTypeOf(Set({})), "Unknown");
}

TEST(SetCompatibility, CloudsThenCirrusThenSkyElseFive)
{
    EXPECT_EQ(CompatibilityOf(Set({"cld01.bmp", "cirrus.bmp"})), 1);
    EXPECT_EQ(CompatibilityOf(Set({"CloudMask1.bmp"})), 1);
    EXPECT_EQ(CompatibilityOf(Set({"cumulus1.bmp"})), 5); // "cumulus0*" only
    EXPECT_EQ(CompatibilityOf(Set({"cirrus1.bmp", "sky_1.bmp"})), 2);
}

TEST(SetFiles, InstallableFilesByTheirLastThreeCharacters)
{
    const SetFolderFiles set = Set({"cld01.bmp", "x.fx", "clouds.xml", "cumulus.CLD", "a.jpg",
                                    "notes.txt", "SunEffect.cfg", "preview.gif", "sky.BMP"});
    EXPECT_EQ(ListSetFiles(set), (TextList{"cld01.bmp", "x.fx", "clouds.xml", "cumulus.CLD",
                                           "SunEffect.cfg", "sky.BMP"}));
    EXPECT_EQ(ListOptionFiles(set), (TextList{"cld01.bmp", "sky.BMP"}));
    EXPECT_EQ(PreviewPictureOf(set), "a.jpg");
    EXPECT_EQ(PreviewPictureOf(Set({"a.bmp", "b.JPEG", "c.jpg"})), "b.JPEG");
    EXPECT_EQ(PreviewPictureOf(Set({"a.bmp"})), "");
}

TEST(SetFiles, NamesWindowsCannotOpenAreLeftOutWithTheReason)
{
    const SetFolderFiles set = SetFolderFilesOf(
        {"cld01.bmp", "PRN.cld", "nul .bmp", "a:b.bmp", "sky?.bmp", "tab\t.xml", "Com1.bmp", "lpt9",
         "clouds.", "cld02.bmp ", "CONSOLE.bmp", "COM10.bmp", "my.con.bmp"});
    EXPECT_EQ(ListSetFiles(set), (TextList{"cld01.bmp", "CONSOLE.bmp", "COM10.bmp", "my.con.bmp"}));
    TextList refused;
    for (const RefusedFile& file : set.refused)
        refused.push_back(file.name);
    ASSERT_EQ(refused, (TextList{"PRN.cld", "nul .bmp", "a:b.bmp", "sky?.bmp", "tab\t.xml",
                                 "Com1.bmp", "lpt9", "clouds.", "cld02.bmp "}));
    EXPECT_EQ(set.refused[0].reason, "PRN is a device name on Windows");
    EXPECT_EQ(set.refused[2].reason, "its name holds \":\", which Windows does not allow");
    EXPECT_EQ(set.refused[4].reason,
              "its name holds a control character, which Windows does not allow");
    EXPECT_EQ(set.refused[7].reason, "its name ends in a dot or a blank, which Windows drops");
    // A refused bitmap does not make the set's type either.
    EXPECT_EQ(DataTypeOf(SetFolderFilesOf({"cldcn?.bmp", "sky_1.bmp"})), "Sky Color");
}

class CatalogueOnDisk : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;
    test::CountingEventPump events;
};

TEST_F(CatalogueOnDisk, ASetIsScannedOnceAndOnlyItsPlainFilesCount)
{
    temp.write("Texture/Clouds/Summer/CLDCN1.BMP");
    temp.write("Texture/Clouds/Summer/sub/cld01.bmp");
    temp.makeFolder("Texture/Clouds/Summer/sky_1.bmp"); // a folder, not a file
    const std::string folder = temp / "Texture/Clouds/Summer";
    EXPECT_EQ(GetSetDataType(files, events, folder), "Thunder");
    EXPECT_EQ(CheckSetCompatibility(files, events, folder), 1);
    EXPECT_EQ(ScanSetFolder(files, events, folder).names, (TextList{"CLDCN1.BMP"}));
}

TEST_F(CatalogueOnDisk, CheckDataFolder)
{
    std::string folder = "   ";
    EXPECT_EQ(CheckDataFolder(files, events, folder, "/program"), "Can't find the path.");

    folder = temp / "Texture";
    EXPECT_EQ(CheckDataFolder(files, events, folder, "/program"), "Can't find the Texture path.");
    EXPECT_EQ(folder, "/program");

    temp.write("Texture/readme.txt");
    folder = temp / "Texture";
    EXPECT_EQ(CheckDataFolder(files, events, folder, "/program"),
              "No folder(s) under the Texture path.");
    EXPECT_EQ(folder, temp / "Texture");

    temp.makeFolder("Texture/Clouds");
    EXPECT_EQ(CheckDataFolder(files, events, folder, "/program"), "");
}

// The window and vellumar-cli list a library's option sets; a library without any, and one whose
// folders differ in letter case, are checked here.
TEST(OptionSets, TheSubFoldersOfTheOptionGroupInAnyLetterCase)
{
    test::TempFolder temp;
    test::FaultyFileOperations files;
    test::CountingEventPump events;
    EXPECT_TRUE(OptionSetNames(files, events, temp.path()).empty());
    temp.write("texture/OPTION/Moon/moon.bmp");
    temp.write("texture/OPTION/readme.txt");
    EXPECT_EQ(OptionSetNames(files, events, temp.path()), TextList{"Moon"});
}

} // namespace
} // namespace vellumar
