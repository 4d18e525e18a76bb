#include "common/widgets/WindowDrag.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace vellumar {

bool WindowDrag::press(QWidget& window, QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    if (window.windowHandle() && window.windowHandle()->startSystemMove()) {
        event->accept();
        return true;
    }
    offset_ = event->globalPosition().toPoint() - window.frameGeometry().topLeft();
    dragging_ = true;
    event->accept();
    return true;
}

bool WindowDrag::move(QWidget& window, QMouseEvent* event)
{
    if (!dragging_ || !(event->buttons() & Qt::LeftButton))
        return false;
    window.move(event->globalPosition().toPoint() - offset_);
    event->accept();
    return true;
}

} // namespace vellumar
