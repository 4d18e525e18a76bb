#pragma once

#include <QWidget>

namespace vellumar {

// The band of sky across the top of a Vellumar window, under the window's title and its
// title-bar keys. It takes no mouse press, so the window is dragged by it.
class SkyBand final : public QWidget {
    Q_OBJECT

public:
    explicit SkyBand(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vellumar
