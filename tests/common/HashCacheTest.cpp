// The digests a second run takes from the cache instead of reading the files again.

#include "common/HashCache.h"

#include "common/Sha256.h"
#include "common/TextList.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace vellumar {
namespace {

class HashCacheTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;
    std::string cachePath = HashCache::PathIn(temp / "Data");
    TextList read;

    void SetUp() override
    {
        files.beforeRead = [this](const std::string& path) {
            if (path != cachePath)
                read.push_back(path);
        };
    }

    // One run: every file's digest through a freshly loaded cache, then the cache saved.
    void hashAll(const TextList& paths)
    {
        read.clear();
        HashCache cache(files, cachePath);
        for (const std::string& path : paths)
            EXPECT_EQ(cache.hashOf(path), Sha256Hex(test::ReadWholeFile(path))) << path;
        EXPECT_TRUE(cache.save());
    }
};

TEST_F(HashCacheTest, ReadsAgainOnlyFilesWhoseSizeOrTimeChanged)
{
    const std::string a = temp.write("Sim/a.bmp", "aaaa");
    const std::string b = temp.write("Sim/b.bmp", "bbbb");
    const std::string c = temp.write("Sim/c.bmp", "cccc");
    hashAll({a, b, c});
    EXPECT_EQ(read, (TextList{a, b, c}));

    // Asked about twice in one run, read once; in the next run not at all.
    hashAll({a, b, c, a});
    EXPECT_EQ(read, TextList{});

    // Same size, new bytes and a new time; and a new size (the time may well look the same).
    test::WriteWholeFile(b, "BBBB");
    std::filesystem::last_write_time(test::Utf8Path(b),
                                     std::filesystem::last_write_time(test::Utf8Path(b)) +
                                         std::chrono::seconds(5));
    const auto cTime = std::filesystem::last_write_time(test::Utf8Path(c));
    test::WriteWholeFile(c, "cccccc");
    std::filesystem::last_write_time(test::Utf8Path(c), cTime);
    hashAll({a, b, c});
    EXPECT_EQ(read, (TextList{b, c}));

    // A file gone is no digest, and drops out of the cache.
    std::filesystem::remove(test::Utf8Path(a));
    HashCache cache(files, cachePath);
    EXPECT_EQ(cache.hashOf(a), std::nullopt);
    EXPECT_TRUE(cache.save());
    EXPECT_EQ(test::ReadWholeFile(cachePath).find("a.bmp"), std::string::npos);
}

TEST_F(HashCacheTest, ADamagedCacheIsIgnoredAndRebuilt)
{
    const std::string a = temp.write("Sim/a.bmp", "aaaa");
    const std::string b = temp.write("Sim/b.bmp", "bbbb");
    hashAll({a, b});
    const std::string good = test::ReadWholeFile(cachePath);

    // Cut in the middle of b's line: a is still known, b is read again.
    const std::size_t cut = good.find("b.bmp") - 10;
    test::WriteWholeFile(cachePath, good.substr(0, cut));
    hashAll({a, b});
    EXPECT_EQ(read, TextList{b});
    EXPECT_EQ(test::ReadWholeFile(cachePath), good);

    for (const std::string& damaged : {std::string("\x01\x02 garbage\n\t\t\t\n"), std::string(),
                                       "Vellumar hashes 1\nnot-a-hash\t4\t1\t" + a + "\n"}) {
        test::WriteWholeFile(cachePath, damaged);
        hashAll({a, b});
        EXPECT_EQ(read, (TextList{a, b}));
        EXPECT_EQ(test::ReadWholeFile(cachePath), good);
    }
}

} // namespace
} // namespace vellumar
