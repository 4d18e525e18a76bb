// vellumar: the program. It reads no command line of its own.

#include "app/ProgramSounds.h"
#include "app/ScreenFacts_qt.h"
#include "app/SingleInstance.h"
#include "app/StartUpSequence.h"
#include "common/EventPump_qt.h"
#include "common/FolderBrowser_qt.h"
#include "common/MessageService_qt.h"
#include "common/Services.h"
#include "common/Unattended.h"
#include "common/widgets/Skin.h"
#include "config/PlatformServices.h"
#include "sound/ProgramWavePlayer.h"
#include "ui/Form1.h"

#include <QApplication>
#include <QStyleFactory>
#include <QTimer>

#include <cstdlib>
#include <memory>

int main(int argc, char** argv)
{
    using namespace vellumar;
    // The other media backend falls over on a machine without a sound device.
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "gstreamer");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vellumar"));
    // The skin is drawn for one style on every system, and the window lives on in the
    // notification area when it is hidden: only Form_Unload ends the program.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setWindowIcon(skin::AppIcon());
    QApplication::setQuitOnLastWindowClosed(false);

    // A second copy ends without a word; the first one carries on.
    const auto instance = CreateSingleInstanceLock();
    if (!instance->acquire())
        return EXIT_SUCCESS;

    QtMessageService messages;
    QtEventPump events;
    QtFolderBrowser folderBrowser;
    const std::unique_ptr<WavePlayer> sounds = CreateProgramWavePlayer();
    PlatformServices platform;
    Services services = platform.With(messages, events, folderBrowser, *sounds);

    const ScreenFacts screen = ReadScreenFacts();
    ProgramState state;
    if (RunStartUpSequence(services, screen, state) == StartUpOutcome::EndProgram)
        return EXIT_FAILURE;
    OfferInterruptedInstallAtStart(services, state);

    Form1 window(services, state, screen);
    messages.setMainWindow(&window);
    messages.setFixedFontName(state.checks.FixFont);
    messages.setMessageSound([&services, &state](int style) {
        PlayMessageSound(services, SoundSourcesOf(state), style);
    });
    folderBrowser.setOwner(&window);
    QObject::connect(&window, &Form1::unloaded, &application, &QCoreApplication::quit);
    QObject::connect(&window, &Form1::programEnded, &application,
                     [] { QCoreApplication::exit(EXIT_FAILURE); });
    window.Form_Load();
    window.show();

    // Benchmarks and smoke tests stop here, once the window stands ready (a message on the way
    // there ends the run with its own status instead). exit() rather than quit(): quitting
    // closes the window, and closing is the shutdown, which is not measured.
    if (ExitsWhenReady())
        QTimer::singleShot(0, &application, [] { QCoreApplication::exit(EXIT_SUCCESS); });
    return application.exec();
}
