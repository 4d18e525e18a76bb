#pragma once

#include <QPoint>

class QMouseEvent;
class QWidget;

namespace vellumar {

// Moves a window that has no system title bar by its body with the left button: where the
// window system can move it (it must, on Wayland), it does; elsewhere the window follows the
// mouse from the point where it went down.
class WindowDrag {
public:
    // True when the event started a move; the window passes any other event on.
    bool press(QWidget& window, QMouseEvent* event);
    // True while the window follows the mouse.
    bool move(QWidget& window, QMouseEvent* event);
    void release() { dragging_ = false; }

private:
    QPoint offset_;
    bool dragging_ = false;
};

} // namespace vellumar
