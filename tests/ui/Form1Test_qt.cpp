// The main window, driven by its controls' object names over a library built in a temporary
// folder.

#include "app/StartUpSequence.h"
#include "common/PathText.h"
#include "common/widgets/HiddenPickPanel.h"
#include "common/widgets/PictureView.h"
#include "common/widgets/Skin.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "ui/Form1.h"
#include "ui/SetListModel_qt.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace vellumar {
namespace {

// The library: one set of each filter category but Cirrus, a set kept out of AutoRandom, and
// an option set whose bitmap has the same name as a file of that set.
class Library {
public:
    explicit Library(bool showSkyFiles, const std::string& extraSections = {})
    {
        temp.write("Vellumar/Texture/Clouds/Summer haze/cld02.bmp");
        temp.write("Vellumar/Texture/Sky/Clear day/sky_day.bmp");
        temp.write("Vellumar/Texture/Misc/Stratus deck/stratus01.bmp");
        temp.write("Vellumar/Texture/Airport/Runway halo/halo.bmp");
        temp.write("Vellumar/Texture/Airport/Runway halo/SunEffect.cfg");
        temp.write("Vellumar/Texture/Airport/Runway halo/notes.txt");
        temp.write("Vellumar/Texture/Option/Bright halo/halo.bmp");
        temp.write("Vellumar/Texture/Option/Bright halo/moon.bmp");
        temp.write("Vellumar/Texture/Option/Bright halo/glow.fx");
        temp.makeFolder("Vellumar/Texture/Option/Empty");
        // A wide preview: 4 x 1, so a fitted picture shows whether it was distorted.
        QImage preview(64, 16, QImage::Format_RGB32);
        preview.fill(Qt::blue);
        preview.save(QString::fromStdString(temp / "Vellumar/Texture/Sky/Clear day/preview.jpg"));
        installation.writeCloudIni(std::string("[Set2]\r\nDirName=Sky\\Clear day\r\n"
                                               "[Set3]\r\nDirName=Misc\\Stratus deck\r\n"
                                               "[Set4]\r\nDirName=Airport\\Runway halo\r\n"
                                               "Random=off\r\n"
                                               "[ToolTipsText]\r\nDataList=Every set\r\n"
                                               "FilterOfList=Only these\r\n"
                                               "Inst&RunFs=Install, then fly\r\n"
                                               "Situation=Saved flights\r\n"
                                               "[ShowSkyFiles]\r\nShowFiles=") +
                                   (showSkyFiles ? "True" : "False") + "\r\n" + extraSections);
    }

    // The start-up up to Form_Load, with the window shown.
    std::unique_ptr<Form1> open(std::function<double()> uniform = [] { return 0.5; })
    {
        if (RunStartUpSequence(fakes.services, screen, state) != StartUpOutcome::Continue)
            return nullptr;
        // The configuration never switches the backup commands on; tests of them do.
        state.settings.BackupOriginals = backupOriginals;
        auto window = std::make_unique<Form1>(fakes.services, state, screen, std::move(uniform));
        window->Form_Load();
        window->show();
        return window;
    }

    test::TempFolder temp;
    test::TestServices fakes;
    test::TestInstallation installation{temp, fakes};
    ScreenFacts screen;
    ProgramState state;
    bool backupOriginals = false;
};

template <typename Widget = QWidget>
Widget* Find(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}

QAction* Action(const QWidget& window, const char* name)
{
    auto* found = window.findChild<QAction*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no menu item %s", name);
    return found;
}

QStringList Entries(const QAbstractItemView* list)
{
    QStringList entries;
    for (int row = 0; row < list->model()->rowCount(); ++row)
        entries << list->model()->index(row, 0).data().toString();
    return entries;
}

// Chooses a row of a set list as a click on it does.
void SetRow(const QWidget& window, const char* list, int row)
{
    auto* view = Find<QAbstractItemView>(window, list);
    view->setCurrentIndex(view->model()->index(row, 0));
}

QStringList Ticked(const QListWidget* list)
{
    QStringList ticked;
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->checkState() == Qt::Checked)
            ticked << list->item(row)->text();
    return ticked;
}

void Tick(QListWidget* list, const QString& name, bool ticked)
{
    const auto found = list->findItems(name, Qt::MatchExactly);
    QVERIFY2(!found.isEmpty(), qPrintable(name));
    found.front()->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

// Chooses an entry of a combo box as the user does.
void Choose(QComboBox* combo, const QString& text)
{
    const int index = combo->findText(text);
    QVERIFY2(index >= 0, qPrintable(text));
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index);
}

void Click(QWidget* control)
{
    QTest::mouseClick(control, Qt::LeftButton, {}, control->rect().center());
}

// A control built only when first needed is not shown before it exists.
bool Shown(const QWidget& window, const char* name)
{
    const auto* control = window.findChild<QWidget*>(QString::fromLatin1(name));
    return control && control->isVisibleTo(&window);
}

QColor Ink(const QWidget& window, const char* name)
{
    return Find(window, name)->palette().color(QPalette::Active, QPalette::WindowText);
}

const QStringList kAllSets = {QStringLiteral("Summer haze"), QStringLiteral("Clear day"),
                              QStringLiteral("Stratus deck"), QStringLiteral("Runway halo")};

} // namespace

class Form1Test final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controlsCarryTheirNamesAndCaptions()
    {
        Library library(false);
        const auto window = library.open();
        QVERIFY(window);
        QCOMPARE(window->objectName(), QStringLiteral("Form1"));
        QVERIFY(window->windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(window->windowTitle(), QStringLiteral("Vellumar"));
        const struct {
            const char* name;
            const char* caption;
        } captions[] = {{"lblFilter0", "All "},   {"lblFilter1", "Cumulus"},
                        {"lblFilter2", "Cirrus"}, {"lblFilter3", "Sky Color "},
                        {"lblFilter4", "Sky"},    {"lblFilter5", "Misc"},
                        {"lblOption", "Option"},  {"lblAutoRandom", "Auto Install"},
                        {"lblHelp", "Help"},      {"lblTime", "Off"},
                        {"lblMsg", "Summer haze"}};
        for (const auto& [name, caption] : captions)
            QCOMPARE(Find<QLabel>(*window, name)->text(), QString::fromUtf8(caption));
        QCOMPARE(Find<QRadioButton>(*window, "optFs0")->text(), QStringLiteral("FS2K"));
        QCOMPARE(Find<QRadioButton>(*window, "optFs1")->text(), QStringLiteral("CFS2"));
        // The other controls are found by name in the tests that use them.
        Find(*window, "lblFunc");
        QVERIFY(window->findChild<QObject*>(QStringLiteral("tmrFsCheck2")));
    }

    void showSkyFilesOffShowsTheCatalogueInOneListWithItsFilters()
    {
        Library library(false);
        const auto window = library.open();
        QCOMPARE(Entries(Find<QAbstractItemView>(*window, "lstSky")), kAllSets);
        auto* cmbClouds = Find<QComboBox>(*window, "cmbClouds");
        QCOMPARE(cmbClouds->count(), 4);
        QCOMPARE(cmbClouds->currentText(), QStringLiteral("Summer haze"));
        QCOMPARE(Find<QAbstractItemView>(*window, "lstSky")->currentIndex().row(), 0);
        // The whole set is ticked, so by default all of it would be installed.
        QCOMPARE(Ticked(Find<QListWidget>(*window, "lstClouds")),
                 (QStringList{QStringLiteral("cld01.bmp"), QStringLiteral("cld02.bmp")}));
        QCOMPARE(Find<QComboBox>(*window, "cmbOption")->currentText(),
                 QStringLiteral("Bright halo"));
        QCOMPARE(Find<QListWidget>(*window, "lstOption")->count(), 0);
        QVERIFY(Shown(*window, "lstSky"));
        for (const char* name : {"lstSkyFil", "cmbClouds", "cmbOption", "lstClouds", "lstOption",
                                 "lstFLT", "cmdBackUp", "cmdToOrg"})
            QVERIFY2(!Shown(*window, name), name);
        for (const char* name :
             {"lblFilter0", "lblFilter1", "lblFilter2", "lblFilter3", "lblFilter4", "lblFilter5"})
            QVERIFY2(Shown(*window, name), name);
        // The option set with files is offered by the trail switch under the list.
        QVERIFY(Shown(*window, "chkTrailOption"));
        QCOMPARE(Find<QLabel>(*window, "lblTrailOption")->text(), QStringLiteral("Bright halo"));
        QVERIFY(!Find<QCheckBox>(*window, "chkTrailOption")->isChecked());
    }

    void showSkyFilesOnShowsTheFilesOfTheSetAndTheOptionSet()
    {
        Library library(true);
        const auto window = library.open();
        for (const char* name : {"cmbClouds", "cmbOption", "lstClouds", "lstOption", "lblFilter4"})
            QVERIFY2(Shown(*window, name), name);
        for (const char* name : {"lstSky", "lstSkyFil", "lblFilter0", "lblFilter1", "lblFilter2",
                                 "lblFilter3", "lblFilter5", "chkTrailOption", "lblTrailOption"})
            QVERIFY2(!Shown(*window, name), name);
        // The file lists are wider than the one list of sets.
        Library narrow(false);
        const auto other = narrow.open();
        QVERIFY(window->width() > other->width());
    }

    void aCategoryShowsItsSetsAndAnEmptyOneFallsBackToAll()
    {
        Library library(false);
        const auto window = library.open();
        const QColor chosen = skin::FilterChosenColour();
        const QColor plain = skin::FilterColour();
        QCOMPARE(Ink(*window, "lblFilter0"), chosen);

        Click(Find(*window, "lblFilter3")); // Sky Color
        QVERIFY(Shown(*window, "lstSkyFil"));
        QVERIFY(!Shown(*window, "lstSky"));
        QCOMPARE(Entries(Find<QAbstractItemView>(*window, "lstSkyFil")),
                 QStringList{QStringLiteral("Clear day")});
        QCOMPARE(Find<QComboBox>(*window, "cmbClouds")->currentText(), QStringLiteral("Clear day"));
        QCOMPARE(Find<QLabel>(*window, "lblMsg")->text(), QStringLiteral("Clear day"));
        QCOMPARE(Ink(*window, "lblFilter3"), chosen);
        QCOMPARE(Ink(*window, "lblFilter0"), plain);

        Click(Find(*window, "lblFilter5")); // Misc
        auto* filtered = Find<QAbstractItemView>(*window, "lstSkyFil");
        QCOMPARE(Entries(filtered),
                 (QStringList{QStringLiteral("Stratus deck"), QStringLiteral("Runway halo")}));
        SetRow(*window, "lstSkyFil", 1);
        QCOMPARE(Find<QComboBox>(*window, "cmbClouds")->currentText(),
                 QStringLiteral("Runway halo"));
        QCOMPARE(Find<QAbstractItemView>(*window, "lstSky")->currentIndex().data().toString(),
                 QStringLiteral("Runway halo"));

        // The heading is not a filter.
        Click(Find(*window, "lblFilter4"));
        QVERIFY(Shown(*window, "lstSkyFil"));
        QCOMPARE(Ink(*window, "lblFilter5"), chosen);

        // No set is a cirrus set: back to "All " and the first set.
        Click(Find(*window, "lblFilter2"));
        QVERIFY(Shown(*window, "lstSky"));
        QVERIFY(!Shown(*window, "lstSkyFil"));
        QCOMPARE(Ink(*window, "lblFilter0"), chosen);
        QCOMPARE(Ink(*window, "lblFilter2"), plain);
        QCOMPARE(Find<QComboBox>(*window, "cmbClouds")->currentText(),
                 QStringLiteral("Summer haze"));
    }

    void tickingAFileUnticksTheSameFileOfTheOtherSet()
    {
        Library library(true);
        const auto window = library.open();
        auto* clouds = Find<QListWidget>(*window, "lstClouds");
        auto* options = Find<QListWidget>(*window, "lstOption");
        Choose(Find<QComboBox>(*window, "cmbClouds"), QStringLiteral("Runway halo"));
        // Installable files only, all ticked; the notes stay out.
        QCOMPARE(Entries(clouds),
                 (QStringList{QStringLiteral("halo.bmp"), QStringLiteral("SunEffect.cfg")}));
        QCOMPARE(Ticked(clouds), Entries(clouds));
        Choose(Find<QComboBox>(*window, "cmbOption"), QStringLiteral("Bright halo"));
        QCOMPARE(Find<QLabel>(*window, "lblMsg")->text(), QStringLiteral("Bright halo"));
        // An option set offers its bitmaps only, unticked.
        QCOMPARE(Entries(options),
                 (QStringList{QStringLiteral("halo.bmp"), QStringLiteral("moon.bmp")}));
        QVERIFY(Ticked(options).isEmpty());

        Tick(options, QStringLiteral("halo.bmp"), true);
        Tick(options, QStringLiteral("moon.bmp"), true);
        QCOMPARE(Ticked(clouds), QStringList{QStringLiteral("SunEffect.cfg")});
        QCOMPARE(Ticked(options),
                 (QStringList{QStringLiteral("halo.bmp"), QStringLiteral("moon.bmp")}));

        Tick(clouds, QStringLiteral("halo.bmp"), true);
        QCOMPARE(Ticked(options), QStringList{QStringLiteral("moon.bmp")});
        QCOMPARE(Ticked(clouds),
                 (QStringList{QStringLiteral("halo.bmp"), QStringLiteral("SunEffect.cfg")}));
        QCOMPARE(Find<QLabel>(*window, "lblMsg")->text(), QStringLiteral("halo.bmp"));

        // The list menus tick and untick everything, with the same rule.
        Action(*window, "mnuCheckOptionAll")->trigger();
        QCOMPARE(Ticked(options), Entries(options));
        QCOMPARE(Ticked(clouds), QStringList{QStringLiteral("SunEffect.cfg")});
        Action(*window, "mnuClearCloudAll")->trigger();
        QVERIFY(Ticked(clouds).isEmpty());
        Action(*window, "mnuCheckCloudAll")->trigger();
        QCOMPARE(Ticked(clouds), Entries(clouds));
        QCOMPARE(Ticked(options), QStringList{QStringLiteral("moon.bmp")});
        Action(*window, "mnuClearOptionAll")->trigger();
        QVERIFY(Ticked(options).isEmpty());
    }

    void theTrailSwitchTakesTheOptionSetAlong()
    {
        Library library(false);
        const auto window = library.open();
        SetRow(*window, "lstSky", 3); // Runway halo
        auto* trail = Find<QCheckBox>(*window, "chkTrailOption");
        QVERIFY(Shown(*window, "chkTrailOption"));
        Click(trail);
        QVERIFY(trail->isChecked());
        QCOMPARE(Ticked(Find<QListWidget>(*window, "lstOption")),
                 (QStringList{QStringLiteral("halo.bmp"), QStringLiteral("moon.bmp")}));
        QCOMPARE(Ticked(Find<QListWidget>(*window, "lstClouds")),
                 QStringList{QStringLiteral("SunEffect.cfg")});
        // Another set starts without it.
        SetRow(*window, "lstSky", 0);
        QVERIFY(!trail->isChecked());
        QCOMPARE(Find<QListWidget>(*window, "lstOption")->count(), 0);
    }

    void aHiddenPickNeverShowsTheSetName()
    {
        Library library(false);
        // Draws 0.1, 0.35, 0.6, 0.85 in turn: every index of four sets comes up.
        auto next = std::make_shared<int>(0);
        const auto window = library.open([next] { return (2 * (*next)++ % 8 + 1) / 8.0 - 0.025; });
        auto* message = Find<QLabel>(*window, "lblMsg");
        auto* cmbClouds = Find<QComboBox>(*window, "cmbClouds");
        QSet<QString> picked;
        for (int round = 0; round < 6; ++round) {
            Click(Find(*window, "cmdRandom"));
            QCOMPARE(message->text(), QStringLiteral("Press Install Button."));
            for (const char* name : {"lstSky", "lstSkyFil", "cmbClouds", "cmbOption", "lstClouds",
                                     "lstOption", "chkTrailOption", "lblFilter0", "lblFilter3"})
                QVERIFY2(!Shown(*window, name), name);
            QVERIFY(Shown(*window, "ImgSky"));
            QVERIFY(!Find<PictureView>(*window, "ImgSky")->hasPicture());
            // In the lists' place: the hidden-pick panel with the status line's words.
            QVERIFY(Shown(*window, "picHiddenPick"));
            QCOMPARE(Find<HiddenPickPanel>(*window, "picHiddenPick")->text(),
                     QStringLiteral("Press Install Button."));
            picked.insert(cmbClouds->currentText());
        }
        // Sets kept out of AutoRandom are never picked; the others all come up.
        QCOMPARE(picked, (QSet<QString>{QStringLiteral("Summer haze"), QStringLiteral("Clear day"),
                                        QStringLiteral("Stratus deck")}));

        // Back on the set list the pick stays hidden: choosing, filtering and ticking never
        // reveal a name.
        Click(Find(*window, "optSky"));
        QVERIFY(Shown(*window, "lstSky"));
        QVERIFY(!Shown(*window, "picHiddenPick"));
        QCOMPARE(message->text(), QStringLiteral("Press Install Button."));
        SetRow(*window, "lstSky", 1);
        QCOMPARE(message->text(), QStringLiteral("Press Install Button."));
        QVERIFY(!Find<PictureView>(*window, "ImgSky")->hasPicture());
        Click(Find(*window, "lblFilter3"));
        QVERIFY(!Shown(*window, "lstSkyFil"));
        Tick(Find<QListWidget>(*window, "lstClouds"), QStringLiteral("sky_day.bmp"), false);
        QCOMPARE(message->text(), QStringLiteral("Press Install Button."));
        for (const QString& name : kAllSets)
            QVERIFY(!message->text().contains(name));
    }

    void thePreviewIsFittedWithoutDistortion()
    {
        Library library(false);
        const auto window = library.open();
        auto* preview = Find<PictureView>(*window, "ImgSky");
        QVERIFY(!preview->hasPicture()); // Summer haze has no picture
        SetRow(*window, "lstSky", 1);
        QVERIFY(preview->hasPicture());
        const QRect shown = preview->pictureRect();
        QVERIFY(shown.width() > 64); // stretched to the frame
        QCOMPARE(shown.width(), 4 * shown.height());
        QVERIFY(preview->rect().contains(shown));
        SetRow(*window, "lstSky", 2);
        QVERIFY(!preview->hasPicture());
    }

    void theTrayIconShowsAndHidesTheWindowAndItsMenuCloses()
    {
        Library library(false);
        const auto window = library.open();
        auto* tray = window->findChild<QSystemTrayIcon*>(QStringLiteral("PIC"));
        QVERIFY(tray->isVisible());
        QCOMPARE(tray->toolTip(), QStringLiteral("Show/Hide Window"));
        QMenu* menu = tray->contextMenu();
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), QStringLiteral("mnuPopUpTaskTray"));
        QCOMPARE(menu->actions().size(), 1);
        QCOMPARE(menu->actions().front()->objectName(), QStringLiteral("mnuEndProg"));
        QCOMPARE(menu->actions().front()->text(), QStringLiteral("Close Vellumar"));

        Q_EMIT tray->activated(QSystemTrayIcon::Trigger);
        QVERIFY(window->isHidden());
        Q_EMIT tray->activated(QSystemTrayIcon::Trigger);
        QVERIFY(window->isVisible());
        Q_EMIT tray->activated(QSystemTrayIcon::Context);
        QVERIFY(window->isVisible());

        // The menu is used while the window is away in the notification area.
        Q_EMIT tray->activated(QSystemTrayIcon::Trigger);
        QVERIFY(window->isHidden());
        QSignalSpy unloaded(window.get(), &Form1::unloaded);
        menu->actions().front()->trigger();
        QCOMPARE(unloaded.count(), 1);
        QVERIFY(!window->isVisible());
        QVERIFY(!tray->isVisible());
    }

    void withoutANotificationAreaMinimisingKeepsTheWindowReachable()
    {
        if (QSystemTrayIcon::isSystemTrayAvailable())
            QSKIP("this display has a notification area");
        Library library(false);
        const auto window = library.open();
        Click(Find(*window, "cmdMin"));
        QVERIFY(!window->isHidden());
        QVERIFY(window->windowState() & Qt::WindowMinimized);
    }

    void theWindowMenuShowsItsItemsAndHidesThoseWithoutWork()
    {
        Library library(false);
        const auto window = library.open();
        auto* menu = Find<QMenu>(*window, "mnuPopUpForm");
        QStringList items;
        for (QAction* action : menu->actions())
            if (!action->isSeparator())
                items << action->objectName() + QLatin1Char('=') + action->text();
        QCOMPARE(items, (QStringList{QStringLiteral("mnuTime=Stop FS Time"),
                                     QStringLiteral("mnuClearSituation=Clear Situation"),
                                     QStringLiteral("mnuShowIni=Show cloud.ini"),
                                     QStringLiteral("mnuSound=Sound"),
                                     QStringLiteral("mnuWeather=Weather Setting"),
                                     QStringLiteral("mnuLastInst=Last Installed Data"),
                                     QString::fromUtf8("mnuRestoreOriginals=Restore Simulator "
                                                       "Originals\u2026"),
                                     QString::fromUtf8("mnuAddTextureSet=Add Texture Set\u2026"),
                                     QStringLiteral("mnuStopRefresh=Stop Refresh"),
                                     QStringLiteral("mnuHelp=Help")}));
        QCOMPARE(menu->actions().size(), 19); // a separator between every two items
        QVERIFY(Action(*window, "mnuSound")->isVisible());
        QVERIFY(Action(*window, "mnuSound")->isEnabled());
        QVERIFY(Action(*window, "mnuClearSituation")->isEnabled());
        QVERIFY(Action(*window, "mnuLastInst")->isEnabled());
        for (const char* name : {"mnuTime", "mnuWeather", "mnuStopRefresh", "mnuHelp"})
            QVERIFY2(!Action(*window, name)->isVisible(), name);
        // Nothing was changed yet: the restore says so and asks nothing.
        Action(*window, "mnuRestoreOriginals")->trigger();
        QCOMPARE(library.fakes.messages.last().title, std::string("Restore Simulator Originals"));
        QCOMPARE(library.fakes.messages.last().style & MessageStyle::ButtonsMask,
                 MessageStyle::OKOnly);

        Action(*window, "mnuShowIni")->trigger();
        QCOMPARE(library.fakes.launcher.opened.size(), 1u);
        QCOMPARE(library.fakes.launcher.opened.front(),
                 JoinPath(library.temp / "Vellumar", "cloud.ini"));

        const struct {
            const char* menu;
            QStringList items;
        } others[] = {
            {"mnuPopUpClearSituaion", {QStringLiteral("Clear Situation")}},
            {"mnuPopUpStartMode",
             {QStringLiteral("Activate Auto Install Without Starting Fs"),
              QStringLiteral("Cancel")}},
            {"mnuPopUpCloud", {QStringLiteral("Clear Check All"), QStringLiteral("Check All")}},
            {"mnuPopUpOption", {QStringLiteral("Clear Check All"), QStringLiteral("Check All")}},
            {"mnuPopUpBkAll", {QStringLiteral("Re-backup all set again")}},
        };
        for (const auto& [name, captions] : others) {
            QStringList shown;
            for (QAction* action : Find<QMenu>(*window, name)->actions())
                shown << action->text();
            QCOMPARE(shown, captions);
        }
    }

    void commandsAreUsableAndWhatCannotActIsOff()
    {
        Library library(false);
        const auto window = library.open();
        for (const char* name : {"lblAutoRandom", "lblTime", "cmdInstAndStart"})
            QVERIFY2(Find(*window, name)->isEnabled(), name);
        // Nothing to choose: no situations (the tip says why), no second simulator.
        QVERIFY(!Find(*window, "optFLT")->isEnabled());
        QVERIFY(Find(*window, "optFLT")
                    ->toolTip()
                    .endsWith(QStringLiteral("*.FLT and *.WX files not found.")));
        QVERIFY(Find<QRadioButton>(*window, "optFs0")->isChecked());
        QVERIFY(!Find(*window, "optFs1")->isEnabled());
        QVERIFY(!window->findChild<QTimer*>(QStringLiteral("Timer1"))->isActive());

        QSignalSpy unloaded(window.get(), &Form1::unloaded);
        Click(Find(*window, "cmdClose"));
        QCOMPARE(unloaded.count(), 1);
        QVERIFY(!window->isVisible());
    }

    void installPutsTheTickedFilesInTheSimulatorAndTheRecordOutlivesTheWindow()
    {
        Library library(true);
        auto window = library.open();
        Choose(Find<QComboBox>(*window, "cmbClouds"), QStringLiteral("Runway halo"));
        auto* cmdInst = Find(*window, "cmdInst");
        QVERIFY(cmdInst->isEnabled());
        Tick(Find<QListWidget>(*window, "lstClouds"), QStringLiteral("SunEffect.cfg"), false);
        Click(cmdInst);

        const auto& asked = library.fakes.messages.last();
        QCOMPARE(QString::fromStdString(asked.title), QStringLiteral("Installation"));
        QCOMPARE(
            QString::fromStdString(asked.text),
            QStringLiteral("*** Runway halo ***\n\nTexture set from above will be installed."));
        QVERIFY(library.fakes.files.attributes(library.temp / "FS9/texture/halo.bmp"));
        QVERIFY(!library.fakes.files.attributes(library.temp / "FS9/SunEffect.cfg"));

        Action(*window, "mnuLastInst")->trigger();
        QCOMPARE(QString::fromStdString(library.fakes.messages.last().title),
                 QStringLiteral("Last Installed Data"));
        QVERIFY(library.fakes.messages.last().text.find("1     Runway       Runway halo\n") !=
                std::string::npos);

        window->close();
        QCOMPARE(QString::fromStdString(library.temp.read("Vellumar/cloud.ini"))
                     .contains(QStringLiteral("[LastInstalled]\r\n1=Runway halo,Runway\r\n")),
                 true);
    }

    // The quiet mark of the sets wholly in place follows what the simulator holds, by content.
    void theSetListsMarkTheSetsWhoseFilesAreAllInPlace()
    {
        Library library(false);
        const auto window = library.open();
        const QAbstractItemModel* sets = Find<QListView>(*window, "lstSky")->model();
        const auto marked = [&] {
            QStringList names;
            for (int row = 0; row < sets->rowCount(); ++row)
                if (sets->index(row, 0).data(SetListModel::InPlaceRole).toBool())
                    names << sets->index(row, 0).data().toString();
            return names;
        };
        const auto install = [&](const QString& set) {
            Choose(Find<QComboBox>(*window, "cmbClouds"), set);
            Click(Find(*window, "cmdInst"));
            QTRY_VERIFY_WITH_TIMEOUT(!window->SetsInPlaceBeingRead(), 10000);
        };
        QTRY_VERIFY_WITH_TIMEOUT(!window->SetsInPlaceBeingRead(), 10000);
        QCOMPARE(marked(), QStringList());

        install(QStringLiteral("Summer haze"));
        QCOMPARE(marked(), QStringList{QStringLiteral("Summer haze")});
        install(QStringLiteral("Clear day"));
        QCOMPARE(marked(),
                 (QStringList{QStringLiteral("Summer haze"), QStringLiteral("Clear day")}));
        const QModelIndex clearDay = sets->index(1, 0);
        QVERIFY(!clearDay.data(Qt::ToolTipRole).toString().isEmpty());

        // Same name, other bytes: no longer the set's file.
        library.temp.write("FS9/texture/cld02.bmp", "edited by hand");
        install(QStringLiteral("Stratus deck"));
        QCOMPARE(marked(),
                 (QStringList{QStringLiteral("Clear day"), QStringLiteral("Stratus deck")}));
        QVERIFY(sets->index(0, 0).data(Qt::ToolTipRole).isNull());
    }

    void backupReBackupAndRestoreWorkFromTheWindow()
    {
        Library library(true);
        library.backupOriginals = true;
        library.temp.write("FS9/texture/halo.bmp", "original halo");
        const auto window = library.open();
        for (const char* name : {"cmdBackUp", "cmdToOrg"}) {
            QVERIFY2(Shown(*window, name), name);
            QVERIFY2(Find(*window, name)->isEnabled(), name);
        }
        Choose(Find<QComboBox>(*window, "cmbClouds"), QStringLiteral("Runway halo"));
        auto* message = Find<QLabel>(*window, "lblMsg");

        // Backup: the ticked files that the texture folder holds; the others are listed.
        Click(Find(*window, "cmdBackUp"));
        QCOMPARE(library.temp.read("Vellumar/BackUp/halo.bmp"), std::string("original halo"));
        QCOMPARE(QString::fromStdString(library.fakes.messages.last().text),
                 QStringLiteral("Following files are not found in the Texture Folder.\n"
                                " SunEffect.cfg"));
        QCOMPARE(message->text(), QStringLiteral("Runway halo"));

        // The right button offers the re-backup of every name of the library, which replaces
        // a backup whose original has changed since.
        const std::string changed = library.temp.write("FS9/texture/halo.bmp", "changed halo");
        std::filesystem::last_write_time(changed, std::filesystem::last_write_time(changed) +
                                                      std::chrono::hours(1));
        library.temp.write("FS9/texture/sky_day.bmp", "original sky");
        auto* menu = Find<QMenu>(*window, "mnuPopUpBkAll");
        QTest::mousePress(Find(*window, "cmdBackUp"), Qt::RightButton);
        QTRY_VERIFY(menu->isVisible());
        const std::size_t before = library.fakes.messages.shown().size();
        Action(*window, "mnuBkAll")->trigger();
        menu->close();
        QCOMPARE(library.temp.read("Vellumar/BackUp/halo.bmp"), std::string("changed halo"));
        QCOMPARE(library.temp.read("Vellumar/BackUp/sky_day.bmp"), std::string("original sky"));
        QCOMPARE(library.fakes.messages.shown().size(), before); // no failure to report

        // An install asks about the file without a backup before its confirmation.
        Click(Find(*window, "cmdInst"));
        const auto& shown = library.fakes.messages.shown();
        QCOMPARE(QString::fromStdString(shown[shown.size() - 2].title),
                 QStringLiteral("No Backup files"));
        QCOMPARE(library.temp.read("FS9/texture/halo.bmp"), std::string("x"));

        // Restore puts the backed-up original back and names what it cannot.
        library.fakes.launcher.opened.clear();
        Click(Find(*window, "cmdToOrg"));
        QCOMPARE(QString::fromStdString(library.fakes.messages.last().title),
                 QStringLiteral("To Original Files"));
        QCOMPARE(library.temp.read("FS9/texture/halo.bmp"), std::string("changed halo"));
        QCOMPARE(message->text(), QStringLiteral("Runway halo"));
        QCOMPARE(window->findChild<QSystemTrayIcon*>(QStringLiteral("PIC"))->toolTip(),
                 QStringLiteral("Show/Hide Window"));

        // Cancel leaves the simulator's file alone.
        library.temp.write("FS9/texture/halo.bmp", "installed again");
        library.fakes.messages.answerNext(MessageResult::Cancel);
        Click(Find(*window, "cmdToOrg"));
        QCOMPARE(library.temp.read("FS9/texture/halo.bmp"), std::string("installed again"));
    }

    void aLargeInstallShowsItsProgressBarOnlyWhileItCopies()
    {
        Library library(true);
        // Two files of 20 MB without data on disk: their sizes are what counts.
        for (const char* name : {"big1.bmp", "big2.bmp"}) {
            const std::string path =
                library.temp.write(std::string("Vellumar/Texture/Clouds/Summer haze/") + name, "");
            std::filesystem::resize_file(path, 20u * 1024 * 1024);
        }
        const auto window = library.open();
        auto* bar = Find<QProgressBar>(*window, "prgCopy");
        QVERIFY(!bar->isVisible());
        QList<int> seen;
        const auto watchTheBar = [&] {
            if (bar->isVisible())
                seen << bar->value();
        };
        library.fakes.events.whilePumping = watchTheBar;
        Choose(Find<QComboBox>(*window, "cmbClouds"), QStringLiteral("Summer haze"));
        Click(Find(*window, "cmdInst"));
        library.fakes.events.whilePumping = nullptr;
        QVERIFY(library.fakes.files.fileSize(library.temp / "FS9/texture/big2.bmp") ==
                20u * 1024 * 1024);
        // The bar rose while the files were copied (cld01.bmp is tiny) and went away at the end.
        QVERIFY2(seen.size() >= 2, qPrintable(QString::number(seen.size())));
        QCOMPARE(seen.front(), 0);
        QVERIFY(std::is_sorted(seen.begin(), seen.end()));
        QVERIFY(std::any_of(seen.begin(), seen.end(),
                            [](int value) { return value >= 499 && value <= 501; }));
        QVERIFY(!bar->isVisible());

        // A small set never shows it.
        seen.clear();
        library.fakes.events.whilePumping = watchTheBar;
        Choose(Find<QComboBox>(*window, "cmbClouds"), QStringLiteral("Clear day"));
        Click(Find(*window, "cmdInst"));
        library.fakes.events.whilePumping = nullptr;
        QVERIFY(seen.isEmpty());
    }

    void theHelpLabelOpensTheHelpFolderWhenThereIsOne()
    {
        {
            Library library(false);
            const auto window = library.open();
            QVERIFY(!Find(*window, "lblHelp")->isEnabled());
        }
        Library library(false);
        library.temp.write("Vellumar/help/index.html", "<html></html>");
        const auto window = library.open();
        QVERIFY(Find(*window, "lblHelp")->isEnabled());
        Click(Find(*window, "lblHelp"));
        QCOMPARE(library.fakes.launcher.opened.size(), 1u);
        QCOMPARE(library.fakes.launcher.opened.front(),
                 JoinPath(library.temp / "Vellumar", "help"));
    }

    void situationsPreviewInstallAndClearFromTheWindow()
    {
        Library library(false, "[StartSel]\r\nSel=Situation\r\n");
        test::TempFolder& temp = library.temp;
        temp.write("AppData/Microsoft/FS9/fs9.cfg", "[STARTUP]\r\nSTARTUP_FLIGHT=old\r\n");
        temp.write("Vellumar/Situation/Dusk.FLT",
                   "[Vellumar]\r\nShownText=Into the dusk\r\nSkyFolder1=Sky\\Clear day\r\n");
        temp.write("Vellumar/Situation/Dusk.jpg");
        QImage picture(32, 16, QImage::Format_RGB32);
        picture.fill(Qt::darkBlue);
        picture.save(QString::fromStdString(temp / "Vellumar/Situation/Dusk.jpg"));
        temp.write("Vellumar/Situation/Dusk.WX", "[Vellumar]\r\nShownText=Weather\r\n");
        temp.write("Vellumar/Situation/Dusk.txt", "Described\r\nat length");
        const auto window = library.open();

        // StartSel opens on the situations, the first one previewed.
        QVERIFY(Find<QRadioButton>(*window, "optFLT")->isChecked());
        auto* lstFLT = Find<QListWidget>(*window, "lstFLT");
        QCOMPARE(lstFLT->count(), 2);
        QCOMPARE(lstFLT->item(0)->text(), QStringLiteral("Dusk.FLT"));
        QCOMPARE(Find<QLabel>(*window, "lblMsg")->text(), QStringLiteral("Described\nat length"));
        QCOMPARE(lstFLT->toolTip(), QStringLiteral("Described\nat length"));
        QVERIFY(Find(*window, "ImgSky")->isVisible());

        library.fakes.messages.answerEverything = [](int) { return 6; }; // Yes
        Click(Find(*window, "cmdInstAndStart"));
        QCOMPARE(temp.read("FS9/texture/sky_day.bmp"), std::string("x"));
        QVERIFY(temp.read("AppData/Microsoft/FS9/fs9.cfg").find("Dusk.FLT") != std::string::npos);
        QCOMPARE(library.fakes.simulator.starts.size(), 1u);

        Action(*window, "mnuClearSituation2")->trigger();
        QCOMPARE(temp.read("AppData/Microsoft/FS9/fs9.cfg"),
                 std::string("[STARTUP]\r\nSTARTUP_FLIGHT=\r\n"));
    }

    void installAndStartWithShiftInstallsOnlyAndTheWatchSeesTheSimulator()
    {
        Library library(false);
        const auto window = library.open();
        library.fakes.messages.answerEverything = [](int) { return 6; };
        auto* button = Find(*window, "cmdInstAndStart");
        QTest::mouseClick(button, Qt::LeftButton, Qt::ShiftModifier, button->rect().center());
        QCOMPARE(library.temp.read("FS9/texture/cld01.bmp"), std::string("summer cloud"));
        QVERIFY(library.fakes.simulator.starts.empty());

        Click(button);
        QCOMPARE(library.fakes.simulator.starts.size(), 1u);
        // The watch runs from the start, once a second.
        QVERIFY(window->findChild<QTimer*>(QStringLiteral("tmrFsCheck2"))->isActive());
        window->RunSimulatorWatch();
        QVERIFY(window->simulatorWatch().FsRunning);
        QCOMPARE(window->simulatorWatch().ProcessId, 4242L);
        library.fakes.simulator.quit();
        window->RunSimulatorWatch();
        QVERIFY(!window->simulatorWatch().FsRunning);
        QCOMPARE(Find<QLabel>(*window, "lblTime")->text(), QStringLiteral("Off"));

        // A start that fails is told, and the window stays.
        library.fakes.simulator.failStart = true;
        Click(button);
        QCOMPARE(library.fakes.messages.last().title, std::string("FS Opening Error"));
        QVERIFY(window->isVisible());
    }

    void tipsAndTheProportionalFontComeFromCloudIni()
    {
        Library library(false, "[Font]\r\nProportional=Vellumar Test Sans\r\n");
        library.screen.installedFonts = TextList{"Vellumar Test Sans", "Other"};
        const auto window = library.open();
        QCOMPARE(Find(*window, "lstSky")->toolTip(), QStringLiteral("Every set"));
        for (const char* name :
             {"lblFilter0", "lblFilter1", "lblFilter2", "lblFilter3", "lblFilter5"})
            QCOMPARE(Find(*window, name)->toolTip(), QStringLiteral("Only these"));
        QVERIFY(Find(*window, "lblFilter4")->toolTip().isEmpty());
        QVERIFY(Find(*window, "cmdRandom")->toolTip().isEmpty());
        // A control that cannot act here says why, under the user's own tip where there is one.
        QCOMPARE(Find(*window, "optFs1")->toolTip(),
                 QStringLiteral("No second simulator installation was found on this system."));
        QCOMPARE(Find(*window, "cmdInstAndStart")->toolTip(), QStringLiteral("Install, then fly"));
        QVERIFY(Find(*window, "optFLT")
                    ->toolTip()
                    .startsWith(QStringLiteral("Saved flights\nNo situation to show: ")));
        for (const char* name : {"lstSky", "lblMsg", "cmdRandom", "cmbClouds", "optSky"})
            QCOMPARE(Find(*window, name)->font().families().value(0),
                     QStringLiteral("Vellumar Test Sans"));
        QVERIFY(library.fakes.messages.empty());
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::Form1Test)
#include "Form1Test_qt.moc"
