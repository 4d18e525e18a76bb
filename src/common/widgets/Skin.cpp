#include "common/widgets/Skin.h"

#include <QIconEngine>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace vellumar::skin {

namespace {

const QColor kPanelTop(0x29, 0x33, 0x40);
const QColor kPanelBottom(0x1a, 0x21, 0x2a);
const QColor kEdge(0x05, 0x08, 0x0b);
const QColor kWell(0x0b, 0x10, 0x16);

// Paints the icon again for every size and scale asked for, so the tray and the task bar
// never show a stretched picture.
class DrawnIconEngine final : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        PaintAppIcon(*painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    // Some tray hosts pick from the sizes an icon offers rather than asking for one.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        QList<QSize> sizes;
        for (int side : {16, 20, 22, 24, 32, 40, 48, 64, 128, 256})
            sizes.append(QSize(side, side));
        return sizes;
    }

    QIconEngine* clone() const override { return new DrawnIconEngine; }
    QString key() const override { return QStringLiteral("vellumar-drawn"); }
};

QPainterPath CloudPath(const QPointF& base, qreal width)
{
    // Three puffs on a flat bottom.
    const qreal h = width * 0.42;
    QPainterPath cloud;
    // Overlapping puffs make one shape, not a pattern of holes.
    cloud.setFillRule(Qt::WindingFill);
    cloud.addEllipse(QRectF(base.x(), base.y() - h * 0.62, width * 0.46, h * 0.62));
    cloud.addEllipse(QRectF(base.x() + width * 0.22, base.y() - h, width * 0.5, h));
    cloud.addEllipse(QRectF(base.x() + width * 0.52, base.y() - h * 0.7, width * 0.48, h * 0.7));
    cloud.addRoundedRect(
        QRectF(base.x() + width * 0.08, base.y() - h * 0.36, width * 0.84, h * 0.36), h * 0.18,
        h * 0.18);
    return cloud;
}

} // namespace

QColor PanelText()
{
    return {0xe4, 0xeb, 0xf3};
}

QColor PanelTextDim()
{
    return {0x8d, 0x99, 0xa8};
}

QColor SkyAccent()
{
    return {0x3d, 0x8b, 0xe0};
}

QColor FilterColour()
{
    return {0x7f, 0xbc, 0xff};
}

QColor FilterChosenColour()
{
    return {0xff, 0x7a, 0x66};
}

QColor ReadoutAmber()
{
    return {0xff, 0xc8, 0x62};
}

QColor ReadoutGreen()
{
    return {0x7e, 0xe2, 0xa8};
}

QPalette PanelPalette()
{
    QPalette palette;
    const QColor text = PanelText();
    const QColor disabled(0x65, 0x70, 0x7e);
    palette.setColor(QPalette::Window, QColor(0x21, 0x29, 0x34));
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, QColor(0x10, 0x16, 0x1e));
    palette.setColor(QPalette::AlternateBase, QColor(0x17, 0x1f, 0x29));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, QColor(0x2e, 0x38, 0x45));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x74, 0xc0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Light, QColor(0x45, 0x52, 0x63));
    palette.setColor(QPalette::Midlight, QColor(0x36, 0x41, 0x4f));
    palette.setColor(QPalette::Mid, QColor(0x1b, 0x22, 0x2b));
    palette.setColor(QPalette::Dark, QColor(0x0e, 0x13, 0x18));
    palette.setColor(QPalette::Shadow, Qt::black);
    palette.setColor(QPalette::ToolTipBase, QColor(0x1b, 0x22, 0x2c));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, PanelTextDim());
    palette.setColor(QPalette::Link, FilterColour());
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x16, 0x1b, 0x22));
    return palette;
}

QString PanelStyleSheet()
{
    // Colours, borders and spacing only: fonts stay with the widgets, so the configured
    // proportional font reaches every control.
    return QStringLiteral(
        "QListView { background: #10161e; color: #e4ebf3; border: 1px solid #05080b;"
        "  border-radius: 4px; padding: 2px; outline: 0; }"
        "QListView:disabled { color: #65707e; }"
        "QListView::item { padding: 2px 4px; border-radius: 3px; }"
        "QListView::item:hover { background: #1d2835; }"
        "QListView::item:selected { background: #2f74c0; color: #ffffff; }"
        // Controls polished by a style sheet take their text colour from it, not from the
        // window's palette.
        "QRadioButton, QCheckBox { color: #e4ebf3; }"
        "QRadioButton:disabled, QCheckBox:disabled { color: #65707e; }"
        // Radio buttons as panel lamps: a dark socket, lit blue when chosen.
        "QRadioButton::indicator { width: 12px; height: 12px; border-radius: 7px;"
        "  border: 1px solid #6b7c91; background: #0b1016; }"
        "QRadioButton::indicator:hover { border-color: #9fd0ff; }"
        "QRadioButton::indicator:checked { border-color: #6fb0ff; background: qradialgradient("
        "  cx:0.5, cy:0.5, radius:0.5, fx:0.4, fy:0.4, stop:0 #cfe8ff, stop:0.42 #3d8be0,"
        "  stop:0.52 #0b1016, stop:1 #0b1016); }"
        "QRadioButton::indicator:disabled { border-color: #3a4451; background: #161b22; }"
        "QComboBox { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #3a4656,"
        "  stop:1 #28313d); color: #e4ebf3; border: 1px solid #05080b; border-radius: 4px;"
        "  padding: 3px 22px 3px 8px; }"
        "QComboBox:hover { border-color: #3d8be0; }"
        "QComboBox:disabled { color: #65707e; background: #262d36; }"
        "QComboBox::drop-down { subcontrol-origin: padding; subcontrol-position: center right;"
        "  width: 20px; border: none; }"
        // ArrowComboBox draws the arrow.
        "QComboBox::down-arrow { image: none; width: 0; height: 0; border: none; }"
        "QComboBox QAbstractItemView { background: #10161e; color: #e4ebf3;"
        "  border: 1px solid #05080b; selection-background-color: #2f74c0;"
        "  selection-color: #ffffff; outline: 0; }"
        "QScrollBar:vertical { background: #0c1117; width: 10px; margin: 1px; border: none; }"
        "QScrollBar::handle:vertical { background: #3a4757; min-height: 24px;"
        "  border-radius: 4px; }"
        "QScrollBar::handle:vertical:hover { background: #4b5c70; }"
        "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0; }"
        "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }"
        "QScrollBar:horizontal { background: #0c1117; height: 10px; margin: 1px; border: none; }"
        "QScrollBar::handle:horizontal { background: #3a4757; min-width: 24px;"
        "  border-radius: 4px; }"
        "QScrollBar::add-line:horizontal, QScrollBar::sub-line:horizontal { width: 0; }"
        "QScrollBar::add-page:horizontal, QScrollBar::sub-page:horizontal { background: none; }"
        // The copy progress: a thin amber line along the lower edge of the message readout.
        "QProgressBar { background: #3b2f18; border: none; border-radius: 1px; }"
        "QProgressBar::chunk { background: #ffc862; border-radius: 1px; }"
        "QMenu { background: #1b222c; color: #e4ebf3; border: 1px solid #05080b;"
        "  padding: 4px; }"
        "QMenu::item { padding: 5px 22px 5px 14px; border-radius: 3px; }"
        "QMenu::item:selected { background: #2f74c0; color: #ffffff; }"
        "QMenu::item:disabled { color: #65707e; background: transparent; }"
        "QMenu::separator { height: 1px; background: #2f3a48; margin: 4px 8px; }"
        "QToolTip { background: #1b222c; color: #e4ebf3; border: 1px solid #3d8be0;"
        "  padding: 3px; }");
}

QString MessageStyleSheet()
{
    return PanelStyleSheet() +
           QStringLiteral(
               // Plain push buttons as panel keys; the default one in sky blue.
               "QPushButton { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #3a4656,"
               "  stop:1 #27303c); color: #e4ebf3; border: 1px solid #05080b; border-radius: 5px;"
               "  padding: 3px 10px; }"
               "QPushButton:hover { border-color: #3d8be0; background: qlineargradient(x1:0, y1:0,"
               "  x2:0, y2:1, stop:0 #44526a, stop:1 #2c3644); }"
               "QPushButton:default { background: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
               "  stop:0 #3f8cdc, stop:1 #2461a6); color: #ffffff; }"
               "QPushButton:default:hover { border-color: #9fd0ff; }"
               "QPushButton:pressed { background: #222a35; }"
               "QPushButton:default:pressed { background: #1f5390; }"
               "QPushButton:focus { border-color: #9fd0ff; }"
               "QPushButton:disabled { color: #65707e; background: #262d36; }"
               // The scrolling text of a long message, sunk into the panel like the lists.
               "QPlainTextEdit { background: #10161e; color: #e4ebf3; border: 1px solid #05080b;"
               "  border-radius: 4px; padding: 2px; selection-background-color: #2f74c0; }");
}

void PaintPanel(QPainter& painter, const QRectF& rect)
{
    painter.save();
    // The body is the same in every column: the gradient with a faint brushed texture of fine
    // horizontal lines (cheaper than noise, and as sharp at 2x). One column is made and
    // stretched across, which costs a fraction of drawing each line over the window.
    const int height = std::max(1, static_cast<int>(std::ceil(rect.height())));
    QImage column(1, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        const qreal at = height > 1 ? static_cast<qreal>(y) / (height - 1) : 0;
        int r = kPanelTop.red() + static_cast<int>((kPanelBottom.red() - kPanelTop.red()) * at);
        int g =
            kPanelTop.green() + static_cast<int>((kPanelBottom.green() - kPanelTop.green()) * at);
        int b = kPanelTop.blue() + static_cast<int>((kPanelBottom.blue() - kPanelTop.blue()) * at);
        if (y % 3 == 2) {
            // White at 6/255 over the body.
            r += (255 - r) * 6 / 255;
            g += (255 - g) * 6 / 255;
            b += (255 - b) * 6 / 255;
        }
        column.setPixel(0, y, qRgb(r, g, b));
    }
    painter.drawImage(QRectF(rect.left(), rect.top(), rect.width(), height), column);
    // Bevel: light from above, the edge dark all round.
    painter.setPen(QPen(kEdge, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(QPen(QColor(255, 255, 255, 22), 1));
    painter.drawLine(QPointF(rect.left() + 1.5, rect.top() + 1.5),
                     QPointF(rect.right() - 1.5, rect.top() + 1.5));
    painter.drawLine(QPointF(rect.left() + 1.5, rect.top() + 1.5),
                     QPointF(rect.left() + 1.5, rect.bottom() - 1.5));
    painter.setPen(QPen(QColor(0, 0, 0, 90), 1));
    painter.drawLine(QPointF(rect.left() + 1.5, rect.bottom() - 1.5),
                     QPointF(rect.right() - 1.5, rect.bottom() - 1.5));
    painter.drawLine(QPointF(rect.right() - 1.5, rect.top() + 1.5),
                     QPointF(rect.right() - 1.5, rect.bottom() - 1.5));
    painter.restore();
}

void PaintSkyBand(QPainter& painter, const QRectF& rect)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(rect);
    QLinearGradient sky(rect.topLeft(), rect.bottomLeft());
    sky.setColorAt(0.0, QColor(0x12, 0x2e, 0x55));
    sky.setColorAt(0.55, QColor(0x25, 0x5d, 0x9e));
    sky.setColorAt(0.92, QColor(0x5f, 0x9d, 0xd6));
    sky.setColorAt(1.0, QColor(0xe9, 0xc0, 0x86));
    painter.fillRect(rect, sky);
    // Thin high clouds, drifting to the right.
    painter.setPen(Qt::NoPen);
    const qreal w = rect.width();
    const qreal h = rect.height();
    const struct {
        qreal x, y, width, alpha;
    } clouds[] = {{0.34, 0.62, 0.16, 22},
                  {0.55, 0.38, 0.11, 16},
                  {0.72, 0.74, 0.2, 20},
                  {0.9, 0.5, 0.09, 14}};
    for (const auto& cloud : clouds) {
        painter.setBrush(QColor(255, 255, 255, static_cast<int>(cloud.alpha)));
        painter.drawPath(CloudPath(QPointF(rect.left() + cloud.x * w, rect.top() + cloud.y * h),
                                   cloud.width * w));
    }
    // The horizon glow and the panel's shadow under the band.
    painter.setPen(QPen(QColor(255, 230, 190, 120), 1));
    painter.drawLine(QPointF(rect.left(), rect.bottom() - 1.5),
                     QPointF(rect.right(), rect.bottom() - 1.5));
    painter.setPen(QPen(kEdge, 1));
    painter.drawLine(QPointF(rect.left(), rect.bottom() - 0.5),
                     QPointF(rect.right(), rect.bottom() - 0.5));
    painter.restore();
}

void PaintInset(QPainter& painter, const QRectF& rect, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    // The highlight below the well's lower edge, then the well itself.
    painter.setPen(QPen(QColor(255, 255, 255, 24), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(outer.translated(0, 1), radius, radius);
    painter.setPen(QPen(kEdge, 1));
    QLinearGradient well(rect.topLeft(), rect.bottomLeft());
    well.setColorAt(0, kWell.darker(130));
    well.setColorAt(0.18, kWell);
    well.setColorAt(1, kWell.lighter(115));
    painter.setBrush(well);
    painter.drawRoundedRect(outer, radius, radius);
    painter.restore();
}

void PaintAppIcon(QPainter& painter, const QRectF& rect)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = qMin(rect.width(), rect.height());
    const QRectF disc(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
    QPainterPath round;
    round.addEllipse(disc.adjusted(side * 0.03, side * 0.03, -side * 0.03, -side * 0.03));
    QLinearGradient sky(disc.topLeft(), disc.bottomLeft());
    sky.setColorAt(0, QColor(0x1c, 0x4f, 0x94));
    sky.setColorAt(0.62, QColor(0x4d, 0x93, 0xdb));
    sky.setColorAt(0.64, QColor(0xf0, 0xc2, 0x7e));
    sky.setColorAt(1, QColor(0x3a, 0x54, 0x36));
    painter.setPen(QPen(QColor(0x0b, 0x1a, 0x2e), qMax(1.0, side / 24)));
    painter.setBrush(sky);
    painter.drawPath(round);
    painter.setClipPath(round);
    // The sun low over the horizon, and a cloud in front.
    QRadialGradient sun(QPointF(disc.left() + side * 0.68, disc.top() + side * 0.56), side * 0.2);
    sun.setColorAt(0, QColor(255, 246, 214));
    sun.setColorAt(0.45, QColor(255, 214, 128, 220));
    sun.setColorAt(1, QColor(255, 190, 110, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(sun);
    painter.drawEllipse(QPointF(disc.left() + side * 0.68, disc.top() + side * 0.56), side * 0.2,
                        side * 0.2);
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawPath(
        CloudPath(QPointF(disc.left() + side * 0.14, disc.top() + side * 0.55), side * 0.56));
    painter.restore();
}

QIcon AppIcon()
{
    return QIcon(new DrawnIconEngine);
}

} // namespace vellumar::skin
