#include "common/widgets/PictureButton.h"

#include "common/widgets/Skin.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace vellumar {

namespace {

constexpr int kPanelHeight = 30;
constexpr int kGlyphSize = 16;
constexpr int kPadding = 12;
constexpr int kGlyphGap = 7;
constexpr int kTitleBarSide = 24;

// The caption as shown: "&&" is a literal ampersand, a single "&" marks the mnemonic.
QString DisplayCaption(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        shown.append(text[i]);
    }
    return shown;
}

QPen GlyphPen(const QColor& colour, qreal width)
{
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

} // namespace

void PaintGlyph(QPainter& painter, PictureButton::Glyph glyph, const QRectF& rect,
                const QColor& colour)
{
    using Glyph = PictureButton::Glyph;
    if (glyph == Glyph::None)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.topLeft());
    // The symbols are designed on a 16 x 16 grid.
    painter.scale(rect.width() / 16.0, rect.height() / 16.0);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(GlyphPen(colour, 1.6));
    switch (glyph) {
    case Glyph::Install: {
        // An arrow down into a tray.
        QPainterPath arrow;
        arrow.moveTo(8, 1.8);
        arrow.lineTo(8, 10);
        arrow.moveTo(4.6, 6.8);
        arrow.lineTo(8, 10.2);
        arrow.lineTo(11.4, 6.8);
        painter.drawPath(arrow);
        QPainterPath tray;
        tray.moveTo(2, 10.5);
        tray.lineTo(2, 14);
        tray.lineTo(14, 14);
        tray.lineTo(14, 10.5);
        painter.drawPath(tray);
        break;
    }
    case Glyph::InstallAndStart: {
        // A small aeroplane climbing away.
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.translate(8, 8);
        painter.rotate(-40);
        QPainterPath plane;
        plane.moveTo(0, -7.2);
        plane.cubicTo(0.9, -7.2, 1.1, -5.5, 1.1, -4);
        plane.lineTo(1.1, -1.6);
        plane.lineTo(6.8, 1.6);
        plane.lineTo(6.8, 3.0);
        plane.lineTo(1.1, 1.3);
        plane.lineTo(1.0, 4.6);
        plane.lineTo(2.8, 6.1);
        plane.lineTo(2.8, 7.1);
        plane.lineTo(0, 6.3);
        plane.lineTo(-2.8, 7.1);
        plane.lineTo(-2.8, 6.1);
        plane.lineTo(-1.0, 4.6);
        plane.lineTo(-1.1, 1.3);
        plane.lineTo(-6.8, 3.0);
        plane.lineTo(-6.8, 1.6);
        plane.lineTo(-1.1, -1.6);
        plane.lineTo(-1.1, -4);
        plane.cubicTo(-1.1, -5.5, -0.9, -7.2, 0, -7.2);
        painter.drawPath(plane);
        break;
    }
    case Glyph::Random: {
        // A die showing five.
        painter.drawRoundedRect(QRectF(2, 2, 12, 12), 2.6, 2.6);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        for (const QPointF& pip : {QPointF(5.2, 5.2), QPointF(10.8, 5.2), QPointF(8, 8),
                                   QPointF(5.2, 10.8), QPointF(10.8, 10.8)})
            painter.drawEllipse(pip, 1.15, 1.15);
        break;
    }
    case Glyph::Backup: {
        // A box with the lid open, an arrow going in.
        painter.drawRoundedRect(QRectF(2.2, 7.4, 11.6, 6.6), 1.2, 1.2);
        QPainterPath arrow;
        arrow.moveTo(8, 1.6);
        arrow.lineTo(8, 10.6);
        arrow.moveTo(5.4, 8.0);
        arrow.lineTo(8, 10.6);
        arrow.lineTo(10.6, 8.0);
        painter.drawPath(arrow);
        break;
    }
    case Glyph::Restore: {
        // A circular arrow turning back.
        QPainterPath turn;
        turn.arcMoveTo(QRectF(2.5, 2.5, 11, 11), 150);
        turn.arcTo(QRectF(2.5, 2.5, 11, 11), 150, -290);
        painter.drawPath(turn);
        QPainterPath head;
        head.moveTo(1.8, 3.6);
        head.lineTo(3.3, 6.4);
        head.lineTo(6.3, 5.3);
        painter.drawPath(head);
        break;
    }
    case Glyph::Close: {
        painter.setPen(GlyphPen(colour, 1.7));
        painter.drawLine(QPointF(4.2, 4.2), QPointF(11.8, 11.8));
        painter.drawLine(QPointF(11.8, 4.2), QPointF(4.2, 11.8));
        break;
    }
    case Glyph::Minimise: {
        painter.setPen(GlyphPen(colour, 1.7));
        painter.drawLine(QPointF(4, 10.5), QPointF(12, 10.5));
        break;
    }
    case Glyph::None:
        break;
    }
    painter.restore();
}

PictureButton::PictureButton(Glyph glyph, const QString& caption, Kind kind, QWidget* parent)
    : QAbstractButton(parent)
    , glyph_(glyph)
    , kind_(kind)
{
    setText(caption);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(kind == Kind::TitleBar ? Qt::NoFocus : Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

QSize PictureButton::sizeHint() const
{
    if (kind_ == Kind::TitleBar)
        return {kTitleBarSide, kTitleBarSide};
    const QFontMetrics metrics(font());
    int width = 2 * kPadding;
    if (glyph_ != Glyph::None)
        width += kGlyphSize;
    if (!text().isEmpty())
        width += metrics.horizontalAdvance(DisplayCaption(text())) +
                 (glyph_ != Glyph::None ? kGlyphGap : 0);
    return {width, qMax(kPanelHeight, metrics.height() + 12)};
}

QSize PictureButton::minimumSizeHint() const
{
    return sizeHint();
}

void PictureButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool enabled = isEnabled();
    const bool hover = enabled && hovered_;
    const bool down = enabled && isDown();
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);

    QColor ink;
    if (kind_ == Kind::TitleBar) {
        if (hover || down) {
            const QColor wash = glyph_ == Glyph::Close ? QColor(0xd9, 0x45, 0x3b)
                                                       : QColor(255, 255, 255, down ? 70 : 45);
            painter.setPen(Qt::NoPen);
            painter.setBrush(down && glyph_ == Glyph::Close ? wash.darker(115) : wash);
            painter.drawRoundedRect(area, 5, 5);
        }
        ink = enabled ? QColor(Qt::white) : QColor(255, 255, 255, 90);
        const qreal side = qMin(width(), height()) * 0.7;
        PaintGlyph(painter, glyph_, QRectF((width() - side) / 2, (height() - side) / 2, side, side),
                   ink);
        return;
    }

    // The key: a raised panel, lighter when lit, pushed in and darker while pressed.
    const bool primary = kind_ == Kind::Primary;
    QColor top = primary ? QColor(0x3f, 0x8c, 0xdc) : QColor(0x3a, 0x46, 0x56);
    QColor bottom = primary ? QColor(0x24, 0x61, 0xa6) : QColor(0x27, 0x30, 0x3c);
    if (!enabled) {
        top = QColor(0x2c, 0x34, 0x3f);
        bottom = QColor(0x25, 0x2c, 0x35);
    } else if (down) {
        std::swap(top, bottom);
        top = top.darker(112);
    } else if (hover) {
        top = top.lighter(118);
        bottom = bottom.lighter(112);
    }
    QLinearGradient fill(area.topLeft(), area.bottomLeft());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    QColor edge(0x05, 0x08, 0x0b);
    if (hover && !down)
        edge = primary ? QColor(0x9f, 0xd0, 0xff) : skin::SkyAccent();
    painter.setPen(QPen(edge, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(area, 5, 5);
    if (enabled && !down) {
        // The lit upper edge of a raised key.
        painter.setPen(QPen(QColor(255, 255, 255, primary ? 60 : 34), 1));
        painter.drawLine(QPointF(area.left() + 4, area.top() + 1.5),
                         QPointF(area.right() - 4, area.top() + 1.5));
    }
    if (hasFocus() && enabled) {
        painter.setPen(QPen(QColor(0x9f, 0xd0, 0xff, 150), 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area.adjusted(2.5, 2.5, -2.5, -2.5), 3, 3);
    }

    if (!enabled)
        ink = QColor(0x6d, 0x78, 0x86);
    else if (primary)
        ink = Qt::white;
    else
        ink = hover ? QColor(0xd6, 0xeb, 0xff) : QColor(0xb9, 0xd9, 0xfb);
    const QColor captionInk = enabled ? (primary ? QColor(Qt::white) : skin::PanelText()) : ink;

    const QFontMetrics metrics(font());
    const QString caption = DisplayCaption(text());
    const int captionWidth = caption.isEmpty() ? 0 : metrics.horizontalAdvance(caption);
    const int contentWidth = (glyph_ != Glyph::None ? kGlyphSize : 0) + captionWidth +
                             (glyph_ != Glyph::None && captionWidth > 0 ? kGlyphGap : 0);
    const qreal shift = down ? 1 : 0;
    qreal x = (width() - contentWidth) / 2.0 + shift;
    const qreal middle = height() / 2.0 + shift;
    if (glyph_ != Glyph::None) {
        PaintGlyph(painter, glyph_, QRectF(x, middle - kGlyphSize / 2.0, kGlyphSize, kGlyphSize),
                   ink);
        x += kGlyphSize + kGlyphGap;
    }
    if (captionWidth > 0) {
        painter.setPen(captionInk);
        painter.drawText(QRectF(x, 0 + shift, captionWidth + 2, height()),
                         Qt::AlignLeft | Qt::AlignVCenter, caption);
    }
}

void PictureButton::mousePressEvent(QMouseEvent* event)
{
    if (isEnabled())
        Q_EMIT mouseDown(event->button(), event->modifiers(), event->globalPosition().toPoint());
    if (event->button() == Qt::RightButton) {
        if (isEnabled())
            Q_EMIT rightPressed(event->globalPosition().toPoint());
        event->accept();
        return;
    }
    QAbstractButton::mousePressEvent(event);
}

void PictureButton::enterEvent(QEnterEvent* event)
{
    hovered_ = true;
    update();
    QAbstractButton::enterEvent(event);
}

void PictureButton::leaveEvent(QEvent* event)
{
    hovered_ = false;
    update();
    QAbstractButton::leaveEvent(event);
}

} // namespace vellumar
