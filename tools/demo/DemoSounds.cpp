#include "demo/DemoSounds.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

namespace vellumar::demo {

namespace {

// Numbers in a WAV header are little-endian.
void PutU16(std::string& out, std::uint32_t value)
{
    out.push_back(static_cast<char>(value & 0xFF));
    out.push_back(static_cast<char>((value >> 8) & 0xFF));
}

void PutU32(std::string& out, std::uint32_t value)
{
    PutU16(out, value & 0xFFFF);
    PutU16(out, value >> 16);
}

constexpr int kRate = 22050;
constexpr int kLowRate = 11025; // long, dull sounds need no more
constexpr double kTwoPi = 2 * std::numbers::pi;

// Deterministic white noise in [-1, 1].
class Noise {
public:
    explicit Noise(std::uint32_t seed)
        : state_(seed)
    {}
    float next()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<float>(state_ & 0xFFFFFF) / 8388608.0f - 1.0f;
    }

private:
    std::uint32_t state_;
};

std::vector<float> Silence(double seconds, int rate)
{
    return std::vector<float>(static_cast<std::size_t>(seconds * rate), 0.0f);
}

// A struck bell: a fundamental with two inharmonic partials, decaying exponentially.
void AddBell(std::vector<float>& samples, int rate, double start, double frequency,
             double amplitude, double decay)
{
    const auto first = static_cast<std::size_t>(start * rate);
    for (std::size_t i = first; i < samples.size(); ++i) {
        const double t = static_cast<double>(i - first) / rate;
        const double envelope = amplitude * std::exp(-t * decay) * std::min(1.0, t * 400);
        samples[i] += static_cast<float>(
            envelope * (std::sin(kTwoPi * frequency * t) +
                        0.35 * std::sin(kTwoPi * frequency * 2.76 * t) * std::exp(-t * decay) +
                        0.15 * std::sin(kTwoPi * frequency * 5.40 * t) * std::exp(-t * 2 * decay)));
    }
}

// Fades the last few milliseconds so that no sound ends with a click of its own.
void FadeOut(std::vector<float>& samples, int rate)
{
    const std::size_t fade = std::min(samples.size(), static_cast<std::size_t>(rate / 100));
    for (std::size_t i = 0; i < fade; ++i)
        samples[samples.size() - 1 - i] *= static_cast<float>(i) / static_cast<float>(fade);
}

} // namespace

std::string EncodeWave(const std::vector<float>& samples, int sampleRate)
{
    const auto dataSize = static_cast<std::uint32_t>(samples.size() * 2);
    std::string out;
    out.reserve(44 + dataSize);
    out += "RIFF";
    PutU32(out, 36 + dataSize);
    out += "WAVE";
    out += "fmt ";
    PutU32(out, 16);
    PutU16(out, 1); // PCM
    PutU16(out, 1); // mono
    PutU32(out, static_cast<std::uint32_t>(sampleRate));
    PutU32(out, static_cast<std::uint32_t>(sampleRate) * 2);
    PutU16(out, 2);  // bytes per frame
    PutU16(out, 16); // bits per sample
    out += "data";
    PutU32(out, dataSize);
    for (float sample : samples) {
        const auto value =
            static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0f, 1.0f) * 32767.0f));
        PutU16(out, static_cast<std::uint16_t>(value));
    }
    return out;
}

std::string ButtonClickWave()
{
    std::vector<float> samples = Silence(0.045, kRate);
    Noise noise(0xC11C);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double body = std::sin(kTwoPi * 1900 * t) * std::exp(-t * 140);
        const double tick = noise.next() * std::exp(-t * 900);
        samples[i] = static_cast<float>(0.55 * body + 0.45 * tick);
    }
    FadeOut(samples, kRate);
    return EncodeWave(samples, kRate);
}

std::string AutoRandomChimeWave()
{
    std::vector<float> samples = Silence(0.75, kRate);
    AddBell(samples, kRate, 0.0, 1318.5, 0.30, 7.0);  // E6
    AddBell(samples, kRate, 0.16, 1760.0, 0.30, 6.0); // A6
    FadeOut(samples, kRate);
    return EncodeWave(samples, kRate);
}

std::string SystemEventWave(int kind)
{
    std::vector<float> samples = Silence(kind == 3 ? 0.7 : 0.55, kRate);
    switch (kind) {
    case 0: // asterisk: one clear ding
        AddBell(samples, kRate, 0.0, 987.8, 0.4, 6.0);
        break;
    case 1: // exclamation: a chord struck at once
        AddBell(samples, kRate, 0.0, 523.3, 0.22, 5.0);
        AddBell(samples, kRate, 0.0, 659.3, 0.22, 5.0);
        AddBell(samples, kRate, 0.0, 784.0, 0.22, 5.0);
        break;
    case 2: // question: two notes going up
        AddBell(samples, kRate, 0.0, 784.0, 0.3, 7.0);
        AddBell(samples, kRate, 0.12, 1046.5, 0.3, 7.0);
        break;
    default: // critical stop: two low notes going down
        AddBell(samples, kRate, 0.0, 440.0, 0.35, 5.0);
        AddBell(samples, kRate, 0.18, 329.6, 0.35, 5.0);
        break;
    }
    FadeOut(samples, kRate);
    return EncodeWave(samples, kRate);
}

std::string ThunderWave()
{
    std::vector<float> samples = Silence(1.6, kLowRate);
    Noise noise(0x7B0);
    double brown = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / kLowRate;
        brown = 0.985 * brown + 0.05 * noise.next(); // red noise: the low rumble
        const double swell =
            std::min(1.0, t * 8) * std::exp(-t * 1.6) * (0.75 + 0.25 * std::sin(kTwoPi * 2.3 * t));
        samples[i] = static_cast<float>(brown * 2.4 * swell);
    }
    FadeOut(samples, kLowRate);
    return EncodeWave(samples, kLowRate);
}

std::string ChannelWave(int channel)
{
    std::vector<float> samples = Silence(2.0, kLowRate);
    Noise noise(static_cast<std::uint32_t>(0xC4A0 + channel));
    double low = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i) / kLowRate;
        const double fade = std::min(1.0, t * 4) * std::min(1.0, (2.0 - t) * 4);
        double value = 0;
        if (channel == 1) { // a propeller drone with a slow beat
            const double phase = 95 * t + 0.4 * std::sin(kTwoPi * 0.7 * t);
            value = 0.30 * std::sin(kTwoPi * phase) + 0.15 * std::sin(kTwoPi * 2 * phase) +
                    0.08 * std::sin(kTwoPi * 3 * phase);
        } else if (channel == 2) { // wind: filtered noise that rises and falls
            low = 0.96 * low + 0.04 * noise.next();
            value = low * 3.0 * (0.6 + 0.4 * std::sin(kTwoPi * 0.5 * t));
        }
        samples[i] = static_cast<float>(value * fade);
    }
    if (channel != 1 && channel != 2) { // the tower chime: three soft bells
        AddBell(samples, kLowRate, 0.05, 523.3, 0.25, 3.0);
        AddBell(samples, kLowRate, 0.45, 659.3, 0.25, 3.0);
        AddBell(samples, kLowRate, 0.85, 784.0, 0.25, 3.0);
    }
    FadeOut(samples, kLowRate);
    return EncodeWave(samples, kLowRate);
}

} // namespace vellumar::demo
