// The main window on the installation named by VELLUMAR_HOME and WINEPREFIX, left idling for
// the AutoRandom benchmark: with --armed, AutoRandom set to 60 minutes and armed as a Shift
// click on Install & Start arms it (the simulator is not started), so the countdown ticks five
// times a second beside the once-a-second watch; with --timers-off, both timers stopped. It
// never ends by itself: the benchmark kills it.

#include "app/ScreenFacts_qt.h"
#include "app/StartUpSequence.h"
#include "common/EventPump_qt.h"
#include "common/FolderBrowser_qt.h"
#include "common/MessageService_qt.h"
#include "common/NoWindows.h"
#include "common/Services.h"
#include "config/PlatformServices.h"
#include "ui/Form1.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    using namespace vellumar;
    QApplication application(argc, argv);
    const bool armed = argc == 2 && std::strcmp(argv[1], "--armed") == 0;
    if (argc != 2 || (!armed && std::strcmp(argv[1], "--timers-off") != 0)) {
        std::fprintf(stderr, "Usage: autorandom_idler --armed | --timers-off\n");
        return 2;
    }
    QtMessageService messages;
    QtEventPump events;
    QtFolderBrowser folderBrowser;
    NoWindowsWavePlayer sounds; // pictures and benchmarks are quiet
    PlatformServices platform;
    Services services = platform.With(messages, events, folderBrowser, sounds);
    const ScreenFacts screen = ReadScreenFacts();
    ProgramState state;
    if (RunStartUpSequence(services, screen, state) != StartUpOutcome::Continue)
        return 1;
    Form1 window(services, state, screen);
    window.Form_Load();
    window.show();
    if (armed) {
        auto* interval = window.findChild<QWidget*>(QStringLiteral("lblTime"));
        QTest::mouseClick(interval, Qt::LeftButton, Qt::ShiftModifier); // Off to 60 minutes
        auto* start = window.findChild<QWidget*>(QStringLiteral("cmdInstAndStart"));
        QTest::mouseClick(start, Qt::LeftButton, Qt::ShiftModifier);
        if (!window.findChild<QTimer*>(QStringLiteral("Timer1"))->isActive())
            return 1;
    } else {
        for (const char* name : {"Timer1", "tmrFsCheck2"})
            window.findChild<QTimer*>(QString::fromLatin1(name))->stop();
    }
    return QApplication::exec();
}
