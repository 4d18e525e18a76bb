#pragma once

#include <QCheckBox>
#include <QStyledItemDelegate>

class QPainter;

namespace vellumar {

// Tick boxes drawn by the skin: a dark well with a lit tick, readable on the dark panel where
// the style's own box all but disappears.
void PaintTickBox(QPainter& painter, const QRectF& box, bool ticked, bool enabled);

// For the check lists (lstClouds, lstOption): the row as the style draws it, with the skin's
// tick box over the style's.
class TickDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

// A check box with the skin's tick box (chkTrailOption).
class TickCheckBox final : public QCheckBox {
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vellumar
