#include "simulator/Splash.h"

#include "config/CloudIniFile.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <deque>

namespace vellumar {
namespace {

class SplashTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    std::string fs = temp.makeFolder("FS9");
    std::string uires = temp.makeFolder("FS9/UIRES");
    std::string ini = temp.write("cloud.ini", "[Splash Screen]\r\nSplash=on\r\n");
    CloudIniFile cloudIni{fakes.files, fakes.messages, ini};
    SplashState state;

    SplashTest()
    {
        for (int number : {1, 2, 4})
            temp.write("Splash/dlgsplash" + std::to_string(number) + ".bmp",
                       "picture " + std::to_string(number));
        state.SplashEnabled = true;
        state.SplashFolder = temp / "Splash";
    }

    int rotate(std::deque<double> draws = {})
    {
        return RotateSplash(fakes.files, fakes.events, cloudIni, fs, state, [&draws] {
            const double next = draws.empty() ? 0.0 : draws.front();
            if (!draws.empty())
                draws.pop_front();
            return next;
        });
    }
};

TEST_F(SplashTest, CountsWithoutAGapAndKeepsTheSimulatorsOwnPictureOnce)
{
    temp.write("FS9/UIRES/dlgsplash.bmp", "own");
    CountSplashPictures(fakes.files, fs, state);
    EXPECT_EQ(state.SplashCount, 2); // picture 4 lies past the gap
    EXPECT_EQ(temp.read("FS9/UIRES/dlgsplash(org).bmp"), "own");

    temp.write("FS9/UIRES/dlgsplash.bmp", "changed");
    CountSplashPictures(fakes.files, fs, state);
    EXPECT_EQ(temp.read("FS9/UIRES/dlgsplash(org).bmp"), "own");

    state.SplashFolder = temp / "Gone";
    CountSplashPictures(fakes.files, fs, state);
    EXPECT_FALSE(state.SplashEnabled);
    EXPECT_EQ(rotate(), 0);
}

TEST_F(SplashTest, RandomNeverRepeatsAndOrderWraps)
{
    CountSplashPictures(fakes.files, fs, state);
    // Two pictures at random alternate, however often the draw lands on the last one.
    state.SplashLastNo = 1;
    EXPECT_EQ(rotate({0.1, 0.2, 0.7}), 2);
    EXPECT_EQ(rotate({0.9, 0.1}), 1);
    EXPECT_EQ(temp.read("FS9/UIRES/dlgsplash.bmp"), "picture 1");

    state.SplashMode = "order";
    state.SplashLastNo = 7; // beyond the count
    EXPECT_EQ(rotate(), 1);
    EXPECT_EQ(rotate(), 2);
    EXPECT_EQ(rotate(), 1);
    // Recorded under [Splash Screen], and cloud.ini's new time stamp is the program's own.
    EXPECT_EQ(cloudIni.ReadIniValue("Splash Screen", "LastNo"), "1");
    EXPECT_FALSE(cloudIni.ChangedByOthers());

    state.SplashCount = 1;
    state.SplashMode = "random";
    EXPECT_EQ(rotate({0.9}), 1); // one picture: always that one
}

} // namespace
} // namespace vellumar
