#include "sound/CdAudioOutput_qt.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QIODevice>
#include <QMediaDevices>

namespace vellumar {

namespace {

// The samples of the playing stretch, as the sound device pulls them.
class SourceDevice final : public QIODevice {
public:
    explicit SourceDevice(CdAudioOutput::Source source)
        : source_(std::move(source))
    {}

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        if (maxSize <= 0)
            return 0;
        return static_cast<qint64>(
            source_(reinterpret_cast<std::uint8_t*>(data), static_cast<std::size_t>(maxSize)));
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    CdAudioOutput::Source source_;
};

// What a failed sound device means for the user, in one line.
std::string ProblemText(QAudio::Error error)
{
    switch (error) {
    case QAudio::OpenError:
        return "The sound device could not be opened: the CD plays without sound.";
    case QAudio::IOError:
        return "The sound device stopped taking the CD's sound.";
    case QAudio::FatalError:
        return "The sound device failed: the CD plays without sound.";
    case QAudio::NoError:
    case QAudio::UnderrunError: // the end of the music, or a moment's wait for the disc
        break;
    }
    return {};
}

} // namespace

QtCdAudioOutput::QtCdAudioOutput() = default;

QtCdAudioOutput::~QtCdAudioOutput()
{
    Stop();
}

bool QtCdAudioOutput::Start(Source source)
{
    Stop();
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) {
        problem_ = "There is no sound device: the CD plays without sound.";
        return false;
    }
    // The disc's sectors as they are: 16-bit little-endian stereo at 44100 Hz, which is also
    // the byte order of every machine this runs on.
    QAudioFormat format;
    format.setSampleRate(44100);
    format.setChannelCount(2);
    format.setSampleFormat(QAudioFormat::Int16);
    if (!device.isFormatSupported(format)) {
        problem_ = "The sound device \"" + device.description().toStdString() +
                   "\" cannot play CD audio (44100 Hz, 16-bit stereo).";
        return false;
    }
    samples_ = std::make_unique<SourceDevice>(std::move(source));
    samples_->open(QIODevice::ReadOnly);
    sink_ = std::make_unique<QAudioSink>(device, format);
    SetVolume(volume_);
    sink_->start(samples_.get());
    problem_ = ProblemText(sink_->error());
    if (!problem_.empty()) {
        const std::string why = problem_;
        Stop();
        problem_ = why;
        return false;
    }
    return true;
}

void QtCdAudioOutput::Pause()
{
    if (sink_)
        sink_->suspend();
}

void QtCdAudioOutput::Resume()
{
    if (sink_)
        sink_->resume();
}

void QtCdAudioOutput::Stop()
{
    if (sink_)
        sink_->stop();
    sink_.reset();
    samples_.reset();
}

void QtCdAudioOutput::SetVolume(int percent)
{
    volume_ = std::clamp(percent, 0, 100);
    // The slider moves evenly in loudness, not in amplitude.
    if (sink_)
        sink_->setVolume(QAudio::convertVolume(volume_ / 100.0, QAudio::LogarithmicVolumeScale,
                                               QAudio::LinearVolumeScale));
}

std::string QtCdAudioOutput::problem() const
{
    if (!problem_.empty())
        return problem_;
    return sink_ ? ProblemText(sink_->error()) : std::string();
}

} // namespace vellumar
