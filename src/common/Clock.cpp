#include "common/Clock.h"

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
};

} // namespace

std::unique_ptr<Clock> CreateSystemClock()
{
    return std::make_unique<SystemClock>();
}

} // namespace vellumar
