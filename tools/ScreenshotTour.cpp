// vellumar-screenshots OUTDIR: starts the main window the way the program does (on the
// installation named by VELLUMAR_HOME and WINEPREFIX, normally a demo, with the disc that
// VELLUMAR_CD names) and saves pictures of its layouts, a chosen filter, the open menus, a
// hidden random pick, the sound and music windows and the program's own message box. Run it
// under a display, e.g. Xvfb:
//   xvfb-run -a vellumar-screenshots docs/screenshots

#include "app/ScreenFacts_qt.h"
#include "app/StartUpSequence.h"
#include "common/EventPump_qt.h"
#include "common/FolderBrowser_qt.h"
#include "common/MessageService_qt.h"
#include "common/NoWindows.h"
#include "common/Services.h"
#include "common/frmMsg.h"
#include "common/widgets/Skin.h"
#include "config/PlatformServices.h"
#include "sound/SoundFiles.h"
#include "textures/Install.h"
#include "textures/LastInstalled.h"
#include "textures/SetCatalogue.h"
#include "textures/TextureFolders.h"
#include "ui/Form1.h"
#include "ui/frmMusic.h"
#include "ui/frmSound.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLinearGradient>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleFactory>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

namespace {

using namespace vellumar;

// Lets the window system draw what was just asked for.
void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
        QTest::qWait(60);
    }
}

bool Save(const QPixmap& picture, const QString& folder, const char* name)
{
    const QString path = QDir(folder).filePath(QString::fromLatin1(name));
    if (!picture.save(path)) {
        std::fprintf(stderr, "Cannot write %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    return true;
}

// The window and another one in front of it (an open popup menu, a message) together, as
// they stand on the screen, over a quiet desktop (the screen's own background is whatever the
// display happens to have).
QPixmap GrabWithMenu(QWidget& window, QWidget& menu)
{
    const QRect area = window.frameGeometry().united(menu.geometry()).adjusted(-24, -24, 24, 24);
    const qreal scale = window.devicePixelRatioF();
    QPixmap picture(area.size() * scale);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    QLinearGradient desktop(0, 0, 0, area.height());
    desktop.setColorAt(0, QColor(0x5b, 0x6b, 0x7d));
    desktop.setColorAt(1, QColor(0x3b, 0x47, 0x55));
    painter.fillRect(QRect(QPoint(0, 0), area.size()), desktop);
    painter.drawPixmap(window.frameGeometry().topLeft() - area.topLeft(), window.grab());
    const QPoint menuAt = menu.geometry().topLeft() - area.topLeft();
    // A soft shadow under the front window.
    for (int spread = 6; spread >= 1; --spread)
        painter.fillRect(QRect(menuAt + QPoint(3, 4), menu.size())
                             .adjusted(-spread, -spread + 2, spread, spread),
                         QColor(0, 0, 0, 12));
    painter.drawPixmap(menuAt, menu.grab());
    return picture;
}

struct Program {
    QtMessageService messages;
    QtEventPump events;
    QtFolderBrowser folderBrowser;
    NoWindowsWavePlayer sounds; // pictures and benchmarks are quiet
    PlatformServices platform;
    Services services = platform.With(messages, events, folderBrowser, sounds);
    ScreenFacts screen = ReadScreenFacts();
    ProgramState state;
};

// One main window with the list layout chosen, shown at a fixed place.
std::unique_ptr<Form1> OpenWindow(Program& program, bool showSkyFiles)
{
    program.state.settings.ShowSkyFiles = showSkyFiles;
    // A fixed sequence, so the pictures show the same sets every time.
    auto engine = std::make_shared<std::mt19937>(2004);
    auto window =
        std::make_unique<Form1>(program.services, program.state, program.screen, [engine] {
            return std::uniform_real_distribution<double>(0.0, 1.0)(*engine);
        });
    window->Form_Load();
    window->move(48, 48);
    window->show();
    Settle();
    return window;
}

// Installs every file of the named set without a question, as a user's earlier install would
// have left the simulator.
void InstallQuietly(Program& program, const std::string& name)
{
    const auto& sets = program.state.settings.Sets;
    const auto set = std::find_if(sets.begin(), sets.end(),
                                  [&](const TextureSetEntry& entry) { return entry.name == name; });
    if (set == sets.end())
        return;
    InstallRequest request;
    request.setName = name;
    request.cloudSetFolder = set->folder;
    for (const std::string& file :
         ListSetFiles(ScanSetFolder(program.services.files, program.events, set->folder)))
        request.cloudFiles.emplace_back(file, true);
    request.ask = false;
    TextureServices textures{program.services.messages, program.services.files, program.events,
                             program.services.clock};
    LastInstalledRecord record;
    InstallTextureSet(textures, TextureFoldersOf(program.state.paths), request, record);
}

// The program's own message box, as ShowMessage shows it.
struct MessageShot {
    const char* file;
    const char* title;
    QString text;
    int style;
};

std::unique_ptr<frmMsg> OpenMessage(const MessageShot& shot, QWidget* centreOn)
{
    auto window = std::make_unique<frmMsg>();
    window->setCentreOn(centreOn);
    window->setTitle(QString::fromUtf8(shot.title));
    window->setMessageText(shot.text);
    window->setMessageStyle(shot.style);
    window->show();
    Settle();
    return window;
}

std::vector<MessageShot> MessageShots()
{
    QString backupList;
    for (const char* name :
         {"cloud1.bmp", "cloud2.bmp", "cloud3.bmp", "cloud4.bmp", "cumulus.cld", "stratus.cld",
          "sky_sunrise.bmp", "sky_sunset.bmp", "sky_night.bmp", "moon.bmp", "sunflare.bmp",
          "rain.bmp", "snowflake.bmp", "fx_rain.fx", "suneffect.cfg"})
        backupList += QStringLiteral("\n") + QString::fromLatin1(name);
    return {
        {"frmMsg-one-button.png", "cloud.ini",
         QStringLiteral("ATTRIBUTE changing Error of CLOUD.ini.\n"
                        "Is CLOUD.ini used another application ?"),
         48},
        {"frmMsg-two-buttons.png", "Installation",
         QStringLiteral("*** Cumulus Summer ***\n\nTexture set from above will be installed."), 65},
        {"frmMsg-three-buttons.png", "AutoRandom",
         QStringLiteral("The AutoRandom order has changed.\nKeep the new order?"), 3 + 32},
        {"frmMsg-scrolling.png", "No Backup files",
         QStringLiteral("*** Cumulus Summer ***\n\nFollowing backup files are not found.\n"
                        "Try to backup these files again?") +
             backupList,
         52},
    };
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setWindowIcon(skin::AppIcon());
    if (argc != 2) {
        std::fprintf(stderr, "Usage: vellumar-screenshots OUTDIR\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);

    Program program;
    if (RunStartUpSequence(program.services, program.screen, program.state) ==
        StartUpOutcome::EndProgram)
        return EXIT_FAILURE;

    bool saved = true;
    {
        auto window = OpenWindow(program, true);
        // An option set chosen as well, so both file lists have something to show.
        auto* optionSets = window->findChild<QComboBox*>(QStringLiteral("cmbOption"));
        if (const int index = optionSets->findText(QStringLiteral("Crescent moon")); index >= 0) {
            optionSets->setCurrentIndex(index);
            Q_EMIT optionSets->activated(index);
        }
        Settle();
        saved &= Save(window->grab(), folder, "main-window.png");
    }
    {
        // Two sets in place, so that the list shows their marks.
        for (const char* name : {"Hazy summer cumulus", "Clear day sky"})
            InstallQuietly(program, name);
        auto window = OpenWindow(program, false);
        for (int waited = 0; window->SetsInPlaceBeingRead() && waited < 10000; waited += 50)
            QTest::qWait(50);
        Settle();
        saved &= Save(window->grab(), folder, "main-window-sky-list.png");

        auto* skyColour = window->findChild<QLabel*>(QStringLiteral("lblFilter3"));
        QTest::mouseClick(skyColour, Qt::LeftButton);
        Settle();
        saved &= Save(window->grab(), folder, "main-window-filter.png");

        auto* options = window->findChild<QLabel*>(QStringLiteral("lblOption"));
        QTest::mouseClick(options, Qt::LeftButton);
        Settle();
        auto* formMenu = window->findChild<QMenu*>(QStringLiteral("mnuPopUpForm"));
        saved &= Save(GrabWithMenu(*window, *formMenu), folder, "main-window-option-menu.png");
        formMenu->hide();

        // The tray menu opens by the notification area; here, below the window's corner.
        auto* trayMenu = window->findChild<QMenu*>(QStringLiteral("mnuPopUpTaskTray"));
        trayMenu->popup(window->geometry().bottomRight() + QPoint(-40, 12));
        Settle();
        saved &= Save(GrabWithMenu(*window, *trayMenu), folder, "main-window-tray-menu.png");
        trayMenu->hide();
    }
    {
        // The backup commands, which only a program switched to keep originals shows, and a
        // long copy under way (staged: the bar as it stands part-way through a large set).
        program.state.settings.BackupOriginals = true;
        auto window = OpenWindow(program, true);
        program.state.settings.BackupOriginals = false;
        window->findChild<QLabel*>(QStringLiteral("lblMsg"))
            ->setText(QStringLiteral("Copying cld03.bmp"));
        auto* bar = window->findChild<QProgressBar*>(QStringLiteral("prgCopy"));
        bar->setValue(420);
        bar->show();
        Settle();
        saved &= Save(window->grab(), folder, "main-window-copying.png");
    }
    {
        // The situations: a saved flight chosen, with its description and picture.
        auto window = OpenWindow(program, false);
        auto* situations = window->findChild<QRadioButton*>(QStringLiteral("optFLT"));
        QTest::mouseClick(situations, Qt::LeftButton);
        auto* list = window->findChild<QListWidget*>(QStringLiteral("lstFLT"));
        const auto storm = list->findItems(QStringLiteral("Summer evening.FLT"), Qt::MatchExactly);
        if (!storm.isEmpty())
            list->setCurrentItem(storm.front());
        Settle();
        saved &= Save(window->grab(), folder, "main-window-situations.png");

        // The right button on Install & Start, as it is with AutoRandom on.
        auto* startMenu = window->findChild<QMenu*>(QStringLiteral("mnuPopUpStartMode"));
        auto* start = window->findChild<QWidget*>(QStringLiteral("cmdInstAndStart"));
        startMenu->popup(start->mapToGlobal(QPoint(12, start->height() - 4)));
        Settle();
        saved &= Save(GrabWithMenu(*window, *startMenu), folder, "main-window-start-menu.png");
        startMenu->hide();
    }
    {
        // AutoRandom: the interval set on the label, and the countdown as it runs (staged: the
        // status line part-way through an interval, without starting the simulator).
        auto window = OpenWindow(program, false);
        auto* interval = window->findChild<QLabel*>(QStringLiteral("lblTime"));
        for (int click = 0; click < 10; ++click)
            QTest::mouseClick(interval, Qt::LeftButton);
        QTest::mouseClick(interval, Qt::LeftButton); // 2 minutes
        window->findChild<QLabel*>(QStringLiteral("lblMsg"))
            ->setText(QStringLiteral("Golden dusk    Time Remain  01:37"));
        Settle();
        saved &= Save(window->grab(), folder, "main-window-autorandom.png");

        QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("lblAutoRandom")),
                          Qt::LeftButton);
        Settle();
        if (auto* selection = window->findChild<QDialog*>(QStringLiteral("frmRandSel"))) {
            saved &= Save(selection->grab(), folder, "autorandom-selection.png");
            selection->findChild<QRadioButton*>(QStringLiteral("optOrder"))->click();
            Settle();
            saved &= Save(selection->grab(), folder, "autorandom-order.png");
            selection->reject();
        } else {
            saved = false;
        }
    }
    {
        // The music window, with the demo's music and (staged, for a list
        // worth ordering) the sounds of the other channels after it.
        auto window = OpenWindow(program, false);
        MusicOrder order{program.state.settings.MusicFiles, program.state.settings.LastMusicPath};
        for (const std::string& folder : program.state.checks.SoundChannelFolders)
            for (const std::string& file : ListSoundFiles(program.services.files, folder))
                if (std::find(order.files.begin(), order.files.end(), file) == order.files.end())
                    order.files.push_back(file);
        frmMusic music(program.services.files, order, program.state.checks.SoundChannelFolders[2],
                       window.get());
        music.move(window->geometry().topLeft() + QPoint(120, 90));
        music.show();
        Settle();
        if (auto* list = music.findChild<QListWidget*>(QStringLiteral("lstMusic")))
            list->setCurrentRow(1);
        Settle();
        saved &= Save(music.grab(), folder, "frmMusic.png");
        music.reject();
    }
    {
        // The sound window from the Option menu: the demo's disc on its second track, and the
        // first channel playing.
        auto window = OpenWindow(program, false);
        if (auto* sound = window->findChild<QAction*>(QStringLiteral("mnuSound")))
            sound->trigger();
        if (frmSound* opened = window->soundWindow()) {
            opened->move(window->geometry().topLeft() + QPoint(160, 60));
            Settle();
            if (auto* track = opened->findChild<QScrollBar*>(QStringLiteral("hsvTrack")))
                track->setValue(2);
            for (const char* button : {"chkCD", "cmdPlay1", "cmdPlay3"})
                if (auto* control =
                        opened->findChild<QAbstractButton*>(QString::fromLatin1(button)))
                    control->click();
            opened->RunChannelTick();
            Settle();
            saved &= Save(opened->grab(), folder, "frmSound.png");
            opened->close();
            Settle();
        } else {
            saved = false;
        }
    }
    {
        // The hidden random pick: the lists give way to a panel that keeps the set's name back.
        auto window = OpenWindow(program, false);
        QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("cmdRandom")), Qt::LeftButton);
        Settle();
        saved &= Save(window->grab(), folder, "main-window-hidden-pick.png");
    }
    {
        // A message over the main window, in the same skin.
        auto window = OpenWindow(program, false);
        const MessageShot install = {nullptr, "Installation",
                                     QStringLiteral("*** Hazy summer cumulus ***\n\n"
                                                    "Texture set from above will be installed."),
                                     65};
        auto message = OpenMessage(install, window.get());
        saved &= Save(GrabWithMenu(*window, *message), folder, "main-window-message.png");
    }
    for (const MessageShot& shot : MessageShots()) {
        auto message = OpenMessage(shot, nullptr);
        saved &= Save(message->grab(), folder, shot.file);
    }
    return saved ? EXIT_SUCCESS : EXIT_FAILURE;
}
