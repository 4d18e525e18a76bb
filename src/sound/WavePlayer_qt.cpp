#include "sound/WavePlayer_qt.h"

#include <QApplication>
#include <QAudioOutput>
#include <QMediaPlayer>
#include <QUrl>

namespace vellumar {

QtWavePlayer::QtWavePlayer() = default;

QtWavePlayer::~QtWavePlayer() = default;

void QtWavePlayer::playAsync(const std::string& path)
{
    if (!player_) {
        output_ = std::make_unique<QAudioOutput>();
        player_ = std::make_unique<QMediaPlayer>();
        player_->setAudioOutput(output_.get());
    }
    player_->stop();
    player_->setSource(QUrl::fromLocalFile(QString::fromStdString(path)));
    player_->play();
}

void QtWavePlayer::beep()
{
    QApplication::beep();
}

} // namespace vellumar
