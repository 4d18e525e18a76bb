#include "demo/DemoSounds.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
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

// A note of a tune: when it starts and how long it is held (in beats), which it is (a MIDI
// key number: 60 is middle C, 69 the A of 440 Hz), how loud, and where between the speakers
// (-1 left, 1 right; a mono tune ignores it).
struct Note {
    double beat;
    int key;
    double length;
    double loudness;
    double pan = 0;
};

double Frequency(int key)
{
    return 440.0 * std::pow(2.0, (key - 69) / 12.0);
}

// The instruments of the demo's tunes.
enum class Voice {
    Bell,     // struck, with inharmonic partials, rings on
    SoftTone, // a gentle held tone with a little tremolo, like a recorder
    Pluck,    // a plucked string: bright at first, soon mellow
    MusicBox, // a tine: a pure tone with a short metallic ping
};

// A voice is a sum of sine partials, each dying away at its own rate.
struct Partial {
    double multiple; // of the note's frequency
    double amplitude;
    double decay; // per second: the partial falls to 1/e in 1/decay seconds; 0 holds it
};

std::vector<Partial> PartialsOf(Voice voice)
{
    switch (voice) {
    case Voice::Bell:
        return {{1, 1, 3.2}, {2.76, 0.35, 6.4}, {5.40, 0.15, 9.6}};
    case Voice::SoftTone:
        return {{1, 1, 0}, {2, 0.3, 0}, {3, 0.1, 0}};
    case Voice::Pluck:
        return {{1, 1, 3.5}, {2, 0.5, 5}, {3, 0.33, 6.5}, {4, 0.25, 8}, {5, 0.2, 9.5}};
    case Voice::MusicBox:
        return {{1, 1, 2.5}, {4, 0.5, 10.5}};
    }
    return {};
}

// How long after its start a note still sounds, in seconds.
double Sounding(Voice voice, double held)
{
    return voice == Voice::SoftTone ? held + 0.15 : voice == Voice::Pluck ? 1.5 : 2.5;
}

// One note of `voice`, held for `held` seconds, from its start until it has died away. The
// partials turn as phasors and decay by a factor per sample, so that seconds of audio cost no
// sine or exponential per sample: the whole demo is built in well under a second.
std::vector<float> RenderNote(Voice voice, double frequency, double held, int rate)
{
    std::vector<float> note(static_cast<std::size_t>(Sounding(voice, held) * rate), 0.0f);
    for (const Partial& partial : PartialsOf(voice)) {
        const double step = kTwoPi * frequency * partial.multiple / rate;
        if (step >= std::numbers::pi)
            continue; // above half the sample rate: it would fold back as a false tone
        const double turnCos = std::cos(step), turnSin = std::sin(step);
        const double fade = std::exp(-partial.decay / rate);
        // Until it has faded to a thousandth, well below anything else sounding.
        const std::size_t length =
            partial.decay > 0
                ? std::min(note.size(),
                           static_cast<std::size_t>(std::log(1000 * partial.amplitude) /
                                                    partial.decay * rate))
                : note.size();
        double c = 1, s = 0, level = partial.amplitude;
        for (std::size_t i = 0; i < length; ++i) {
            note[i] += static_cast<float>(level * s);
            const double nextC = c * turnCos - s * turnSin;
            s = s * turnCos + c * turnSin;
            c = nextC;
            level *= fade;
        }
    }
    // The shape of the note: a quick strike, or for a held tone a swell, a tremolo of 5 Hz and
    // a release.
    const double tremoloCos = std::cos(kTwoPi * 5 / rate);
    const double tremoloSin = std::sin(kTwoPi * 5 / rate);
    double c = 1, s = 0;
    for (std::size_t i = 0; i < note.size(); ++i) {
        const double t = static_cast<double>(i) / rate;
        double shape = t < 0.002 ? t * 500 : 1.0;
        if (voice == Voice::SoftTone) {
            shape = std::min(1.0, t / 0.06) *
                    (t <= held ? 1.0 : std::max(0.0, 1.0 - (t - held) / 0.15)) * (1 + 0.08 * s);
            const double nextC = c * tremoloCos - s * tremoloSin;
            s = s * tremoloCos + c * tremoloSin;
            c = nextC;
        }
        note[i] = static_cast<float>(shape * note[i]);
    }
    return note;
}

// A tune being written: notes of several voices mixed into two channels, or one.
class Tune {
public:
    Tune(std::size_t frames, int rate, bool stereo)
        : rate_(rate)
        , left_(frames, 0.0f)
        , right_(stereo ? frames : 0, 0.0f)
    {}

    // Plays `notes` on `voice`, a beat lasting `secondsPerBeat`. A note that comes again is
    // rendered once.
    void play(Voice voice, double secondsPerBeat, const std::vector<Note>& notes)
    {
        std::map<std::pair<int, double>, std::vector<float>> rendered;
        for (const Note& note : notes) {
            auto [known, fresh] = rendered.try_emplace({note.key, note.length});
            if (fresh)
                known->second =
                    RenderNote(voice, Frequency(note.key), note.length * secondsPerBeat, rate_);
            const std::vector<float>& sound = known->second;
            const auto first = static_cast<std::size_t>(note.beat * secondsPerBeat * rate_);
            const std::size_t count =
                std::min(sound.size(), left_.size() - std::min(first, left_.size()));
            // Equal power between the speakers.
            const double angle = (std::clamp(note.pan, -1.0, 1.0) + 1) * std::numbers::pi / 4;
            const auto toLeft = static_cast<float>(
                right_.empty() ? note.loudness : note.loudness * std::cos(angle));
            const auto toRight = static_cast<float>(note.loudness * std::sin(angle));
            for (std::size_t i = 0; i < count; ++i)
                left_[first + i] += sound[i] * toLeft;
            if (!right_.empty())
                for (std::size_t i = 0; i < count; ++i)
                    right_[first + i] += sound[i] * toRight;
        }
    }

    // Brings the loudest moment to `peak`, and fades in over a few milliseconds and out over
    // the last `fadeOut` seconds, so that the tune neither clicks nor stops dead.
    void finish(float peak, double fadeOut)
    {
        float loudest = 0;
        for (const std::vector<float>* channel : {&left_, &right_})
            for (float sample : *channel)
                loudest = std::max(loudest, std::abs(sample));
        const std::size_t in = static_cast<std::size_t>(rate_ / 200);
        const std::size_t out = std::min(left_.size(), static_cast<std::size_t>(fadeOut * rate_));
        for (std::vector<float>* channel : {&left_, &right_}) {
            const std::size_t size = channel->size();
            for (std::size_t i = 0; i < size; ++i) {
                float gain = loudest > 0 ? peak / loudest : 0.0f;
                if (i < in)
                    gain *= static_cast<float>(i) / static_cast<float>(in);
                if (size - i <= out)
                    gain *= static_cast<float>(size - 1 - i) / static_cast<float>(out);
                (*channel)[i] *= gain;
            }
        }
    }

    const std::vector<float>& mono() const { return left_; }

    // As a disc holds it: 16-bit samples, little-endian, left then right.
    std::string interleaved() const
    {
        std::string out;
        out.reserve(left_.size() * 4);
        for (std::size_t i = 0; i < left_.size(); ++i)
            for (float sample : {left_[i], right_.empty() ? left_[i] : right_[i]})
                PutU16(out, static_cast<std::uint16_t>(static_cast<std::int16_t>(
                                std::lround(std::clamp(sample, -1.0f, 1.0f) * 32767.0f))));
        return out;
    }

private:
    int rate_;
    std::vector<float> left_;
    std::vector<float> right_;
};

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

std::string RainWave()
{
    std::vector<float> samples = Silence(3.0, kLowRate);
    Noise noise(0x7A1);
    // A soft hiss: the difference of noise and its smoothed self leaves the high part.
    double smooth = 0;
    for (float& sample : samples) {
        const double white = noise.next();
        smooth = 0.7 * smooth + 0.3 * white;
        sample = static_cast<float>(0.12 * (white - smooth));
    }
    // Drops at random moments, some near and loud, most far and faint.
    for (double start = 0.01; start < 2.9; start += 0.01 + 0.05 * (noise.next() + 1)) {
        const double frequency = 2700 + 900 * noise.next();
        const double loudness = 0.3 + 0.2 * noise.next() * noise.next();
        const auto first = static_cast<std::size_t>(start * kLowRate);
        const std::size_t end = std::min(samples.size(), first + kLowRate / 20);
        for (std::size_t i = first; i < end; ++i) {
            const double t = static_cast<double>(i - first) / kLowRate;
            samples[i] += static_cast<float>(loudness * std::exp(-t * 90) *
                                             std::sin(kTwoPi * frequency * t * (1 - 2 * t)));
        }
    }
    const std::size_t in = kLowRate / 4;
    for (std::size_t i = 0; i < in; ++i)
        samples[i] *= static_cast<float>(i) / static_cast<float>(in);
    for (std::size_t i = 0; i < in; ++i)
        samples[samples.size() - 1 - i] *= static_cast<float>(i) / static_cast<float>(in);
    return EncodeWave(samples, kLowRate);
}

std::string LittleWaltzWave()
{
    // Four bars of three-four on bells, a bass bell on each bar's first beat. Kept below 800 Hz
    // so that the bells' upper partials fit the low sample rate.
    Tune tune(static_cast<std::size_t>(4.0 * kLowRate), kLowRate, false);
    tune.play(Voice::Bell, 0.3,
              {{0, 72, 1, 0.5},
               {1, 76, 1, 0.4},
               {2, 79, 1, 0.4},
               {3, 77, 2, 0.5},
               {5, 76, 1, 0.4},
               {6, 74, 1, 0.5},
               {7, 76, 1, 0.4},
               {8, 74, 1, 0.4},
               {9, 72, 3, 0.55}});
    tune.play(Voice::Bell, 0.3,
              {{0, 48, 3, 0.35}, {3, 53, 3, 0.35}, {6, 55, 3, 0.35}, {9, 48, 3, 0.4}});
    tune.finish(0.8f, 0.4);
    return EncodeWave(tune.mono(), kLowRate);
}

std::string CdTrackAudio(int number)
{
    constexpr int kCdRate = 44100;
    constexpr std::size_t kFramesPerSector = 588;
    // 4, 5 and about 4.5 seconds: whole sectors of 1/75 second.
    const std::size_t sectors = number == 1 ? 300 : number == 2 ? 375 : 338;
    Tune tune(sectors * kFramesPerSector, kCdRate, true);
    if (number == 1) { // morning bells: a rising pentatonic peal, left and right in turn
        tune.play(Voice::Bell, 0.25,
                  {{0, 72, 1, 0.5, -0.6},
                   {1, 76, 1, 0.45, 0.6},
                   {2, 79, 1, 0.45, -0.6},
                   {3, 84, 1, 0.5, 0.6},
                   {4, 81, 1, 0.45, -0.6},
                   {5, 79, 1, 0.45, 0.6},
                   {6, 76, 1, 0.45, -0.6},
                   {7, 79, 1, 0.45, 0.6},
                   {8, 74, 1, 0.45, -0.6},
                   {9, 76, 1, 0.45, 0.6},
                   {10, 72, 2, 0.55, 0}});
        tune.play(
            Voice::Bell, 0.25,
            {{0, 48, 4, 0.4, 0}, {4, 45, 4, 0.4, 0}, {8, 43, 2, 0.4, 0}, {10, 36, 2, 0.45, 0}});
    } else if (number == 2) { // a waltz: soft tones over a plucked bass and chords
        tune.play(Voice::SoftTone, 0.38,
                  {{0, 67, 2, 0.4, 0.1},
                   {2, 71, 1, 0.4, 0.1},
                   {3, 74, 2, 0.4, 0.1},
                   {5, 72, 1, 0.4, 0.1},
                   {6, 71, 1, 0.4, 0.1},
                   {7, 69, 1, 0.4, 0.1},
                   {8, 67, 1, 0.4, 0.1},
                   {9, 69, 1, 0.4, 0.1},
                   {10, 66, 1, 0.4, 0.1},
                   {11, 67, 0.9, 0.45, 0.1}});
        tune.play(Voice::Pluck, 0.38,
                  {{0, 43, 3, 0.5, -0.4},
                   {3, 50, 3, 0.5, -0.4},
                   {6, 48, 3, 0.5, -0.4},
                   {9, 50, 2, 0.5, -0.4},
                   {11, 43, 1, 0.55, -0.4}});
        const int chords[4][3] = {{55, 59, 62}, {54, 57, 62}, {55, 60, 64}, {54, 57, 60}};
        std::vector<Note> strums;
        for (int bar = 0; bar < 4; ++bar)
            for (int beat = 1; beat <= 2; ++beat)
                for (int key : chords[bar])
                    strums.push_back({bar * 3.0 + beat, key, 1, 0.16, 0.5});
        tune.play(Voice::Pluck, 0.38, strums);
    } else { // a music box at night, in A minor, over a quiet held chord
        tune.play(Voice::MusicBox, 0.3,
                  {{0, 76, 1, 0.45, 0.3},
                   {1, 81, 1, 0.45, 0.3},
                   {2, 84, 1, 0.45, 0.3},
                   {3, 83, 1, 0.45, 0.3},
                   {4, 81, 1, 0.45, 0.3},
                   {5, 76, 1, 0.45, 0.3},
                   {6, 77, 1, 0.45, 0.3},
                   {7, 76, 1, 0.45, 0.3},
                   {8, 74, 1, 0.45, 0.3},
                   {9, 72, 1, 0.45, 0.3},
                   {10, 71, 1, 0.45, 0.3},
                   {11, 69, 3, 0.5, 0.3}});
        std::vector<Note> pad;
        const struct {
            double beat, length;
            int keys[3];
        } chords[] = {{0, 4, {57, 60, 64}},
                      {4, 4, {53, 57, 60}},
                      {8, 3, {52, 56, 59}},
                      {11, 3.5, {45, 57, 60}}};
        for (const auto& chord : chords)
            for (int i = 0; i < 3; ++i)
                pad.push_back({chord.beat, chord.keys[i], chord.length, 0.1, -0.6 + 0.3 * i});
        tune.play(Voice::SoftTone, 0.3, pad);
    }
    tune.finish(0.8f, 0.3);
    return tune.interleaved();
}

} // namespace vellumar::demo
