#pragma once

#include "common/EventPump.h"

#include <functional>

namespace vellumar::test {

class CountingEventPump final : public EventPump {
public:
    void DoEvents() override
    {
        ++calls;
        if (whilePumping)
            whilePumping();
    }
    int calls = 0;
    // Runs at each call: a look at the windows in the middle of a long operation.
    std::function<void()> whilePumping;
};

} // namespace vellumar::test
