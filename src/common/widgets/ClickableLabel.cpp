#include "common/widgets/ClickableLabel.h"

#include "common/widgets/Skin.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace vellumar {

ClickableLabel::ClickableLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setInteractive(true);
}

void ClickableLabel::setInteractive(bool interactive)
{
    interactive_ = interactive;
    setAttribute(Qt::WA_Hover, interactive);
    if (interactive && isEnabled())
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
    if (!interactive)
        showHover(false);
}

void ClickableLabel::mousePressEvent(QMouseEvent* event)
{
    if (!interactive_) {
        event->ignore(); // on to the window, which moves
        return;
    }
    leftDown_ = event->button() == Qt::LeftButton;
    Q_EMIT pressed(event->button(), event->modifiers(), event->globalPosition().toPoint());
    event->accept();
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (!interactive_) {
        event->ignore();
        return;
    }
    const bool click = leftDown_ && event->button() == Qt::LeftButton &&
                       rect().contains(event->position().toPoint());
    leftDown_ = false;
    event->accept();
    if (click)
        Q_EMIT clicked();
}

void ClickableLabel::enterEvent(QEnterEvent* event)
{
    showHover(interactive_ && isEnabled());
    QLabel::enterEvent(event);
}

void ClickableLabel::leaveEvent(QEvent* event)
{
    showHover(false);
    QLabel::leaveEvent(event);
}

void ClickableLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        setInteractive(interactive_);
        if (!isEnabled())
            showHover(false);
    }
    QLabel::changeEvent(event);
}

void ClickableLabel::showHover(bool hover)
{
    if (hover == hovered_)
        return;
    hovered_ = hover;
    QFont shown = font();
    shown.setUnderline(hover);
    setFont(shown);
}

ReadoutLabel::ReadoutLabel(const QColor& ink, QWidget* parent)
    : ClickableLabel({}, parent)
{
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, ink);
    colours.setColor(QPalette::Disabled, QPalette::WindowText, ink.darker(190));
    setPalette(colours);
    setContentsMargins(10, 3, 10, 3);
    setInteractive(false);
}

void ReadoutLabel::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        skin::PaintInset(painter, rect(), 4);
    }
    QLabel::paintEvent(event);
}

void ReadoutLabel::setLowerEdgeBar(QWidget* bar)
{
    lowerEdgeBar_ = bar;
    bar->setParent(this);
    placeLowerEdgeBar();
}

void ReadoutLabel::resizeEvent(QResizeEvent* event)
{
    ClickableLabel::resizeEvent(event);
    placeLowerEdgeBar();
}

void ReadoutLabel::placeLowerEdgeBar()
{
    if (!lowerEdgeBar_)
        return;
    constexpr int side = 8, bottom = 3;
    const int height = lowerEdgeBar_->height();
    lowerEdgeBar_->setGeometry(side, this->height() - bottom - height,
                               std::max(0, width() - 2 * side), height);
}

} // namespace vellumar
