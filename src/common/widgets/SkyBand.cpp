#include "common/widgets/SkyBand.h"

#include "common/widgets/Skin.h"

#include <QPainter>

namespace vellumar {

SkyBand::SkyBand(QWidget* parent)
    : QWidget(parent)
{}

void SkyBand::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    skin::PaintSkyBand(painter, rect());
}

} // namespace vellumar
