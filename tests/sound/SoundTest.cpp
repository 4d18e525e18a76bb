#include "sound/Sound.h"

#include "config/Registry.h"
#include "sound/SoundSettings.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

class SoundTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    SoundSettings settings;
    SoundSources sources{settings, temp / "Vellumar", temp / "FS9", temp / "windows"};
    const std::vector<std::string>& heard = fakes.sounds.heard;

    SoundTest()
    {
        fakes.registry.hostPathsAsGiven = true;
        for (const char* event :
             {"SystemExclamation", "SystemQuestion", "SystemHand", "SystemAsterisk"}) {
            const std::string wave = temp.write("windows/Media/" + std::string(event) + ".wav");
            fakes.registry.set(RegistryHive::Users,
                               ".DEFAULT\\AppEvents\\Schemes\\Apps\\.Default\\" +
                                   std::string(event) + "\\.Current",
                               "", wave);
        }
    }
};

TEST_F(SoundTest, TheButtonSoundStandsInForEveryMessageSound)
{
    EXPECT_FALSE(PlayButtonSound(fakes.services, sources)); // switched off: nothing at all
    EXPECT_TRUE(heard.empty());
    settings.ButtonSoundPath = temp.write("Vellumar/click.wav");
    EXPECT_TRUE(PlayButtonSound(fakes.services, sources));
    PlayMessageSound(fakes.services, sources, 16);
    EXPECT_EQ(heard,
              (std::vector<std::string>{settings.ButtonSoundPath, settings.ButtonSoundPath}));
    // Gone since the start-up checked it: not played, and the message takes its own sound.
    std::filesystem::remove(settings.ButtonSoundPath);
    EXPECT_FALSE(PlayButtonSound(fakes.services, sources));
    PlayMessageSound(fakes.services, sources, 64);
    EXPECT_EQ(heard.back(), temp / "windows/Media/SystemAsterisk.wav");
}

TEST_F(SoundTest, EachIconHasItsEventSoundAndTheCriticalBitThunders)
{
    PlayMessageSound(fakes.services, sources, 32 + 1);
    EXPECT_EQ(heard.back(), temp / "windows/Media/SystemQuestion.wav");
    // No thunder clap anywhere: the system's sound for the icon.
    PlayMessageSound(fakes.services, sources, 16);
    EXPECT_EQ(heard.back(), temp / "windows/Media/SystemHand.wav");
    PlayMessageSound(fakes.services, sources, 48);
    EXPECT_EQ(heard.back(), temp / "windows/Media/SystemExclamation.wav");
    // The simulator's own clap, and the library's before it.
    const std::string simulators = temp.write("FS9/sound/thunder/xthun4c.wav");
    PlayMessageSound(fakes.services, sources, 16);
    EXPECT_EQ(heard.back(), simulators);
    temp.write("Vellumar/Sound/Storms/xthun4c.wav");
    PlayMessageSound(fakes.services, sources, 48);
    EXPECT_EQ(heard.back(), temp / "Vellumar/Sound/Storms/xthun4c.wav");
    // A message without an icon finds no event sound: nothing is heard.
    const std::size_t before = heard.size();
    PlayMessageSound(fakes.services, sources, 0);
    EXPECT_EQ(heard.size(), before);
}

TEST_F(SoundTest, AnIconWithoutAnEventSoundTakesTheProgramsOwn)
{
    fakes.registry.set(RegistryHive::Users,
                       ".DEFAULT\\AppEvents\\Schemes\\Apps\\.Default\\SystemQuestion\\.Current", "",
                       "");
    settings.MessageSoundPaths = {temp.write("own/critical.wav"), temp.write("own/question.wav"),
                                  temp.write("own/exclamation.wav"),
                                  temp.write("own/information.wav")};
    PlayMessageSound(fakes.services, sources, 32);
    EXPECT_EQ(heard.back(), temp / "own/question.wav");
    // The system's own sound still wins where it names one.
    PlayMessageSound(fakes.services, sources, 64);
    EXPECT_EQ(heard.back(), temp / "windows/Media/SystemAsterisk.wav");
}

TEST_F(SoundTest, TheAutoRandomSoundFallsBackToTheBeep)
{
    PlayAutoRandomSound(fakes.services, sources);
    settings.AutoRandomSoundPath = temp / "Vellumar/missing.wav";
    PlayAutoRandomSound(fakes.services, sources);
    settings.AutoRandomSoundPath = temp.write("Vellumar/whoosh.wav");
    PlayAutoRandomSound(fakes.services, sources);
    EXPECT_EQ(heard, (std::vector<std::string>{"beep", "beep", settings.AutoRandomSoundPath}));
}

} // namespace
} // namespace vellumar
