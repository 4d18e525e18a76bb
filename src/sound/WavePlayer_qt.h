#pragma once

#include "common/WavePlayer.h"

#include <memory>

class QAudioOutput;
class QMediaPlayer;

namespace vellumar {

// One shared media player for the program's short sounds: a new one stops the one playing.
// Made on the first sound, so a start-up that plays none pays nothing for it. Without a sound
// device nothing is heard and nothing else changes.
class QtWavePlayer final : public WavePlayer {
public:
    QtWavePlayer();
    ~QtWavePlayer() override;

    void playAsync(const std::string& path) override;
    void beep() override;

private:
    std::unique_ptr<QAudioOutput> output_;
    std::unique_ptr<QMediaPlayer> player_;
};

} // namespace vellumar
