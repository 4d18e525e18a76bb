#include "sound/MediaPlayer_qt.h"

#include <QAudio>
#include <QUrl>

#include <algorithm>

namespace vellumar {

QtMediaPlayer::QtMediaPlayer()
{
    player_.setAudioOutput(&output_);
    QObject::connect(&player_, &QMediaPlayer::mediaStatusChanged, &player_,
                     [this](QMediaPlayer::MediaStatus status) {
                         if (state_ != State::Playing)
                             return;
                         if (status == QMediaPlayer::EndOfMedia)
                             state_ = State::Finished;
                         else if (status == QMediaPlayer::InvalidMedia)
                             Fail(player_.errorString());
                     });
    QObject::connect(&player_, &QMediaPlayer::errorOccurred, &player_,
                     [this](QMediaPlayer::Error, const QString& why) {
                         if (state_ == State::Playing)
                             Fail(why);
                     });
}

void QtMediaPlayer::Play(const std::string& path)
{
    player_.stop();
    // The same file again (a folder of one) would be no new source to the player: it loads
    // afresh from nothing.
    player_.setSource(QUrl());
    state_ = State::Playing;
    error_.clear();
    player_.setSource(QUrl::fromLocalFile(QString::fromStdString(path)));
    // The source may have been refused at once.
    if (state_ == State::Playing)
        player_.play();
}

void QtMediaPlayer::Stop()
{
    state_ = State::Stopped;
    player_.stop();
}

void QtMediaPlayer::SetVolume(int percent)
{
    // The slider's steps should sound even: the output takes a linear factor.
    output_.setVolume(QAudio::convertVolume(std::clamp(percent, 0, 100) / 100.0,
                                            QAudio::LogarithmicVolumeScale,
                                            QAudio::LinearVolumeScale));
}

std::optional<std::chrono::milliseconds> QtMediaPlayer::duration() const
{
    if (player_.duration() <= 0)
        return std::nullopt;
    return std::chrono::milliseconds(player_.duration());
}

void QtMediaPlayer::Fail(const QString& why)
{
    state_ = State::Failed;
    error_ =
        why.isEmpty() ? std::string("the file is not a sound the player knows") : why.toStdString();
}

} // namespace vellumar
