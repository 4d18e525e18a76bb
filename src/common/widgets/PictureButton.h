#pragma once

#include <QAbstractButton>

namespace vellumar {

// A skinned push button: a bevelled panel key with a drawn symbol and an optional caption,
// lit on hover and pushed in while pressed. Everything is painted, so it is sharp at any scale.
class PictureButton final : public QAbstractButton {
    Q_OBJECT

public:
    enum class Glyph { None, Install, InstallAndStart, Random, Backup, Restore, Close, Minimise };
    enum class Kind {
        Panel,    // a key on the panel
        Primary,  // the key most used, in the sky's blue
        TitleBar, // a symbol on the window's sky band, no panel of its own
    };

    explicit PictureButton(Glyph glyph, const QString& caption = {}, Kind kind = Kind::Panel,
                           QWidget* parent = nullptr);

    Glyph glyph() const { return glyph_; }
    Kind kind() const { return kind_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    // The right button went down on the key (its popup menus open on this).
    void rightPressed(const QPoint& globalPosition);
    // Any button went down on the enabled key, with the keys held at that moment; sent before
    // the press does anything else.
    void mouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                   const QPoint& globalPosition);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    Glyph glyph_;
    Kind kind_;
    bool hovered_ = false;
};

// Paints one of the button symbols into `rect`, in `colour`.
void PaintGlyph(QPainter& painter, PictureButton::Glyph glyph, const QRectF& rect,
                const QColor& colour);

} // namespace vellumar
