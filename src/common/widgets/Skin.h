#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QRectF>
#include <QString>

class QPainter;

namespace vellumar::skin {

// The look of Vellumar's windows: a dark instrument panel under a band of sky. Everything is
// drawn with QPainter, so it stays sharp at any scale; there is no bitmap to blur.

// Text and accents on the panel.
QColor PanelText();
QColor PanelTextDim();
QColor SkyAccent();
// The set filters: a blue label, and the chosen one in red.
QColor FilterColour();
QColor FilterChosenColour();
// Instrument readouts: amber for messages, green for the AutoRandom time.
QColor ReadoutAmber();
QColor ReadoutGreen();

// The palette of a panel window and everything on it.
QPalette PanelPalette();
// Lists, menus and scroll bars, which the palette alone leaves too light.
QString PanelStyleSheet();
// The same for the message box, with its push buttons and scrolling text. Kept apart because
// every rule costs the main window time at start-up, and it has neither.
QString MessageStyleSheet();

// The window body: a brushed dark panel with a bevelled edge.
void PaintPanel(QPainter& painter, const QRectF& rect);
// A band of sky from the zenith down to a warm horizon, with a few thin clouds.
void PaintSkyBand(QPainter& painter, const QRectF& rect);
// A recessed instrument well, as around a readout or a picture.
void PaintInset(QPainter& painter, const QRectF& rect, qreal radius);

// The program's icon: a sky disc with a cloud and a horizon, drawn at the size asked for.
void PaintAppIcon(QPainter& painter, const QRectF& rect);
QIcon AppIcon();

} // namespace vellumar::skin
