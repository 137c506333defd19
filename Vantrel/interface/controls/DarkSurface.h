// The look of short-lived overlays (the HUD, the quick switcher): dark in light and dark palettes, with
// rounded corners.
#pragma once

#include <QBitmap>
#include <QColor>
#include <QPalette>
#include <QSize>

class QPainter;
class QScreen;
class QWidget;

namespace vantrel::DarkSurface {

inline constexpr QColor text(255, 255, 255);
inline constexpr QColor secondText(200, 206, 218);
inline constexpr QColor linkText(0xa9, 0xc6, 0xff);

// A dark palette with the user's highlight.
[[nodiscard]] QPalette palette(const QPalette& users);

void paint(QPainter& painter, QSize size, double radius);

// Everything that paint() covers, if only in part. Without a compositor, transparent pixels would be black,
// so the mask removes them.
[[nodiscard]] QBitmap mask(QSize size, double radius);

// The screen with the pointer, or the primary one; null without screens.
[[nodiscard]] QScreen* screen();

} // namespace vantrel::DarkSurface
