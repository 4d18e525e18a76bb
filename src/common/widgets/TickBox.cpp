#include "common/widgets/TickBox.h"

#include "common/widgets/Skin.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>

namespace vellumar {

void PaintTickBox(QPainter& painter, const QRectF& box, bool ticked, bool enabled)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = box.adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor accent = skin::SkyAccent();
    if (ticked) {
        painter.setPen(QPen(enabled ? accent.lighter(140) : QColor(0x4a, 0x55, 0x63), 1));
        painter.setBrush(enabled ? accent : QColor(0x2c, 0x34, 0x3f));
    } else {
        painter.setPen(QPen(enabled ? QColor(0x6b, 0x7c, 0x91) : QColor(0x3a, 0x44, 0x51), 1));
        painter.setBrush(QColor(0x0b, 0x10, 0x16));
    }
    painter.drawRoundedRect(frame, 2.5, 2.5);
    if (ticked) {
        const qreal s = box.width();
        QPainterPath tick;
        tick.moveTo(box.left() + s * 0.22, box.top() + s * 0.52);
        tick.lineTo(box.left() + s * 0.42, box.top() + s * 0.72);
        tick.lineTo(box.left() + s * 0.78, box.top() + s * 0.3);
        painter.setPen(QPen(enabled ? QColor(Qt::white) : QColor(0x7a, 0x85, 0x93),
                            qMax(1.5, s / 8), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(tick);
    }
    painter.restore();
}

void TickDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    if (!(item.features & QStyleOptionViewItem::HasCheckIndicator))
        return;
    const QWidget* view = option.widget;
    const QStyle* style = view ? view->style() : QApplication::style();
    const QRect indicator =
        style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, view);
    // Square, and a little larger than the style's, so that none of it shows underneath.
    const int side = qMax(indicator.width(), indicator.height()) + 2;
    const QRectF box(indicator.center().x() - side / 2.0 + 0.5,
                     indicator.center().y() - side / 2.0 + 0.5, side, side);
    PaintTickBox(*painter, box, item.checkState == Qt::Checked, item.state & QStyle::State_Enabled);
}

void TickCheckBox::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter painter(this);
    const QRect indicator = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    const int side = qMax(14, qMin(indicator.width(), indicator.height()));
    PaintTickBox(painter, QRectF(indicator.left() + 0.5, height() / 2.0 - side / 2.0, side, side),
                 isChecked(), isEnabled());
    if (!text().isEmpty()) {
        const QRect label = style()->subElementRect(QStyle::SE_CheckBoxContents, &option, this);
        painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                       QPalette::WindowText));
        painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter, text());
    }
}

} // namespace vellumar
