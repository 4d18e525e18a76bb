#pragma once

namespace vellumar {

// Lets pending window events run during long work on the one user-interface thread, so that
// folder walks and copies never freeze the windows.
class EventPump {
public:
    virtual ~EventPump() = default;
    virtual void DoEvents() = 0;
};

} // namespace vellumar
