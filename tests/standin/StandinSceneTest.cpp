// What the simulator's stand-in shows is decided from the files of a simulator folder and its
// fs9.cfg; the window only paints it. These tests build such folders and check the decision.

#include "standin/StandinScene.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>

namespace vellumar::standin {
namespace {

namespace fs = std::filesystem;

bool Lists(const std::vector<std::string>& paths, const std::string& name)
{
    return std::any_of(paths.begin(), paths.end(), [&name](const std::string& path) {
        return fs::path(path).filename() == name;
    });
}

// A bitmap file as far as its header goes: "BM", the file's size, the pixels' offset.
std::string Bitmap(std::string_view pixels = "pixels")
{
    const auto size = static_cast<std::uint32_t>(14 + pixels.size());
    std::string bytes = "BM";
    for (std::uint32_t value : {size, 0u, 14u})
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>((value >> shift) & 0xFF);
    return bytes + std::string(pixels);
}

TEST(StandinSceneTest, ShowsTheTexturesInstalledNowAndSaysWhyWhenThereAreNone)
{
    test::TempFolder temp;
    // The folder's letter case as an installer may leave it.
    temp.write("sim/Texture/sky_day.bmp", Bitmap());
    temp.write("sim/Texture/cld01.bmp", Bitmap("original"));
    temp.write("sim/Texture/sun.bmp", Bitmap());
    temp.write("sim/Texture/notes.txt");
    temp.write("sim/uires/DLGSPLASH.BMP", Bitmap());
    const std::string simulator = temp / "sim";

    const StandinScene before = DescribeScene(simulator, "", "");
    EXPECT_EQ(before.problem, "");
    EXPECT_EQ(fs::path(before.sky).filename(), "sky_day.bmp");
    EXPECT_EQ(fs::path(before.splash).filename(), "DLGSPLASH.BMP");
    EXPECT_TRUE(Lists(before.clouds, "cld01.bmp"));
    EXPECT_NE(before.installedAt, "");

    // An install replaces the originals and brings files of other names, a thunder sheet
    // among them; a file renamed into place counts as much as one written over.
    temp.write("sim/Texture/cld01.bmp", Bitmap("replaced by the set"));
    temp.write("incoming.bmp", Bitmap());
    fs::rename(temp / "incoming.bmp", temp / "sim/Texture/cldcn01.bmp");
    const StandinScene after = DescribeScene(simulator, "", "");
    EXPECT_TRUE(Lists(after.clouds, "cldcn01.bmp"));
    EXPECT_NE(after.stamp, before.stamp);
    EXPECT_EQ(DescribeScene(simulator, "", "").stamp, after.stamp); // nothing changed: no redraw

    // A bitmap still being copied is left out, and said to be, until it is whole.
    temp.write("sim/Texture/cld02.bmp", Bitmap("a cloud of many bytes").substr(0, 20));
    const StandinScene copying = DescribeScene(simulator, "", "");
    EXPECT_FALSE(Lists(copying.clouds, "cld02.bmp"));
    EXPECT_EQ(copying.skipped, std::vector<std::string>{"cld02.bmp"});
    temp.write("sim/Texture/cld02.bmp", Bitmap("a cloud of many bytes"));
    EXPECT_TRUE(Lists(DescribeScene(simulator, "", "").clouds, "cld02.bmp"));

    fs::remove_all(temp / "sim/Texture");
    const StandinScene bare = DescribeScene(simulator, "", "");
    EXPECT_NE(bare.problem.find("no texture folder in " + simulator), std::string::npos)
        << bare.problem;
    EXPECT_TRUE(bare.clouds.empty());
    EXPECT_NE(DescribeScene(temp / "nowhere", "", "").problem.find("does not exist"),
              std::string::npos);
}

TEST(StandinSceneTest, NamesTheStartSituationOfFs9CfgAndTakesItsTimeOfDay)
{
    test::TempFolder temp;
    temp.write("sim/texture/sky_day.bmp", Bitmap());
    temp.write("sim/texture/sky_dusk.bmp", Bitmap());
    const std::string prefix = temp / "prefix";
    temp.write("prefix/drive_c/Flights/Storm approach.FLT",
               "[Main]\r\nTitle=Storm approach over the sound\r\n\r\n"
               "[DateTimeSeason]\r\nHours=19\r\nMinutes=40\r\n");
    const std::string config =
        temp.write("fs9.cfg", "[MAIN]\r\nMaximized=1\r\n\r\n[STARTUP]\r\nSHOW_OPENING_SCREEN=1\r\n"
                              "STARTUP_FLIGHT=C:\\Flights\\Storm approach.FLT\r\n");

    const StandinScene scene = DescribeScene(temp / "sim", config, prefix);
    EXPECT_EQ(scene.situationName, "Storm approach");
    EXPECT_EQ(scene.situationTitle, "Storm approach over the sound");
    EXPECT_EQ(scene.timeOfDay, "dusk");
    EXPECT_EQ(fs::path(scene.sky).filename(), "sky_dusk.bmp");

    // A situation outside the prefix, through drive Z:, that cannot be read: its name is all
    // there is to show.
    temp.write("fs9.cfg", "[STARTUP]\r\nSTARTUP_FLIGHT=Z:\\home\\pilot\\Situation\\Winter "
                          "morning.FLT\r\n");
    const StandinScene elsewhere = DescribeScene(temp / "sim", config, prefix);
    EXPECT_EQ(elsewhere.situationName, "Winter morning");
    EXPECT_EQ(elsewhere.situationTitle, "");
    EXPECT_NE(elsewhere.stamp, scene.stamp);

    temp.write("fs9.cfg", "[STARTUP]\r\nSTARTUP_FLIGHT=\r\n");
    EXPECT_EQ(DescribeScene(temp / "sim", config, prefix).situationName, "");
}

} // namespace
} // namespace vellumar::standin
