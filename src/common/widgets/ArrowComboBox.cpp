#include "common/widgets/ArrowComboBox.h"

#include <QPainter>
#include <QPainterPath>

namespace vellumar {

void ArrowComboBox::paintEvent(QPaintEvent* event)
{
    QComboBox::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre(width() - 12.5, height() / 2.0 + 0.5);
    QPainterPath arrow;
    arrow.moveTo(centre + QPointF(-4, -2));
    arrow.lineTo(centre + QPointF(4, -2));
    arrow.lineTo(centre + QPointF(0, 2.5));
    arrow.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled() ? QColor(0x9f, 0xd0, 0xff) : QColor(0x4a, 0x55, 0x63));
    painter.drawPath(arrow);
}

} // namespace vellumar
