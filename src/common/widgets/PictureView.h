#pragma once

#include <QImage>
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

    // ShowPicture: loads a BMP, GIF or JPEG file and shows it (the view becomes visible).
    // Anything else, a missing file or one that does not decode leaves the view as it was;
    // false then.
    bool ShowPicture(FileOperations& files, const std::string& path, bool stretch);
    void clear();

    bool hasPicture() const { return !picture_.isNull(); }
    const QImage& picture() const { return picture_; }
    // Where the picture is drawn, in the view's coordinates; empty without a picture.
    QRect pictureRect() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect pictureArea() const;

    QImage picture_;
    bool stretch_ = true;
};

} // namespace vellumar
