#include "common/EventPump_qt.h"

#include <QCoreApplication>

namespace vellumar {

namespace {

// Well below a screen refresh: windows stay as lively as with a round per call.
constexpr qint64 kRoundIntervalMs = 8;

} // namespace

void QtEventPump::DoEvents()
{
    if (sinceLastRound_.isValid() && sinceLastRound_.elapsed() < kRoundIntervalMs)
        return;
    QCoreApplication::processEvents();
    sinceLastRound_.start();
}

} // namespace vellumar
