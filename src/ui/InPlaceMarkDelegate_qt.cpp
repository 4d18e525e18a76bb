#include "ui/InPlaceMarkDelegate_qt.h"

#include "common/widgets/Skin.h"
#include "ui/SetListModel_qt.h"

#include <QPainter>
#include <QPainterPath>

namespace vellumar {

void InPlaceMarkDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.data(SetListModel::InPlaceRole).toBool())
        return;
    // A tick as tall as a third of the row, clear of the scroll bar's side of the row.
    const QRectF row = option.rect;
    const qreal size = qMax<qreal>(6.0, row.height() / 3.0);
    const QRectF box(row.right() - size - 8.0, row.center().y() - size / 2.0, size, size);
    QPainterPath tick;
    tick.moveTo(box.left(), box.top() + box.height() * 0.55);
    tick.lineTo(box.left() + box.width() * 0.38, box.bottom());
    tick.lineTo(box.right(), box.top());
    const bool selected = option.state & QStyle::State_Selected;
    QColor colour = selected ? QColor(Qt::white) : skin::ReadoutGreen();
    colour.setAlphaF(selected ? 0.85 : 0.7);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(tick);
    painter->restore();
}

} // namespace vellumar
