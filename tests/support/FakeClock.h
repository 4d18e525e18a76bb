#pragma once

#include "common/Clock.h"

namespace vellumar::test {

// A clock that stands still until a test moves it; both of its clocks move together.
class FakeClock final : public Clock {
public:
    std::chrono::system_clock::time_point now() override { return now_; }
    std::chrono::steady_clock::time_point tick() override { return tick_; }

    void wait(std::chrono::milliseconds duration) override { advance(duration); }

    void set(std::chrono::system_clock::time_point now) { now_ = now; }
    void advance(std::chrono::milliseconds by)
    {
        now_ += by;
        tick_ += by;
    }

private:
    // A fixed, plausible moment (2004-07-29), not the epoch, so that nothing mistakes it for
    // an unset time.
    std::chrono::system_clock::time_point now_{std::chrono::seconds(1091088000)};
    std::chrono::steady_clock::time_point tick_{std::chrono::hours(1)};
};

} // namespace vellumar::test
