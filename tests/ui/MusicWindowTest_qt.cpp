// The music window: Add (with a scripted file choice), Remove, Move Up/Down, OK and Cancel.

#include "common/FileOperations.h"
#include "support/TempFolder.h"
#include "ui/frmMusic.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace vellumar {
namespace {

QStringList Entries(const frmMusic& window)
{
    auto* list = window.findChild<QListWidget*>(QStringLiteral("lstMusic"));
    QStringList entries;
    for (int row = 0; row < list->count(); ++row)
        entries << list->item(row)->text();
    return entries;
}

void Click(const frmMusic& window, const char* name)
{
    auto* button = window.findChild<QPushButton*>(QString::fromLatin1(name));
    if (!button)
        qFatal("no control %s", name);
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

class MusicWindowTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void addRemoveAndReorderThenOkHandsTheListBack()
    {
        test::TempFolder temp;
        const auto files = CreatePlatformFileOperations();
        const std::string channel = temp.makeFolder("Sound/Ch3");
        const std::string music = temp.makeFolder("Music");
        frmMusic window(*files, MusicOrder{{temp / "Music/a.mp3"}, ""}, channel);
        std::vector<std::string> askedIn;
        std::string filterShown;
        window.setFileChooser([&](const std::string& folder, const std::string& filter) {
            askedIn.push_back(folder);
            filterShown = filter;
            return TextList{temp / "Music/b.wav", temp / "Music/c.m3u"};
        });
        window.show();

        Click(window, "cmdAdd");
        QCOMPARE(Entries(window), (QStringList{QStringLiteral("a.mp3"), QStringLiteral("b.wav"),
                                               QStringLiteral("c.m3u")}));
        Click(window, "cmdAdd"); // the next Add opens where the last one chose
        QCOMPARE(askedIn, (std::vector<std::string>{channel, music}));
        QVERIFY(filterShown.starts_with("MP3 (*.mp3;*.m3u)|*.mp3;*.m3u|WAV"));
        // The first piece of an Add is selected: the second b.wav. Remove both.
        auto* list = window.findChild<QListWidget*>(QStringLiteral("lstMusic"));
        QCOMPARE(list->currentRow(), 3);
        Click(window, "cmdRemove");
        list->setCurrentRow(1);
        Click(window, "cmdRemove");
        QCOMPARE(Entries(window), (QStringList{QStringLiteral("a.mp3"), QStringLiteral("c.m3u"),
                                               QStringLiteral("c.m3u")}));

        list->setCurrentRow(0);
        QVERIFY(!window.findChild<QPushButton*>(QStringLiteral("cmdUp"))->isEnabled());
        Click(window, "cmdDown");
        Click(window, "cmdDown");
        QCOMPARE(Entries(window), (QStringList{QStringLiteral("c.m3u"), QStringLiteral("c.m3u"),
                                               QStringLiteral("a.mp3")}));
        QVERIFY(!window.findChild<QPushButton*>(QStringLiteral("cmdDown"))->isEnabled());
        Click(window, "cmdUp");
        QCOMPARE(list->currentRow(), 1);

        Click(window, "cmdOK");
        QCOMPARE(window.result(), int(QDialog::Accepted));
        QCOMPARE(window.order().files,
                 (TextList{temp / "Music/c.m3u", temp / "Music/a.mp3", temp / "Music/c.m3u"}));
        QCOMPARE(window.order().lastMusicPath, music);
    }

    void cancelHandsBackTheListAsItWas()
    {
        test::TempFolder temp;
        const auto files = CreatePlatformFileOperations();
        const MusicOrder before{{temp / "a.mp3", temp / "b.mp3"}, temp.path()};
        frmMusic window(*files, before, "");
        window.setFileChooser([&](const std::string&, const std::string&) {
            return TextList{temp / "Elsewhere/c.mp3"};
        });
        window.show();
        Click(window, "cmdAdd");
        Click(window, "cmdRemove");
        Click(window, "cmdUp");
        QVERIFY(window.order().lastMusicPath != before.lastMusicPath);
        Click(window, "cmdCancel");
        QCOMPARE(window.result(), int(QDialog::Rejected));
        QCOMPARE(window.order().files, before.files);
        QCOMPARE(window.order().lastMusicPath, before.lastMusicPath);
        // A file dialog closed without a choice adds nothing.
        frmMusic again(*files, before, "");
        again.setFileChooser([](const std::string&, const std::string&) { return TextList{}; });
        Click(again, "cmdAdd");
        QCOMPARE(Entries(again), (QStringList{QStringLiteral("a.mp3"), QStringLiteral("b.mp3")}));
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::MusicWindowTest)
#include "MusicWindowTest_qt.moc"
