#include "app/ScreenFacts_qt.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace vellumar {

ScreenFacts ReadScreenFacts()
{
    ScreenFacts facts;
    // With high-DPI scaling the toolkit reports the scaled screen as 96 logical pixels per
    // inch, and the windows scale themselves; only a screen that really runs larger fonts
    // reports more.
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        facts.logicalDpiY = static_cast<int>(std::lround(screen->logicalDotsPerInchY()));
    facts.installedFonts = InstalledFonts([] {
        TextList families;
        for (const QString& family : QFontDatabase::families())
            families.push_back(family.toStdString());
        return families;
    });
    return facts;
}

} // namespace vellumar
