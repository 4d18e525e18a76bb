// Sets from archives, hostile archives, and removal into the trash.

#include "cli/CommandSet.h"
#include "support/CliRun.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"

#include <gtest/gtest.h>

#include <archive.h>
#include <archive_entry.h>
#include <cstdio>
#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

struct Entry {
    Entry(std::string path, std::string data, unsigned type = AE_IFREG, std::string linkTarget = {})
        : path(std::move(path))
        , data(std::move(data))
        , type(type)
        , linkTarget(std::move(linkTarget))
    {}

    std::string path;
    std::string data;
    unsigned type;
    std::string linkTarget;
};

// An archive made with the library's own writer: "zip" or "tar".
std::string WriteArchive(const std::string& path, const std::string& format,
                         const std::vector<Entry>& entries)
{
    archive* writer = archive_write_new();
    if (format == "zip")
        archive_write_set_format_zip(writer);
    else
        archive_write_set_format_pax_restricted(writer);
    EXPECT_EQ(archive_write_open_filename(writer, path.c_str()), ARCHIVE_OK);
    for (const Entry& each : entries) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, each.path.c_str());
        archive_entry_set_filetype(entry, each.type);
        archive_entry_set_perm(entry, 0644);
        if (each.type == AE_IFLNK)
            archive_entry_set_symlink(entry, each.linkTarget.c_str());
        if (each.type == AE_IFCHR)
            archive_entry_set_rdev(entry, makedev(1, 3));
        archive_entry_set_size(entry, static_cast<la_int64_t>(each.data.size()));
        EXPECT_EQ(archive_write_header(writer, entry), ARCHIVE_OK) << each.path;
        if (!each.data.empty())
            archive_write_data(writer, each.data.data(), each.data.size());
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
    return path;
}

// Bytes that do not compress, so that half of an archive is half of its data.
std::string Noise(std::size_t size)
{
    std::string bytes(size, '\0');
    unsigned state = 12345;
    for (char& c : bytes) {
        state = state * 1103515245 + 12345;
        c = static_cast<char>(state >> 16);
    }
    return bytes;
}

// A tar header alone that declares a file of 8 GB.
std::string HugeTarHeader()
{
    std::string header(512, '\0');
    auto put = [&header](std::size_t at, std::string_view text) {
        header.replace(at, text.size(), text);
    };
    put(0, "cld1.bmp");
    put(100, "0000644");
    put(108, "0000000");
    put(116, "0000000");
    put(124, "77777777777");
    put(136, "00000000000");
    put(148, "        ");
    put(156, "0");
    put(257, "ustar");
    put(263, "00");
    unsigned sum = 0;
    for (const unsigned char c : header)
        sum += c;
    char checksum[8];
    std::snprintf(checksum, sizeof checksum, "%06o", sum);
    put(148, std::string_view(checksum, 7));
    return header;
}

std::set<std::string> Listing(const std::string& folder)
{
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        names.insert(entry.path().string());
    return names;
}

class ArchiveImportTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    test::CliRun run{fakes};

    bool errSays(const std::string& part) { return run.err.str().find(part) != std::string::npos; }
};

TEST_F(ArchiveImportTest, ZipAndTarSetsAreUnpackedIntoNewFoldersAndAppended)
{
    temp.makeFolder("Downloads");
    const std::string zip = WriteArchive(temp / "Downloads/Golden dusk.zip", "zip",
                                         {{"Golden dusk/", "", AE_IFDIR},
                                          {"Golden dusk/sky_dusk.bmp", Noise(300000)},
                                          {"Golden dusk/sun2.bmp", "sun"},
                                          {"Golden dusk/readme.txt", "words"},
                                          {"__MACOSX/Golden dusk/._sun2.bmp", "fork"}});
    const std::string tar =
        WriteArchive(temp / "Downloads/snowy.tar", "tar", {{"snow1.bmp", "snow"}});
    const std::string before = temp.read("Vellumar/cloud.ini");

    EXPECT_EQ(run({"import", zip, "--yes"}), CliExit::Success) << run.err.str();
    EXPECT_EQ(run.out.str(), "added [Set2] Golden dusk\tSky Color\t2 files\n");
    EXPECT_TRUE(errSays("left out \"Golden dusk/readme.txt\""));
    EXPECT_TRUE(errSays("left out \"__MACOSX/Golden dusk/._sun2.bmp\""));
    EXPECT_EQ(temp.read("Vellumar/Texture/Golden dusk/sky_dusk.bmp"), Noise(300000));
    EXPECT_EQ(temp.read("Vellumar/Texture/Golden dusk/sun2.bmp"), "sun");

    EXPECT_EQ(run({"import", tar, "--name", "Snow day", "--yes"}), CliExit::Success);
    EXPECT_EQ(run.out.str(), "added [Set3] Snow day\tSnow\t1 file\n");
    EXPECT_EQ(temp.read("Vellumar/Texture/Snow day/snow1.bmp"), "snow");
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"),
              before + "[Set2]\r\nDirName=Golden dusk\r\n[Set3]\r\nDirName=Snow day\r\n");
    EXPECT_EQ(Listing(temp / "Vellumar/Texture").size(), 8u); // nothing else was left there
}

// Whatever an archive holds or claims, nothing is written outside the new folder, and a refused
// one leaves the library and cloud.ini exactly as they were.
TEST_F(ArchiveImportTest, HostileOrBrokenArchivesWriteNothing)
{
    temp.makeFolder("Downloads");
    const std::string outside = temp / "outside.bmp";
    const std::string valid = WriteArchive(temp / "Downloads/valid.zip", "zip",
                                           {{"cld01.bmp", Noise(200000)}, {"cld02.bmp", "x"}});
    const std::string whole = test::ReadWholeFile(valid);
    test::WriteWholeFile(temp / "Downloads/truncated.zip", whole.substr(0, whole.size() / 2));
    test::WriteWholeFile(temp / "Downloads/huge.tar", HugeTarHeader());
    test::WriteWholeFile(temp / "Downloads/garbage.zip", "PK\x03\x04 but nothing else at all");

    const struct {
        std::string archive;
        std::vector<Entry> entries;
        std::string message;
    } cases[] = {
        {"traversal.tar", {{"cld01.bmp", "x"}, {"../outside.bmp", "x"}}, "leads out of its folder"},
        {"absolute.tar", {{outside, "x"}}, "has an absolute path"},
        {"link.tar", {{"cld01.bmp", "", AE_IFLNK, outside}}, "\"cld01.bmp\" is a link"},
        {"device.tar", {{"cld01.bmp", "", AE_IFCHR}}, "is a device file"},
        {"case.zip", {{"cld01.bmp", "a"}, {"CLD01.BMP", "b"}}, "ignores letter case"},
        {"nothing.zip", {{"readme.txt", "x"}}, "holds no texture set files"},
        {"truncated.zip", {}, "damaged"},
        {"huge.tar", {}, "declares 8192 MB, more than the 2048 MB a set may hold"},
        {"garbage.zip", {}, "the archive is damaged"},
    };
    const std::string before = temp.read("Vellumar/cloud.ini");
    const auto library = Listing(temp / "Vellumar");
    for (const auto& [name, entries, message] : cases) {
        const std::string archive = temp / ("Downloads/" + name);
        if (!entries.empty())
            WriteArchive(archive, name.substr(name.size() - 3), entries);
        EXPECT_EQ(run({"import", archive, "--name", "Hostile", "--yes"}), CliExit::Failed) << name;
        EXPECT_TRUE(errSays(message)) << name << ": " << run.err.str();
        EXPECT_FALSE(fs::exists(outside)) << name;
        EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before) << name;
        EXPECT_EQ(Listing(temp / "Vellumar"), library) << name;
    }
}

TEST_F(ArchiveImportTest, AKilledImportsTemporaryFolderGoesWithTheNextImport)
{
    // No process runs with the largest id Linux hands out.
    temp.write("Vellumar/Texture/.vellumar-import-4194304-1/cld01.bmp");
    temp.write("Downloads/Haze/cld01.bmp");
    EXPECT_EQ(run({"import", temp / "Downloads/Haze"}), CliExit::Failed); // asked, answered No
    EXPECT_FALSE(fs::exists(temp / "Vellumar/Texture/.vellumar-import-4194304-1"));
}

class RemoveTest : public ArchiveImportTest {
protected:
    test::ScopedEnvironment dataHome{"XDG_DATA_HOME", temp / "xdg"};

    RemoveTest()
    {
        temp.write("Vellumar/Texture/Storm/cldcn01.bmp", "storm");
        temp.write("Vellumar/Texture/Clear/sky_day.bmp");
        installation.writeCloudIni("[Set2]\r\nDirName=Storm\r\nOrder=1\r\n\r\n"
                                   "[Set3]\r\nDirName=Clear ' a clear day\r\nRandom=off\r\n"
                                   "[AutoRandom]\r\nMode=order\r\nOrder1=Storm\r\n"
                                   "Order2=Clouds\\Summer haze\r\nOrder3=Clear\r\n");
    }
};

TEST_F(RemoveTest, TheSectionGoesTheOthersMoveUpAndTheFolderIsInTheTrash)
{
    const std::string before = temp.read("Vellumar/cloud.ini");
    EXPECT_EQ(run({"remove", "Storm"}), CliExit::Failed);
    EXPECT_EQ(fakes.messages.last().title, "Remove Texture Set");
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), before);

    EXPECT_EQ(run({"remove", "storm", "--yes"}), CliExit::Success) << run.err.str();
    EXPECT_EQ(run.out.str(), "removed [Set2] Storm\n");
    const std::string basics = before.substr(0, before.find("[Set2]"));
    EXPECT_EQ(temp.read("Vellumar/cloud.ini"),
              basics + "[Set2]\r\nDirName=Clear ' a clear day\r\nRandom=off\r\n"
                       "[AutoRandom]\r\nMode=order\r\nOrder1=Clouds\\Summer haze\r\n"
                       "Order2=Clear\r\n");
    EXPECT_FALSE(fs::exists(temp / "Vellumar/Texture/Storm"));
    EXPECT_EQ(temp.read("xdg/Trash/files/Storm/cldcn01.bmp"), "storm");
    const std::string info = temp.read("xdg/Trash/info/Storm.trashinfo");
    EXPECT_EQ(
        info.rfind("[Trash Info]\nPath=" + temp / "Vellumar/Texture/Storm" + "\nDeletionDate=", 0),
        0u)
        << info;

    EXPECT_EQ(run({"sets"}), CliExit::Success);
    EXPECT_EQ(run.out.str().find("Summer haze\t"), 0u);
    EXPECT_NE(run.out.str().find("\nClear\tSky Color\t3\t"), std::string::npos);
}

} // namespace
} // namespace vellumar
