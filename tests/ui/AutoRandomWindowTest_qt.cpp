// AutoRandom in the window: the interval label, the countdown on a test clock, and the
// selection window with its ticks, order, modes and the guard against outside edits.

#include "app/StartUpSequence.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "ui/Form1.h"
#include "ui/frmRandSel.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <memory>

namespace vellumar {
namespace {

using namespace std::chrono_literals;

// Three sets: Summer haze (cld01.bmp), Dusk (sky_dusk.bmp) and Night, which is kept out.
class Library {
public:
    Library()
    {
        temp.write("Vellumar/Texture/Sky/Dusk/sky_dusk.bmp", "dusk");
        temp.write("Vellumar/Texture/Sky/Night/sky_night.bmp", "night");
        installation.writeCloudIni("[Set2]\r\nDirName=Sky\\Dusk\r\n"
                                   "[Set3]\r\nDirName=Sky\\Night\r\nRandom=off\r\n");
    }

    std::unique_ptr<Form1> open()
    {
        if (RunStartUpSequence(fakes.services, screen, state) != StartUpOutcome::Continue)
            return nullptr;
        // Draws of 0.5 and 0.1 by turns: Dusk, then Summer haze, then Dusk, ...
        auto draws = std::make_shared<int>(0);
        auto window = std::make_unique<Form1>(fakes.services, state, screen,
                                              [draws] { return (*draws)++ % 2 ? 0.1 : 0.5; });
        window->Form_Load();
        window->show();
        return window;
    }

    std::string ini() const { return temp.read("Vellumar/cloud.ini"); }

    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    ScreenFacts screen;
    ProgramState state;
};

template <typename Widget = QWidget>
Widget* Find(const QObject& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

void Press(QWidget* label, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers modifiers = {})
{
    QTest::mousePress(label, button, modifiers, label->rect().center());
    QTest::mouseRelease(label, button, modifiers, label->rect().center());
}

QStringList Entries(const QListWidget* list)
{
    QStringList entries;
    for (int row = 0; row < list->count(); ++row)
        entries << list->item(row)->text();
    return entries;
}

frmRandSel* OpenSelection(Form1& window)
{
    QTest::mouseClick(Find(window, "lblAutoRandom"), Qt::LeftButton);
    return Find<frmRandSel>(window, "frmRandSel");
}

} // namespace

class AutoRandomWindowTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theIntervalLabelStepsAndGoesOff()
    {
        Library library;
        const auto window = library.open();
        auto* lblTime = Find<QLabel>(*window, "lblTime");
        QCOMPARE(lblTime->text(), QStringLiteral("Off"));
        for (int i = 0; i < 5; ++i)
            Press(lblTime);
        QCOMPARE(lblTime->text(), QStringLiteral("0.5min"));
        QVERIFY(!Find(*window, "cmdInst")->isEnabled());
        Press(lblTime, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(lblTime->text(), QStringLiteral("10min"));
        Press(lblTime, Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(lblTime->text(), QStringLiteral("9min"));
        Press(lblTime, Qt::RightButton);
        QCOMPARE(lblTime->text(), QStringLiteral("Off"));
        Press(lblTime, Qt::LeftButton, Qt::ShiftModifier); // down from off: 60 minutes
        QCOMPARE(lblTime->text(), QStringLiteral("60min"));
    }

    void armedAutoRandomInstallsAtOnceThenCountsDownAndStopsWithTheSimulator()
    {
        Library library;
        const auto window = library.open();
        auto* lblTime = Find<QLabel>(*window, "lblTime");
        for (int i = 0; i < 5; ++i)
            Press(lblTime); // 0.5 min
        QTest::mouseClick(Find(*window, "cmdInstAndStart"), Qt::LeftButton);
        QVERIFY(Find<QTimer>(*window, "Timer1")->isActive());
        QVERIFY(!Find(*window, "cmbClouds")->isEnabled()); // the set is AutoRandom's now
        QCOMPARE(library.fakes.simulator.starts.size(), 1u);

        window->RunAutoRandomTick(); // the first tick installs at once
        // Never the first set on the first pick: Dusk.
        QCOMPARE(library.temp.read("FS9/texture/sky_dusk.bmp"), std::string("dusk"));
        auto* lblMsg = Find<QLabel>(*window, "lblMsg");
        QCOMPARE(lblMsg->text(), QStringLiteral("Dusk    Time Remain  00:30"));
        library.fakes.clock.advance(12s);
        window->RunAutoRandomTick();
        QCOMPARE(lblMsg->text(), QStringLiteral("Dusk    Time Remain  00:18"));
        library.fakes.clock.advance(18s);
        window->RunAutoRandomTick(); // the next set: never the same twice in a row
        QCOMPARE(library.temp.read("FS9/texture/cld01.bmp"), std::string("summer cloud"));
        QVERIFY(lblMsg->text().startsWith(QStringLiteral("Summer haze    Time Remain  00:")));

        // The simulator closes: AutoRandom goes off on the watch's next tick.
        window->RunSimulatorWatch();
        library.fakes.simulator.quit();
        window->RunSimulatorWatch();
        QCOMPARE(lblTime->text(), QStringLiteral("Off"));
        QVERIFY(!Find<QTimer>(*window, "Timer1")->isActive());
        QCOMPARE(lblMsg->text(), QStringLiteral("Summer haze"));
        QVERIFY(Find(*window, "cmbClouds")->isEnabled());
    }

    void theSelectionAppendsTicksCancelsAndSaves()
    {
        Library library;
        const auto window = library.open();
        frmRandSel* selection = OpenSelection(*window);
        QCOMPARE(selection->windowTitle(), QStringLiteral("AutoRandom Data Selection"));
        auto* lstSet = Find<QListWidget>(*selection, "lstSet");
        auto* lstOrder = Find<QListWidget>(*selection, "lstOrder");
        QCOMPARE(Entries(lstSet), (QStringList{QStringLiteral("Summer haze"),
                                               QStringLiteral("Dusk"), QStringLiteral("Night")}));
        QCOMPARE(lstSet->item(2)->checkState(), Qt::Unchecked);
        // Opening ticks nothing twice.
        QCOMPARE(Entries(lstOrder),
                 (QStringList{QStringLiteral("Summer haze"), QStringLiteral("Dusk")}));
        lstSet->item(2)->setCheckState(Qt::Checked);
        QCOMPARE(Entries(lstOrder).last(), QStringLiteral("Night"));

        // Cancel: nothing of it stays.
        QTest::mouseClick(Find(*selection, "cmdCancel"), Qt::LeftButton);
        QTRY_VERIFY(!window->findChild<frmRandSel*>());
        QCOMPARE(library.state.settings.AutoRandom.flags, (std::vector<bool>{true, true, false}));

        // Clear All, then OK: told, nothing written, still open on random mode.
        selection = OpenSelection(*window);
        Find<QRadioButton>(*selection, "optOrder")->click();
        Find<QAction>(*selection, "mnuClearAll")->trigger();
        const std::string before = library.ini();
        QTest::mouseClick(Find(*selection, "cmdOK"), Qt::LeftButton);
        QCOMPARE(library.fakes.messages.last().title, std::string("No selected data"));
        QVERIFY(Find<QRadioButton>(*selection, "optRnd")->isChecked());
        QCOMPARE(library.ini(), before);
        QVERIFY(Find(*selection, "cmdOK")->isEnabled());

        // Select All, order mode, OK: written, and the program runs on it.
        Find<QAction>(*selection, "mnuSelAll")->trigger();
        Find<QRadioButton>(*selection, "optOrder")->click();
        QTest::mouseClick(Find(*selection, "cmdOK"), Qt::LeftButton);
        QVERIFY(library.ini().find("[Set3]\r\nDirName=Sky\\Night\r\nRandom=on") !=
                std::string::npos);
        QVERIFY(library.ini().find("Mode=order") != std::string::npos);
        QCOMPARE(library.state.settings.AutoRandom.flags, (std::vector<bool>{true, true, true}));
        QVERIFY(library.state.settings.AutoRandom.OrderMode);
    }

    void anOutsideEditEndsTheProgramWithoutSaving()
    {
        Library library;
        const auto window = library.open();
        frmRandSel* selection = OpenSelection(*window);
        std::filesystem::last_write_time(library.temp / "Vellumar/cloud.ini",
                                         std::filesystem::file_time_type::clock::now() + 1h);
        const std::string before = library.ini();
        QSignalSpy unloaded(window.get(), &Form1::unloaded);
        QTest::mouseClick(Find(*selection, "cmdOK"), Qt::LeftButton);
        QCOMPARE(library.fakes.messages.last().title, std::string("Ini changed"));
        QTRY_COMPARE(unloaded.count(), 1);
        // The last-installed record is written at the end, as always; the selection is not.
        QVERIFY(library.ini().find("[AutoRandom]") == std::string::npos);
        QVERIFY(before.find("[AutoRandom]") == std::string::npos);
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::AutoRandomWindowTest)
#include "AutoRandomWindowTest_qt.moc"
