#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <string>

namespace vellumar {

class FileOperations;

// The preview picture of a set or a situation in a recessed frame. The picture is fitted into
// the frame without distortion and drawn at the screen's own resolution.
class PictureView final : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    // ShowPicture: shows a BMP, GIF or JPEG file (the view becomes visible). Anything else or
    // a missing file leaves the view as it was; false then. The file is decoded when the
    // picture is first needed (drawn or asked for), so a preview that is never seen costs
    // nothing; one that does not decode then shows as no picture.
    bool ShowPicture(FileOperations& files, const std::string& path, bool stretch);
    void clear();

    bool hasPicture() const { return !picture().isNull(); }
    const QImage& picture() const;
    // Where the picture is drawn, in the view's coordinates; empty without a picture.
    QRect pictureRect() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect pictureArea() const;

    // The file still to decode; empty once decoded.
    mutable QString pending_;
    mutable QImage picture_;
    bool stretch_ = true;
};

} // namespace vellumar
