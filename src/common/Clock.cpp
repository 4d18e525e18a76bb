#include "common/Clock.h"

#include <memory>
#include <random>
#include <thread>

namespace vellumar {

namespace {

class SystemClock final : public Clock {
public:
    std::chrono::system_clock::time_point now() override
    {
        return std::chrono::system_clock::now();
    }
    std::chrono::steady_clock::time_point tick() override
    {
        return std::chrono::steady_clock::now();
    }
    void wait(std::chrono::milliseconds duration) override
    {
        std::this_thread::sleep_for(duration);
    }
};

} // namespace

std::unique_ptr<Clock> CreateSystemClock()
{
    return std::make_unique<SystemClock>();
}

std::function<double()> ClockSeededUniform(Clock& clock)
{
    auto engine = std::make_shared<std::mt19937_64>(
        static_cast<std::uint64_t>(clock.now().time_since_epoch().count()));
    return [engine] { return std::uniform_real_distribution<double>(0.0, 1.0)(*engine); };
}

} // namespace vellumar
