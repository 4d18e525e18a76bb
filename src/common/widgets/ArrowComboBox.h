#pragma once

#include <QComboBox>

namespace vellumar {

// A combo box whose drop-down arrow the skin draws itself: the style sheet colours the box but
// has no vector arrow of its own.
class ArrowComboBox final : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vellumar
