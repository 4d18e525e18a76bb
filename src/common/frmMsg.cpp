#include "common/frmMsg.h"

#include "common/widgets/PictureButton.h"
#include "common/widgets/Skin.h"
#include "common/widgets/SkyBand.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTextLayout>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace vellumar {

namespace {

// Point sizes of the window's own font (buttons) and of the message text.
constexpr int kWindowPointSize = 9;
constexpr int kTextPointSize = 10;
// Buttons are at least this large in twips, and leave this much room around their caption in
// pixels, so a row of short captions still looks like a row of buttons.
constexpr double kButtonMinWidth = 1095;
constexpr double kButtonMinHeight = 375;
constexpr int kButtonPadding = 12;
// The skinned title bar, which takes the place of the system's caption.
constexpr int kTitleBarHeight = 32;

// How an unwrapped label lays out its text; measuring with the same flags keeps the label
// exactly as large as what it paints.
constexpr int kLabelFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextExpandTabs;

// Messages built for Windows end their lines with CR LF; a CR shown as a glyph helps nobody.
QString DisplayText(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

// Lays text out in lines of `width` pixels and returns the height. Lines break between
// words, and inside a word only when it is longer than a line: a long folder path in a
// message must wrap rather than run out of the window.
qreal LayOutWrapped(QTextLayout& layout, qreal width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += line.height();
    }
    layout.endLayout();
    return y;
}

QString ForTextLayout(QString text)
{
    // QTextLayout breaks lines at line separators, not at '\n'.
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    return text;
}

// lblMsg. Unwrapped it paints as any label; wrapped it paints with LayOutWrapped, the same
// routine that measured it.
class MessageLabel final : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (!wordWrap()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        QTextLayout layout(ForTextLayout(text()), font(), this);
        const QRect area = contentsRect();
        LayOutWrapped(layout, area.width());
        layout.draw(&painter, area.topLeft());
    }
};

// The four icons, drawn as shapes rather than bitmaps so that they stay sharp at every
// scale. Coordinates are in a 32 x 32 design square.
void PaintBadge(QPainter& painter, const QColor& top, const QColor& bottom)
{
    QLinearGradient fill(0, 1, 0, 31);
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    painter.setPen(QPen(bottom.darker(125), 1));
    painter.setBrush(fill);
    painter.drawEllipse(QPointF(16, 16), 14.5, 14.5);
}

void PaintDot(QPainter& painter, const QColor& colour, QPointF centre, qreal radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(centre, radius, radius);
}

void PaintStroke(QPainter& painter, const QColor& colour, qreal width, const QPainterPath& path)
{
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
}

void PaintMessageIcon(QPainter& painter, const QRectF& area, MessageIcon icon)
{
    if (icon == MessageIcon::None || area.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(area.width() / 32.0, area.height() / 32.0);

    const QColor white(255, 255, 255);
    const QColor blueTop(0x3a, 0x92, 0xea);
    const QColor blueBottom(0x0b, 0x5c, 0xc2);
    switch (icon) {
    case MessageIcon::Critical: {
        PaintBadge(painter, QColor(0xf0, 0x55, 0x4b), QColor(0xc4, 0x2b, 0x1c));
        QPainterPath cross;
        cross.moveTo(11.2, 11.2);
        cross.lineTo(20.8, 20.8);
        cross.moveTo(20.8, 11.2);
        cross.lineTo(11.2, 20.8);
        PaintStroke(painter, white, 3.2, cross);
        break;
    }
    case MessageIcon::Question: {
        PaintBadge(painter, blueTop, blueBottom);
        QPainterPath hook;
        hook.moveTo(12.0, 12.6);
        hook.cubicTo(12.0, 9.7, 13.9, 8.0, 16.2, 8.0);
        hook.cubicTo(18.6, 8.0, 20.4, 9.6, 20.4, 11.9);
        hook.cubicTo(20.4, 14.1, 18.7, 15.0, 17.5, 15.9);
        hook.cubicTo(16.5, 16.7, 16.1, 17.4, 16.1, 18.8);
        PaintStroke(painter, white, 3.0, hook);
        PaintDot(painter, white, QPointF(16.1, 23.4), 2.0);
        break;
    }
    case MessageIcon::Information: {
        PaintBadge(painter, blueTop, blueBottom);
        PaintDot(painter, white, QPointF(16, 9.4), 2.1);
        QPainterPath stem;
        stem.moveTo(16, 14.2);
        stem.lineTo(16, 23.4);
        PaintStroke(painter, white, 3.4, stem);
        break;
    }
    case MessageIcon::Exclamation: {
        QPainterPath triangle;
        triangle.moveTo(16, 3.2);
        triangle.lineTo(29.6, 27.4);
        triangle.lineTo(2.4, 27.4);
        triangle.closeSubpath();
        QLinearGradient fill(0, 2, 0, 30);
        fill.setColorAt(0, QColor(0xff, 0xd9, 0x5c));
        fill.setColorAt(1, QColor(0xf2, 0xae, 0x00));
        // A wide stroke in the fill's own colour rounds the corners; a thin darker one keeps
        // the edge visible on light backgrounds.
        painter.setPen(QPen(QBrush(fill), 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(fill);
        painter.drawPath(triangle);
        QPainterPathStroker outline;
        outline.setWidth(3.0);
        outline.setJoinStyle(Qt::RoundJoin);
        const QPainterPath shape = outline.createStroke(triangle).united(triangle).simplified();
        painter.setPen(QPen(QColor(0xb8, 0x82, 0x00), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(shape);
        const QColor ink(0x24, 0x24, 0x24);
        QPainterPath bar;
        bar.moveTo(16, 11.0);
        bar.lineTo(16, 18.8);
        PaintStroke(painter, ink, 3.0, bar);
        PaintDot(painter, ink, QPointF(16, 23.2), 1.8);
        break;
    }
    case MessageIcon::None:
        break;
    }
    painter.restore();
}

// imgIcon: paints its icon at whatever resolution the screen has.
class MessageIconView final : public QWidget {
public:
    using QWidget::QWidget;

    void setIcon(MessageIcon icon)
    {
        icon_ = icon;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        PaintMessageIcon(painter, QRectF(rect()), icon_);
    }

private:
    MessageIcon icon_ = MessageIcon::None;
};

// The layout's places are below the title bar.
QRect ToQRect(const PixelRect& r)
{
    return QRect(r.left, r.top + kTitleBarHeight, r.width, r.height);
}

} // namespace

frmMsg::frmMsg(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::MSWindowsFixedSizeDialogHint)
{
    setObjectName(QStringLiteral("frmMsg"));
    // The main window's skin: its panel, palette and keys, and a sky band as the title bar, so
    // that a message reads as part of the same program.
    setPalette(skin::PanelPalette());
    setStyleSheet(skin::MessageStyleSheet());
    // A message box never ends the program, even when it is the last window closed.
    setAttribute(Qt::WA_QuitOnClose, false);
    setModal(false);

    imgIcon_ = new MessageIconView(this);
    imgIcon_->setObjectName(QStringLiteral("imgIcon"));
    imgIcon_->hide();

    lblMsg_ = new MessageLabel(this);
    lblMsg_->setObjectName(QStringLiteral("lblMsg"));
    lblMsg_->setTextFormat(Qt::PlainText);
    lblMsg_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblMsg_->setMargin(0);
    lblMsg_->setIndent(0);

    txtMsg_ = new QPlainTextEdit(this);
    txtMsg_->setObjectName(QStringLiteral("txtMsg"));
    txtMsg_->setReadOnly(true);
    txtMsg_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    txtMsg_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtMsg_->hide();

    const auto makeButton = [this](const QString& name, int code) {
        auto* button = new QPushButton(this);
        button->setObjectName(name);
        button->setAutoDefault(true);
        button->hide();
        connect(button, &QPushButton::clicked, this, [this, code] { SetButtonResult(code); });
        return button;
    };
    cmd12_ = makeButton(QStringLiteral("cmd12"), MessageButtonCode::cmd12);
    cmd22_ = makeButton(QStringLiteral("cmd22"), MessageButtonCode::cmd22);
    cmd13_ = makeButton(QStringLiteral("cmd13"), MessageButtonCode::cmd13);
    cmd23_ = makeButton(QStringLiteral("cmd23"), MessageButtonCode::cmd23);
    cmd33_ = makeButton(QStringLiteral("cmd33"), MessageButtonCode::cmd33);

    SkyBand_ = new SkyBand(this);
    SkyBand_->setObjectName(QStringLiteral("SkyBand"));
    auto* titleRow = new QHBoxLayout(SkyBand_);
    titleRow->setContentsMargins(12, 0, 6, 2);
    titleRow->setSpacing(8);
    lblTitle_ = new QLabel(SkyBand_);
    lblTitle_->setObjectName(QStringLiteral("lblTitle"));
    lblTitle_->setTextFormat(Qt::PlainText);
    QPalette titleInk = lblTitle_->palette();
    titleInk.setColor(QPalette::WindowText, Qt::white);
    lblTitle_->setPalette(titleInk);
    auto* close =
        new PictureButton(PictureButton::Glyph::Close, {}, PictureButton::Kind::TitleBar, SkyBand_);
    close->setObjectName(QStringLiteral("cmdTitleClose"));
    close->setFixedSize(22, 22);
    close->setFocusPolicy(Qt::NoFocus);
    connect(close, &QAbstractButton::clicked, this, &frmMsg::reject);
    cmdTitleClose_ = close;
    titleRow->addWidget(lblTitle_, 1);
    titleRow->addWidget(close);

    answer_.Reset(style_);
    ApplyFonts();
}

frmMsg::~frmMsg() = default;

void frmMsg::setMessageText(const QString& text)
{
    text_ = text;
}

void frmMsg::setMessageStyle(int style)
{
    style_ = style;
    answer_.Reset(style);
}

void frmMsg::setTitle(const QString& title)
{
    setWindowTitle(title);
    lblTitle_->setText(title);
}

void frmMsg::SetButtonResult(int code)
{
    answer_.SetButtonResult(code);
    Q_EMIT answered();
}

void frmMsg::reject()
{
    if (!answer_.done()) {
        answer_.Dismiss();
        Q_EMIT answered();
    }
    QDialog::reject();
}

void frmMsg::setFixedFontName(const QString& family)
{
    fixedFontName_ = family.trimmed();
    ApplyFonts();
}

void frmMsg::setMessageSound(std::function<void(int)> play)
{
    playSound_ = std::move(play);
}

void frmMsg::setCentreOn(QWidget* window)
{
    centreOn_ = window;
}

void frmMsg::ApplyFonts()
{
    QFont windowFont(QStringLiteral("Arial"), kWindowPointSize);
    windowFont.setStyleHint(QFont::SansSerif);
    QFont textFont(QStringLiteral("Courier New"), kTextPointSize);
    textFont.setStyleHint(QFont::TypeWriter);
    if (!QFontInfo(textFont).fixedPitch()) {
        // Without Courier New the font system may hand out a proportional face; the message
        // texts line up columns with spaces, so take the system's fixed-pitch font instead.
        textFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        textFont.setPointSize(kTextPointSize);
    }
    if (!fixedFontName_.isEmpty()) {
        windowFont = QFont(fixedFontName_, kWindowPointSize);
        textFont = QFont(fixedFontName_, kTextPointSize);
        textFont.setStyleHint(QFont::TypeWriter);
    }
    setFont(windowFont);
    lblMsg_->setFont(textFont);
    txtMsg_->setFont(textFont);
    // The title in the window's own font, bold as the system draws captions.
    QFont titleFont = windowFont;
    titleFont.setBold(true);
    lblTitle_->setFont(titleFont);
}

QPushButton* frmMsg::ButtonOf(int code) const
{
    switch (code) {
    case MessageButtonCode::cmd12:
        return cmd12_;
    case MessageButtonCode::cmd22:
        return cmd22_;
    case MessageButtonCode::cmd13:
        return cmd13_;
    case MessageButtonCode::cmd23:
        return cmd23_;
    case MessageButtonCode::cmd33:
        return cmd33_;
    default:
        return nullptr;
    }
}

void frmMsg::Form_Load()
{
    const QString text = DisplayText(text_);
    const double twipsPerPixelX = 1440.0 / std::max(1, logicalDpiX());
    const double twipsPerPixelY = 1440.0 / std::max(1, logicalDpiY());

    // The buttons of this style with their captions, and one size that fits every caption.
    const MessageButtons buttons = ButtonLayoutOf(style_);
    for (QPushButton* button : {cmd12_, cmd22_, cmd13_, cmd23_, cmd33_}) {
        button->hide();
        button->setDefault(false);
    }
    int captionWidth = 0;
    int buttonHeight = static_cast<int>(std::lround(kButtonMinHeight / twipsPerPixelY));
    for (int code : ButtonCodesOf(buttons)) {
        QPushButton* button = ButtonOf(code);
        button->setText(QString::fromStdString(ButtonCaption(buttons, code)));
        captionWidth = std::max(
            captionWidth, button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width());
        buttonHeight = std::max(buttonHeight, button->sizeHint().height());
    }

    const QFontMetrics metrics = lblMsg_->fontMetrics();
    const QRect unwrapped = metrics.boundingRect(QRect(), kLabelFlags, text);
    MessageLayoutInput input;
    input.style = style_;
    input.twipsPerPixelX = twipsPerPixelX;
    input.twipsPerPixelY = twipsPerPixelY;
    input.captionHeight = kTitleBarHeight;
    input.buttonSize = {std::max(captionWidth + 2 * kButtonPadding,
                                 static_cast<int>(std::lround(kButtonMinWidth / twipsPerPixelX))),
                        buttonHeight};
    // An empty message still takes one line, so the buttons keep their distance to the top.
    input.textSize = {unwrapped.width(), std::max(unwrapped.height(), metrics.height())};
    input.wrappedTextHeight = [this, &text](int width) {
        QTextLayout layout(ForTextLayout(text), lblMsg_->font(), lblMsg_);
        return static_cast<int>(std::ceil(LayOutWrapped(layout, width)));
    };
    const MessageLayout layout = LayOutMessage(input);

    static_cast<MessageIconView*>(imgIcon_)->setIcon(layout.icon);
    imgIcon_->setGeometry(ToQRect(layout.iconRect));
    imgIcon_->setVisible(layout.icon != MessageIcon::None);

    lblMsg_->setText(text);
    lblMsg_->setWordWrap(layout.wrap);
    lblMsg_->setGeometry(ToQRect(layout.label));
    lblMsg_->setVisible(!layout.scrolling);
    if (layout.scrolling) {
        txtMsg_->setPlainText(text);
        txtMsg_->setGeometry(ToQRect(layout.textBox));
    } else {
        txtMsg_->clear();
    }
    txtMsg_->setVisible(layout.scrolling);

    QWidget* previous = nullptr;
    for (const MessageButtonPlace& place : layout.buttonPlaces) {
        QPushButton* button = ButtonOf(place.code);
        button->setGeometry(ToQRect(place.rect));
        button->show();
        if (previous)
            setTabOrder(previous, button);
        previous = button;
    }
    if (QPushButton* focus = ButtonOf(layout.focusButton))
        focus->setDefault(true);

    setFixedSize(layout.window.width, layout.window.height + kTitleBarHeight);
    // Inside the panel's one-pixel edge.
    SkyBand_->setGeometry(1, 1, width() - 2, kTitleBarHeight - 1);
    PlaceWindow();
}

void frmMsg::PlaceWindow()
{
    QRect around;
    QScreen* screen = nullptr;
    if (centreOn_ && centreOn_->isVisible()) {
        around = centreOn_->frameGeometry();
        screen = centreOn_->screen();
    } else {
        screen = QGuiApplication::screenAt(QCursor::pos());
        if (!screen)
            screen = QGuiApplication::primaryScreen();
        if (screen)
            around = screen->availableGeometry();
    }
    if (around.isEmpty())
        return;
    QRect placed(QPoint(0, 0), size());
    placed.moveCenter(around.center());
    if (screen) {
        // Keep the whole window on the screen, also when the main window hangs over an edge.
        const QRect room = screen->availableGeometry();
        placed.moveLeft(std::clamp(placed.left(), room.left(),
                                   std::max(room.left(), room.right() - placed.width())));
        placed.moveTop(std::clamp(placed.top(), room.top(),
                                  std::max(room.top(), room.bottom() - placed.height())));
    }
    move(placed.topLeft());
}

void frmMsg::setVisible(bool visible)
{
    const bool showing = visible && !isVisible();
    if (showing) {
        Form_Load();
        if (playSound_)
            playSound_(style_);
    }
    QDialog::setVisible(visible);
    if (showing) {
        for (QPushButton* button : {cmd12_, cmd22_, cmd13_, cmd23_, cmd33_})
            if (button->isDefault())
                button->setFocus(Qt::OtherFocusReason);
    }
}

void frmMsg::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && isVisible() &&
        !isDone()) {
        // Decide once the activation has settled: which window took over is known only then.
        QTimer::singleShot(0, this, &frmMsg::Form_Deactivate);
    }
}

void frmMsg::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    skin::PaintPanel(painter, rect());
}

void frmMsg::mousePressEvent(QMouseEvent* event)
{
    // Without the system's title bar the window is moved by its body.
    if (!drag_.press(*this, event))
        QDialog::mousePressEvent(event);
}

void frmMsg::mouseMoveEvent(QMouseEvent* event)
{
    if (!drag_.move(*this, event))
        QDialog::mouseMoveEvent(event);
}

void frmMsg::mouseReleaseEvent(QMouseEvent* event)
{
    drag_.release();
    QDialog::mouseReleaseEvent(event);
}

void frmMsg::Form_Deactivate()
{
    // Another window of this program took the focus while the message waits for its answer:
    // take it back. Switching to another program stays possible.
    QWidget* active = QApplication::activeWindow();
    if (!active || active == this || !isVisible() || isDone())
        return;
    raise();
    activateWindow();
}

} // namespace vellumar
