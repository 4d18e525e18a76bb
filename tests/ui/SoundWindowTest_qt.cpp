// The sound window: the CD's controls over a disc image that comes and goes, the channels with
// players that play nothing, and what the window keeps in cloud.ini when it closes.

#include "app/StartUpSequence.h"
#include "sound/CreatePlatformMediaControl.h"
#include "support/CdImage.h"
#include "support/FakeMediaPlayer.h"
#include "support/ScopedEnvironment_posix.h"
#include "support/ScriptedMediaControl.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "ui/Form1.h"
#include "ui/frmSound.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include <filesystem>
#include <memory>

namespace vellumar {
namespace {

using namespace std::chrono_literals;

template <typename Widget = QWidget>
Widget* Find(const QObject& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

QString Shown(const QObject& window, const char* label)
{
    return Find<QLabel>(window, label)->text();
}

class Installation {
public:
    Installation()
    {
        temp.write("Vellumar/Sound/Ch1/rain.wav");
        temp.write("Vellumar/Sound/Ch1/wind.wav");
        temp.write("Music/one.mp3");
        temp.write("Music/two.mp3");
        temp.write("Music/three.mp3");
        installation.writeCloudIni("[Sound]\r\nCh1Intvl=7\r\nCh3Vol=40\r\n"
                                   "MusicFile1=" +
                                   (temp / "Music/one.mp3") +
                                   "\r\n"
                                   "MusicFile2=" +
                                   (temp / "Music/two.mp3") +
                                   "\r\n"
                                   "MusicFile3=" +
                                   (temp / "Music/three.mp3") + "\r\n");
        if (RunStartUpSequence(fakes.services, screen, state) != StartUpOutcome::Continue)
            qFatal("the test installation does not start");
    }

    // Doors with players that record; the CD as `cd` gives it.
    SoundWindowDoors doors(std::unique_ptr<MediaControl> cd)
    {
        SoundWindowDoors doors;
        doors.cd = std::move(cd);
        for (std::size_t i = 0; i < players.size(); ++i) {
            auto player = std::make_unique<test::FakeMediaPlayer>();
            players[i] = player.get();
            doors.players[i] = std::move(player);
        }
        return doors;
    }

    std::string ini() const { return temp.read("Vellumar/cloud.ini"); }

    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    ScreenFacts screen;
    ProgramState state;
    std::array<test::FakeMediaPlayer*, 3> players{};
};

class SoundWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A disc image that appears is a disc put in; its tracks play, repeat from track 1 after
    // the last, and stop when the window closes. The disc plays on the clock: no sound device
    // is needed, and the window says once that nothing can be heard.
    void theCdOverADiscImage()
    {
        Installation setup;
        const std::string image = setup.temp / "disc/album.cue";
        test::ScopedEnvironment disc("VELLUMAR_CD", image);
        auto window =
            std::make_unique<frmSound>(setup.fakes.services, setup.state,
                                       setup.doors(CreatePlatformMediaControl(setup.fakes.clock)));
        QCOMPARE(window->windowTitle(), QStringLiteral("Vellumar Sound"));
        auto* play = Find<QCheckBox>(*window, "chkCD");
        auto* repeat = Find<QCheckBox>(*window, "chkRepeatCD");
        auto* track = Find<QScrollBar>(*window, "hsvTrack");
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track**"));
        QVERIFY(!play->isEnabled() && !track->isEnabled());

        // 75 sectors are a second: tracks of 2, 3 and 2 seconds.
        std::filesystem::create_directories(setup.temp / "disc");
        test::WriteCdImage(setup.temp / "disc", "album", {150, 225, 150});
        setup.fakes.clock.advance(1s); // the drive is looked at once a second
        window->RunCdPoll();
        QVERIFY(play->isEnabled() && track->isEnabled());
        QCOMPARE(track->maximum(), 3);
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track01"));
        QVERIFY(Shown(*window, "lblCdStatus").startsWith(QStringLiteral("3 tracks")));

        track->setValue(3);
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track03"));
        play->click();
        setup.fakes.clock.advance(1s);
        window->RunCdPoll();
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track03"));
        QVERIFY(play->isChecked());

        // Played out with repeat on: track 1 again.
        repeat->click();
        setup.fakes.clock.advance(2s);
        window->RunCdPoll();
        QCOMPARE(track->value(), 1);
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track01"));
        setup.fakes.clock.advance(2500ms);
        window->RunCdPoll();
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track02"));

        // Taken out while it plays: nothing left to play or choose.
        std::filesystem::remove(image);
        setup.fakes.clock.advance(1s);
        window->RunCdPoll();
        QCOMPARE(Shown(*window, "lblTrack"), QStringLiteral("Track**"));
        QVERIFY(!play->isChecked() && !play->isEnabled());
    }

    void closingStopsTheCdAndKeepsTheSettings()
    {
        Installation setup;
        auto control = std::make_unique<test::ScriptedMediaControl>();
        test::ScriptedMediaControl& cd = *control;
        cd.insertDisc(4);
        auto window = std::make_unique<frmSound>(setup.fakes.services, setup.state,
                                                 setup.doors(std::move(control)));
        QCOMPARE(Find<QSpinBox>(*window, "spnInterval1")->value(), 7);
        QCOMPARE(setup.players[2]->volume, 40);
        Find<QCheckBox>(*window, "chkCD")->click();
        QCOMPARE(cd.sent.back(), std::string("play cd from 1"));

        Find<QSlider>(*window, "sldVolume3")->setValue(85);
        QCOMPARE(setup.players[2]->volume, 85);
        Find<QSpinBox>(*window, "spnInterval2")->setValue(0);
        window->close();
        QCOMPARE(cd.sent[cd.sent.size() - 2], std::string("stop cd wait"));
        QCOMPARE(cd.sent.back(), std::string("close all"));
        const std::string ini = setup.ini();
        QVERIFY(ini.find("Ch3Vol=85") != std::string::npos);
        QVERIFY(ini.find("Ch2Intvl=0") != std::string::npos);
        QVERIFY(ini.find("MusicFile3=") != std::string::npos);
    }

    // Channel 1 plays its folder's files; the music channel plays the list in order and
    // skips on; their lines say what plays.
    void theChannelsPlayTheirFiles()
    {
        Installation setup;
        auto window =
            std::make_unique<frmSound>(setup.fakes.services, setup.state,
                                       setup.doors(std::make_unique<test::ScriptedMediaControl>()));
        test::FakeMediaPlayer& sounds = *setup.players[0];
        test::FakeMediaPlayer& music = *setup.players[2];
        Find<QPushButton>(*window, "cmdPlay1")->click();
        QCOMPARE(sounds.played.size(), 1u);
        const std::string first = std::filesystem::path(sounds.played[0]).filename().string();
        QVERIFY(first == "rain.wav" || first == "wind.wav");
        QVERIFY(Shown(*window, "lblStatus1").contains(QString::fromStdString(first)));
        QVERIFY(!Find<QPushButton>(*window, "cmdPlay1")->isEnabled());

        Find<QPushButton>(*window, "cmdPlay3")->click();
        QCOMPARE(music.played.back(), setup.temp / "Music/one.mp3");
        music.fail("not a sound file");
        window->RunChannelTick();
        QCOMPARE(music.played.back(), setup.temp / "Music/two.mp3");
        QVERIFY(Shown(*window, "lblStatus3").contains(QStringLiteral("one.mp3")));
        Find<QPushButton>(*window, "cmdNext")->click();
        QCOMPARE(music.played.back(), setup.temp / "Music/three.mp3");
        Find<QPushButton>(*window, "cmdStop3")->click();
        QVERIFY(Find<QPushButton>(*window, "cmdPlay3")->isEnabled());
    }

    // A cloud.ini edited by someone else while the window was open is theirs: closing writes
    // nothing over it.
    void anEditMadeMeanwhileIsKept()
    {
        Installation setup;
        auto window =
            std::make_unique<frmSound>(setup.fakes.services, setup.state,
                                       setup.doors(std::make_unique<test::ScriptedMediaControl>()));
        Find<QSlider>(*window, "sldVolume1")->setValue(90);
        const std::string edited = setup.ini() + "; the user's own line\r\n";
        setup.temp.write("Vellumar/cloud.ini", edited);
        window->close();
        QCOMPARE(setup.ini(), edited);
    }

    // The music order edits what the music channel plays; the shorter list leaves no key of
    // the longer one behind, which the reader would otherwise bring back.
    void theMusicOrderChangesTheList()
    {
        Installation setup;
        auto window =
            std::make_unique<frmSound>(setup.fakes.services, setup.state,
                                       setup.doors(std::make_unique<test::ScriptedMediaControl>()));
        Find<QPushButton>(*window, "cmdMusicOrder")->click();
        frmMusic* order = window->musicWindow();
        QVERIFY(order && order->isVisible());
        auto* list = Find<QListWidget>(*order, "lstMusic");
        QCOMPARE(list->count(), 3);
        list->setCurrentRow(0);
        Find<QPushButton>(*order, "cmdRemove")->click();
        Find<QPushButton>(*order, "cmdOK")->click();
        Find<QPushButton>(*window, "cmdPlay3")->click();
        QCOMPARE(setup.players[2]->played.back(), setup.temp / "Music/two.mp3");

        window->close();
        const std::string ini = setup.ini();
        QVERIFY(ini.find("MusicFile1=" + (setup.temp / "Music/two.mp3")) != std::string::npos);
        QVERIFY(ini.find("MusicFile2=" + (setup.temp / "Music/three.mp3")) != std::string::npos);
        QVERIFY(ini.find("MusicFile3") == std::string::npos);
    }

    // The main window's "Sound" opens one sound window, and its closing closes it too.
    void theMainWindowOpensAndClosesIt()
    {
        Installation setup;
        Form1 main(setup.fakes.services, setup.state, setup.screen);
        main.soundWindowDoors = [&setup] {
            return setup.doors(std::make_unique<test::ScriptedMediaControl>());
        };
        main.Form_Load();
        main.show();
        auto* sound = main.findChild<QAction*>(QStringLiteral("mnuSound"));
        QVERIFY(sound && sound->isEnabled());
        sound->trigger();
        QPointer<frmSound> opened = main.soundWindow();
        QVERIFY(opened && opened->isVisible());
        sound->trigger();
        QCOMPARE(main.findChildren<frmSound*>().size(), 1);
        Find<QSlider>(*opened, "sldVolume1")->setValue(12);
        main.close();
        QTRY_VERIFY(!opened);
        QVERIFY(setup.ini().find("Ch1Vol=12") != std::string::npos);
    }
};

} // namespace
} // namespace vellumar

QTEST_MAIN(vellumar::SoundWindowTest)
#include "SoundWindowTest_qt.moc"
