#pragma once

#include <QStyledItemDelegate>

namespace vellumar {

// Draws a set list's rows as usual, plus a small tick at the right end of the rows of sets
// whose every file is in the simulator now (SetListModel::InPlaceRole).
class InPlaceMarkDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace vellumar
