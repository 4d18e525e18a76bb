#include "common/FileDialogText.h"

#include "common/PathText.h"
#include "common/cSplit.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(FileDialogText, FiltersBecomeTheToolkitsOwn)
{
    EXPECT_EQ(ToolkitFileFilter("MP3 (*.mp3;*.m3u)|*.mp3;*.m3u|Wave (*.wav)|*.wav|"),
              "MP3 (*.mp3 *.m3u);;Wave (*.wav)");
    EXPECT_EQ(ToolkitFileFilter("All files|*.*"), "All files (*.*)");
    EXPECT_EQ(ToolkitFileFilter(""), "");
    EXPECT_EQ(ToolkitFileFilter("|*.x|Pictures|*.bmp;*.jpg|"), "Pictures (*.bmp *.jpg)");
}

TEST(FileDialogText, SeveralFilesComeAsTheFolderAndTheNamesForcSplit)
{
    const std::string folder = JoinPath("music", "cd");
    EXPECT_EQ(MultipleFilesAnswer({}), "");
    EXPECT_EQ(MultipleFilesAnswer({JoinPath(folder, "one.mp3")}), JoinPath(folder, "one.mp3"));
    cSplit parts;
    parts.split(MultipleFilesAnswer({JoinPath(folder, "one.mp3"), JoinPath(folder, "two.mp3")}),
                std::string_view("\0", 1));
    ASSERT_EQ(parts.count(), 3u);
    EXPECT_EQ(parts.item(1), folder);
    EXPECT_EQ(parts.item(2), "one.mp3");
    EXPECT_EQ(parts.item(3), "two.mp3");
}

} // namespace
} // namespace vellumar
