#include "common/EventPump_qt.h"

#include <QCoreApplication>

namespace vellumar {

void QtEventPump::DoEvents()
{
    QCoreApplication::processEvents();
}

} // namespace vellumar
