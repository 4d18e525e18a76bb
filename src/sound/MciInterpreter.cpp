#include "sound/MciInterpreter.h"

#include "common/Clock.h"
#include "sound/CdAudioOutput.h"
#include "sound/MciError.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace vellumar {

namespace {

constexpr std::chrono::seconds LookInterval{1};

// The words of a command, in lower case (the interface ignores case); a quoted word keeps its
// spaces.
std::uint32_t SplitWords(const std::string& command, std::vector<std::string>& words)
{
    std::size_t i = 0;
    while (i < command.size()) {
        const unsigned char c = static_cast<unsigned char>(command[i]);
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            ++i;
            continue;
        }
        std::string word;
        if (c == '"') {
            const std::size_t close = command.find('"', i + 1);
            if (close == std::string::npos)
                return MciError::NoClosingQuote;
            word = command.substr(i + 1, close - i - 1);
            i = close + 1;
        } else {
            while (i < command.size() && command[i] != ' ' && command[i] != '\t' &&
                   command[i] != '\r' && command[i] != '\n')
                word += command[i++];
        }
        std::transform(word.begin(), word.end(), word.begin(), [](char ch) {
            return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
        });
        words.push_back(std::move(word));
    }
    return 0;
}

bool ParseNumber(const std::string& text, std::int64_t& value)
{
    if (text.empty())
        return false;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && value >= 0;
}

std::string TwoDigits(std::int64_t value)
{
    char text[24];
    std::snprintf(text, sizeof text, "%02lld", static_cast<long long>(value));
    return text;
}

std::string MinutesSecondsFrames(std::int64_t sectors)
{
    const std::int64_t seconds = sectors / CdDisc::SectorsPerSecond;
    return TwoDigits(seconds / 60) + ':' + TwoDigits(seconds % 60) + ':' +
           TwoDigits(sectors % CdDisc::SectorsPerSecond);
}

std::int64_t Milliseconds(std::int64_t sectors)
{
    return sectors * 1000 / CdDisc::SectorsPerSecond;
}

// The words after the device name, taken one at a time. "wait" and "notify" may stand anywhere:
// commands here finish before they return, and there is no window to notify.
class WordCursor {
public:
    explicit WordCursor(const std::vector<std::string>& words)
    {
        for (std::size_t i = 2; i < words.size(); ++i) {
            if (words[i] == "wait")
                wait_ = true;
            else if (words[i] != "notify")
                words_.push_back(words[i]);
        }
    }

    bool done() const { return next_ == words_.size(); }
    const std::string& peek() const { return words_[next_]; }
    std::string take() { return done() ? std::string() : words_[next_++]; }
    // Takes `word` when it comes next.
    bool accept(const std::string& word)
    {
        if (done() || words_[next_] != word)
            return false;
        ++next_;
        return true;
    }
    bool wait() const { return wait_; }

private:
    std::vector<std::string> words_;
    std::size_t next_ = 0;
    bool wait_ = false;
};

// A track number after "track".
std::uint32_t TakeTrack(WordCursor& words, const CdDisc* disc, int& track)
{
    if (words.done())
        return MciError::NoInteger;
    std::int64_t number = 0;
    if (!ParseNumber(words.take(), number))
        return MciError::BadInteger;
    if (!disc)
        return MciError::DeviceNotReady;
    if (number < 1 || number > disc->trackCount())
        return MciError::OutOfRange;
    track = static_cast<int>(number);
    return 0;
}

// The drive's sectors from `next` up to `end`, as the output asks for them.
class SectorStream {
public:
    SectorStream(CdDrive& drive, std::int32_t from, std::int32_t to)
        : drive_(drive)
        , next_(from)
        , end_(to)
    {}

    std::size_t operator()(std::uint8_t* into, std::size_t size)
    {
        std::size_t filled = 0;
        while (filled < size) {
            if (used_ == pending_.size()) {
                if (next_ >= end_ || !ReadMore())
                    break;
            }
            const std::size_t count = std::min(size - filled, pending_.size() - used_);
            std::memcpy(into + filled, pending_.data() + used_, count);
            filled += count;
            used_ += count;
        }
        return filled;
    }

private:
    bool ReadMore()
    {
        // A few sectors at a time: small enough to answer at once, large enough to be cheap.
        const std::int32_t count = std::min<std::int32_t>(end_ - next_, 8);
        pending_.resize(static_cast<std::size_t>(count) * CdDisc::BytesPerSector);
        used_ = 0;
        if (!drive_.ReadAudio(next_, count, pending_.data())) {
            // The disc went away under the music: it ends here.
            pending_.clear();
            next_ = end_;
            return false;
        }
        next_ += count;
        return true;
    }

    CdDrive& drive_;
    std::int32_t next_, end_;
    std::vector<std::uint8_t> pending_;
    std::size_t used_ = 0;
};

} // namespace

MciInterpreter::MciInterpreter(Clock& clock, FindDrive findDrive, CdAudioOutput* output)
    : clock_(clock)
    , findDrive_(std::move(findDrive))
    , output_(output)
{}

MciInterpreter::~MciInterpreter()
{
    if (output_)
        output_->Stop();
}

std::uint32_t MciInterpreter::SendString(const std::string& command, std::string& reply)
{
    reply.clear();
    Words words;
    if (const std::uint32_t error = SplitWords(command, words))
        return error;
    if (words.empty())
        return MciError::MissingCommandString;

    const std::string& verb = words[0];
    using Handler = std::uint32_t (MciInterpreter::*)(const Words&);
    static const std::pair<const char*, Handler> handlers[] = {
        {"close", &MciInterpreter::Close},   {"set", &MciInterpreter::Set},
        {"seek", &MciInterpreter::Seek},     {"play", &MciInterpreter::Play},
        {"stop", &MciInterpreter::Stop},     {"pause", &MciInterpreter::Pause},
        {"resume", &MciInterpreter::Resume},
    };
    Handler handler = nullptr;
    for (const auto& [name, function] : handlers)
        if (verb == name)
            handler = function;
    if (!handler && verb != "open" && verb != "status")
        return MciError::UnrecognizedCommand;
    if (words.size() < 2)
        return MciError::MissingDeviceName;
    if (verb == "open")
        return Open(words);

    const std::string& device = words[1];
    if (device == "all") {
        if (verb != "close" && verb != "stop")
            return MciError::CannotUseAll;
    } else if (!IsOpen(device)) {
        return MciError::InvalidDeviceName;
    }
    if (drive_) {
        LookAtDrive();
        FollowClock();
    }
    if (verb == "status")
        return Status(words, reply);
    return (this->*handler)(words);
}

std::string MciInterpreter::ErrorText(std::uint32_t code)
{
    return MciErrorText(code);
}

std::string MciInterpreter::AudioOutputProblem()
{
    return output_ ? output_->problem() : std::string();
}

void MciInterpreter::SetVolume(int percent)
{
    volume_ = std::clamp(percent, 0, 100);
    if (output_)
        output_->SetVolume(volume_);
}

bool MciInterpreter::IsOpen(const std::string& alias) const
{
    return std::find(aliases_.begin(), aliases_.end(), alias) != aliases_.end();
}

std::uint32_t MciInterpreter::Open(const Words& words)
{
    if (words[1] != "cdaudio")
        return MciError::InvalidDeviceName;
    WordCursor rest(words);
    std::string alias = "cdaudio";
    while (!rest.done()) {
        const std::string word = rest.take();
        if (word == "alias") {
            if (rest.done())
                return MciError::MissingStringArgument;
            alias = rest.take();
        } else if (word != "shareable") {
            return MciError::UnrecognizedKeyword;
        }
    }
    if (alias == "all")
        return MciError::CannotUseAll;
    if (IsOpen(alias))
        return MciError::DuplicateAlias;
    if (!drive_) {
        drive_ = findDrive_();
        if (!drive_)
            return MciError::CannotLoadDriver;
    }
    // Every alias shares the one drive ("shareable"); the first to open it finds it at rest.
    if (aliases_.empty()) {
        StopPlay(0);
        format_ = TimeFormat::Msf;
        LookAtDrive(true);
        position_ = disc() ? disc()->firstSector() : 0;
    }
    aliases_.push_back(alias);
    return 0;
}

std::uint32_t MciInterpreter::Close(const Words& words)
{
    WordCursor rest(words);
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    if (words[1] == "all")
        aliases_.clear();
    else
        aliases_.erase(std::find(aliases_.begin(), aliases_.end(), words[1]));
    if (aliases_.empty())
        StopPlay(CurrentSector());
    return 0;
}

std::uint32_t MciInterpreter::Set(const Words& words)
{
    WordCursor rest(words);
    if (rest.done())
        return MciError::MissingParameter;
    const std::string item = rest.take();
    if (item == "door" || item == "audio" || item == "video")
        return MciError::UnsupportedFunction;
    if (item != "time" || !rest.accept("format"))
        return MciError::UnrecognizedKeyword;
    if (rest.done())
        return MciError::MissingParameter;
    const std::string name = rest.take();
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    if (name == "tmsf")
        format_ = TimeFormat::Tmsf;
    else if (name == "msf")
        format_ = TimeFormat::Msf;
    else if (name == "milliseconds" || name == "ms")
        format_ = TimeFormat::Milliseconds;
    else
        return MciError::BadConstant;
    return 0;
}

std::uint32_t MciInterpreter::Status(const Words& words, std::string& reply)
{
    WordCursor rest(words);
    if (rest.done())
        return MciError::MissingParameter;
    const std::string item = rest.take();
    const CdDisc* const cd = disc();

    // The items a drive answers with no disc in it.
    if (item == "media" || item == "mode" || item == "ready" || item == "time") {
        if (item == "media" && !rest.accept("present"))
            return MciError::UnrecognizedKeyword;
        if (item == "time" && !rest.accept("format"))
            return MciError::UnrecognizedKeyword;
        if (!rest.done())
            return MciError::UnrecognizedKeyword;
        if (item == "media" || item == "ready")
            reply = cd ? "true" : "false";
        else if (item == "time")
            reply = format_ == TimeFormat::Tmsf  ? "tmsf"
                    : format_ == TimeFormat::Msf ? "msf"
                                                 : "milliseconds";
        else if (!cd)
            reply = "not ready";
        else
            reply = mode_ == Mode::Playing  ? "playing"
                    : mode_ == Mode::Paused ? "paused"
                                            : "stopped";
        return 0;
    }

    std::uint32_t error = 0;
    int track = 0;
    std::string answer;
    if (item == "number" && rest.accept("of") && rest.accept("tracks")) {
        if (cd)
            answer = std::to_string(cd->trackCount());
    } else if (item == "current" && rest.accept("track")) {
        if (cd)
            answer = std::to_string(cd->trackAt(CurrentSector()));
    } else if (item == "length") {
        if (rest.accept("track"))
            error = TakeTrack(rest, cd, track);
        if (cd && !error)
            answer = DurationText(track ? cd->track(track).sectorCount
                                        : cd->endSector - cd->firstSector());
    } else if (item == "position") {
        if (rest.accept("track"))
            error = TakeTrack(rest, cd, track);
        if (cd && !error)
            answer = PositionText(track ? cd->track(track).firstSector : CurrentSector());
    } else if (item == "start" && rest.accept("position")) {
        if (cd)
            answer = PositionText(cd->firstSector());
    } else if (item == "type" && rest.accept("track")) {
        error = TakeTrack(rest, cd, track);
        if (cd && !error)
            answer = cd->track(track).audio ? "audio" : "other";
    } else {
        return MciError::UnrecognizedKeyword;
    }
    if (error)
        return error;
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    if (!cd)
        return MciError::DeviceNotReady;
    reply = answer;
    return 0;
}

std::uint32_t MciInterpreter::Seek(const Words& words)
{
    WordCursor rest(words);
    if (!rest.accept("to"))
        return rest.done() ? MciError::MissingParameter : MciError::UnrecognizedKeyword;
    if (rest.done())
        return MciError::MissingParameter;
    const std::string where = rest.take();
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    const CdDisc* const cd = disc();
    if (!cd)
        return MciError::DeviceNotReady;
    std::int32_t sector = 0;
    if (where == "start")
        sector = cd->firstSector();
    else if (where == "end")
        sector = cd->endSector;
    else if (const std::uint32_t error = ParseTime(where, sector))
        return error;
    StopPlay(sector);
    return 0;
}

std::uint32_t MciInterpreter::Play(const Words& words)
{
    WordCursor rest(words);
    std::optional<std::string> from, to;
    while (!rest.done()) {
        const std::string word = rest.take();
        std::optional<std::string>& target = word == "from" ? from : to;
        if (word != "from" && word != "to")
            return MciError::UnrecognizedKeyword;
        if (target)
            return MciError::DuplicateFlags;
        if (rest.done())
            return MciError::MissingParameter;
        target = rest.take();
    }
    const CdDisc* const cd = disc();
    if (!cd)
        return MciError::DeviceNotReady;
    std::int32_t start = CurrentSector();
    std::int32_t end = cd->endSector;
    if (from)
        if (const std::uint32_t error = ParseTime(*from, start))
            return error;
    if (to)
        if (const std::uint32_t error = ParseTime(*to, end))
            return error;
    if (end < start)
        return MciError::OutOfRange;

    StartPlay(start, end);
    if (rest.wait()) {
        const std::int64_t sectors = playTo_ - playFrom_;
        clock_.wait(std::chrono::milliseconds((sectors * 1000 + CdDisc::SectorsPerSecond - 1) /
                                              CdDisc::SectorsPerSecond));
        FollowClock();
    }
    return 0;
}

std::uint32_t MciInterpreter::Stop(const Words& words)
{
    WordCursor rest(words);
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    // Stopping a drive with no disc in it leaves it as it was: stopped.
    StopPlay(CurrentSector());
    return 0;
}

std::uint32_t MciInterpreter::Pause(const Words& words)
{
    WordCursor rest(words);
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    if (!disc())
        return MciError::DeviceNotReady;
    if (mode_ == Mode::Playing) {
        position_ = CurrentSector();
        mode_ = Mode::Paused;
        if (output_)
            output_->Pause();
    }
    return 0;
}

std::uint32_t MciInterpreter::Resume(const Words& words)
{
    WordCursor rest(words);
    if (!rest.done())
        return MciError::UnrecognizedKeyword;
    if (!disc())
        return MciError::DeviceNotReady;
    if (mode_ == Mode::Paused) {
        // The stretch goes on to where it was to end, counted from where it paused.
        playFrom_ = position_;
        playStarted_ = clock_.tick();
        mode_ = Mode::Playing;
        if (output_)
            output_->Resume();
    }
    return 0;
}

void MciInterpreter::LookAtDrive(bool now)
{
    const auto tick = clock_.tick();
    if (!now && lastLook_ && tick - *lastLook_ < LookInterval)
        return;
    lastLook_ = tick;
    const bool hadDisc = disc() != nullptr;
    if (drive_->Refresh() || hadDisc != (disc() != nullptr))
        StopPlay(disc() ? disc()->firstSector() : 0);
}

void MciInterpreter::FollowClock()
{
    if (mode_ == Mode::Playing && CurrentSector() >= playTo_) {
        // The output plays out what it already has; the disc has reached the end of the stretch.
        mode_ = Mode::Stopped;
        position_ = playTo_;
    }
}

std::int32_t MciInterpreter::CurrentSector()
{
    if (mode_ != Mode::Playing)
        return position_;
    const auto elapsed =
        std::chrono::duration_cast<std::chrono::milliseconds>(clock_.tick() - playStarted_);
    const std::int64_t sectors =
        std::max<std::int64_t>(0, elapsed.count()) * CdDisc::SectorsPerSecond / 1000;
    return static_cast<std::int32_t>(std::min<std::int64_t>(playFrom_ + sectors, playTo_));
}

std::uint32_t MciInterpreter::ParseTime(const std::string& text, std::int32_t& sector) const
{
    const CdDisc* const cd = disc();
    std::vector<std::int64_t> fields;
    std::size_t begin = 0;
    while (true) {
        const std::size_t colon = text.find(':', begin);
        std::int64_t value = 0;
        if (!ParseNumber(text.substr(begin, colon - begin), value))
            return MciError::BadInteger;
        fields.push_back(value);
        if (colon == std::string::npos)
            break;
        begin = colon + 1;
    }
    std::int64_t at = 0;
    if (format_ == TimeFormat::Milliseconds) {
        if (fields.size() != 1)
            return MciError::BadInteger;
        at = fields[0] * CdDisc::SectorsPerSecond / 1000 - CdDisc::LeadInSectors;
    } else {
        // tmsf leads with the track; both then read minutes, seconds, frames, any of them
        // left out from the right.
        std::int64_t track = 0;
        if (format_ == TimeFormat::Tmsf) {
            track = fields.front();
            fields.erase(fields.begin());
        }
        if (fields.size() > 3)
            return MciError::BadInteger;
        fields.resize(3, 0);
        if (fields[1] > 59 || fields[2] >= CdDisc::SectorsPerSecond)
            return MciError::OutOfRange;
        const std::int64_t offset =
            (fields[0] * 60 + fields[1]) * CdDisc::SectorsPerSecond + fields[2];
        if (format_ == TimeFormat::Tmsf) {
            if (track < 1 || track > cd->trackCount())
                return MciError::OutOfRange;
            at = cd->track(static_cast<int>(track)).firstSector + offset;
        } else {
            at = offset - CdDisc::LeadInSectors;
        }
    }
    if (at < cd->firstSector() || at > cd->endSector)
        return MciError::OutOfRange;
    sector = static_cast<std::int32_t>(at);
    return 0;
}

std::string MciInterpreter::PositionText(std::int32_t sector) const
{
    switch (format_) {
    case TimeFormat::Tmsf: {
        const int track = disc()->trackAt(sector);
        return TwoDigits(track) + ':' +
               MinutesSecondsFrames(sector - disc()->track(track).firstSector);
    }
    case TimeFormat::Msf:
        return MinutesSecondsFrames(sector + CdDisc::LeadInSectors);
    case TimeFormat::Milliseconds:
        break;
    }
    return std::to_string(Milliseconds(sector + CdDisc::LeadInSectors));
}

std::string MciInterpreter::DurationText(std::int32_t sectors) const
{
    if (format_ == TimeFormat::Milliseconds)
        return std::to_string(Milliseconds(sectors));
    return MinutesSecondsFrames(sectors);
}

void MciInterpreter::StartPlay(std::int32_t from, std::int32_t to)
{
    mode_ = Mode::Playing;
    position_ = from;
    playFrom_ = from;
    playTo_ = to;
    playStarted_ = clock_.tick();
    if (output_) {
        output_->SetVolume(volume_);
        output_->Start(SectorStream(*drive_, from, to));
    }
}

void MciInterpreter::StopPlay(std::int32_t at)
{
    if (output_ && mode_ != Mode::Stopped)
        output_->Stop();
    mode_ = Mode::Stopped;
    position_ = at;
}

} // namespace vellumar
