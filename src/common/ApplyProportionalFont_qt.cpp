#include "common/ApplyProportionalFont_qt.h"

#include <QWidget>

namespace vellumar {

void ApplyProportionalFont(QWidget& window, const std::string& family)
{
    if (family.empty())
        return;
    const QString name = QString::fromStdString(family);
    // Popup menus belong to the window as well.
    for (QWidget* control : window.findChildren<QWidget*>()) {
        QFont font = control->font();
        font.setFamilies({name});
        control->setFont(font);
    }
    QFont font = window.font();
    font.setFamilies({name});
    window.setFont(font);
}

} // namespace vellumar
