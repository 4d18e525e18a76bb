#pragma once

#include "sound/CdAudioOutput.h"

#include <memory>

class QAudioSink;
class QIODevice;

namespace vellumar {

// The CD's digital audio through Qt's audio output, on the system's default sound device. The
// device pulls the samples on the thread that made this object (the windows' thread), where the
// interpreter of the media control commands also runs.
class QtCdAudioOutput final : public CdAudioOutput {
public:
    QtCdAudioOutput();
    ~QtCdAudioOutput() override;
    QtCdAudioOutput(const QtCdAudioOutput&) = delete;
    QtCdAudioOutput& operator=(const QtCdAudioOutput&) = delete;

    bool Start(Source source) override;
    void Pause() override;
    void Resume() override;
    void Stop() override;
    void SetVolume(int percent) override;
    std::string problem() const override;

private:
    std::unique_ptr<QIODevice> samples_;
    std::unique_ptr<QAudioSink> sink_; // reads samples_, so goes before it
    std::string problem_;
    int volume_ = 100;
};

} // namespace vellumar
