// vellumar-screenshots OUTDIR: starts the main window the way the program does (on the
// installation named by VELLUMAR_HOME and WINEPREFIX, normally a demo) and saves pictures of
// its layouts, a chosen filter and the open tray menu. Run it under a display, e.g. Xvfb:
//   xvfb-run -a vellumar-screenshots docs/screenshots

#include "app/ScreenFacts_qt.h"
#include "app/StartUpSequence.h"
#include "common/Clock.h"
#include "common/EventPump_qt.h"
#include "common/FileOperations.h"
#include "common/FolderBrowser_qt.h"
#include "common/MessageService_qt.h"
#include "common/ProcessLauncher.h"
#include "common/Services.h"
#include "common/widgets/Skin.h"
#include "config/Registry.h"
#include "config/SystemFolders.h"
#include "ui/Form1.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLinearGradient>
#include <QMenu>
#include <QPainter>
#include <QProgressBar>
#include <QStyleFactory>
#include <QTest>
#include <QWindow>

#include <cstdio>
#include <cstdlib>
#include <memory>

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

// The window and an open popup menu together, as they stand on the screen, over a quiet
// desktop (the screen's own background is whatever the display happens to have).
QPixmap GrabWithMenu(QWidget& window, QMenu& menu)
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
    painter.fillRect(QRect(menuAt + QPoint(3, 4), menu.size()), QColor(0, 0, 0, 70));
    painter.drawPixmap(menuAt, menu.grab());
    return picture;
}

struct Program {
    QtMessageService messages;
    QtEventPump events;
    QtFolderBrowser folderBrowser;
    std::unique_ptr<FileOperations> files = CreatePlatformFileOperations();
    std::unique_ptr<Registry> registry = CreatePlatformRegistry();
    std::unique_ptr<SystemFolders> systemFolders = CreatePlatformSystemFolders();
    std::unique_ptr<ProcessLauncher> launcher = CreatePlatformProcessLauncher();
    std::unique_ptr<Clock> clock = CreateSystemClock();
    Services services{messages,       events,    *files,        *registry,
                      *systemFolders, *launcher, folderBrowser, *clock};
    ScreenFacts screen = ReadScreenFacts();
    ProgramState state;
};

// One main window with the list layout chosen, shown at a fixed place.
std::unique_ptr<Form1> OpenWindow(Program& program, bool showSkyFiles)
{
    program.state.settings.ShowSkyFiles = showSkyFiles;
    // A fixed sequence, so the pictures show the same sets every time.
    auto window = std::make_unique<Form1>(program.services, program.state, program.screen,
                                          [] { return 0.5; });
    window->Form_Load();
    window->move(48, 48);
    window->show();
    Settle();
    return window;
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
        auto window = OpenWindow(program, false);
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
    return saved ? EXIT_SUCCESS : EXIT_FAILURE;
}
