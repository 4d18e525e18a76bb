// The sound window's settings written back into a real cloud.ini: only the keys that change,
// every other byte as it was, and no music left behind by a longer list.

#include "sound/SoundWindowSettings.h"

#include "common/MessageService.h"
#include "config/CloudIniFile.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TEST(SoundWindowSettingsTest, WritesWhatChangedKeepsEveryOtherByteAndDropsTheOldListsTail)
{
    test::TempFolder temp;
    test::TestServices fakes;
    const std::string path = temp.write("Vellumar/cloud.ini", "; Vellumar\r\n"
                                                              "[Sound]\r\n"
                                                              "Ch1Intvl = 5   ' seconds\r\n"
                                                              "Ch2Intvl=20\r\n"
                                                              "Ch1Vol=50\r\n"
                                                              "Ch3Vol=80\r\n"
                                                              "LastMusicPath=Music\r\n"
                                                              "MusicFile1=C:\\Music\\a.mp3\r\n"
                                                              "MusicFile2=x.mp3\r\n"
                                                              "MusicFile3=y.mp3\r\n"
                                                              "MusicFile5=z.mp3\r\n"
                                                              "Mine=keep me\r\n"
                                                              "\r\n"
                                                              "[Set1]\r\n"
                                                              "DirName=Clouds\\Summer haze\r\n");
    CloudIniFile ini(fakes.files, fakes.messages, path);
    ini.RecordTimeStamp();
    const IniFolders folders{temp / "Vellumar", temp / "Vellumar/Data"};

    SoundWindowSettings settings;
    settings.intervals = {5, 30};
    settings.volumes = {50, 65, 80};
    settings.lastMusicPath = temp / "Vellumar/Music";
    // The first piece as the start-up read it (through the drive mapping), then a new one.
    settings.musicFiles = {"host:C:\\Music\\a.mp3", "/srv/music/b.mp3"};
    WriteSoundWindowSettings(ini, settings, folders, fakes.registry);

    EXPECT_EQ(temp.read("Vellumar/cloud.ini"), "; Vellumar\r\n"
                                               "[Sound]\r\n"
                                               "Ch1Intvl = 5   ' seconds\r\n"
                                               "Ch2Intvl=30\r\n"
                                               "Ch1Vol=50\r\n"
                                               "Ch3Vol=80\r\n"
                                               "LastMusicPath=Music\r\n"
                                               "MusicFile1=C:\\Music\\a.mp3\r\n"
                                               "MusicFile2=/srv/music/b.mp3\r\n"
                                               "Mine=keep me\r\n"
                                               "Ch2Vol=65\r\n"
                                               "\r\n"
                                               "[Set1]\r\n"
                                               "DirName=Clouds\\Summer haze\r\n");
    // The program's own write: the change watch stays quiet.
    EXPECT_FALSE(ini.ChangedByOthers());
    EXPECT_TRUE(fakes.messages.empty());

    // An empty list and no folder take every key away.
    settings.musicFiles.clear();
    settings.lastMusicPath.clear();
    WriteSoundWindowSettings(ini, settings, folders, fakes.registry);
    const std::string after = temp.read("Vellumar/cloud.ini");
    EXPECT_EQ(after.find("MusicFile"), std::string::npos);
    EXPECT_EQ(after.find("LastMusicPath"), std::string::npos);
    EXPECT_NE(after.find("Mine=keep me\r\nCh2Vol=65\r\n\r\n[Set1]"), std::string::npos);
}

} // namespace
} // namespace vellumar
