#pragma once

#include "common/WavePlayer.h"

#include <QThread>

namespace vellumar {

// One shared media player for the program's short sounds: a new one stops the one playing.
// It lives on a thread of its own, made on the first sound: setting up the media pipeline
// takes a moment the first time, and the windows never wait for a sound. Without a sound
// device nothing is heard and nothing else changes.
class QtWavePlayer final : public WavePlayer {
public:
    QtWavePlayer() = default;
    ~QtWavePlayer() override;
    QtWavePlayer(const QtWavePlayer&) = delete;
    QtWavePlayer& operator=(const QtWavePlayer&) = delete;

    void playAsync(const std::string& path) override;
    void beep() override;

private:
    QThread thread_;
    QObject* player_ = nullptr; // lives on thread_, and holds the media player
};

} // namespace vellumar
