#pragma once

#include <chrono>
#include <thread>

namespace vellumar::test {

// Polls until `done` holds, or gives up (false) once `patience` has gone by: for what another
// process does in its own time.
template <typename Condition>
bool WaitFor(Condition done, std::chrono::milliseconds patience = std::chrono::seconds(5))
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

} // namespace vellumar::test
