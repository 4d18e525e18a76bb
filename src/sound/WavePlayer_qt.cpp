#include "sound/WavePlayer_qt.h"

#include <QApplication>
#include <QAudioOutput>
#include <QMediaPlayer>
#include <QUrl>

namespace vellumar {

QtWavePlayer::~QtWavePlayer()
{
    if (!thread_.isRunning())
        return;
    thread_.quit();
    thread_.wait();
}

void QtWavePlayer::playAsync(const std::string& path)
{
    if (!player_) {
        // The player and everything it makes belong to the sound thread from the start.
        thread_.setObjectName(QStringLiteral("sounds"));
        player_ = new QObject;
        player_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, player_, &QObject::deleteLater);
        thread_.start();
    }
    QObject* host = player_;
    const QUrl source = QUrl::fromLocalFile(QString::fromStdString(path));
    QMetaObject::invokeMethod(
        host,
        [host, source] {
            auto* player = host->findChild<QMediaPlayer*>();
            if (!player) {
                player = new QMediaPlayer(host);
                player->setAudioOutput(new QAudioOutput(player));
            }
            player->stop();
            player->setSource(source);
            player->play();
        },
        Qt::QueuedConnection);
}

void QtWavePlayer::beep()
{
    QApplication::beep();
}

} // namespace vellumar
