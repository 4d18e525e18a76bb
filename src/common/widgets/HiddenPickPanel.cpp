#include "common/widgets/HiddenPickPanel.h"

#include "common/widgets/PictureButton.h"
#include "common/widgets/Skin.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace vellumar {

namespace {

constexpr int kFrame = 3;

// The picture: a sky as the preview would show it, veiled by mist, with the die in front.
void PaintVeiledSky(QPainter& painter, const QRectF& area)
{
    painter.save();
    QPainterPath clip;
    clip.addRoundedRect(area, 4, 4);
    painter.setClipPath(clip);
    skin::PaintSkyBand(painter, area);
    // The mist: thick at the middle, where the set's clouds would be.
    QRadialGradient mist(area.center(), area.width() * 0.62);
    mist.setColorAt(0, QColor(0xd8, 0xe4, 0xf0, 225));
    mist.setColorAt(0.55, QColor(0xb4, 0xc8, 0xdc, 170));
    mist.setColorAt(1, QColor(0x6a, 0x86, 0xa6, 90));
    painter.fillRect(area, mist);

    // The die on a dark disc, as on the Random key but large.
    const qreal side = std::min(area.width(), area.height()) * 0.46;
    const QRectF disc(area.center().x() - side / 2, area.center().y() - side / 2, side, side);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 150), 1.5));
    QLinearGradient body(disc.topLeft(), disc.bottomLeft());
    body.setColorAt(0, QColor(0x2a, 0x46, 0x6c, 235));
    body.setColorAt(1, QColor(0x12, 0x22, 0x3a, 235));
    painter.setBrush(body);
    painter.drawEllipse(disc);
    const qreal die = side * 0.56;
    PaintGlyph(painter, PictureButton::Glyph::Random,
               QRectF(disc.center().x() - die / 2, disc.center().y() - die / 2, die, die),
               QColor(0xf4, 0xf7, 0xfb));
    painter.restore();
}

} // namespace

HiddenPickPanel::HiddenPickPanel(QWidget* parent)
    : QWidget(parent)
{}

void HiddenPickPanel::setText(const QString& text)
{
    text_ = text;
    update();
}

QSize HiddenPickPanel::sizeHint() const
{
    return {286, 262};
}

QSize HiddenPickPanel::minimumSizeHint() const
{
    return {160, 140};
}

void HiddenPickPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    skin::PaintInset(painter, rect(), 5);
    const QRectF inside =
        QRectF(rect()).adjusted(kFrame + 12, kFrame + 12, -kFrame - 12, -kFrame - 12);
    QFont words = font();
    words.setPointSizeF(words.pointSizeF() * 1.2);
    words.setBold(true);
    const QFontMetricsF metrics(words);
    const qreal textHeight = metrics.height() * 2.2;
    const QRectF picture(inside.left(), inside.top(), inside.width(),
                         std::max(0.0, inside.height() - textHeight));
    PaintVeiledSky(painter, picture);

    painter.setFont(words);
    painter.setPen(skin::ReadoutAmber());
    const QRectF line(inside.left(), picture.bottom(), inside.width(), textHeight);
    painter.drawText(line, Qt::AlignCenter | Qt::TextWordWrap, text_);
}

} // namespace vellumar
