#pragma once

#include "common/EventPump.h"

namespace vellumar {

// Lets the Qt event loop run whatever is pending.
class QtEventPump final : public EventPump {
public:
    void DoEvents() override;
};

} // namespace vellumar
