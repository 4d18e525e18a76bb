#pragma once

#include "EventPump.h"

namespace vellumar::test {

class CountingEventPump final : public EventPump {
public:
    void DoEvents() override { ++calls; }
    int calls = 0;
};

} // namespace vellumar::test
