#pragma once

#include "common/EventPump.h"

#include <QElapsedTimer>

namespace vellumar {

// Lets the Qt event loop run whatever is pending. Folder walks call it once per entry, and a
// round of the event loop costs far more than reading an entry: it runs at most once per few
// milliseconds, which the eye cannot tell from every entry.
class QtEventPump final : public EventPump {
public:
    void DoEvents() override;

private:
    QElapsedTimer sinceLastRound_;
};

} // namespace vellumar
