#include "common/widgets/PictureView.h"

#include "common/FileHelpers.h"
#include "common/FileOperations.h"
#include "common/Pict.h"
#include "common/ResultText.h"
#include "common/widgets/Skin.h"

#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

namespace vellumar {

namespace {

constexpr int kFrame = 3;

} // namespace

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent, false);
}

bool PictureView::ShowPicture(FileOperations& files, const std::string& path, bool stretch)
{
    if (!IsOK(FileExists(files, path)) || !IsShowablePicture(path))
        return false;
    // The path may come from cloud.ini in any letter case; read the file as it is on disk.
    pending_ = QString::fromStdString(files.resolve(path));
    picture_ = QImage();
    stretch_ = stretch;
    show();
    update();
    return true;
}

void PictureView::clear()
{
    pending_.clear();
    picture_ = QImage();
    update();
}

const QImage& PictureView::picture() const
{
    if (!pending_.isEmpty()) {
        QImageReader reader(pending_);
        reader.setAutoTransform(true);
        picture_ = reader.read();
        pending_.clear();
    }
    return picture_;
}

QRect PictureView::pictureArea() const
{
    return rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
}

QRect PictureView::pictureRect() const
{
    if (picture().isNull())
        return {};
    const QRect area = pictureArea();
    const PictureRect fit =
        FitPicture(picture_.width(), picture_.height(), area.width(), area.height(), stretch_);
    return {area.left() + fit.x, area.top() + fit.y, fit.width, fit.height};
}

QSize PictureView::sizeHint() const
{
    return {240 + 2 * kFrame, 180 + 2 * kFrame};
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    skin::PaintInset(painter, rect(), 5);
    const QRect area = pictureArea();
    if (!picture().isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QPainterPath clip;
        clip.addRoundedRect(QRectF(area), 3, 3);
        painter.setClipPath(clip);
        painter.drawImage(QRectF(pictureRect()), picture_);
        return;
    }
    // No picture: a faint horizon, as an instrument at rest.
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal horizon = area.top() + area.height() * 0.58;
    painter.setPen(QPen(QColor(0x7f, 0xbc, 0xff, 40), 1));
    painter.drawLine(QPointF(area.left() + area.width() * 0.2, horizon),
                     QPointF(area.right() - area.width() * 0.2, horizon));
    painter.setPen(QPen(QColor(0x7f, 0xbc, 0xff, 26), 1));
    const QPointF centre(area.center().x() + 0.5, horizon);
    painter.drawArc(QRectF(centre.x() - 18, centre.y() - 18, 36, 36), 0, 180 * 16);
}

} // namespace vellumar
