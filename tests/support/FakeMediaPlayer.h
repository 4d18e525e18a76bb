#pragma once

#include "sound/MediaPlayer.h"

#include <string>
#include <vector>

namespace vellumar::test {

// A player that plays nothing: it records what it was asked to do, and the test says when a
// piece has ended (finish) or could not be played (fail).
class FakeMediaPlayer final : public MediaPlayer {
public:
    void Play(const std::string& path) override
    {
        played.push_back(path);
        state_ = State::Playing;
        error_.clear();
    }
    void Stop() override
    {
        ++stops;
        state_ = State::Stopped;
    }
    void SetVolume(int percent) override { volume = percent; }
    State state() override { return state_; }
    std::string error() override { return error_; }

    void finish() { state_ = State::Finished; }
    void fail(std::string why)
    {
        state_ = State::Failed;
        error_ = std::move(why);
    }

    std::vector<std::string> played;
    int stops = 0;
    int volume = -1;

private:
    State state_ = State::Stopped;
    std::string error_;
};

} // namespace vellumar::test
