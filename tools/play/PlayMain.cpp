// vellumar-play FILE: plays a sound or music file through the program's media player and ends
// when it has played: status 0; status 1 with the reason on standard error when it cannot be
// played. `vellumar-cli play` runs it in its own place, so messages speak as vellumar-cli.

#include "sound/MediaPlayer_qt.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <string>

namespace {

using namespace std::chrono_literals;

// How long a file may take to load before its length is known, and how long past its length
// the end may be late: a bound, so that a player that never reports cannot hold a script.
constexpr auto kLoadBound = 20s;
constexpr auto kEndMargin = 10s;

int Fail(const std::string& file, const std::string& why)
{
    std::fprintf(stderr, "vellumar-cli: play: cannot play %s: %s\n", file.c_str(), why.c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    // The other media backend falls over on a machine without a sound device.
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "gstreamer");
    QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: vellumar-play FILE\n");
        return 2;
    }
    const std::string file = argv[1];

    vellumar::QtMediaPlayer player;
    player.SetVolume(100);
    player.Play(file);
    QElapsedTimer elapsed;
    elapsed.start();
    int status = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &application, [&] {
        using State = vellumar::MediaPlayer::State;
        const State state = player.state();
        if (state == State::Finished || state == State::Stopped) {
            application.exit(0);
            return;
        }
        if (state == State::Failed) {
            status = Fail(file, player.error());
            application.exit(status);
            return;
        }
        const auto length = player.duration();
        const auto bound = length
                               ? *length + kEndMargin
                               : std::chrono::duration_cast<std::chrono::milliseconds>(kLoadBound);
        if (std::chrono::milliseconds(elapsed.elapsed()) > bound) {
            player.Stop();
            status = Fail(file, length ? "it did not end in its own time"
                                       : "the player did not get it started");
            application.exit(status);
        }
    });
    poll.start(50);
    const int code = application.exec();
    return status != 0 ? status : code;
}
