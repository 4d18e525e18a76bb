#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace vellumar {

// The time as core sees it. Core never reads a clock itself: the install time, the random
// seed and (later) the AutoRandom countdown all come through here, so a test can set the time.
class Clock {
public:
    virtual ~Clock() = default;

    // The wall-clock time: what is stamped and shown.
    virtual std::chrono::system_clock::time_point now() = 0;
    // A monotonic tick for measuring intervals, untouched when the user sets the system clock.
    virtual std::chrono::steady_clock::time_point tick() = 0;
    // Waits (the AutoRandom test wait); a test's clock only moves on.
    virtual void wait(std::chrono::milliseconds duration) = 0;
};

// The system's clocks.
std::unique_ptr<Clock> CreateSystemClock();

// A uniform generator in [0, 1) seeded once from the clock's time: the random picks of sets
// and splash pictures draw from one of these.
std::function<double()> ClockSeededUniform(Clock& clock);

} // namespace vellumar
