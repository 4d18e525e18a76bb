#include "common/Pict.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(ShowPicture, LoadsBitmapsGifsAndJpegsByTheirEnding)
{
    for (const char* path : {"a.bmp", "C:\\x\\PREVIEW.GIF", "p.jpg", "p.JPEG", "/x/y.jpeg"})
        EXPECT_TRUE(IsShowablePicture(path)) << path;
    // Only the last four characters count, so a name ending in "jpeg" without a dot passes.
    EXPECT_TRUE(IsShowablePicture("xjpeg"));
    for (const char* path : {"a.png", "a.bm", "bmp", "", "notes.txt", "a.jpe"})
        EXPECT_FALSE(IsShowablePicture(path)) << path;
}

TEST(ShowPicture, WithoutStretchingASmallPictureKeepsItsSizeAndALargeOneShrinks)
{
    PictureRect rect = FitPicture(128, 96, 240, 180, false);
    EXPECT_EQ(rect.width, 128);
    EXPECT_EQ(rect.height, 96);
    EXPECT_EQ(rect.x, 56);
    EXPECT_EQ(rect.y, 42);
    rect = FitPicture(1024, 768, 240, 180, false);
    EXPECT_EQ(rect.width, 240);
    EXPECT_EQ(rect.height, 180);
}

TEST(ShowPicture, NeverLeavesTheAreaAndNothingFitsIntoNothing)
{
    const PictureRect rect = FitPicture(3, 1000, 7, 5, true);
    EXPECT_GE(rect.width, 1);
    EXPECT_LE(rect.width, 7);
    EXPECT_EQ(rect.height, 5);
    EXPECT_EQ(FitPicture(0, 10, 100, 100, true).width, 0);
    EXPECT_EQ(FitPicture(10, 10, 0, 100, true).height, 0);
}

} // namespace
} // namespace vellumar
