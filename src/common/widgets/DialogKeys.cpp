#include "common/widgets/DialogKeys.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace vellumar {

QHBoxLayout* DialogKeys(QPushButton*& ok, QPushButton*& cancel)
{
    auto* keys = new QHBoxLayout;
    keys->addStretch();
    ok = new QPushButton(QStringLiteral("OK"));
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    cancel = new QPushButton(QStringLiteral("Cancel"));
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    keys->addWidget(ok);
    keys->addWidget(cancel);
    return keys;
}

} // namespace vellumar
