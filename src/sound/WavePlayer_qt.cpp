#include "sound/WavePlayer_qt.h"

#include <QApplication>
#include <QAudioOutput>
#include <QMediaPlayer>
#include <QSoundEffect>
#include <QUrl>

namespace vellumar {

namespace {

void PlayWithMediaPlayer(QObject& host, const QUrl& source)
{
    auto* player = host.findChild<QMediaPlayer*>();
    if (!player) {
        player = new QMediaPlayer(&host);
        player->setAudioOutput(new QAudioOutput(player));
    }
    player->setSource(source);
    player->play();
}

// Runs on the sound thread. A plain PCM WAVE file goes straight to the sound device, which
// is quick to set up; a compressed one (ADPCM, MP3 in a WAVE file) and every other kind go
// through the media player's decoders.
void PlayOnSoundThread(QObject& host, const QUrl& source)
{
    auto* effect = host.findChild<QSoundEffect*>();
    if (effect)
        effect->stop();
    if (auto* player = host.findChild<QMediaPlayer*>())
        player->stop();
    if (!source.path().endsWith(QStringLiteral(".wav"), Qt::CaseInsensitive)) {
        PlayWithMediaPlayer(host, source);
        return;
    }
    if (!effect) {
        effect = new QSoundEffect(&host);
        QObject::connect(effect, &QSoundEffect::statusChanged, &host, [&host, effect] {
            if (effect->status() == QSoundEffect::Error)
                PlayWithMediaPlayer(host, effect->source());
        });
    }
    effect->setSource(source);
    effect->play();
}

} // namespace

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
        host, [host, source] { PlayOnSoundThread(*host, source); }, Qt::QueuedConnection);
}

void QtWavePlayer::beep()
{
    QApplication::beep();
}

} // namespace vellumar
