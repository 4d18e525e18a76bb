#pragma once

#include <QLabel>

namespace vellumar {

// A label that acts on the mouse, as the designed labels lblOption, lblHelp, lblTime and the
// set filters do. Labels that do not act let the mouse through to the window, which is dragged
// by its body.
class ClickableLabel : public QLabel {
    Q_OBJECT

public:
    explicit ClickableLabel(const QString& text = {}, QWidget* parent = nullptr);

    // Whether the label acts on the mouse (hand cursor, underline on hover).
    void setInteractive(bool interactive);
    bool isInteractive() const { return interactive_; }

Q_SIGNALS:
    // A mouse button went down on the label (lblTime acts on the press, not the click).
    void pressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                 const QPoint& globalPosition);
    // The left button went down and came up again on the label.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showHover(bool hover);

    bool interactive_ = true;
    bool leftDown_ = false;
    bool hovered_ = false;
};

// An instrument readout: light text in a recessed dark well, as on a radio stack.
class ReadoutLabel final : public ClickableLabel {
    Q_OBJECT

public:
    explicit ReadoutLabel(const QColor& ink, QWidget* parent = nullptr);

    // Adopts a thin bar (a progress bar, say) that lies along the lower edge of the well,
    // under the text; its owner shows and hides it.
    void setLowerEdgeBar(QWidget* bar);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeLowerEdgeBar();

    QWidget* lowerEdgeBar_ = nullptr;
};

} // namespace vellumar
