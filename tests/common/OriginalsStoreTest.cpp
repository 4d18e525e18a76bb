// The originals store behind every change to a simulator file.

#include "common/OriginalsStore.h"

#include "common/OriginalsGuard.h"
#include "common/ReplaceFile.h"
#include "common/Sha256.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vellumar {
namespace {

class OriginalsStoreTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;
    OriginalsGuard guard{files};
    std::string simulator = temp.makeFolder("FS9");
    std::string data = temp.makeFolder("Data");
    std::string store = OriginalsStore::FolderIn(data);

    void SetUp() override { guard.protect({simulator}, data, store); }

    // Replaces a simulator file the way an install does.
    void install(const std::string& relative, const std::string& bytes)
    {
        const std::string source = temp.write("Data/Texture/Set/" + bytes, bytes);
        ASSERT_EQ(ReplaceFileWith(guard, source, temp / ("FS9/" + relative)),
                  ReplaceResult::Replaced);
    }

    std::size_t storedContents() const
    {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(store))
            count += IsSha256Hex(entry.path().filename().string());
        return count;
    }
};

TEST_F(OriginalsStoreTest, KeepsTheFirstOriginalOfEachPathAndEachContentOnce)
{
    temp.write("FS9/texture/cld01.bmp", "stock cloud");
    temp.write("FS9/texture/cld02.bmp", "stock cloud");
    install("texture/cld01.bmp", "storm");
    install("texture/cld02.bmp", "storm");
    install("texture/cld01.bmp", "haze"); // a later install never overwrites the original
    install("texture/new.bmp", "added");

    OriginalsStore originals(files, store);
    const auto entries = originals.entries();
    // Three paths: the temporary files each replacement made beside its target are not kept.
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].hash, Sha256Hex("stock cloud"));
    EXPECT_EQ(entries[0].size, 11u);
    EXPECT_EQ(entries[1].hash, entries[0].hash);
    EXPECT_TRUE(entries[2].absent());
    EXPECT_EQ(storedContents(), 1u);
    EXPECT_EQ(originals.verifiedContent(entries[0]), "stock cloud");
}

TEST_F(OriginalsStoreTest, FindsAPathInAnyLetterCaseAndKeepsNamesBeyondAscii)
{
    temp.write("FS9/Texture/Nu\xc3\xa9"
               "e01.bmp",
               "stock");
    install("TEXTURE/NU\xc3\xa9"
            "E01.BMP",
            "storm");
    install("texture/nu\xc3\xa9"
            "e01.bmp",
            "haze");

    OriginalsStore originals(files, store);
    ASSERT_EQ(originals.entries().size(), 1u);
    const auto found = originals.find(temp / "FS9/TEXTURE/nu\xc3\xa9"
                                             "e01.BMP");
    ASSERT_TRUE(found);
    EXPECT_EQ(originals.verifiedContent(*found), "stock");
    EXPECT_EQ(temp.read("FS9/Texture/Nu\xc3\xa9"
                        "e01.bmp"),
              "haze");
}

TEST_F(OriginalsStoreTest, AChangeWhoseOriginalCannotBeKeptIsRefused)
{
    temp.write("FS9/texture/cld01.bmp", "stock cloud");
    files.failReplace = [](const std::string& path) {
        return path.find("Originals") != std::string::npos;
    };
    const std::string source = temp.write("Data/storm.bmp", "storm");
    std::string why;
    EXPECT_EQ(ReplaceFileWith(guard, source, temp / "FS9/texture/cld01.bmp", &why),
              ReplaceResult::Refused);
    EXPECT_NE(why.find("could not be kept first in " + guard.store()->folder()), std::string::npos);
    EXPECT_FALSE(guard.deleteFile(temp / "FS9/texture/cld01.bmp"));
    EXPECT_EQ(temp.read("FS9/texture/cld01.bmp"), "stock cloud");
    // Outside the simulator the guard stays out of the way.
    EXPECT_TRUE(guard.deleteFile(source));
}

TEST(OriginalsIndex, ADamagedLineCostsOnlyItsOwnEntry)
{
    const std::string hash = Sha256Hex("x");
    const auto entries = ParseOriginalsIndex("Vellumar originals 1\n" + hash +
                                             "\t1\t5\tC:\\FS9\\a.bmp\r\n"
                                             "nonsense\t1\t2\tC:\\FS9\\b.bmp\n"
                                             "absent\t0\t0\tC:\\FS9\\c b.bmp\n");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].path, "C:\\FS9\\a.bmp");
    EXPECT_EQ(entries[0].time, 5);
    EXPECT_TRUE(entries[1].absent());
    EXPECT_EQ(ParseOriginalsIndex(FormatOriginalsIndex(entries)).size(), 2u);
    EXPECT_EQ(Sha256Hex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

} // namespace
} // namespace vellumar
