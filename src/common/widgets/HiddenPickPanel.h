#pragma once

#include <QWidget>

namespace vellumar {

// What the set area shows after a hidden random pick: a veiled sky with the die of the Random
// key, and the status line's words under it. It says, in the window's own look, that a set has
// been chosen and is kept out of sight on purpose.
class HiddenPickPanel final : public QWidget {
    Q_OBJECT

public:
    explicit HiddenPickPanel(QWidget* parent = nullptr);

    void setText(const QString& text);
    QString text() const { return text_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
};

} // namespace vellumar
